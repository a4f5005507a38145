#include "ui/main_window/model_list_view.h"

#include <uxtheme.h>

#include <algorithm>

#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"
#include "ui/pictures/list_icons.h"

namespace corvane {
namespace {

// Name of the list for screen readers.
constexpr wchar_t kAccessibleName[] = L"Models";
// Narrowest column of names [pixels at 96 dots per inch].
constexpr int kNarrowestName = 120;

// The first column, whose width is what the others leave.
constexpr int kNameColumn = 0;

int ColumnCount() {
    return static_cast<int>(ModelColumns().size());
}

void AddColumns(HWND list) {
    for (int index = 0; index < ColumnCount(); ++index) {
        const ModelColumn& column = ModelColumns()[static_cast<size_t>(index)];
        std::wstring title = column.title;
        LVCOLUMNW item{};
        item.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM | LVCF_WIDTH;
        item.fmt = column.alignsRight ? LVCFMT_RIGHT : LVCFMT_LEFT;
        item.cx = 60;
        item.pszText = title.data();
        item.iSubItem = index;
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&item));
    }
}

void AddItem(HWND list, int index, const ModelRow& row) {
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
    item.iItem = index;
    std::wstring name = ModelColumns()[kNameColumn].text(row);
    item.pszText = name.data();
    item.iImage = row.icon - 1;
    item.lParam = row.tag;
    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void AddRow(HWND list, int index, const ModelRow& row) {
    AddItem(list, index, row);
    for (int column = kNameColumn + 1; column < ColumnCount(); ++column) {
        std::wstring text = ModelColumns()[static_cast<size_t>(column)].text(row);
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text.data();
        SendMessageW(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&item));
    }
}

void SetColumnWidth(HWND list, int column, int width) {
    SendMessageW(list, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), width);
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
    AddColumns(list);
    return list;
}

void ScaleModelList(HWND list, UINT dpi) {
    const LRESULT old = SendMessageW(list, LVM_SETIMAGELIST, LVSIL_SMALL,
                                     reinterpret_cast<LPARAM>(CreateKindIcons(dpi)));
    if (old != 0) ImageList_Destroy(reinterpret_cast<HIMAGELIST>(old));
    for (int column = kNameColumn + 1; column < ColumnCount(); ++column) {
        const wchar_t* sample = ModelColumns()[static_cast<size_t>(column)].sample;
        SetColumnWidth(list, column, WidthFor(list, sample, dpi));
    }
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
    for (int column = kNameColumn + 1; column < ColumnCount(); ++column) {
        others += static_cast<int>(
            SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    const int narrowest = Scaled(kNarrowestName, DpiOf(list));
    SetColumnWidth(list, kNameColumn, std::max(static_cast<int>(client.right) - others, narrowest));
    // A cell that the list moves along keeps the "..." of the width that it had.
    InvalidateRect(list, nullptr, TRUE);
}

}  // namespace corvane
