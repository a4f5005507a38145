#include <gtest/gtest.h>

#include <algorithm>

#include "bsd/basic_ship_data.h"
#include "bsd/bsd_layout.h"
#include "platform/system.h"
#include "report/messages.h"
#include "tests/bsd/bsd_support.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using namespace test;

// Line `line` of the text, 1 the first.
std::string LineOf(const std::string& text, int line) {
    size_t begin = 0;
    for (int i = 1; i < line; ++i) begin = text.find("\r\n", begin) + 2;
    return text.substr(begin, text.find("\r\n", begin) - begin);
}

constexpr int kTitleLine = 2;
constexpr int kGeneralLine = 9;
constexpr int kRemarkLine = 69;
constexpr int kLineCount = 71;

TEST(BsdWriter, EveryFieldIsAtItsOffsetInTheGoldenText) {
    BasicShipData bsd = DistinctBsd();
    EXPECT_EQ(RecordsWritten(bsd), GoldenRecords());
}

TEST(BsdWriter, RecordsHaveSeventyOneLines) {
    BasicShipData bsd;
    const std::string text = RecordsWritten(bsd);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), kLineCount);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), kLineCount);
}

TEST(BsdWriter, VersionLineIsFiveWhateverWasRead) {
    BasicShipData bsd;
    bsd.FormatVersion.Assign(L"2");
    EXPECT_EQ(LineOf(RecordsWritten(bsd), 1), "5");
    EXPECT_EQ(bsd.FormatVersion.Trimmed(), L"2");
}

TEST(BsdWriter, FourthDimensionNearZeroBecomesTheThird) {
    for (const float value : {0.0f, 0.0009f, -0.0009f}) {
        BasicShipData bsd;
        bsd.MainData(3) = 21.5f;
        bsd.MainData(4) = value;
        EXPECT_EQ(LineOf(RecordsWritten(bsd), kGeneralLine + 1), "0\t0\t21.5\t21.5\t0\t");
        EXPECT_EQ(bsd.MainData(4), 21.5f) << "in the caller's record too";
    }
}

TEST(BsdWriter, FourthDimensionNotNearZeroStays) {
    BasicShipData bsd;
    bsd.MainData(3) = 21.5f;
    bsd.MainData(4) = 0.001f;
    EXPECT_EQ(LineOf(RecordsWritten(bsd), kGeneralLine + 1), "0\t0\t21.5\t0.001\t0\t");
}

TEST(BsdWriter, TextsHaveAllTheirCharacters) {
    BasicShipData bsd;
    bsd.Titles(1).Assign(system::WideFromAnsi("\xC9toile"));
    bsd.Remark.Assign(L" leading and trailing ");
    const std::string text = RecordsWritten(bsd);
    EXPECT_EQ(LineOf(text, kTitleLine), "\xC9toile" + std::string(24, ' '));
    EXPECT_EQ(LineOf(text, kRemarkLine), " leading and trailing " + std::string(28, ' '));
}

TEST(BsdWriter, BlockTwelveLeavesOutWhatTheFileLacks) {
    BasicShipData bsd;
    for (int i = 1; i <= 12; ++i) bsd.Block12(i) = static_cast<float>(i);
    const std::string text = RecordsWritten(bsd);
    EXPECT_EQ(LineOf(text, kRemarkLine - 2), "1\t2\t5\t6");
    EXPECT_EQ(LineOf(text, kRemarkLine - 1), "7\t11");
}

TEST(BsdWriter, LineBreakInATextBecomesABlank) {
    BasicShipData bsd;
    bsd.Titles(1).Assign(L"two\r\nlines");
    EXPECT_EQ(LineOf(RecordsWritten(bsd), kTitleLine), "two  lines" + std::string(20, ' '));
}

TEST(BsdWriter, TextsThatLookLikeOtherLinesAreWrittenAsTheyAreAndReadBack) {
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    for (const std::wstring& text :
         {std::wstring(L"------"), std::wstring(L"  ------ BSD ------"), std::wstring(L"* star"),
          std::wstring(L"12 13 14"), std::wstring(L"------------------ BSD ------------------"),
          system::WideFromAnsi(marker)}) {
        BasicShipData bsd = DistinctBsdFromFile();
        for (FixedText<30>& title : bsd.Titles.elements) title.Assign(text);
        bsd.Remark.Assign(text);
        EXPECT_EQ(RecordsRead(RecordsWritten(bsd)), bsd) << Narrow(text);
    }
}

TEST(BsdWriter, TextThatIsTheWholeMarkerIsMadeHarmless) {
    const std::string marker(30, 'm');
    const FakeCatalogue catalogue({{kMsgModelMarker, marker}});
    BasicShipData bsd;
    bsd.Titles(2).Assign(std::wstring(30, L'm'));
    EXPECT_EQ(LineOf(RecordsWritten(bsd), kTitleLine + 1), '=' + marker.substr(1));
}

TEST(BsdWriter, ListWhoseLengthIsNoMultipleOfTheRowLeavesItsLastLineOpen) {
    std::string text;
    auto visit = [&text](int value, std::string_view after) {
        text += std::to_string(value);
        text += after;
    };
    const int first[] = {1, 2, 3, 4, 5, 6, 7};
    const int second[] = {8, 9};
    VisitRows(first, 5, visit);
    VisitRows(second, 2, visit);
    EXPECT_EQ(text, "1\t2\t3\t4\t5\t\r\n6\t7\t8\t9\t\r\n");
}

}  // namespace
}  // namespace corvane
