// The command lines of the suite's programs, and the commands that run them on models.
#include "shell/suite_programs.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "bsd/basic_ship_data.h"
#include "database/model_kind.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "files/settings_file.h"
#include "platform/system.h"
#include "report/messages.h"
#include "shell/commands/bsd_commands.h"
#include "shell/commands/create_commands.h"
#include "shell/commands/section_commands.h"
#include "shell/open_database.h"
#include "shell/rule_set.h"
#include "shell/state.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"

namespace corvane {
namespace {

using test::CommandTest;
using test::FakeProgram;
using test::FakeView;
using test::Narrow;
using test::RecordedReports;

struct SiblingPrograms : CommandTest {};
struct SectionInput : CommandTest {};
struct SectionRule : CommandTest {};
struct CreateModel : CommandTest {};
struct LockedRun : CommandTest {};
struct DamagingProgram : CommandTest {};

constexpr ModelKind kSection = ModelKind::kSection;
constexpr ModelKind kBulkhead = ModelKind::kBulkhead;
constexpr ModelKind kTorsion = ModelKind::kTorsion;

// ---- Paths and command lines -------------------------------------------------------------------

struct Switches {
    bool debug, mil, jbp;
    const char* text;
};
constexpr Switches kSwitches[] = {
    {false, false, false, ""},         {true, false, false, "/d "},
    {false, true, false, "/mil "},     {false, false, true, "/JBP "},
    {true, true, false, "/d /mil "},   {true, false, true, "/d /JBP "},
    {false, true, true, "/mil /JBP "}, {true, true, true, "/d /mil /JBP "},
};

TEST_F(SiblingPrograms, SwitchesAreInTheirOrderWithABlankAfterEach) {
    for (const Switches& switches : kSwitches) {
        shell.debugMode = switches.debug;
        shell.milMode = switches.mil;
        shell.jbpMode = switches.jbp;
        EXPECT_EQ(Narrow(SwitchString()), switches.text);
    }
}

TEST_F(SiblingPrograms, CommandLinesOfEveryKindSwitchAndModelNumber) {
    shell.settings.DataDirectory = L"C:\\Velk data\\";
    shell.database.path = L"C:\\My ships\\Aurora Bay.ve2";
    const std::string database = "\"C:\\My ships\\Aurora Bay.ve2\"";
    for (const Switches& switches : kSwitches) {
        shell.debugMode = switches.debug;
        shell.milMode = switches.mil;
        shell.jbpMode = switches.jbp;
        for (const ModelKind kind : {kSection, kBulkhead, kTorsion}) {
            for (const int number : {kNoModel, 1, 3, 12, 32767}) {
                const std::string input = Narrow(InputProgramPath(kind));
                const std::string rule = Narrow(RuleProgramPath(kind));
                const std::string after = number >= 1 ? " " + std::to_string(number) : "";
                EXPECT_EQ(Narrow(CommandLine(InputProgramPath(kind), number)),
                          input + " " + switches.text + database + after);
                EXPECT_EQ(Narrow(CommandLine(RuleProgramPath(kind), number)),
                          rule + " " + switches.text + database + after);
            }
        }
        EXPECT_EQ(Narrow(CommandLine(BsdProgramPath())),
                  "C:\\Velk data\\BsdEdit.exe " + std::string(switches.text) + database);
    }
}

// ---- Running -----------------------------------------------------------------------------------

TEST_F(LockedRun, WindowIsLockedAndPaintsBeforeTheProgramStarts) {
    const FakeProgram program;
    EXPECT_TRUE(RunAndWait(L"C:\\a b\\p.exe \"x y\" 3").HasRun());
    EXPECT_EQ(FakeProgram::commandLines, std::vector<std::wstring>{L"C:\\a b\\p.exe \"x y\" 3"});
    EXPECT_EQ(FakeProgram::windowStyle, 0);
    EXPECT_TRUE(FakeProgram::wasLocked);
    EXPECT_FALSE(FakeView::locked);
    EXPECT_EQ(RecordedReports::events, (std::vector<std::string>{"lock", "pending", "pointer busy",
                                                                 "pointer reset", "unlock"}));
}

TEST_F(LockedRun, RuleOptionIsRestored) {
    FakeView::rule = 1;
    shell.jbpMode = true;
    // A click that reaches the options although they are locked.
    const FakeProgram program([] {
        FakeView::rule = 2;
        RuleSetChosen(RuleSet::kMil);
    });
    EXPECT_TRUE(RunAndWait(L"C:\\p.exe").HasRun());
    EXPECT_EQ(FakeView::rule, 1);
    EXPECT_TRUE(shell.jbpMode);
    EXPECT_FALSE(shell.milMode);
}

TEST_F(LockedRun, RuleFlagsOfTheCommandLineStay) {
    FakeView::rule = 1;
    shell.jbpMode = shell.milMode = true;
    const FakeProgram program;
    EXPECT_TRUE(RunAndWait(L"C:\\p.exe").HasRun());
    EXPECT_TRUE(shell.jbpMode);
    EXPECT_TRUE(shell.milMode);
}

TEST_F(LockedRun, FailureUnlocksToo) {
    const FakeProgram program;
    FakeProgram::result = 0;
    EXPECT_FALSE(RunAndWait(L"C:\\p.exe").HasRun());
    EXPECT_FALSE(FakeView::locked);
}

TEST_F(LockedRun, FaultUnlocksToo) {
    struct Fault {};
    const FakeProgram program([] { throw Fault{}; });
    EXPECT_THROW(RunAndWait(L"C:\\p.exe"), Fault);
    EXPECT_FALSE(FakeView::locked);
    EXPECT_FALSE(shell.locked);
    EXPECT_FALSE(shell.childRunning);
}

TEST_F(LockedRun, StatusLineSaysWhatIsOpenInWhichProgram) {
    MakeOpen(L"ship.ve2", {kSection, kBulkhead});
    RefreshMainWindow();
    const FakeProgram program;
    const struct {
        const wchar_t* program;
        int32_t model;
        std::string status;
    } cases[] = {
        {L"BsdEdit.exe", kNoModel, "Basic Ship Data is open in BsdEdit."},
        {L"BhdInput.exe", kNoModel, "A new model is open in BhdInput."},
        {L"BhdInput.exe", 2,
         "Bulkhead '" + Narrow(FakeView::rows[1].name) + "' is open in BhdInput."},
    };
    for (const auto& example : cases) {
        Install(example.program);
        ProgramRun run;
        run.program = programs + example.program;
        EXPECT_TRUE(RunProgram(run, example.model));
        EXPECT_EQ(Narrow(FakeProgram::statusLine), example.status + " Close it to go on here.");
    }
}

TEST_F(LockedRun, CurrentDirectoryStays) {
    const std::wstring before = system::CurrentDirectory();
    const FakeProgram program;
    RunAndWait(L"C:\\p.exe");
    EXPECT_EQ(system::CurrentDirectory(), before);
}

// ---- Edit --------------------------------------------------------------------------------------

TEST_F(SectionInput, ProgramOfTheModelsKindIsRun) {
    MakeOpen(L"My ship.ve2", {kSection, kBulkhead, kTorsion});
    const wchar_t* const names[] = {L"SectInput.exe", L"BhdInput.exe", L"TorModel.exe"};
    for (int16_t number = 1; number <= 3; ++number) {
        Install(names[number - 1]);
        shell.database.currentModel = number;
        const FakeProgram program;
        ME_SectionInput_Click();
        ASSERT_EQ(FakeProgram::commandLines.size(), 1U);
        EXPECT_EQ(Narrow(FakeProgram::commandLines[0]), Narrow(programs + names[number - 1]) +
                                                            " \"" + Narrow(File(L"My ship.ve2")) +
                                                            "\" " + std::to_string(number));
        EXPECT_TRUE(
            RecordedReports::Happened("caption " + Narrow(names[number - 1]) + " is running..."));
        EXPECT_EQ(FakeView::selected, number - 1);
        EXPECT_EQ(RecordedReports::caption, L"");
        EXPECT_TRUE(Warnings().empty());
    }
}

TEST_F(SectionInput, ListIsReadAgainAfterTheRun) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"SectInput.exe");
    const FakeProgram program(
        [] { test::Append(shell.database.path, test::ModelText(2, kTorsion)); });
    ME_SectionInput_Click();
    EXPECT_EQ(RecordedReports::Of("rows"), std::vector<std::string>{"2"});
    EXPECT_EQ(shell.database.currentModel, 1);
}

