// The preview of the real program: what an item click and the check box make of the picture.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "database/editing.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "tests/ui/screenshot.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

bool Becomes(HWND picture, bool section) {
    const ULONGLONG end = GetTickCount64() + kPatience;
    while (ShowsASection(picture) != section) {
        if (GetTickCount64() > end) return false;
        Sleep(20);
    }
    return true;
}

std::wstring CaptionOf(HWND window) {
    wchar_t text[200] = L"";
    GetWindowTextW(window, text, 200);
    return text;
}

// Whether something is written in the picture, in the colour of texts.
bool ShowsAText(HWND picture) {
    RECT area{};
    GetWindowRect(picture, &area);
    const COLORREF colour = GetSysColor(COLOR_WINDOWTEXT);
    const uint32_t ink = RGB(GetBValue(colour), GetGValue(colour), GetRValue(colour));
    InflateRect(&area, -10, -10);
    return std::ranges::count(CopyScreen(area).pixels, ink) > 30;
}

// A copy of the sample ship whose second section has panels without plating.
std::wstring BareDatabase(const test::TemporaryFolder& folder) {
    std::wstring path = folder.File(L"ship.ve2");
    test::WriteFileBytes(path, test::ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2")));
    SectionModel bare;
    bare.name = L"Bare";
    bare.panels.resize(2);
    EXPECT_TRUE(ReplaceSection(path, bare, 2));
    return path;
}

struct PreviewTest : testing::Test {
    test::TemporaryFolder folder;
    Settings settings;
    Installation installation;
    Program program{installation, L"\"" + BareDatabase(folder) + L"\""};
    HWND main = program.Main();
    HWND picture = GetDlgItem(main, PIC_Section);

    void SetUp() override {
        ASSERT_NE(main, nullptr);
        ASSERT_NE(picture, nullptr);
        SetWindowPos(main, HWND_TOPMOST, 0, 0, 1000, 700, 0);
    }
};

TEST_F(PreviewTest, TorsionModelClearsThePictureAndSaysWhy) {
    const HWND list = GetDlgItem(main, LI_Sections);
    ASSERT_TRUE(Becomes(picture, true));
    PressKey(list, VK_END);
    EXPECT_TRUE(Becomes(picture, false));
    EXPECT_TRUE(WaitUntil([&] { return ShowsAText(picture); }));
    EXPECT_EQ(
        CaptionOf(picture),
        L"The layout of a torsion model belongs to the torsion program: edit the model to see "
        L"it there.");
    EXPECT_EQ(program.FindNow(L"#32770"), nullptr) << "a box is shown";
    PressKey(list, VK_HOME);
    EXPECT_TRUE(Becomes(picture, true));
}

TEST_F(PreviewTest, SectionWithoutPlatingClearsThePictureAndSaysWhy) {
    const HWND list = GetDlgItem(main, LI_Sections);
    ASSERT_TRUE(Becomes(picture, true));
    PressKey(list, VK_DOWN);
    EXPECT_TRUE(Becomes(picture, false)) << "not the section before";
    EXPECT_TRUE(WaitUntil([&] { return ShowsAText(picture); }));
    EXPECT_EQ(CaptionOf(picture), L"This section has no plating to draw.");
    EXPECT_EQ(program.FindNow(L"#32770"), nullptr) << "a box is shown";
    PressKey(list, VK_DOWN);
    EXPECT_TRUE(Becomes(picture, true));
    EXPECT_EQ(CaptionOf(picture), L"Preview of the section");
}

TEST_F(PreviewTest, CheckBoxTurnsThePictureOffAndOn) {
    const HWND box = GetDlgItem(main, OP_Preview);
    ASSERT_TRUE(Becomes(picture, true));
    PostMessageW(box, BM_CLICK, 0, 0);
    EXPECT_TRUE(Becomes(picture, false));
    PostMessageW(box, BM_CLICK, 0, 0);
    EXPECT_TRUE(Becomes(picture, true));
}

}  // namespace
}  // namespace corvane::ui
