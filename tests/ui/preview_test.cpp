// The preview of the real program: what an item click and the check box make of the picture.
#include <gtest/gtest.h>

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

struct PreviewTest : testing::Test {
    Settings settings;
    Installation installation;
    Program program{installation, L"\"" + test::DataPath("../samples/aurora_bay.ve2") + L"\""};
    HWND main = program.Main();
    HWND picture = GetDlgItem(main, PIC_Section);

    void SetUp() override {
        ASSERT_NE(main, nullptr);
        ASSERT_NE(picture, nullptr);
        SetWindowPos(main, HWND_TOPMOST, 0, 0, 1000, 700, 0);
    }
};

TEST_F(PreviewTest, FirstSectionIsShownAtTheStart) {
    EXPECT_EQ(SendMessageW(GetDlgItem(main, OP_Preview), BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_TRUE(Becomes(picture, true));
}

TEST_F(PreviewTest, BulkheadArrangementClearsThePicture) {
    const HWND list = GetDlgItem(main, LI_Sections);
    ASSERT_TRUE(Becomes(picture, true));
    PressKey(list, VK_END);
    EXPECT_TRUE(Becomes(picture, false));
    EXPECT_EQ(program.FindNow(L"#32770"), nullptr) << "a box is shown";
    PressKey(list, VK_HOME);
    EXPECT_TRUE(Becomes(picture, true));
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
