// The pictures of the main window's buttons.
#pragma once

#include "ui/pictures/icons.h"

namespace corvane {

// Shows a picture at the left of the button's caption; grey while the button is disabled.
void ShowButtonPicture(HWND button, PictureId id, UINT dpi);

// Frees the picture of a button; before the button goes.
void RemovePicture(HWND button);

}  // namespace corvane
