// F1 in the main window, its menus and the boxes over it.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// The guide's page about the control that has the focus.
void ShowHelpOnFocus();

// WM_HELP: F1 in an open menu, on one of its items, or in a box over the window. F1 in the window
// itself is the key of a command.
void OnHelp(HWND window, const HELPINFO& help);

}  // namespace corvane