TEST_F(SectionInput, PointerIsBusyUntilTheEnd) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"SectInput.exe");
    const FakeProgram program;
    ME_SectionInput_Click();
    const auto pointers = RecordedReports::Of("pointer");
    ASSERT_FALSE(pointers.empty());
    EXPECT_EQ(pointers.front(), "busy");
    EXPECT_EQ(pointers.back(), "reset");
}

// Runs a command that must not run a program, and reports one thing.
void ExpectNoRun(void (*command)(), std::string_view warning) {
    RecordedReports::events.clear();
    const FakeProgram program;
    command();
    EXPECT_TRUE(FakeProgram::commandLines.empty());
    EXPECT_TRUE(CommandTest::OnlyWarning(warning));
    EXPECT_FALSE(FakeView::locked);
}

// The same of a program that is missing: the report is a question, whether to look for it.
void ExpectOffer(void (*command)(), std::string_view report) {
    RecordedReports::events.clear();
    const FakeProgram program;
    command();
    EXPECT_TRUE(FakeProgram::commandLines.empty());
    const std::vector<std::string> offers = RecordedReports::Of("ask ok");
    ASSERT_EQ(offers.size(), 1U);
    EXPECT_NE(offers[0].find(report), std::string::npos) << offers[0];
    EXPECT_EQ(RecordedReports::Of("ask").size(), 1U);
    EXPECT_TRUE(CommandTest::Warnings().empty());
    EXPECT_TRUE(RecordedReports::Happened("colour red"));
    EXPECT_FALSE(FakeView::locked);
}

