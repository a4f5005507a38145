#include "ui/base/colours.h"

#include <uxtheme.h>

namespace corvane {
namespace {

bool IsHighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof(contrast);
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace

bool IsDark(int background) {
    const COLORREF colour = GetSysColor(background);
    // As an eye weighs the colours, in hundredths.
    const int light = 30 * GetRValue(colour) + 59 * GetGValue(colour) + 11 * GetBValue(colour);
    return light < 100 * 128;
}

bool NeedsSystemColours(int background) {
    return IsHighContrast() || IsDark(background);
}

bool NeedsSystemColoursOnButtons() {
    return IsHighContrast() || (!IsThemeActive() && IsDark(COLOR_BTNFACE));
}

}  // namespace corvane
