// How the services of platform/system.h meet files that other programs hold open.
#include <gtest/gtest.h>

#include "platform/system.h"
#include "platform/win32/native.h"
#include "platform/win32/win32.h"
#include "tests/support/support.h"

namespace corvane::system {
namespace {

using test::FilesIn;
using test::ReadFileBytes;
using test::TemporaryFolder;
using test::WriteFileBytes;

// Holds a file open as another program would.
struct Holder {
    HANDLE handle;
    Holder(const std::wstring& path, DWORD access, DWORD sharing)
        : handle(CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(handle, INVALID_HANDLE_VALUE);
    }
    ~Holder() { CloseHandle(handle); }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
};

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct SharingRow {
    const char* name;
    DWORD sharing;
    ErrorNumber reading;
    ErrorNumber writing;
    ErrorNumber removing;
};

class HeldFile : public testing::TestWithParam<SharingRow> {};

TEST_P(HeldFile, AnswersWithTheSystemsErrors) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a");
    WriteFileBytes(path, "text");
    const Holder holder(path, GENERIC_READ, GetParam().sharing);
    File file;
    EXPECT_EQ(OpenForReading(path, file), GetParam().reading);
    CloseFile(file);
    EXPECT_EQ(CreateForWriting(path, file), GetParam().writing);
    CloseFile(file);
    EXPECT_EQ(RemoveFile(path), GetParam().removing);
}

// Our writer lets others read, so it opens only where the holder lets it write and reads alone.
constexpr SharingRow kSharingRows[] = {
    {"Exclusively", 0, kErrorSharingViolation, kErrorSharingViolation, kErrorSharingViolation},
    {"SharingRead", FILE_SHARE_READ, kErrorNone, kErrorSharingViolation, kErrorSharingViolation},
    {"SharingReadAndWrite", FILE_SHARE_READ | FILE_SHARE_WRITE, kErrorNone, kErrorNone,
     kErrorSharingViolation},
    {"SharingAll", kShareAll, kErrorNone, kErrorNone, kErrorNone},
};

INSTANTIATE_TEST_SUITE_P(Table, HeldFile, testing::ValuesIn(kSharingRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Sharing, FileBeingWrittenByAnotherIsStillRead) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "text");
    const Holder holder(folder.File(L"a"), GENERIC_READ | GENERIC_WRITE, kShareAll);
    File file;
    EXPECT_EQ(OpenForReading(folder.File(L"a"), file), kErrorNone);
    CloseFile(file);
}

TEST(Sharing, RenameOverATargetHeldWithoutDeletionLeavesBothFiles) {
    for (const DWORD sharing :
         {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        const TemporaryFolder folder;
        WriteFileBytes(folder.File(L"new"), "new");
        WriteFileBytes(folder.File(L"target"), "old");
        {
            const Holder holder(folder.File(L"target"), GENERIC_READ, sharing);
            const ErrorNumber error = RenameOver(folder.File(L"new"), folder.File(L"target"));
            EXPECT_TRUE(error == kErrorAccessDenied || error == kErrorSharingViolation) << error;
        }
        EXPECT_EQ(ReadFileBytes(folder.File(L"target")), "old");
        EXPECT_EQ(ReadFileBytes(folder.File(L"new")), "new");
        EXPECT_EQ(RenameOver(folder.File(L"new"), folder.File(L"target")), kErrorNone);
        EXPECT_EQ(ReadFileBytes(folder.File(L"target")), "new");
    }
}

TEST(Sharing, RenameOfAHeldSourceIsError32) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"new"), "new");
    const Holder holder(folder.File(L"new"), GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(RenameOver(folder.File(L"new"), folder.File(L"target")), kErrorSharingViolation);
    EXPECT_EQ(FilesIn(folder.path).size(), 1U);
}

