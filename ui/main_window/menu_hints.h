// While a menu is open: the status line says why the item under the pointer, or the keyboard's
// mark, cannot be chosen.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// Answers WM_MENUSELECT. What the status line said before is back when the menu closes, or when an
// item can be chosen.
void OnMenuSelect(HWND window, UINT item, UINT flags);

}  // namespace corvane
