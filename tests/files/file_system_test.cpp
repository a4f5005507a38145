#include "files/file_system.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "files/paths.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FilesIn;
using test::KeepCurrentDirectory;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::TemporaryFolder;
using test::WriteFileBytes;
using Names = std::vector<std::wstring>;

// ---- Existence ---------------------------------------------------------------------------------

TEST(FileExists, OfAFile) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"ship.ve2"), "");
    EXPECT_TRUE(FileExists(folder.File(L"ship.ve2")));
    EXPECT_TRUE(FilesIn(folder.path) == Names{L"ship.ve2"});
}

TEST(FileExists, FolderIsNotAFile) {
    const TemporaryFolder folder;
    EXPECT_FALSE(FileExists(folder.path));
    EXPECT_FALSE(FileExists(StripTrailingBackslash(folder.path)));
}

TEST(FileExists, MissingFileAndEmptyNameAreNoErrors) {
    const RecordedReports screen;
    RecordedReports::debugMode = true;
    const TemporaryFolder folder;
    EXPECT_FALSE(FileExists(folder.File(L"none.ve2")));
    EXPECT_FALSE(FileExists(folder.File(L"none\\none.ve2")));
    EXPECT_FALSE(FileExists(L""));
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST(FileExists, OtherErrorsAreReportedInDebugModeOnly) {
    const RecordedReports screen;
    const TemporaryFolder folder;
    const std::wstring path = StripTrailingBackslash(folder.path);
    EXPECT_FALSE(FileExists(path));
    EXPECT_TRUE(RecordedReports::events.empty());
    RecordedReports::debugMode = true;
    EXPECT_FALSE(FileExists(path));
    ASSERT_EQ(RecordedReports::Of("plain").size(), 1U);
    const std::string expected = "FileExist(" + Narrow(path) + ") 5 ";
    EXPECT_EQ(RecordedReports::Of("plain")[0].substr(0, expected.size()), expected);
}

TEST(FileExists, NameWithAccentedLetters) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"été ñ.ve2");
    system::File file;
    ASSERT_EQ(system::CreateForWriting(path, file), system::kErrorNone);
    EXPECT_EQ(system::CloseFile(file), system::kErrorNone);
    EXPECT_TRUE(FileExists(path));
    KillFile(path);
    EXPECT_FALSE(FileExists(path));
}

TEST(IsDirectory, OfFoldersWithAndWithoutBackslash) {
    const TemporaryFolder folder;
    EXPECT_TRUE(IsDirectory(folder.path));
    EXPECT_TRUE(IsDirectory(StripTrailingBackslash(folder.path)));
    EXPECT_TRUE(IsDirectory(L"  " + folder.path + L"  "));
}

TEST(IsDirectory, FilesAndWhatIsMissingAreNotDirectories) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"ship.ve2"), "");
    EXPECT_FALSE(IsDirectory(folder.File(L"ship.ve2")));
    EXPECT_FALSE(IsDirectory(folder.File(L"none")));
    EXPECT_FALSE(IsDirectory(L""));
}

TEST(IsReadOnlyFile, FollowsTheAttribute) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"ship.ve2");
    EXPECT_FALSE(IsReadOnlyFile(path));
    WriteFileBytes(path, "");
    EXPECT_FALSE(IsReadOnlyFile(path));
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    EXPECT_TRUE(IsReadOnlyFile(path));
    ASSERT_EQ(system::SetReadOnly(path, false), system::kErrorNone);
    EXPECT_FALSE(IsReadOnlyFile(path));
}

TEST(IsSameFile, SpellingDoesNotCount) {
    const KeepCurrentDirectory keeper;
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"ship.ve2");
    WriteFileBytes(path, "");
    ASSERT_EQ(system::SetCurrentTo(folder.path), system::kErrorNone);
    std::wstring slashes = path;
    std::replace(slashes.begin(), slashes.end(), L'\\', L'/');
    for (const std::wstring& same :
         {path, slashes, std::wstring(L"ship.ve2"), folder.File(L"none\\..\\ship.ve2"),
          folder.File(L".\\ship.ve2")}) {
        EXPECT_TRUE(IsSameFile(path, same)) << Narrow(same);
        EXPECT_TRUE(IsSameFile(same, path)) << Narrow(same);
    }
    EXPECT_FALSE(IsSameFile(path, folder.File(L"ships.ve2")));
    EXPECT_FALSE(IsSameFile(path, folder.path));
}

