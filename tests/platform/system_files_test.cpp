#include <gtest/gtest.h>

#include <string>

#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane::system {
namespace {

using test::FilesIn;
using test::ReadFileBytes;
using test::TemporaryFolder;
using test::WriteFileBytes;

// Greek and Chinese letters, and an accent.
constexpr const wchar_t* kForeignName = L"\x03C0\x03BB\x03BF\x03AF\x03BF \x8239 \x00E9.ve2";

std::string ReadAll(File file) {
    std::string bytes;
    size_t count = 0;
    do {
        char buffer[5];
        EXPECT_EQ(ReadBytes(file, buffer, sizeof buffer, count), kErrorNone);
        bytes.append(buffer, count);
    } while (count > 0);
    return bytes;
}

// Whether the system refuses to write to a read-only file. One that runs the tests as an
// administrator of a foreign system may not.
bool ReadOnlyHasEffect(const TemporaryFolder& folder) {
    const std::wstring path = folder.File(L"probe");
    WriteFileBytes(path, "x");
    SetReadOnly(path, true);
    File file;
    const ErrorNumber error = CreateForWriting(path, file);
    CloseFile(file);
    SetReadOnly(path, false);
    RemoveFile(path);
    return error != kErrorNone;
}

TEST(OpenFiles, WhatIsWrittenIsRead) {
    const TemporaryFolder folder;
    File file;
    ASSERT_EQ(CreateForWriting(folder.File(L"a.txt"), file), kErrorNone);
    EXPECT_TRUE(file.IsOpen());
    EXPECT_EQ(WriteBytes(file, "one\r\ntwo", 8), kErrorNone);
    EXPECT_EQ(FlushToDisk(file), kErrorNone);
    EXPECT_EQ(CloseFile(file), kErrorNone);
    EXPECT_FALSE(file.IsOpen());
    ASSERT_EQ(OpenForReading(folder.File(L"a.txt"), file), kErrorNone);
    EXPECT_EQ(ReadAll(file), "one\r\ntwo");
    EXPECT_EQ(SetPosition(file, 5), kErrorNone);
    EXPECT_EQ(ReadAll(file), "two");
    EXPECT_EQ(CloseFile(file), kErrorNone);
}

TEST(OpenFiles, ReadingAtTheEndGivesNoBytesAndNoError) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"empty"), "");
    File file;
    ASSERT_EQ(OpenForReading(folder.File(L"empty"), file), kErrorNone);
    char byte = 0;
    size_t count = 9;
    EXPECT_EQ(ReadBytes(file, &byte, 1, count), kErrorNone);
    EXPECT_EQ(count, 0U);
    CloseFile(file);
}

TEST(OpenFiles, ClosingAClosedRecordIsHarmless) {
    File file;
    EXPECT_EQ(CloseFile(file), kErrorNone);
    EXPECT_EQ(CloseFile(file), kErrorNone);
}

TEST(OpenFiles, MissingFileIsError2) {
    const TemporaryFolder folder;
    File file;
    EXPECT_EQ(OpenForReading(folder.File(L"missing.ve2"), file), kErrorFileNotFound);
    EXPECT_FALSE(file.IsOpen());
}

TEST(OpenFiles, MissingFolderIsError3) {
    const TemporaryFolder folder;
    File file;
    EXPECT_EQ(OpenForReading(folder.File(L"no\\such.ve2"), file), kErrorPathNotFound);
    EXPECT_EQ(CreateForWriting(folder.File(L"no\\such.ve2"), file), kErrorPathNotFound);
    EXPECT_EQ(CreateNewForWriting(folder.File(L"no\\such.ve2"), file), kErrorPathNotFound);
    EXPECT_FALSE(file.IsOpen());
}

TEST(OpenFiles, EmptyNameIsError3) {
    File file;
    EXPECT_EQ(OpenForReading(L"", file), kErrorPathNotFound);
    EXPECT_EQ(CreateForWriting(L"", file), kErrorPathNotFound);
}

TEST(OpenFiles, MissingDriveIsNotFound) {
    File file;
    const ErrorNumber error = OpenForReading(L"Q:\\ship.ve2", file);
    // Windows gives 3; other systems may give 2.
    EXPECT_TRUE(error == kErrorPathNotFound || error == kErrorFileNotFound) << error;
    EXPECT_FALSE(file.IsOpen());
}

TEST(OpenFiles, NameWithAStarIsError123) {
    const TemporaryFolder folder;
    File file;
    EXPECT_EQ(OpenForReading(folder.File(L"a*.ve2"), file), kErrorInvalidName);
    EXPECT_EQ(CreateForWriting(folder.File(L"a?.ve2"), file), kErrorInvalidName);
}

