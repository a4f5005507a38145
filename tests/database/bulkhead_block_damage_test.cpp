// Damaged bulkhead arrangements: what could be read is read, and nothing else happens.
#include <gtest/gtest.h>

#include <limits>

#include "database/scanning.h"
#include "report/messages.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::ReadArrangement;
using test::Replaced;

struct BulkheadDamageTest : testing::Test {
    std::string golden = test::ReadFileBytes(test::DataPath("golden/bulkhead_full.ve2"));
    std::string block = golden.substr(golden.find(FetchStructuralLines().modelMarker));

    SecondaryStiffener FirstStiffener(std::string_view text) {
        const BulkheadArrangement read = ReadArrangement(text);
        return read.bulkheads.at(1).secondaryStiffeners.at(0);
    }
};

// Written and read again, what was read of a damaged block stays the same.
void ExpectStable(BulkheadArrangement arrangement) {
    const std::string once = test::BlockText(arrangement, 1);
    BulkheadArrangement again = ReadArrangement(once);
    EXPECT_EQ(test::BodyText(again), test::BodyOf(once));
}

TEST_F(BulkheadDamageTest, RowCutOffInTheMiddleKeepsItsFirstFields) {
    const size_t row = block.find(" 2 \t 1 \t 2 \t 2 \t 240 ");
    const SecondaryStiffener stiffener = FirstStiffener(block.substr(0, row + 22));
    ASSERT_EQ(stiffener.spans.size(), 1u);
    EXPECT_TRUE(stiffener.spans.at(2).hasScantlings);
    EXPECT_FALSE(stiffener.spans.at(2).hasBrackets);
    EXPECT_EQ(stiffener.spans.at(2).scantlings.webHeight_mm, 240);
    EXPECT_EQ(stiffener.spans.at(2).scantlings.webThickness_mm, 0);
}

TEST_F(BulkheadDamageTest, HeadWithMissingLinesNeverSwallowsATable) {
    const size_t from = block.find(" 4.25 \t 6.5 ");
    const size_t to = block.find("*\r\n------------------ PANELS");
    const BulkheadArrangement read = ReadArrangement(block.substr(0, from) + block.substr(to));
    EXPECT_EQ(read.stoolVolume_m3, 1250.5f);
    EXPECT_TRUE(read.identifier.empty());
    EXPECT_EQ(read.bulkheads.size(), 2u);
}

TEST_F(BulkheadDamageTest, HoldWithMissingLinesNeverSwallowsTheNextModel) {
    const size_t cut = block.find("Hold 4\r\n");
    for (const char* rest : {"Hold 4\r\n", "Hold 4\r\nno node list\r\n", "Hold 4\r\nno node"}) {
        const std::string text =
            block.substr(0, cut) + rest + "\r\n" + Replaced(block, "\r\n 7 \r\n", "\r\n 8 \r\n");
        const BulkheadArrangement read = ReadArrangement(text);
        EXPECT_EQ(read.holds.size(), 2u) << rest;
        EXPECT_EQ(read.bulkheads.size(), 2u) << rest;
        ExpectStable(read);
    }
}

TEST_F(BulkheadDamageTest, NumberOfSpansIsKeptWhateverItIs) {
    const struct {
        const char* written;
        int32_t count;
    } cases[] = {{" 0 ", 0},
                 {"-7 ", -7},
                 {" 32768 ", 32768},
                 {" 2000000000 ", 2000000000},
                 {" 1E+300 ", std::numeric_limits<int32_t>::max()}};
    for (const auto& [written, count] : cases) {
        const std::string text = Replaced(block, "\t 0 \t 0 \t 1 \t 2 \t1.75",
                                          std::string("\t 0 \t 0 \t 1 \t") + written + "\t1.75");
        const SecondaryStiffener stiffener = FirstStiffener(text);
        EXPECT_EQ(stiffener.spanCount, count);
        EXPECT_EQ(stiffener.spans.size(), 1u);
        EXPECT_EQ(stiffener.connection, 3);
        ExpectStable(ReadArrangement(text));
    }
}

