// The bar at the window's foot: the message, which is the label PAN_Help over its first part, then
// the number of models, the state of the file and the rule set, and a grip for the window's size.
#pragma once

#include "platform/win32/win32.h"
#include "shell/status_parts.h"

namespace corvane {

// Created after PAN_Help, which is above it.
void CreateStatusBar(HWND window);

// Shows the texts; a part without a text takes no room. The message's part has what they leave.
void ShowStatusParts(HWND window, const StatusParts& parts);

// Places bar and label along the window's foot; returns the bar's height [pixels].
int PlaceStatusBar(HWND window, int textHeight, UINT dpi);

}  // namespace corvane
