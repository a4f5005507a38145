// The parts of the main window that F6 goes through: the path of the database, the list of models,
// the preview, the rule set.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// Gives the focus to the part after that which has it, or to the one before, around the end. A part
// that cannot have it is left out.
void FocusPane(HWND window, bool forward);

}  // namespace corvane
