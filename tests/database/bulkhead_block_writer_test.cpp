// WriteBulkheadBlock: the block byte for byte.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>

#include "database/scanning.h"
#include "platform/system.h"
#include "platform/ztutil32.h"
#include "report/messages.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::BodyText;
using test::FullArrangement;

bool Has(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

// With one bulkhead that has nothing.
BulkheadArrangement OneBulkhead() {
    BulkheadArrangement arrangement;
    arrangement.identifier = "ID";
    arrangement.bulkheads.resize(1);
    return arrangement;
}

std::string_view Line(std::string_view text, size_t number) {
    for (; number > 1; --number) text.remove_prefix(text.find('\n') + 1);
    return text.substr(0, text.find("\r\n"));
}

struct BulkheadWriterTest : testing::Test {
    test::RecordedReports screen;
};

TEST_F(BulkheadWriterTest, ArrangementWithoutBulkheadsIsTheBareGoldenBlock) {
    const std::string golden = test::ReadFileBytes(test::DataPath("golden/bulkhead_bare.ve2"));
    BulkheadArrangement arrangement;
    arrangement.name = L"Bare";
    arrangement.identifier = "ID-0004";
    EXPECT_EQ(BodyText(arrangement), test::BodyOf(golden));
}

TEST_F(BulkheadWriterTest, SecondaryStiffenersAreTheOnlyOnesWithBracketsAndSpans) {
    BulkheadArrangement arrangement = FullArrangement();
    for (Bulkhead& bulkhead : arrangement.bulkheads) bulkhead.secondaryStiffeners.clear();
    const std::string text = BodyText(arrangement);
    for (const char* label : {"SECONDARY STIFF", "BRACK SCANT", "SPAN SCANT", "SPAN BRACK"}) {
        EXPECT_FALSE(Has(text, label)) << label;
    }
    for (const char* label : {"PRIMARY STIFF", "BH CORR", "BH STRAKE"}) {
        EXPECT_TRUE(Has(text, label)) << label;
    }
}

TEST_F(BulkheadWriterTest, RecordedSpansWithoutValuesHaveNoTables) {
    BulkheadArrangement arrangement = FullArrangement();
    for (SecondaryStiffener& stiffener : arrangement.bulkheads[1].secondaryStiffeners) {
        for (auto& [number, span] : stiffener.spans) span = {};
    }
    const std::string text = BodyText(arrangement);
    EXPECT_FALSE(Has(text, "SPAN SCANT"));
    EXPECT_FALSE(Has(text, "SPAN BRACK"));
    EXPECT_TRUE(Has(text, "BRACK SCANT"));
}

TEST_F(BulkheadWriterTest, SpanTablesAreThereOneWithoutTheOther) {
    BulkheadArrangement arrangement = OneBulkhead();
    arrangement.bulkheads[0].secondaryStiffeners.resize(1);
    auto& spans = arrangement.bulkheads[0].secondaryStiffeners[0].spans;
    spans[4].hasBrackets = true;
    EXPECT_FALSE(Has(BodyText(arrangement), "SPAN SCANT"));
    EXPECT_TRUE(Has(BodyText(arrangement), "\r\n 1 \t 1 \t 4 \t 0 \t 0 \r\n"));
    spans[4] = {};
    spans[5].hasScantlings = true;
    EXPECT_FALSE(Has(BodyText(arrangement), "SPAN BRACK"));
    EXPECT_TRUE(Has(BodyText(arrangement), "\r\n 1 \t 1 \t 5 \t 0 \t 0 \t 0 \t 0 \t 0 \t 0 \r\n"));
}

TEST_F(BulkheadWriterTest, CorrugationAndStrakeTablesAreThereWithoutRows) {
    BulkheadArrangement arrangement;
    const std::string text = BodyText(arrangement);
    EXPECT_TRUE(Has(text,
                    "------------------ BH CORR ------------------\r\n*\r\n"
                    "* Bh\tStart\tS1\ta\td\tFixed upper and lower support\r\n*\r\n"
                    "------------------ BH STRAKE ------------------\r\n*\r\n"
                    "* Bh\tBand\tStrk\tz\ty\tTh\tiMat\r\n*\r\n" +
                        GetMessageBytes(kMsgCompartmentSizeTable)));
    for (const char* label : {"NODES", "PRIMARY STIFF", "SECONDARY STIFF"}) {
        EXPECT_FALSE(Has(text, label)) << label;
    }
}

TEST_F(BulkheadWriterTest, HoldHasTheLineNoNodeListInsteadOfNodePairs) {
    BulkheadArrangement arrangement = OneBulkhead();
    arrangement.holds.resize(1);
    arrangement.holds[0].name = L"Hold 1";
    arrangement.holds[0].outline = {{1, 2}, {3, 4}};
    EXPECT_TRUE(Has(BodyText(arrangement), "\r\nHold 1\r\nno node list\r\n 0 \t 0 \t 0 \t 0 \r\n"));
}

TEST_F(BulkheadWriterTest, EveryHoldEndsWithItsFlagAndACommentRule) {
    BulkheadArrangement arrangement = OneBulkhead();
    arrangement.holds.resize(3);
    arrangement.holds[0].ballastHold = -1;
    arrangement.holds[1].ballastHold = 1;
    const std::string text = BodyText(arrangement);
    const std::string values = "\r\n 0 \t 0 \t 0 \t 0 \t 0 \t 0 \t";
    for (const char* end : {" 1 *\r\n\r\nno node list", "-1 *\r\n"}) {
        EXPECT_TRUE(Has(text, values + end)) << end;
    }
    EXPECT_TRUE(text.ends_with(values + "-1 *\r\n"));
    EXPECT_FALSE(Has(text, "*\r\n*\r\n\r\nno"));
}

TEST_F(BulkheadWriterTest, BracketThatIsNotEnabledEndsItsLineAfterFixed) {
    BulkheadArrangement arrangement = OneBulkhead();
    arrangement.bulkheads[0].secondaryStiffeners.resize(1);
    EndBracket& bracket = arrangement.bulkheads[0].secondaryStiffeners[0].brackets(2);
    bracket.scantlings.webHeight_mm = 300;
    bracket.length_m = 0.5f;
    EXPECT_TRUE(Has(BodyText(arrangement), "\r\n 1 \t 1 \t 2 \t 0 \t 0 \r\n"));
    bracket.enabled = -1;
    EXPECT_TRUE(Has(BodyText(arrangement),
                    "\r\n 1 \t 1 \t 2 \t-1 \t 0 \t 0 \t 300 \t 0 \t 0 \t 0 \t .5 \r\n"));
}

TEST_F(BulkheadWriterTest, GapOfADoubledProfileIsNotWritten) {
    BulkheadArrangement arrangement = FullArrangement();
    const std::string text = BodyText(arrangement);
    SecondaryStiffener& stiffener = arrangement.bulkheads[1].secondaryStiffeners[0];
    stiffener.scantlings.webGap_mm = 77;
    stiffener.brackets(1).scantlings.webGap_mm = 77;
    EXPECT_EQ(BodyText(arrangement), text);
}

TEST_F(BulkheadWriterTest, NamesArePaddedAndNeverMakeOtherLines) {
    BulkheadArrangement arrangement = OneBulkhead();
    arrangement.name = L"* star";
    arrangement.bulkheads[0].name = L"------ dashes";
    arrangement.holds.resize(1);
    arrangement.holds[0].name = system::WideFromAnsi(FetchStructuralLines().modelMarker);
    const std::string text = BodyText(arrangement);
    EXPECT_EQ(Line(text, 7), " * star");
    EXPECT_TRUE(Has(text, "\r\n_----- dashes" + std::string(27, ' ') + "\t 0 \t 0 \t"));
    EXPECT_TRUE(Has(text, "\r\n " + FetchStructuralLines().modelMarker + "\r\nno node list\r\n"));
}

}  // namespace
}  // namespace corvane
