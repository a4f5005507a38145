// FM_Load, the window that is shown while the program starts.
#pragma once

#include <string>

#include "text/version.h"

namespace corvane {

// On top of all windows, in the middle of the screen: the product's picture, the title, the
// version, and the warnings of an experimental one. One that is shown already is replaced.
void ShowSplash(const std::wstring& title, const ProgramVersion& version = kProgramVersion);
void UnloadSplash();

}  // namespace corvane
