// PIC_Section: a child window that keeps what is drawn in it.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// The picture as a child of `parent`, without a place yet.
HWND CreateSectionPicture(HWND parent);

// Draws the section in memory (DrawPreview). Where there is none, or the Basic Ship Data are not
// defined, the picture keeps its contents.
void RedrawSectionPicture(HWND picture);
void ClearSectionPicture(HWND picture);

}  // namespace corvane
