#include "tests/bsd/bsd_support.h"

#include <gtest/gtest.h>

#include "bsd/bsd_file.h"
#include "bsd/bsd_records.h"
#include "files/text_file.h"
#include "tests/support/support.h"

namespace corvane::test {
namespace {

// The single nearest to a decimal number.
float Single(int digits, double divisor) {
    return static_cast<float>(digits / divisor);
}

void FillMainPart(BasicShipData& bsd) {
    for (int i = 1; i <= 10; ++i) bsd.TypeCodes(i) = static_cast<int16_t>(100 + i);
    for (int i = 1; i <= 6; ++i) bsd.GeneralData(i) = Single(40 + i, 10);
    for (int i = 1; i <= 30; ++i) bsd.MainData(i) = Single(500 + i, 100);
    for (int j = 1; j <= 10; ++j) {
        for (int i = 1; i <= 2; ++i) bsd.Table2x10(i, j) = Single(6000 + 100 * i + j, 1);
    }
    for (int j = 1; j <= 5; ++j) {
        for (int i = 1; i <= 6; ++i) bsd.Table6x5(i, j) = Single(700 + 10 * i + j, 1);
    }
    for (int i = 1; i <= 3; ++i) bsd.PartCodes(i) = static_cast<int16_t>(80 + i);
    for (int i = 1; i <= 2; ++i) bsd.PairCodes(i) = static_cast<int16_t>(90 + i);
    for (int i = 1; i <= 2; ++i) bsd.PairData(i) = Single(100 + i, 10);
    for (int j = 1; j <= 2; ++j) {
        for (int i = 1; i <= 3; ++i) bsd.Table3x2(i, j) = Single(1100 + 10 * i + j, 100);
    }
    for (int i = 1; i <= 2; ++i) bsd.EndData(i) = Single(120 + i, 10);
}

void FillFramesAndLists(BasicShipData& bsd) {
    bsd.FrameZoneCount = 13;
    bsd.FrameNumbers(0) = -14;
    for (int i = 1; i <= 40; ++i) bsd.FrameNumbers(i) = static_cast<int16_t>(1400 + i);
    bsd.FrameZeroX = 15.5f;
    for (int i = 1; i <= 40; ++i) bsd.ZoneSpacing(i) = Single(1600 + i, 100);
    bsd.CountA = 171;
    bsd.CountB = 172;
    for (int i = 0; i <= 25; ++i) bsd.CodeList(i) = static_cast<int16_t>(1800 + i);
    for (int i = 1; i <= 10; ++i) {
        bsd.TripleA(i) = Single(19100 + i, 1);
        bsd.TripleB(i) = Single(19200 + i, 1);
        bsd.TripleC(i) = Single(19300 + i, 1);
    }
    for (int i = 1; i <= 15; ++i) bsd.List15(i) = Single(2000 + i, 100);
    bsd.SingleA = 21.5f;
    for (const int i : {1, 2, 5, 6, 7, 11}) bsd.Block12(i) = Single(2200 + i, 100);
}

}  // namespace

BasicShipData DistinctBsd() {
    BasicShipData bsd;
    const wchar_t* titles[] = {L"Title one", L"Title two", L"Title three", L"Title four",
                               L"TITLE-5"};
    for (int i = 1; i <= 5; ++i) bsd.Titles(i).Assign(titles[i - 1]);
    FillMainPart(bsd);
    FillFramesAndLists(bsd);
    bsd.Remark.Assign(L"The remark of 50 characters");
    bsd.ReductionFactor = 0.9f;
    for (int i = 1; i <= 4; ++i) bsd.ExtraData(i) = Single(250 + i, 10);
    return bsd;
}

BasicShipData DistinctBsdFromFile() {
    BasicShipData bsd = DistinctBsd();
    bsd.FormatVersion.Assign(L"5");
    return bsd;
}

std::string GoldenRecords() {
    const std::string block = ReadFileBytes(DataPath("golden/bsd_block.txt"));
    const std::string head = std::string(kBsdHeaderLine) + "\r\n*\r\n";
    EXPECT_TRUE(block.starts_with(head));
    return block.substr(head.size());
}

std::string WithLine(int line, std::string_view text) {
    std::string records = GoldenRecords();
    size_t begin = 0;
    for (int i = 1; i < line; ++i) begin = records.find("\r\n", begin) + 2;
    return records.replace(begin, records.find("\r\n", begin) - begin, text);
}

int ReadRecords(std::string_view bytes, BasicShipData& bsd) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a.bsd"), bytes);
    TextReader reader;
    EXPECT_TRUE(OpenText(reader, folder.File(L"a.bsd")));
    return ReadBasicShipData(reader, bsd);
}

BasicShipData RecordsRead(std::string_view bytes) {
    BasicShipData bsd;
    ReadRecords(bytes, bsd);
    return bsd;
}

std::string RecordsWritten(BasicShipData& bsd) {
    const TemporaryFolder folder;
    TextWriter writer;
    EXPECT_TRUE(CreateText(writer, folder.File(L"a.bsd")));
    WriteBasicShipData(writer, bsd);
    EXPECT_TRUE(CloseText(writer));
    return ReadFileBytes(folder.File(L"a.bsd"));
}

}  // namespace corvane::test