TEST(OpenFiles, FolderCannotBeOpened) {
    const TemporaryFolder folder;
    ASSERT_EQ(MakeDirectory(folder.File(L"sub")), kErrorNone);
    File file;
    EXPECT_EQ(OpenForReading(folder.File(L"sub"), file), kErrorAccessDenied);
    EXPECT_EQ(CreateForWriting(folder.File(L"sub"), file), kErrorAccessDenied);
    EXPECT_FALSE(file.IsOpen());
}

TEST(OpenFiles, CreatingEmptiesAnOldFile) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "a long old text");
    File file;
    ASSERT_EQ(CreateForWriting(folder.File(L"a"), file), kErrorNone);
    EXPECT_EQ(WriteBytes(file, "new", 3), kErrorNone);
    EXPECT_EQ(CloseFile(file), kErrorNone);
    EXPECT_EQ(ReadFileBytes(folder.File(L"a")), "new");
}

TEST(OpenFiles, CreatingNewLeavesAnOldFileAlone) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "old");
    File file;
    EXPECT_EQ(CreateNewForWriting(folder.File(L"a"), file), kErrorFileExists);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(ReadFileBytes(folder.File(L"a")), "old");
    ASSERT_EQ(CreateNewForWriting(folder.File(L"b"), file), kErrorNone);
    EXPECT_EQ(CloseFile(file), kErrorNone);
}

TEST(OpenFiles, ReadOnlyFileIsNotWritten) {
    const TemporaryFolder folder;
    if (!ReadOnlyHasEffect(folder)) GTEST_SKIP() << "this user may write to read-only files";
    const std::wstring path = folder.File(L"a");
    WriteFileBytes(path, "old");
    ASSERT_EQ(SetReadOnly(path, true), kErrorNone);
    File file;
    EXPECT_EQ(CreateForWriting(path, file), kErrorAccessDenied);
    EXPECT_EQ(ReadFileBytes(path), "old");
}

TEST(OpenFiles, AReaderDoesNotKeepOthersFromRenamingOrDeleting) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "text");
    File file;
    ASSERT_EQ(OpenForReading(folder.File(L"a"), file), kErrorNone);
    EXPECT_EQ(RenameOver(folder.File(L"a"), folder.File(L"b")), kErrorNone);
    EXPECT_EQ(ReadAll(file), "text");
    EXPECT_EQ(RemoveFile(folder.File(L"b")), kErrorNone);
    EXPECT_EQ(CloseFile(file), kErrorNone);
    EXPECT_TRUE(FilesIn(folder.path).empty());
}

TEST(OpenFiles, WritingToAFileOpenForReadingFails) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "text");
    File file;
    ASSERT_EQ(OpenForReading(folder.File(L"a"), file), kErrorNone);
    EXPECT_NE(WriteBytes(file, "x", 1), kErrorNone);
    CloseFile(file);
}

TEST(OpenFiles, PositionBeforeTheStartIsAnError) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "text");
    File file;
    ASSERT_EQ(OpenForReading(folder.File(L"a"), file), kErrorNone);
    EXPECT_NE(SetPosition(file, -1), kErrorNone);
    CloseFile(file);
}

TEST(FilesByName, StatusOfAFile) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "12345");
    FileStatus status;
    ASSERT_EQ(GetFileStatus(folder.File(L"a"), status), kErrorNone);
    EXPECT_TRUE(status.exists);
    EXPECT_FALSE(status.isDirectory);
    EXPECT_FALSE(status.isReadOnly);
    EXPECT_EQ(status.size, 5);
    FileStatus again;
    ASSERT_EQ(GetFileStatus(folder.File(L"a"), again), kErrorNone);
    EXPECT_EQ(status.modified, again.modified);
    SleepFor(30);
    WriteFileBytes(folder.File(L"a"), "54321");
    ASSERT_EQ(GetFileStatus(folder.File(L"a"), again), kErrorNone);
    EXPECT_NE(status.modified, again.modified);
}

TEST(FilesByName, StatusOfAFolder) {
    const TemporaryFolder folder;
    FileStatus status;
    ASSERT_EQ(GetFileStatus(folder.path.substr(0, folder.path.size() - 1), status), kErrorNone);
    EXPECT_TRUE(status.exists);
    EXPECT_TRUE(status.isDirectory);
}

TEST(FilesByName, MissingFileHasAStatusAndNoError) {
    const TemporaryFolder folder;
    for (const std::wstring& path : {folder.File(L"missing"), folder.File(L"no\\such"),
                                     std::wstring(L"Q:\\x"), std::wstring()}) {
        FileStatus status;
        status.exists = true;
        EXPECT_EQ(GetFileStatus(path, status), kErrorNone) << test::Narrow(path);
        EXPECT_FALSE(status.exists) << test::Narrow(path);
    }
}

