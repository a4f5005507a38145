// ReadBulkheadBlock and ReadBulkheadLines: what is read, and what is reported.
#include <gtest/gtest.h>

#include <algorithm>

#include "database/section_block.h"
#include "report/messages.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/database/editing_fixture.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::BodyText;
using test::ReadArrangement;
using test::Replaced;

// As read and written again.
std::string Rewritten(std::string_view text) {
    BulkheadArrangement arrangement = ReadArrangement(text);
    return BodyText(arrangement);
}

struct BulkheadReaderTest : testing::Test {
    test::RecordedReports screen;
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    std::string golden = test::ReadFileBytes(test::DataPath("golden/bulkhead_full.ve2"));
    std::string body = test::BodyOf(golden);

    std::string Warning() {
        const auto warnings = test::RecordedReports::Of("warning");
        return warnings.size() == 1 ? warnings.front() : std::string("not one warning");
    }
};

TEST_F(BulkheadReaderTest, GoldenFileIsRead) {
    BulkheadArrangement read;
    ASSERT_TRUE(ReadBulkheadBlock(test::DataPath("golden/bulkhead_full.ve2"), 7, read));
    EXPECT_EQ(read.name, L"Bulkheads of hold 3");
    EXPECT_EQ(read.identifier, "ID-0003");
    EXPECT_NEAR(read.formatVersion, 0.443, 1e-9);
    EXPECT_EQ(read.x_m, 104.75f);
    EXPECT_EQ(read.stoolVolume_m3, 1250.5f);
    EXPECT_EQ(read.symmetric, -1);
    EXPECT_EQ(read.foreHopper.top_m, 6.25f);
    EXPECT_EQ(read.stateType, 2);
    EXPECT_EQ(read.stateIndex, 3);
    ASSERT_EQ(read.bulkheads.size(), 2u);
    EXPECT_EQ(read.bulkheads[0].stoolEndCode, 3);
    EXPECT_EQ(read.bulkheads[0].stoolEnds_m(4), 105.9f);
    EXPECT_EQ(read.bulkheads[0].nodes.at(2).radius, -4.2f);
    EXPECT_EQ(read.bulkheads[0].corrugation.depth_m, -0.95f);
    EXPECT_EQ(read.bulkheads[0].bands.at(3).at(0).thickness_mm, 14);
    EXPECT_EQ(read.bulkheads[1].name, L"Plane bulkhead of just forty characters,");
    EXPECT_EQ(read.bulkheads[1].primaryStiffeners.at(0).upperExtremity_m, 14.5f);
    const SecondaryStiffener& bulb = read.bulkheads[1].secondaryStiffeners.at(0);
    EXPECT_EQ(bulb.brackets(1).length_m, 0.6f);
    EXPECT_EQ(bulb.spans.at(2).lowerBracketLength_m, 0.35f);
    ASSERT_EQ(read.holds.size(), 2u);
    EXPECT_EQ(read.holds[0].levels.size(), 2u);
    EXPECT_EQ(read.holds[0].ends(2), 136);
    EXPECT_EQ(read.holds[0].closing, -1);
    EXPECT_EQ(read.holds[0].ballastHold, -1);
    EXPECT_EQ(read.holds[1].ballastHold, 0);
}

// ---- Reports -----------------------------------------------------------------------------------

TEST_F(BulkheadReaderTest, NumberThatNoArrangementHasIsReportedAndThePositionIsMinusOne) {
    test::WriteFileBytes(path, golden);
    BulkheadArrangement arrangement;
    arrangement.name = L"kept";
    EXPECT_FALSE(ReadBulkheadBlock(path, 8, arrangement));
    EXPECT_EQ(Warning(), "Can not find BHA 8 in file '" + test::Narrow(path) + "'");
    EXPECT_EQ(arrangement.name, L"kept");
    EXPECT_EQ(arrangement.x_m, -1.0f);
}

TEST_F(BulkheadReaderTest, SectionsAndTorsionModelsAreNotArrangements) {
    for (const char* keyword : {"SECTION", "TORSION", "bha", "BHA "}) {
        test::WriteFileBytes(
            path, Replaced(golden, "\r\nBHA\r\n", "\r\n" + std::string(keyword) + "\r\n"));
        BulkheadArrangement arrangement;
        EXPECT_FALSE(ReadBulkheadBlock(path, 7, arrangement)) << keyword;
        EXPECT_EQ(test::RecordedReports::Of("warning").back(),
                  "Can not find BHA 7 in file '" + test::Narrow(path) + "'");
    }
}

