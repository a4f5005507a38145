#include "files/history.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "files/file_system.h"
#include "files/rewrite.h"
#include "files/text_file.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using system::FileStamp;
using system::kErrorNone;
using test::ReadFileBytes;
using Names = std::vector<std::wstring>;
using TextList = std::vector<std::string>;

// Text that no code page has in full, with the characters that the index uses itself.
constexpr wchar_t kOddName[] = L"Delete of '100%;\t\u00E9\u4E2D'";

FileStamp StampOf(const std::wstring& path) {
    FileStamp stamp;
    EXPECT_EQ(system::GetFileStamp(path, stamp), kErrorNone) << test::Narrow(path);
    return stamp;
}

struct HistoryTest : testing::Test {
    const test::RecordedReports screen;
    const test::OwnHistory history;
    const test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    HistoryLimits limits;

    void SetUp() override { test::WriteFileBytes(path, "text 0"); }

    // Takes the database's text into the history and replaces it, as an edit does.
    system::ErrorNumber Edit(const std::wstring& what, const std::string& text,
                             VersionKind kind = VersionKind::kEdit, bool asCopy = false) {
        const std::wstring newText = folder.File(L"new");
        test::WriteFileBytes(newText, text);
        VersionToKeep toKeep;
        toKeep.path = path;
        toKeep.version.kind = kind;
        toKeep.version.what = what;
        toKeep.version.user = L"Anna";
        toKeep.version.models = 4;
        toKeep.version.old = StampOf(path);
        toKeep.version.now = StampOf(newText);
        toKeep.asCopy = asCopy;
        toKeep.limits = limits;
        std::wstring file;
        const system::ErrorNumber error = KeepVersion(toKeep, file);
        EXPECT_EQ(file.empty(), error != kErrorNone);
        EXPECT_EQ(system::RenameOver(newText, path), kErrorNone);
        return error;
    }
    std::vector<TextVersion> Versions() const {
        std::vector<TextVersion> versions;
        EXPECT_EQ(ReadHistory(path, versions), kErrorNone);
        return versions;
    }
    Names Whats() const {
        Names names;
        for (const TextVersion& version : Versions()) names.push_back(version.what);
        return names;
    }
    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const TextVersion& version : Versions()) texts.push_back(ReadFileBytes(version.file));
        return texts;
    }
};

TEST_F(HistoryTest, ReplacedTextsAreKeptInOrderWithAllThatIsKnownOfThem) {
    EXPECT_TRUE(Versions().empty());
    const FileStamp first = StampOf(path);
    EXPECT_EQ(Edit(kOddName, "text 1"), kErrorNone);
    EXPECT_EQ(Edit(L"Copy", "text 2"), kErrorNone);
    const std::vector<TextVersion> versions = Versions();
    ASSERT_EQ(versions.size(), 2U);
    EXPECT_EQ(Texts(), (TextList{"text 0", "text 1"}));
    EXPECT_EQ(versions[0].what, kOddName);
    EXPECT_EQ(versions[0].user, L"Anna");
    EXPECT_EQ(versions[0].models, 4);
    EXPECT_EQ(versions[0].time.size(), std::strlen("2026-03-29 14:05:30"));
    EXPECT_EQ(versions[0].old, first);
    EXPECT_EQ(versions[1].now, StampOf(path));
    EXPECT_FALSE(versions[0].isChanged);
    // The file itself, not a copy of it.
    EXPECT_EQ(StampOf(versions[0].file).identity, first.identity);
}

TEST_F(HistoryTest, CopyIsAFileOfItsOwn) {
    EXPECT_EQ(Edit(L"Changes", "text 1", VersionKind::kEdit, true), kErrorNone);
    ASSERT_EQ(Texts(), TextList{"text 0"});
    EXPECT_NE(StampOf(Versions()[0].file).identity, Versions()[0].old.identity);
    EXPECT_FALSE(Versions()[0].isChanged);
}

TEST_F(HistoryTest, SameTextIsKeptOnce) {
    VersionToKeep toKeep;
    toKeep.path = path;
    toKeep.version.old = toKeep.version.now = StampOf(path);
    toKeep.version.what = L"Changes by one program";
    std::wstring first;
    std::wstring second;
    EXPECT_EQ(KeepVersion(toKeep, first), kErrorNone);
    toKeep.version.what = L"Changes by another program";
    EXPECT_EQ(KeepVersion(toKeep, second), kErrorNone);
    EXPECT_EQ(first, second);
    EXPECT_EQ(Whats(), Names{L"Changes by another program"});
}

TEST_F(HistoryTest, TextThatIsNoLongerThereIsNotKept) {
    VersionToKeep toKeep;
    toKeep.path = path;
    toKeep.version.old = StampOf(path);
    toKeep.version.old.size += 1;
    std::wstring file;
    EXPECT_EQ(KeepVersion(toKeep, file), system::kErrorFileChanged);
    EXPECT_TRUE(Versions().empty());
    EXPECT_FALSE(FileExists(history.File(L"1\\1.ve2")));
}

