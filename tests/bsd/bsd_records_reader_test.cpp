#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include "bsd/bsd_records.h"
#include "platform/system.h"
#include "report/messages.h"
#include "tests/bsd/bsd_support.h"
#include "tests/support/support.h"
#include "text/text.h"

namespace corvane {
namespace {

using namespace test;

constexpr int kNumberCount = 279;
constexpr int kTypeCodesLine = 7;
constexpr int kGeneralLine = 9;
constexpr int kRemarkLine = 69;
constexpr int kReductionLine = 70;

// The golden records as a file of an older layout, without ExtraData.
std::string OlderLayout(std::string_view version) {
    std::string records = WithLine(1, version);
    return records.substr(0, records.find("25.1\t"));
}

TEST(BsdReader, GoldenRecordsGiveEveryFieldItsValue) {
    BasicShipData bsd;
    EXPECT_EQ(ReadRecords(GoldenRecords(), bsd), kNumberCount);
    EXPECT_EQ(bsd, DistinctBsdFromFile());
}

TEST(BsdReader, StandaloneGoldenFileReadsAndWritesBackUnchanged) {
    const std::string bytes = ReadFileBytes(DataPath("golden/standalone.bsd"));
    BasicShipData bsd = RecordsRead(bytes);
    EXPECT_EQ(bsd.Titles(1).Trimmed(), system::WideFromAnsi("M/V C\xF4te d'\xC9meraude"));
    EXPECT_EQ(bsd.Titles(4).Whole(), L"  indented title              ");
    EXPECT_EQ(bsd.MainData(5), 1.5E-05f);
    EXPECT_EQ(bsd.MainData(6), -0.5f);
    EXPECT_EQ(bsd.MainData(7), 1E+38f);
    EXPECT_EQ(bsd.MainData(10), 123456.7f);
    EXPECT_EQ(bsd.ExtraData(1), -1E-05f);
    EXPECT_EQ(RecordsWritten(bsd), bytes);
}

TEST(BsdReader, WrittenFileReadsBackButForWhatTheFileLacks) {
    BasicShipData bsd = DistinctBsdFromFile();
    bsd.MainData(4) = 0;
    for (int i = 1; i <= 12; ++i) bsd.Block12(i) = static_cast<float>(i);
    bsd.Remark.Assign(L"one, two, 3");
    const BasicShipData read = RecordsRead(RecordsWritten(bsd));

    BasicShipData expected = bsd;
    expected.MainData(4) = expected.MainData(3);
    for (const int i : {3, 4, 8, 9, 10, 12}) expected.Block12(i) = 0;
    expected.Remark.Assign(L"one");
    EXPECT_EQ(read, expected);
}

TEST(BsdReader, ElementsOfBlockTwelveThatTheFileLacksKeepTheirValues) {
    BasicShipData bsd;
    for (int i = 1; i <= 12; ++i) bsd.Block12(i) = static_cast<float>(-i);
    ReadRecords(GoldenRecords(), bsd);
    for (const int i : {3, 4, 8, 9, 10, 12}) EXPECT_EQ(bsd.Block12(i), static_cast<float>(-i));
    for (const int i : {1, 2, 5, 6, 7, 11}) EXPECT_GT(bsd.Block12(i), 22);
}

// ---- Layout versions ---------------------------------------------------------------------------

TEST(BsdReader, VersionsFourAndFiveHaveExtraData) {
    for (const char* version : {"4", "5", "4.0", " 5", "5   "}) {
        const BasicShipData bsd = RecordsRead(WithLine(1, version));
        EXPECT_EQ(bsd.ExtraData(4), 25.4f) << version;
        EXPECT_EQ(bsd.TypeCodes(2), 102) << version;
        EXPECT_EQ(bsd.MainData(11), 5.11f) << version;
    }
}

TEST(BsdReader, VersionThreeLeavesExtraDataAsTheyWere) {
    BasicShipData bsd;
    for (int i = 1; i <= 4; ++i) bsd.ExtraData(i) = static_cast<float>(-i);
    EXPECT_EQ(ReadRecords(WithLine(1, "3"), bsd), kNumberCount - 4);
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(bsd.ExtraData(i), static_cast<float>(-i));
    EXPECT_EQ(bsd.MainData(16), 5.16f);
    EXPECT_EQ(bsd.TypeCodes(2), 102);
}

TEST(BsdReader, ClassCodeOfVersionThreeAndLaterStays) {
    for (const char* version : {"3", "4", "5"}) {
        const BasicShipData bsd =
            RecordsRead(WithLine(kTypeCodesLine, "1\t2\t1\t0\t1\t").replace(0, 1, version));
        EXPECT_EQ(bsd.TypeCodes(2), 2) << version;
    }
}

TEST(BsdReader, ClassCodeOfVersionTwoIsRemapped) {
    const int remapped[] = {0, 1, 4, 5, 4, 4, 5, 7, 8};
    for (int code = 0; code <= 8; ++code) {
        const std::string line = "1\t" + std::to_string(code) + "\t1\t0\t1\t";
        const std::string records = WithLine(kTypeCodesLine, line).replace(0, 1, "2");
        const BasicShipData bsd = RecordsRead(records);
        EXPECT_EQ(bsd.TypeCodes(2), remapped[code]) << code;
        EXPECT_EQ(bsd.MainData(11), 5.11f) << "in files from version 2 on";
        EXPECT_EQ(bsd.ExtraData(1), 0);
    }
}

TEST(BsdReader, VersionOneHasNoDimensionsElevenToSixteen) {
    const BasicShipData bsd = RecordsRead(OlderLayout("1"));
    for (int i = 11; i <= 16; ++i) EXPECT_EQ(bsd.MainData(i), 0) << i;
    EXPECT_EQ(bsd.MainData(10), 5.1f);
    EXPECT_EQ(bsd.MainData(17), 5.17f);
    EXPECT_EQ(bsd.FormatVersion.Trimmed(), L"1");
}

TEST(BsdReader, VersionOneRemapsTheClassCodeToo) {
    const BasicShipData bsd =
        RecordsRead(WithLine(kTypeCodesLine, "1\t3\t1\t0\t1\t").replace(0, 1, "1"));
    EXPECT_EQ(bsd.TypeCodes(2), 5);
}

TEST(BsdReader, VersionEndsAtACommaAndTheFirstTitleFollows) {
    const BasicShipData bsd = RecordsRead("4,First title\r\nSecond title\r\n");
    EXPECT_EQ(bsd.FormatVersion.Trimmed(), L"4");
    EXPECT_EQ(bsd.Titles(1).Trimmed(), L"First title");
    EXPECT_EQ(bsd.Titles(2).Trimmed(), L"Second title");
}

TEST(BsdReader, VersionThatIsNotANumberCountsAsBelowTwo) {
    const BasicShipData bsd = RecordsRead(WithLine(1, "new"));
    EXPECT_EQ(bsd.FormatVersion.Trimmed(), L"new");
    EXPECT_EQ(bsd.MainData(11), 0);
    EXPECT_EQ(bsd.ExtraData(1), 0);
}

TEST(BsdReader, MissingRecordsLeaveTheVersionThatWas) {
    BasicShipData bsd = DistinctBsdFromFile();
    EXPECT_EQ(ReadRecords("", bsd), 0);
    EXPECT_EQ(bsd, DistinctBsdFromFile());
}

// ---- Rules on reading --------------------------------------------------------------------------

TEST(BsdReader, ReductionFactorNearZeroIsDotEightFive) {
    struct Case {
        const char* text;
        float value;
    };
    const Case cases[] = {{"0", 0.85f},      {"0.0009", 0.85f},   {"-0.0009", 0.85f},
                          {"0.001", 0.001f}, {"-0.001", -0.001f}, {"1", 1.0f}};
    for (const Case& c : cases) {
        EXPECT_EQ(RecordsRead(WithLine(kReductionLine, c.text)).ReductionFactor, c.value) << c.text;
    }
}

TEST(BsdReader, PartCodesOfZeroBecomeOneWithTypeCodeNine) {
    std::string records = GoldenRecords();
    records.replace(records.find("81\t82\t83\t"), 9, "0\t82\t0\t");
    const BasicShipData on = RecordsRead(records);
    EXPECT_EQ(on.PartCodes(1), 1);
    EXPECT_EQ(on.PartCodes(2), 82);
    EXPECT_EQ(on.PartCodes(3), 1);

    records.replace(records.find("109\t"), 4, "0\t");
    const BasicShipData off = RecordsRead(records);
    EXPECT_EQ(off.PartCodes(1), 0);
    EXPECT_EQ(off.PartCodes(3), 0);
}

TEST(BsdReader, ReadingDoesNotTouchTheFourthDimension) {
    std::string records = GoldenRecords();
    records.replace(records.find("5.04\t"), 5, "0\t");
    EXPECT_EQ(RecordsRead(records).MainData(4), 0);
}

// ---- Texts -------------------------------------------------------------------------------------

TEST(BsdReader, TitlesAreWholeLines) {
    BasicShipData bsd = RecordsRead(WithLine(3, "  \"quoted\", 1, 2\tend "));
    EXPECT_EQ(bsd.Titles(2).Trimmed(), L"\"quoted\", 1, 2\tend");
    EXPECT_EQ(bsd.Titles(2).Whole().substr(0, 3), L"  \"");
    EXPECT_EQ(bsd.TypeCodes(1), 101);
}

TEST(BsdReader, LongTitleIsCutAtThirtyCharacters) {
    const BasicShipData bsd = RecordsRead(WithLine(2, std::string(29, 'a') + "bc"));
    EXPECT_EQ(bsd.Titles(1).Whole(), std::wstring(29, L'a') + L"b");
}

TEST(BsdReader, EmptyAndShortTitleLinesAreTitles) {
    const BasicShipData bsd = RecordsRead(WithLine(4, ""));
    EXPECT_EQ(bsd.Titles(3).Trimmed(), L"");
    EXPECT_EQ(bsd.Titles(4).Trimmed(), L"Title four");
}

TEST(BsdReader, AccentedLettersAreAnsi) {
    const BasicShipData bsd = RecordsRead(WithLine(2, "\xC9toile du \xCEle"));
    EXPECT_EQ(bsd.Titles(1).Trimmed(), system::WideFromAnsi("\xC9toile du \xCEle"));
}

TEST(BsdReader, RemarkKeepsItsLeadingBlanksAndQuotes) {
    const BasicShipData bsd = RecordsRead(WithLine(kRemarkLine, "  \"as built\" "));
    EXPECT_EQ(bsd.Remark.Whole().substr(0, 13), L"  \"as built\" ");
    EXPECT_EQ(bsd.ReductionFactor, 0.9f);
}

TEST(BsdReader, EmptyRemarkLineIsAnEmptyRemark) {
    const BasicShipData bsd = RecordsRead(WithLine(kRemarkLine, ""));
    EXPECT_EQ(bsd.Remark.Trimmed(), L"");
    EXPECT_EQ(bsd.ReductionFactor, 0.9f);
}

TEST(BsdReader, RemarkIsCutAtAComma) {
    for (const char* remark : {"draught, 5", "draught,", "draught,,0.3 0.4"}) {
        const BasicShipData bsd = RecordsRead(WithLine(kRemarkLine, remark));
        EXPECT_EQ(bsd.Remark.Trimmed(), L"draught") << remark;
        EXPECT_EQ(bsd.ReductionFactor, 0.9f) << remark;
        EXPECT_EQ(bsd.ExtraData(4), 25.4f) << remark;
    }
}

// ---- Items -------------------------------------------------------------------------------------

TEST(BsdReader, LineStructureOfNumbersIsNotEnforced) {
    std::string records = GoldenRecords();
    const size_t first = records.find("101\t");
    const size_t last = records.find("\r\nThe remark");
    std::string numbers = records.substr(first, last - first);
    for (const char* separator : {" ", "\r\n", "\n", ",", " , ", "\t,\t", "\r\n\r\n", " \r\n\t"}) {
        std::string joined;
        for (size_t at = 0; at < numbers.size();) {
            const size_t end = std::min(numbers.find_first_of("\t\r", at), numbers.size());
            joined += numbers.substr(at, end - at);
            at = std::min(numbers.find_first_not_of("\t\r\n", end), numbers.size());
            if (at < numbers.size()) joined += separator;
        }
        std::string text = records;
        text.replace(first, last - first, joined);
        BasicShipData bsd;
        EXPECT_EQ(ReadRecords(text, bsd), kNumberCount) << separator;
        EXPECT_EQ(bsd, DistinctBsdFromFile()) << separator;
    }
}

TEST(BsdReader, ItemThatIsNotANumberIsSkippedAndItsFieldKeepsItsValue) {
    for (const char* item :
         {"x", "-", "1.2.3", "1x", "0x10", "\"5\"", "nan", "inf", "1;2", "E5", "."}) {
        const std::string line = "4.1\t" + std::string(item) + "\t4.3\t4.4\t4.5\t4.6\t";
        BasicShipData bsd;
        bsd.GeneralData(2) = -7;
        EXPECT_EQ(ReadRecords(WithLine(kGeneralLine, line), bsd), kNumberCount - 1) << item;
        BasicShipData expected = DistinctBsdFromFile();
        expected.GeneralData(2) = -7;
        EXPECT_EQ(bsd, expected) << item;
    }
}

TEST(BsdReader, EmptyItemBetweenTwoCommasKeepsTheFieldsValue) {
    for (const char* line :
         {"4.1,,4.3,4.4,4.5,4.6", "4.1, ,4.3 4.4 4.5 4.6", "4.1\t,\t,4.3,4.4,4.5,4.6,"}) {
        BasicShipData bsd;
        bsd.GeneralData(2) = -7;
        EXPECT_EQ(ReadRecords(WithLine(kGeneralLine, line), bsd), kNumberCount - 1) << line;
        EXPECT_EQ(bsd.GeneralData(2), -7) << line;
        EXPECT_EQ(bsd.GeneralData(3), 4.3f) << line;
        EXPECT_EQ(bsd.MainData(1), 5.01f) << line;
    }
}

TEST(BsdReader, TabBeforeTheLineEndOpensNoItem) {
    const BasicShipData bsd = RecordsRead(WithLine(kGeneralLine, "4.1 4.2 4.3 4.4 4.5 4.6 \t \t"));
    EXPECT_EQ(bsd, DistinctBsdFromFile());
}

TEST(BsdReader, CommentLineInsideTheRecordsIsReadAsItems) {
    const std::string line = "4.1\t4.2\t4.3\t4.4\t4.5\t4.6\t\r\n* note";
    const BasicShipData bsd = RecordsRead(WithLine(kGeneralLine, line));
    EXPECT_EQ(bsd.MainData(1), 0);
    EXPECT_EQ(bsd.MainData(2), 0);
    EXPECT_EQ(bsd.MainData(3), 5.01f);
}

TEST(BsdReader, NumbersAreReadInAllTheirForms) {
    struct Case {
        const char* text;
        float value;
    };
    constexpr float kLargest = std::numeric_limits<float>::max();
    const Case cases[] = {
        {"1E+38", 1E+38f},   {"1.5E-05", 1.5E-05f},  {"-0.5", -0.5f}, {"1234567", 1234567},
        {"+3", 3},           {".5", 0.5f},           {"-.5", -0.5f},  {"5.", 5},
        {"1e3", 1000},       {"1D3", 1000},          {"1d-2", 0.01f}, {"007", 7},
        {"1E+39", kLargest}, {"-1E+400", -kLargest}, {"1E-400", 0},
    };
    for (const Case& c : cases) {
        const std::string line = std::string(c.text) + "\t4.2\t4.3\t4.4\t4.5\t4.6\t";
        EXPECT_EQ(RecordsRead(WithLine(kGeneralLine, line)).GeneralData(1), c.value) << c.text;
    }
}

TEST(BsdReader, IntegersAreRoundedAndClampedToSixteenBits) {
    struct Case {
        const char* text;
        int value;
    };
    const Case cases[] = {{"1.4", 1},         {"1.6", 2},       {"-1.6", -2},
                          {"32767", 32767},   {"32768", 32767}, {"-32768", -32768},
                          {"-40000", -32768}, {"1E+30", 32767}, {"2E1", 20}};
    for (const Case& c : cases) {
        const std::string line = std::string(c.text) + "\t102\t103\t104\t105\t";
        EXPECT_EQ(RecordsRead(WithLine(kTypeCodesLine, line)).TypeCodes(1), c.value) << c.text;
    }
}

// ---- Line ends, and the end of the records -----------------------------------------------------

TEST(BsdReader, FileWithLineFeedsOnlyReadsTheSame) {
    EXPECT_EQ(RecordsRead(WithLineFeeds(GoldenRecords())), DistinctBsdFromFile());
}

TEST(BsdReader, LastLineMayLackItsEnd) {
    std::string records = GoldenRecords();
    for (int i = 0; i < 2; ++i) {
        records.pop_back();
        EXPECT_EQ(RecordsRead(records), DistinctBsdFromFile());
    }
}

TEST(BsdReader, ReaderIsAfterTheRecords) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a.bsd"), GoldenRecords() + "next\r\n");
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, folder.File(L"a.bsd")));
    BasicShipData bsd;
    ReadBasicShipData(reader, bsd);
    std::string_view line;
    ASSERT_TRUE(ReadLine(reader, line));
    EXPECT_EQ(line, "next");
}

