// Draws a figure on a device context: of the screen, of a bitmap, of a metafile or of a printer.
#pragma once

#include <string>

#include "platform/win32/win32.h"
#include "preview/figure.h"

namespace corvane {

// How a device shows a sheet.
struct FigureDevice {
    HDC dc;
    double pixelsPerMm;
    POINT corner{};  // of the sheet [px]
    const wchar_t* typeface = L"Segoe UI";
};

// Pens, brushes and fonts are gone when it returns, and the device context is as before.
void PlayFigure(const FigureDevice& device, const Figure& figure);

}  // namespace corvane
