// The bar between two panes of a window, with a grip drawn on it: dragged with the mouse, or moved
// with the arrow keys while it has the focus. A double click, or Home, takes it back to where it is
// at first.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// Sent to the parent when the user moves the bar; wParam is the place that its left edge is to
// take, in pixels of the parent's client area. The parent holds it to what is possible and places
// the bar.
inline constexpr UINT kSplitterMoved = WM_APP + 1;

// Sent to the parent when the bar is to go back to its first place.
inline constexpr UINT kSplitterReset = WM_APP + 22;

// `name` is for screen readers.
HWND CreateSplitter(HWND parent, int id, const wchar_t* name);

}  // namespace corvane