TEST(IsSameFile, MissingFilesAreComparedByTheirPathsWithoutCase) {
    const TemporaryFolder folder;
    EXPECT_TRUE(IsSameFile(folder.File(L"\u00E9t\u00E9.ve2"), folder.File(L"\u00C9T\u00C9.VE2")));
    EXPECT_FALSE(IsSameFile(folder.File(L"a.ve2"), folder.File(L"b.ve2")));
    WriteFileBytes(folder.File(L"a.ve2"), "");
    EXPECT_FALSE(IsSameFile(folder.File(L"a.ve2"), folder.File(L"b.ve2")));
}

TEST(IsSameFile, FilesOfOneTextAreTwo) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a.ve2"), "text");
    WriteFileBytes(folder.File(L"b.ve2"), "text");
    EXPECT_FALSE(IsSameFile(folder.File(L"a.ve2"), folder.File(L"b.ve2")));
}

TEST(IsOutOfReach, OnlyWhereTheFolderCannotBeReached) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"ship.ve2"), "");
    EXPECT_FALSE(IsOutOfReach(folder.File(L"ship.ve2")));
    EXPECT_FALSE(IsOutOfReach(folder.File(L"none.ve2"))) << "the folder is there, the file is not";
    EXPECT_FALSE(IsOutOfReach(folder.path));
    EXPECT_TRUE(IsOutOfReach(folder.File(L"none\\ship.ve2")));
    EXPECT_TRUE(IsOutOfReach(L"Q:\\ships\\ship.ve2"));
}

// ---- Deleting and naming -----------------------------------------------------------------------

TEST(KillFile, DeletesAFile) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"a"), "");
    WriteFileBytes(folder.File(L"b"), "");
    KillFile(folder.File(L"a"));
    EXPECT_TRUE(FilesIn(folder.path) == Names{L"b"});
}

TEST(KillFile, MissingFileIsNothing) {
    const RecordedReports screen;
    RecordedReports::debugMode = true;
    const TemporaryFolder folder;
    KillFile(folder.File(L"none"));
    KillFile(L"");
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST(KillFile, LeavesAFolderAlone) {
    const TemporaryFolder folder;
    ASSERT_EQ(system::MakeDirectory(folder.File(L"sub")), system::kErrorNone);
    KillFile(folder.File(L"sub"));
    EXPECT_TRUE(IsDirectory(folder.File(L"sub")));
}

TEST(KillFile, FailureIsReportedInDebugMode) {
    const RecordedReports screen;
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"kept");
    WriteFileBytes(path, "");
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    KillFile(path);
    if (!FileExists(path)) GTEST_SKIP() << "read-only files can be deleted here";
    EXPECT_TRUE(RecordedReports::events.empty());
    RecordedReports::debugMode = true;
    KillFile(path);
    ASSERT_EQ(RecordedReports::Of("plain").size(), 1U);
    const std::string expected = "ExKill " + Narrow(path) + " 5 ";
    EXPECT_EQ(RecordedReports::Of("plain")[0].substr(0, expected.size()), expected);
}

TEST(TempFileName, TwiceGivesTwoNamesThatDoNotExist) {
    const std::wstring first = TempFileName();
    const std::wstring second = TempFileName();
    EXPECT_NE(first, L"");
    EXPECT_NE(first, second);
    EXPECT_FALSE(FileExists(first));
    EXPECT_FALSE(FileExists(second));
}

TEST(TempFileName, IsInTheTemporaryFolderUnderTheProgramsLetters) {
    const std::wstring name = TempFileName();
    EXPECT_EQ(DirectoryOf(name), system::TemporaryDirectory());
    EXPECT_EQ(FileNameOf(name).substr(0, 3), L"Cor");
}

