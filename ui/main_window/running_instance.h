// Two starts of one program file: the second finds the windows of the first by the file that its
// process runs, and hands it a file to open.
#pragma once

#include "platform/win32/win32.h"
#include "shell/view.h"

namespace corvane {

// As View::handToRunningInstance.
HandOver HandToRunningInstance(const StartRequest& request);

// What a message WM_COPYDATA hands over; without a file when it does not come from a second start.
StartRequest ReadHandedOver(const COPYDATASTRUCT& data);

}  // namespace corvane
