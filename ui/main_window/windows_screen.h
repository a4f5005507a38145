// What the core asks of the screen (shell/screen.h), done with Windows.
#pragma once

#include "platform/win32/win32.h"
#include "shell/screen.h"

namespace corvane {

// Every procedure of the record is filled in.
Screen WindowsScreen();

// Reports the exception that is being handled; called in every catch block of a window procedure
// and of the program's entry.
void ReportFault() noexcept;

// The thread's own window of a class; null when there is none.
HWND OwnWindow(const wchar_t* className);

}  // namespace corvane
