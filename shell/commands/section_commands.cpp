#include "shell/commands/section_commands.h"

#include <limits>
#include <string>

#include "database/editing.h"
#include "database/scanning.h"
#include "files/paths.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/exchange_boxes.h"
#include "shell/file_prompt.h"
#include "shell/model_exchange.h"
#include "shell/running_mark.h"
#include "shell/state.h"
#include "shell/suite_programs.h"
#include "text/text.h"

namespace corvane {
namespace {

void ReportMissingModel() {
    ReportMessage(kMsgModelMissing, {int32_t{shell.database.currentModel}, shell.database.path},
                  BoxText(kMsgModelGoneAdvice));
    RefreshMainWindow();
}

bool RequireKindOfCurrentModel(ModelKind& kind) {
    TextReader reader;
    std::string keyword;
    if (!OpenText(reader, shell.database.path) ||
        !FindModel(reader, shell.database.currentModel, keyword)) {
        ReportMissingModel();
        return false;
    }
    kind = KindOfKeyword(keyword);
    return true;
}

// Runs the program that `programPath` gives for the current model's kind.
void RunOnCurrentModel(std::wstring (*programPath)(ModelKind kind)) {
    ModelKind kind = ModelKind::kSection;
    if (!RequireReadyForModels() || !RequireKindOfCurrentModel(kind)) return;
    ProgramRun run;
    run.program = programPath(kind);
    if (RunProgram(run, shell.database.currentModel)) ShowAfterRun(run);
}

void CopyCurrentModel(const ModelEntry& model, const std::wstring& name) {
    SetBusyPointer();
    std::wstring path = shell.database.path;
    const int32_t copy = CopyModel(
        path, {shell.database.currentModel, model.kind, name, {true, AskForWritableDatabase}});
    if (copy != 0) {
        if (path != shell.database.path) ContinueInWritableFile(path);
        // The list has no row for a number beyond 16 bits.
        if (copy <= std::numeric_limits<int16_t>::max()) {
            SetCurrentModel(static_cast<int16_t>(copy));
        }
        RefreshMainWindow();
    }
    ResetMousePointer();
}

bool KeepsBackupOnRemoval() {
    return shell.settings.IntegerSetting != 0;
}

std::wstring RemovalQuestion(const ModelEntry& model) {
    const std::wstring& path = shell.database.path;
    return WithAdvice(L"Are you sure to remove " + KindName(model.kind) + L' ' + model.name +
                          L" from " + path + L" ?",
                      KeepsBackupOnRemoval()
                          ? BoxText(kMsgBackupKept, {FileNameOf(BackupPath(path))})
                          : BoxText(kMsgNoBackupKept));
}

void RemoveCurrentModel() {
    SetBusyPointer();
    const bool keepBackup = KeepsBackupOnRemoval();
    if (DeleteModel(shell.database.path, shell.database.currentModel, keepBackup)) {
        DeselectModel();
        RefreshMainWindow();
    }
    ResetMousePointer();
}

}  // namespace

void ME_SectionInput_Click() {
    RunOnCurrentModel(InputProgramPath);
}

void ME_SectionVelkRule_Click() {
    if (!RequireDatabase()) return;
    if (shell.database.currentModel < 1) return ReportMissingModel();
    RunOnCurrentModel(RuleProgramPath);
}

void ME_SectionCopy_Click() {
    ModelEntry model;
    if (!RequireCurrentModel(model) || !ConfirmEdit()) return;
    std::wstring name = L"Copy of " + model.name;
    const std::wstring caption =
        MenuCaptionText(FindCommand(ME_SectionCopy)->caption) + L' ' + KindName(model.kind);
    if (!shell.view.askText(caption, L"Input the name of the copy", name)) return;
    name = Trim(name);
    if (name.empty()) return;
    if (!RequireUnchanged(model)) return RefreshMainWindow();
    CopyCurrentModel(model, name);
}

void ME_SectionRemove_Click() {
    ModelEntry model;
    if (!RequireCurrentModel(model) || !RequireWritableDatabase() || !ConfirmEdit()) return;
    if (!shell.view.askIrreversible(RemovalQuestion(model))) return;
    if (!RequireUnchanged(model)) return RefreshMainWindow();
    RemoveCurrentModel();
}

void ME_SectionImport_Click() {
    if (!RequireDatabase() || !ConfirmEdit()) return;
    ImportChoice choice;
    if (!shell.view.askImport(choice)) return;
    shell.settings.BrowseDirectory = DirectoryOf(choice.path);
    if (!RequireOtherFile(choice.path)) return;
    SetBusyPointer();
    ImportModels(choice);
    ResetMousePointer();
}

void ME_SectionExport_Click() {
    ModelEntry model;
    if (!RequireCurrentModel(model)) return;
    if (model.kind != ModelKind::kSection) {
        return ReportMessage(kMsgOnlySections, {KindName(model.kind), model.name});
    }
    ExportChoice choice;
    choice.name = model.name;
    if (!shell.view.askExport(choice)) return;
    shell.settings.BrowseDirectory = DirectoryOf(choice.path);
    if (!RequireOtherFile(choice.path)) return;
    if (!RequireUnchanged(model)) return RefreshMainWindow();
    SetBusyPointer();
    ExportCurrentSection(choice);
    ResetMousePointer();
}

}  // namespace corvane
