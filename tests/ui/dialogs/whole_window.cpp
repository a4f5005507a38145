#include "tests/ui/dialogs/whole_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

#include "tests/support/support.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"

namespace corvane::test {
namespace {

// Beside a button's text, and a mark with its distance [pixels at 96 dots per inch].
constexpr int kButtonEdges = 8;
constexpr int kMark = 17;

struct Control {
    HWND window;
    HFONT font;
    DWORD style;
    std::wstring text;
    SIZE size;
};

Control ControlOf(HWND window) {
    RECT place{};
    GetClientRect(window, &place);
    return {window,
            reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)),
            static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)),
            WindowText(window),
            {place.right, place.bottom}};
}

std::wstring WithoutLetterMark(std::wstring text) {
    std::erase(text, L'&');
    return text;
}

// How large the label must be at least.
SIZE NeededByLabel(const Control& label) {
    const DWORD type = label.style & SS_TYPEMASK;
    const bool isOneLine = type == SS_OWNERDRAW || (label.style & SS_ELLIPSISMASK) != 0;
    if (isOneLine) return {0, TextSize(label.window, label.font, L"X").cy};
    if (type > SS_RIGHT) return {0, 0};
    const bool hasMark = (label.style & SS_NOPREFIX) == 0;
    const std::wstring text = hasMark ? WithoutLetterMark(label.text) : label.text;
    // Lines break between words.
    LONG longest = 0;
    std::wistringstream words(text);
    for (std::wstring word; words >> word;) {
        longest = std::max(longest, TextSize(label.window, label.font, word).cx);
    }
    return {longest, TextHeight(label.window, label.font, text, label.size.cx)};
}

SIZE NeededByButton(const Control& button, UINT dpi) {
    const DWORD type = button.style & BS_TYPEMASK;
    const bool isPushed = type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON;
    const SIZE text = TextSize(button.window, button.font, WithoutLetterMark(button.text));
    return {text.cx + Scaled(isPushed ? kButtonEdges : kMark, dpi), text.cy};
}

bool IsClass(HWND window, const wchar_t* name) {
    wchar_t own[64] = L"";
    GetClassNameW(window, own, 64);
    return lstrcmpiW(own, name) == 0;
}

void ExpectIsInside(HWND window, HWND child) {
    RECT client{};
    RECT place{};
    GetClientRect(window, &client);
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    RECT common{};
    IntersectRect(&common, &client, &place);
    EXPECT_TRUE(EqualRect(&common, &place)) << "control " << GetDlgCtrlID(child) << " sticks out";
}

void ExpectTextIsWhole(HWND child, UINT dpi) {
    const Control control = ControlOf(child);
    const bool isLabel = IsClass(child, WC_STATICW);
    if (control.text.empty() || (!isLabel && !IsClass(child, WC_BUTTONW))) return;
    const SIZE needed = isLabel ? NeededByLabel(control) : NeededByButton(control, dpi);
    EXPECT_GE(control.size.cx, needed.cx) << GetDlgCtrlID(child) << " " << Narrow(control.text);
    EXPECT_GE(control.size.cy, needed.cy) << GetDlgCtrlID(child) << " " << Narrow(control.text);
}

// Of the window's font, which a test may have brought to another resolution than its screen's.
UINT ResolutionOf(HWND child) {
    LOGFONTW font{};
    LOGFONTW ofSystem{};
    GetObjectW(ControlOf(child).font, sizeof font, &font);
    const HFONT system = CreateMessageFont(USER_DEFAULT_SCREEN_DPI);
    GetObjectW(system, sizeof ofSystem, &ofSystem);
    DeleteObject(system);
    return static_cast<UINT>(MulDiv(USER_DEFAULT_SCREEN_DPI, font.lfHeight, ofSystem.lfHeight));
}

}  // namespace

void ExpectNothingIsCut(HWND window, std::initializer_list<int> longLabels) {
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if ((GetWindowLongPtrW(child, GWL_STYLE) & WS_VISIBLE) == 0) continue;
        ExpectIsInside(window, child);
        if (std::ranges::find(longLabels, GetDlgCtrlID(child)) != longLabels.end()) continue;
        ExpectTextIsWhole(child, ResolutionOf(child));
    }
}

void ExpectFitsSmallScreen(HWND window, UINT dpi) {
    constexpr SIZE kScreen{800, 600};
    constexpr int kTaskBar = 40;
    RECT place{};
    GetWindowRect(window, &place);
    EXPECT_LE(place.right - place.left, Scaled(kScreen.cx, dpi));
    EXPECT_LE(place.bottom - place.top, Scaled(kScreen.cy - kTaskBar, dpi));
}

void ExpectWholeAt(HWND window, WORD dpi) {
    SCOPED_TRACE(std::to_string(dpi) + " dpi");
    RECT area{};
    GetWindowRect(window, &area);
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&area));
    ExpectNothingIsCut(window);
    ExpectFitsSmallScreen(window, dpi);
}

}  // namespace corvane::test
