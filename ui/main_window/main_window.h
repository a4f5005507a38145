// FM_Main, the program's main window: its controls, their layout, and what it forwards to shell/.
#pragma once

namespace corvane {

// Makes the window, without showing it.
void LoadMainWindow();

}  // namespace corvane
