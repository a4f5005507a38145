// Whether a window shows all that it has: its controls inside of it, their texts whole, and itself
// on the smallest screen.
#pragma once

#include <initializer_list>

#include "platform/win32/win32.h"

namespace corvane::test {

inline constexpr WORD kResolutions[] = {96, 120, 144, 192, 240, 288};

// Fails where a control that is shown sticks out of the window, or where a label's or a button's
// text needs more room than the control has. A label that ends in "..." when it is too narrow needs
// the height of a line; `longLabels` need nothing.
void ExpectNothingIsCut(HWND window, std::initializer_list<int> longLabels = {});

// Fails where the window is larger than the room above the task bar on a screen of 800 x 600 at 96
// dots per inch.
void ExpectFitsSmallScreen(HWND window, UINT dpi);

// Brings the window to a resolution, as when it comes to another screen, and expects both.
void ExpectWholeAt(HWND window, WORD dpi);

}  // namespace corvane::test
