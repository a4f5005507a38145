// The context menu of the list of models: the commands of the Section menu.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// WM_CONTEXTMENU of the main window: `control` was asked at the point `where` of the screen; -1: by
// the keyboard, the menu is then at the selected row. False when it is not about the list's rows.
bool ShowContextMenu(HWND window, HWND control, LPARAM where);

}  // namespace corvane
