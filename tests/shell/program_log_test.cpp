#include "shell/program_log.h"

#include <gtest/gtest.h>

#include <sstream>

#include "files/file_system.h"
#include "platform/ztvelk32.h"
#include "shell/commands/commands.h"
#include "shell/commands/section_commands.h"
#include "shell/recent_databases.h"
#include "shell/start_up.h"
#include "tests/shell/command_support.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::FakePrompt;
using test::FakeView;
using test::Narrow;
using test::ReadFileBytes;

// While it lives the user's local application data are in the test's folder.
struct ProgramLog : test::CommandTest {
    std::wstring usual = system::LocalDataDirectory();

    ProgramLog() { test::SetLocalDataDirectory(folder.path); }
    ~ProgramLog() override { test::SetLocalDataDirectory(usual); }

    // Kind and text of each entry.
    static std::vector<std::string> Entries() {
        std::istringstream log(ReadFileBytes(LogPath()));
        std::vector<std::string> entries;
        const std::string process = " " + std::to_string(system::ProcessNumber()) + " ";
        for (std::string line; std::getline(log, line);) {
            EXPECT_EQ(line.back(), '\r');
            EXPECT_EQ(line.find(process), 19U) << line;
            entries.push_back(line.substr(19 + process.size(), line.size() - 20 - process.size()));
        }
        return entries;
    }
    // Those since the start.
    static std::vector<std::string> Work() {
        std::vector<std::string> entries = Entries();
        std::erase_if(entries, [](const std::string& entry) { return entry.starts_with("start"); });
        return entries;
    }
};

TEST_F(ProgramLog, IsInTheUsersLocalApplicationData) {
    EXPECT_EQ(LogFolder(), system::LocalDataDirectory() + L"Corvane\\");
    EXPECT_EQ(LogPath(), LogFolder() + L"corvane.log");
}

TEST_F(ProgramLog, BeginsWithVersionsOfProgramSystemAndLibraries) {
    const auto before = getztvelk32version;
    getztvelk32version.pointer = nullptr;
    getztvelk32version.fileName = "not_there.dll";
    StartLog();
    LogLibraries();
    getztvelk32version = before;
    const std::vector<std::string> entries = Entries();
    ASSERT_EQ(entries.size(), 7U);
    EXPECT_EQ(entries[0].rfind("start Corvane 1.0 (r0), " + std::to_string(8 * sizeof(void*)), 0),
              0U);
    EXPECT_EQ(entries[1], "start " + Narrow(system::SystemVersion()));
    EXPECT_EQ(entries[2], "start GrVelk Data 2.002");
    EXPECT_EQ(entries[5], "start ZTVelk32 not found, system error 126");
}

TEST_F(ProgramLog, WithoutLocalApplicationDataThereIsNone) {
    test::SetLocalDataDirectory(L"");
    EXPECT_EQ(LogFolder(), L"");
    EXPECT_EQ(LogPath(), L"");
    StartLog();
    RunCommand(ME_HelpAbout);
    EXPECT_TRUE(shell.log.path.empty());
}

TEST_F(ProgramLog, BeforeItsStartNothingIsWritten) {
    RunCommand(ME_HelpAbout);
    EXPECT_FALSE(FileExists(LogPath()));
}

TEST_F(ProgramLog, CommandsAreNamedAsInTheirTable) {
    StartLog();
    RunCommand(ME_HelpAbout);
    RunCommand(ME_FileSaveAs);  // cannot be chosen
    EXPECT_EQ(Work(), std::vector<std::string>{"command ME_HelpAbout"});
}

TEST_F(ProgramLog, FilesThatAreOpenedAndWrittenAreNamedAndNoModelIs) {
    MakeOpen(L"ship.ve2", {ModelKind::kSection});
    RefreshMainWindow();
    StartLog();
    FakeView::answerYes = true;
    FakeView::answerText = L"SECRET";
    RunCommand(ME_SectionCopy);
    RunCommand(ME_SectionRename);
    EXPECT_EQ(Work(), (std::vector<std::string>{
                          "command ME_SectionCopy", "write " + Narrow(File(L"ship.bak")),
                          "write " + Narrow(File(L"ship.ve2")), "command ME_SectionRename"}));
    const FakePrompt prompt{File(L"other.ve2")};
    Make(L"other.ve2", {ModelKind::kSection});
    RunCommand(ME_FileOpen);
    EXPECT_EQ(Work().back(), "open " + Narrow(File(L"other.ve2")));
    RunCommand(ME_SectionRemove);
    EXPECT_EQ(ReadFileBytes(LogPath()).find("SECRET"), std::string::npos);
    EXPECT_NE(ReadFileBytes(File(L"ship.ve2")).find("SECRET"), std::string::npos);
}

TEST_F(ProgramLog, FaultsAreThereWithTheirNumbers) {
    StartLog();
    const std::wstring missing = File(L"missing.ve2");
    OpenHandedOver({missing}, false);
    EXPECT_EQ(Work(), std::vector<std::string>{"fault message " + std::to_string(kMsgFileMissing)});
}

TEST_F(ProgramLog, ProgramsThatRunAreThereWithWhatTheyGet) {
    MakeOpen(L"ship.ve2", {ModelKind::kSection});
    Install(L"SectInput.exe");
    const test::FakeProgram program([] {});
    test::FakeProgram::result = kProgramCrashed;
    RefreshMainWindow();
    StartLog();
    RunCommand(ME_SectionInput);
    const std::vector<std::string> entries = Work();
    EXPECT_NE(std::ranges::find(entries, "run " + Narrow(programs) + "SectInput.exe \"" +
                                             Narrow(File(L"ship.ve2")) + "\" 1"),
              entries.end());
    EXPECT_EQ(entries.back(), "fault message " + std::to_string(kMsgProgramCrashed));
}

TEST_F(ProgramLog, EndIsThere) {
    const test::FreshSettingsFile settings;
    StartLog();
    ShutDown();
    EXPECT_EQ(Work().back(), "end by the user");
    ShutDown(true);
    EXPECT_EQ(Work().back(), "end with the session");
}

TEST_F(ProgramLog, DiskThatAnswersLateIsNotAskedForEver) {
    StartLog();
    {
        const test::SlowSystem slow;
        for (int i = 0; i < 9; ++i) RunCommand(ME_HelpAbout);
    }
    RunCommand(ME_HelpAbout);
    EXPECT_EQ(Work().size(), static_cast<size_t>(kMostSlowEntries));
}

TEST_F(ProgramLog, LogThatCannotBeWrittenDisturbsNobody) {
    test::WriteFileBytes(folder.File(L"Corvane"), "a file in the way");
    StartLog();
    RunCommand(ME_HelpAbout);
    EXPECT_TRUE(Warnings().empty());
    EXPECT_TRUE(test::RecordedReports::Happened("about Corvane v1.0"));
}

}  // namespace
}  // namespace corvane
