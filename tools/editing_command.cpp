#include "tools/editing_command.h"

#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "shell/edit_history.h"
#include "shell/open_database.h"
#include "shell/running_mark.h"
#include "tools/console.h"

namespace corvane {

void KeepHistory(const Request& request) {
    if (request.Has(Option::kNoHistory)) return;
    // An account of a service may not have the folder yet.
    const std::wstring folder = system::AbsolutePath(system::LocalDataDirectory());
    for (const std::wstring& parent : FoldersDownTo(folder)) {
        if (!IsDirectory(parent)) system::MakeDirectory(parent);
    }
    UseHistory();
}

ExitCode RunEdit(const Request& request, const std::wstring& name,
                 const std::function<bool()>& edit) {
    KeepHistory(request);
    const EditName named(name);
    return edit() ? kExitDone : kExitFailed;
}

bool OpenForEditing(const std::wstring& operand) {
    return OpenForCommand(operand) && RequireWritableDatabase() && ConfirmEdit();
}

}  // namespace corvane
