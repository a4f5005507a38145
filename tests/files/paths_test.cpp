#include "files/paths.h"

#include <gtest/gtest.h>

#include "tests/support/support.h"

#include "platform/system.h"

namespace corvane {
namespace {

TEST(WithTrailingBackslash, EmptyStaysEmpty) {
    EXPECT_EQ(WithTrailingBackslash(L""), L"");
}

TEST(WithTrailingBackslash, OneThatIsThereIsNotDoubledAndBlanksGo) {
    EXPECT_EQ(WithTrailingBackslash(L"C:\\data\\"), L"C:\\data\\");
    EXPECT_EQ(WithTrailingBackslash(L"  C:\\data  "), L"C:\\data\\");
}

TEST(WithTrailingBackslash, DrivesAndTheRoot) {
    EXPECT_EQ(WithTrailingBackslash(L"C:"), L"C:\\");
    EXPECT_EQ(WithTrailingBackslash(L"C:\\"), L"C:\\");
    EXPECT_EQ(WithTrailingBackslash(L"\\"), L"\\");
    EXPECT_EQ(WithTrailingBackslash(L"my folder"), L"my folder\\");
}

TEST(StripTrailingBackslash, RemovesOneOnly) {
    EXPECT_EQ(StripTrailingBackslash(L"C:\\data\\"), L"C:\\data");
    EXPECT_EQ(StripTrailingBackslash(L"C:\\data\\\\"), L"C:\\data\\");
    EXPECT_EQ(StripTrailingBackslash(L" C:\\data\\ "), L"C:\\data");
    EXPECT_EQ(StripTrailingBackslash(L"C:\\data"), L"C:\\data");
    EXPECT_EQ(StripTrailingBackslash(L"\\"), L"");
    EXPECT_EQ(StripTrailingBackslash(L"   "), L"");
    EXPECT_EQ(StripTrailingBackslash(L""), L"");
}

TEST(DirectoryOf, BareFileNameHasTheCurrentDirectoryWithoutBackslash) {
    EXPECT_EQ(DirectoryOf(L"b.ve2"), system::CurrentDirectory());
    EXPECT_EQ(DirectoryOf(L""), system::CurrentDirectory());
    EXPECT_FALSE(DirectoryOf(L"b.ve2").ends_with(L'\\'));
}

TEST(DirectoryOf, PathEndsWithItsLastBackslash) {
    EXPECT_EQ(DirectoryOf(L"C:\\a\\b.ve2"), L"C:\\a\\");
    EXPECT_EQ(DirectoryOf(L"  C:\\a\\b.ve2  "), L"C:\\a\\");
    EXPECT_EQ(DirectoryOf(L"C:\\b.ve2"), L"C:\\");
    EXPECT_EQ(DirectoryOf(L"C:\\a\\"), L"C:\\a\\");
    EXPECT_EQ(DirectoryOf(L"\\\\server\\share\\b.ve2"), L"\\\\server\\share\\");
}

TEST(FileNameOf, IsTheTextAfterTheLastBackslashUntrimmed) {
    EXPECT_EQ(FileNameOf(L"C:\\a\\b.ve2"), L"b.ve2");
    EXPECT_EQ(FileNameOf(L"C:\\a\\ b.ve2 "), L" b.ve2 ");
    EXPECT_EQ(FileNameOf(L"b.ve2"), L"b.ve2");
    EXPECT_EQ(FileNameOf(L" b.ve2 "), L" b.ve2 ");
    EXPECT_EQ(FileNameOf(L"C:\\a\\"), L"");
    EXPECT_EQ(FileNameOf(L""), L"");
}

TEST(StripExtension, LastPointCountsEvenInAFolderName) {
    EXPECT_EQ(StripExtension(L"C:\\rev1.2\\ship"), L"C:\\rev1");
}

TEST(StripExtension, TableOfNames) {
    EXPECT_EQ(StripExtension(L"C:\\rev1.2\\ship.ve2"), L"C:\\rev1.2\\ship");
    EXPECT_EQ(StripExtension(L"  ship.ve2  "), L"ship");
    EXPECT_EQ(StripExtension(L"  ship  "), L"ship");
    EXPECT_EQ(StripExtension(L"ship."), L"ship");
    EXPECT_EQ(StripExtension(L".ve2"), L"");
    EXPECT_EQ(StripExtension(L"ship.old.ve2"), L"ship.old");
    EXPECT_EQ(StripExtension(L""), L"");
}

TEST(FileExtension, IsInLowerCase) {
    EXPECT_EQ(FileExtension(L"SHIP.VE2"), L"ve2");
    EXPECT_EQ(FileExtension(L"ship.ÉTÉ"), L"été");
}

TEST(FileExtension, NameWithoutAPointHasNoExtension) {
    EXPECT_EQ(FileExtension(L"ship"), L"");
    EXPECT_EQ(FileExtension(L""), L"");
}

TEST(FileExtension, TableOfNames) {
    EXPECT_EQ(FileExtension(L"ship.old.VE2 "), L"ve2");
    EXPECT_EQ(FileExtension(L"ship."), L"");
    EXPECT_EQ(FileExtension(L".vel"), L"vel");
    EXPECT_EQ(FileExtension(L"C:\\rev1.2\\Ship"), L"2\\ship");
}

TEST(BackupPath, ExtensionGivesWay) {
    EXPECT_EQ(BackupPath(L"C:\\data\\ship.ve2"), L"C:\\data\\ship.bak");
    EXPECT_EQ(BackupPath(L"ship.ve2"), L"ship.bak");
    EXPECT_EQ(BackupPath(L"my.ship.ve2"), L"my.ship.bak");
    EXPECT_EQ(BackupPath(L"  ship.ve2  "), L"ship.bak");
}

TEST(BackupPath, NameWithoutAPointIsKeptWhole) {
    EXPECT_EQ(BackupPath(L"C:\\data\\ship"), L"C:\\data\\ship.bak");
    EXPECT_EQ(BackupPath(L""), L".bak");
}

TEST(BackupPath, PointInAFoldersNameIsNoExtension) {
    EXPECT_EQ(BackupPath(L"C:\\rev1.2\\ship"), L"C:\\rev1.2\\ship.bak");
}

TEST(FitsPattern, ExtensionDecidesWhateverItsCase) {
    EXPECT_TRUE(FitsPattern(L"ship.vel", L"*.vel;*.ve2"));
    EXPECT_TRUE(FitsPattern(L"SHIP.VE2", L"*.vel;*.ve2"));
    EXPECT_FALSE(FitsPattern(L"ship.velo", L"*.vel;*.ve2"));
    EXPECT_FALSE(FitsPattern(L"ship", L"*.vel"));
    EXPECT_FALSE(FitsPattern(L"ship.vel", L""));
}

TEST(FoldersDownTo, FromTheRootToTheFolderItself) {
    using Folders = std::vector<std::wstring>;
    EXPECT_EQ(FoldersDownTo(L"C:\\"), Folders{L"C:\\"});
    EXPECT_EQ(FoldersDownTo(L"C:\\Ships\\Alpha"),
              (Folders{L"C:\\", L"C:\\Ships\\", L"C:\\Ships\\Alpha\\"}));
    EXPECT_EQ(FoldersDownTo(L"\\\\yard\\ships\\Alpha\\"),
              (Folders{L"\\\\yard\\ships\\", L"\\\\yard\\ships\\Alpha\\"}));
}

TEST(IsFullPath, HasADriveWithItsRootOrAnotherMachine) {
    for (const wchar_t* path : {L"C:\\", L"c:/ships", L"\\\\server\\share", L"//server/share"}) {
        EXPECT_TRUE(IsFullPath(path)) << test::Narrow(path);
    }
    for (const wchar_t* path :
         {L"", L"data\\", L"\\data\\", L"C:", L"C:data\\", L"..\\data", L".\\", L"C"}) {
        EXPECT_FALSE(IsFullPath(path)) << test::Narrow(path);
    }
}

TEST(IsDeviceName, WithAnyExtensionInAnyFolder) {
    for (const wchar_t* path : {L"nul", L"NUL.ve2", L"C:\\ships\\con.ve2", L"aux.a.b", L"prn .ve2",
                                L"com1.ve2", L"LPT9", L"com\u00B2.ve2", L"conin$", L"\\\\.\\nul"}) {
        EXPECT_TRUE(IsDeviceName(path)) << test::Narrow(path);
    }
    for (const wchar_t* path : {L"", L"null.ve2", L"com.ve2", L"com0.ve2", L"com10.ve2",
                                L"ship.nul", L"C:\\con\\ship.ve2", L"auxiliary", L"lptx.ve2"}) {
        EXPECT_FALSE(IsDeviceName(path)) << test::Narrow(path);
    }
}

}  // namespace
}  // namespace corvane
