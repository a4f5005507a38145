// Where the main window's controls are, for the size and resolution of the window.
#pragma once

#include "platform/win32/win32.h"

namespace corvane {

// Sizes of the main window's client area [pixels at 96 dots per inch].
inline constexpr SIZE kFirstClientSize{860, 620};
inline constexpr SIZE kLeastClientSize{680, 400};

// Share of the width that the list has beside the preview, 0 to 1, at first.
inline constexpr double kFirstListShare = 0.54;

struct Layout {
    HFONT font = nullptr;  // of the controls
    UINT dpi = USER_DEFAULT_SCREEN_DPI;
    double listShare = kFirstListShare;  // as the user left it
    bool hasRuleButton = true;
    bool isPreviewLarge = false;  // ui/main_window/larger_preview.h
    // Left edges of BT_Open and BT_Rule beside each other [pixels], from the last call of
    // LayOutMainWindow.
    int openLeft = 0;
    int ruleLeft = 0;
};

// Places the controls in the window's client area.
void LayOutMainWindow(HWND window, Layout& layout);
// BT_Open alone, in the middle of both buttons' places while there is no BT_Rule.
void PlaceOpenButton(HWND window, const Layout& layout);

// The list's share when the left edge of the splitter is to be at `splitterLeft`, held to what
// leaves room for list and preview.
double ListShareFor(HWND window, const Layout& layout, int splitterLeft);

}  // namespace corvane
