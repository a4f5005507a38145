// Two starts of one program file: the second finds the windows of the first by the file that its
// process runs, and hands it a file to open.
#pragma once

#include <string>

#include "platform/win32/win32.h"
#include "shell/view.h"

namespace corvane {

// As View::handToRunningInstance.
HandOver HandToRunningInstance(const std::wstring& file);

// The path that a message WM_COPYDATA hands over; empty when it does not come from a second start.
std::wstring HandedOverPath(const COPYDATASTRUCT& data);

}  // namespace corvane