TEST(FilesByName, ReadOnlyCanBeSetAndCleared) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a");
    WriteFileBytes(path, "x");
    FileStatus status;
    EXPECT_EQ(SetReadOnly(path, true), kErrorNone);
    ASSERT_EQ(GetFileStatus(path, status), kErrorNone);
    EXPECT_TRUE(status.isReadOnly);
    EXPECT_EQ(SetReadOnly(path, false), kErrorNone);
    ASSERT_EQ(GetFileStatus(path, status), kErrorNone);
    EXPECT_FALSE(status.isReadOnly);
    EXPECT_EQ(SetReadOnly(folder.File(L"missing"), true), kErrorFileNotFound);
}

TEST(FilesByName, AttributesAreCopied) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "a");
    WriteFileBytes(folder.File(L"b"), "b");
    SetReadOnly(folder.File(L"a"), true);
    EXPECT_EQ(CopyAttributes(folder.File(L"a"), folder.File(L"b")), kErrorNone);
    FileStatus status;
    ASSERT_EQ(GetFileStatus(folder.File(L"b"), status), kErrorNone);
    EXPECT_TRUE(status.isReadOnly);
    EXPECT_EQ(CopyAttributes(folder.File(L"missing"), folder.File(L"b")), kErrorFileNotFound);
    EXPECT_EQ(CopyAttributes(folder.File(L"a"), folder.File(L"missing")), kErrorFileNotFound);
}

TEST(FilesByName, RemoveDeletesAFile) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "a");
    EXPECT_EQ(RemoveFile(folder.File(L"a")), kErrorNone);
    EXPECT_TRUE(FilesIn(folder.path).empty());
    EXPECT_EQ(RemoveFile(folder.File(L"a")), kErrorFileNotFound);
    EXPECT_EQ(RemoveFile(folder.File(L"no\\such")), kErrorPathNotFound);
}

TEST(FilesByName, RemoveRefusesAReadOnlyFileAndAFolder) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "a");
    SetReadOnly(folder.File(L"a"), true);
    EXPECT_EQ(RemoveFile(folder.File(L"a")), kErrorAccessDenied);
    ASSERT_EQ(MakeDirectory(folder.File(L"sub")), kErrorNone);
    EXPECT_EQ(RemoveFile(folder.File(L"sub")), kErrorAccessDenied);
    EXPECT_EQ(FilesIn(folder.path).size(), 2U);
}

TEST(FilesByName, CopyHasTheBytes) {
    const TemporaryFolder folder;
    std::string bytes;
    for (int i = 0; i < 200'000; ++i) bytes += static_cast<char>(i * 7);
    WriteFileBytes(folder.File(L"a"), bytes);
    EXPECT_EQ(CopyBytes(folder.File(L"a"), folder.File(L"b"), false), kErrorNone);
    EXPECT_EQ(ReadFileBytes(folder.File(L"b")), bytes);
}

TEST(FilesByName, CopyOverwritesOnlyWhenAsked) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "new");
    WriteFileBytes(folder.File(L"b"), "a longer old text");
    EXPECT_EQ(CopyBytes(folder.File(L"a"), folder.File(L"b"), false), kErrorFileExists);
    EXPECT_EQ(ReadFileBytes(folder.File(L"b")), "a longer old text");
    EXPECT_EQ(CopyBytes(folder.File(L"a"), folder.File(L"b"), true), kErrorNone);
    EXPECT_EQ(ReadFileBytes(folder.File(L"b")), "new");
}

TEST(FilesByName, CopyOfAReadOnlyFileIsWritable) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "text");
    SetReadOnly(folder.File(L"a"), true);
    EXPECT_EQ(CopyBytes(folder.File(L"a"), folder.File(L"b"), false), kErrorNone);
    FileStatus status;
    ASSERT_EQ(GetFileStatus(folder.File(L"b"), status), kErrorNone);
    EXPECT_FALSE(status.isReadOnly);
}

TEST(FilesByName, CopyFailures) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "text");
    EXPECT_EQ(CopyBytes(folder.File(L"missing"), folder.File(L"b"), true), kErrorFileNotFound);
    EXPECT_EQ(CopyBytes(folder.File(L"a"), folder.File(L"no\\b"), true), kErrorPathNotFound);
    EXPECT_NE(CopyBytes(folder.File(L"a"), folder.File(L"a"), true), kErrorNone);
    EXPECT_EQ(ReadFileBytes(folder.File(L"a")), "text");
    EXPECT_EQ(FilesIn(folder.path).size(), 1U);
}

