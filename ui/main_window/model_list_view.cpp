#include "ui/main_window/model_list_view.h"

#include <uxtheme.h>

#include <algorithm>

#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"
#include "ui/pictures/list_icons.h"

namespace corvane {
namespace {

enum Column { kName, kX, kId, kType, kColumnCount };

// Name of the list for screen readers.
constexpr wchar_t kAccessibleName[] = L"Models";
// Narrowest column of names [pixels at 96 dots per inch].
constexpr int kNarrowestName = 120;

void AddColumn(HWND list, Column column, const wchar_t* title, int format) {
    std::wstring text = title;
    LVCOLUMNW item{};
    item.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM | LVCF_WIDTH;
    item.fmt = format;
    item.cx = 60;
    item.pszText = text.data();
    item.iSubItem = column;
    SendMessageW(list, LVM_INSERTCOLUMNW, column, reinterpret_cast<LPARAM>(&item));
}

void SetCell(HWND list, int row, Column column, const std::wstring& text) {
    std::wstring copy = text;
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = copy.data();
    SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void AddRow(HWND list, int index, const ModelRow& row) {
    std::wstring name = row.name;
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
    item.iItem = index;
    item.pszText = name.data();
    item.iImage = row.icon - 1;
    item.lParam = row.tag;
    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    SetCell(list, index, kX, row.x);
    SetCell(list, index, kId, row.id);
    SetCell(list, index, kType, row.type);
}

void SetColumnWidth(HWND list, Column column, int width) {
    SendMessageW(list, LVM_SETCOLUMNWIDTH, column, width);
}

// Width of a column that shows texts as long as `sample`.
int WidthFor(HWND list, const wchar_t* sample, UINT dpi) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0));
    return TextSize(list, font, sample).cx + Scaled(16, dpi);
}

void SetItemState(HWND list, int index, UINT state) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = state;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
}

}  // namespace

HWND CreateModelList(HWND parent) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL |
                        LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
    const HWND list =
        CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, kAccessibleName, style, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(INT_PTR{LI_Sections}), nullptr, nullptr);
    const DWORD extended =
        LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP | LVS_EX_INFOTIP;
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, extended, extended);
    // Rows light up as in the system's own lists, where the theme knows that.
    SetWindowTheme(list, L"Explorer", nullptr);
    AddColumn(list, kName, L"Name", LVCFMT_LEFT);
    AddColumn(list, kX, L"X", LVCFMT_RIGHT);
    AddColumn(list, kId, L"Id", LVCFMT_RIGHT);
    AddColumn(list, kType, L"Type", LVCFMT_LEFT);
    return list;
}

void ScaleModelList(HWND list, UINT dpi) {
    const LRESULT old = SendMessageW(list, LVM_SETIMAGELIST, LVSIL_SMALL,
                                     reinterpret_cast<LPARAM>(CreateKindIcons(dpi)));
    if (old != 0) ImageList_Destroy(reinterpret_cast<HIMAGELIST>(old));
    SetColumnWidth(list, kX, WidthFor(list, L"0000.000", dpi));
    SetColumnWidth(list, kId, WidthFor(list, L"0000", dpi));
    SetColumnWidth(list, kType, WidthFor(list, L"Bulkhead", dpi));
    FitNameColumn(list);
}

void SetModelRows(HWND list, const std::vector<ModelRow>& rows) {
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
    SendMessageW(list, LVM_SETITEMCOUNT, rows.size(), 0);
    int index = 0;
    for (const ModelRow& row : rows) AddRow(list, index++, row);
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
    FitNameColumn(list);
}

void SelectModelRow(HWND list, int index) {
    SetItemState(list, index, index < 0 ? 0 : LVIS_SELECTED | LVIS_FOCUSED);
    if (index < 0) return;
    SendMessageW(list, LVM_SETSELECTIONMARK, 0, index);
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(index), FALSE);
}

int SelectedModelRow(HWND list) {
    return static_cast<int>(
        SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void FitNameColumn(HWND list) {
    RECT client{};
    GetClientRect(list, &client);
    int others = 0;
    for (int column = kX; column < kColumnCount; ++column) {
        others += static_cast<int>(
            SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    const int narrowest = Scaled(kNarrowestName, DpiOf(list));
    SetColumnWidth(list, kName, std::max(static_cast<int>(client.right) - others, narrowest));
}

}  // namespace corvane
