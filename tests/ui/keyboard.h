// Real keys and mouse movements, as they come from the user: they reach whatever has the focus or
// is under the pointer.
#pragma once

#include <functional>
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
void TypeWithAltShift(WORD key);
void TypeWithControl(WORD key);
void TypeWithControlShift(WORD key);
// Chooses a command of the main window with Alt and the letter of its menu, then its own letter;
// false when no command begins. The display informs a window that comes to the front which keys are
// down, and a key of which it knows nothing counts as released then: keys that had no effect are
// pressed again. Home takes back what a letter alone has selected in the list of models.
bool ChooseByKeys(const Program& program, WORD menu, WORD item);
// Presses a key until the condition holds, again after a while when it had no effect, for the
// reason above; false when it never holds.
bool PressUntil(WORD key, const std::function<bool()>& condition);
// The same of any keys, and of movements of the mouse, of which the display may make one.
bool RepeatUntil(const std::function<void()>& act, const std::function<bool()>& condition);
// A text, whatever the layout of the keyboard; a line feed is the Enter key.
void TypeText(std::wstring_view text);

// Identifier of the control that has the focus in the window's program; 0 without one.
int FocusedControl(HWND window);
bool FocusBecomes(HWND window, int control);

// A drag: presses the left button at a point of the screen, on a control that then captures the
// mouse; moves; releases the button. False when the control does not capture or release the mouse.
// Wait for the effect of each movement: the display also reports it to the program, in its own
// time, and a late report of an earlier point would take the control back there.
bool BeginDrag(HWND control, POINT from);
void MoveMouse(POINT to);
bool EndDrag(HWND control, POINT at);
void Click(POINT at);
void RightClick(POINT at);
void ClickWithControl(POINT at);
void DoubleClick(POINT at);
void TurnWheel(POINT at, int steps);

}  // namespace corvane::ui
