// CreateDatabaseFile and WriteBlockHead.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "database/creating.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "report/messages.h"
#include "tests/database/sample_database.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

BasicShipData SampleShip() {
    BasicShipData bsd;
    bsd.Titles(1).Assign(L"Sample ship");
    bsd.Titles(5).Assign(L"SHIP");
    bsd.TypeCodes(1) = 3;
    bsd.MainData(1) = 180.5f;
    bsd.MainData(2) = 32.2f;
    bsd.MainData(3) = 19.1f;
    bsd.MainData(9) = 0.82f;
    bsd.ReductionFactor = 0.85f;
    return bsd;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

// Whether the line is these parts in their order with any text between them, but nothing before the
// first and nothing after the last.
bool HasParts(const std::string& line, const std::vector<std::string>& parts) {
    size_t at = 0;
    for (const std::string& part : parts) {
        const size_t found = line.find(part, at);
        if (found == std::string::npos || (at == 0 && found != 0)) return false;
        at = found + part.size();
    }
    return line.size() >= parts.back().size() &&
           line.compare(line.size() - parts.back().size(), std::string::npos, parts.back()) == 0;
}

struct CreatingTest : testing::Test {
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    test::RecordedReports screen;
};

TEST_F(CreatingTest, FileHeadIsTheGoldenOneButForItsStamps) {
    // The golden file's own stamps are on the lines 4 to 7; whose name is not known has three.
    const std::vector<std::string> golden =
        LinesOf(test::ReadFileBytes(test::DataPath("golden/file_head.ve2")));
    BasicShipData bsd = SampleShip();
    ASSERT_TRUE(CreateDatabaseFile(path, bsd));
    std::vector<std::string> written = LinesOf(test::ReadFileBytes(path));

    const std::vector<std::vector<std::string>> stamps = {
        {"* Program : Corvane ", ".", " R", " 32bit\r"},
        {"* Format version :  2.002 \r"},
        {"* Written by : ", ", ", ",  ", "\r"},
        {"* User : ", "\r"}};
    ASSERT_GE(written.size(), 7u);
    for (size_t i = 0; i < stamps.size(); ++i) {
        EXPECT_TRUE(HasParts(golden[3 + i], stamps[i])) << golden[3 + i];
        if (i == 3 && CurrentStamp().userName.empty()) {
            written.insert(written.begin() + 6, golden[6]);
        }
        EXPECT_TRUE(HasParts(written[3 + i], stamps[i])) << written[3 + i];
        written[3 + i] = golden[3 + i];
    }
    EXPECT_EQ(written, golden);
    EXPECT_TRUE(test::RecordedReports::events.empty());
}

TEST_F(CreatingTest, NewFileIsADatabaseWithoutModels) {
    BasicShipData bsd = SampleShip();
    ASSERT_TRUE(CreateDatabaseFile(path, bsd));
    EXPECT_TRUE(IsDatabaseFile(path));
    EXPECT_EQ(CountModels(path), 0);
    EXPECT_TRUE(ListModelsWithPositions(path).empty());
    EXPECT_EQ(test::FilesIn(folder.path), std::vector<std::wstring>{L"ship.ve2"});
}

TEST_F(CreatingTest, DraughtNearZeroBecomesTheDepthInTheCallersRecordToo) {
    BasicShipData bsd = SampleShip();
    ASSERT_TRUE(CreateDatabaseFile(path, bsd));
    EXPECT_EQ(bsd.MainData(4), bsd.MainData(3));
}

TEST_F(CreatingTest, OldFileIsReplacedWhole) {
    test::WriteFileBytes(path, std::string(100'000, 'o'));
    BasicShipData bsd = SampleShip();
    ASSERT_TRUE(CreateDatabaseFile(path, bsd));
    EXPECT_TRUE(IsDatabaseFile(path));
    EXPECT_EQ(test::ReadFileBytes(path).find("oooo"), std::string::npos);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1u);
}

TEST_F(CreatingTest, EmptyPathDoesNothing) {
    BasicShipData bsd = SampleShip();
    EXPECT_FALSE(CreateDatabaseFile(L"", bsd));
    EXPECT_EQ(bsd, SampleShip());
    EXPECT_TRUE(test::RecordedReports::events.empty());
}

TEST_F(CreatingTest, ReadOnlyFileIsReportedWithItsPathAndStays) {
    test::WriteFileBytes(path, "old text");
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    BasicShipData bsd = SampleShip();
    EXPECT_FALSE(CreateDatabaseFile(path, bsd));
    const std::vector<std::string> expected = {test::Narrow(FormatMessage(kMsgReadOnly, {path}))};
    EXPECT_EQ(test::RecordedReports::Of("warning"), expected);
    EXPECT_EQ(test::ReadFileBytes(path), "old text");
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1u);
    system::SetReadOnly(path, false);
}

TEST_F(CreatingTest, FolderThatTakesNoFileIsReportedAndNoTextIsLeft) {
    const std::wstring missing = folder.File(L"no folder\\ship.ve2");
    BasicShipData bsd = SampleShip();
    EXPECT_FALSE(CreateDatabaseFile(missing, bsd));
    const std::vector<std::string> shown = test::RecordedReports::Of("warning");
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_NE(shown[0].find("'" + test::Narrow(missing) + "'"), std::string::npos);
    EXPECT_NE(shown[0].find("its folder takes no new file"), std::string::npos);
    EXPECT_TRUE(test::FilesIn(folder.path).empty());
}

TEST_F(CreatingTest, FolderIsNotReplaced) {
    const test::FakeCatalogue catalogue({{kMsgFileNotWritten, "\xA4|\xA4|\xA4|\xA4"}});
    ASSERT_EQ(system::MakeDirectory(path), system::kErrorNone);
    BasicShipData bsd = SampleShip();
    EXPECT_FALSE(CreateDatabaseFile(path, bsd));
    EXPECT_TRUE(IsDirectory(path));
    ASSERT_EQ(test::RecordedReports::Of("warning").size(), 1u);
    const std::string text = test::RecordedReports::Of("warning").front();
    const size_t end = text.rfind('|');
    const size_t begin = text.rfind('|', end - 1) + 1;
    const std::string kept = text.substr(begin, end - begin);
    EXPECT_EQ(RemoveOwnFile(std::wstring(kept.begin(), kept.end())), system::kErrorNone);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1u);
}

