#include "files/rewrite.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "files/file_system.h"
#include "files/paths.h"
#include "report/messages.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::ReadFileBytes;
using test::RecordedReports;

struct RewriteTest : testing::Test {
    const RecordedReports screen;
    const test::TemporaryFolder folder;
    const std::wstring target = folder.File(L"ship.ve2");
    Rewrite rewrite;

    void SetUp() override {
        test::WriteFileBytes(target, "old");
        BeginRewrite(rewrite, target);
        WriteText(rewrite.writer, "new");
    }
};

TEST_F(RewriteTest, NewTextReplacesTheOld) {
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kDone);
    EXPECT_EQ(ReadFileBytes(target), "new");
    EXPECT_FALSE(FileExists(rewrite.newText));
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST_F(RewriteTest, TextThatCouldNotBeReadWholeIsRemovedAndReported) {
    rewrite.reader.error = system::kErrorIoDevice;
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kFailed);
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_FALSE(FileExists(rewrite.newText));
    ASSERT_EQ(RecordedReports::Of("warning").size(), 1U);
    const std::string message = RecordedReports::Of("warning")[0];
    for (const std::wstring& part : {target, system::ErrorText(system::kErrorIoDevice)}) {
        EXPECT_NE(message.find(test::Narrow(part)), std::string::npos) << message;
    }
}

TEST_F(RewriteTest, TextThatCannotBePutInPlaceIsKeptAndItsPathReported) {
    ASSERT_EQ(system::SetReadOnly(target, true), system::kErrorNone);
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kFailed);
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_EQ(ReadFileBytes(rewrite.newText), "new");
    ASSERT_EQ(RecordedReports::Of("warning").size(), 1U);
    EXPECT_NE(RecordedReports::Of("warning")[0].find(test::Narrow(rewrite.newText)),
              std::string::npos);
    KillFile(rewrite.newText);
}

TEST_F(RewriteTest, NewTextIsBesideTheOldOne) {
    EXPECT_EQ(DirectoryOf(rewrite.newText), DirectoryOf(target));
    AbandonRewrite(rewrite);
    EXPECT_EQ(test::FilesIn(folder.path), std::vector<std::wstring>{L"ship.ve2"});
}

// ---- Other programs ----------------------------------------------------------------------------

TEST_F(RewriteTest, FileThatAnotherProgramReplacesMeanwhileStays) {
    test::WriteFileBytes(folder.File(L"theirs"), "the text of another program");
    ASSERT_EQ(system::RenameOver(folder.File(L"theirs"), target), system::kErrorNone);
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kChanged);
    EXPECT_EQ(ReadFileBytes(target), "the text of another program");
    EXPECT_EQ(test::FilesIn(folder.path), std::vector<std::wstring>{L"ship.ve2"});
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(RewriteTest, FileThatAnotherProgramWritesIntoMeanwhileStays) {
    test::WriteFileBytes(target, "other");
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kChanged);
    EXPECT_EQ(ReadFileBytes(target), "other");
}

TEST_F(RewriteTest, FileThatAnotherProgramDeletesMeanwhileIsNotMadeAgain) {
    KillFile(target);
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kChanged);
    EXPECT_TRUE(test::FilesIn(folder.path).empty());
}

TEST(Rewrite, FileThatIsMadeMeanwhileStays) {
    const RecordedReports screen;
    const test::TemporaryFolder folder;
    const std::wstring target = folder.File(L"ship.ve2");
    Rewrite rewrite;
    BeginRewrite(rewrite, target);
    WriteText(rewrite.writer, "new");
    test::WriteFileBytes(target, "made by others");
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kFailed);
    EXPECT_EQ(ReadFileBytes(target), "made by others");
    EXPECT_EQ(ReadFileBytes(rewrite.newText), "new");
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
}