TEST(NewTemporaryFile, MakesAnEmptyFile) {
    std::wstring path;
    ASSERT_EQ(NewTemporaryFile(path), system::kErrorNone);
    EXPECT_EQ(ReadFileBytes(path), "");
    EXPECT_EQ(RemoveOwnFile(path), system::kErrorNone);
    EXPECT_FALSE(FileExists(path));
}

TEST(AwaitReadable, SaysWhyNotAtOnce) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"ship.ve2"), "");
    const int64_t start = system::Milliseconds();
    EXPECT_EQ(AwaitReadable(folder.File(L"ship.ve2")), system::kErrorNone);
    EXPECT_EQ(AwaitReadable(folder.File(L"none.ve2")), system::kErrorFileNotFound);
    EXPECT_EQ(AwaitReadable(folder.File(L"none\\none.ve2")), system::kErrorPathNotFound);
    EXPECT_EQ(AwaitReadable(L""), system::kErrorPathNotFound);
    EXPECT_EQ(AwaitReadable(StripTrailingBackslash(folder.path)), system::kErrorAccessDenied);
    EXPECT_LT(system::Milliseconds() - start, 900);
}

TEST(RemoveOwnFile, MissingFileIsNotAnError) {
    const TemporaryFolder folder;
    EXPECT_EQ(RemoveOwnFile(folder.File(L"none")), system::kErrorNone);
}

TEST(RemoveOwnFile, FileThatStaysIsReportedInDebugMode) {
    const RecordedReports screen;
    RecordedReports::debugMode = true;
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"kept");
    WriteFileBytes(path, "");
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    EXPECT_EQ(RemoveOwnFile(path), system::kErrorAccessDenied);
    ASSERT_EQ(RecordedReports::Of("plain").size(), 1U);
    const std::string expected = "ExKill " + Narrow(path) + " 5 ";
    EXPECT_EQ(RecordedReports::Of("plain")[0].substr(0, expected.size()), expected);
}

// ---- Replacing ---------------------------------------------------------------------------------

struct Replacing {
    TemporaryFolder folder;
    TemporaryFolder elsewhere;
    std::wstring target = folder.File(L"ship.ve2");
    std::wstring temporary = elsewhere.File(L"new.tmp");
};

TEST(ReplaceFile, TargetGetsTheNewTextAndTheTemporaryGoes) {
    const Replacing files;
    WriteFileBytes(files.target, "a longer old text");
    WriteFileBytes(files.temporary, "new");
    EXPECT_TRUE(ReplaceFile(files.temporary, files.target).Done());
    EXPECT_EQ(ReadFileBytes(files.target), "new");
    EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
    EXPECT_TRUE(FilesIn(files.elsewhere.path).empty());
}

TEST(ReplaceFile, TargetNeedNotExist) {
    const Replacing files;
    WriteFileBytes(files.temporary, "new");
    EXPECT_TRUE(ReplaceFile(files.temporary, files.target).Done());
    EXPECT_EQ(ReadFileBytes(files.target), "new");
    EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
    EXPECT_TRUE(FilesIn(files.elsewhere.path).empty());
}

TEST(PutCopy, NewTargetIsLeftAloneWhenItIsThere) {
    const Replacing files;
    WriteFileBytes(files.target, "made by others");
    WriteFileBytes(files.temporary, "new");
    EXPECT_EQ(PutCopy(files.temporary, files.target, TargetKind::kNew).error,
              system::kErrorFileExists);
    EXPECT_EQ(ReadFileBytes(files.target), "made by others");
    EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
    KillFile(files.target);
    EXPECT_TRUE(PutCopy(files.temporary, files.target, TargetKind::kNew).Done());
    EXPECT_EQ(ReadFileBytes(files.target), "new");
}

TEST(CheckFolderTakesFiles, LeavesNoFile) {
    const TemporaryFolder folder;
    std::wstring leftOver;
    EXPECT_EQ(CheckFolderTakesFiles(folder.path, leftOver), system::kErrorNone);
    EXPECT_EQ(leftOver, L"");
    EXPECT_TRUE(FilesIn(folder.path).empty());
    EXPECT_NE(CheckFolderTakesFiles(folder.File(L"none"), leftOver), system::kErrorNone);
}

