#include "shell/current_model.h"

#include <algorithm>

#include "bsd/bsd_file.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/messages.h"
#include "shell/commands/file_commands.h"
#include "shell/state.h"

namespace corvane {

bool FindInRow(const std::vector<ModelEntry>& models, int32_t row, const std::wstring& path,
               ModelEntry& model) {
    const auto found = std::find_if(models.begin(), models.end(),
                                    [row](const ModelEntry& entry) { return entry.number == row; });
    if (row < 1 || found == models.end()) {
        ReportMessage(kMsgModelMissing, {row, path});
        return false;
    }
    if (found - models.begin() != row - 1) {
        ReportMessage(kMsgNumbersNotInOrder, {row, path});
        return false;
    }
    model = *found;
    return true;
}

bool ReadCurrentModel(ModelEntry& model) {
    const std::wstring& path = shell.settings.DatabasePath;
    AwaitReadable(path);
    return IsDatabaseThere() && FindInRow(ListModels(path), shell.currentModel, path, model);
}

bool IsUnchanged(const ModelEntry& asked) {
    ModelEntry now;
    if (!ReadCurrentModel(now)) return false;
    if (now.name == asked.name && now.kind == asked.kind) return true;
    ReportMessage(kMsgModelChanged, {shell.settings.DatabasePath});
    return false;
}

void OpenInstead(const std::wstring& path) {
    shell.settings.DatabasePath = system::AbsolutePath(path);
    shell.settings.BrowseDirectory =
        WithTrailingBackslash(DirectoryOf(shell.settings.DatabasePath));
    shell.bsd = BasicShipData();
    LoadBsdFromDatabase(shell.settings.DatabasePath, shell.bsd);
}

}  // namespace corvane
