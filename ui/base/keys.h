// Keys of the keyboard as the table of commands has them.
#pragma once

#include "platform/win32/win32.h"
#include "shell/commands/keys.h"

namespace corvane {

// The key of WM_KEYDOWN or WM_SYSKEYDOWN, with those that are held.
Key KeyOf(const MSG& message);

}  // namespace corvane