TEST(BsdReader, HeaderLineAndModelMarkerEndTheRecords) {
    for (const std::string& end :
         {std::string("------ NEXT"), std::string("   ------"), GetMessageBytes(kMsgModelMarker)}) {
        BasicShipData bsd;
        bsd.GeneralData(1) = -7;
        bsd.ReductionFactor = 0.5f;
        EXPECT_EQ(ReadRecords(WithLine(kGeneralLine, end), bsd), 10) << end;
        EXPECT_EQ(bsd.TypeCodes(10), 110);
        EXPECT_EQ(bsd.GeneralData(1), -7);
        EXPECT_EQ(bsd.MainData(1), 0);
        EXPECT_EQ(bsd.Remark.Trimmed(), L"");
        EXPECT_EQ(bsd.ReductionFactor, 0.5f);
    }
}

// The version, the titles and the remark are lines by their place.
TEST(BsdReader, TextThatLooksLikeAHeaderLineIsText) {
    for (const char* text :
         {"------ NEXT", "   ------", "------------------ BSD ------------------"}) {
        BasicShipData bsd = RecordsRead(WithLine(3, text));
        EXPECT_EQ(bsd.Titles(2).Trimmed(),
                  Trim(std::wstring(text, text + std::min<size_t>(30, strlen(text)))));
        bsd.Titles(2).Assign(L"Title two");
        EXPECT_EQ(bsd, DistinctBsdFromFile());

        bsd = RecordsRead(WithLine(kRemarkLine, text));
        EXPECT_EQ(bsd.Remark.Trimmed(), Trim(std::wstring(text, text + strlen(text))));
        bsd.Remark = DistinctBsdFromFile().Remark;
        EXPECT_EQ(bsd, DistinctBsdFromFile());
    }
    BasicShipData bsd;
    EXPECT_EQ(ReadRecords(WithLine(1, "------ version"), bsd), kNumberCount - 4);
}

