// Where a stand-in's controls stand.
#pragma once

#include "platform/win32/win32.h"
#include "stand_ins/form.h"

namespace corvane::siblings {

// Places the controls for this font and resolution; returns the size of the client area that holds
// them.
SIZE LayOut(HWND window, const Form& form, HFONT font, UINT dpi);

}  // namespace corvane::siblings
