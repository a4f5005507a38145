#include "ui/main_window/filter_box.h"

#include "report/reporters.h"
#include "shell/commands/view_commands.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"

namespace corvane {
namespace {

// More than anybody types, and a line of the settings file holds.
constexpr WPARAM kLongestFilter = 200;

bool HasFocus(HWND window) {
    return GetFocus() == GetDlgItem(window, TX_Filter);
}

void FocusList(HWND window) {
    const HWND list = GetDlgItem(window, LI_Sections);
    if (IsWindowEnabled(list)) SetFocus(list);
}

// The down arrow goes on into the list.
LRESULT CALLBACK BoxProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                              DWORD_PTR) {
    if (message == WM_KEYDOWN && wParam == VK_DOWN) {
        FocusList(GetParent(box));
        return 0;
    }
    if (message == WM_NCDESTROY) RemoveWindowSubclass(box, BoxProcedure, id);
    return DefSubclassProc(box, message, wParam, lParam);
}

}  // namespace

void MakeFilterBox(HWND box) {
    const std::wstring cue = GetMessage(kMsgFilterCue);
    SendMessageW(box, EM_SETLIMITTEXT, kLongestFilter, 0);
    SendMessageW(box, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(cue.c_str()));
    SetWindowTextW(box, shell.list.filter.c_str());
    SetWindowSubclass(box, BoxProcedure, 1, 0);
}

void OnFilterNotify(HWND window, UINT notification) {
    if (notification == EN_CHANGE) FilterList(WindowText(GetDlgItem(window, TX_Filter)));
}

void LeaveFilterBox(HWND window) {
    if (HasFocus(window)) FocusList(window);
}

bool ClearFilterBox(HWND window) {
    if (!HasFocus(window)) return false;
    SetWindowTextW(GetDlgItem(window, TX_Filter), L"");
    FocusList(window);
    return true;
}

void FocusFilterBox(HWND window) {
    const HWND box = GetDlgItem(window, TX_Filter);
    SetFocus(box);
    SendMessageW(box, EM_SETSEL, 0, -1);
}

}  // namespace corvane
