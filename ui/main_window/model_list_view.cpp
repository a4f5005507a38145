#include "ui/main_window/model_list_view.h"

#include <algorithm>
#include <optional>

#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/list_controls.h"
#include "ui/pictures/icons.h"

namespace corvane {
namespace {

// Name of the list for screen readers.
constexpr wchar_t kAccessibleName[] = L"Models";
// Narrowest column of names, and what is between its icons and names [pixels at 96 dots per inch].
constexpr int kNarrowestName = 120;
constexpr int kIconGap = 3;

// The first column, whose width is what the others leave.
constexpr int kNameColumn = 0;

int ColumnCount() {
    return static_cast<int>(ModelColumns().size());
}

void AddColumns(HWND list) {
    int index = 0;
    for (const ModelColumn& column : ModelColumns()) {
        AddListColumn(list, index++, column.title, column.alignsRight);
    }
}

// IML_Small: the kinds' pictures in the order of their icons; the list's own then.
HIMAGELIST CreateKindIcons(UINT dpi) {
    const int size = SystemMetric(SM_CXSMICON, dpi);
    const HIMAGELIST icons =
        ImageList_Create(size + Scaled(kIconGap, dpi), size, ILC_COLOR32 | ILC_MASK,
                         static_cast<int>(Kinds().size()), 0);
    for (const KindFacts& facts : Kinds()) {
        AddListPicture(icons, KindPicture(facts.kind));
    }
    return icons;
}

void SetColumnWidth(HWND list, int column, int width) {
    SendMessageW(list, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), width);
}

// Width of a column that shows texts as long as `sample`.
int WidthFor(HWND list, const wchar_t* sample, UINT dpi) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0));
    return TextSize(list, font, sample).cx + Scaled(16, dpi);
}

// The width that the user gave the column, if any [pixels].
std::optional<int> SizedWidth(int column, UINT dpi) {
    const std::optional<int> width = shell.list.widths.at(static_cast<size_t>(column));
    return width ? std::optional(Scaled(*width, dpi)) : std::nullopt;
}

// The first line after `line` that has all of these properties, or -1.
int NextLine(HWND list, int line, LPARAM properties) {
    return static_cast<int>(
        SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(line), properties));
}

void SetItemState(HWND list, int index, UINT state) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = state;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
}

void DeselectAll(HWND list) {
    // With -1 the system goes through all lines, however few are selected.
    if (SelectedLineCount(list) > 1) SetItemState(list, -1, 0);
    for (const LPARAM property : {LVNI_SELECTED, LVNI_FOCUSED}) {
        const int line = NextLine(list, -1, property);
        if (line >= 0) SetItemState(list, line, 0);
    }
}

// The arrow in the head of the column that the list is sorted by.
void ShowOrder(HWND list, const ListOrder& order) {
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    for (int column = 0; column < ColumnCount(); ++column) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&item));
        const int before = item.fmt;
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (order.column == static_cast<ListColumn>(column)) {
            item.fmt |= order.isDescending ? HDF_SORTDOWN : HDF_SORTUP;
        }
        // It would be painted again.
        if (item.fmt == before) continue;
        SendMessageW(header, HDM_SETITEMW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&item));
    }
}

}  // namespace

HWND CreateModelList(HWND parent) {
    const DWORD style =
        WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS | LVS_OWNERDATA;
    const HWND list =
        CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, kAccessibleName, style, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(INT_PTR{LI_Sections}), nullptr, nullptr);
    const DWORD extended =
        LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP | LVS_EX_INFOTIP;
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, extended, extended);
    LightUpRows(list);
    AddColumns(list);
    return list;
}

void ScaleModelList(HWND list, UINT dpi) {
    const LRESULT old = SendMessageW(list, LVM_SETIMAGELIST, LVSIL_SMALL,
                                     reinterpret_cast<LPARAM>(CreateKindIcons(dpi)));
    if (old != 0) ImageList_Destroy(reinterpret_cast<HIMAGELIST>(old));
    for (int column = kNameColumn + 1; column < ColumnCount(); ++column) {
        const wchar_t* sample = ModelColumns()[static_cast<size_t>(column)].sample;
        const std::optional<int> sized = SizedWidth(column, dpi);
        SetColumnWidth(list, column, sized ? *sized : WidthFor(list, sample, dpi));
    }
    FitNameColumn(list);
}

void SetLineCount(HWND list, int count, const ListOrder& order) {
    DeselectAll(list);
    SendMessageW(list, LVM_SETITEMCOUNT, static_cast<WPARAM>(count), 0);
    InvalidateRect(list, nullptr, TRUE);
    ShowOrder(list, order);
    FitNameColumn(list);
}

void GreyModelRows(HWND list, bool grey) {
    const COLORREF colour = grey ? GetSysColor(COLOR_GRAYTEXT) : CLR_DEFAULT;
    SendMessageW(list, LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(colour));
    InvalidateRect(list, nullptr, TRUE);
}

void FillInLine(LVITEMW& item) {
    if (item.iItem < 0 || item.iItem >= LineCount()) return;
    const ModelRow& row = RowOfLine(item.iItem);
    if ((item.mask & LVIF_IMAGE) != 0) item.iImage = row.icon - 1;
    if ((item.mask & LVIF_TEXT) == 0) return;
    PutItemText(item, ModelColumns()[static_cast<size_t>(item.iSubItem)].text(row));
}

void SelectListLine(HWND list, int line) {
    if (line < 0) return DeselectAll(list);
    SetItemState(list, line, LVIS_SELECTED | LVIS_FOCUSED);
    SendMessageW(list, LVM_SETSELECTIONMARK, 0, line);
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(line), FALSE);
}

int SelectedListLine(HWND list) {
    const int focused = NextLine(list, -1, LVNI_SELECTED | LVNI_FOCUSED);
    return focused >= 0 ? focused : NextLine(list, -1, LVNI_SELECTED);
}

std::vector<int> SelectedListLines(HWND list) {
    std::vector<int> lines;
    for (int line = NextLine(list, -1, LVNI_SELECTED); line >= 0;
         line = NextLine(list, line, LVNI_SELECTED)) {
        lines.push_back(line);
    }
    return lines;
}

int SelectedLineCount(HWND list) {
    return static_cast<int>(SendMessageW(list, LVM_GETSELECTEDCOUNT, 0, 0));
}

void SelectAllListLines(HWND list) {
    LVITEMW item{};
    item.stateMask = item.state = LVIS_SELECTED;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
}

int ColumnWidth(HWND list, int column) {
    const LRESULT width = SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0);
    return MulDiv(static_cast<int>(width), USER_DEFAULT_SCREEN_DPI, static_cast<int>(DpiOf(list)));
}

void FitNameColumn(HWND list) {
    RECT client{};
    GetClientRect(list, &client);
    int others = 0;
    for (int column = kNameColumn + 1; column < ColumnCount(); ++column) {
        others += static_cast<int>(
            SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    const UINT dpi = DpiOf(list);
    const int rest = std::max(static_cast<int>(client.right) - others, Scaled(kNarrowestName, dpi));
    SetColumnWidth(list, kNameColumn, SizedWidth(kNameColumn, dpi).value_or(rest));
    // A cell that the list moves along keeps the "..." of the width that it had.
    InvalidateRect(list, nullptr, TRUE);
}

}  // namespace corvane