TEST(RepeatUntilUnchanged, TriesThreeTimesAndReportsThat) {
    for (const int changes : {0, 2, 3}) {
        const RecordedReports screen;
        int attempts = 0;
        const bool isDone = RepeatUntilUnchanged(L"ship.ve2", [&] {
            return ++attempts <= changes ? RewriteEnd::kChanged : RewriteEnd::kDone;
        });
        EXPECT_EQ(isDone, changes < 3);
        EXPECT_EQ(attempts, std::min(changes + 1, 3));
        EXPECT_EQ(RecordedReports::Of("warning").size(), changes < 3 ? 0U : 1U);
    }
}

TEST(RepeatUntilUnchanged, FailureIsNotRepeated) {
    int attempts = 0;
    EXPECT_FALSE(RepeatUntilUnchanged(L"ship.ve2", [&] {
        ++attempts;
        return RewriteEnd::kFailed;
    }));
    EXPECT_EQ(attempts, 1);
}

TEST(OpenOldText, MissingFileIsTheReadersError) {
    const test::TemporaryFolder folder;
    Rewrite rewrite;
    EXPECT_FALSE(OpenOldText(rewrite, folder.File(L"none.ve2")));
    EXPECT_EQ(rewrite.reader.error, system::kErrorFileNotFound);
}

// The system has a folder that takes no new file, with a file that everybody may see written.
TEST(Rewrite, FolderThatTakesNoFileIsTheReasonAndLeavesNoText) {
    const std::wstring target = L"Z:\\proc\\sys\\kernel\\hostname";
    if (!FileExists(target)) GTEST_SKIP() << "this system has no such folder";
    const RecordedReports screen;
    const std::string before = ReadFileBytes(target);
    Rewrite rewrite;
    BeginRewrite(rewrite, target);
    rewrite.keepBackup = true;
    WriteText(rewrite.writer, "new");
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kFailed);
    EXPECT_EQ(ReadFileBytes(target), before);
    EXPECT_EQ(rewrite.newText, L"");
    ASSERT_EQ(RecordedReports::Of("warning").size(), 1U);
    const std::string message = RecordedReports::Of("warning")[0];
    EXPECT_NE(message.find("its folder takes no new file"), std::string::npos) << message;
    EXPECT_EQ(message.find("disk"), std::string::npos) << message;
}

TEST(RemedyOf, FitsTheReason) {
    const test::FakeCatalogue catalogue({{kMsgMakeRoom, "room"},
                                         {kMsgCloseOtherProgram, "program"},
                                         {kMsgGetRights, "rights"},
                                         {kMsgRepeatCommand, "repeat"},
                                         {kMsgMadeMeanwhile, "made"}});
    EXPECT_EQ(RemedyOf(system::kErrorDiskFull), L"room");
    EXPECT_EQ(RemedyOf(system::kErrorSharingViolation), L"program");
    EXPECT_EQ(RemedyOf(system::kErrorLockViolation), L"program");
    EXPECT_EQ(RemedyOf(system::kErrorAccessDenied), L"rights");
    EXPECT_EQ(RemedyOf(system::kErrorIoDevice), L"repeat");
    EXPECT_EQ(ReasonOf(system::kErrorFileExists).text, L"made");
    EXPECT_EQ(ReasonOf(system::kErrorDiskFull).text, system::ErrorText(system::kErrorDiskFull));
}

TEST(ReportReplacement, SaysAllThatTheUserMustKnow) {
    const test::FakeCatalogue catalogue({{kMsgFileNotMade, "failed \xA4"},
                                         {kMsgFileTakenAway, "taken \xA4 \xA4 \xA4 \xA4"},
                                         {kMsgFileNotRemoved, "left \xA4"},
                                         {kMsgMadeMeanwhile, "made"}});
    const auto told = [](const ReplaceResult& result) {
        const RecordedReports screen;
        ReportReplacement(result, kMsgFileNotMade, {L"target"});
        return RecordedReports::Of("warning");
    };
    using Told = std::vector<std::string>;
    ReplaceResult result;
    result.target = L"T";
    result.newText = L"N";
    EXPECT_EQ(told(result), Told{});
    result.leftOver = L"L";
    EXPECT_EQ(told(result), Told{"left L"});
    result.error = system::kErrorFileExists;
    EXPECT_EQ(told(result), (Told{"failed target", "left L"}));
    result.oldText = L"O";
    EXPECT_EQ(told(result), (Told{"taken T made O N", "left L"}));
}

