// Where the main window's controls stand, for the size and resolution of the window.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// Sizes of the main window's client area [pixels at 96 dots per inch].
inline constexpr SIZE kFirstClientSize{860, 560};
inline constexpr SIZE kLeastClientSize{480, 300};

// Places the controls in the window's client area; `font` is the controls' font.
void LayOutMainWindow(HWND window, HFONT font, UINT dpi);

}  // namespace corvane
