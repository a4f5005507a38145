// The main window of the real program: rule options, buttons, splitter, keyboard and mouse.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/ui/main_window_fixture.h"
#include "tests/ui/screenshot.h"

namespace corvane::ui {
namespace {

using test::Narrow;
using MainWindowTest = MainWindowFixture;

constexpr int kModels = 14;

// ---- Rule sets ---------------------------------------------------------------------------------

// Pixels that differ in the picture of a button.
int Differing(const Picture& one, const Picture& other) {
    int count = 0;
    for (size_t i = 0; i < one.pixels.size(); ++i) count += one.pixels[i] != other.pixels[i];
    return count;
}

TEST_F(MainWindowTest, RuleButtonHasAPictureForEachRuleSet) {
    std::vector<Picture> pictures;
    for (int i = 0; i < kRuleSetCount; ++i) {
        SendMessageW(Control(OP_Rule + i), BM_CLICK, 0, 0);
        if (i > 0) {
            EXPECT_TRUE(WaitUntil([&] {
                return Differing(CopyScreen(Place(BT_Rule)), pictures.back()) > 20;
            })) << i;
        }
        pictures.push_back(CopyScreen(Place(BT_Rule)));
    }
    EXPECT_GT(Differing(pictures[0], pictures[2]), 20);
}

// ---- Selecting ---------------------------------------------------------------------------------

TEST_F(MainWindowTest, ClickOnTheSelectedRowReadsItsModelAgain) {
    ASSERT_TRUE(ShowsPosition(L"X = 20.7 m"));
    std::string bytes = test::ReadFileBytes(installation.File(L"ship.ve2"));
    const size_t model = bytes.find("====== CORVANE MODEL ======");
    const size_t position = bytes.find("20.7", model);
    ASSERT_NE(position, std::string::npos);
    test::WriteFileBytes(installation.File(L"ship.ve2"), bytes.replace(position, 4, "21.9"));
    const HWND list = Control(LI_Sections);
    RECT header{};
    GetWindowRect(reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0)), &header);
    const LPARAM at = MAKELPARAM(60, header.bottom - header.top + 8);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(list, WM_LBUTTONUP, 0, at);
    EXPECT_TRUE(ShowsPosition(L"X = 21.9 m"));
}

// ---- Model buttons -----------------------------------------------------------------------------

TEST_F(MainWindowTest, DeleteOfTheLastModelLeavesNothingSelectedAndDisablesTheButtons) {
    Type({VK_END});
    ASSERT_TRUE(ShowsPosition(L"X = 116.7 m"));
    Type({VK_DELETE});
    const Box box = WaitForBox(program);
    ASSERT_TRUE(Press(box, IDYES));
    ASSERT_TRUE(RowCountBecomes(Control(LI_Sections), kModels - 1));
    EXPECT_TRUE(WaitUntil([&] { return !IsWindowEnabled(Control(BT_Open)); }));
    EXPECT_FALSE(IsWindowEnabled(Control(BT_Rule)));
    EXPECT_EQ(SelectedRow(Control(LI_Sections)), -1);
    EXPECT_TRUE(ShowsPosition(L""));
    Type({VK_HOME});
    EXPECT_TRUE(ShowsPosition(L"X = 20.7 m")) << "the keys still reach the list";
    EXPECT_TRUE(IsWindowEnabled(Control(BT_Open)));
}

// ---- Splitter ----------------------------------------------------------------------------------

TEST_F(MainWindowTest, MouseDragsTheSplitter) {
    const RECT before = Place(SP_Sections);
    const POINT from{(before.left + before.right) / 2, (before.top + before.bottom) / 2};
    ASSERT_TRUE(BeginDrag(Control(SP_Sections), from));
    for (const LONG distance : {45, 90}) {
        MoveMouse({from.x - distance, from.y});
        EXPECT_TRUE(WaitUntil([&] { return Place(SP_Sections).left == before.left - distance; }))
            << Place(SP_Sections).left << " from " << before.left;
    }
    EXPECT_TRUE(EndDrag(Control(SP_Sections), {from.x - 90, from.y}));
    EXPECT_EQ(Place(SP_Sections).left, before.left - 90);
    EXPECT_TRUE(WaitUntil([&] { return Place(LI_Sections).right == Place(SP_Sections).left; }));
    EXPECT_TRUE(WaitUntil([&] { return Place(PIC_Section).left == Place(SP_Sections).right; }));
    EXPECT_TRUE(FocusBecomes(main, LI_Sections)) << "the mouse leaves the focus where it is";
}

