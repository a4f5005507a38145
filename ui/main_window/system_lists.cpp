#include "ui/main_window/system_lists.h"

#include "files/settings_file.h"
#include "platform/win32/win32.h"
// windows.h must come first.
#include <shlobj.h>

namespace corvane {

void AddToSystemsLists(const std::wstring& path) {
    if (PortableFolder().empty()) SHAddToRecentDocs(SHARD_PATHW, path.c_str());
}

}  // namespace corvane
