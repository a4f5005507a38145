#include "ui/dialogs/list_controls.h"

#include <algorithm>

#include "shell/state.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"

namespace corvane {

void SelectAllInList(HWND list, bool value) {
    if (!IsWindowEnabled(list)) return;
    const LONG_PTR style = GetWindowLongPtrW(list, GWL_STYLE);
    if ((style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0) {
        SendMessageW(list, LB_SETSEL, value ? TRUE : FALSE, -1);
        SendMessageW(list, LB_SETCARETINDEX, static_cast<WPARAM>(-1), FALSE);
    } else {
        SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    }
    reportView.processPendingMessages();
}

void AddListItemWithData(HWND list, const std::wstring& text, int32_t data) {
    // A sorted list puts the item where it belongs, so its index is the answer's.
    const LRESULT index =
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    if (index >= 0) SendMessageW(list, LB_SETITEMDATA, static_cast<WPARAM>(index), data);
}

void FillList(HWND list, const std::vector<std::wstring>& items) {
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    for (const std::wstring& item : items) {
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    }
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

void FitScrolling(HWND list) {
    const HDC dc = GetDC(list);
    const HGDIOBJ before =
        SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)));
    constexpr int kEdge = 6;  // on both sides of a text [px]
    int widest = 0;
    const LRESULT count = SendMessageW(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const std::wstring text = ListItemText(list, i);
        SIZE size{};
        GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
        widest = std::max(widest, static_cast<int>(size.cx) + kEdge);
    }
    SelectObject(dc, before);
    ReleaseDC(list, dc);
    SendMessageW(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest), 0);
}

std::wstring ListItemText(HWND list, LRESULT index) {
    const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, static_cast<WPARAM>(index), 0);
    if (index < 0 || length == LB_ERR) return {};
    std::wstring text(static_cast<size_t>(length), L'\0');
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(text.data()));
    return text;
}

void FillDropDown(HWND list, const std::vector<std::wstring>& items, size_t chosen) {
    for (const std::wstring& item : items) {
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    }
    SendMessageW(list, CB_SETCURSEL, chosen, 0);
}

size_t ChoiceOfDropDown(HWND list) {
    return static_cast<size_t>(SendMessageW(list, CB_GETCURSEL, 0, 0));
}

void PlaceDropDown(HWND window, int id, RECT& area, UINT dpi) {
    // It is given the height that it has when it is open.
    constexpr int kOpenHeight = 240;
    PlaceControl(window, id,
                 {area.left, area.top, area.right, area.top + Scaled(kOpenHeight, dpi)});
    RECT closed{};
    GetWindowRect(GetDlgItem(window, id), &closed);
    area.top += closed.bottom - closed.top;
}

void AddListColumn(HWND list, int index, const wchar_t* title, bool alignsRight) {
    std::wstring text = title;
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_FMT | LVCF_SUBITEM;
    column.fmt = alignsRight ? LVCFMT_RIGHT : LVCFMT_LEFT;
    column.pszText = text.data();
    column.iSubItem = index;
    SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&column));
}

void PutItemText(LVITEMW& item, const std::wstring& text) {
    if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0) return;
    const size_t length = std::min(text.size(), static_cast<size_t>(item.cchTextMax) - 1);
    std::copy_n(text.begin(), length, item.pszText);
    item.pszText[length] = L'\0';
}

}  // namespace corvane
