// Real keys and mouse movements, as they come from the user: they reach whatever has the focus or
// lies under the pointer.
#pragma once

#include <initializer_list>
#include <string_view>

#include "tests/ui/driver.h"

namespace corvane::ui {

// Waits until the window is the one that gets the keys.
bool TakesKeys(HWND window);

// Presses and releases the keys (VK_...) one after the other.
void Type(std::initializer_list<WORD> keys);
// With Alt held.
void TypeWithAlt(WORD key);
void TypeWithShift(WORD key);
// Opens a menu of the main window with Alt and its letter; false when none opens. The display tells
// a window that comes to the front which keys are down, and Alt, of which it knows nothing, counts
// as released then: it is pressed again until the menu is there. Home takes back what the letter
// alone has selected in the list of models.
bool OpenMenu(const Program& program, WORD letter);
// A text, whatever the layout of the keyboard; a line feed is the Enter key.
void TypeText(std::wstring_view text);

// Identifier of the control that has the focus in the window's program; 0 without one.
int FocusedControl(HWND window);
bool FocusBecomes(HWND window, int control);

// Presses the left button at a point of the screen, moves to another, and releases it there.
void DragMouse(POINT from, POINT to);
void DoubleClick(POINT at);

}  // namespace corvane::ui
