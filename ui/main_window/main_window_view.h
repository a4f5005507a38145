// The part of the view that is the main window: its contents, status label and pointer.
#pragma once

#include "shell/view.h"

namespace corvane {

void FillInMainWindow(View& view);

}  // namespace corvane
