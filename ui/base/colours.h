// The colours that the user has chosen for the system.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// Whether a background of the system (COLOR_...) is dark, so that dark colours are not seen on it.
bool IsDark(int background);

// Whether texts and pictures on a background of the system have the system's colours only: the user
// has asked for high contrast, or the background is dark.
bool NeedsSystemColours(int background);
// The same on buttons, whose ground is the theme's, where there is one.
bool NeedsSystemColoursOnButtons();

}  // namespace corvane