// ---- Block heads -------------------------------------------------------------------------------

std::string BlockHead(const std::wstring& path, int32_t number, ModelKind kind) {
    TextWriter writer;
    EXPECT_TRUE(CreateText(writer, path));
    WriteBlockHead(writer, number, kind, {L"Yard", L"Oslo", L"20/11/2026", L"17:45:00", L"ann"});
    EXPECT_TRUE(CloseText(writer));
    return test::ReadFileBytes(path);
}

const std::map<int32_t, std::string> kTexts = {
    {kMsgCommentRule, "*-"},  {kMsgModelMarker, "MODEL"}, {kMsgFormatVersionLabel, "VERSION"},
    {kMsgNameLabel, "NAME"},  {kMsgStampProgram, " P "},  {kMsgStampFormat, " F"},
    {kMsgStampWritten, "by"}, {kMsgStampUser, " U "}};

TEST_F(CreatingTest, BlockHeadHasItsLinesInTheirOrder) {
    const test::FakeCatalogue catalogue(kTexts);
    EXPECT_EQ(BlockHead(path, 7, ModelKind::kSection),
              "MODEL\r\n*-\r\n 7 \r\nSECTION\r\n*-\r\nVERSION\r\n 2.002 \r\n"
              "*- P 1.0 R0 32bit\r\n*- F 2.002 \r\n"
              "*- by : Yard, Oslo 20/11/2026,  17:45:00\r\n*- U ann\r\n"
              "*-\r\nNAME\r\n");
}

TEST_F(CreatingTest, BulkheadArrangementHasItsOwnFormatVersion) {
    const test::FakeCatalogue catalogue(kTexts);
    const std::string head = BlockHead(path, 12, ModelKind::kBulkhead);
    EXPECT_EQ(head.find("MODEL\r\n*-\r\n 12 \r\nBHA\r\n*-\r\nVERSION\r\n .443 \r\n"), 0u) << head;
    EXPECT_NE(head.find("*- F .443 \r\n"), std::string::npos) << head;
}

TEST_F(CreatingTest, BlockAfterANewHeadIsListed) {
    BasicShipData bsd = SampleShip();
    ASSERT_TRUE(CreateDatabaseFile(path, bsd));
    const std::string text = test::ReadFileBytes(path) +
                             BlockHead(folder.File(L"block"), 1, ModelKind::kBulkhead) +
                             "* legend\r\n Hold 3 \r\n 87.5 \t 0 \r\n";
    test::WriteFileBytes(path, text);
    const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].name, L"Hold 3");
    EXPECT_EQ(entries[0].kind, ModelKind::kBulkhead);
    EXPECT_EQ(entries[0].x, 87.5f);
    EXPECT_EQ(ModelPosition(path, 1), 87.5f);
}

}  // namespace
}  // namespace corvane
