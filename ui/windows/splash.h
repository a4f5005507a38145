// FM_Load, the window that is shown while the program starts.
#pragma once

#include <string>

namespace corvane {

// On top of all windows, in the middle of the screen; the title and the program's version.
void ShowSplash(const std::wstring& title);
void UnloadSplash();

}  // namespace corvane
