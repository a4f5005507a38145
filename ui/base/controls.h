// windows.h with the common controls.
#pragma once

#include "platform/win32/win32.h"
// windows.h must come first.
#include <commctrl.h>
