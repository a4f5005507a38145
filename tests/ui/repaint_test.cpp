// What the main window shows after it has got another size, or its divider another place, is what
// it shows when it is painted as a whole: no control is missing, and nothing of the old size is
// left.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/ui/main_window_fixture.h"
#include "tests/ui/screenshot.h"

namespace corvane::ui {
namespace {

// How long a picture must not change until all has been painted, in milliseconds.
constexpr ULONGLONG kRest = 400;

struct RepaintTest : MainWindowFixture {
    // No button lights up under the pointer.
    void SetUp() override {
        MainWindowFixture::SetUp();
        MoveMouse({1, 1});
    }
    // The window's own area as the screen shows it, once it has come to rest.
    Picture PictureAtRest() const {
        Picture last;
        ULONGLONG since = GetTickCount64();
        EXPECT_TRUE(WaitUntil([&] {
            Send(main, WM_NULL, 0, 0);
            RECT area{};
            GetClientRect(main, &area);
            MapWindowPoints(main, nullptr, reinterpret_cast<POINT*>(&area), 2);
            Picture now = CopyScreen(area);
            if (now.pixels != last.pixels) since = GetTickCount64();
            last = std::move(now);
            return GetTickCount64() >= since + kRest;
        }));
        return last;
    }

    // Compares the window with itself, painted as a whole.
    void ExpectWhole(const char* after) const {
        const Picture seen = PictureAtRest();
        RedrawWindow(main, nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
        const Picture painted = PictureAtRest();
        ASSERT_EQ(seen.width, painted.width);
        ASSERT_EQ(seen.height, painted.height);
        int differing = 0;
        POINT first{};
        for (size_t i = 0; i < seen.pixels.size(); ++i) {
            if (seen.pixels[i] == painted.pixels[i]) continue;
            const auto width = static_cast<size_t>(seen.width);
            if (differing++ == 0)
                first = {static_cast<LONG>(i % width), static_cast<LONG>(i / width)};
        }
        if (differing == 0) return;
        KeepPicture(seen, " seen");
        KeepPicture(painted, " painted");
        ADD_FAILURE() << differing << " pixels differ after " << after << ": first at " << first.x
                      << ", " << first.y;
    }
    void Resize(int width, int height) const {
        SetWindowPos(main, nullptr, 20, 20, width, height, SWP_NOZORDER);
    }
};

TEST_F(RepaintTest, AfterEnlargingAndShrinking) {
    const SIZE sizes[] = {{1100, 760}, {1300, 900}, {1301, 901},
                          {900, 640},  {760, 560},  {1000, 640}};
    for (const SIZE& size : sizes) {
        Resize(size.cx, size.cy);
        ExpectWhole(("size " + std::to_string(size.cx) + "x" + std::to_string(size.cy)).c_str());
    }
}

// The longest run of black pixels in a row of a picture.
int LongestBlackRun(const Picture& picture) {
    int longest = 0;
    int run = 0;
    for (size_t i = 0; i < picture.pixels.size(); ++i) {
        if (i % static_cast<size_t>(picture.width) == 0) run = 0;
        run = picture.pixels[i] == 0 ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

TEST_F(RepaintTest, NoPartOfTheRuleSetsStaysUnpainted) {
    Resize(1100, 760);
    PictureAtRest();
    EXPECT_LT(LongestBlackRun(CopyScreen(Place(GR_Rule))), 20);
}

TEST_F(RepaintTest, AfterEnlargingStepByStep) {
    for (int step = 0; step < 20; ++step) Resize(800 + 17 * step, 600 + 11 * step);
    ExpectWhole("twenty steps");
}

TEST_F(RepaintTest, AfterMaximisingAndRestoring) {
    ShowWindow(main, SW_MAXIMIZE);
    ASSERT_TRUE(WaitUntil([&] { return IsZoomed(main) != FALSE; }));
    ExpectWhole("maximised");
    ShowWindow(main, SW_RESTORE);
    ASSERT_TRUE(WaitUntil([&] { return IsZoomed(main) == FALSE; }));
    ExpectWhole("restored");
    ShowWindow(main, SW_MINIMIZE);
    ShowWindow(main, SW_RESTORE);
    ASSERT_TRUE(WaitUntil([&] { return IsIconic(main) == FALSE; }));
    ExpectWhole("restored from an icon");
}

TEST_F(RepaintTest, AfterMovingTheDivider) {
    const RECT before = Place(SP_Sections);
    const POINT from{(before.left + before.right) / 2, (before.top + before.bottom) / 2};
    ASSERT_TRUE(BeginDrag(Control(SP_Sections), from));
    LONG at = 0;
    for (const LONG distance : {60, 120, -90, 40}) {
        at = from.x - distance;
        MoveMouse({at, from.y});
        EXPECT_TRUE(WaitUntil([&] { return Place(SP_Sections).left == before.left - distance; }));
        ExpectWhole(("divider " + std::to_string(distance)).c_str());
    }
    EXPECT_TRUE(EndDrag(Control(SP_Sections), {at, from.y}));
}

TEST_F(RepaintTest, AfterTheButtonsOfAnotherKind) {
    Type({VK_END});
    ASSERT_TRUE(WaitUntil([&] { return !IsShown(BT_Rule); }));
    ExpectWhole("torsion model");
    Type({VK_HOME});
    ASSERT_TRUE(WaitUntil([&] { return IsShown(BT_Rule); }));
    ExpectWhole("section");
}

TEST_F(RepaintTest, AfterAnotherResolution) {
    // As Windows does when the window comes to another screen; the record has to be in its process.
    const HANDLE process = program.process;
    void* area = VirtualAllocEx(process, nullptr, sizeof(RECT), MEM_COMMIT, PAGE_READWRITE);
    ASSERT_NE(area, nullptr);
    for (const LONG dpi : {144L, 96L}) {
        const RECT place{20, 20, 20 + 900 * dpi / 96, 20 + 700 * dpi / 96};
        ASSERT_TRUE(WriteProcessMemory(process, area, &place, sizeof place, nullptr));
        Send(main, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(area));
        ExpectWhole(("dpi " + std::to_string(dpi)).c_str());
    }
    VirtualFreeEx(process, area, 0, MEM_RELEASE);
}

}  // namespace
}  // namespace corvane::ui
