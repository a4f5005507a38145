// Damaged section blocks: what could be read is read, and nothing else happens.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "database/scanning.h"
#include "report/messages.h"
#include "tests/database/section_sample.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::BodyText;
using test::ReadText;
using test::Replaced;

struct SectionDamageTest : testing::Test {
    std::string golden = test::ReadFileBytes(test::DataPath("golden/section_full.ve2"));
    std::string block = golden.substr(golden.find(FetchStructuralLines().modelMarker));
};

// Written and read again, what was read of a damaged block stays the same.
void ExpectStable(SectionModel section) {
    const std::string once = test::BlockText(section, 1);
    SectionModel again = ReadText(once);
    EXPECT_EQ(BodyText(again), test::BodyOf(once));
}

TEST_F(SectionDamageTest, TableCutOffInTheMiddleKeepsTheRowsBefore) {
    const size_t second = block.find(" 2 \t0\t-0.5");
    const SectionModel section = ReadText(block.substr(0, second));
    EXPECT_EQ(section.panels[0].nodes.size(), 3u);
    EXPECT_TRUE(section.panels[1].nodes.empty());
    EXPECT_TRUE(section.panels[0].plates.empty());
}

TEST_F(SectionDamageTest, RowCutOffInTheMiddleKeepsItsFirstFields) {
    const size_t row = block.find(" 1 \t16.1\t1.6");
    const SectionModel section = ReadText(block.substr(0, row + 12));
    ASSERT_EQ(section.panels[0].nodes.size(), 3u);
    EXPECT_EQ(section.panels[0].nodes[2].givenZ, 1.6f);
    EXPECT_EQ(section.panels[0].nodes[2].relative, 0);
    EXPECT_EQ(section.panels[0].nodes[2].kind, kNodeGiven);
}

TEST_F(SectionDamageTest, HeadCutOffKeepsTheResetValues) {
    const SectionModel section = ReadText(block.substr(0, block.find(" 20.5 ")));
    EXPECT_EQ(section.draught_m, 12.5f);
    EXPECT_EQ(section.deckModulus_m3, 0);
    EXPECT_EQ(section.tolerance_m, 0.001f);
    EXPECT_TRUE(section.identifier.empty());
}

TEST_F(SectionDamageTest, HeadWithMissingLinesNeverSwallowsATable) {
    const size_t from = block.find("\r\n 30 \t 45 ") + 2;
    const size_t to = block.find("*\r\n*\r\n------------------ PANELS");
    const SectionModel section = ReadText(block.substr(0, from) + block.substr(to));
    EXPECT_EQ(section.panels.size(), 2u);
    EXPECT_EQ(section.bottomModulus_m3, 25.125f);
}

TEST_F(SectionDamageTest, CountsThatDisagreeWithTheRowsDoNotMatter) {
    for (const char* count : {"0", "32767", "2000000000", "-5", "1E+300"}) {
        std::string text = Replaced(block, "\t 3 \t 2 \t 2 \t 1 \r\n",
                                    "\t " + std::string(count) + " \t 9 \t 9 \t 9 \r\n");
        const SectionModel section = ReadText(text);
        EXPECT_EQ(section.panels[0].nodes.size(), 3u);
        EXPECT_EQ(section.panels[0].stiffeners.size(), 2u);
        EXPECT_EQ(section.panels[0].brackets.size(), 1u);
    }
}

TEST_F(SectionDamageTest, SpansGoToTheStiffenersThatWantThemAndTheRestToTheLast) {
    const struct {
        const char* count;  // of the first stiffener
        size_t first;
        size_t second;
    } cases[] = {{"0", 0, 3}, {"1", 1, 2},          {"2", 2, 1},
                 {"3", 3, 0}, {"2000000000", 3, 0}, {"-1", 0, 3}};
    for (const auto& [count, first, second] : cases) {
        const SectionModel section =
            ReadText(Replaced(block, "\t .8 \t 2 \t 3 \t-1 \r\n",
                              "\t .8 \t" + std::string(count) + "\t 3 \t-1 \r\n"));
        const auto& details = section.panels[0].stiffenerDetails;
        EXPECT_EQ(details[0].spans.size(), first) << count;
        EXPECT_EQ(details[1].spans.size(), second) << count;
        EXPECT_EQ(details[0].connection, 3);
        ExpectStable(section);
    }
}

TEST_F(SectionDamageTest, RowsOfAPanelThatDoesNotExistAreLeftOut) {
    for (const char* panel : {"0", "-1", "3", "32767", "32768", "65537", "1E+99"}) {
        const std::string text =
            Replaced(block, "\r\n 1 \t14.5\t", "\r\n " + std::string(panel) + " \t14.5\t");
        const SectionModel section = ReadText(text);
        size_t nodes = 0;
        for (const Panel& each : section.panels) nodes += each.nodes.size();
        EXPECT_EQ(nodes, 4u) << panel;
    }
}

