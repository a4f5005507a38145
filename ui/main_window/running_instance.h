// Two starts of one program file: the second finds the windows of the first by the file that its
// process runs, and hands it a file to open.
#pragma once

#include "platform/win32/win32.h"
#include "shell/view.h"

namespace corvane {

// As View::handToRunningInstance.
HandOver HandToRunningInstance(const StartRequest& request);

// What a message WM_COPYDATA hands over: a file on a drive or on a share, by its absolute path.
// Without a file for every other message, whoever sends it.
StartRequest ReadHandedOver(const COPYDATASTRUCT& data);

}  // namespace corvane
