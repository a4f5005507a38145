// The main window on the screens: where it is when it is made, and where the user has left it.
#pragma once

#include "platform/win32/win32.h"
#include "shell/report_details.h"
#include "shell/window_place.h"

namespace corvane {

// Size and place of a window that is not shown yet: as the user left it, or the first ones.
void ApplyPlace(HWND window);

// What of the window's record is remembered is filled in, too.
void NotePlace(HWND window, WindowPlace& place);

void NoteScreen(HWND window, Screen& screen);

}  // namespace corvane
