// A window as the system's proxies (IAccessible) give it to screen readers, from another process.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/win32.h"

namespace corvane::ui {

struct Accessible {
    HWND window = nullptr;
    std::wstring name;   // without the mark of its keyboard letter
    std::wstring value;  // of a field its text
    LONG role = 0;       // ROLE_SYSTEM_...
    LONG state = 0;      // STATE_SYSTEM_...
};

// The controls of a window that a user sees and can bring the keyboard to, those that are disabled
// now, too, in the order of the windows.
//
// Wine's proxies know the texts of windows, but not the rule by which those of Windows name a
// control that shows no caption of its own (a field, a list): by the label before it. Such a name
// is found by that rule here.
std::vector<Accessible> FocusableControls(HWND window);

// Fails where one of these has no name, or two have the same name and the same role.
void ExpectNamedControls(HWND window);

}  // namespace corvane::ui
