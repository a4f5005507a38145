// Where the main window's controls are, at every size and resolution, and the splitter.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/ui/dialogs/whole_window.h"
#include "tests/ui/main_window/open_window.h"
#include "ui/main_window/main_window_layout.h"

namespace corvane {
namespace {

using test::kResolutions;
using test::OpenWindow;

// Sizes of the window at 96 dots per inch.
constexpr SIZE kLeast{700, 460};
constexpr SIZE kSmall{800, 600};
constexpr SIZE kLarge{1600, 1000};

// What can be read or pressed, in no order.
const std::vector<int> kControls = {
    LB_DataBase, TX_DataBase, Command1, LB_Models, LI_Sections, SP_Sections, OP_Preview,
    PIC_Section, LB_X,        LB_Frame, BT_Open,   BT_Rule,     OP_Rule,     OP_Rule + 1,
    OP_Rule + 2, BT_Bsd,      PAN_Help, LB_Legend, LB_Filter,   TX_Filter,   LB_Count};

// A window may be larger than the screen of the tests.
LRESULT CALLBACK AnySize(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                         DWORD_PTR) {
    const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
    if (message == WM_GETMINMAXINFO) {
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMaxTrackSize = {10000, 10000};
    }
    return result;
}

template <class Check>
void AtEverySize(const OpenWindow& open, Check check) {
    SetWindowSubclass(open.window, AnySize, 1, 0);
    for (const WORD dpi : kResolutions) {
        for (const SIZE size : {kLeast, kSmall, kLarge}) {
            open.ScaleTo(dpi, size);
            SCOPED_TRACE(std::to_string(size.cx) + " wide at " + std::to_string(dpi) + " dpi");
            check();
        }
    }
}

bool IsShown(HWND control) {
    return (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

int Width(const RECT& place) {
    return static_cast<int>(place.right - place.left);
}

TEST(MainWindowLayout, NothingIsCutAtEverySize) {
    const OpenWindow open;
    AtEverySize(open, [&] { test::ExpectNothingIsCut(open.window); });
}

TEST(MainWindowLayout, NothingIsCutInTheStartPane) {
    const OpenWindow open(false);
    AtEverySize(open, [&] {
        test::ExpectNothingIsCut(open.window);
        EXPECT_TRUE(IsShown(open.Control(BT_StartOpen)));
        EXPECT_TRUE(IsShown(open.Control(BT_StartNew)));
    });
}

TEST(MainWindowLayout, PicturesOfTheButtonsLeaveTheirCaptionsRoom) {
    const OpenWindow open;
    constexpr int kPicture = 5 + 32 + 5;
    for (const WORD dpi : kResolutions) {
        open.ScaleTo(dpi, kSmall);
        for (const ControlId id : {BT_Open, BT_Rule, BT_Bsd}) {
            const HWND button = open.Control(id);
            const auto font = reinterpret_cast<HFONT>(SendMessageW(button, WM_GETFONT, 0, 0));
            const SIZE text = TextSize(button, font, WindowText(button));
            EXPECT_GE(Width(open.Place(id)), text.cx + Scaled(kPicture, dpi)) << id;
            EXPECT_GE(open.Place(id).bottom - open.Place(id).top, Scaled(32 + 4, dpi)) << id;
        }
    }
}

void ExpectNoneCovered(const OpenWindow& open) {
    for (size_t i = 0; i < kControls.size(); ++i) {
        for (size_t j = i + 1; j < kControls.size(); ++j) {
            const RECT one = open.Place(kControls[i]);
            const RECT other = open.Place(kControls[j]);
            RECT common{};
            EXPECT_FALSE(IntersectRect(&common, &one, &other))
                << kControls[i] << " and " << kControls[j];
        }
    }
}

TEST(MainWindowLayout, NoControlCoversAnother) {
    const OpenWindow open;
    AtEverySize(open, [&] { ExpectNoneCovered(open); });
}

TEST(MainWindowLayout, WindowIsHeldToASizeWithRoomForAllControls) {
    const OpenWindow open;
    open.Resize(1, 1);
    RECT client{};
    GetClientRect(open.window, &client);
    EXPECT_EQ(client.right, Scaled(kLeastClientSize.cx, DpiOf(open.window)));
    EXPECT_EQ(client.bottom, Scaled(kLeastClientSize.cy, DpiOf(open.window)));
    ExpectNoneCovered(open);
}

TEST(MainWindowLayout, LeastSizeFitsASmallScreen) {
    const OpenWindow open;
    open.Resize(1, 1);
    test::ExpectFitsSmallScreen(open.window, DpiOf(open.window));
}

TEST(MainWindowLayout, FrameOfTheRuleSetsHoldsTheOptionsAndNothingElse) {
    const OpenWindow open;
    AtEverySize(open, [&] {
        const RECT frame = open.Place(GR_Rule);
        for (const int id : kControls) {
            const RECT place = open.Place(id);
            RECT common{};
            const bool touches = IntersectRect(&common, &frame, &place) != FALSE;
            const bool isOption = id >= OP_Rule && id < OP_Rule + kRuleSetCount;
            EXPECT_EQ(touches, isOption) << id;
            EXPECT_TRUE(!isOption || EqualRect(&common, &place)) << id << " sticks out";
        }
    });
}

TEST(MainWindowLayout, TabKeyFollowsTheReadingOrder) {
    const OpenWindow open;
    for (const int id : kControls) EnableWindow(open.Control(id), TRUE);
    const int order[] = {TX_DataBase, Command1, TX_Filter, LI_Sections, SP_Sections, OP_Preview,
                         PIC_Section, BT_Open,  BT_Rule,   OP_Rule,     BT_Bsd,      TX_DataBase};
    HWND control = open.Control(TX_DataBase);
    for (const int id : order) {
        EXPECT_EQ(GetDlgCtrlID(control), id);
        control = GetNextDlgTabItem(open.window, control, FALSE);
    }
}

// ---- The model buttons -------------------------------------------------------------------------

constexpr int kBulkheadRow = 9;
constexpr int kTorsionRow = 12;

TEST(MainWindowLayout, TorsionModelHasTheEditButtonAloneInTheMiddle) {
    const OpenWindow open;
    const LONG openLeft = open.Place(BT_Open).left;
    const LONG ruleLeft = open.Place(BT_Rule).left;
    ASSERT_LT(openLeft, ruleLeft);
    open.SetSelected(kTorsionRow, true);
    EXPECT_FALSE(IsShown(open.Control(BT_Rule)));
    EXPECT_EQ(open.Place(BT_Open).left, (openLeft + ruleLeft) / 2);
    open.SetSelected(kBulkheadRow, true);
    EXPECT_TRUE(IsShown(open.Control(BT_Rule)));
    EXPECT_EQ(open.Place(BT_Open).left, openLeft);
    EXPECT_EQ(open.Place(BT_Rule).left, ruleLeft);
}

TEST(MainWindowLayout, LoneEditButtonStaysInTheMiddleAtEverySize) {
    const OpenWindow open;
    open.SetSelected(kTorsionRow, true);
    AtEverySize(open, [&] {
        const LONG alone = open.Place(BT_Open).left;
        open.SetSelected(0, true);
        EXPECT_EQ(alone, (open.Place(BT_Open).left + open.Place(BT_Rule).left) / 2);
        open.SetSelected(kTorsionRow, true);
        EXPECT_EQ(open.Place(BT_Open).left, alone);
    });
}

TEST(MainWindowLayout, ButtonsAreBothShownWhenNothingIsSelected) {
    const OpenWindow open;
    open.SetSelected(kTorsionRow, true);
    open.SetSelected(kTorsionRow, false);
    EXPECT_TRUE(IsShown(open.Control(BT_Rule)));
    EXPECT_LT(open.Place(BT_Open).right, open.Place(BT_Rule).left);
}

// ---- The splitter ------------------------------------------------------------------------------

void Drag(const OpenWindow& open, int distance) {
    const HWND splitter = open.Control(SP_Sections);
    SendMessageW(splitter, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 10));
    SendMessageW(splitter, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(3 + distance, 10));
    SendMessageW(splitter, WM_LBUTTONUP, 0, MAKELPARAM(3, 10));
}

TEST(MainWindowLayout, SplitterMovesBothPanes) {
    const OpenWindow open;
    open.Resize(1000, 700);
    const RECT list = open.Place(LI_Sections);
    const RECT picture = open.Place(PIC_Section);
    EXPECT_EQ(open.Place(SP_Sections).left, list.right);
    EXPECT_EQ(open.Place(SP_Sections).right, picture.left);
    for (const int distance : {60, -110}) {
        const LONG before = open.Place(LI_Sections).right;
        Drag(open, distance);
        EXPECT_EQ(open.Place(LI_Sections).right, before + distance);
        EXPECT_EQ(open.Place(PIC_Section).left - open.Place(LI_Sections).right,
                  picture.left - list.right);
        EXPECT_EQ(open.Place(OP_Preview).left, open.Place(PIC_Section).left);
        EXPECT_EQ(open.Place(PIC_Section).right, picture.right);
        EXPECT_EQ(open.Place(LI_Sections).left, list.left);
    }
}

TEST(MainWindowLayout, SplitterLeavesRoomForBothPanes) {
    const OpenWindow open;
    open.Resize(1000, 700);
    Drag(open, -2000);
    EXPECT_EQ(Width(open.Place(LI_Sections)), Scaled(200, DpiOf(open.window)));
    Drag(open, 2000);
    EXPECT_EQ(Width(open.Place(PIC_Section)), Scaled(140, DpiOf(open.window)));
    Drag(open, -1);
    EXPECT_EQ(Width(open.Place(PIC_Section)), Scaled(140, DpiOf(open.window)) + 1);
}

TEST(MainWindowLayout, MouseThatOnlyPassesTheSplitterMovesNothing) {
    const OpenWindow open;
    const RECT before = open.Place(SP_Sections);
    SendMessageW(open.Control(SP_Sections), WM_MOUSEMOVE, 0, MAKELPARAM(90, 10));
    const RECT after = open.Place(SP_Sections);
    EXPECT_TRUE(EqualRect(&before, &after));
}

TEST(MainWindowLayout, ArrowKeysMoveTheSplitter) {
    const OpenWindow open;
    open.Resize(1000, 700);
    const HWND splitter = open.Control(SP_Sections);
    const LONG before = open.Place(SP_Sections).left;
    SendMessageW(splitter, WM_KEYDOWN, VK_RIGHT, 0);
    EXPECT_EQ(open.Place(SP_Sections).left, before + Scaled(16, DpiOf(open.window)));
    SendMessageW(splitter, WM_KEYDOWN, VK_LEFT, 0);
    EXPECT_EQ(open.Place(SP_Sections).left, before);
    SendMessageW(splitter, WM_KEYDOWN, VK_UP, 0);
    EXPECT_EQ(open.Place(SP_Sections).left, before);
    EXPECT_EQ(SendMessageW(splitter, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS);
}

TEST(MainWindowLayout, PanesKeepTheirSharesWhenTheWindowIsResized) {
    const OpenWindow open;
    open.Resize(1000, 700);
    Drag(open, -100);
    const auto share = [&] {
        return Width(open.Place(LI_Sections)) * 100 /
               (open.Place(PIC_Section).right - open.Place(LI_Sections).left);
    };
    const LONG before = share();
    open.Resize(1500, 900);
    EXPECT_NEAR(share(), before, 1);
    open.ScaleTo(192, {1000, 700});
    EXPECT_NEAR(share(), before, 1);
    open.ScaleTo(96, {1000, 700});
    EXPECT_NEAR(share(), before, 1);
}

}  // namespace
}  // namespace corvane