TEST(ReplaceFile, TextsOfEverySizeArrive) {
    const Replacing files;
    for (const size_t size :
         {size_t{0}, size_t{1}, size_t{65535}, size_t{65536}, size_t{65537}, size_t{1000000}}) {
        const std::string text(size, static_cast<char>(size % 251));
        WriteFileBytes(files.temporary, text);
        EXPECT_TRUE(ReplaceFile(files.temporary, files.target).Done());
        EXPECT_TRUE(ReadFileBytes(files.target) == text) << size;
    }
}

TEST(ReplaceFile, TemporaryMayLieBesideTheTarget) {
    const Replacing files;
    WriteFileBytes(files.target, "old");
    WriteFileBytes(files.folder.File(L"new.tmp"), "new");
    EXPECT_TRUE(ReplaceFile(files.folder.File(L"new.tmp"), files.target).Done());
    EXPECT_EQ(ReadFileBytes(files.target), "new");
    EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
}

TEST(ReplaceFile, TargetByItsNameInTheCurrentDirectory) {
    const KeepCurrentDirectory keeper;
    const Replacing files;
    WriteFileBytes(files.target, "old");
    WriteFileBytes(files.temporary, "new");
    ASSERT_EQ(system::SetCurrentTo(files.folder.path), system::kErrorNone);
    EXPECT_TRUE(ReplaceFile(files.temporary, L"ship.ve2").Done());
    EXPECT_EQ(ReadFileBytes(files.target), "new");
}

TEST(ReplaceFile, TargetThatIsBeingReadIsReplaced) {
    const Replacing files;
    WriteFileBytes(files.target, "old");
    WriteFileBytes(files.temporary, "new");
    system::File reader;
    ASSERT_EQ(system::OpenForReading(files.target, reader), system::kErrorNone);
    EXPECT_TRUE(ReplaceFile(files.temporary, files.target).Done());
    char bytes[8];
    size_t count = 0;
    EXPECT_EQ(system::ReadBytes(reader, bytes, sizeof bytes, count), system::kErrorNone);
    EXPECT_EQ(std::string(bytes, count), "old");
    system::CloseFile(reader);
    EXPECT_EQ(ReadFileBytes(files.target), "new");
    EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
}

TEST(ReplaceFile, ReadOnlyTargetIsRefusedUntouched) {
    const Replacing files;
    WriteFileBytes(files.target, "old");
    WriteFileBytes(files.temporary, "new");
    ASSERT_EQ(system::SetReadOnly(files.target, true), system::kErrorNone);
    const ReplaceResult result = ReplaceFile(files.temporary, files.target);
    EXPECT_FALSE(result.Done());
    EXPECT_EQ(result.error, system::kErrorAccessDenied);
    EXPECT_EQ(ReadFileBytes(files.target), "old");
    EXPECT_TRUE(IsReadOnlyFile(files.target));
    EXPECT_EQ(ReadFileBytes(files.temporary), "new");
    EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
}

TEST(ReplaceFile, FolderIsNotATarget) {
    const Replacing files;
    WriteFileBytes(files.temporary, "new");
    EXPECT_FALSE(ReplaceFile(files.temporary, StripTrailingBackslash(files.folder.path)).Done());
    EXPECT_EQ(ReadFileBytes(files.temporary), "new");
    EXPECT_TRUE(IsDirectory(files.folder.path));
    EXPECT_TRUE(FilesIn(files.folder.path).empty());
}

TEST(ReplaceFile, MissingTemporaryLeavesTheTargetAlone) {
    const Replacing files;
    WriteFileBytes(files.target, "old");
    EXPECT_EQ(ReplaceFile(files.temporary, files.target).error, system::kErrorFileNotFound);
    EXPECT_EQ(ReadFileBytes(files.target), "old");
    EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
}

TEST(ReplaceFile, MissingFolderKeepsTheTemporary) {
    const Replacing files;
    WriteFileBytes(files.temporary, "new");
    EXPECT_FALSE(ReplaceFile(files.temporary, files.folder.File(L"none\\ship.ve2")).Done());
    EXPECT_EQ(ReadFileBytes(files.temporary), "new");
    EXPECT_TRUE(FilesIn(files.folder.path).empty());
}