TEST(BsdReader, ModelMarkerInTheTitlesEndsTheRecords) {
    const BasicShipData bsd = RecordsRead(WithLine(3, GetMessageBytes(kMsgModelMarker)));
    EXPECT_EQ(bsd.Titles(1).Trimmed(), L"Title one");
    EXPECT_EQ(bsd.Titles(2).Trimmed(), L"");
    EXPECT_EQ(bsd.TypeCodes(1), 0);
}

// One file holds the records cut at every byte, each followed by a model marker: however short they
// are, nothing after them is read.
TEST(BsdReader, RecordsCutAtAnyByteLeaveWhatFollowsUnread) {
    const std::string records = GoldenRecords();
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    std::string text;
    for (size_t length = 0; length <= records.size(); ++length) {
        text +=
            records.substr(0, length) + "\r\n" + marker + "\r\n" + std::to_string(length) + "\r\n";
    }
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a.bsd"), text);
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, folder.File(L"a.bsd")));
    int previousCount = 0;
    for (size_t length = 0; length <= records.size(); ++length) {
        BasicShipData bsd;
        const int count = ReadBasicShipData(reader, bsd);
        ASSERT_GE(count, previousCount - 1) << length;
        previousCount = count;
        std::string_view line;
        ASSERT_TRUE(ReadLine(reader, line));
        if (line.empty()) ReadLine(reader, line);
        ASSERT_EQ(line, marker) << length;
        ReadLine(reader, line);
        ASSERT_EQ(line, std::to_string(length));
    }
    EXPECT_EQ(previousCount, kNumberCount);
}

TEST(BsdReader, FileCutAtAnyByteIsReadAsFarAsItGoes) {
    const std::string records = GoldenRecords();
    for (size_t length = 0; length < records.size(); length += 7) {
        BasicShipData bsd;
        bsd.ExtraData(4) = -1;
        EXPECT_LT(ReadRecords(records.substr(0, length), bsd), kNumberCount);
        EXPECT_EQ(bsd.ExtraData(4), -1);
    }
}

}  // namespace
}  // namespace corvane
