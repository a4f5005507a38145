#include "database/comparing.h"

#include <gtest/gtest.h>

#include "tests/database/block_sample.h"
#include "tests/database/editing_fixture.h"

namespace corvane {
namespace {

using test::Narrow;

struct ComparingTest : test::EditingTest {
    std::wstring other = folder.File(L"before.ve2");

    // A model of a database: a section of this name and identifier at a position.
    struct Model {
        const wchar_t* name;
        const char* identifier;
        float x_m = 0;
    };
    std::string TextOf(const std::vector<Model>& models) {
        std::string text = test::SampleHead();
        int32_t number = 0;
        for (const Model& model : models) {
            section.name = model.name;
            section.identifier = model.identifier;
            section.x_m = model.x_m;
            text += test::BlockText(section, ++number);
        }
        return text;
    }
    // What the comparison says, a line for each model: "before > now: what".
    std::vector<std::string> Compared(const std::string& before, const std::string& now) {
        test::WriteFileBytes(other, before);
        Write(now);
        std::vector<ComparedModel> models;
        EXPECT_TRUE(CompareDatabases(other, path, models));
        std::vector<std::string> found;
        for (const ComparedModel& model : models) {
            const auto text = [](const std::optional<ModelEntry>& entry) {
                return entry ? std::to_wstring(entry->number) + L' ' + entry->name : L"-";
            };
            found.push_back(Narrow(text(model.before) + L" > " + text(model.now)) +
                            (model.isRenamed ? " renamed" : "") +
                            (model.hasOtherNumber ? " moved" : "") +
                            (model.isChanged ? " changed" : ""));
        }
        return found;
    }
    std::vector<std::string> Compared(const std::vector<Model>& before,
                                      const std::vector<Model>& now) {
        return Compared(TextOf(before), TextOf(now));
    }
};

using Lines = std::vector<std::string>;

TEST_F(ComparingTest, EachKindOfDifferenceIsFound) {
    EXPECT_EQ(Compared({{L"A", "a"}, {L"B", "b"}, {L"C", "c"}, {L"D", "d"}},
                       {{L"A", "a"}, {L"New", "n"}, {L"B2", "b"}, {L"D", "d", 12.5F}}),
              (Lines{"1 A > 1 A", "- > 2 New", "2 B > 3 B2 renamed moved", "4 D > 4 D changed",
                     "3 C > -"}));
}

// Another program may give a model another identifier: the name leads to it then.
TEST_F(ComparingTest, IdentifierLeadsToAModelAndElseItsName) {
    EXPECT_EQ(Compared({{L"A", "a"}, {L"B", "b"}}, {{L"B", "a"}, {L"A", "b"}}),
              (Lines{"1 A > 1 B renamed", "2 B > 2 A renamed"}));
    EXPECT_EQ(Compared({{L"A", "a"}, {L"B", "b"}}, {{L"B", "other"}, {L"A", "a"}}),
              (Lines{"2 B > 1 B moved changed", "1 A > 2 A moved"}));
}

// An identifier that two models have leads to none of them; of one name the order decides.
TEST_F(ComparingTest, DoubleIdentifiersAndNamesGoByTheirOrder) {
    EXPECT_EQ(Compared({{L"A", "same"}, {L"A", "same", 5}, {L"B", "b"}},
                       {{L"A", "same"}, {L"A", "same", 5}, {L"A", "same", 9}, {L"B", "b"}}),
              (Lines{"1 A > 1 A", "2 A > 2 A", "- > 3 A", "3 B > 4 B moved"}));
}

TEST_F(ComparingTest, ModelOfAnotherKindIsAnotherModel) {
    const std::vector<test::SampleBlock> blocks = test::FiveBlocks();
    const std::string text = Copied({blocks[0]});
    std::string torsion = text;
    const size_t keyword = torsion.find("SECTION");
    ASSERT_NE(keyword, std::string::npos);
    torsion.replace(keyword, 7, "TORSION");
    const Lines found = Compared(text, torsion);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_TRUE(found[0].starts_with("- > "));
    EXPECT_TRUE(found[1].ends_with(" > -"));
}

// Lines that only look different are the same: nothing is called changed that is not.
TEST_F(ComparingTest, LegendsAndFormsOfNumbersAreNoChange) {
    const std::string before = TextOf({{L"A", "a"}, {L"B", "b"}});
    std::string now = test::WithLineFeeds(before);
    EXPECT_EQ(Compared(before, now), (Lines{"1 A > 1 A", "2 B > 2 B"}));
}

// Models that have lost their numbers, or share one, are compared each by its own lines.
TEST_F(ComparingTest, DamagedNumbersDoNotMixModelsUp) {
    std::string before = TextOf({{L"A", "a"}, {L"B", "b", 3}, {L"C", "c", 4}});
    for (size_t at = 0; (at = before.find(" 2 \r\nSECTION", at)) != std::string::npos;) {
        before.replace(at, 3, " 1 ");
    }
    ASSERT_NE(before, TextOf({{L"A", "a"}, {L"B", "b", 3}, {L"C", "c", 4}}));
    std::string now = before;
    const size_t identifier = now.find("\r\nb\r\n");
    ASSERT_NE(identifier, std::string::npos);
    const size_t plates = now.find("15.5", identifier);
    ASSERT_NE(plates, std::string::npos);
    now.replace(plates, 4, "16.5");
    EXPECT_EQ(Compared(before, now), (Lines{"1 A > 1 A", "1 B > 1 B changed", "3 C > 3 C"}));
}

TEST_F(ComparingTest, EmptyDatabasesAreTheSame) {
    EXPECT_EQ(Compared(test::SampleHead(), test::SampleHead()), Lines());
}

TEST_F(ComparingTest, WhatIsNoDatabaseIsReported) {
    Write(TextOf({{L"A", "a"}}));
    std::vector<ComparedModel> models;
    EXPECT_FALSE(CompareDatabases(other, path, models));
    EXPECT_EQ(test::RecordedReports::Of("warning"),
              Lines{test::ShownText(kMsgDatabaseMissing, {other})});
    test::RecordedReports::events.clear();
    test::WriteFileBytes(other, "no database\r\n");
    EXPECT_FALSE(CompareDatabases(path, other, models));
    EXPECT_EQ(test::RecordedReports::Of("warning"),
              Lines{test::ShownText(kMsgNoDatabase, {other})});
}

}  // namespace
}  // namespace corvane
