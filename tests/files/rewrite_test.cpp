#include "files/rewrite.h"

#include <gtest/gtest.h>

#include "files/file_system.h"
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
    EXPECT_TRUE(FinishRewrite(rewrite));
    EXPECT_EQ(ReadFileBytes(target), "new");
    EXPECT_FALSE(FileExists(rewrite.temporary));
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST_F(RewriteTest, TextThatCouldNotBeReadWholeIsRemovedAndReported) {
    EXPECT_FALSE(FinishRewrite(rewrite, system::kErrorIoDevice));
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_FALSE(FileExists(rewrite.temporary));
    ASSERT_EQ(RecordedReports::Of("warning").size(), 1U);
    const std::string message = RecordedReports::Of("warning")[0];
    for (const std::wstring& part :
         {target, system::ErrorText(system::kErrorIoDevice), system::TemporaryDirectory()}) {
        EXPECT_NE(message.find(test::Narrow(part)), std::string::npos) << message;
    }
}

TEST_F(RewriteTest, TextThatCannotBePutInPlaceIsKeptAndItsPathReported) {
    ASSERT_EQ(system::SetReadOnly(target, true), system::kErrorNone);
    EXPECT_FALSE(FinishRewrite(rewrite));
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_EQ(ReadFileBytes(rewrite.temporary), "new");
    ASSERT_EQ(RecordedReports::Of("warning").size(), 1U);
    EXPECT_NE(RecordedReports::Of("warning")[0].find(test::Narrow(rewrite.temporary)),
              std::string::npos);
    KillFile(rewrite.temporary);
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
    EXPECT_FALSE(FinishRewrite(rewrite));
    EXPECT_EQ(ReadFileBytes(target), before);
    EXPECT_EQ(rewrite.temporary, L"");
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
    EXPECT_EQ(ReasonOf(system::kErrorFileExists), L"made");
    EXPECT_EQ(ReasonOf(system::kErrorDiskFull), system::ErrorText(system::kErrorDiskFull));
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
        return FinishRewrite(rewrite);
    }
    std::string Text(const std::wstring& name) const { return ReadFileBytes(folder.File(name)); }
    // The one message shown, which names the kept text; that is removed then.
    std::string FailureMessage() const {
        EXPECT_EQ(ReadFileBytes(rewrite.temporary), "new");
        const std::vector<std::string> messages = RecordedReports::Of("warning");
        EXPECT_EQ(messages.size(), 1U);
        EXPECT_NE(messages.at(0).find(test::Narrow(rewrite.temporary)), std::string::npos);
        KillFile(rewrite.temporary);
        return messages.at(0);
    }
};

TEST_F(BackupTest, OldTextIsBesideTheNewOne) {
    test::WriteFileBytes(folder.File(L"ship.ve2"), "old");
    EXPECT_TRUE(Write(L"ship.ve2", "new"));
    EXPECT_EQ(Text(L"ship.ve2"), "new");
    EXPECT_EQ(Text(L"ship.bak"), "old");
    EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
    EXPECT_FALSE(FileExists(rewrite.temporary));
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

TEST_F(BackupTest, ReadOnlyBackupStopsTheRewrite) {
    test::WriteFileBytes(folder.File(L"ship.ve2"), "old");
    test::WriteFileBytes(folder.File(L"ship.bak"), "older");
    ASSERT_EQ(system::SetReadOnly(folder.File(L"ship.bak"), true), system::kErrorNone);
    EXPECT_FALSE(Write(L"ship.ve2", "new"));
    EXPECT_EQ(Text(L"ship.ve2"), "old");
    EXPECT_EQ(Text(L"ship.bak"), "older");
    EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
    const std::string message = FailureMessage();
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
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
    EXPECT_NE(FailureMessage().find(test::Narrow(GetMessage(kMsgBackupIsTheFile))),
              std::string::npos);
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
    EXPECT_FALSE(FinishRewrite(rewrite));
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
}

}  // namespace
}  // namespace corvane
