#include "ui/main_window/context_menu.h"

#include <windowsx.h>

#include "shell/commands/commands.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/main_window/model_list_view.h"

namespace corvane {
namespace {

// Below the name of the selected row; the list's corner without one. In points of the screen.
POINT PlaceAtSelection(HWND list) {
    POINT place{};
    const int row = SelectedListLine(list);
    if (row >= 0) {
        SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
        RECT area{LVIR_LABEL, 0, 0, 0};
        SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&area));
        place = {area.left, area.bottom};
    }
    ClientToScreen(list, &place);
    return place;
}

bool IsOnHeader(HWND list, POINT place) {
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    RECT area{};
    GetWindowRect(header, &area);
    return PtInRect(&area, place) != FALSE;
}

}  // namespace

bool ShowContextMenu(HWND window, HWND control, LPARAM where) {
    const HWND list = GetDlgItem(window, LI_Sections);
    if (control != list) return false;
    constexpr LPARAM kByKeyboard = -1;
    POINT place{GET_X_LPARAM(where), GET_Y_LPARAM(where)};
    if (where == kByKeyboard) {
        place = PlaceAtSelection(list);
    } else if (IsOnHeader(list, place)) {
        return false;
    }
    const HMENU menu = GetSubMenu(GetMenu(window), static_cast<int>(Menu::kSection));
    TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RIGHTBUTTON, place.x, place.y, 0,
                   window, nullptr);
    return true;
}

}  // namespace corvane