TEST_F(BulkheadDamageTest, RowsOfABulkheadThatDoesNotExistAreLeftOut) {
    for (const char* bulkhead : {"0", "-1", "3", "32767", "32768", "65537", "1E+99", ""}) {
        std::string text = block;
        for (const char* row :
             {" 1 \t11.9\t", " 2 \t 0 \t 9 \t0", " 2 \t .8 \t 1 ", " 2 \t 1 \t 1 \t-1 ",
              " 2 \t 1 \t 2 \t 2 ", " 2 \t 1 \t 2 \t .35", " 1 \t .45 ", " 1 \t 1 \t 2 \t 8.4 "}) {
            const std::string after = std::string(row).substr(2);
            text =
                Replaced(text, "\r\n" + std::string(row), "\r\n " + std::string(bulkhead) + after);
        }
        const BulkheadArrangement read = ReadArrangement(text);
        ASSERT_EQ(read.bulkheads.size(), 2u);
        if (*bulkhead == 0) continue;  // the next number counts as it; it only must not fail
        EXPECT_EQ(read.bulkheads[0].nodes.size(), 2u) << bulkhead;
        EXPECT_EQ(read.bulkheads[1].primaryStiffeners.size(), 1u) << bulkhead;
        EXPECT_EQ(read.bulkheads[1].secondaryStiffeners.size(), 1u) << bulkhead;
        EXPECT_EQ(read.bulkheads[0].corrugation, Corrugation()) << bulkhead;
        EXPECT_EQ(read.bulkheads[0].bands.at(1).size(), 1u) << bulkhead;
        ExpectStable(read);
    }
}

TEST_F(BulkheadDamageTest, RowsOfAStiffenerOrBracketThatDoesNotExistAreLeftOut) {
    for (const char* place : {" 0 \t 1 ", " 9 \t 1 ", "-1 \t 1 ", " 1 \t 0 ", " 1 \t 3 ",
                              " 1 \t-32768 ", " 1 \t 1E+30 ", " 1E+30 \t 1 "}) {
        const std::string text = Replaced(block, "\r\n 2 \t 1 \t 1 \t-1 \t-1 ",
                                          "\r\n 2 \t" + std::string(place) + "\t-1 \t-1 ");
        const BulkheadArrangement read = ReadArrangement(text);
        EXPECT_EQ(read.bulkheads[1].secondaryStiffeners[0].brackets(1), EndBracket()) << place;
        EXPECT_EQ(read.bulkheads[1].secondaryStiffeners[0].brackets(2).fixed, -1) << place;
    }
}

TEST_F(BulkheadDamageTest, SpansAndBandsHaveNumbersFromOneToTheLargestOfSixteenBits) {
    const struct {
        const char* written;
        int16_t number;  // 0: left out
    } cases[] = {{" 0 ", 0},         {"-1 ", 0},         {" 1 ", 1},
                 {" 32767 ", 32767}, {" 99999 ", 32767}, {"-1E+99 ", 0}};
    for (const auto& [written, number] : cases) {
        std::string text = Replaced(block, " 2 \t 1 \t 2 \t .35 ",
                                    " 2 \t 1 \t" + std::string(written) + "\t .35 ");
        text = Replaced(text, " 1 \t 3 \t 1 \t 16.2 ",
                        " 1 \t" + std::string(written) + "\t 1 \t 16.2 ");
        const BulkheadArrangement read = ReadArrangement(text);
        const auto& spans = read.bulkheads[1].secondaryStiffeners[0].spans;
        EXPECT_FALSE(spans.at(2).hasBrackets) << written;
        EXPECT_EQ(spans.size(), number == 0 ? 1u : 2u) << written;
        const auto& bands = read.bulkheads[0].bands;
        const size_t ofBandOne = number == 1 ? 3u : 2u;
        EXPECT_EQ(bands.at(1).size(), ofBandOne) << written;
        if (number != 0) {
            EXPECT_EQ(spans.at(number).lowerBracketLength_m, 0.35f) << written;
            EXPECT_EQ(bands.at(number).back().z_m, 16.2f) << written;
        }
        ExpectStable(read);
    }
}

TEST_F(BulkheadDamageTest, LastRowOfOneSpanBracketOrCorrugationCounts) {
    std::string text =
        Replaced(block, "\r\n 2 \t 2 \t 1 \t .5 \t .55 \r\n", "\r\n 2 \t 1 \t 2 \t .5 \t .55 \r\n");
    text = Replaced(text, "\r\n 2 \t 0 \t 0 \t 0 \t 0 \t 0 \t 0 \r\n", "\r\n 1 \t 7 \r\n");
    const BulkheadArrangement read = ReadArrangement(text);
    EXPECT_EQ(read.bulkheads[1].secondaryStiffeners[0].spans.at(2).upperBracketLength_m, 0.55f);
    EXPECT_EQ(read.bulkheads[0].corrugation.start_m, 7);
    EXPECT_EQ(read.bulkheads[0].corrugation.pitch_m, 2.1f);
    ExpectStable(read);
}