TEST(FilesByName, RenameReplacesTheTarget) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"new"), "new");
    WriteFileBytes(folder.File(L"target"), "old");
    EXPECT_EQ(RenameOver(folder.File(L"new"), folder.File(L"target")), kErrorNone);
    EXPECT_EQ(ReadFileBytes(folder.File(L"target")), "new");
    EXPECT_EQ(FilesIn(folder.path).size(), 1U);
    EXPECT_EQ(RenameOver(folder.File(L"target"), folder.File(L"fresh")), kErrorNone);
    EXPECT_EQ(ReadFileBytes(folder.File(L"fresh")), "new");
}

TEST(FilesByName, RenameFailures) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"new"), "new");
    WriteFileBytes(folder.File(L"target"), "old");
    EXPECT_EQ(RenameOver(folder.File(L"missing"), folder.File(L"target")), kErrorFileNotFound);
    EXPECT_EQ(RenameOver(folder.File(L"new"), folder.File(L"no\\target")), kErrorPathNotFound);
    SetReadOnly(folder.File(L"target"), true);
    EXPECT_EQ(RenameOver(folder.File(L"new"), folder.File(L"target")), kErrorAccessDenied);
    EXPECT_EQ(ReadFileBytes(folder.File(L"target")), "old");
    EXPECT_EQ(ReadFileBytes(folder.File(L"new")), "new");
}

TEST(FilesByName, SwapInKeepsTheOldTextInTheBackup) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"target"), "old");
    WriteFileBytes(folder.File(L"new"), "new");
    WriteFileBytes(folder.File(L"backup"), "older");
    EXPECT_EQ(SwapIn(folder.File(L"target"), folder.File(L"new"), folder.File(L"backup")),
              kErrorNone);
    EXPECT_EQ(ReadFileBytes(folder.File(L"target")), "new");
    EXPECT_EQ(ReadFileBytes(folder.File(L"backup")), "old");
    EXPECT_EQ(FilesIn(folder.path).size(), 2U);
}

TEST(FilesByName, SwapInFailures) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"target"), "old");
    WriteFileBytes(folder.File(L"new"), "new");
    const std::wstring backup = folder.File(L"backup");
    EXPECT_EQ(SwapIn(folder.File(L"missing"), folder.File(L"new"), backup), kErrorFileNotFound);
    EXPECT_EQ(SwapIn(folder.File(L"target"), folder.File(L"missing"), backup), kErrorFileNotFound);
    SetReadOnly(folder.File(L"target"), true);
    EXPECT_EQ(SwapIn(folder.File(L"target"), folder.File(L"new"), backup), kErrorAccessDenied);
    EXPECT_EQ(ReadFileBytes(folder.File(L"target")), "old");
    EXPECT_EQ(ReadFileBytes(folder.File(L"new")), "new");
}

TEST(FilesByName, GreekAndChineseNames) {
    const TemporaryFolder folder;
    const std::wstring sub = folder.File(L"\x03A3 \x8239");
    ASSERT_EQ(MakeDirectory(sub), kErrorNone);
    const std::wstring path = sub + L"\\" + kForeignName;
    File file;
    ASSERT_EQ(CreateForWriting(path, file), kErrorNone);
    EXPECT_EQ(WriteBytes(file, "text", 4), kErrorNone);
    EXPECT_EQ(CloseFile(file), kErrorNone);
    EXPECT_EQ(FilesIn(sub), std::vector<std::wstring>{kForeignName});
    EXPECT_EQ(CopyBytes(path, folder.File(L"copy"), false), kErrorNone);
    EXPECT_EQ(ReadFileBytes(folder.File(L"copy")), "text");
    FileStatus status;
    EXPECT_EQ(GetFileStatus(path, status), kErrorNone);
    EXPECT_EQ(status.size, 4);
    EXPECT_EQ(RemoveFile(path), kErrorNone);
}

TEST(FilesByName, SlashSeparatesToo) {
    const TemporaryFolder folder;
    ASSERT_EQ(MakeDirectory(folder.path + L"sub"), kErrorNone);
    WriteFileBytes(folder.File(L"sub\\a"), "text");
    FileStatus status;
    EXPECT_EQ(GetFileStatus(folder.path + L"sub/a", status), kErrorNone);
    EXPECT_TRUE(status.exists);
}

