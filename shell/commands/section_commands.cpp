#include "shell/commands/section_commands.h"

#include <string>

#include "database/editing.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "report/reporters.h"
#include "shell/exchange_boxes.h"
#include "shell/file_prompt.h"
#include "shell/model_exchange.h"
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
    std::wstring path = shell.database.path;
    const int32_t copy = CopyModel(
        path, {shell.database.currentModel, model.kind, name, {true, AskForWritableDatabase}});
    if (copy != 0) {
        if (path != shell.database.path) ContinueInWritableFile(path);
        SetCurrentModel(copy);
        RefreshMainWindow();
    }
    ResetMousePointer();
}

void RemoveCurrentModel() {
    SetBusyPointer();
    const bool keepBackup = shell.settings.IntegerSetting != 0;
    if (DeleteModel(shell.database.path, shell.database.currentModel, keepBackup)) {
        DeselectModel();
        RefreshMainWindow();
    }
    ResetMousePointer();
}

}  // namespace

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
    ModelEntry model;
    if (!RequireCurrentModel(model)) return;
    std::wstring name = L"Copy of " + model.name;
    if (!shell.view.askText(L"Input the name of the copy", name)) return;
    name = Trim(name);
    if (name.empty()) return;
    if (!RequireUnchanged(model)) return RefreshMainWindow();
    CopyCurrentModel(model, name);
}

void ME_SectionRemove_Click() {
    ModelEntry model;
    if (!RequireCurrentModel(model)) return;
    if (!shell.view.askIrreversible(L"Are you sure to remove " + KindName(model.kind) + L' ' +
                                    model.name + L" from " + shell.database.path + L" ?")) {
        return;
    }
    if (!RequireUnchanged(model)) return RefreshMainWindow();
    RemoveCurrentModel();
}

void ME_SectionImport_Click() {
    if (!RequireDatabase()) return;
    ImportChoice choice;
    if (!shell.view.askImport(choice)) return;
    shell.settings.BrowseDirectory = DirectoryOf(choice.path);
    if (IsSameFile(choice.path, shell.database.path)) {
        return ReportMessage(kMsgIsOpenDatabase, {choice.path});
    }
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
    if (!RequireUnchanged(model)) return RefreshMainWindow();
    SetBusyPointer();
    ExportCurrentSection(choice);
    ResetMousePointer();
}

}  // namespace corvane
