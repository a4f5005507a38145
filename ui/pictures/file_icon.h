// A file's icon in a picture control.
#pragma once

#include <string>

#include "platform/win32/win32.h"

namespace corvane {

// Draws the first icon of a program or icon file at the top left of a picture control, a static
// control of the style SS_BITMAP; the drawn image, of the control's size, becomes its bitmap.
// Nothing changes when the file is missing or has no icon.
void ShowFileIcon(const std::wstring& path, HWND picture);

// Frees the bitmap that ShowFileIcon gave the control; to be called before the control goes.
void ClearFileIcon(HWND picture);

}  // namespace corvane
