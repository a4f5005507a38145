#include "ui/dialogs/folder_list.h"

#include <algorithm>

#include "files/paths.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/folder_contents.h"
#include "ui/dialogs/list_controls.h"
#include "ui/pictures/icons.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kIndent = 10;
constexpr int kPadding = 2;
constexpr int kTextGap = 4;

// In the list of icons.
enum FolderIcon { kClosedFolder, kOpenFolder };

// The icons at a resolution.
void MakeIcons(FolderList& folders, UINT dpi) {
    const int size = SystemMetric(SM_CXSMICON, dpi);
    int width = 0;
    int height = 0;
    if (folders.icons != nullptr) ImageList_GetIconSize(folders.icons, &width, &height);
    if (width == size) return;
    if (folders.icons != nullptr) ImageList_Destroy(folders.icons);
    folders.icons = ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 2, 0);
    for (const PictureId id : {kFolderPicture, kOpenFolderPicture}) {
        AddListPicture(folders.icons, id);
    }
}

// "Ships" of "C:\Ships\", "C:\" of itself.
std::wstring NameOf(const std::wstring& path, bool isRoot) {
    return isRoot ? path : FileNameOf(StripTrailingBackslash(path));
}

// Where an item's text begins.
int TextLeft(size_t index, const FolderList& folders, UINT dpi) {
    const auto level = static_cast<int>(std::min(index, folders.depth));
    return Scaled(kPadding, dpi) + level * Scaled(kIndent, dpi) + SystemMetric(SM_CXSMICON, dpi) +
           Scaled(kTextGap, dpi);
}

std::wstring ItemText(const FolderList& folders, size_t index) {
    return NameOf(folders.paths[index], index == 0);
}

void DrawContents(const FolderList& folders, const DRAWITEMSTRUCT& item, size_t index) {
    const UINT dpi = DpiOf(item.hwndItem);
    RECT area = item.rcItem;
    area.left += TextLeft(index, folders, dpi);
    const int side = SystemMetric(SM_CXSMICON, dpi);
    ImageList_Draw(folders.icons, index < folders.depth ? kOpenFolder : kClosedFolder, item.hDC,
                   area.left - Scaled(kTextGap, dpi) - side, (area.top + area.bottom - side) / 2,
                   ILD_TRANSPARENT);
    const std::wstring text = ItemText(folders, index);
    DrawTextW(item.hDC, text.c_str(), static_cast<int>(text.size()), &area,
              DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

}  // namespace

FolderList::~FolderList() {
    if (icons != nullptr) ImageList_Destroy(icons);
}

void ShowFolders(HWND list, FolderList& folders, const std::wstring& folder,
                 const std::vector<std::wstring>& subfolders) {
    folders.paths = FoldersDownTo(folder);
    folders.depth = folders.paths.size();
    folders.paths.reserve(folders.depth + subfolders.size());
    const std::wstring open = folders.paths.back();
    for (const std::wstring& name : subfolders) folders.paths.push_back(open + name + L"\\");
    std::vector<std::wstring> names;
    names.reserve(folders.paths.size());
    for (size_t i = 0; i < folders.paths.size(); ++i) names.push_back(ItemText(folders, i));
    FillList(list, names);
    SendMessageW(list, LB_SETCURSEL, folders.depth - 1, 0);
    ScaleFolderList(list, folders, DpiOf(list));
}

std::wstring SelectedFolder(HWND list, const FolderList& folders) {
    const LRESULT index = SendMessageW(list, LB_GETCURSEL, 0, 0);
    if (index < 0 || static_cast<size_t>(index) >= folders.paths.size()) return {};
    return folders.paths[static_cast<size_t>(index)];
}

void ScaleFolderList(HWND list, FolderList& folders, UINT dpi) {
    MakeIcons(folders, dpi);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0));
    const LONG textHeight = TextSize(list, font, L"X").cy;
    const LONG height = std::max<LONG>(textHeight, SystemMetric(SM_CYSMICON, dpi));
    SendMessageW(list, LB_SETITEMHEIGHT, 0, height + Scaled(kPadding, dpi));
    LONG widest = 0;
    for (size_t i = 0; i < folders.paths.size(); ++i) {
        const LONG width = TextSize(list, font, ItemText(folders, i)).cx;
        widest = std::max<LONG>(widest, TextLeft(i, folders, dpi) + width);
    }
    SendMessageW(list, LB_SETHORIZONTALEXTENT, widest + Scaled(kTextGap, dpi), 0);
}

void DrawFolderItem(const FolderList& folders, const DRAWITEMSTRUCT& item) {
    const bool isSelected = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetTextColor(item.hDC, GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkMode(item.hDC, TRANSPARENT);
    if (item.itemID < folders.paths.size()) DrawContents(folders, item, item.itemID);
    const bool hasFocus = (item.itemState & ODS_FOCUS) != 0;
    if (hasFocus && (item.itemState & ODS_NOFOCUSRECT) == 0) DrawFocusRect(item.hDC, &item.rcItem);
}

}  // namespace corvane
