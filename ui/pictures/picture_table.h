// The table of a window with a picture: what is at the places that the user clicked on. It is there
// as long as there is such a place; its text can be selected and copied.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// LB_Facts and TX_Facts, hidden.
void CreatePictureTable(HWND window);
// Shows what PictureFacts says now, or hides the table. True when it has come or gone, and the
// window is to be laid out again.
bool ShowPictureTable(HWND window);
bool IsPictureTableShown(HWND window);

}  // namespace corvane
