#include "shell/commands/section_commands.h"

#include <string>

#include "database/editing.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/commands/several_models.h"
#include "shell/copy_losses.h"
#include "shell/edit_history.h"
#include "shell/exchange_boxes.h"
#include "shell/file_prompt.h"
#include "shell/model_exchange.h"
#include "shell/model_properties.h"
#include "shell/running_mark.h"
#include "shell/state.h"
#include "shell/suite_programs.h"
#include "text/text.h"

namespace corvane {
namespace {

void RunOnModel(const std::wstring& program, const ModelEntry& model) {
    ProgramRun run;
    run.program = program;
    if (RunProgram(run, model.number)) ShowAfterRun(run);
}

void CopyCurrentModel(const ModelEntry& model, const std::wstring& name) {
    SetBusyPointer();
    const EditName edit(FormatMessage(kMsgCopyOf, {model.name}));
    std::wstring path = shell.database.path;
    CopyLosses losses{path};
    const BlockNumbers listed = ListedBlocks();
    const ModelCopy toCopy{
        shell.database.currentModel, model.kind, name, {true, AskForWritableDatabase, &listed}};
    const int32_t copy =
        FindCopyLosses(losses, PlaceOf(model)) ? CopyModel(path, toCopy) : int32_t{0};
    if (copy != 0) {
        if (path != shell.database.path) ContinueInWritableFile(path);
        SetCurrentModel(copy);
        RefreshMainWindow();
    }
    ResetMousePointer();
    if (copy != 0) ShowCopyLosses(losses, ME_SectionCopy);
}

void RenameCurrentModel(const ModelEntry& model, const std::wstring& name) {
    SetBusyPointer();
    const EditName edit(FormatMessage(kMsgRenameOf, {model.name}));
    std::wstring path = shell.database.path;
    const BlockNumbers listed = ListedBlocks();
    if (RenameModel(path,
                    {model.number, model.name, name, {true, AskForWritableDatabase, &listed}})) {
        if (path != shell.database.path) ContinueInWritableFile(path);
        RefreshMainWindow();
    }
    ResetMousePointer();
}

// The caption of a box about a model: the command's, and the kind.
std::wstring CaptionFor(uint16_t command, const ModelEntry& model) {
    return MenuCaptionText(FindCommand(command)->caption) + L' ' + KindName(model.kind);
}

std::wstring RemovalQuestion(const ModelEntry& model) {
    return WithAdvice(L"Are you sure to remove " + KindName(model.kind) + L' ' + model.name +
                          L" from " + shell.database.path + L" ?",
                      BackupAdvice());
}

void RemoveCurrentModel(const ModelEntry& model) {
    SetBusyPointer();
    const EditName edit(FormatMessage(kMsgDeleteOf, {model.name}));
    const bool keepBackup = KeepsBackupOnRemoval();
    const BlockNumbers listed = ListedBlocks();
    if (DeleteModels(shell.database.path, {shell.database.currentModel}, keepBackup, &listed)) {
        DeselectModel();
        RefreshMainWindow();
    }
    ResetMousePointer();
}

}  // namespace

bool KeepsBackupOnRemoval() {
    return shell.settings.IntegerSetting != 0;
}

std::wstring BackupAdvice() {
    if (!KeepsBackupOnRemoval()) return BoxText(kMsgNoBackupKept);
    return BoxText(kMsgBackupKept, {FileNameOf(BackupPath(shell.database.path))});
}

void ME_SectionInput_Click() {
    ModelEntry model;
    if (!RequireReadyForModels() || !RequireCurrentModel(model)) return;
    RunOnModel(InputProgramPath(model.kind), model);
}

void ME_SectionVelkRule_Click() {
    ModelEntry model;
    if (!RequireCurrentModel(model) || !RequireReadyForModels()) return;
    RunOnModel(RuleProgramPath(model.kind), model);
}

void ME_SectionCopy_Click() {
    if (AreSeveralSelected()) return CopySelectedModels();
    ModelEntry model;
    if (!RequireCurrentModel(model) || !ConfirmEdit()) return;
    std::wstring name = L"Copy of " + model.name;
    const std::wstring caption = CaptionFor(ME_SectionCopy, model);
    if (!shell.view.askText(caption, L"Input the name of the copy", name)) return;
    name = Trim(name);
    if (name.empty()) return;
    if (!RequireUnchanged(model)) return RefreshMainWindow();
    CopyCurrentModel(model, name);
}

void ME_SectionRename_Click() {
    ModelEntry model;
    if (!RequireCurrentModel(model) || !ConfirmEdit()) return;
    std::wstring name = model.name;
    const std::wstring caption = CaptionFor(ME_SectionRename, model);
    if (!shell.view.askText(caption, GetMessage(kMsgNewNameQuestion), name)) return;
    name = Trim(name);
    if (name.empty() || name == model.name) return;
    if (!RequireUnchanged(model)) return RefreshMainWindow();
    RenameCurrentModel(model, name);
}

void ME_SectionProperties_Click() {
    ModelEntry model;
    std::wstring text;
    if (!RequireCurrentModel(model) || !ReadProperties(model, text)) return;
    shell.view.showProperties(CaptionFor(ME_SectionProperties, model), text);
}

void ME_SectionRemove_Click() {
    if (AreSeveralSelected()) return DeleteSelectedModels();
    ModelEntry model;
    if (!RequireCurrentModel(model) || !RequireWritableDatabase() || !ConfirmEdit()) return;
    if (!shell.view.askIrreversible(RemovalQuestion(model))) return;
    if (!RequireUnchanged(model)) return RefreshMainWindow();
    RemoveCurrentModel(model);
}

void ME_SectionImport_Click() {
    if (!RequireDatabase() || !ConfirmEdit()) return;
    ImportChoice choice;
    if (!shell.view.askImport(choice)) return;
    Log(LogKind::kOpen, choice.path);
    shell.settings.BrowseDirectory = DirectoryOf(choice.path);
    if (!RequireOtherFile(choice.path)) return;
    SetBusyPointer();
    const EditName edit(FormatMessage(kMsgImportFrom, {FileNameOf(choice.path)}));
    ImportModels(choice);
    ResetMousePointer();
}

void ME_SectionExport_Click() {
    if (AreSeveralSelected()) return ExportSelectedModels();
    ModelEntry model;
    if (!RequireCurrentModel(model)) return;
    if (model.kind != ModelKind::kSection) {
        return ReportMessage(kMsgOnlySections, {KindName(model.kind), model.name});
    }
    ExportChoice choice;
    if (!ReadForPreview({model}, choice)) return;
    choice.name = model.name;
    if (!shell.view.askExport(choice)) return;
    shell.settings.BrowseDirectory = DirectoryOf(choice.path);
    if (!RequireOtherFile(choice.path)) return;
    if (!RequireUnchanged(model)) return RefreshMainWindow();
    SetBusyPointer();
    ExportModels({model}, choice);
    ResetMousePointer();
}

}  // namespace corvane
