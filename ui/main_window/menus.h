// The menu bar, made from the table of commands.
#pragma once

#include <string>

#include "platform/win32/win32.h"

namespace corvane {

// The bar belongs to the window that it is given to.
HMENU CreateMenuBar();

void SetSectionMenuText(HWND window, const std::wstring& text);

// Greys what cannot be chosen now, everything while the window is locked, shows what Undo and Redo
// would do, and marks what is set.
void UpdateMenus(HWND window, bool locked);

// Lists the recent databases in the File menu, which is being opened; others do nothing.
void ShowRecent(HWND window, HMENU opened);

// Whether the message is Alt and the letter of a top menu of the window. A control with the same
// letter must not use it.
bool OpensTopMenu(HWND window, const MSG& message);

}  // namespace corvane
