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
    const BulkheadArrangement full = test::FullArrangement();
    EXPECT_EQ(read.name, L"Bulkheads of hold 3");
    EXPECT_EQ(read.identifier, "ID-0003");
    EXPECT_NEAR(read.formatVersion, 0.443, 1e-9);
    EXPECT_EQ(read.x_m, 104.75f);
    EXPECT_EQ(read.stoolVolume_m3, 1250.5f);
    EXPECT_EQ(read.symmetric, -1);
    EXPECT_EQ(read.aftHopper, full.aftHopper);
    EXPECT_EQ(read.foreHopper, full.foreHopper);
    EXPECT_EQ(read.stateType, 2);
    EXPECT_EQ(read.stateIndex, 3);
    ASSERT_EQ(read.bulkheads.size(), 2u);
    for (size_t i = 0; i < 2; ++i) {
        const Bulkhead& bulkhead = read.bulkheads[i];
        const Bulkhead& expected = full.bulkheads[i];
        EXPECT_EQ(bulkhead.name, expected.name);
        EXPECT_EQ(bulkhead.kind, expected.kind);
        EXPECT_EQ(bulkhead.material, expected.material);
        EXPECT_EQ(bulkhead.stiffening, expected.stiffening);
        EXPECT_EQ(bulkhead.stiffenedSide, expected.stiffenedSide);
        EXPECT_EQ(bulkhead.stools, expected.stools);
        EXPECT_EQ(bulkhead.stoolEnds_m, expected.stoolEnds_m);
        EXPECT_EQ(bulkhead.nodes.size(), expected.nodes.size());
        EXPECT_EQ(bulkhead.primaryStiffeners, expected.primaryStiffeners);
        EXPECT_EQ(bulkhead.secondaryStiffeners, expected.secondaryStiffeners);
        EXPECT_EQ(bulkhead.corrugation, expected.corrugation);
        EXPECT_EQ(bulkhead.bands, expected.bands);
    }
    ASSERT_EQ(read.holds.size(), 2u);
    EXPECT_EQ(read.holds[0].levels, full.holds[0].levels);
    EXPECT_EQ(read.holds[0].ends, full.holds[0].ends);
    EXPECT_EQ(read.holds[0].closing, -1);
    EXPECT_EQ(read.holds[0].ballastHold, -1);
    EXPECT_EQ(read.holds[1].ballastHold, 0);
}

TEST_F(BulkheadReaderTest, GoldenFileIsWrittenAgainByteForByte) {
    EXPECT_EQ(Rewritten(golden), body);
    const std::string bare = test::ReadFileBytes(test::DataPath("golden/bulkhead_bare.ve2"));
    EXPECT_EQ(Rewritten(bare), test::BodyOf(bare));
}

TEST_F(BulkheadReaderTest, RandomArrangementsAreWrittenAgainByteForByte) {
    for (uint32_t seed = 1; seed <= 200; ++seed) {
        BulkheadArrangement arrangement = test::RandomArrangement(seed);
        const std::string text = test::BlockText(arrangement, 1);
        BulkheadArrangement read = ReadArrangement(text);
        ASSERT_EQ(BodyText(read), test::BodyOf(text)) << seed;
        ASSERT_EQ(read.bulkheads.size(), arrangement.bulkheads.size());
        for (size_t i = 0; i < read.bulkheads.size(); ++i) {
            ASSERT_EQ(read.bulkheads[i].bands.size(), arrangement.bulkheads[i].bands.size());
            ASSERT_EQ(read.bulkheads[i].secondaryStiffeners.size(),
                      arrangement.bulkheads[i].secondaryStiffeners.size());
        }
    }
}

// ---- Reports -----------------------------------------------------------------------------------

TEST_F(BulkheadReaderTest, StatusShowsThePathWhileItReadsAndIsClearedThen) {
    BulkheadArrangement arrangement;
    test::WriteFileBytes(path, golden);
    ASSERT_TRUE(ReadBulkheadBlock(path, 7, arrangement));
    const auto captions = test::RecordedReports::Of("caption");
    const std::string reading = test::Narrow(FormatMessage(kMsgReadingModel, {path}));
    EXPECT_TRUE(std::ranges::any_of(
        captions, [&](const std::string& caption) { return caption.starts_with(reading); }));
    EXPECT_EQ(test::RecordedReports::caption, L"");
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
}

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

TEST_F(BulkheadReaderTest, FileThatIsNotADatabaseIsMessage1083) {
    BulkheadArrangement arrangement;
    test::WriteFileBytes(path, "something else\r\n");
    EXPECT_FALSE(ReadBulkheadBlock(path, 1, arrangement));
    EXPECT_EQ(Warning(), test::Narrow(FormatMessage(1083, {path})));
    EXPECT_EQ(arrangement.x_m, -1.0f);
}

TEST_F(BulkheadReaderTest, MissingFileIsReportedAsMissing) {
    BulkheadArrangement arrangement;
    EXPECT_FALSE(ReadBulkheadBlock(path, 1, arrangement));
    EXPECT_EQ(Warning(), test::BoxText(kMsgDatabaseMissing, {path}));
    EXPECT_EQ(arrangement.x_m, -1.0f);
}

TEST_F(BulkheadReaderTest, SectionReaderReadsNamesNodesAndHoldsOfAnArrangement) {
    test::WriteFileBytes(path, golden);
    SectionModel section;
    ASSERT_TRUE(ReadSectionBlock(path, 7, true, section));
    EXPECT_EQ(section.name, L"Bulkheads of hold 3");
    EXPECT_EQ(section.identifier, "ID-0003");
    EXPECT_EQ(section.x_m, 104.75f);
    EXPECT_EQ(section.tolerance_m, 0.001f);
    ASSERT_EQ(section.panels.size(), 2u);
    EXPECT_EQ(section.panels[0].name, L"Corrugated, frame 136");
    EXPECT_EQ(section.panels[0].nodes.size(), 3u);
    EXPECT_EQ(section.panels[1].nodes[0].onNode, 3);
    ASSERT_EQ(section.compartments.size(), 2u);
    EXPECT_EQ(section.compartments[0].levels.size(), 2u);
}

// ---- Other layouts -----------------------------------------------------------------------------

TEST_F(BulkheadReaderTest, CommentLinesMayBeAnywhere) {
    EXPECT_EQ(Rewritten(test::WithLineBehindEach(golden, "* a comment, 1 2 3")), body);
}

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

constexpr size_t kParts = 13;  // file head, block head, eleven tables

TEST_F(BulkheadReaderTest, TablesMayBeInAnyOrder) {
    ASSERT_EQ(test::Tables(golden).size(), kParts);
    EXPECT_EQ(Rewritten(test::WithTablesReversed(golden)), body);
}

TEST_F(BulkheadReaderTest, EachTableMayBeMissing) {
    for (size_t missing = 2; missing < kParts; ++missing) {
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

TEST_F(BulkheadReaderTest, NameAndIdentifierOfDashesAreData) {
    std::string text = Replaced(golden, "\r\nBulkheads of hold 3\r\n", "\r\n------ dashes\r\n");
    text = Replaced(text, "\r\nID-0003\r\n", "\r\n------ id\r\n");
    const BulkheadArrangement read = ReadArrangement(text);
    EXPECT_EQ(read.name, L"------ dashes");
    EXPECT_EQ(read.identifier, "------ id");
    EXPECT_EQ(read.x_m, 104.75f);
    EXPECT_EQ(Rewritten(text), test::BodyOf(text));
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
