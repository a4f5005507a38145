// Where a file is looked for, and which one is chosen: the lists of drives, folders and files
// DRV_Db, DIR_Db and FIL_Db in their frame. Part of a dialog (ui/dialogs/dialogs.h).
#pragma once

#include <string>

#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/folder_list.h"

namespace corvane {

struct FileLists {
    std::wstring pattern;  // of the files that are listed: "*.vel;*.ve2"
    std::wstring folder;   // whose files are listed, with a "\" at its end; empty at first
    FolderList folders;
};

// Adds the frame with its labels and lists, in the order of the Tab key, and shows the folder that
// files were last looked for in; where that is gone, the current folder.
void AddFileLists(HWND window, FileLists& lists);
void PlaceFileLists(HWND window, FileLists& lists, const RECT& area, UINT dpi);

// Shows a folder, none of its files chosen. False, and all lists stay as they are, when it cannot
// be read; nothing is reported.
bool ShowFolder(HWND window, FileLists& lists, const std::wstring& folder);
// Shows a file's folder and chooses the file; the list has it even when it does not fit the
// pattern.
void ShowFile(HWND window, FileLists& lists, const std::wstring& path);
// Absolute path of the file that is chosen; empty when none is.
std::wstring ChosenFile(HWND window, const FileLists& lists);

// Does what the user asks of the lists, and says what the dialog must do.
enum class FileListsEvent { kNone, kOtherFolder, kFileClick, kFileDoubleClick };
FileListsEvent OnFileLists(HWND window, FileLists& lists, const Notification& notification);
// The Enter key in the list of folders opens the selected one; the dialog then stays.
enum class EnterKey { kAccepts, kStays, kOpenedFolder };
EnterKey OnEnterKey(HWND window, FileLists& lists);

}  // namespace corvane
