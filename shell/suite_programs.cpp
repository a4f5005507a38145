#include "shell/suite_programs.h"

#include <algorithm>

#include "bsd/basic_ship_data.h"
#include "database/model_kind.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/model_list.h"
#include "shell/rule_set.h"
#include "shell/running_mark.h"
#include "shell/settings_choice.h"
#include "shell/state.h"

namespace corvane {
namespace {

// The programs show themselves as they like.
constexpr int16_t kWindowStyle = 0;

std::wstring ProgramPath(const ProgramFile& program) {
    return shell.settings.DataDirectory + ProgramFileName(program);
}

system::FileStatus DatabaseStatus() {
    system::FileStatus status;
    system::GetFileStatus(shell.database.path, status);
    return status;
}

// What a run works on, as a sentence begins: a model by its kind and name.
std::wstring WorkOf(const ProgramRun& run, int32_t model) {
    const auto& rows = shell.database.rows;
    const auto row = std::ranges::find(rows, model, &ModelRow::tag);
    if (row != rows.end()) return KindName(row->kind) + L" '" + row->name + L"'";
    const bool isBsd = run.program == BsdProgramPath();
    return GetMessage(isBsd ? kMsgBasicShipData : kMsgNewModel);
}

RunResult RunLocked(const std::wstring& commandLine) {
    const ShellLock lock;
    reportView.processPendingMessages();
    return RunAndWait(commandLine, kWindowStyle, shell.childRunning);
}

// Reports that a program is missing, and asks whether the user wants to look for it.
bool ConfirmLooking(const std::wstring& report) {
    ResetMousePointer();
    ReportSilent(L"¤", {report});
    return shell.view.askOkCancel(WithAdvice(report, BoxText(kMsgLookForProgram)));
}

// The user names the folder that has the program. False when he cancels, and when it is not there,
// which is reported.
bool LookForProgram(std::wstring& program) {
    const std::wstring name = FileNameOf(program);
    std::wstring folder = shell.settings.DataDirectory;
    if (!shell.view.askFolder(FormatMessage(kMsgFolderOfProgram, {name}), folder)) return false;
    const std::wstring found = WithTrailingBackslash(folder) + name;
    if (!FileExists(found)) {
        ReportMessage(kMsgProgramNotThere, {name, folder});
        return false;
    }
    KeepProgramsFolder(folder);
    program = found;
    return true;
}

// A folder without its drive would be one beside whatever directory is the current one.
bool RequireProgram(std::wstring& program) {
    const std::wstring folder = StripTrailingBackslash(shell.settings.DataDirectory);
    const bool isFull = IsFullPath(shell.settings.DataDirectory);
    if (isFull && FileExists(program)) return true;
    const std::wstring report = isFull ? WithAdvice(BoxText(kMsgFileMissing, {program}),
                                                    BoxText(kMsgProgramAdvice, {folder}))
                                       : BoxText(kMsgDataDirectoryRefused, {folder});
    return ConfirmLooking(report) && LookForProgram(program);
}

}  // namespace

std::wstring InputProgramPath(ModelKind kind) {
    return ProgramPath(FactsOf(kind).inputProgram);
}

std::wstring RuleProgramPath(ModelKind kind) {
    return ProgramPath(shell.jbpMode ? FactsOf(kind).csrProgram : FactsOf(kind).ruleProgram);
}

std::wstring BsdProgramPath() {
    return ProgramPath({nullptr, kMsgBsdProgram});
}

std::vector<std::wstring> SuitePrograms() {
    std::vector<std::wstring> programs{FileNameOf(BsdProgramPath())};
    for (const KindFacts& kind : Kinds()) {
        for (const ProgramFile* program :
             {&kind.inputProgram, &kind.ruleProgram, &kind.csrProgram}) {
            const std::wstring name = ProgramFileName(*program);
            if (std::ranges::find(programs, name) == programs.end()) programs.push_back(name);
        }
    }
    return programs;
}

std::wstring SwitchString() {
    std::wstring switches;
    if (shell.debugMode) switches += L"/d ";
    if (shell.milMode) switches += L"/mil ";
    if (shell.jbpMode) switches += L"/JBP ";
    return switches;
}

std::wstring CommandLine(const std::wstring& program, int32_t model) {
    const std::wstring line = program + L" " + SwitchString() + L"\"" + shell.database.path + L"\"";
    return model >= 1 ? line + L" " + std::to_wstring(model) : line;
}

RunResult RunAndWait(const std::wstring& commandLine) {
    const int rule = shell.view.selectedRule();
    const RunResult result = RunLocked(commandLine);
    if (shell.view.selectedRule() != rule) {
        shell.view.selectRule(rule);
        RuleSetChosen(static_cast<RuleSet>(rule));
    }
    return result;
}

bool RequireReadyForModels() {
    if (!RequireDatabase()) return false;
    const bool isDefined = IsBsdDefined(shell.database.bsd);
    if (!isDefined) {
        ShowWarning(WithAdvice(L"Please input valid BSD first", BoxText(kMsgInvalidDataAdvice)));
    }
    return isDefined;
}

bool RunProgram(ProgramRun& run, int32_t model) {
    SetBusyPointer();
    if (!RequireProgram(run.program)) return false;
    const std::wstring commandLine = CommandLine(run.program, model);
    if (system::WideFromAnsi(system::AnsiFromWide(commandLine)) != commandLine) {
        ReportMessage(kMsgPathNotPassedOn, {FileNameOf(run.program), shell.database.path});
        return false;
    }
    ReportStatus(kMsgStartingProgram, {FileNameOf(run.program)});
    ShowNote(FormatMessage(kMsgOpenInProgram,
                           {WorkOf(run, model), StripExtension(FileNameOf(run.program))}));
    const system::FileStatus status = DatabaseStatus();
    run.wasDatabase = IsDatabaseFile(shell.database.path);
    run.wasReadOnly = status.isReadOnly;
    run.kept = KeepBeforeRun(FormatMessage(
        kMsgChangesBy, {StripExtension(FileNameOf(run.program)), WorkOf(run, model)}));
    if (run.kept.error == system::kErrorCancelled) {
        ReportNote(kMsgCancelled, {shell.database.path});
        return false;
    }
    run.modified = DatabaseStatus().modified;
    WriteRunningMark(run.program, shell.database.path);
    run.result = RunAndWait(commandLine);
    RemoveRunningMark();
    NoteAfterRun(run.kept);
    return true;
}

bool HasDatabaseChanged(const ProgramRun& run) {
    const system::FileStatus status = DatabaseStatus();
    return !status.exists || status.modified != run.modified;
}

void ShowAfterRun(const ProgramRun& run) {
    RefreshMainWindow();
    ShowStatus(L"");
    ReportRun(run);
}

void ReportRun(const ProgramRun& run) {
    const std::wstring name = FileNameOf(run.program);
    const std::wstring& path = shell.database.path;
    if (!run.result.HasRun()) {
        ReportMessage(kMsgProgramNotStarted, {run.program, SystemError{run.result.error}});
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
    ReportKept(run.kept.error);
}

}  // namespace corvane