TEST_F(HistoryTest, VersionThatSomebodyWroteIntoIsShownAsChanged) {
    Edit(L"Copy", "text 1");
    test::WriteFileBytes(Versions()[0].file, "by hand");
    ASSERT_EQ(Versions().size(), 1U);
    EXPECT_TRUE(Versions()[0].isChanged);
}

TEST_F(HistoryTest, MovedAndRenamedDatabaseKeepsItsHistory) {
    Edit(L"Copy", "text 1");
    const std::wstring moved = folder.File(L"renamed.ve2");
    ASSERT_EQ(system::RenameToNewName(path, moved), kErrorNone);
    path = moved;
    EXPECT_EQ(Whats(), Names{L"Copy"});
    Edit(L"Delete", "text 2");
    EXPECT_EQ(Whats(), (Names{L"Copy", L"Delete"}));
    // What has the old name now is another database.
    path = folder.File(L"ship.ve2");
    test::WriteFileBytes(path, "another ship");
    EXPECT_TRUE(Versions().empty());
    Edit(L"Import", "text 1 of another ship");
    EXPECT_EQ(Texts(), TextList{"another ship"});
    path = moved;
    EXPECT_EQ(Texts(), (TextList{"text 0", "text 1"}));
}

TEST_F(HistoryTest, AnotherNameOfTheOldTextHasNoHistory) {
    const std::wstring backup = folder.File(L"ship.bak");
    ASSERT_EQ(system::MakeLink(path, backup), kErrorNone);
    Edit(L"Copy", "text 1");
    path = backup;
    EXPECT_TRUE(Versions().empty());
}

TEST_F(HistoryTest, OldestVersionsGoBeyondTheNumberOfVersions) {
    limits.versions = 3;
    for (int i = 1; i <= 5; ++i) Edit(L"Copy", "text " + std::to_string(i));
    EXPECT_EQ(Texts(), (TextList{"text 2", "text 3", "text 4"}));
    EXPECT_EQ(test::FilesIn(history.File(L"1\\")), (Names{L"3.ve2", L"4.ve2", L"5.ve2"}));
}

TEST_F(HistoryTest, OldestVersionsOfAllDatabasesGoBeyondTheirSize) {
    const std::wstring first = path;
    Edit(L"Copy", "text 1");
    Edit(L"Copy", "text 2");
    path = folder.File(L"other.ve2");
    test::WriteFileBytes(path, "other 0");
    limits.bytes = 14;  // two texts
    Edit(L"Delete", "other 1");
    Edit(L"Delete", "other 2");
    Edit(L"Delete", "other 3");
    // Each keeps the newest one, and it goes only after the next one has come.
    EXPECT_EQ(Texts(), (TextList{"other 1", "other 2"}));
    path = first;
    EXPECT_EQ(Texts(), TextList{"text 1"});
}

TEST_F(HistoryTest, ClockThatWasSetBackChangesNoOrder) {
    Edit(L"first", "text 1");
    std::string index = ReadFileBytes(history.File(L"index.txt"));
    const size_t year = index.find("\te\t") + 3;
    test::WriteFileBytes(history.File(L"index.txt"), index.replace(year, 4, "2999"));
    Edit(L"second", "text 2");
    EXPECT_EQ(Whats(), (Names{L"first", L"second"}));
    EXPECT_EQ(Versions()[0].time.substr(0, 4), L"2999");
}

TEST_F(HistoryTest, FileWithoutALineGoesAndLineWithoutAFileDoesNotCount) {
    Edit(L"first", "text 1");
    test::WriteFileBytes(history.File(L"1\\2.ve2"), "of a process that ended");
    Edit(L"second", "text 2");
    EXPECT_EQ(Texts(), (TextList{"text 0", "text 1"}));
    ASSERT_EQ(system::RemoveFile(Versions()[0].file), kErrorNone);
    EXPECT_EQ(Whats(), Names{L"second"});
    Edit(L"third", "text 3");
    EXPECT_EQ(Texts(), (TextList{"text 1", "text 2"}));
}

TEST_F(HistoryTest, IndexOfALaterVersionIsLeftAlone) {
    Edit(L"first", "text 1");
    test::WriteFileBytes(history.File(L"index.txt"), "Corvane history 2\r\n");
    EXPECT_NE(Edit(L"second", "text 2"), kErrorNone);
    EXPECT_EQ(ReadFileBytes(history.File(L"index.txt")), "Corvane history 2\r\n");
    EXPECT_EQ(test::FilesIn(history.File(L"1\\")), Names{L"1.ve2"});
}

TEST_F(HistoryTest, FolderThatCannotBeMadeIsAnError) {
    test::WriteFileBytes(history.folder.File(L"Corvane"), "not a folder");
    EXPECT_NE(Edit(L"first", "text 1"), kErrorNone);
    EXPECT_EQ(ReadFileBytes(path), "text 1");
}

// ---- Steps -------------------------------------------------------------------------------------

std::wstring UndoName(const UndoSteps& steps) {
    return steps.undo == nullptr ? L"" : steps.undo->what;
}
std::wstring RedoName(const UndoSteps& steps) {
    return steps.redo == nullptr ? L"" : steps.redo->what;
}

