#include "ui/main_window/start_pane.h"

#include <algorithm>
#include <string>
#include <vector>

#include "shell/commands/commands.h"
#include "shell/recent_databases.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"

namespace corvane {
namespace {

// Distances in pixels at 96 dots per inch.
constexpr int kGap = 7;
constexpr int kButtonPadding = 6;
constexpr int kButtonWidth = 190;

// From top to bottom.
std::vector<int> PaneControls() {
    std::vector<int> ids = {LB_Start, BT_StartOpen, BT_StartNew, BT_StartSample, LB_StartRecent};
    for (int i = 0; i < static_cast<int>(kRecentCount); ++i) ids.push_back(BT_StartRecent + i);
    return ids;
}

bool IsLabel(int id) {
    return id == LB_Start || id == LB_StartRecent;
}

bool IsRecent(int id) {
    return id >= BT_StartRecent;
}

void Add(HWND window, int id, const wchar_t* windowClass, const wchar_t* text, DWORD style) {
    CreateWindowExW(0, windowClass, text, WS_CHILD | style, 0, 0, 0, 0, window,
                    reinterpret_cast<HMENU>(INT_PTR{id}), nullptr, nullptr);
}

// The recent databases as they are now: text, and whether they are there.
void FillInRecent(HWND window) {
    const std::vector<RecentItem> items = RecentItems();
    for (size_t i = 0; i < kRecentCount; ++i) {
        const HWND button = GetDlgItem(window, BT_StartRecent + static_cast<int>(i));
        const bool isUsed = i < items.size();
        if (isUsed) SetWindowTextW(button, items[i].caption.c_str());
        EnableWindow(button, isUsed && items[i].isThere);
    }
}

// Whether the pane has something to show there.
bool IsOffered(int id) {
    if (id == BT_StartSample) return IsEnabled(*FindCommand(ME_HelpSample));
    if (id == LB_StartRecent) return !shell.recent.empty();
    return !IsRecent(id) || id - BT_StartRecent < static_cast<int>(shell.recent.size());
}

}  // namespace

void CreateStartPane(HWND window) {
    const DWORD button = WS_TABSTOP | BS_PUSHBUTTON;
    Add(window, LB_Start, WC_STATICW, L"No database is open.", SS_LEFT);
    Add(window, BT_StartOpen, WC_BUTTONW, L"Open a database...", button);
    Add(window, BT_StartNew, WC_BUTTONW, L"New...", button);
    Add(window, BT_StartSample, WC_BUTTONW, L"Open the sample ship...", button);
    Add(window, LB_StartRecent, WC_STATICW, L"Open again:", SS_LEFT);
    for (int i = 0; i < static_cast<int>(kRecentCount); ++i) {
        Add(window, BT_StartRecent + i, WC_BUTTONW, L"Recent database", button | BS_LEFT);
    }
}

bool ShowStartPane(HWND window, bool isShown) {
    if (IsStartPaneShown(window) == isShown) return false;
    if (isShown) FillInRecent(window);
    for (const int id : {LB_Models, LI_Sections}) {
        ShowWindow(GetDlgItem(window, id), isShown ? SW_HIDE : SW_SHOWNA);
    }
    for (const int id : PaneControls()) {
        const bool isOffered = isShown && IsOffered(id);
        ShowWindow(GetDlgItem(window, id), isOffered ? SW_SHOWNA : SW_HIDE);
    }
    return true;
}

bool IsStartPaneShown(HWND window) {
    return (GetWindowLongPtrW(GetDlgItem(window, LB_Start), GWL_STYLE) & WS_VISIBLE) != 0;
}

void PlaceStartPane(HWND window, const RECT& area, const Layout& layout) {
    const int gap = Scaled(kGap, layout.dpi);
    const int text = static_cast<int>(TextSize(window, layout.font, L"X").cy);
    LONG top = area.top;
    for (const int id : PaneControls()) {
        if (!IsOffered(id)) continue;
        const int height = IsLabel(id) ? text : text + 2 * Scaled(kButtonPadding, layout.dpi);
        const bool isNarrow = !IsLabel(id) && !IsRecent(id);
        const LONG room = area.right - area.left;
        const LONG width = isNarrow ? std::min<LONG>(Scaled(kButtonWidth, layout.dpi), room) : room;
        const HWND control = GetDlgItem(window, id);
        SetWindowPos(control, nullptr, area.left, top, width, height,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
        ShowWindow(control, top + height <= area.bottom ? SW_SHOWNA : SW_HIDE);
        top += height + gap;
    }
}

}  // namespace corvane
