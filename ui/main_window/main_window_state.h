// The main window's own record, for the files that are the main window.
#pragma once

#include <string>

#include "database/model_kind.h"
#include "report/reporters.h"
#include "shell/view.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/main_window/main_window_layout.h"

namespace corvane {

// Belongs to the window from its creation on, and goes with it, or after the messages that are
// being handled at its end.
struct MainWindowState {
    Layout layout;  // with font and resolution
    HWND toolTips = nullptr;
    std::wstring toolTipText;  // what the tool tip shows
    HWND focus = nullptr;      // the control that gets the focus with the window's activation
    ModelKind kind = ModelKind::kSection;  // that the buttons are shown for
    LONG helpTime = 0;                     // of the last key that asked for help in a box
    bool filling = false;                  // the program, not the user, changes the list
    bool readByClick = false;              // the mouse button that is down selected the row
    bool busy = false;                     // the pointer is the hourglass
    bool locked = false;                   // a program of the suite runs
    bool shutDown = false;
    int handling = 0;         // messages that are being handled, one inside the other
    StartRequest handedOver;  // the file of a second start, until it is opened
    bool wasAtWork = false;   // when the file came
    std::wstring toSystem;    // a database for the system's lists, until they have it
    bool hasGone = false;     // the window has been destroyed
    StatusColour statusColour = StatusColour::kButtonText;
    std::wstring statusTag = L"-1";
    // Of a menu's item, in the status line, and what was there before; see menu_hints.h.
    std::wstring hint, statusBeforeHint;
    StatusColour colourBeforeHint = StatusColour::kButtonText;
};

// Posted to the main window: the open database's file is to be looked at.
inline constexpr UINT kLookAtFile = WM_APP + 20;
// Posted to the main window: `toSystem` is for the system's lists.
inline constexpr UINT kTellSystem = WM_APP + 21;

// Null before the window has its record and after.
MainWindowState* StateOfMainWindow(HWND window);

// The main window's record and its controls; null when there is none.
MainWindowState* MainState();
HWND MainControl(int id);

}  // namespace corvane
