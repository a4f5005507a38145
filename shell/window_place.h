// Where the user left the main window, and what it looked like. Kept in the settings file.
#pragma once

#include <span>
#include <string>

namespace corvane {

// In pixels of the whole desktop; a screen left of or above the main one has negative ones.
struct ScreenArea {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool operator==(const ScreenArea&) const = default;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
};

struct WindowPlace {
    bool isKnown = false;  // the window has been shown before
    ScreenArea area;       // while it is neither maximised nor minimised
    int dpi = 96;          // of the screen that it was on
    bool isMaximised = false;
    // Share of the width that the list has beside the preview, 0 to 1; 0: as at the first start.
    double listShare = 0;
    bool isPreviewOn = true;  // OP_Preview
};

// What the file has; numbers that no window can have count as none.
WindowPlace ReadWindowPlace(const std::wstring& file);
// False when the file took not all of it.
bool WriteWindowPlace(const std::wstring& file, const WindowPlace& place);

// The area for a window that was at `area`, on the screens that are there now, the main one first;
// each without its task bar. It is no larger than its screen. Where its title can be reached with
// the mouse it stays; otherwise it is moved onto the screen that shows most of it.
ScreenArea FitToScreens(const ScreenArea& area, std::span<const ScreenArea> screens);

}  // namespace corvane
