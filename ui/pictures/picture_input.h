// Mouse and keys in the picture: the wheel zooms at the pointer, dragging and the arrow keys move,
// + and - zoom, Home and a double click show all again. A click marks a place, a second one
// measures from there; Space does so in the middle of the picture. A tool tip says what is under
// the pointer.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// True for a message that the picture has dealt with; `answer` is what its procedure returns then.
bool HandlePictureInput(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& answer);

// The picture's tool tip, which goes with it.
void AddPictureToolTip(HWND picture);
// Forgets the places that the user clicked on.
void ClearPlaces(HWND picture);

}  // namespace corvane
