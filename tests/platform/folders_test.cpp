#include <gtest/gtest.h>

#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane::system {
namespace {

using test::FilesIn;
using test::TemporaryFolder;
using test::WriteFileBytes;

// Goes back to the folder in which a test began.
struct FolderKeeper {
    std::wstring path = CurrentDirectory();
    FolderKeeper() = default;
    ~FolderKeeper() { SetCurrentTo(path); }
    FolderKeeper(const FolderKeeper&) = delete;
    FolderKeeper& operator=(const FolderKeeper&) = delete;
};

bool EndsWith(const std::wstring& text, const std::wstring& end) {
    return text.size() >= end.size() &&
           text.compare(text.size() - end.size(), end.size(), end) == 0;
}

TEST(Folders, CurrentDirectoryHasADriveAndNoTrailingBackslash) {
    const FolderKeeper keeper;
    const TemporaryFolder folder;
    ASSERT_EQ(SetCurrentTo(folder.path), kErrorNone);
    const std::wstring current = CurrentDirectory();
    EXPECT_EQ(current.substr(1, 2), L":\\");
    EXPECT_EQ(current + L"\\", folder.path);
}

TEST(Folders, RootKeepsItsBackslash) {
    const FolderKeeper keeper;
    ASSERT_EQ(SetCurrentTo(L"C:\\"), kErrorNone);
    EXPECT_EQ(CurrentDirectory(), L"C:\\");
    ASSERT_EQ(SetCurrentTo(L"Z:\\"), kErrorNone);
    EXPECT_EQ(CurrentDirectory(), L"Z:\\");
    ASSERT_EQ(SetCurrentTo(L"\\"), kErrorNone);
    EXPECT_EQ(CurrentDirectory(), L"Z:\\");
}

TEST(Folders, RelativeNamesStartAtTheCurrentDirectory) {
    const FolderKeeper keeper;
    const TemporaryFolder folder;
    ASSERT_EQ(MakeDirectory(folder.File(L"sub")), kErrorNone);
    WriteFileBytes(folder.File(L"sub\\a.ve2"), "text");
    ASSERT_EQ(SetCurrentTo(folder.path), kErrorNone);
    ASSERT_EQ(SetCurrentTo(L"sub"), kErrorNone);
    FileStatus status;
    EXPECT_EQ(GetFileStatus(L"a.ve2", status), kErrorNone);
    EXPECT_TRUE(status.exists);
    EXPECT_EQ(AbsolutePath(L"a.ve2"), folder.File(L"sub\\a.ve2"));
}

TEST(Folders, ChangeToWhatIsNoFolderFailsAndStays) {
    const FolderKeeper keeper;
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"file"), "x");
    ASSERT_EQ(SetCurrentTo(folder.path), kErrorNone);
    const std::wstring before = CurrentDirectory();
    EXPECT_NE(SetCurrentTo(folder.File(L"missing")), kErrorNone);
    EXPECT_NE(SetCurrentTo(folder.File(L"file")), kErrorNone);
    EXPECT_NE(SetCurrentTo(L"Q:\\"), kErrorNone);
    EXPECT_NE(SetCurrentTo(L""), kErrorNone);
    EXPECT_EQ(CurrentDirectory(), before);
}

TEST(Folders, AbsolutePathWorksOutTheWay) {
    const FolderKeeper keeper;
    const TemporaryFolder folder;
    ASSERT_EQ(SetCurrentTo(folder.path), kErrorNone);
    struct Row {
        std::wstring path;
        std::wstring expected;
    };
    const std::wstring drive = folder.path.substr(0, 2);
    const Row rows[] = {
        {L"C:\\a\\b.ve2", L"C:\\a\\b.ve2"},
        {L"C:/a/b.ve2", L"C:\\a\\b.ve2"},
        {L"C:\\a\\..\\b.ve2", L"C:\\b.ve2"},
        {L"C:\\a\\.\\b\\", L"C:\\a\\b\\"},
        {L"C:\\..\\..\\b", L"C:\\b"},
        {L"C:\\a\\\\b", L"C:\\a\\b"},
        {L"C:\\", L"C:\\"},
        {L"\\x\\y", drive + L"\\x\\y"},
        {L"ship.ve2", folder.path + L"ship.ve2"},
        {L".\\ship.ve2", folder.path + L"ship.ve2"},
        {L"sub\\..\\ship.ve2", folder.path + L"ship.ve2"},
        {L"", L""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(AbsolutePath(row.path), row.expected) << test::Narrow(row.path);
    }
}

TEST(Folders, TemporaryDirectoryExistsAndEndsInABackslash) {
    const std::wstring path = TemporaryDirectory();
    ASSERT_FALSE(path.empty());
    EXPECT_EQ(path.back(), L'\\');
    FileStatus status;
    ASSERT_EQ(GetFileStatus(path, status), kErrorNone);
    EXPECT_TRUE(status.isDirectory);
}

TEST(Folders, TemporaryNamesAreNewEmptyFiles) {
    const TemporaryFolder folder;
    std::wstring first;
    std::wstring second;
    ASSERT_EQ(NewTemporaryName(folder.path, L"Corvane", first), kErrorNone);
    ASSERT_EQ(NewTemporaryName(folder.path, L"Corvane", second), kErrorNone);
    EXPECT_NE(first, second);
    EXPECT_EQ(first.compare(0, folder.path.size() + 3, folder.File(L"Cor")), 0);
    EXPECT_NE(first[folder.path.size() + 3], L'v');
    EXPECT_EQ(test::ReadFileBytes(first), "");
    EXPECT_EQ(FilesIn(folder.path).size(), 2U);
}

TEST(Folders, TemporaryNameInAFolderWithoutTrailingBackslash) {
    const TemporaryFolder folder;
    std::wstring name;
    ASSERT_EQ(NewTemporaryName(folder.path.substr(0, folder.path.size() - 1), L"x", name),
              kErrorNone);
    EXPECT_EQ(name.compare(0, folder.path.size() + 1, folder.File(L"x")), 0);
}

TEST(Folders, TemporaryNameInAMissingFolderIsAnError) {
    const TemporaryFolder folder;
    std::wstring name;
    EXPECT_EQ(NewTemporaryName(folder.File(L"missing"), L"Cor", name), kErrorPathNotFound);
}

TEST(Folders, ProgramPathIsTheRunningFile) {
    const std::wstring path = ProgramPath();
    FileStatus status;
    ASSERT_EQ(GetFileStatus(path, status), kErrorNone);
    EXPECT_TRUE(status.exists);
    EXPECT_FALSE(status.isDirectory);
    EXPECT_EQ(AbsolutePath(path), path);
    EXPECT_TRUE(EndsWith(path, L"\\platform_tests") || EndsWith(path, L"\\platform_tests.exe"))
        << test::Narrow(path);
}

}  // namespace
}  // namespace corvane::system
