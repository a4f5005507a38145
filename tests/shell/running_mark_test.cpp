#include "shell/running_mark.h"

#include <gtest/gtest.h>

#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/bsd_commands.h"
#include "shell/commands/section_commands.h"
#include "tests/shell/command_support.h"

namespace corvane {
namespace {

using test::CommandTest;
using test::FakeProgram;
using test::FakePrompt;
using test::FakeView;
using test::RecordedReports;

struct RunningMark : CommandTest {
    test::FreshSettingsFile file;
    // A program that runs: this one.
    std::wstring runningProgram = system::ProgramPath();

    RunningMark() { MakeOpen(L"ship.ve2", {ModelKind::kSection, ModelKind::kSection}); }

    static bool HasAsked() { return !RecordedReports::Of("ask").empty(); }
};

TEST_F(RunningMark, WithoutItNothingIsAsked) {
    EXPECT_TRUE(ConfirmEdit());
    EXPECT_FALSE(HasAsked());
}

TEST_F(RunningMark, ProgramThatStillRunsIsNamedInTheQuestion) {
    WriteRunningMark(runningProgram, File(L"ship.ve2"));
    EXPECT_FALSE(ConfirmEdit());
    EXPECT_EQ(RecordedReports::Of("ask irreversible"),
              std::vector<std::string>{test::Narrow(
                  BoxText(kMsgProgramStillRuns, {FileNameOf(runningProgram), L"ship.ve2"}))});
    FakeView::answerYes = true;
    EXPECT_TRUE(ConfirmEdit());
}

TEST_F(RunningMark, ProgramThatHasEndedAsksNoMore) {
    test::WriteFileBytes(File(L"idle.exe"), "");
    WriteRunningMark(File(L"idle.exe"), File(L"ship.ve2"));
    EXPECT_TRUE(ConfirmEdit());
    EXPECT_FALSE(HasAsked());
    EXPECT_EQ(test::ReadFileBytes(file.path).find("idle.exe"), std::string::npos);
}

TEST_F(RunningMark, OtherDatabaseMayBeEdited) {
    WriteRunningMark(runningProgram, Make(L"other.ve2"));
    EXPECT_TRUE(ConfirmEdit());
    EXPECT_FALSE(HasAsked());
}

TEST_F(RunningMark, EveryEditAsksFirst) {
    WriteRunningMark(runningProgram, File(L"ship.ve2"));
    const std::string bytes = test::ReadFileBytes(File(L"ship.ve2"));
    const FakePrompt prompt;
    for (void (*edit)() : {ME_SectionCopy_Click, ME_SectionRemove_Click, ME_SectionImport_Click,
                           ME_FileImportBSD_Click}) {
        RecordedReports::events.clear();
        edit();
        const std::vector<std::string> asked = RecordedReports::Of("ask");
        ASSERT_EQ(asked.size(), 1U);
        EXPECT_NE(asked[0].find("is still working on 'ship.ve2'"), std::string::npos) << asked[0];
    }
    EXPECT_TRUE(FakePrompt::questions.empty());
    EXPECT_EQ(test::ReadFileBytes(File(L"ship.ve2")), bytes);
}

TEST_F(RunningMark, IsThereExactlyWhileAProgramRuns) {
    static std::string meanwhile;
    static std::wstring settings;
    settings = file.path;
    Install(L"SectInput.exe");
    const FakeProgram program([] { meanwhile = test::ReadFileBytes(settings); });
    ME_SectionInput_Click();
    EXPECT_NE(meanwhile.find(test::Narrow(programs) + "SectInput.exe"), std::string::npos);
    EXPECT_NE(meanwhile.find(test::Narrow(File(L"ship.ve2"))), std::string::npos);
    EXPECT_EQ(test::ReadFileBytes(file.path).find("SectInput.exe"), std::string::npos);
}

}  // namespace
}  // namespace corvane