TEST_F(SectionDamageTest, RowsGoToThePanelTheyNameWhereverTheyAre) {
    const SectionModel section = ReadText(Replaced(block, "\r\n 1 \t14.5\t", "\r\n 2 \t14.5\t"));
    EXPECT_EQ(section.panels[0].nodes.size(), 2u);
    ASSERT_EQ(section.panels[1].nodes.size(), 3u);
    EXPECT_EQ(section.panels[1].nodes[0].givenY, 14.5f);
}

TEST_F(SectionDamageTest, NumbersOutOfRangeAreClampedToTheirType) {
    std::string text = Replaced(block, " 3 \t 1 \t-2 \t .8 ", " 99999 \t-99999 \t 2.6 \t 1E+300 ");
    text = Replaced(text, "\t 1 \t 2 \r\n 0 ", "\t 3E+9 \t-3E+9 \r\n 0 ");
    const SectionModel section = ReadText(text);
    EXPECT_EQ(section.shipType, 32767);
    EXPECT_EQ(section.classCode, -32768);
    EXPECT_EQ(section.navigationCode, 3);
    EXPECT_EQ(section.frameSpacing_m, std::numeric_limits<float>::max());
    EXPECT_EQ(section.stressRule, std::numeric_limits<int32_t>::max());
    EXPECT_EQ(section.bucklingRule, std::numeric_limits<int32_t>::min());
    ExpectStable(section);
}

TEST_F(SectionDamageTest, WordsThatAreNotNumbersAreSkipped) {
    const SectionModel section =
        ReadText(Replaced(block, " 12.5 \t 32.2 \t", " nan \t inf \t 12.5 \t -inf 32.2 \t"));
    EXPECT_EQ(section.x_m, 12.5f);
    EXPECT_EQ(section.breadth_m, 32.2f);
}

TEST_F(SectionDamageTest, FatigueOfASpanThatDoesNotExistIsLeftOut) {
    for (const char* place : {" 9 \t 1 \t 2 ", " 1 \t 9 \t 2 ", " 1 \t 1 \t 9 ", " 0 \t 0 \t 0 "}) {
        const SectionModel section = ReadText(Replaced(block, "\r\n 1 \t 1 \t 2 \r\n 3.2 ",
                                                       "\r\n" + std::string(place) + "\r\n 3.2 "));
        for (const StiffenerDetail& detail : section.panels[0].stiffenerDetails) {
            for (const Span& span : detail.spans) EXPECT_FALSE(span.fatigue.present) << place;
        }
    }
}

TEST_F(SectionDamageTest, FillingLevelsAreThoseOfTheRow) {
    const struct {
        const char* row;
        size_t levels;
    } cases[] = {{" 2000000000 \t0.5\t12\t6.25", 1},
                 {" 0 \t0.5\t12\t6.25\t1\t2\t3", 2},
                 {" 2 \t0.5\t12\t6.25\t1\t2", 1},
                 {"", 0}};
    for (const auto& [row, levels] : cases) {
        const SectionModel section =
            ReadText(Replaced(block, " 2 \t0.5\t12\t6.25\t1.6\t12.8\t16", row));
        EXPECT_EQ(section.compartments[0].levels.size(), levels) << row;
        EXPECT_EQ(section.compartments[0].ends(2), 152);
    }
}

TEST_F(SectionDamageTest, OutlineThatIsNotClosedIsReadAsItIs) {
    const SectionModel section =
        ReadText(Replaced(block, "\r\n 1 \t 1 \t 1 \t 2 \t 2 \t 1 \t 0 \t 0 \r\n",
                          "\r\n 1 \t 1 \t 1 \t 2 \t 2 \r\n"));
    EXPECT_EQ(section.compartments[0].outline.size(), 2u);
    ExpectStable(section);
}

TEST_F(SectionDamageTest, ManyRowsAreClampedToSixteenBitCounts) {
    std::string rows;
    for (int i = 0; i < 40000; ++i) rows += " 1 \t1\t1\r\n";
    const size_t place = block.find(" 1 \t0\t0\t 1 ");
    const SectionModel section = ReadText(
        block.substr(0, place) + rows + block.substr(block.find("*\r\n------------------ PLATES")));
    EXPECT_EQ(section.panels[0].nodes.size(), 32767u);
    EXPECT_EQ(section.panels[0].plates.size(), 2u);
}

}  // namespace
}  // namespace corvane
