#include "database/model_kind.h"

#include <gtest/gtest.h>

#include <string>

#include "report/message_numbers.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

TEST(ModelKindTest, KeywordsGiveTheirKinds) {
    EXPECT_EQ(KindOfKeyword("SECTION"), ModelKind::kSection);
    EXPECT_EQ(KindOfKeyword("BHA"), ModelKind::kBulkhead);
    EXPECT_EQ(KindOfKeyword("TORSION"), ModelKind::kTorsion);
}

TEST(ModelKindTest, AnyOtherKeywordIsASection) {
    for (const std::string_view keyword :
         {"", "bha", "Bha", " BHA", "BHA ", "BHAX", "torsion", "TORSION\t", "TORSIO", "3"}) {
        EXPECT_EQ(KindOfKeyword(keyword), ModelKind::kSection) << keyword;
    }
}

TEST(ModelKindTest, KindsHaveTheirNumbers) {
    EXPECT_EQ(static_cast<int>(ModelKind::kSection), 0);
    EXPECT_EQ(static_cast<int>(ModelKind::kBulkhead), 1);
    EXPECT_EQ(static_cast<int>(ModelKind::kTorsion), 2);
}

TEST(ModelKindTest, KeywordAndKindAreTwoWays) {
    for (const KindFacts& facts : Kinds()) {
        EXPECT_EQ(KindOfKeyword(KeywordOfKind(facts.kind)), facts.kind);
    }
    EXPECT_EQ(KeywordOfKind(ModelKind::kSection), "SECTION");
}

TEST(ModelKindTest, CaptionsOfTheModelList) {
    EXPECT_EQ(KindName(ModelKind::kSection), L"Section");
    EXPECT_EQ(KindName(ModelKind::kBulkhead), L"Bulkhead");
    EXPECT_EQ(KindName(ModelKind::kTorsion), L"Torsion");
}

TEST(ModelKindTest, TableHasEveryKindAtItsNumber) {
    ASSERT_EQ(Kinds().size(), 3U);
    for (size_t i = 0; i < Kinds().size(); ++i) {
        EXPECT_EQ(static_cast<size_t>(Kinds()[i].kind), i);
        EXPECT_EQ(&FactsOf(Kinds()[i].kind), &Kinds()[i]);
        EXPECT_EQ(Kinds()[i].icon, static_cast<int>(i) + 1);
    }
}

TEST(ModelKindTest, CaptionsOfTheModelMenu) {
    EXPECT_STREQ(FactsOf(ModelKind::kSection).menuCaption, L"&Section");
    EXPECT_STREQ(FactsOf(ModelKind::kBulkhead).menuCaption, L"Bul&khead");
    EXPECT_STREQ(FactsOf(ModelKind::kTorsion).menuCaption, L"&Torsion");
}

TEST(ModelKindTest, OnlySectionsHaveNoSuffixInTheExchangeLists) {
    EXPECT_STREQ(FactsOf(ModelKind::kSection).exchangeSuffix, L"");
    EXPECT_STREQ(FactsOf(ModelKind::kBulkhead).exchangeSuffix, L" (bulkhead)");
    EXPECT_STREQ(FactsOf(ModelKind::kTorsion).exchangeSuffix, L" (torsion)");
}

TEST(ModelKindTest, ProgramsAreFixedNamesOrMessages) {
    const test::FakeCatalogue catalogue(
        {{kMsgSectionProgram, "Input.exe"}, {kMsgRuleProgram, "Rule.exe"}});
    const KindFacts& section = FactsOf(ModelKind::kSection);
    EXPECT_EQ(ProgramFileName(section.inputProgram), L"Input.exe");
    EXPECT_EQ(ProgramFileName(section.ruleProgram), L"Rule.exe");
    EXPECT_EQ(ProgramFileName(section.csrProgram), L"CsrCheck.exe");
    const KindFacts& bulkhead = FactsOf(ModelKind::kBulkhead);
    EXPECT_EQ(ProgramFileName(bulkhead.inputProgram), L"BhdInput.exe");
    EXPECT_EQ(ProgramFileName(bulkhead.ruleProgram), L"BhdCheck.exe");
    EXPECT_EQ(ProgramFileName(bulkhead.csrProgram), L"BhdCheck.exe");
    const KindFacts& torsion = FactsOf(ModelKind::kTorsion);
    for (const ProgramFile& program :
         {torsion.inputProgram, torsion.ruleProgram, torsion.csrProgram}) {
        EXPECT_EQ(ProgramFileName(program), L"TorModel.exe");
    }
}

}  // namespace
}  // namespace corvane
