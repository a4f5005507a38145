// The picture of the real program: zoomed and moved by mouse and keys, and in the whole window.
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <vector>

#include "shell/commands/commands.h"
#include "tests/ui/keyboard.h"
#include "tests/ui/main_window_fixture.h"
#include "tests/ui/screenshot.h"

namespace corvane::ui {
namespace {

// What the larger preview takes the place of.
constexpr int kBesidePicture[] = {LB_DataBase, TX_DataBase, Command1, TX_Filter,
                                  LB_Count,    SP_Sections, BT_Open,  BT_Rule,
                                  BT_Bsd,      GR_Rule,     OP_Rule};

struct PictureNavigation : MainWindowFixture {
    HWND picture = nullptr;

    void SetUp() override {
        MainWindowFixture::SetUp();
        picture = Control(PIC_Section);
        // No tool tip over the picture.
        MoveMouse(Away());
        ASSERT_TRUE(WaitUntil([&] { return ShowsASection(picture); }));
        // The picture of the size before may still be on the screen.
        ASSERT_TRUE(WaitUntil([&] {
            const std::vector<uint32_t> before = Pixels();
            Sleep(100);
            return Pixels() == before;
        }));
    }
    RECT PictureArea() const {
        RECT area{};
        GetWindowRect(picture, &area);
        return area;
    }
    std::vector<uint32_t> Pixels() const {
        RECT area = PictureArea();
        InflateRect(&area, -4, -4);  // without the frame of the focus
        return CopyScreen(area).pixels;
    }
    POINT Middle() const {
        const RECT area = PictureArea();
        return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    }
    POINT Away() const {
        const RECT list = Place(LI_Sections);
        return {list.left + 50, list.bottom - 30};
    }
    bool Changes(const std::vector<uint32_t>& before) const {
        return WaitUntil([&] { return Pixels() != before; });
    }
    // Without a tool tip over the picture.
    bool Becomes(const std::vector<uint32_t>& wanted) const {
        MoveMouse(Away());
        return WaitUntil([&] { return Pixels() == wanted; });
    }
    // Moves the pointer within the picture, near its middle and so far beside it.
    bool MovesUntil(int beside, const std::function<bool()>& condition) const {
        return RepeatUntil(
            [&] {
                MoveMouse({Middle().x + beside, Middle().y});
                MoveMouse({Middle().x + beside + 3, Middle().y});
            },
            condition);
    }
};

TEST_F(PictureNavigation, MouseZoomsAndMovesAndADoubleClickShowsAll) {
    const std::vector<uint32_t> fitted = Pixels();
    Click(Middle());
    EXPECT_TRUE(FocusBecomes(main, PIC_Section));
    TurnWheel(Middle(), 5);
    ASSERT_TRUE(Changes(fitted));
    const std::vector<uint32_t> zoomed = Pixels();
    // Another press at the same place would be a double click.
    const POINT from{Middle().x - 60, Middle().y};
    ASSERT_TRUE(BeginDrag(picture, from));
    MoveMouse({from.x + 40, from.y + 30});
    ASSERT_TRUE(EndDrag(picture, {from.x + 40, from.y + 30}));
    EXPECT_TRUE(Changes(zoomed));
    DoubleClick(Middle());
    Type({VK_ESCAPE});  // the first click was a mark
    EXPECT_TRUE(Becomes(fitted));
}

TEST_F(PictureNavigation, KeysZoomMoveAndFit) {
    const std::vector<uint32_t> fitted = Pixels();
    Choose(main, ME_ViewZoomIn);
    ASSERT_TRUE(Changes(fitted));
    TypeWithControl('0');
    EXPECT_TRUE(Becomes(fitted));
    Click(Middle());
    ASSERT_TRUE(FocusBecomes(main, PIC_Section));
    Type({VK_ESCAPE});  // the click was a mark
    ASSERT_TRUE(Becomes(fitted));
    Type({VK_ADD});
    ASSERT_TRUE(Changes(fitted));
    const std::vector<uint32_t> zoomed = Pixels();
    Type({VK_RIGHT});
    EXPECT_TRUE(Changes(zoomed)) << "the arrow keys stay in the picture";
    EXPECT_TRUE(FocusBecomes(main, PIC_Section));
    Type({VK_HOME});
    EXPECT_TRUE(Becomes(fitted));
}

TEST_F(PictureNavigation, MillionTimesAndBackIsTheFirstPicture) {
    constexpr int kSteps = 76;
    const std::vector<uint32_t> fitted = Pixels();
    for (int i = 0; i < kSteps; ++i) Choose(main, ME_ViewZoomIn);
    // The axes show where the picture is, which nothing else does at most places of a section.
    Choose(main, ME_ViewAxes);
    EXPECT_TRUE(Changes(fitted));
    Choose(main, ME_ViewAxes);
    for (int i = 0; i < kSteps; ++i) Choose(main, ME_ViewZoomOut);
    EXPECT_TRUE(Becomes(fitted));
}

TEST_F(PictureNavigation, LargerPreviewHasTheWholeWindowAndEscGivesTheListBack) {
    const RECT before = PictureArea();
    Type({VK_F11});
    ASSERT_TRUE(WaitUntil([&] { return !IsShown(LI_Sections); }));
    for (const int id : kBesidePicture) {
        EXPECT_TRUE(WaitUntil([&] { return !IsShown(id); })) << id;
    }
    RECT client{};
    GetClientRect(main, &client);
    EXPECT_TRUE(WaitUntil([&] {
        const RECT area = PictureArea();
        return area.right - area.left > (client.right - client.left) * 9 / 10 &&
               area.bottom - area.top > (client.bottom - client.top) * 7 / 10;
    }));
    EXPECT_TRUE(WaitUntil([&] { return ShowsASection(picture); }));
    EXPECT_TRUE(FocusBecomes(main, PIC_Section));
    Type({VK_ESCAPE});
    ASSERT_TRUE(WaitUntil([&] { return IsShown(LI_Sections); }));
    EXPECT_TRUE(WaitUntil([&] {
        const RECT area = PictureArea();
        return EqualRect(&area, &before) != FALSE;
    }));
    for (const int id : kBesidePicture) {
        EXPECT_TRUE(WaitUntil([&] { return IsShown(id); })) << id;
    }
    EXPECT_FALSE(IsShown(LB_WhyGone));
    EXPECT_TRUE(FocusBecomes(main, LI_Sections));
}

TEST_F(PictureNavigation, PointerOverThePictureIsDescribedInTheStatusLine) {
    const HWND status = Control(PAN_Help);
    ASSERT_TRUE(WaitUntil([&] { return !TextOf(status).starts_with(L"y "); }));
    const std::wstring before = TextOf(status);
    EXPECT_TRUE(MovesUntil(0, [&] { return TextOf(status).starts_with(L"y "); }));
    const std::wstring first = TextOf(status);
    EXPECT_NE(first.find(L" m, z "), std::wstring::npos);
    EXPECT_TRUE(MovesUntil(30, [&] { return TextOf(status) != first; }));
    MoveMouse(Away());
    EXPECT_TRUE(TextBecomes(status, before)) << "what it said before is back";
}

TEST_F(PictureNavigation, BoxThatClosesOverARestingPointerLeavesTheStatusLine) {
    const HWND status = Control(PAN_Help);
    const std::wstring before = TextOf(status);
    Choose(main, ME_SectionProperties);
    const HWND box = program.Window(L"FM_Properties");
    ASSERT_NE(box, nullptr);
    RECT common{};
    GetWindowRect(box, &common);
    const RECT area = PictureArea();
    ASSERT_TRUE(IntersectRect(&common, &common, &area)) << "the box lies over the picture";
    MoveMouse({common.left + 5, (common.top + common.bottom) / 2});
    ASSERT_TRUE(PressButton(box, IDCANCEL));
    for (int i = 0; i < 10; ++i) {
        Sleep(50);
        ASSERT_EQ(TextOf(status), before);
    }
}

TEST_F(PictureNavigation, ToolTipSaysWhatIsUnderTheRestingPointer) {
    EXPECT_TRUE(MovesUntil(0, [&] {
        const HWND toolTip = program.FindNow(TOOLTIPS_CLASSW);
        return toolTip != nullptr && IsWindowVisible(toolTip);
    }));
}

TEST_F(PictureNavigation, ClickMarksASecondOneMeasuresAndEscForgetsBoth) {
    ASSERT_FALSE(IsShown(TX_Facts));
    const std::vector<uint32_t> fitted = Pixels();
    Click(Middle());
    ASSERT_TRUE(WaitUntil([&] { return IsShown(TX_Facts); }));
    EXPECT_TRUE(IsShown(LB_Facts));
    EXPECT_TRUE(WaitUntil([&] { return TextOf(Control(TX_Facts)).starts_with(L"y\t"); }));
    EXPECT_EQ(TextOf(Control(TX_Facts)).find(L"Distance"), std::wstring::npos);
    const RECT shrunk = PictureArea();
    const RECT table = Place(TX_Facts);
    RECT common{};
    EXPECT_FALSE(IntersectRect(&common, &shrunk, &table));
    // Not within the time of a double click.
    Sleep(GetDoubleClickTime() + 50);
    Click({Middle().x + 40, Middle().y + 20});
    EXPECT_TRUE(WaitUntil(
        [&] { return TextOf(Control(TX_Facts)).find(L"Distance\t") != std::wstring::npos; }));
    Type({VK_ESCAPE});
    EXPECT_TRUE(WaitUntil([&] { return !IsShown(TX_Facts); }));
    EXPECT_TRUE(Becomes(fitted)) << "without marks, in its first size";
}

TEST_F(PictureNavigation, KeysMarkAndTheTableCanBeCopied) {
    Click(Middle());
    ASSERT_TRUE(FocusBecomes(main, PIC_Section));
    Type({VK_ESCAPE});
    ASSERT_TRUE(WaitUntil([&] { return !IsShown(TX_Facts); }));
    Type({VK_SPACE});
    ASSERT_TRUE(WaitUntil([&] { return IsShown(TX_Facts); }));
    Type({VK_TAB});
    ASSERT_TRUE(FocusBecomes(main, TX_Facts));
    const std::wstring facts = TextOf(Control(TX_Facts));
    SendMessageW(Control(TX_Facts), EM_SETSEL, 0, -1);
    EXPECT_TRUE(
        RepeatUntil([] { TypeWithControl('C'); }, [&] { return ClipboardText() == facts; }));
}

TEST_F(PictureNavigation, AnotherModelForgetsTheMarks) {
    Click(Middle());
    ASSERT_TRUE(WaitUntil([&] { return IsShown(TX_Facts); }));
    SelectRow(program, Control(LI_Sections), 2);
    EXPECT_TRUE(WaitUntil([&] { return !IsShown(TX_Facts); }));
}

TEST_F(PictureNavigation, SwitchesShowAndHideTheirParts) {
    const std::vector<uint32_t> plain = Pixels();
    for (const int command : {ME_ViewScaleBar, ME_ViewAxes, ME_ViewLegend, ME_ViewNames,
                              ME_ViewNumbers, ME_ViewThickness}) {
        Choose(main, command);
        EXPECT_TRUE(Changes(plain)) << command;
        Choose(main, command);
        EXPECT_TRUE(Becomes(plain)) << command;
    }
}

TEST_F(PictureNavigation, SwitchesAreAsTheyWereAtTheNextStart) {
    const auto colourCount = [](const std::vector<uint32_t>& pixels) {
        return std::set<uint32_t>(pixels.begin(), pixels.end()).size();
    };
    const size_t plain = colourCount(Pixels());
    Choose(main, ME_ViewThickness);
    ASSERT_TRUE(WaitUntil([&] { return colourCount(Pixels()) >= plain + 5; }));
    const RECT before = PictureArea();
    PostMessageW(main, WM_CLOSE, 0, 0);
    ASSERT_TRUE(program.HasEnded());
    ASSERT_TRUE(WaitUntil([&] { return colourCount(CopyScreen(before).pixels) == 1; }))
        << "the window may be on the screen for a moment yet";
    const Program next(installation, L"\"" + installation.File(L"ship.ve2") + L"\"");
    const HWND window = next.Main();
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(TakesKeys(window));
    picture = GetDlgItem(window, PIC_Section);
    EXPECT_TRUE(WaitUntil([&] { return colourCount(Pixels()) >= plain + 5; }))
        << plain << " colours without thicknesses, now " << colourCount(Pixels());
}

}  // namespace
}  // namespace corvane::ui
