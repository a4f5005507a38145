// The preview alone in the main window: its switch and legend above it, the labels of the model and
// the status bar below it. Everything else is out of sight and out of the tab order.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

void ShowLargerPreviewIn(HWND window, bool isLarge);

}  // namespace corvane
