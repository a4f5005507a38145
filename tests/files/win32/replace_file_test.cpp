// Putting a new file in place while other programs hold the old one, and its attributes.
#include <gtest/gtest.h>

#include <thread>

#include "files/file_system.h"
#include "platform/win32/win32.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FilesIn;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::TemporaryFolder;
using test::WriteFileBytes;
using Names = std::vector<std::wstring>;

struct Replacing {
    TemporaryFolder folder;
    TemporaryFolder elsewhere;
    std::wstring target = folder.File(L"ship.ve2");
    std::wstring temporary = elsewhere.File(L"new.tmp");

    Replacing() {
        WriteFileBytes(target, "old");
        WriteFileBytes(temporary, "new");
    }
    HANDLE Hold(DWORD sharing) const {
        return CreateFileW(target.c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0,
                           nullptr);
    }
};

TEST(ReplaceFile, WaitsForAProgramThatHoldsTheTargetAWhile) {
    const Replacing files;
    HANDLE held = files.Hold(FILE_SHARE_READ);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    std::thread other([held] {
        Sleep(200);
        CloseHandle(held);
    });
    EXPECT_TRUE(ReplaceFile(files.temporary, files.target).Done());
    other.join();
    EXPECT_EQ(ReadFileBytes(files.target), "new");
    EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
    EXPECT_TRUE(FilesIn(files.elsewhere.path).empty());
}

TEST(ReplaceFile, TargetThatStaysHeldIsUntouchedAndTheTemporaryKept) {
    const Replacing files;
    for (const DWORD sharing : {0, FILE_SHARE_READ, FILE_SHARE_READ | FILE_SHARE_WRITE}) {
        HANDLE held = files.Hold(sharing);
        ASSERT_NE(held, INVALID_HANDLE_VALUE);
        const int64_t start = system::Milliseconds();
        const ReplaceResult result = ReplaceFile(files.temporary, files.target);
        EXPECT_FALSE(result.Done());
        EXPECT_TRUE(result.error == system::kErrorSharingViolation ||
                    result.error == system::kErrorAccessDenied)
            << result.error;
        EXPECT_GE(system::Milliseconds() - start, 900);
        CloseHandle(held);
        EXPECT_EQ(ReadFileBytes(files.target), "old");
        EXPECT_EQ(ReadFileBytes(files.temporary), "new");
        EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
    }
}

TEST(ReplaceFile, TargetThatAReaderHoldsForGoodIsReplaced) {
    const Replacing files;
    HANDLE held = files.Hold(FILE_SHARE_READ | FILE_SHARE_DELETE);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(ReplaceFile(files.temporary, files.target).Done());
    EXPECT_EQ(ReadFileBytes(files.target), "new");
    CloseHandle(held);
    EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
}

TEST(ReplaceFile, TargetKeepsItsAttributes) {
    const Replacing files;
    for (const DWORD attributes : {DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_SYSTEM}}) {
        ASSERT_TRUE(SetFileAttributesW(files.target.c_str(), attributes));
        const DWORD before = GetFileAttributesW(files.target.c_str());
        WriteFileBytes(files.temporary, "new");
        EXPECT_TRUE(ReplaceFile(files.temporary, files.target).Done());
        EXPECT_EQ(ReadFileBytes(files.target), "new");
        EXPECT_EQ(GetFileAttributesW(files.target.c_str()), before);
    }
}

TEST(FileExists, FileThatIsHeldExclusivelyIsReportedInDebugMode) {
    const RecordedReports screen;
    const Replacing files;
    HANDLE held = files.Hold(0);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(FileExists(files.target));
    EXPECT_TRUE(RecordedReports::events.empty());
    RecordedReports::debugMode = true;
    EXPECT_FALSE(FileExists(files.target));
    ASSERT_EQ(RecordedReports::Of("plain").size(), 1U);
    const std::string expected = "FileExist(" + Narrow(files.target) + ") 32 ";
    EXPECT_EQ(RecordedReports::Of("plain")[0].substr(0, expected.size()), expected);
    KillFile(files.target);
    CloseHandle(held);
    EXPECT_EQ(ReadFileBytes(files.target), "old");
}

TEST(KillFile, FileThatCannotBeDeletedIsReportedInDebugMode) {
    const RecordedReports screen;
    const Replacing files;
    HANDLE held = files.Hold(FILE_SHARE_READ);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    RecordedReports::debugMode = true;
    KillFile(files.target);
    CloseHandle(held);
    ASSERT_EQ(RecordedReports::Of("plain").size(), 1U);
    const std::string expected = "ExKill " + Narrow(files.target) + " 32 ";
    EXPECT_EQ(RecordedReports::Of("plain")[0].substr(0, expected.size()), expected);
}

TEST(AwaitReadable, WaitsForAProgramThatHoldsTheFileAWhile) {
    const Replacing files;
    HANDLE held = files.Hold(0);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    std::thread other([held] {
        Sleep(200);
        CloseHandle(held);
    });
    EXPECT_EQ(AwaitReadable(files.target), system::kErrorNone);
    other.join();
    held = files.Hold(0);
    EXPECT_EQ(AwaitReadable(files.target), system::kErrorSharingViolation);
    CloseHandle(held);
}

TEST(RemoveOwnFile, WaitsForAProgramThatHoldsTheFileAWhile) {
    const Replacing files;
    HANDLE held = files.Hold(FILE_SHARE_READ);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    std::thread other([held] {
        Sleep(200);
        CloseHandle(held);
    });
    EXPECT_EQ(RemoveOwnFile(files.target), system::kErrorNone);
    other.join();
    EXPECT_TRUE(FilesIn(files.folder.path).empty());
}

TEST(ReplaceFile, TemporaryThatCanNotBeRemovedIsNamed) {
    const Replacing files;
    HANDLE held =
        CreateFileW(files.temporary.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    const ReplaceResult result = ReplaceFile(files.temporary, files.target);
    CloseHandle(held);
    EXPECT_TRUE(result.Done());
    EXPECT_EQ(result.leftOver, files.temporary);
    EXPECT_EQ(ReadFileBytes(files.target), "new");
}

}  // namespace
}  // namespace corvane
