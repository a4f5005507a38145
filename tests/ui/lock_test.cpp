// The main window while a program of the suite runs: it accepts no input, but paints itself.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "stand_ins/win32/form_control_ids.h"
#include "tests/ui/main_window_fixture.h"
#include "tests/ui/screenshot.h"

namespace corvane::ui {
namespace {

using test::Narrow;

constexpr uint32_t kPlating = 0x0000FF;  // in the preview, 0x00RRGGBB

struct LockTest : MainWindowFixture {
    HWND child = nullptr;

    // Starts the rule program on the selected section.
    void SetUp() override {
        installation.Add(L"SectRule.exe");
        MainWindowFixture::SetUp();
        if (HasFatalFailure()) return;
        SetWindowPos(main, nullptr, 20, 20, 900, 650, SWP_NOZORDER);
        TypeWithAlt('R');
        ASSERT_TRUE(WaitUntil([&] {
            child = FindWindowW(stand_ins::kStandInClass, nullptr);
            return child != nullptr && IsWindowVisible(child);
        }));
    }
    void EndChild() const { PostMessageW(child, WM_CLOSE, 0, 0); }
    bool IsUnlocked() const {
        return WaitUntil([&] { return IsWindowEnabled(Control(LI_Sections)) != FALSE; });
    }
    int EnabledControls() const {
        int count = 0;
        for (HWND control = GetWindow(main, GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            count += IsWindowEnabled(control) ? 1 : 0;
        }
        return count;
    }
};

TEST_F(LockTest, AllControlsAreDisabledAndComeBack) {
    EXPECT_EQ(EnabledControls(), 0);
    EndChild();
    ASSERT_TRUE(IsUnlocked());
    EXPECT_TRUE(WaitUntil([&] { return EnabledControls() > 15; }));
    EXPECT_TRUE(TakesKeys(main));
    EXPECT_TRUE(FocusBecomes(main, LI_Sections));
}

TEST_F(LockTest, WindowGoesOnPainting) {
    SetWindowPos(main, HWND_TOP, 20, 20, 1400, 900, 0);
    const RECT list = Place(LI_Sections);
    const RECT grown{list.right, list.top + 300, list.right + 600, list.bottom};
    EXPECT_TRUE(WaitUntil([&] {
        return std::ranges::count(CopyScreen(grown).pixels, kPlating) > 200;
    })) << "the preview is not drawn at its new size";
    EXPECT_FALSE(IsHungAppWindow(main));
    EndChild();
    EXPECT_TRUE(IsUnlocked());
}

TEST_F(LockTest, StatusLineSaysWhatIsOpenInTextThatCanBeRead) {
    EXPECT_TRUE(TextBecomes(Control(PAN_Help),
                            L"Section 'Engine room, frame 30' is open in SectRule. Close it to go "
                            L"on here."));
    // Out of the way of the labels.
    SetWindowPos(child, nullptr, 1000, 20, 0, 0, SWP_NOZORDER | SWP_NOSIZE);
    constexpr uint32_t kText = 0x000000;
    constexpr uint32_t kGreyText = 0x808080;
    for (const int label : {PAN_Help, LB_X, LB_Frame}) {
        EXPECT_TRUE(WaitUntil([&] {
            return std::ranges::count(CopyScreen(Place(label)).pixels, kText) > 20;
        })) << label;
        EXPECT_LT(std::ranges::count(CopyScreen(Place(label)).pixels, kGreyText), 20) << label;
    }
    EndChild();
    EXPECT_TRUE(TextBecomes(Control(PAN_Help), L""));
}

TEST_F(LockTest, ClickOnTheWindowBringsTheProgramToTheFront) {
    // Beside the main window, where the click does not meet it.
    SetWindowPos(child, nullptr, 1000, 20, 0, 0, SWP_NOZORDER | SWP_NOSIZE);
    const RECT list = Place(LI_Sections);
    const POINT at{list.left + 30, list.bottom - 30};
    for (const bool isMinimised : {false, true}) {
        if (isMinimised) ShowWindow(child, SW_MINIMIZE);
        // For a while: the display reports in its own time which window has come to the front.
        constexpr ULONGLONG kRest = 500;
        ULONGLONG since = GetTickCount64();
        ASSERT_TRUE(WaitUntil([&] {
            const bool isReady = GetForegroundWindow() == main &&
                                 (IsIconic(child) != FALSE) == isMinimised &&
                                 GetAncestor(WindowFromPoint(at), GA_ROOT) == main;
            if (isReady) return GetTickCount64() >= since + kRest;
            SetForegroundWindow(main);
            since = GetTickCount64();
            return false;
        }));
        Click(at);
        EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == child && !IsIconic(child); }));
    }
    EndChild();
    EXPECT_TRUE(IsUnlocked());
}

TEST_F(LockTest, ClicksAndKeysMeanwhileDoNothing) {
    SetForegroundWindow(main);
    const RECT option = Place(OP_Rule + 2);
    DoubleClick({option.left + 8, (option.top + option.bottom) / 2});
    PostMessageW(Control(LI_Sections), WM_KEYDOWN, VK_END, 0);
    PostMessageW(main, WM_CLOSE, 0, 0);
    PostMessageW(main, WM_COMMAND, ME_FileQuit, 0);
    PostMessageW(main, WM_COMMAND, ME_HelpAbout, 0);
    EndChild();
    ASSERT_TRUE(IsUnlocked());
    EXPECT_EQ(Narrow(TextOf(main)), "Corvane - ship.ve2 - AURORA BAY");
    EXPECT_TRUE(IsOn(OP_Rule));
    EXPECT_FALSE(IsOn(OP_Rule + 2));
    EXPECT_TRUE(ShowsPosition(L"X = 20.7 m"));
    EXPECT_TRUE(IsWindowEnabled(main)) << "no box is up";
    EXPECT_FALSE(program.HasEnded(0));
}

}  // namespace
}  // namespace corvane::ui
