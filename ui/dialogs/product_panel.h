// What the windows FM_Load and FM_About both show of the program, in a frame: its picture, title
// and version, and the warnings of an experimental version.
#pragma once

#include <string>

#include "platform/win32/win32.h"
#include "text/version.h"

namespace corvane {

// Fonts and picture of the resolution that the panel has; they go with the record.
struct ProductPanel {
    HFONT titleFont = nullptr;
    HFONT versionFont = nullptr;
    HFONT warningFont = nullptr;
    HICON picture = nullptr;

    ProductPanel() = default;
    ~ProductPanel();
    ProductPanel(const ProductPanel&) = delete;
    ProductPanel& operator=(const ProductPanel&) = delete;
};

struct ProductTexts {
    std::wstring title;
    std::wstring versionLine;
    ProgramVersion version;  // decides whether the warnings are shown
};

// Adds the panel's labels to a window.
void AddProductPanel(HWND window, const ProductTexts& texts);
// Gives them the fonts and the picture of a resolution. The result is the least size of the panel.
SIZE ScaleProductPanel(HWND window, ProductPanel& panel, UINT dpi);
// The picture at the left; the title beside it and the version below the title, both in the middle
// of the width that is left; the warnings below.
void PlaceProductPanel(HWND window, const RECT& area, UINT dpi);

// For WM_CTLCOLORSTATIC: the warnings are red where the system's colours allow it. The labels'
// background is the system colour.
HBRUSH ColourProductLabel(HWND label, HDC dc, int background);

}  // namespace corvane