TEST(ReplaceFile, TemporaryThatCannotBeReadLeavesTheTargetAlone) {
    const Replacing files;
    WriteFileBytes(files.target, "old");
    // A file that opens and whose reads fail.
    const std::wstring unreadable = L"Z:\\proc\\self\\mem";
    system::File file;
    if (system::OpenForReading(unreadable, file) != system::kErrorNone) {
        GTEST_SKIP() << "no file whose reads fail";
    }
    system::CloseFile(file);
    EXPECT_FALSE(ReplaceFile(unreadable, files.target).Done());
    EXPECT_EQ(ReadFileBytes(files.target), "old");
    EXPECT_TRUE(FilesIn(files.folder.path) == Names{L"ship.ve2"});
}

TEST(ReplaceFile, NeighboursWithLikeNamesAreLeftAlone) {
    const Replacing files;
    const Names neighbours = {L"Cor1.tmp", L"CorA.tmp", L"ship.bak", L"ship.tmp", L"ship.ve2"};
    for (const auto& name : neighbours) WriteFileBytes(files.folder.File(name), "old");
    WriteFileBytes(files.temporary, "new");
    EXPECT_TRUE(ReplaceFile(files.temporary, files.target).Done());
    EXPECT_TRUE(FilesIn(files.folder.path) == neighbours);
    EXPECT_EQ(ReadFileBytes(files.folder.File(L"Cor1.tmp")), "old");
    EXPECT_EQ(ReadFileBytes(files.folder.File(L"ship.bak")), "old");
}

// ---- The current directory ---------------------------------------------------------------------

TEST(ChangeToDirectory, FolderWithAndWithoutBackslash) {
    const KeepCurrentDirectory keeper;
    const TemporaryFolder folder;
    const std::wstring expected = StripTrailingBackslash(folder.path);
    for (const std::wstring& path : {folder.path, expected, L" " + folder.path + L" "}) {
        system::SetCurrentTo(keeper.path);
        ChangeToDirectory(path);
        EXPECT_EQ(Narrow(system::CurrentDirectory()), Narrow(expected)) << Narrow(path);
    }
}

TEST(ChangeToDirectory, BareDriveIsItsRoot) {
    const KeepCurrentDirectory keeper;
    const TemporaryFolder folder;
    ChangeToDirectory(folder.path);
    ChangeToDirectory(L"C:");
    EXPECT_EQ(system::CurrentDirectory(), L"C:\\");
    ChangeToDirectory(folder.path);
    ChangeToDirectory(L"Z:");
    // A system without that drive stays where it is.
    if (system::CurrentDirectory().starts_with(L"Z:")) {
        EXPECT_EQ(system::CurrentDirectory(), L"Z:\\");
    } else {
        EXPECT_EQ(system::CurrentDirectory(), StripTrailingBackslash(folder.path));
    }
}

TEST(ChangeToDirectory, BackslashAndNothingAreTheRootOfTheCurrentDrive) {
    const KeepCurrentDirectory keeper;
    const TemporaryFolder folder;
    const std::wstring root = folder.path.substr(0, 3);
    for (const wchar_t* path : {L"\\", L"", L"  "}) {
        ChangeToDirectory(folder.path);
        ChangeToDirectory(path);
        EXPECT_EQ(system::CurrentDirectory(), root) << Narrow(path);
    }
}

TEST(ChangeToDirectory, MissingFolderChangesNothing) {
    const RecordedReports screen;
    RecordedReports::debugMode = true;
    const KeepCurrentDirectory keeper;
    const TemporaryFolder folder;
    ChangeToDirectory(folder.path);
    const std::wstring before = system::CurrentDirectory();
    ChangeToDirectory(folder.File(L"none"));
    EXPECT_EQ(system::CurrentDirectory(), before);
    ChangeToDirectory(L"Q:\\nowhere");
    EXPECT_EQ(system::CurrentDirectory(), before);
    EXPECT_TRUE(RecordedReports::events.empty());
}

}  // namespace
}  // namespace corvane
