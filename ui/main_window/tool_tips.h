// Tool tips that show a control's whole text when the control is too narrow for it.
#pragma once

#include <string>

#include "ui/base/controls.h"

namespace corvane {

HWND CreateToolTips(HWND parent);
void AddToolTip(HWND toolTips, HWND control);

// Answers TTN_GETDISPINFO: no text for a control that shows all of its own. `text` holds the answer
// and must live as long as the tool tip is shown.
void FillToolTip(NMTTDISPINFOW& request, std::wstring& text);

}  // namespace corvane
