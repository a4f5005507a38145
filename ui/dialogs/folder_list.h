// DIR_Db: the folders on the way to a folder, and those in it, each with its picture.
#pragma once

#include <string>
#include <vector>

#include "ui/base/controls.h"

namespace corvane {

// The list draws its items through its owner (WM_DRAWITEM).
struct FolderList {
    std::vector<std::wstring> paths;  // of the items, each with a "\" at its end
    size_t depth = 0;                 // the first so many items lead down to the open folder
    HIMAGELIST icons = nullptr;       // a closed and an open folder

    FolderList() = default;
    ~FolderList();
    FolderList(const FolderList&) = delete;
    FolderList& operator=(const FolderList&) = delete;
};

// Styles of the list box.
inline constexpr DWORD kFolderListStyle = LBS_OWNERDRAWFIXED | LBS_HASSTRINGS;

// Fills the list with the way down to `folder` and with `subfolders`, names; `folder` is selected.
void ShowFolders(HWND list, FolderList& folders, const std::wstring& folder,
                 const std::vector<std::wstring>& subfolders);
// Path of the item that is selected; empty when none is.
std::wstring SelectedFolder(HWND list, const FolderList& folders);
// Applies a resolution: height and breadth of the items, in the list's font.
void ScaleFolderList(HWND list, FolderList& folders, UINT dpi);
void DrawFolderItem(const FolderList& folders, const DRAWITEMSTRUCT& item);

}  // namespace corvane
