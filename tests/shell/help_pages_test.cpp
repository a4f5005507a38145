// Which page of the user guide F1 opens. The pages that the build has made are beside this program.
#include "shell/help_pages.h"

#include <gtest/gtest.h>

#include "files/file_system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/recent_databases.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::Narrow;
using test::RecordedReports;

std::string Opened(uint16_t about) {
    return "open " + Narrow(HelpPagePath(about));
}

TEST(HelpPages, EveryCommandHasAPageOfItsOwnSubject) {
    for (const Command& command : Commands()) {
        if (command.id == 0) continue;
        EXPECT_NE(Narrow(HelpPageName(command.id)), "index") << command.name;
        EXPECT_TRUE(FileExists(HelpPagePath(command.id))) << Narrow(HelpPagePath(command.id));
    }
}

TEST(HelpPages, EveryTopicHasItsPage) {
    for (uint16_t about = kHelpContents; about < kHelpIsOpening; ++about) {
        EXPECT_EQ(HelpPageName(about) == L"index", about == kHelpContents) << about;
        EXPECT_TRUE(FileExists(HelpPagePath(about))) << Narrow(HelpPagePath(about));
    }
}

// The page's heading says what it is about.
TEST(HelpPages, PageIsAboutItsSubject) {
    const struct {
        uint16_t about;
        const char* heading;
    } pages[] = {{ME_FileSettings, "Settings"},
                 {ME_FileVersions, "Undo and earlier versions"},
                 {ME_SectionExport, "Exchange models with other databases"},
                 {kHelpList, "Long lists"},
                 {kHelpWarning, "When Corvane refuses a command"},
                 {kHelpContents, "User guide"}};
    for (const auto& page : pages) {
        const std::string text = test::ReadFileBytes(HelpPagePath(page.about));
        EXPECT_NE(text.find(std::string(">") + page.heading + "</h1>"), std::string::npos)
            << page.heading;
    }
}

TEST(HelpPages, EachRecentDatabaseHasThePageOfTheFirst) {
    EXPECT_EQ(HelpPageName(ME_FileRecent + kRecentCount - 1), HelpPageName(ME_FileRecent));
    EXPECT_EQ(HelpPageName(ME_FileRecent + kRecentCount), L"index");
    EXPECT_EQ(HelpPageName(0xFFFF), L"index");
}

TEST(HelpPages, PageIsOpenedByItsFullPath) {
    const test::FakeView screen;
    ShowHelp(ME_FileSettings);
    EXPECT_EQ(RecordedReports::events, std::vector<std::string>{Opened(ME_FileSettings)});
    EXPECT_TRUE(Opened(ME_FileSettings).ends_with("\\help\\settings.html"));
}

TEST(HelpPages, PageThatCannotBeOpenedIsReportedWithTheSystemsReason) {
    const test::FakeView screen;
    shell.view.openDocument = [](const std::wstring&) { return system::kErrorAccessDenied; };
    ShowHelp(kHelpList);
    EXPECT_EQ(
        Narrow(shell.lastWarning),
        Narrow(BoxText(kMsgHelpPageNotOpened,
                       {HelpPagePath(kHelpList), system::ErrorText(system::kErrorAccessDenied)})));
}

TEST(HelpPages, HelpInABoxIsAboutTheCommandThatShowsIt) {
    const test::FakeView screen;
    shell.view.showAbout = [](const std::wstring&) { ShowHelp(shell.helpAbout); };
    RunCommand(ME_HelpAbout);
    EXPECT_EQ(RecordedReports::Of("open"), std::vector{Opened(ME_HelpAbout).substr(5)});
    EXPECT_EQ(shell.helpAbout, kHelpContents) << "no command runs any more";
}

TEST(HelpPages, HelpInAWarningIsAboutWarnings) {
    test::FakeView screen;
    shell.view.report.showWarningBox = [](const std::wstring&) { ShowHelp(shell.helpAbout); };
    const HelpAbout running(ME_SectionCopy);
    ReportMessage(L"refused");
    EXPECT_TRUE(RecordedReports::Happened(Opened(kHelpWarning)));
    EXPECT_EQ(shell.helpAbout, ME_SectionCopy);
}

TEST(HelpPages, WarningThatHelpCannotBeOpenedOpensNone) {
    test::FakeView screen;
    static int timesTried;
    static int boxes;
    timesTried = boxes = 0;
    shell.view.openDocument = [](const std::wstring&) {
        ++timesTried;
        return system::kErrorAccessDenied;
    };
    shell.view.report.showWarningBox = [](const std::wstring&) {
        constexpr int kMost = 5;
        if (++boxes < kMost) ShowHelp(shell.helpAbout);
    };
    ShowHelp(kHelpList);
    EXPECT_EQ(timesTried, 1);
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(shell.helpAbout, kHelpContents);
}

}  // namespace
}  // namespace corvane