TEST_F(BulkheadDamageTest, FieldsThatNotEveryRowHasAreRecognisedByItsLength) {
    std::string text = Replaced(block, " 2 \t 0 \t 9 \t0\t14.5\r\n", " 2 \t 0 \t 9 \t0\r\n");
    text = Replaced(text, "\t-1 \t-1 \t 0 \t 300 \t 12 \t 100 \t 15 \t .6 \r\n",
                    "\t-1 \t-1 \t 0 \t 300 \t 12 \t 100 \t 15 \r\n");
    const BulkheadArrangement read = ReadArrangement(text);
    EXPECT_FALSE(read.bulkheads[1].primaryStiffeners[0].hasExtremities);
    EXPECT_EQ(read.bulkheads[1].primaryStiffeners[0].lowerExtremity_m, 0);
    const EndBracket& bracket = read.bulkheads[1].secondaryStiffeners[0].brackets(1);
    EXPECT_EQ(bracket.enabled, -1);
    EXPECT_EQ(bracket.scantlings, Scantlings());
    ExpectStable(read);
}

TEST_F(BulkheadDamageTest, NumbersOutOfRangeAreClampedToTheirType) {
    std::string text = Replaced(block, " 2 \t 3 \r\nID", " 3E+9 \t 99999 \r\nID");
    text = Replaced(text, " 104.75 \t 1250.5 ", " 1E+300 \t-1E+300 ");
    const BulkheadArrangement read = ReadArrangement(text);
    EXPECT_EQ(read.stateType, std::numeric_limits<int32_t>::max());
    EXPECT_EQ(read.stateIndex, 32767);
    EXPECT_EQ(read.x_m, std::numeric_limits<float>::max());
    EXPECT_EQ(read.stoolVolume_m3, -std::numeric_limits<float>::max());
    ExpectStable(read);
}

TEST_F(BulkheadDamageTest, FlagOfAHoldIsSetByAnyNumberAboveZeroAndClearWhenItIsMissing) {
    const struct {
        const char* end;
        int16_t ballastHold;
    } cases[] = {{" 1 *", -1}, {"-1 *", 0}, {" 0 *", 0}, {" 7 ", -1}, {"", 0}, {"*", 0}};
    for (const auto& [end, ballastHold] : cases) {
        const BulkheadArrangement read = ReadArrangement(Replaced(
            block, "\t 136 \t-1 \t 1 *\r\n", "\t 136 \t-1 \t" + std::string(end) + "\r\n"));
        ASSERT_EQ(read.holds.size(), 2u) << end;
        EXPECT_EQ(read.holds[0].ballastHold, ballastHold) << end;
        EXPECT_EQ(read.holds[0].closing, -1) << end;
        EXPECT_EQ(read.holds[1].name, L"Hold 4") << end;
    }
}

TEST_F(BulkheadDamageTest, ManyRowsAreClampedToSixteenBitCounts) {
    std::string nodes;
    std::string strakes;
    for (int i = 0; i < 40000; ++i) {
        nodes += " 1 \t1\t1\r\n";
        strakes += " 2 \t 5 \t 1 \t 9 \r\n";
    }
    const BulkheadArrangement read =
        ReadArrangement(Replaced(Replaced(block, " 1 \t0\t5.75\t", nodes + " 1 \t0\t5.75\t"),
                                 " 2 \t 1 \t 1 \t 14.5 ", strakes + " 2 \t 1 \t 1 \t 14.5 "));
    EXPECT_EQ(read.bulkheads[0].nodes.size(), 32767u);
    EXPECT_EQ(read.bulkheads[1].bands.at(5).size(), 32767u);
    EXPECT_EQ(read.bulkheads[1].bands.at(1).size(), 1u);
}

// A few bytes that name large numbers take no more memory than the rows that they are.
TEST_F(BulkheadDamageTest, LargeNumbersMakeNoLargeLists) {
    std::string bulkheads;
    std::string strakes;
    for (int i = 1; i <= 2000; ++i) {
        bulkheads += "B\r\n";
        strakes += " " + std::to_string(i) + " \t 32767 \t 32767 \t 1 \r\n";
    }
    std::string text = Replaced(block, "Corrugated, frame 136", bulkheads + "Corrugated");
    text = Replaced(text, " 1 \t 1 \t 1 \t 8.4 ", strakes + " 1 \t 1 \t 1 \t 8.4 ");
    const BulkheadArrangement read = ReadArrangement(text);
    EXPECT_EQ(read.bulkheads.size(), 2002u);
    size_t strakeCount = 0;
    for (const Bulkhead& bulkhead : read.bulkheads) {
        EXPECT_LE(bulkhead.bands.size(), 3u);
        for (const auto& [number, band] : bulkhead.bands) strakeCount += band.size();
    }
    EXPECT_EQ(strakeCount, 2004u);
}

}  // namespace
}  // namespace corvane