TEST(FilesByName, PathOfMoreThan260Characters) {
    const TemporaryFolder folder;
    std::wstring path = folder.path;
    std::vector<std::wstring> made;
    for (int i = 0; i < 4; ++i) {
        path += std::wstring(90, static_cast<wchar_t>(L'a' + i));
        ASSERT_EQ(MakeDirectory(path), kErrorNone);
        made.push_back(path);
        path += L'\\';
    }
    const std::wstring first = path + L"first.ve2";
    const std::wstring second = path + L"second.ve2";
    File file;
    ASSERT_EQ(CreateNewForWriting(first, file), kErrorNone);
    EXPECT_EQ(WriteBytes(file, "text", 4), kErrorNone);
    EXPECT_EQ(CloseFile(file), kErrorNone);
    EXPECT_EQ(CopyBytes(first, second, false), kErrorNone);
    EXPECT_EQ(RenameOver(first, second), kErrorNone);
    std::wstring temporary;
    EXPECT_EQ(NewTemporaryName(path, L"Corvane", temporary), kErrorNone);
    EXPECT_EQ(SwapIn(second, temporary, path + L"backup"), kErrorNone);
    EXPECT_EQ(SetReadOnly(second, true), kErrorNone);
    FileStatus status;
    EXPECT_EQ(GetFileStatus(second, status), kErrorNone);
    EXPECT_TRUE(status.exists && status.isReadOnly);
    EXPECT_EQ(SetReadOnly(second, false), kErrorNone);
    ASSERT_EQ(OpenForReading(path + L"backup", file), kErrorNone);
    EXPECT_EQ(ReadAll(file), "text");
    CloseFile(file);
    EXPECT_EQ(RemoveFile(second), kErrorNone);
    EXPECT_EQ(RemoveFile(path + L"backup"), kErrorNone);
    while (!made.empty()) {
        EXPECT_EQ(RemoveEmptyDirectory(made.back()), kErrorNone);
        made.pop_back();
    }
}

TEST(FilesByName, FoldersAreMadeAndRemoved) {
    constexpr ErrorNumber kAlreadyExists = 183;
    constexpr ErrorNumber kNotEmpty = 145;
    const TemporaryFolder folder;
    const std::wstring sub = folder.File(L"sub");
    EXPECT_EQ(MakeDirectory(sub), kErrorNone);
    EXPECT_EQ(MakeDirectory(sub), kAlreadyExists);
    EXPECT_EQ(MakeDirectory(folder.File(L"no\\such")), kErrorPathNotFound);
    WriteFileBytes(sub + L"\\a", "a");
    EXPECT_EQ(RemoveEmptyDirectory(sub), kNotEmpty);
    EXPECT_EQ(RemoveFile(sub + L"\\a"), kErrorNone);
    EXPECT_EQ(RemoveEmptyDirectory(sub), kErrorNone);
    EXPECT_EQ(RemoveEmptyDirectory(sub), kErrorFileNotFound);
}

TEST(Errors, TextsOfTheNamedErrors) {
    EXPECT_EQ(ErrorText(kErrorAccessDenied).find(L"Access"), 0U);
    for (const ErrorNumber error :
         {kErrorFileNotFound, kErrorPathNotFound, kErrorAccessDenied, kErrorSharingViolation,
          kErrorLockViolation, kErrorFileExists, kErrorInvalidParameter, kErrorDiskFull,
          kErrorInvalidName, kErrorModuleNotFound, kErrorProcedureNotFound, kErrorIoDevice}) {
        const std::wstring text = ErrorText(error);
        EXPECT_GT(text.size(), 8U) << error;
        EXPECT_NE(text, L"Unknown error.") << error;
        EXPECT_EQ(text.find_first_of(L"\r\n"), std::wstring::npos) << error;
        EXPECT_NE(text.back(), L' ') << error;
    }
}

TEST(Errors, UnknownNumberHasATextToo) {
    EXPECT_EQ(ErrorText(0x3FFFFFF0), L"Unknown error.");
}

TEST(SystemFiles, RenameToANewNameLeavesATakenOneAlone) {
    const test::TemporaryFolder folder;
    WriteFileBytes(folder.File(L"from"), "new");
    WriteFileBytes(folder.File(L"taken"), "old");
    EXPECT_EQ(RenameToNewName(folder.File(L"from"), folder.File(L"taken")), kErrorFileExists);
    EXPECT_EQ(ReadFileBytes(folder.File(L"taken")), "old");
    EXPECT_EQ(RenameToNewName(folder.File(L"from"), folder.File(L"to")), kErrorNone);
    EXPECT_EQ(ReadFileBytes(folder.File(L"to")), "new");
    EXPECT_EQ(RenameToNewName(folder.File(L"from"), folder.File(L"again")), kErrorFileNotFound);
}

}  // namespace
}  // namespace corvane::system
