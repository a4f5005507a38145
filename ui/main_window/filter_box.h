// TX_Filter, the box above the list: what is typed there filters the list at once.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// The box with the text of the filter as it is, and a cue while it is empty.
void MakeFilterBox(HWND box);

// Notifications of the box.
void OnFilterNotify(HWND window, UINT notification);

// Enter in the box: back to the list. Nothing happens when the focus is not there.
void LeaveFilterBox(HWND window);
// Esc in the box: all models again, and back to the list. False when the focus is not there.
bool ClearFilterBox(HWND window);

// The user types there next.
void FocusFilterBox(HWND window);

}  // namespace corvane
