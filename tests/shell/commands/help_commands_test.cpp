#include "shell/commands/help_commands.h"

#include <gtest/gtest.h>

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/help_pages.h"
#include "shell/program_log.h"
#include "shell/report_details.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using Events = std::vector<std::string>;

TEST(HelpCommands, AboutBoxIsHeadedByTitleAndVersionAndInDebugModeByTheRevision) {
    const test::FakeView screen;
    shell.title = L"Corvane MIL";
    ME_HelpAbout_Click();
    shell.debugMode = true;
    ME_HelpAbout_Click();
    EXPECT_EQ(test::RecordedReports::events,
              (Events{"about Corvane MIL v1.0", "about Corvane MIL v1.0 (r0)"}));
}

TEST(HelpCommands, ContentsOpensTheFirstPageOfTheGuide) {
    const test::FakeView screen;
    RunCommand(ME_HelpContents);
    EXPECT_EQ(test::RecordedReports::Of("open"), Events{test::Narrow(HelpPagePath(kHelpContents))});
}

TEST(HelpCommands, CopyDetailsPutsThemOnTheClipboardAndSaysSo) {
    const test::FakeView screen;
    ME_HelpDetails_Click();
    EXPECT_EQ(test::FakeView::copied, DetailsForReport());
    EXPECT_EQ(test::RecordedReports::caption, GetMessage(kMsgDetailsCopied));
}

TEST(HelpCommands, ClipboardThatIsInUseIsReported) {
    const test::FakeView screen;
    shell.view.copyText = [](const std::wstring&, const std::string&) { return false; };
    ME_HelpDetails_Click();
    EXPECT_EQ(shell.lastWarning, BoxText(kMsgDetailsNotCopied));
    EXPECT_EQ(test::RecordedReports::caption, L"");
}

struct LogFolderCommand : testing::Test {
    const test::FakeView screen;
    const test::TemporaryFolder folder;
    const std::wstring usual = system::LocalDataDirectory();

    LogFolderCommand() { test::SetLocalDataDirectory(folder.path); }
    ~LogFolderCommand() override { test::SetLocalDataDirectory(usual); }
};

TEST_F(LogFolderCommand, OpensTheFolderOfTheLog) {
    StartLog();
    RunCommand(ME_HelpLog);
    EXPECT_EQ(test::RecordedReports::Of("open"), Events{test::Narrow(LogFolder())});
}

TEST_F(LogFolderCommand, FolderThatIsNotThereIsReported) {
    RunCommand(ME_HelpLog);
    EXPECT_EQ(shell.lastWarning, BoxText(kMsgNoLogFolder));
    test::SetLocalDataDirectory(L"");
    shell.lastWarning.clear();
    RunCommand(ME_HelpLog);
    EXPECT_EQ(shell.lastWarning, BoxText(kMsgNoLogFolder));
    EXPECT_TRUE(test::RecordedReports::Of("open").empty());
}

TEST_F(LogFolderCommand, FolderThatCannotBeOpenedIsNamedWithTheSystemsReason) {
    StartLog();
    shell.view.openDocument = [](const std::wstring&) { return system::kErrorAccessDenied; };
    RunCommand(ME_HelpLog);
    EXPECT_EQ(shell.lastWarning, BoxText(kMsgLogFolderNotOpened,
                                         {LogFolder(), SystemError{system::kErrorAccessDenied}}));
}

}  // namespace
}  // namespace corvane
