// Pictures of the screen: what a test looks at, and what is kept of a test that failed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/win32/win32.h"

namespace corvane::ui {

// Pixels 0x00RRGGBB, rows from the top.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;
};

// What the screen shows in an area, in screen coordinates.
Picture CopyScreen(const RECT& area);

// Whether a preview on the screen shows plates and stiffeners.
bool ShowsASection(HWND preview);

// Writes the screen to failure_<test>.bmp beside the test program, and names it in the output.
void KeepScreenshot();
// The same with a picture, to failure_<test><title>.bmp.
void KeepPicture(const Picture& picture, const std::string& title);

}  // namespace corvane::ui
