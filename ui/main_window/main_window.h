// FM_Main, the program's main window: its controls, their places, and what it forwards to
// ui/commands/.
#pragma once

#include "platform/win32/win32.h"
#include "shell/screen.h"

namespace corvane {

// The part of the screen that is the main window: caption, status label, pointer, load and show.
void FillMainWindowProcedures(Screen& screen);

// Makes the window, without showing it.
void LoadMainWindow();

}  // namespace corvane
