// A read-only text field that holds a path. While the path is too long for the field and the user
// is not in it, the middle of the path is left out, so that drive and file name can be seen.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

void MakePathField(HWND field);

}  // namespace corvane
