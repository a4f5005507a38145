// The menu bar, made from the table of commands.
#pragma once

#include <string>

#include "platform/win32/win32.h"

namespace corvane {

// The bar belongs to the window that it is given to.
HMENU CreateMenuBar();

void SetSectionMenuText(HWND window, const std::wstring& text);

// Greys what can't be chosen now.
void UpdateMenus(HWND window, bool rowSelected);

}  // namespace corvane
