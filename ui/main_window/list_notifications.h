// What LI_Sections and its head report to the main window: which texts the lines have, what the
// user selects, clicks and types there.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// Posted to the main window after the selection has changed: by then it is known which lines are
// selected now.
inline constexpr UINT kSelectionChanged = WM_APP;

// Posted to the main window after the user has sized a column, wParam: by then it has its width.
inline constexpr UINT kColumnSized = WM_APP + 10;
void OnColumnSized(HWND window, int column);

// Whether a notification comes from the list or its head.
bool IsFromList(HWND window, const NMHDR& header);
// The answer to such a notification.
LRESULT OnListNotify(HWND window, LPARAM lParam);

}  // namespace corvane
