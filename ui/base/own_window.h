// The windows of this program: the main one, others by their class, and what is reported when a
// procedure of a window fails.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// FM_Main; null before it is made and after its end.
HWND MainHandle();

// The thread's own window of a class; null when there is none.
HWND OwnWindow(const wchar_t* className);

// What a box belongs to: the dialog that is open over the main window, else the main window, when
// it can be seen; else null, and the box belongs to nobody.
HWND DialogOwner();

// F1 in a box, which the box or its owner gets: opens the page of the guide about what the box is
// about. `keyTime` is when the last such key was pressed: a message box may pass one key on twice,
// itself and as every window does.
void ShowHelpOnBox(LONG& keyTime);

// Reports the exception that is being handled; called in every catch block of a window procedure
// and of the program's entry.
void ReportFault() noexcept;

}  // namespace corvane
