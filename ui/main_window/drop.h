// Files that the user drops on the main window.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/win32.h"
// windows.h must come first.
#include <shellapi.h>

namespace corvane {

// From now on the window gets WM_DROPFILES; from programs with fewer rights than this one, too.
void AcceptDrops(HWND window);

// The paths of the message's files. The handle is given back to the system.
std::vector<std::wstring> TakeDroppedPaths(HDROP drop);

}  // namespace corvane
