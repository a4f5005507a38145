#include "ui/windows/list_controls.h"

#include "app/state.h"

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
    shell.screen.processPendingMessages();
}

void AddListItemWithData(HWND list, const std::wstring& text, int32_t data) {
    // A sorted list puts the item where it belongs, so its index is the answer's.
    const LRESULT index =
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    if (index >= 0) SendMessageW(list, LB_SETITEMDATA, static_cast<WPARAM>(index), data);
}

}  // namespace corvane
