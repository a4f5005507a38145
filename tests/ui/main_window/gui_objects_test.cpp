// What a day's work makes of pens, fonts, icons, menus and windows is given back.
#include "tests/support/win32/gui_objects.h"

#include <gtest/gtest.h>

#include "shell/commands/commands.h"
#include "shell/commands/view_commands.h"
#include "tests/ui/main_window/open_window.h"

namespace corvane {
namespace {

using test::CountGuiObjects;
using test::GuiObjects;
using test::OpenWindow;

constexpr int kTimes = 1000;

void Choose(const OpenWindow& open, WPARAM command) {
    SendMessageW(open.window, WM_COMMAND, command, 0);
    open.HandlePostedMessages();
}

TEST(GuiObjects, EachObjectCounts) {
    const GuiObjects before = CountGuiObjects();
    const HPEN pen = CreatePen(PS_SOLID, 3, RGB(1, 2, 3));
    EXPECT_EQ(CountGuiObjects(), (GuiObjects{before.drawing + 1, before.window}));
    const HMENU menu = CreatePopupMenu();
    EXPECT_EQ(CountGuiObjects(), (GuiObjects{before.drawing + 1, before.window + 1}));
    DeleteObject(pen);
    DestroyMenu(menu);
    EXPECT_EQ(CountGuiObjects(), before);
}

// The first time of each may make what stays until the end.
template <class Action>
void ExpectAllGivenBack(Action action) {
    for (int i = 0; i < 10; ++i) action(i);
    const GuiObjects before = CountGuiObjects();
    for (int i = 0; i < kTimes; ++i) action(i);
    const GuiObjects after = CountGuiObjects();
    EXPECT_EQ(after.drawing, before.drawing);
    EXPECT_EQ(after.window, before.window);
}

TEST(GuiObjects, SelectionsGiveAllBack) {
    const OpenWindow open;
    ExpectAllGivenBack([&](int i) { open.SetSelected(i % open.Rows(), true); });
}

TEST(GuiObjects, SortsGiveAllBack) {
    const OpenWindow open;
    const WPARAM orders[] = {ME_ViewSortName, ME_ViewSortX, ME_ViewDescending, ME_ViewFileOrder};
    ExpectAllGivenBack([&](int i) { Choose(open, orders[i % 4]); });
}

TEST(GuiObjects, RefreshesGiveAllBack) {
    const OpenWindow open;
    ExpectAllGivenBack([&](int) {
        Choose(open, ME_ViewRefresh);
        RedrawWindow(open.window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    });
}

}  // namespace
}  // namespace corvane
