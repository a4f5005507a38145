// The keys of the commands, wherever the focus is in the main window.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// The keys of the table of commands; they live as long as the program.
HACCEL CreateKeys();

// Runs the command of a key, and says so; a key that means something else to the control that has
// the focus is left to that control.
bool RunKey(HWND window, HACCEL keys, MSG& message);

}  // namespace corvane
