// What the status line looks like after a fault.
#include <gtest/gtest.h>

#include <functional>

#include "tests/ui/main_window/open_window.h"
#include "tests/ui/pictures/dark_colours.h"

namespace corvane {
namespace {

using test::OpenWindow;

constexpr int kWidth = 400;
constexpr int kHeight = 16;
constexpr COLORREF kRed = RGB(255, 0, 0);

// How many points of the line, as the window draws it, have such a colour.
int CountPoints(const OpenWindow& open, const std::function<bool(COLORREF)>& isCounted) {
    const HDC screen = GetDC(open.window);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, kWidth, kHeight);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    DRAWITEMSTRUCT item{};
    item.CtlID = PAN_Help;
    item.hwndItem = open.Control(PAN_Help);
    item.hDC = dc;
    item.rcItem = {0, 0, kWidth, kHeight};
    SendMessageW(open.window, WM_DRAWITEM, PAN_Help, reinterpret_cast<LPARAM>(&item));
    int count = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) count += isCounted(GetPixel(dc, x, y)) ? 1 : 0;
    }
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(open.window, screen);
    return count;
}

// Yellow is in the system's sign of a warning, and not in a text.
bool IsYellow(COLORREF colour) {
    return GetRValue(colour) > 180 && GetGValue(colour) > 130 && GetBValue(colour) < 100;
}

TEST(StatusLine, FaultIsRedAndHasASignForThoseWhoSeeNoRed) {
    const OpenWindow open;
    reportView.setStatusCaption(L"Opening...");
    EXPECT_EQ(CountPoints(open, IsYellow), 0);
    reportView.setStatusColour(StatusColour::kRed);
    EXPECT_GT(CountPoints(open, IsYellow), 20);
    EXPECT_GT(CountPoints(open, [](COLORREF colour) { return colour == kRed; }), 20);
    EXPECT_EQ(open.Text(PAN_Help), "Opening...");
    reportView.setStatusCaption(L"");
    EXPECT_EQ(CountPoints(open, IsYellow), 0) << "a line without a text has no sign";
}

TEST(StatusLine, FaultHasTheColourOfOtherTextsOnADarkGround) {
    const test::DarkColours dark;
    const OpenWindow open;
    reportView.setStatusCaption(L"Opening...");
    reportView.setStatusColour(StatusColour::kRed);
    EXPECT_EQ(CountPoints(open, [](COLORREF colour) { return colour == kRed; }), 0);
    EXPECT_GT(CountPoints(open, [](COLORREF c) { return c == RGB(255, 255, 255); }), 20);
    EXPECT_GT(CountPoints(open, IsYellow), 20);
}

}  // namespace
}  // namespace corvane