// ---- With a backup -----------------------------------------------------------------------------

// One rewrite, with a backup, of a file in a folder of its own.
struct BackupTest : testing::Test {
    const RecordedReports screen;
    const test::TemporaryFolder folder;
    Rewrite rewrite;

    bool Write(const std::wstring& name, const std::string& text) {
        BeginRewrite(rewrite, folder.File(name));
        WriteText(rewrite.writer, text);
        rewrite.keepBackup = true;
        return FinishRewrite(rewrite) == RewriteEnd::kDone;
    }
    std::string Text(const std::wstring& name) const { return ReadFileBytes(folder.File(name)); }
    // The one message shown, which names the kept text; that is removed then.
    std::string FailureMessage() const {
        EXPECT_EQ(ReadFileBytes(rewrite.newText), "new");
        const std::vector<std::string> messages = RecordedReports::Of("warning");
        EXPECT_EQ(messages.size(), 1U);
        EXPECT_NE(messages.at(0).find(test::Narrow(rewrite.newText)), std::string::npos);
        KillFile(rewrite.newText);
        return messages.at(0);
    }
};

TEST_F(BackupTest, OldTextIsBesideTheNewOne) {
    test::WriteFileBytes(folder.File(L"ship.ve2"), "old");
    EXPECT_TRUE(Write(L"ship.ve2", "new"));
    EXPECT_EQ(Text(L"ship.ve2"), "new");
    EXPECT_EQ(Text(L"ship.bak"), "old");
    EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
    EXPECT_FALSE(FileExists(rewrite.newText));
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(BackupTest, OnlyTheLastExtensionGivesWay) {
    test::WriteFileBytes(folder.File(L"my.ship.ve2"), "old");
    EXPECT_TRUE(Write(L"my.ship.ve2", "new"));
    EXPECT_EQ(Text(L"my.ship.bak"), "old");
    EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
}

TEST_F(BackupTest, OlderBackupIsReplaced) {
    test::WriteFileBytes(folder.File(L"ship.ve2"), "old");
    test::WriteFileBytes(folder.File(L"ship.bak"), "a longer text of long ago");
    EXPECT_TRUE(Write(L"ship.ve2", "new"));
    EXPECT_EQ(Text(L"ship.bak"), "old");
    EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
}

TEST_F(BackupTest, NewFileHasNoBackup) {
    EXPECT_TRUE(Write(L"ship.ve2", "new"));
    EXPECT_EQ(test::FilesIn(folder.path), std::vector<std::wstring>{L"ship.ve2"});
}

TEST_F(BackupTest, BackupIsTheOldFileItself) {
    test::WriteFileBytes(folder.File(L"ship.ve2"), "old");
    system::FileStamp old;
    ASSERT_EQ(system::GetFileStamp(folder.File(L"ship.ve2"), old), system::kErrorNone);
    EXPECT_TRUE(Write(L"ship.ve2", "new"));
    system::FileStamp backup;
    ASSERT_EQ(system::GetFileStamp(folder.File(L"ship.bak"), backup), system::kErrorNone);
    EXPECT_EQ(backup.identity, old.identity);
    EXPECT_EQ(backup.linkCount, 1);
}

// An edit that ended between its backup and its last step leaves one file of two names.
TEST_F(BackupTest, BackupOfAnEditThatEndedHalfwayIsNoOtherName) {
    test::WriteFileBytes(folder.File(L"ship.ve2"), "old");
    ASSERT_EQ(system::MakeLink(folder.File(L"ship.ve2"), folder.File(L"ship.bak")),
              system::kErrorNone);
    EXPECT_TRUE(Write(L"ship.ve2", "new"));
    EXPECT_EQ(Text(L"ship.ve2"), "new");
    EXPECT_EQ(Text(L"ship.bak"), "old");
    EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(BackupTest, OtherNamesKeepTheOldTextAndTheUserIsInformed) {
    test::WriteFileBytes(folder.File(L"ship.ve2"), "old");
    ASSERT_EQ(system::MakeLink(folder.File(L"ship.ve2"), folder.File(L"other.ve2")),
              system::kErrorNone);
    EXPECT_TRUE(Write(L"ship.ve2", "new"));
    EXPECT_EQ(Text(L"other.ve2"), "old");
    EXPECT_EQ(Text(L"ship.ve2"), "new");
    ASSERT_EQ(RecordedReports::Of("warning").size(), 1U);
    const std::string message = RecordedReports::Of("warning")[0];
    EXPECT_NE(message.find(test::Narrow(folder.File(L"ship.ve2"))), std::string::npos);
    EXPECT_NE(message.find("(hard links): 1."), std::string::npos) << message;
}

TEST_F(BackupTest, FileWithoutAnExtensionHasItsBackupInItsFolder) {
    const std::wstring folderWithPoint = folder.File(L"proj.v2");
    ASSERT_EQ(system::MakeDirectory(folderWithPoint), system::kErrorNone);
    test::WriteFileBytes(folder.File(L"proj.bak"), "another file");
    test::WriteFileBytes(folder.File(L"proj.v2\\ship"), "old");
    EXPECT_TRUE(Write(L"proj.v2\\ship", "new"));
    EXPECT_EQ(Text(L"proj.v2\\ship.bak"), "old");
    EXPECT_EQ(Text(L"proj.bak"), "another file");
}

TEST_F(BackupTest, ReadOnlyBackupStopsTheRewrite) {
    test::WriteFileBytes(folder.File(L"ship.ve2"), "old");
    test::WriteFileBytes(folder.File(L"ship.bak"), "older");
    ASSERT_EQ(system::SetReadOnly(folder.File(L"ship.bak"), true), system::kErrorNone);
    EXPECT_FALSE(Write(L"ship.ve2", "new"));
    EXPECT_EQ(Text(L"ship.ve2"), "old");
    EXPECT_EQ(Text(L"ship.bak"), "older");
    const std::string message = FailureMessage();
    EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
    EXPECT_NE(message.find(test::Narrow(folder.File(L"ship.bak"))), std::string::npos);
    const std::wstring reason = system::ErrorText(system::kErrorAccessDenied);
    EXPECT_NE(message.find(test::Narrow(reason)), std::string::npos);
}

TEST_F(BackupTest, FolderOfTheBackupsNameStopsTheRewrite) {
    test::WriteFileBytes(folder.File(L"ship.ve2"), "old");
    ASSERT_EQ(system::MakeDirectory(folder.File(L"ship.bak")), system::kErrorNone);
    EXPECT_FALSE(Write(L"ship.ve2", "new"));
    EXPECT_EQ(Text(L"ship.ve2"), "old");
    FailureMessage();
    EXPECT_TRUE(IsDirectory(folder.File(L"ship.bak")));
}

TEST_F(BackupTest, FileThatHasABackupsNameIsLeftAlone) {
    test::WriteFileBytes(folder.File(L"ship.BAK"), "old");
    EXPECT_FALSE(Write(L"ship.BAK", "new"));
    EXPECT_EQ(Text(L"ship.BAK"), "old");
    EXPECT_NE(FailureMessage().find(test::Narrow(GetMessage(kMsgBackupIsTheFile))),
              std::string::npos);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
}

TEST(Rewrite, WithoutATemporaryFileNothingIsWritten) {
    const RecordedReports screen;
    const test::TemporaryFolder folder;
    const std::wstring target = folder.File(L"ship.ve2");
    test::WriteFileBytes(target, "old");
    Rewrite rewrite;
    rewrite.target = target;
    EXPECT_FALSE(CreateText(rewrite.writer, folder.File(L"missing\\new.tmp")));
    WriteText(rewrite.writer, "new");
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kFailed);
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
}

}  // namespace
}  // namespace corvane
