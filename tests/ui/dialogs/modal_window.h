// Modal windows of the program inside the test's own process: looked at while they are open, and
// their controls.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/support.h"
#include "tests/ui/dialogs/whole_window.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/base/own_window.h"
#include "ui/main_window/windows_view.h"

namespace corvane::test {

inline RECT PlaceIn(HWND window, int id) {
    RECT place{};
    GetWindowRect(GetDlgItem(window, id), &place);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

inline bool IsShown(HWND window, int id) {
    return (GetWindowLongPtrW(GetDlgItem(window, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

inline std::string TextOf(HWND window, int id) {
    return Narrow(WindowText(GetDlgItem(window, id)));
}

inline SIZE TextSizeOf(HWND window, int id) {
    const HWND control = GetDlgItem(window, id);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    return TextSize(window, font, WindowText(control));
}

inline void ScaleTo(HWND window, WORD dpi) {
    RECT area{};
    GetWindowRect(window, &area);
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&area));
}

// Looks at a modal window as soon as it is there, from inside of its own message loop. The window
// must be closed then, or the test would not continue: `look` says with which message.
struct WhenOpen {
    inline static const wchar_t* className;
    inline static std::function<void(HWND)> look;
    inline static bool looked;
    UINT_PTR timer;

    WhenOpen(const wchar_t* name, std::function<void(HWND)> procedure) {
        className = name;
        look = std::move(procedure);
        looked = false;
        timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) {
            const HWND window = OwnWindow(className);
            if (window == nullptr || !IsWindowVisible(window) || looked) return;
            looked = true;
            look(window);
        });
    }
    ~WhenOpen() {
        KillTimer(nullptr, timer);
        EXPECT_TRUE(looked) << "the window did not come";
    }
    WhenOpen(const WhenOpen&) = delete;
    WhenOpen& operator=(const WhenOpen&) = delete;
};

inline void Press(HWND window, int button) {
    PostMessageW(GetDlgItem(window, button), BM_CLICK, 0, 0);
}

inline void PressKey(HWND window, WPARAM key) {
    PostMessageW(window, WM_KEYDOWN, key, 0);
    PostMessageW(window, WM_KEYUP, key, 0);
}

}  // namespace corvane::test
