#include "files/log_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "files/paths.h"
#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::ReadFileBytes;
using test::WriteFileBytes;

constexpr system::LocalTime kTime{2026, 11, 3, 6, 4, 9};

std::string Head() {
    return "2026-11-03 06:04:09 " + std::to_string(system::ProcessNumber()) + " ";
}

std::vector<std::string> LinesOf(const std::wstring& path) {
    std::istringstream text(ReadFileBytes(path));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
}

struct LogFileTest : testing::Test {
    const test::TemporaryFolder folder;
    LogFile log{folder.File(L"corvane.log")};
};

TEST(LogLine, HasTimeProcessKindAndText) {
    EXPECT_EQ(LogLine(kTime, LogKind::kCommand, L"ME_FileNew"), Head() + "command ME_FileNew\r\n");
    EXPECT_EQ(LogLine(kTime, LogKind::kStart, L""), Head() + "start \r\n");
    EXPECT_EQ(LogLine(kTime, LogKind::kEnd, L"x"), Head() + "end x\r\n");
}

TEST(LogLine, IsUtf8WhateverTheCodePage) {
    EXPECT_EQ(LogLine(kTime, LogKind::kOpen, L"C:\\\u0141\u00F3d\u017A \u03A9\\\u4E2D.ve2"),
              Head() +
                  "open C:\\\xC5\x81\xC3\xB3"
                  "d\xC5\xBA \xCE\xA9\\\xE4\xB8\xAD.ve2\r\n");
}

TEST(LogLine, StaysOneLineWhateverTheTextHolds) {
    EXPECT_EQ(LogLine(kTime, LogKind::kOpen, std::wstring(L"a\r\nb\tc\0d\x7F\x85\u2028e", 12)),
              Head() + "open a  b c d   e\r\n");
}

TEST(LogLine, TextThatIsTooLongIsCut) {
    EXPECT_EQ(LogLine(kTime, LogKind::kOpen, std::wstring(5000, L'x')),
              Head() + "open " + std::string(kLongestEntry, 'x') + "\r\n");
}

TEST_F(LogFileTest, EntriesFollowEachOther) {
    WriteEntry(log, LogKind::kOpen, L"one");
    WriteEntry(log, LogKind::kWrite, L"two");
    const std::vector<std::string> lines = LinesOf(log.path);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_TRUE(lines[0].ends_with(" open one\r"));
    EXPECT_TRUE(lines[1].ends_with(" write two\r"));
}

TEST_F(LogFileTest, WithoutAPathThereIsNone) {
    log.path.clear();
    WriteEntry(log, LogKind::kOpen, L"one");
    EXPECT_TRUE(test::FilesIn(folder.path).empty());
}

TEST_F(LogFileTest, FolderThatIsMissingIsMade) {
    log.path = folder.File(L"Corvane\\corvane.log");
    WriteEntry(log, LogKind::kOpen, L"one");
    EXPECT_EQ(LinesOf(log.path).size(), 1U);
}

TEST_F(LogFileTest, FolderWithLettersOfAnyLanguageWorks) {
    log.path = folder.File(L"\u0141\u00F3d\u017A \u03A9 \u4E2D\\corvane.log");
    WriteEntry(log, LogKind::kOpen, L"one");
    EXPECT_EQ(LinesOf(log.path).size(), 1U);
}

TEST_F(LogFileTest, FolderThatCannotBeMadeLeavesNothingAndHurtsNobody) {
    WriteFileBytes(folder.File(L"Corvane"), "a file");
    log.path = folder.File(L"Corvane\\corvane.log");
    WriteEntry(log, LogKind::kOpen, L"one");
    log.path = folder.File(L"no\\such\\corvane.log");
    WriteEntry(log, LogKind::kOpen, L"one");
    EXPECT_EQ(ReadFileBytes(folder.File(L"Corvane")), "a file");
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
}

TEST_F(LogFileTest, ReadOnlyLogIsLeftAloneAndTriedAgain) {
    WriteFileBytes(log.path, "old\r\n");
    ASSERT_EQ(system::SetReadOnly(log.path, true), system::kErrorNone);
    WriteEntry(log, LogKind::kOpen, L"one");
    EXPECT_EQ(ReadFileBytes(log.path), "old\r\n");
    ASSERT_EQ(system::SetReadOnly(log.path, false), system::kErrorNone);
    WriteEntry(log, LogKind::kOpen, L"two");
    EXPECT_EQ(LinesOf(log.path).size(), 2U);
}

TEST_F(LogFileTest, FullLogBecomesTheOlderOneAndBothStayBounded) {
    WriteFileBytes(log.path, std::string(kLongestLog - 10, 'a'));
    WriteFileBytes(OlderLog(log.path), "the one before");
    WriteEntry(log, LogKind::kOpen, L"one");
    EXPECT_EQ(OlderLog(log.path), folder.File(L"corvane.old.log"));
    EXPECT_EQ(ReadFileBytes(OlderLog(log.path)), std::string(kLongestLog - 10, 'a'));
    EXPECT_EQ(LinesOf(log.path).size(), 1U);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
}

TEST_F(LogFileTest, LogIsFilledToItsLimitAndNoFurther) {
    const std::string line = LogLine(system::Now(), LogKind::kOpen, L"one");
    WriteFileBytes(log.path, std::string(kLongestLog - line.size(), 'a'));
    WriteEntry(log, LogKind::kOpen, L"one");
    EXPECT_EQ(ReadFileBytes(log.path).size(), static_cast<size_t>(kLongestLog));
    WriteEntry(log, LogKind::kOpen, L"two");
    EXPECT_EQ(LinesOf(log.path).size(), 1U);
}

TEST_F(LogFileTest, FullLogWhoseOlderOneCannotBeReplacedGrowsNoFurther) {
    const std::string full(kLongestLog, 'a');
    WriteFileBytes(log.path, full);
    WriteFileBytes(OlderLog(log.path), "kept");
    ASSERT_EQ(system::SetReadOnly(OlderLog(log.path), true), system::kErrorNone);
    WriteEntry(log, LogKind::kOpen, L"one");
    EXPECT_EQ(ReadFileBytes(log.path), full);
    EXPECT_EQ(ReadFileBytes(OlderLog(log.path)), "kept");
    ASSERT_EQ(system::SetReadOnly(OlderLog(log.path), false), system::kErrorNone);
}

}  // namespace
}  // namespace corvane
