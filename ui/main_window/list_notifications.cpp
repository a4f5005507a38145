#include "ui/main_window/list_notifications.h"

#include <utility>

#include "shell/commands/commands.h"
#include "shell/commands/view_commands.h"
#include "shell/state.h"
#include "ui/main_window/main_window_state.h"
#include "ui/main_window/model_list_view.h"

namespace corvane {
namespace {

// Of many changes at once the last state is shown.
void OnSelectionChanging(HWND window) {
    MSG waiting;
    const bool isPosted = PeekMessageW(&waiting, window, kSelectionChanged, kSelectionChanged,
                                       PM_NOREMOVE | PM_NOYIELD) != FALSE;
    if (!isPosted) PostMessageW(window, kSelectionChanged, 0, 0);
}

void OnListChanged(HWND window, const NMLISTVIEW& change) {
    MainWindowState& state = *StateOfMainWindow(window);
    if (state.filling || (change.uChanged & LVIF_STATE) == 0) return;
    const bool was = (change.uOldState & LVIS_SELECTED) != 0;
    const bool is = (change.uNewState & LVIS_SELECTED) != 0;
    if (!was && is && (change.uNewState & LVIS_FOCUSED) != 0 && change.iItem >= 0) {
        state.readByClick = GetKeyState(VK_LBUTTON) < 0;
        SelectLine(change.iItem);
        PostMessageW(window, kLookAtFile, 0, 0);
    }
    OnSelectionChanging(window);
}

// A click on the line that is selected reads its model again; the click that selected it has done
// so.
void OnLineClicked(HWND window, int line) {
    const bool wasRead = std::exchange(StateOfMainWindow(window)->readByClick, false);
    if (!wasRead && line >= 0) ShowSelectedLineAgain();
}

// What the user types in the list.
int FindTyped(const NMLVFINDITEMW& search) {
    if ((search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0) return -1;
    return FindLine(search.lvfi.psz, search.iStart);
}

}  // namespace

bool IsFromList(HWND window, const NMHDR& header) {
    const HWND list = GetDlgItem(window, LI_Sections);
    return header.hwndFrom == list || GetParent(header.hwndFrom) == list;
}

void OnColumnSized(HWND window, int column) {
    ColumnWidths widths = shell.list.widths;
    widths.at(static_cast<size_t>(column)) = ColumnWidth(GetDlgItem(window, LI_Sections), column);
    SetColumnWidths(widths);
    FitNameColumn(GetDlgItem(window, LI_Sections));
}

LRESULT OnListNotify(HWND window, LPARAM lParam) {
    switch (reinterpret_cast<const NMHDR*>(lParam)->code) {
        case LVN_GETDISPINFOW:
            FillInLine(reinterpret_cast<NMLVDISPINFOW*>(lParam)->item);
            return 0;
        case LVN_ODFINDITEMW:
            return FindTyped(*reinterpret_cast<const NMLVFINDITEMW*>(lParam));
        case LVN_ITEMCHANGED:
            OnListChanged(window, *reinterpret_cast<const NMLISTVIEW*>(lParam));
            return 0;
        case LVN_ODSTATECHANGED:
            if (!StateOfMainWindow(window)->filling) OnSelectionChanging(window);
            return 0;
        case LVN_COLUMNCLICK: {
            const int column = reinterpret_cast<const NMLISTVIEW*>(lParam)->iSubItem;
            SortList(OrderAfterClick(shell.list.order, static_cast<ListColumn>(column)));
            return 0;
        }
        case HDN_ENDTRACKW:
        case HDN_DIVIDERDBLCLICKW: {
            const int column = reinterpret_cast<const NMHEADERW*>(lParam)->iItem;
            PostMessageW(window, kColumnSized, static_cast<WPARAM>(column), 0);
            return 0;
        }
        case NM_CLICK:
            OnLineClicked(window, reinterpret_cast<const NMITEMACTIVATE*>(lParam)->iItem);
            return 0;
        case LVN_BEGINDRAG:
            StateOfMainWindow(window)->readByClick = false;
            return 0;
        case NM_DBLCLK:
            // The command runs when the list is through with the message.
            if (reinterpret_cast<const NMITEMACTIVATE*>(lParam)->iItem >= 0) {
                PostMessageW(window, WM_COMMAND, ME_SectionInput, 0);
            }
            return 0;
        default:
            return 0;
    }
}

}  // namespace corvane
