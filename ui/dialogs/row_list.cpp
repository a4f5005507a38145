#include "ui/dialogs/row_list.h"

#include <algorithm>

#include "ui/base/dpi.h"
#include "ui/dialogs/list_controls.h"

namespace corvane {
namespace {

constexpr int kCellPadding = 14;  // at 96 dots per inch

// The first row after `row` with this property; -1 when no more row has it.
int NextRow(HWND list, int row, LPARAM property) {
    return static_cast<int>(
        SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(row), property));
}

// -1: all rows.
void SetState(HWND list, int row, UINT state) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | (row < 0 ? 0U : LVIS_FOCUSED);
    item.state = state;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

}  // namespace

HWND AddRowList(HWND window, int id, const std::wstring& name,
                const std::vector<ReportColumn>& columns) {
    const HWND list = AddControl(window, {id, WC_LISTVIEWW, name,
                                          WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA |
                                              LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                                          WS_EX_CLIENTEDGE});
    const DWORD extended = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, extended, extended);
    LightUpRows(list);
    int index = 0;
    for (const ReportColumn& column : columns) {
        AddListColumn(list, index++, column.title.c_str(), column.alignsRight);
    }
    return list;
}

void SetRows(HWND list, size_t count, size_t selected) {
    SetState(list, -1, 0);
    SendMessageW(list, LVM_SETITEMCOUNT, count, 0);
    InvalidateRect(list, nullptr, TRUE);
    if (count == 0) return;
    const int row = static_cast<int>(std::min(selected, count - 1));
    SetState(list, row, LVIS_SELECTED | LVIS_FOCUSED);
    SendMessageW(list, LVM_SETSELECTIONMARK, 0, row);
    EnsureRowVisible(list, static_cast<size_t>(row));
}

void EnsureRowVisible(HWND list, size_t row) {
    SendMessageW(list, LVM_ENSUREVISIBLE, row, FALSE);
}

std::vector<size_t> SelectedRows(HWND list) {
    std::vector<size_t> rows;
    for (int row = NextRow(list, -1, LVNI_SELECTED); row >= 0;
         row = NextRow(list, row, LVNI_SELECTED)) {
        rows.push_back(static_cast<size_t>(row));
    }
    return rows;
}

int ShownRow(HWND list) {
    const int row = NextRow(list, -1, LVNI_FOCUSED);
    const bool isSelected = row >= 0 && SendMessageW(list, LVM_GETITEMSTATE,
                                                     static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
    return isSelected ? row : NextRow(list, -1, LVNI_SELECTED);
}

void SelectAllRows(HWND list) {
    SetState(list, -1, LVIS_SELECTED);
}

bool IsSelectionNotification(int code) {
    return code == static_cast<int>(LVN_ITEMCHANGED) ||
           code == static_cast<int>(LVN_ODSTATECHANGED);
}

int WidthOfColumn(HWND list, const ReportColumn& column, UINT dpi) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry handles as numbers.
    const auto font = reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0));
    const LONG title = TextSize(list, font, column.title).cx;
    const LONG sample = TextSize(list, font, column.sample).cx;
    return static_cast<int>(std::max(title, sample)) + Scaled(kCellPadding, dpi);
}

void FitColumns(HWND list, const std::vector<ReportColumn>& columns, UINT dpi) {
    for (size_t i = 0; i < columns.size(); ++i) {
        SendMessageW(list, LVM_SETCOLUMNWIDTH, i, WidthOfColumn(list, columns[i], dpi));
    }
}

void WidenColumn(HWND list, const std::vector<ReportColumn>& columns, size_t wide, UINT dpi) {
    RECT client{};
    GetClientRect(list, &client);
    auto rest = static_cast<int>(client.right);
    for (size_t i = 0; i < columns.size(); ++i) {
        if (i == wide) continue;
        rest -= static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, i, 0));
    }
    SendMessageW(list, LVM_SETCOLUMNWIDTH, wide,
                 std::max(rest, WidthOfColumn(list, columns[wide], dpi)));
}

}  // namespace corvane
