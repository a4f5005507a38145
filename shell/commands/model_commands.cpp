#include "shell/commands/model_commands.h"

#include <limits>
#include <string>

#include "database/editing.h"
#include "files/running.h"
#include "shell/current_model.h"
#include "shell/file_prompt.h"
#include "shell/state.h"
#include "shell/window_contents.h"
#include "text/text.h"

namespace corvane {
namespace {

void CopyCurrentModel(const ModelEntry& model, const std::wstring& name) {
    SetBusyPointer();
    std::wstring path = shell.settings.DatabasePath;
    const int32_t copy =
        CopyModel(path, {shell.currentModel, model.kind, name, {true, AskForWritableDatabase}});
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
