// Sizes, fonts and texts of windows at their resolution. Windows before version 10 knows only one
// resolution for all screens; the procedures then use that one.
#pragma once

#include <string>

#include "platform/win32/win32.h"

namespace corvane {

// Dots per inch of the window's screen; of the main screen for a null window.
UINT DpiOf(HWND window);

// Pixels of a length given at 96 dots per inch.
int Scaled(int length, UINT dpi);

// A system metric (SM_...) at a resolution.
int SystemMetric(int index, UINT dpi);

// The font of message boxes at a resolution, times `scale`; the caller deletes it.
HFONT CreateMessageFont(UINT dpi, int scalePercent = 100, LONG weight = FW_NORMAL);

// Width and height of one line of text in a font.
SIZE TextSize(HWND window, HFONT font, const std::wstring& text);

// Height of a text that is broken into lines of a width.
int TextHeight(HWND window, HFONT font, const std::wstring& text, int width);

// A window's or control's whole text.
std::wstring WindowText(HWND window);

// Size of a window whose client area, below a menu bar of one line when `hasMenu`, has this size.
SIZE WindowSize(HWND window, SIZE client, bool hasMenu, UINT dpi);

// Keeps Windows from scaling a dialog by itself when its resolution changes.
void ScaleDialogOurselves(HWND dialog);

}  // namespace corvane