TEST_F(SectionInput, NothingHappensWithoutADatabase) {
    const FakeProgram program;
    ME_SectionInput_Click();
    EXPECT_TRUE(FakeProgram::commandLines.empty());
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(SectionInput, MissingProgramIsReportedWithTheFolderToInstallItIn) {
    MakeOpen(L"ship.ve2", {kSection});
    ExpectOffer(ME_SectionInput_Click,
                test::AdvisedText(BoxText(kMsgFileMissing, {programs + L"SectInput.exe"}),
                                  kMsgProgramAdvice, {StripTrailingBackslash(programs)}));
}

TEST_F(SectionInput, MissingProgramThatTheUserFindsIsRunAndItsFolderKept) {
    const test::FreshSettingsFile settingsFile;
    MakeOpen(L"ship.ve2", {kSection});
    const std::wstring found = File(L"found");
    ASSERT_EQ(system::MakeDirectory(found), system::kErrorNone);
    test::WriteFileBytes(found + L"\\SectInput.exe", "");
    FakeView::answerYes = true;
    FakeView::folder = found;
    const FakeProgram program;
    ME_SectionInput_Click();
    EXPECT_EQ(
        RecordedReports::Of("ask folder"),
        std::vector<std::string>{Narrow(FormatMessage(kMsgFolderOfProgram, {L"SectInput.exe"})) +
                                 " [" + Narrow(programs) + "]"});
    ASSERT_EQ(FakeProgram::commandLines.size(), 1U);
    EXPECT_TRUE(FakeProgram::commandLines[0].starts_with(found + L"\\SectInput.exe "));
    EXPECT_EQ(shell.settings.DataDirectory, found + L"\\");
    ShellSettings next;
    ReadSettings(SettingsFile(), next);
    EXPECT_EQ(next.DataDirectory, found + L"\\");
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(SectionInput, FolderWithoutTheMissingProgramIsReportedAndNotKept) {
    MakeOpen(L"ship.ve2", {kSection});
    FakeView::answerYes = true;
    FakeView::folder = folder.path;
    ExpectNoRun(
        ME_SectionInput_Click,
        Narrow(FormatMessage(kMsgProgramNotThere, {L"SectInput.exe", folder.path}).substr(0, 40)));
    EXPECT_EQ(shell.settings.DataDirectory, programs);
    FakeView::folder.clear();
    const FakeProgram program;
    ME_SectionInput_Click();
    EXPECT_TRUE(FakeProgram::commandLines.empty());
    EXPECT_EQ(Warnings().size(), 1U) << "a cancelled prompt is not reported";
    EXPECT_EQ(shell.settings.DataDirectory, programs);
}

TEST_F(SectionInput, ProgramFolderThatIsNoFullPathIsRefused) {
    MakeOpen(L"ship.ve2", {kSection});
    ASSERT_EQ(system::SetCurrentTo(folder.path), system::kErrorNone);
    Install(L"SectInput.exe");
    Install(L"BsdEdit.exe");
    for (const wchar_t* const data : {L"Velk data\\", L".\\Velk data\\"}) {
        shell.settings.DataDirectory = data;
        for (void (*command)() : {ME_SectionInput_Click, ME_SectionNew_Click, ME_FileBSD_Click}) {
            ExpectOffer(command, Narrow(StripTrailingBackslash(data)) + "', is not a full path.");
        }
    }
}

TEST_F(SectionInput, FolderInThePlaceOfTheProgramIsReported) {
    MakeOpen(L"ship.ve2", {kSection});
    ASSERT_EQ(system::MakeDirectory(programs + L"SectInput.exe"), system::kErrorNone);
    ExpectOffer(ME_SectionInput_Click, "SectInput.exe' cannot be opened");
}

// ---- Rule --------------------------------------------------------------------------------------

TEST_F(SectionRule, ProgramOfKindAndRuleSetIsRun) {
    MakeOpen(L"ship.ve2", {kSection, kBulkhead, kTorsion});
    struct {
        RuleSet ruleSet;
        int16_t number;
        const wchar_t* program;
        const char* switches;
    } const cases[] = {
        {RuleSet::kQuor, 1, L"SectRule.exe", ""},     {RuleSet::kCsr, 1, L"CsrCheck.exe", "/JBP "},
        {RuleSet::kMil, 1, L"SectRule.exe", "/mil "}, {RuleSet::kQuor, 2, L"BhdCheck.exe", ""},
        {RuleSet::kCsr, 2, L"BhdCheck.exe", "/JBP "}, {RuleSet::kMil, 2, L"BhdCheck.exe", "/mil "},
        {RuleSet::kQuor, 3, L"TorModel.exe", ""},     {RuleSet::kCsr, 3, L"TorModel.exe", "/JBP "},
        {RuleSet::kMil, 3, L"TorModel.exe", "/mil "}};
    for (const auto& [ruleSet, number, name, switches] : cases) {
        RuleSetChosen(ruleSet);
        Install(name);
        shell.database.currentModel = number;
        const FakeProgram program;
        ME_SectionVelkRule_Click();
        ASSERT_EQ(FakeProgram::commandLines.size(), 1U);
        EXPECT_EQ(Narrow(FakeProgram::commandLines[0]), Narrow(programs + name) + " " + switches +
                                                            "\"" + Narrow(File(L"ship.ve2")) +
                                                            "\" " + std::to_string(number));
        EXPECT_TRUE(RecordedReports::Happened("caption " + Narrow(name) + " is running..."));
        EXPECT_EQ(RecordedReports::caption, L"");
        KillFile(programs + name);
    }
    EXPECT_TRUE(Warnings().empty());
}

// ---- Edit and Rule: what is refused ------------------------------------------------------------

struct RunCase {
    void (*command)();
    std::wstring (*program)(ModelKind kind);
};

// A section is open, and both programs are there.
struct RunOnModel : CommandTest, testing::WithParamInterface<RunCase> {
    RunOnModel() {
        MakeOpen(L"ship.ve2", {kSection, kBulkhead, kTorsion});
        Install(L"SectInput.exe");
        Install(L"SectRule.exe");
    }
};
INSTANTIATE_TEST_SUITE_P(Commands, RunOnModel,
                         testing::Values(RunCase{ME_SectionInput_Click, InputProgramPath},
                                         RunCase{ME_SectionVelkRule_Click, RuleProgramPath}));

TEST_P(RunOnModel, MissingDatabaseIsReportedWithItsPathBeforeTheModel) {
    KillFile(File(L"ship.ve2"));
    shell.database.currentModel = 0;
    ExpectNoRun(GetParam().command, "'" + Narrow(File(L"ship.ve2")) + "' cannot be opened");
}

TEST_P(RunOnModel, ModelThatTheDatabaseLacksIsReportedWithNumberAndPath) {
    for (const int32_t number : {0, -1, 4}) {
        shell.database.currentModel = number;
        ExpectNoRun(GetParam().command, "There is no model " + std::to_string(number) +
                                            " in the database '" + Narrow(File(L"ship.ve2")));
    }
}

TEST_P(RunOnModel, InvalidDataAreReported) {
    for (const int item : {1, 2, 3, 9}) {
        const float before = std::exchange(shell.database.bsd.MainData(item), 0.0f);
        ExpectNoRun(GetParam().command, "Please input valid BSD first");
        shell.database.bsd.MainData(item) = before;
    }
}

TEST_P(RunOnModel, MissingProgramIsReportedWithItsPath) {
    shell.jbpMode = true;
    KillFile(programs + L"SectInput.exe");
    for (const ModelKind kind : {kSection, kBulkhead, kTorsion}) {
        shell.database.currentModel = static_cast<int32_t>(kind) + 1;
        ExpectOffer(GetParam().command,
                    "'" + Narrow(GetParam().program(kind)) + "' cannot be opened");
    }
}

// ---- Create ------------------------------------------------------------------------------------

struct CreateCase {
    void (*command)();
    ModelKind kind;
    const wchar_t* program;
};
const CreateCase kCreates[] = {{ME_SectionNew_Click, kSection, L"SectInput.exe"},
                               {ME_NewBulkhead_Click, kBulkhead, L"BhdInput.exe"},
                               {ME_NewTorsion_Click, kTorsion, L"TorModel.exe"}};

// What the state was while the program ran.
int32_t currentModelInRun;
bool suppressListEventsInRun;

void NoteState() {
    currentModelInRun = shell.database.currentModel;
    suppressListEventsInRun = shell.suppressListEvents;
}

TEST_F(CreateModel, InputProgramOfTheKindGetsNoModelNumber) {
    MakeOpen(L"ship.ve2", {kTorsion, kSection});
    shell.debugMode = true;
    for (const CreateCase& create : kCreates) {
        Install(create.program);
        const FakeProgram program(NoteState);
        create.command();
        ASSERT_EQ(FakeProgram::commandLines.size(), 1U);
        EXPECT_EQ(Narrow(FakeProgram::commandLines[0]),
                  Narrow(programs + create.program) + " /d \"" + Narrow(File(L"ship.ve2")) + "\"");
        EXPECT_EQ(currentModelInRun, 1) << "the selected model stays the current one";
        EXPECT_TRUE(suppressListEventsInRun);
        EXPECT_FALSE(shell.suppressListEvents);
    }
}

TEST_F(CreateModel, NewLastModelBecomesTheCurrentOne) {
    MakeOpen(L"ship.ve2", {kSection, kSection, kSection});
    Install(L"BhdInput.exe");
    const FakeProgram program(
        [] { test::Append(shell.database.path, test::ModelText(4, kBulkhead)); });
    ME_NewBulkhead_Click();
    EXPECT_EQ(shell.database.currentModel, 4);
    EXPECT_EQ(RecordedReports::Of("rows"), std::vector<std::string>{"4"});
    EXPECT_EQ(FakeView::selected, 3);
}

TEST_F(CreateModel, FirstModelBecomesTheCurrentOne) {
    MakeOpen(L"ship.ve2");
    Install(L"SectInput.exe");
    const FakeProgram program(
        [] { test::Append(shell.database.path, test::ModelText(1, kSection)); });
    ME_SectionNew_Click();
    EXPECT_EQ(shell.database.currentModel, 1);
    EXPECT_EQ(FakeView::selected, 0);
}

TEST_F(CreateModel, ModelBeforeStaysCurrentWhenNoneWasMade) {
    MakeOpen(L"ship.ve2", {kSection, kSection, kSection});
    Install(L"TorModel.exe");
    shell.database.currentModel = 2;
    const FakeProgram program;
    ME_NewTorsion_Click();
    EXPECT_EQ(shell.database.currentModel, 2);
    EXPECT_EQ(FakeView::selected, 1);
}

TEST_F(CreateModel, ModelBeforeStaysCurrentWhenNothingIsRun) {
    MakeOpen(L"ship.ve2", {kSection, kSection});
    shell.database.currentModel = 2;
    for (const CreateCase& create : kCreates) {
        ExpectOffer(create.command, "'" + Narrow(programs + create.program) + "' cannot be");
        EXPECT_EQ(shell.database.currentModel, 2);
        EXPECT_FALSE(shell.suppressListEvents);
    }
    shell.database.bsd = BasicShipData();
    ExpectNoRun(ME_SectionNew_Click, "Please input valid BSD first");
    EXPECT_EQ(shell.database.currentModel, 2);
    KillFile(File(L"ship.ve2"));
    ExpectNoRun(ME_SectionNew_Click, "ship.ve2' cannot be opened");
    EXPECT_EQ(shell.database.currentModel, 2);
}

// ---- What a program can do to the file ----------------------------------------------------------

TEST_F(DamagingProgram, ThatCannotBeStartedIsReported) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"SectInput.exe");
    const FakeProgram program;
    FakeProgram::result = 0;
    ME_SectionInput_Click();
    EXPECT_TRUE(OnlyWarning("The program '" + Narrow(programs) +
                            "SectInput.exe' could not be started:\r" +
                            Narrow(system::ErrorText(system::kErrorFileNotFound))));
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 1);
    EXPECT_EQ(RecordedReports::caption, L"");
}

