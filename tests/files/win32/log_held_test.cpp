// A log that another program has open.
#include <gtest/gtest.h>

#include "files/log_file.h"
#include "platform/win32/win32.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

struct HeldLog : testing::Test {
    const test::TemporaryFolder folder;
    LogFile log{folder.File(L"corvane.log")};

    HANDLE Hold(const std::wstring& path, DWORD sharing) const {
        return CreateFileW(path.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
    }
};

TEST_F(HeldLog, ProgramThatLetsNobodyWriteCostsEntriesOnlyMeanwhile) {
    WriteEntry(log, LogKind::kOpen, L"one");
    const std::string before = test::ReadFileBytes(log.path);
    const HANDLE held = Hold(log.path, FILE_SHARE_READ);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    WriteEntry(log, LogKind::kOpen, L"two");
    EXPECT_EQ(test::ReadFileBytes(log.path), before);
    CloseHandle(held);
    WriteEntry(log, LogKind::kOpen, L"three");
    EXPECT_TRUE(test::ReadFileBytes(log.path).ends_with(" open three\r\n"));
}

TEST_F(HeldLog, ProgramThatReadsHindersNoEntry) {
    WriteEntry(log, LogKind::kOpen, L"one");
    const HANDLE held = Hold(log.path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    WriteEntry(log, LogKind::kOpen, L"two");
    EXPECT_TRUE(test::ReadFileBytes(log.path).ends_with(" open two\r\n"));
    CloseHandle(held);
}

TEST_F(HeldLog, FullLogThatAnotherProgramReadsGrowsNoFurther) {
    const std::string full(kLongestLog, 'a');
    test::WriteFileBytes(log.path, full);
    const HANDLE held = Hold(log.path, FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    WriteEntry(log, LogKind::kOpen, L"one");
    EXPECT_EQ(test::ReadFileBytes(log.path), full);
    CloseHandle(held);
    WriteEntry(log, LogKind::kOpen, L"two");
    EXPECT_TRUE(test::ReadFileBytes(log.path).ends_with(" open two\r\n"));
}

}  // namespace
}  // namespace corvane
