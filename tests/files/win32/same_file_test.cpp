// One file by several names that only Windows gives it.
#include <gtest/gtest.h>

#include "files/file_system.h"
#include "platform/win32/win32.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::TemporaryFolder;
using test::WriteFileBytes;

TEST(IsSameFile, ShortNameAndCaseDoNotCount) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a long name of a ship.ve2");
    WriteFileBytes(path, "");
    EXPECT_TRUE(IsSameFile(path, folder.File(L"A LONG NAME OF A SHIP.VE2")));
    wchar_t buffer[MAX_PATH] = L"";
    ASSERT_NE(GetShortPathNameW(path.c_str(), buffer, MAX_PATH), 0U);
    if (path == buffer) GTEST_SKIP() << "this volume has no short names";
    EXPECT_TRUE(IsSameFile(path, buffer)) << test::Narrow(buffer);
}

TEST(IsSameFile, HardLinkIsTheFile) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"ship.ve2");
    const std::wstring link = folder.File(L"link.vel");
    WriteFileBytes(path, "");
    if (CreateHardLinkW(link.c_str(), path.c_str(), nullptr) == 0) {
        GTEST_SKIP() << "this volume has no links";
    }
    EXPECT_TRUE(IsSameFile(path, link));
}

TEST(IsSameFile, FileThatAnotherProgramLocksIsFound) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"ship.ve2");
    const std::wstring link = folder.File(L"link.ve2");
    WriteFileBytes(path, "");
    if (CreateHardLinkW(link.c_str(), path.c_str(), nullptr) == 0) {
        GTEST_SKIP() << "this volume has no links";
    }
    const HANDLE held =
        CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_TRUE(IsSameFile(path, link));
    EXPECT_TRUE(IsOutOfReach(path)) << "it is there, but cannot be opened";
    CloseHandle(held);
    EXPECT_FALSE(IsOutOfReach(path));
}

}  // namespace
}  // namespace corvane