TEST_F(DamagingProgram, ThatCrashesIsReportedAndTheListIsRight) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"SectInput.exe");
    const FakeProgram program(
        [] { test::Append(shell.database.path, test::ModelText(2, kSection)); });
    FakeProgram::result = kProgramCrashed;
    ME_SectionInput_Click();
    EXPECT_TRUE(OnlyWarning("SectInput.exe stopped working."));
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 2);
}

TEST_F(DamagingProgram, ThatDeletesTheDatabaseIsReported) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"SectInput.exe");
    const FakeProgram program([] { KillFile(shell.database.path); });
    ME_SectionInput_Click();
    EXPECT_TRUE(OnlyWarning("The database '" + Narrow(File(L"ship.ve2")) + "' has been missing"));
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 0);
    EXPECT_TRUE(RecordedReports::Happened("clear preview"));
    // The shell continues: what follows is reported, and nothing runs.
    ExpectNoRun(ME_SectionInput_Click, "ship.ve2' cannot be opened");
    ExpectNoRun(ME_SectionNew_Click, "ship.ve2' cannot be opened");
}

TEST_F(DamagingProgram, ThatOverwritesTheDatabaseIsReported) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"SectRule.exe");
    const FakeProgram program([] { test::WriteFileBytes(shell.database.path, "no database"); });
    ME_SectionVelkRule_Click();
    EXPECT_TRUE(OnlyWarning("The file '" + Narrow(File(L"ship.ve2")) +
                            "' is no longer a Corvane database since SectRule.exe ran."));
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 0);
}

