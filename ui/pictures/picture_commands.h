// Commands of the View menu in dialogs with a picture, wherever the focus is.
#pragma once

#include <cstdint>

#include "platform/win32/win32.h"

namespace corvane {

// The command whose key it is; 0 for any other key.
uint16_t CommandOfKey(const MSG& message);
// Shows more of the picture, less, or all of it; false for any other command.
bool RunPictureCommand(HWND picture, uint16_t command);

}  // namespace corvane
