// The status line while the user points at something: why an item of a menu cannot be chosen, and
// what is under the pointer in the picture.
#pragma once

#include <string>

#include "platform/win32/win32.h"

namespace corvane {

// Answers WM_MENUSELECT. What the status line said before is back when the menu closes, or when an
// item can be chosen.
void OnMenuSelect(HWND window, UINT item, UINT flags);

// Shows a hint in the status line; an empty one gives back what was there before, unless something
// else was reported meanwhile.
void ShowHint(HWND window, const std::wstring& hint);

}  // namespace corvane
