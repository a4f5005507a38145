#include "shell/suite_programs.h"

#include <algorithm>
#include <limits>

#include "database/database_file.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "files/text_file.h"
#include "platform/system.h"
#include "report/messages.h"
#include "shell/commands/file_commands.h"
#include "shell/state.h"
#include "shell/window_contents.h"

namespace corvane {
namespace {

// The programs show themselves as they like.
constexpr int16_t kWindowStyle = 0;

std::wstring ProgramPath(const std::wstring& fileName) {
    return shell.settings.DataDirectory + fileName;
}

// What every command line begins with.
std::wstring CommandLine(const std::wstring& program) {
    return program + L" " + SwitchString() + L"\"" + shell.settings.DatabasePath + L"\"";
}

std::wstring CurrentModelText() {
    return L" " + std::to_wstring(shell.currentModel);
}

system::FileStatus DatabaseStatus() {
    system::FileStatus status;
    system::GetFileStatus(shell.settings.DatabasePath, status);
    return status;
}

// The kind of the current model; of one that is being created, the kind that its number tells.
// False when the database has no such model.
bool KindOfCurrentModel(ModelKind& kind) {
    if (shell.currentModel < 1) {
        kind = static_cast<ModelKind>(-shell.currentModel);
        return true;
    }
    TextReader reader;
    std::string keyword;
    if (!OpenText(reader, shell.settings.DatabasePath) ||
        !FindModel(reader, shell.currentModel, keyword)) {
        return false;
    }
    kind = KindOfKeyword(keyword);
    return true;
}

void ReportMissingModel() {
    ReportMessage(kMsgModelMissing, {int32_t{shell.currentModel}, shell.settings.DatabasePath});
}

// What a command on a model asks for; `kind` gets the model's.
bool IsReady(ModelKind& kind) {
    if (!IsDatabaseThere()) return false;
    if (!IsBsdDefined(shell.bsd)) {
        ShowWarning(L"Please input valid BSD first");
        return false;
    }
    if (!KindOfCurrentModel(kind)) {
        ReportMissingModel();
        return false;
    }
    SetBusyPointer();
    return true;
}

void ShowAfterRun(const ProgramRun& run) {
    RefreshMainWindow();
    ShowStatus(L"");
    ReportRun(run);
}

// Runs the input program of the current model's kind.
bool RunInputProgram(ProgramRun& run) {
    ModelKind kind = ModelKind::kSection;
    if (!IsReady(kind)) return false;
    run.program = InputProgramPath(kind);
    run.commandLine = EditCommandLine(run.program);
    return RunProgram(run);
}

// Model numbers are 16-bit.
int16_t ModelCount() {
    constexpr int kMost = std::numeric_limits<int16_t>::max();
    return static_cast<int16_t>(std::min(CountModels(shell.settings.DatabasePath), kMost));
}

void Create(ModelKind kind) {
    const int16_t before = shell.currentModel;
    const int16_t count = ModelCount();
    shell.suppressListEvents = true;
    shell.currentModel = static_cast<int16_t>(-static_cast<int16_t>(kind));
    ProgramRun run;
    const bool wasTried = RunInputProgram(run);
    shell.suppressListEvents = false;
    const int16_t countAfter = ModelCount();
    shell.currentModel = countAfter > count ? countAfter : before;
    if (wasTried) ShowAfterRun(run);
}

}  // namespace

std::wstring InputProgramPath(ModelKind kind) {
    switch (kind) {
        case ModelKind::kBulkhead:
            return ProgramPath(L"BhdInput.exe");
        case ModelKind::kTorsion:
            return ProgramPath(L"TorModel.exe");
        case ModelKind::kSection:
            break;
    }
    return ProgramPath(GetMessage(kMsgSectionProgram));
}

std::wstring RuleProgramPath(ModelKind kind) {
    switch (kind) {
        case ModelKind::kBulkhead:
            return ProgramPath(L"BhdCheck.exe");
        case ModelKind::kTorsion:
            return ProgramPath(L"TorModel.exe");
        case ModelKind::kSection:
            break;
    }
    return ProgramPath(shell.jbpMode ? L"CsrCheck.exe" : GetMessage(kMsgRuleProgram));
}

std::wstring BsdProgramPath() {
    return ProgramPath(GetMessage(kMsgBsdProgram));
}

std::wstring SwitchString() {
    std::wstring switches;
    if (shell.debugMode) switches += L"/d ";
    if (shell.milMode) switches += L"/mil ";
    if (shell.jbpMode) switches += L"/JBP ";
    return switches;
}

std::wstring EditCommandLine(const std::wstring& program) {
    const std::wstring commandLine = CommandLine(program);
    return shell.currentModel >= 1 ? commandLine + CurrentModelText() : commandLine;
}

std::wstring RuleCommandLine(const std::wstring& program) {
    return CommandLine(program) + CurrentModelText();
}

std::wstring BsdCommandLine(const std::wstring& program) {
    return CommandLine(program);
}

RunResult RunAndWait(const std::wstring& commandLine) {
    const int rule = shell.mainWindow->selectedRule();
    LockShell(true);
    shell.screen.processPendingMessages();
    const RunResult result = RunAndWait(commandLine, kWindowStyle);
    LockShell(false);
    if (shell.mainWindow->selectedRule() != rule) {
        shell.mainWindow->selectRule(rule);
        RuleSetChosen(static_cast<RuleSet>(rule));
    }
    return result;
}

bool RunProgram(ProgramRun& run) {
    if (!FileExists(run.program)) {
        ReportMessage(kMsgFileMissing, {run.program});
        return false;
    }
    if (system::WideFromAnsi(system::AnsiFromWide(run.commandLine)) != run.commandLine) {
        ReportMessage(kMsgPathNotTold, {FileNameOf(run.program), shell.settings.DatabasePath});
        return false;
    }
    ReportStatus(kMsgStartingProgram, {FileNameOf(run.program)});
    const system::FileStatus status = DatabaseStatus();
    run.wasDatabase = IsDatabaseFile(shell.settings.DatabasePath);
    run.wasReadOnly = status.isReadOnly;
    run.modified = status.modified;
    run.result = RunAndWait(run.commandLine);
    return true;
}

bool HasDatabaseChanged(const ProgramRun& run) {
    const system::FileStatus status = DatabaseStatus();
    return !status.exists || status.modified != run.modified;
}

void ReportRun(const ProgramRun& run) {
    const std::wstring name = FileNameOf(run.program);
    const std::wstring& path = shell.settings.DatabasePath;
    if (!run.result.HasRun()) {
        ReportMessage(kMsgProgramNotStarted, {run.program, system::ErrorText(run.result.error)});
        return;
    }
    if (run.result.crashed) ReportMessage(kMsgProgramCrashed, {name});
    if (!FileExists(path)) {
        ReportMessage(kMsgDatabaseGone, {path, name});
    } else if (run.wasDatabase && !IsDatabaseFile(path)) {
        ReportMessage(kMsgDatabaseDamaged, {path, name});
    } else if (!run.wasReadOnly && DatabaseStatus().isReadOnly) {
        ReportMessage(kMsgReadOnly, {path});
    }
}

void ME_SectionInput_Click() {
    ProgramRun run;
    if (RunInputProgram(run)) ShowAfterRun(run);
}

void ME_SectionVelkRule_Click() {
    if (!IsDatabaseThere()) return;
    if (shell.currentModel < 1) return ReportMissingModel();
    ModelKind kind = ModelKind::kSection;
    if (!IsReady(kind)) return;
    ProgramRun run;
    run.program = RuleProgramPath(kind);
    run.commandLine = RuleCommandLine(run.program);
    if (RunProgram(run)) ShowAfterRun(run);
}

void ME_SectionNew_Click() {
    Create(ModelKind::kSection);
}

void ME_NewBulkhead_Click() {
    Create(ModelKind::kBulkhead);
}

void ME_NewTorsion_Click() {
    Create(ModelKind::kTorsion);
}

}  // namespace corvane
