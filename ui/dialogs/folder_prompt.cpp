#include "ui/dialogs/folder_prompt.h"

#include "platform/win32/win32.h"
// windows.h must come first.
#include <shlobj.h>
#include <shobjidl.h>

#include "files/paths.h"
#include "ui/base/own_window.h"
#include "ui/base/system_services.h"

namespace corvane {
namespace {

void BeginIn(IFileDialog& dialog, const std::wstring& folder) {
    Owned<IShellItem> start;
    const HRESULT found = SHCreateItemFromParsingName(StripTrailingBackslash(folder).c_str(),
                                                      nullptr, IID_IShellItem, start.Place());
    if (SUCCEEDED(found)) dialog.SetFolder(start.pointer);
}

bool ReadChosen(IFileDialog& dialog, std::wstring& folder) {
    Owned<IShellItem> item;
    wchar_t* path = nullptr;
    if (FAILED(dialog.GetResult(&item.pointer))) return false;
    if (FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path))) return false;
    folder = path;
    CoTaskMemFree(path);
    return true;
}

}  // namespace

bool AskFolder(const std::wstring& title, std::wstring& folder) {
    const ComScope com;
    Owned<IFileOpenDialog> dialog;
    if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IFileOpenDialog, dialog.Place()))) {
        return false;
    }
    DWORD options = 0;
    dialog->GetOptions(&options);
    dialog->SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR);
    dialog->SetTitle(title.c_str());
    BeginIn(*dialog.pointer, folder);
    return SUCCEEDED(dialog->Show(DialogOwner())) && ReadChosen(*dialog.pointer, folder);
}

}  // namespace corvane
