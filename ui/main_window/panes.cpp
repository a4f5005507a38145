#include "ui/main_window/panes.h"

#include "shell/rule_set.h"
#include "ui/base/control_ids.h"
#include "ui/main_window/start_pane.h"

namespace corvane {
namespace {

// The first controls of the parts, in the order of the tab key.
constexpr int kPanes[] = {TX_DataBase, LI_Sections, OP_Preview, OP_Rule};
constexpr int kPaneCount = 4;

// The pane in which a control is: the last one that begins before it.
int PaneOf(HWND window, HWND control) {
    int pane = 0;
    int next = 1;
    for (HWND at = GetWindow(window, GW_CHILD); at != nullptr && at != control;
         at = GetWindow(at, GW_HWNDNEXT)) {
        const HWND following = GetWindow(at, GW_HWNDNEXT);
        if (next == kPaneCount || following != GetDlgItem(window, kPanes[next])) continue;
        pane = next++;
    }
    return pane;
}

// Of the rule sets, the chosen one can have the focus without being chosen by it.
HWND FirstControl(HWND window, int pane) {
    int id = kPanes[pane];
    // Without a database, what is in the list's place.
    if (id == LI_Sections && IsStartPaneShown(window)) id = BT_StartOpen;
    return GetDlgItem(window, id == OP_Rule ? OP_Rule + static_cast<int>(CurrentRuleSet()) : id);
}

}  // namespace

void FocusPane(HWND window, bool forward) {
    int pane = PaneOf(window, GetFocus());
    for (int i = 0; i < kPaneCount; ++i) {
        pane = (pane + (forward ? 1 : kPaneCount - 1)) % kPaneCount;
        const HWND control = FirstControl(window, pane);
        if (!IsWindowVisible(control) || !IsWindowEnabled(control)) continue;
        SetFocus(control);
        return;
    }
}

}  // namespace corvane
