#include "shell/commands/several_models.h"

#include <algorithm>
#include <string>
#include <vector>

#include "database/editing.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/commands/section_commands.h"
#include "shell/copy_losses.h"
#include "shell/edit_history.h"
#include "shell/exchange_boxes.h"
#include "shell/file_prompt.h"
#include "shell/model_exchange.h"
#include "shell/running_mark.h"
#include "shell/state.h"

namespace corvane {
namespace {

using Models = std::vector<ModelEntry>;

// A question names so many models.
constexpr size_t kMostNames = 10;

// The model that a row of the list shows, among all models of the file: as a rule at its place.
bool RequireModelOfRow(const Models& all, size_t index, ModelEntry& model) {
    const ModelRow& row = shell.database.rows.at(index);
    const std::wstring& path = shell.database.path;
    const bool isInPlace = index < all.size() && all[index].number == row.tag;
    if (isInPlace && all[index].hasOwnNumber) {
        model = all[index];
    } else if (!RequireModel(all, row.tag, path, model)) {
        return false;
    }
    if (model.name == row.name && model.kind == row.kind) return true;
    ReportMessage(kMsgModelChanged, {path});
    return false;
}

// All models as the file has them now: as they were listed, while the file is that one. False, and
// reported, when it cannot be read.
bool ReadAllModels(Models& all) {
    const OpenDatabase& database = shell.database;
    system::FileStamp stamp;
    const bool isListed =
        system::GetFileStamp(database.path, stamp) == system::kErrorNone && stamp == database.stamp;
    if (!isListed) return ListModels(database.path, all);
    for (const ModelRow& row : database.rows) {
        all.push_back({row.tag, row.offset, row.stamp, row.name, row.kind, row.x_m, row.identifier,
                       row.hasOwnNumber});
    }
    return true;
}

// The selected models as the file has them now, in its order. False, and reported, when the file is
// missing or no longer has them all; the list is then read again.
bool RequireSelectedModels(Models& models) {
    const std::wstring& path = shell.database.path;
    AwaitReadable(path);
    Models all;
    if (!RequireDatabase() || !ReadAllModels(all)) return false;
    models.clear();
    for (const size_t index : SelectedRows()) {
        ModelEntry model;
        if (!RequireModelOfRow(all, index, model)) {
            RefreshMainWindow();
            return false;
        }
        models.push_back(model);
    }
    return !models.empty();
}

int32_t CountOf(const Models& models) {
    return static_cast<int32_t>(models.size());
}

// A line for each model, the first of them only when they are many.
std::wstring NamesOf(const Models& models) {
    std::wstring names;
    for (const ModelEntry& model : models) {
        if (&model == &models[0] + kMostNames) break;
        names += KindName(model.kind) + L" '" + model.name + L"'\r";
    }
    if (models.size() <= kMostNames) return names;
    return names + FormatMessage(kMsgAndMore, {static_cast<int32_t>(models.size() - kMostNames)}) +
           L'\r';
}

std::vector<ModelCopy> CopiesOf(const Models& models, const BlockNumbers& listed) {
    std::vector<ModelCopy> copies;
    for (const ModelEntry& model : models) {
        copies.push_back({model.number,
                          model.kind,
                          L"Copy of " + model.name,
                          {true, AskForWritableDatabase, &listed}});
    }
    return copies;
}

void DeleteModelsOfFile(const Models& models) {
    std::vector<int32_t> numbers;
    for (const ModelEntry& model : models) numbers.push_back(model.number);
    const EditName edit(FormatMessage(kMsgDeleteOfModels, {CountOf(models)}));
    const BlockNumbers listed = ListedBlocks();
    if (!DeleteModels(shell.database.path, numbers, KeepsBackupOnRemoval(), &listed)) return;
    SetCurrentModel(std::ranges::min(numbers));
    DeselectModel();
    RefreshMainWindow();
}

bool FindLossesOfAll(const Models& models, CopyLosses& losses) {
    return std::ranges::all_of(models, [&losses](const ModelEntry& model) {
        return FindCopyLosses(losses, PlaceOf(model));
    });
}

// True when the copies are there.
bool CopyModelsOfFile(const Models& models, CopyLosses& losses) {
    const EditName edit(FormatMessage(kMsgCopyOfModels, {CountOf(models)}));
    std::wstring path = shell.database.path;
    const BlockNumbers listed = ListedBlocks();
    if (!FindLossesOfAll(models, losses)) return false;
    const int32_t last = CopyAllModels(path, CopiesOf(models, listed));
    if (last == 0) return false;
    if (path != shell.database.path) ContinueInWritableFile(path);
    SetCurrentModel(last);
    RefreshMainWindow();
    return true;
}

bool RequireSections(const Models& models) {
    const auto other = std::ranges::find_if(
        models, [](const ModelEntry& model) { return model.kind != ModelKind::kSection; });
    if (other == models.end()) return true;
    ReportMessage(kMsgOnlySections, {KindName(other->kind), other->name});
    return false;
}

}  // namespace

bool AreSeveralSelected() {
    return shell.view.selectedCount() > 1;
}

void CopySelectedModels() {
    Models models;
    if (!RequireSelectedModels(models) || !ConfirmEdit()) return;
    if (!shell.view.askYesNo(BoxText(kMsgCopyQuestion, {CountOf(models), NamesOf(models)}))) return;
    if (!RequireSelectedModels(models)) return;
    SetBusyPointer();
    CopyLosses losses{shell.database.path};
    const bool areCopied = CopyModelsOfFile(models, losses);
    ResetMousePointer();
    if (areCopied) ShowCopyLosses(losses, ME_SectionCopy);
}

void DeleteSelectedModels() {
    Models models;
    if (!RequireSelectedModels(models) || !RequireWritableDatabase() || !ConfirmEdit()) return;
    const std::wstring& path = shell.database.path;
    const std::wstring question =
        BoxText(kMsgDeleteQuestion, {CountOf(models), path, NamesOf(models)});
    if (!shell.view.askIrreversible(WithAdvice(question, BackupAdvice()))) return;
    if (!RequireSelectedModels(models)) return;
    SetBusyPointer();
    DeleteModelsOfFile(models);
    ResetMousePointer();
}

void ExportSelectedModels() {
    Models models;
    if (!RequireSelectedModels(models) || !RequireSections(models)) return;
    ExportChoice choice;
    if (!ReadForPreview(models, choice)) return;
    if (!shell.view.askExport(choice)) return;
    shell.settings.BrowseDirectory = DirectoryOf(choice.path);
    if (!RequireOtherFile(choice.path) || !RequireSelectedModels(models)) return;
    SetBusyPointer();
    choice.createNew = true;
    ExportModels(models, choice);
    ResetMousePointer();
}

}  // namespace corvane
