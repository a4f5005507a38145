#include "database/differences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "database/column_names.h"
#include "database/model_kind.h"
#include "tests/database/editing_fixture.h"
#include "text/numbers.h"

namespace corvane {
namespace {

using test::DataPath;
using test::Narrow;
using test::ReadFileBytes;

struct DifferencesTest : test::EditingTest {
    std::wstring other = folder.File(L"before.ve2");
    int32_t number = 7;

    // The differences between two texts of a database with this model, "where|field|before|now".
    std::vector<std::string> Between(const std::string& before, const std::string& now) {
        test::WriteFileBytes(other, before);
        Write(now);
        std::vector<std::string> found;
        EXPECT_TRUE(CompareModels({other, number}, {path, number}, [&](const Difference& each) {
            found.push_back(
                Narrow(each.where + L'|' + each.field + L'|' + each.before + L'|' + each.now));
            return true;
        }));
        bool differ = false;
        EXPECT_TRUE(FindOtherContents({other, number}, {path, number}, differ));
        const auto isName = [](const std::string& text) { return text.starts_with("Model|Name|"); };
        EXPECT_EQ(differ, !std::ranges::all_of(found, isName));
        return found;
    }
    static std::string Golden(const char* name) {
        return ReadFileBytes(DataPath(std::string("golden/") + name));
    }
    static std::string Replaced(std::string text, std::string_view from, std::string_view to) {
        const size_t place = text.find(from);
        EXPECT_NE(place, std::string::npos) << from;
        return text.replace(place, from.size(), to);
    }
};

using Lines = std::vector<std::string>;

TEST_F(DifferencesTest, EqualModelsHaveNone) {
    for (const char* golden : {"section_full.ve2", "section_bare.ve2"}) {
        EXPECT_EQ(Between(Golden(golden), Golden(golden)), Lines()) << golden;
    }
}

TEST_F(DifferencesTest, ValueIsNamedWithItsItemAndBothTexts) {
    const std::string golden = Golden("section_full.ve2");
    EXPECT_EQ(Between(golden, Replaced(golden, "\t2.4\t", "\t2.6\t")),
              Lines{"Panel 1 'Bottom', plate 1|End [m]|2.4|2.6"});
    EXPECT_EQ(Between(golden, Replaced(golden, " 12.5 \t 32.2 ", " 12.75 \t 32.2 ")),
              Lines{"Head|X [m]|12.5|12.75"});
    EXPECT_EQ(Between(golden, Replaced(golden, "ID-0001", "ID-0002")),
              Lines{"Head|Identifier|ID-0001|ID-0002"});
    EXPECT_EQ(Between(golden, Replaced(golden, "Frame 100", "Frame 101")),
              Lines{"Model|Name|Frame 100|Frame 101"});
    EXPECT_EQ(Between(golden, Replaced(golden, "10\t20\t30", "10\t25\t30")),
              Lines{"Compartment 1 'Double bottom 3 P'|Still water pressure 2 [kPa]|20|25"});
    EXPECT_EQ(Between(golden, Replaced(golden, "\t12\t6.25\t1.6", "\t12\t6.5\t1.6")),
              Lines{"Compartment 1 'Double bottom 3 P'|Free surface breadth 1 [m]|6.25|6.5"});
    EXPECT_EQ(Between(golden, Replaced(golden, "Double bottom 3 P", "Double bottom 3")),
              Lines{"Compartment 1 'Double bottom 3'|Name|Double bottom 3 P|Double bottom 3"});
}

TEST_F(DifferencesTest, BracketOfASpanDoesNotHideItsPosition) {
    const std::string golden = Golden("section_full.ve2");
    EXPECT_EQ(Between(golden, Replaced(golden, "0.55\t .8 \t 1 \r\n", "0.55\t .8 \t 2 \r\n")),
              Lines{"Panel 1 'Bottom', span 1|Position|1|2"});
    const std::string bracketed = Replaced(golden, "0.55\t .8 \t 1 \r\n",
                                           "0.55\t .8 \t 4 \t .6 \t 0 \t 300 \t 12 \t 0 \t 0 "
                                           "\t 1 \t 1 \r\n");
    const Lines found = Between(golden, bracketed);
    ASSERT_EQ(found.size(), 8U);
    EXPECT_EQ(found.front(), "Panel 1 'Bottom', span 1|Bracket kind||4");
    EXPECT_EQ(found.back(), "Panel 1 'Bottom', span 1|Bracket material||1");
}

// ---- What is no difference ---------------------------------------------------------------------

TEST_F(DifferencesTest, FormOfNumbersCommentsAndOrderOfTablesDoNotCount) {
    const std::string golden = Golden("section_full.ve2");
    EXPECT_EQ(Between(golden, Replaced(golden, " 12.5 \t 32.2 ", "1.25E+01,0032.20")), Lines());
    EXPECT_EQ(Between(golden, Replaced(golden, "* Name\r\n", "* Other legend\r\n*\r\n")), Lines());
    EXPECT_EQ(Between(golden, Replaced(golden, " 2.002 ", " 1.9 ")), Lines());
    EXPECT_EQ(Between(golden, test::WithLineFeeds(golden)), Lines());
    const size_t openings = golden.find("------------------ OPENINGS");
    const size_t pillars = golden.find("------------------ PILLARS");
    const size_t fatigue = golden.find("------------------ SPAN FATIGUE");
    const std::string moved = golden.substr(0, openings) +
                              golden.substr(pillars, fatigue - pillars) +
                              golden.substr(openings, pillars - openings) + golden.substr(fatigue);
    EXPECT_EQ(Between(golden, moved), Lines());
}

// ---- What comes and goes -----------------------------------------------------------------------

TEST_F(DifferencesTest, AddedAndRemovedRowsHaveAllTheirValues) {
    const std::string golden = Golden("section_full.ve2");
    const std::string now = Replaced(golden, " 2 \t9.125\t 12 \t 1 \t .75 \t 3.2 \t 1 \r\n", "");
    EXPECT_EQ(Between(golden, now),
              Lines{"Panel 2 'Inner side of exactly forty characters,,', plate 1||9.125 12 1 0.75 "
                    "3.2 1|"});
    EXPECT_EQ(Between(now, golden),
              Lines{"Panel 2 'Inner side of exactly forty characters,,', plate 1|||9.125 12 1 0.75 "
                    "3.2 1"});
}

TEST_F(DifferencesTest, NamesAndUnknownRowsThatEndLikeACommentRuleAreNotCut) {
    const std::string golden = Golden("section_full.ve2");
    EXPECT_EQ(Between(golden, Replaced(golden, "\r\nVoid\r\n", "\r\nVoid*\r\n")),
              Lines{"Compartment 2 'Void*'|Name|Void|Void*"});
    EXPECT_EQ(Between(golden, Replaced(golden, "ID-0001", "ID-0001*")),
              Lines{"Head|Identifier|ID-0001|ID-0001*"});
    const std::string table = golden + "------------------ WELDS ------------------\r\n a 2\r\n";
    EXPECT_EQ(Between(table, Replaced(table, " a 2", " a 2*")),
              Lines{"WELDS, row 1|Column 2|2|2*"});
    EXPECT_EQ(Between(table, Replaced(table, " a 2", " a, 2")),
              Lines{"WELDS, row 1|Column 1|a|a,"});
}

// A row that has nothing but its panel's number is a row.
TEST_F(DifferencesTest, EmptyRowsComeAndGo) {
    const std::string golden = Golden("section_full.ve2");
    const std::string row = " 2 \t9.125\t 12 \t 1 \t .75 \t 3.2 \t 1 \r\n";
    const std::string now = Replaced(golden, row, row + " 2 \r\n");
    const std::string where = "Panel 2 'Inner side of exactly forty characters,,', plate 2|";
    EXPECT_EQ(Between(golden, now), Lines{where + "||(empty)"});
    EXPECT_EQ(Between(now, golden), Lines{where + "|(empty)|"});
}

// What belongs to the panels after a new one has other numbers, and is still the same.
TEST_F(DifferencesTest, ItemsOfAPanelThatMovedAreTheSame) {
    SectionModel now = section;
    Panel added;
    added.name = L"New panel";
    now.panels.insert(now.panels.begin(), added);
    number = 1;
    const Lines found = Between(test::SampleHead() + test::BlockText(section, 1),
                                test::SampleHead() + test::BlockText(now, 1));
    ASSERT_FALSE(found.empty());
    EXPECT_TRUE(found.front().starts_with("Panel 1 'New panel'|||New panel"));
    for (size_t i = 1; i < found.size(); ++i) {
        EXPECT_NE(found[i].find("|Number|"), std::string::npos) << found[i];
    }
    EXPECT_EQ(found.size(), 1 + section.panels.size());
}

TEST_F(DifferencesTest, UnknownTablesAndTorsionModelsAreComparedRowByRow) {
    const std::string golden = Golden("section_full.ve2");
    const std::string table = golden + "------------------ WELDS ------------------\r\n 1 2 3\r\n";
    EXPECT_EQ(Between(table, Replaced(table, " 1 2 3", " 1 2 4")),
              Lines{"WELDS, row 1|Column 3|3|4"});
    EXPECT_EQ(Between(golden, table), Lines{"WELDS, row 1|||1 2 3"});
    const std::string torsion =
        Replaced(Replaced(golden, "SECTION\r\n", "TORSION\r\n"), "Frame 100", "Torsion");
    EXPECT_EQ(Between(torsion, Replaced(torsion, " 1.25 ", " 1.5 ")).size(), 1U);
}

TEST_F(DifferencesTest, EndsWhenNoMoreIsWanted) {
    const std::string golden = Golden("section_full.ve2");
    test::WriteFileBytes(other, golden);
    Write(Replaced(Replaced(golden, "\t2.4\t", "\t2.6\t"), "ID-0001", "ID-0002"));
    int count = 0;
    EXPECT_TRUE(CompareModels({other, number}, {path, number}, [&](const Difference&) {
        ++count;
        return false;
    }));
    EXPECT_EQ(count, 1);
}

// ---- Every value -------------------------------------------------------------------------------

// A text of the file that a reader reads as one value.
struct Value {
    size_t begin = 0;
    size_t end = 0;
    bool isOwner = false;  // or a key: another one makes another item of the row
};

// All numbers of the block's lines after the name, but for the structural ones.
std::vector<Value> NumbersOf(const std::string& text, ModelKind kind) {
    std::vector<Value> values;
    size_t begin = text.find('\n', text.find("MODEL NAME\r\n")) + 1;
    const std::vector<TableNames> tables = FactsOf(kind).names().tables;
    const ItemNames* item = FactsOf(kind).names().head;
    size_t line = 0;
    bool isName = true;
    for (; begin < text.size(); begin = text.find('\n', begin) + 1) {
        const std::string_view whole =
            std::string_view(text).substr(begin, text.find('\r', begin) - begin);
        if (whole.starts_with("*")) continue;
        if (whole.starts_with("------")) {
            const auto found = std::ranges::find(tables, std::string(whole), &TableNames::label);
            item = found == tables.end() ? nullptr : found->item;
            line = 0;
            continue;
        }
        if (isName || item == nullptr || whole.empty()) {
            isName = false;
            continue;
        }
        const LineNames& names = item->lines[line];
        const bool isFirst = line == 0;
        line = (line + 1) % item->lines.size();
        if (names.form == LineForm::kName) continue;
        size_t at = names.form == LineForm::kNameAndNumbers ? whole.find('\t') : 0;
        const size_t keys = item->keys.size() + (item->hasOwner ? 1U : 0U);
        for (size_t column = 0;; ++column) {
            at = whole.find_first_not_of(" \t", at);
            if (at == std::string_view::npos || whole[at] == '*') break;
            const size_t end = std::min(whole.find_first_of(" \t*", at), whole.size());
            values.push_back({begin + at, begin + end, isFirst && column < keys});
            at = end;
        }
    }
    return values;
}

struct EveryValue : DifferencesTest, testing::WithParamInterface<ModelKind> {};

// Each number, changed alone, is one difference of a column with a name.
TEST_P(EveryValue, IsADifferenceWithAName) {
    const bool isSection = GetParam() == ModelKind::kSection;
    const std::string golden = Golden(isSection ? "section_full.ve2" : "bulkhead_full.ve2");
    const std::vector<Value> values = NumbersOf(golden, GetParam());
    EXPECT_GT(values.size(), isSection ? 300U : 200U);
    for (const Value& value : values) {
        const std::string was = golden.substr(value.begin, value.end - value.begin);
        std::string now = golden;
        now.replace(value.begin, value.end - value.begin, "4321.5");
        const Lines found = Between(golden, now);
        SCOPED_TRACE(golden.substr(value.begin, 40));
        ASSERT_FALSE(found.empty());
        if (value.isOwner) continue;
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0].find("|Column "), std::string::npos) << found[0];
        const std::string texts =
            '|' + Narrow(GeneralText(LeadingNumber(std::string_view(was)))) + "|4321.5";
        EXPECT_TRUE(found[0].ends_with(texts)) << found[0];
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryValue,
                         testing::Values(ModelKind::kSection, ModelKind::kBulkhead));

// ---- Bad input ---------------------------------------------------------------------------------

TEST_F(DifferencesTest, ModelThatIsNotThereIsReported) {
    const std::string golden = Golden("section_full.ve2");
    Write(golden);
    const auto any = [](const Difference&) { return true; };
    EXPECT_FALSE(CompareModels({path, 7}, {path, 8}, any));
    EXPECT_EQ(test::RecordedReports::Of("warning"),
              std::vector<std::string>{test::ShownText(kMsgModelMissing, {8, path})});
    EXPECT_FALSE(CompareModels({folder.File(L"none.ve2"), 7}, {path, 7}, any));
}

// A block that ends anywhere is compared to its end.
TEST_F(DifferencesTest, CutBlocksAreCompared) {
    const std::string golden = Golden("section_full.ve2");
    const size_t body = golden.find("* Name");
    for (size_t size = body; size < golden.size() - 4; size += 7) {
        EXPECT_FALSE(Between(golden, golden.substr(0, size)).empty()) << size;
    }
}

}  // namespace
}  // namespace corvane
