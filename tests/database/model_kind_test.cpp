#include "database/model_kind.h"

#include <gtest/gtest.h>

#include <string>

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

TEST(ModelKindTest, KindsHaveTheirNumbersOfMemory) {
    EXPECT_EQ(static_cast<int>(ModelKind::kSection), 0);
    EXPECT_EQ(static_cast<int>(ModelKind::kBulkhead), 1);
    EXPECT_EQ(static_cast<int>(ModelKind::kTorsion), 2);
}

TEST(ModelKindTest, KeywordAndKindAreTwoWays) {
    for (const ModelKind kind : {ModelKind::kSection, ModelKind::kBulkhead, ModelKind::kTorsion}) {
        EXPECT_EQ(KindOfKeyword(KeywordOfKind(kind)), kind);
    }
    EXPECT_EQ(KeywordOfKind(ModelKind::kSection), "SECTION");
}

TEST(ModelKindTest, CaptionsOfTheModelList) {
    EXPECT_EQ(KindName(ModelKind::kSection), L"Section");
    EXPECT_EQ(KindName(ModelKind::kBulkhead), L"Bulkhead");
    EXPECT_EQ(KindName(ModelKind::kTorsion), L"Torsion");
}

}  // namespace
}  // namespace corvane