TEST_F(DamagingProgram, ThatEmptiesTheDatabaseInCreateIsReported) {
    MakeOpen(L"ship.ve2", {kSection, kSection});
    Install(L"SectInput.exe");
    shell.database.currentModel = 2;
    const FakeProgram program([] { test::WriteFileBytes(shell.database.path, ""); });
    ME_SectionNew_Click();
    EXPECT_TRUE(OnlyWarning("' is no longer a Corvane database"));
    EXPECT_EQ(shell.database.currentModel, 2);
    EXPECT_EQ(FakeView::selected, -1);
}

TEST_F(DamagingProgram, ThatLeavesTheDatabaseReadOnlyIsReported) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"SectInput.exe");
    const FakeProgram program([] { (void)system::SetReadOnly(shell.database.path, true); });
    ME_SectionInput_Click();
    EXPECT_TRUE(OnlyWarning("ship.ve2' is read-only"));
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 1);
    // It was so before the next run: there is nothing new to report.
    RecordedReports::events.clear();
    ME_SectionInput_Click();
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(DamagingProgram, ThatCutsTheDatabaseOffLeavesWhatCanBeRead) {
    MakeOpen(L"ship.ve2", {kSection, kSection, kSection});
    Install(L"SectInput.exe");
    const FakeProgram program([] {
        const std::string bytes = test::ReadFileBytes(shell.database.path);
        test::WriteFileBytes(shell.database.path, bytes.substr(0, bytes.size() * 4 / 5));
    });
    ME_SectionInput_Click();
    EXPECT_GE(static_cast<int>(FakeView::rows.size()), 1);
    EXPECT_LT(static_cast<int>(FakeView::rows.size()), 4);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(DamagingProgram, PathThatCannotBePassedOnIsReported) {
    const std::wstring path = File(L"\u03A9mega.ve2");
    ASSERT_EQ(system::CopyBytes(Make(L"ship.ve2", {kSection}), path, false), system::kErrorNone);
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"SectInput.exe");
    shell.database.path = path;
    ExpectNoRun(ME_SectionInput_Click, "The program SectInput.exe cannot be run on");
}

TEST_F(DamagingProgram, FailureToStartIsTheDebugReportToo) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"SectInput.exe");
    shell.debugMode = true;
    const FakeProgram program;
    FakeProgram::result = 0;
    ME_SectionInput_Click();
    const auto plain = RecordedReports::Of("plain");
    ASSERT_EQ(plain.size(), 1U);
    EXPECT_EQ(plain[0].find("ExShell (" + Narrow(FakeProgram::commandLines.at(0)) + ") "), 0U);
}

}  // namespace
}  // namespace corvane