TEST(Sharing, SwapInWorksWhileAReaderSharesDeletion) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"target"), "old");
    WriteFileBytes(folder.File(L"new"), "new");
    const Holder holder(folder.File(L"target"), GENERIC_READ, kShareAll);
    EXPECT_EQ(SwapIn(folder.File(L"target"), folder.File(L"new"), folder.File(L"backup")),
              kErrorNone);
    EXPECT_EQ(ReadFileBytes(folder.File(L"target")), "new");
    EXPECT_EQ(ReadFileBytes(folder.File(L"backup")), "old");
}

TEST(Sharing, SwapInOfATargetHeldWithoutDeletionLeavesAllFiles) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"target"), "old");
    WriteFileBytes(folder.File(L"new"), "new");
    const Holder holder(folder.File(L"target"), GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(SwapIn(folder.File(L"target"), folder.File(L"new"), folder.File(L"backup")),
              kErrorSharingViolation);
    EXPECT_EQ(ReadFileBytes(folder.File(L"target")), "old");
    EXPECT_EQ(ReadFileBytes(folder.File(L"new")), "new");
}

TEST(Sharing, IniFileHeldByAnotherIsError32) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a.ini"), "[A]\r\nkey=old\r\n");
    const Holder holder(folder.File(L"a.ini"), GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(WriteProfileText("A", "key", "new", folder.File(L"a.ini")), kErrorSharingViolation);
    EXPECT_EQ(ReadFileBytes(folder.File(L"a.ini")), "[A]\r\nkey=old\r\n");
}

TEST(Attributes, HiddenFileIsWrittenAndStaysHidden) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a");
    WriteFileBytes(path, "old text");
    ASSERT_NE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
    File file;
    ASSERT_EQ(CreateForWriting(path, file), kErrorNone);
    EXPECT_EQ(WriteBytes(file, "new", 3), kErrorNone);
    EXPECT_EQ(CloseFile(file), kErrorNone);
    EXPECT_EQ(ReadFileBytes(path), "new");
    EXPECT_NE(GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST(Attributes, HiddenAndArchiveAreCopied) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "a");
    WriteFileBytes(folder.File(L"b"), "b");
    ASSERT_NE(SetFileAttributesW(folder.File(L"a").c_str(),
                                 FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_ARCHIVE),
              0);
    ASSERT_EQ(CopyAttributes(folder.File(L"a"), folder.File(L"b")), kErrorNone);
    EXPECT_EQ(GetFileAttributesW(folder.File(L"a").c_str()),
              GetFileAttributesW(folder.File(L"b").c_str()));
    FileStatus status;
    ASSERT_EQ(GetFileStatus(folder.File(L"b"), status), kErrorNone);
    EXPECT_EQ(status.attributes, GetFileAttributesW(folder.File(L"b").c_str()));
}

TEST(NativePath, OnlyLongNamesGetThePrefix) {
    EXPECT_EQ(NativePath(L"C:\\a\\b.ve2"), L"C:\\a\\b.ve2");
    EXPECT_EQ(NativePath(L"b.ve2"), L"b.ve2");
    const std::wstring tail(300, L'x');
    EXPECT_EQ(NativePath(L"C:\\a/" + tail), L"\\\\?\\C:\\a\\" + tail);
    EXPECT_EQ(NativePath(L"\\\\server\\share\\" + tail), L"\\\\?\\UNC\\server\\share\\" + tail);
    EXPECT_EQ(NativePath(L"\\\\?\\C:\\" + tail), L"\\\\?\\C:\\" + tail);
}

TEST(RawCommandLine, IsWhatFollowsTheProgramsName) {
    const std::wstring whole = GetCommandLineW();
    const std::wstring raw = RawCommandLine();
    ASSERT_LE(raw.size(), whole.size());
    EXPECT_EQ(whole.substr(whole.size() - raw.size()), raw);
    EXPECT_TRUE(raw.empty() || (raw[0] != L' ' && raw[0] != L'"'));
    EXPECT_EQ(raw.find(L"unit_tests"), std::wstring::npos);
}

}  // namespace
}  // namespace corvane::system