TEST_F(BulkheadReaderTest, SectionReaderReadsNamesNodesAndHoldsOfAnArrangement) {
    test::WriteFileBytes(path, golden);
    SectionModel section;
    ASSERT_TRUE(ReadSectionBlock(path, 7, true, section));
    EXPECT_EQ(section.name, L"Bulkheads of hold 3");
    EXPECT_EQ(section.identifier, "ID-0003");
    EXPECT_NEAR(section.formatVersion, 0.443, 1e-9);
    EXPECT_EQ(section.x_m, 104.75f);
    EXPECT_EQ(section.tolerance_m, 0.001f);
    ASSERT_EQ(section.panels.size(), 2u);
    EXPECT_EQ(section.panels[0].name, L"Corrugated, frame 136");
    EXPECT_EQ(section.panels[0].nodes.size(), 3u);
    EXPECT_EQ(section.panels[0].spacing_m, 0.0f);
    EXPECT_EQ(section.panels[0].nodes[1].givenY, 11.9f);
    EXPECT_EQ(section.panels[1].nodes[0].onNode, 3);
    ASSERT_EQ(section.compartments.size(), 2u);
    EXPECT_EQ(section.compartments[0].kind, 1);
    EXPECT_EQ(section.compartments[0].levels.size(), 2u);
}

// ---- Other layouts -----------------------------------------------------------------------------

TEST_F(BulkheadReaderTest, SeparatorsBetweenNumbersAreFree) {
    std::string text = Replaced(golden, " 1 \t11.9\t5.75\t 1 \t", "1,11.9   5.75 , \t1;");
    text = Replaced(text, " 104.75 \t 1250.5 \t-1 ", "\t104.75,1250.5\t\t -1.0 ");
    text = Replaced(text, "frame 136                   \t 1 ", "frame 136\t1");
    text = Replaced(text, " 2 \t 0 \t 9 \t0\t14.5", "2 0 9 0 14.5 m");
    text = Replaced(text, " 1 \t 2 \t 3 \t 106 \t 136 \t-1 \t 1 *", "1 2 3 106 136 -1 1 * set");
    EXPECT_EQ(Rewritten(text), body);
}

TEST_F(BulkheadReaderTest, BlankLinesBetweenRowsAreSkipped) {
    std::string text = Replaced(golden, "\r\n 1 \t11.9", "\r\n\r\n \t \r\n 1 \t11.9");
    text = Replaced(text, "\r\n 2 \t 1 \t 2 \t 0 ", "\r\n\r\n 2 \t 1 \t 2 \t 0 ");
    EXPECT_EQ(Rewritten(text + "\r\n\r\n"), body);
}

TEST_F(BulkheadReaderTest, EachTableMayBeMissing) {
    for (size_t missing = 2; missing < test::kBlockParts; ++missing) {
        const BulkheadArrangement read = ReadArrangement(test::WithoutPart(golden, missing));
        EXPECT_EQ(read.name, L"Bulkheads of hold 3");
        EXPECT_EQ(read.bulkheads.empty(), missing == 2) << missing;
        EXPECT_EQ(read.holds.empty(), missing == 12) << missing;
        if (read.bulkheads.size() != 2) continue;
        const Bulkhead& plane = read.bulkheads[1];
        EXPECT_EQ(plane.nodes.empty(), missing == 3) << missing;
        EXPECT_EQ(plane.primaryStiffeners.empty(), missing == 4) << missing;
        EXPECT_EQ(plane.secondaryStiffeners.empty(), missing == 5) << missing;
        EXPECT_EQ(read.bulkheads[0].corrugation.pitch_m == 0, missing == 9) << missing;
        EXPECT_EQ(plane.bands.empty(), missing == 10) << missing;
        if (plane.secondaryStiffeners.empty()) continue;
        const SecondaryStiffener& stiffener = plane.secondaryStiffeners[0];
        EXPECT_EQ(stiffener.brackets(1).enabled == 0, missing == 6) << missing;
        ASSERT_EQ(stiffener.spans.size(), 1u) << missing;
        EXPECT_EQ(stiffener.spans.at(2).hasScantlings, missing != 7) << missing;
        EXPECT_EQ(stiffener.spans.at(2).hasBrackets, missing != 8) << missing;
        EXPECT_EQ(stiffener.spanCount, 2) << missing;
    }
}

TEST_F(BulkheadReaderTest, CodeOfANodeIsWrittenAsItWasRead) {
    const std::string text = Replaced(golden, " 1 \t11.9\t5.75\t 1 ", " 1 \t11.9\t5.75\t-1 ");
    EXPECT_EQ(Rewritten(text), test::BodyOf(text));
}

TEST_F(BulkheadReaderTest, OldContentsOfTheRecordAreGone) {
    test::WriteFileBytes(path, test::ReadFileBytes(test::DataPath("golden/bulkhead_bare.ve2")));
    BulkheadArrangement arrangement = test::FullArrangement();
    ASSERT_TRUE(ReadBulkheadBlock(path, 7, arrangement));
    EXPECT_TRUE(arrangement.bulkheads.empty());
    EXPECT_TRUE(arrangement.holds.empty());
    EXPECT_EQ(arrangement.stoolVolume_m3, 0);
}

}  // namespace
}  // namespace corvane
