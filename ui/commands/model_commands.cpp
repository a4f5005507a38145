#include "ui/commands/model_commands.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "app/messages.h"
#include "app/state.h"
#include "bsd/bsd_file.h"
#include "database/database_file.h"
#include "database/editing.h"
#include "platform/system.h"
#include "ui/commands/file_commands.h"
#include "ui/commands/main_window.h"
#include "util/files.h"
#include "util/paths.h"
#include "util/processes.h"
#include "util/text.h"

namespace corvane {
namespace {

// The current model as the file has it now. False, and reported, when the file has none of that
// number in that place.
bool ReadCurrentModel(ModelEntry& model) {
    const std::wstring& path = shell.settings.DatabasePath;
    const int32_t number = shell.currentModel;
    AwaitReadable(path);
    if (!IsDatabaseThere()) return false;
    const std::vector<ModelEntry> models = ListModels(path);
    const auto found = std::find_if(models.begin(), models.end(), [&](const ModelEntry& entry) {
        return entry.number == number;
    });
    if (number < 1 || found == models.end()) {
        ReportMessage(kMsgModelMissing, {number, path});
        return false;
    }
    if (found - models.begin() != number - 1) {
        ReportMessage(kMsgNumbersNotInOrder, {number, path});
        return false;
    }
    model = *found;
    return true;
}

// Whether the current model is still the one that the user was asked about.
bool IsUnchanged(const ModelEntry& asked) {
    ModelEntry now;
    if (!ReadCurrentModel(now)) return false;
    if (now.name == asked.name && now.kind == asked.kind) return true;
    ReportMessage(kMsgModelChanged, {shell.settings.DatabasePath});
    return false;
}

// Another file, to which the user took a read-only database, becomes the open one.
void OpenInstead(const std::wstring& path) {
    shell.settings.DatabasePath = system::AbsolutePath(path);
    shell.settings.BrowseDirectory =
        WithTrailingBackslash(DirectoryOf(shell.settings.DatabasePath));
    shell.bsd = BasicShipData();
    LoadBsdFromDatabase(shell.settings.DatabasePath, shell.bsd);
}

void CopyCurrentModel(const ModelEntry& model, const std::wstring& name) {
    SetBusyPointer();
    std::wstring path = shell.settings.DatabasePath;
    const int32_t copy = CopyModel(path, {shell.currentModel, model.kind, name, true});
    if (copy != 0) {
        if (path != shell.settings.DatabasePath) OpenInstead(path);
        // The list has no row for a number beyond 16 bits.
        if (copy <= std::numeric_limits<int16_t>::max()) {
            shell.currentModel = static_cast<int16_t>(copy);
        }
        RefreshMainWindow();
    }
    ResetMousePointer();
}

void RemoveCurrentModel() {
    SetBusyPointer();
    const bool keepBackup = shell.settings.IntegerSetting != 0;
    if (DeleteModel(shell.settings.DatabasePath, shell.currentModel, keepBackup)) {
        DeselectModel();
        RefreshMainWindow();
    }
    ResetMousePointer();
}

}  // namespace

void ME_SectionCopy_Click() {
    ModelEntry model;
    if (!ReadCurrentModel(model)) return;
    std::wstring name = L"Copy of " + model.name;
    if (!shell.screen.askText(L"Input the name of the copy", name)) return;
    name = Trim(name);
    if (name.empty()) return;
    if (!IsUnchanged(model)) return RefreshMainWindow();
    CopyCurrentModel(model, name);
}

void ME_SectionRemove_Click() {
    ModelEntry model;
    if (!ReadCurrentModel(model)) return;
    if (!shell.screen.askIrreversible(L"Are you sure to remove " + KindName(model.kind) + L' ' +
                                      model.name + L" from " + shell.settings.DatabasePath +
                                      L" ?")) {
        return;
    }
    if (!IsUnchanged(model)) return RefreshMainWindow();
    RemoveCurrentModel();
}

}  // namespace corvane