// ---- Keyboard ----------------------------------------------------------------------------------

TEST_F(MainWindowTest, TabKeyVisitsTheControlsAsTheyAreRead) {
    std::vector<int> expected = {TX_DataBase, Command1,   TX_Filter,   LI_Sections,
                                 SP_Sections, OP_Preview, PIC_Section, BT_Open,
                                 BT_Rule,     OP_Rule,    BT_Bsd};
    std::erase_if(expected, [&](int id) { return !IsWindowEnabled(Control(id)); });
    const auto list = std::ranges::find(expected, int{LI_Sections});
    std::ranges::rotate(expected, list + 1);
    for (const int id : expected) {
        Type({VK_TAB});
        ASSERT_TRUE(FocusBecomes(main, id)) << FocusedControl(main) << " instead of " << id;
    }
    std::ranges::reverse(expected);
    std::ranges::rotate(expected, expected.begin() + 1);
    for (const int id : expected) {
        TypeWithShift(VK_TAB);
        ASSERT_TRUE(FocusBecomes(main, id)) << FocusedControl(main) << " instead of " << id;
    }
}

TEST_F(MainWindowTest, AltLetterOpensEachTopMenu) {
    for (const char letter : {'F', 'I', 'V', 'B', 'C', 'S', 'H'}) {
        TypeWithAlt(static_cast<WORD>(letter));
        EXPECT_TRUE(MenuIsOpen(true)) << letter;
        Type({VK_ESCAPE, VK_ESCAPE});
        EXPECT_TRUE(MenuIsOpen(false)) << letter;
        EXPECT_TRUE(FocusBecomes(main, LI_Sections)) << letter;
    }
}

TEST_F(MainWindowTest, AltLetterReachesTheControls) {
    TypeWithAlt('D');
    EXPECT_TRUE(FocusBecomes(main, TX_DataBase));
    TypeWithAlt('M');
    EXPECT_TRUE(FocusBecomes(main, LI_Sections));
    TypeWithAlt('N');
    EXPECT_TRUE(FocusBecomes(main, TX_Filter));
    TypeWithAlt('P');
    EXPECT_TRUE(WaitUntil([&] { return !IsOn(OP_Preview); }));
    TypeWithAlt('P');
    EXPECT_TRUE(WaitUntil([&] { return IsOn(OP_Preview); }));
    TypeWithAlt('U');
    EXPECT_TRUE(FocusBecomes(main, OP_Rule));
}

TEST_F(MainWindowTest, ArrowKeysChooseTheRuleSet) {
    TypeWithAlt('U');
    ASSERT_TRUE(FocusBecomes(main, OP_Rule));
    Type({VK_RIGHT});
    EXPECT_TRUE(TextBecomes(main, L"Corvane JBP - ship.ve2 - AURORA BAY"));
    Type({VK_DOWN});
    EXPECT_TRUE(TextBecomes(main, L"Corvane MIL - ship.ve2 - AURORA BAY"));
    Type({VK_RIGHT});
    EXPECT_TRUE(TextBecomes(main, L"Corvane - ship.ve2 - AURORA BAY"));
}

TEST_F(MainWindowTest, ArrowsPagesAndLettersInTheListSelectModels) {
    Type({VK_DOWN, VK_DOWN});
    EXPECT_TRUE(ShowsPosition(L"X = 68.7 m"));
    Type({VK_UP});
    EXPECT_TRUE(ShowsPosition(L"X = 44.7 m"));
    Type({VK_END});
    EXPECT_TRUE(ShowsPosition(L"X = 116.7 m"));
    Type({VK_HOME});
    EXPECT_TRUE(ShowsPosition(L"X = 20.7 m"));
    Type({VK_NEXT});
    EXPECT_TRUE(ShowsPosition(L"X = 116.7 m")) << "all models are on one page";
    Type({'M'});
    EXPECT_TRUE(ShowsPosition(L"X = 108.5 m")) << "the midship section";
    EXPECT_EQ(Rows(program, Control(LI_Sections)).size(), size_t{kModels});
}

}  // namespace
}  // namespace corvane::ui