TEST_F(HistoryTest, NewestEditIsUndoneAndNewestUndoneOneRedone) {
    Edit(L"first", "text 1");
    Edit(L"second", "text 2");
    const UndoSteps edited = NextSteps(Versions(), StampOf(path));
    Edit(L"second", "text 1", VersionKind::kUndo);
    const std::vector<TextVersion> versions = Versions();
    const UndoSteps undone = NextSteps(versions, StampOf(path));
    EXPECT_EQ(edited.redo, nullptr);
    EXPECT_EQ(RedoName(undone), L"second");
    Edit(L"third", "text 3");
    const std::vector<TextVersion> after = Versions();
    EXPECT_EQ(NextSteps(after, StampOf(path)).redo, nullptr);
    EXPECT_EQ(UndoName(NextSteps(after, StampOf(path))), L"third");
    EXPECT_EQ(after.size(), 4U);
}

TEST_F(HistoryTest, TextThatTheDatabaseHasIsNoStep) {
    Edit(L"first", "text 1");
    VersionToKeep toKeep;
    toKeep.path = path;
    toKeep.version.old = toKeep.version.now = StampOf(path);
    toKeep.version.what = L"Changes by a program";
    std::wstring file;
    KeepVersion(toKeep, file);
    std::vector<TextVersion> versions = Versions();
    EXPECT_EQ(UndoName(NextSteps(versions, StampOf(path))), L"first");
    test::WriteFileBytes(path, "text of the program");
    EXPECT_EQ(UndoName(NextSteps(versions, StampOf(path))), L"Changes by a program");
    EXPECT_EQ(NoteNewStamp(path, versions[1].now, StampOf(path)), kErrorNone);
    versions = Versions();
    EXPECT_EQ(versions[1].now, StampOf(path));
    EXPECT_NE(versions[0].now, StampOf(path));
}

// ---- The way of every edit ---------------------------------------------------------------------

system::ErrorNumber KeepAll(const Rewrite& rewrite, std::wstring& file) {
    VersionToKeep toKeep;
    toKeep.path = rewrite.target;
    toKeep.version.old = rewrite.stamp;
    EXPECT_EQ(system::GetFileStamp(rewrite.newText, toKeep.version.now), kErrorNone);
    KeepVersion(toKeep, file);
    return kErrorNone;
}

struct HistoryOfRewriteTest : HistoryTest {
    const OldTextKeeper before = keepOldText;
    void SetUp() override {
        HistoryTest::SetUp();
        keepOldText = KeepAll;
    }
    void TearDown() override { keepOldText = before; }
    RewriteEnd Restore(const std::wstring& version) const {
        Rewrite rewrite;
        EXPECT_TRUE(OpenOldText(rewrite, path));
        BeginRestoring(rewrite, version, TextSource::kVersion);
        return FinishRewrite(rewrite);
    }
};

TEST_F(HistoryOfRewriteTest, OldTextIsInTheHistoryWhenTheNewOneIsInPlace) {
    Rewrite rewrite;
    BeginRewrite(rewrite, path);
    WriteText(rewrite.writer, "text 1");
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kDone);
    EXPECT_EQ(Texts(), TextList{"text 0"});
    EXPECT_EQ(Versions()[0].now, StampOf(path));
}

TEST_F(HistoryOfRewriteTest, EditThatFailsLeavesNoVersion) {
    keepOldText = [](const Rewrite& begun, std::wstring& file) {
        KeepAll(begun, file);
        EXPECT_TRUE(FileExists(file));
        EXPECT_EQ(system::RemoveFile(begun.newText), kErrorNone);
        return kErrorNone;
    };
    Rewrite rewrite;
    BeginRewrite(rewrite, path);
    WriteText(rewrite.writer, "text 1");
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kFailed);
    EXPECT_TRUE(Versions().empty());
    EXPECT_EQ(StampOf(path).linkCount, 1);
}

TEST_F(HistoryOfRewriteTest, VersionIsPutBackAsOneMoreLinkAndTheTextBeforeIsKept) {
    Edit(L"first", "text 1");
    const std::wstring version = Versions()[0].file;
    EXPECT_EQ(Restore(version), RewriteEnd::kDone);
    EXPECT_EQ(ReadFileBytes(path), "text 0");
    EXPECT_TRUE(IsSameFile(path, version));
    EXPECT_EQ(Texts(), (TextList{"text 0", "text 1"}));
    EXPECT_EQ(test::FilesIn(folder.path), Names{L"ship.ve2"});
}

TEST_F(HistoryOfRewriteTest, DatabaseWithTwoNamesGetsAFileOfItsOwn) {
    const std::wstring backup = folder.File(L"ship.bak");
    ASSERT_EQ(system::MakeLink(path, backup), kErrorNone);
    Rewrite rewrite;
    ASSERT_TRUE(OpenOldText(rewrite, path));
    BeginRestoring(rewrite, path, TextSource::kCopy);
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kDone);
    EXPECT_FALSE(IsSameFile(path, backup));
    EXPECT_EQ(ReadFileBytes(path), "text 0");
}

}  // namespace
}  // namespace corvane
