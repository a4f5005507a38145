// The page preview, and all pictures at once, in the real program.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "shell/commands/commands.h"
#include "tests/ui/main_window_fixture.h"
#include "tests/ui/screenshot.h"

namespace corvane::ui {
namespace {

using test::Narrow;

struct PicturePagesUi : MainWindowFixture {
    HWND OpenPreview(int command) const {
        Choose(main, command);
        return program.Window(kPagePreviewClass);
    }
    static std::vector<uint32_t> PixelsOf(HWND preview) {
        RECT area{};
        GetWindowRect(GetDlgItem(preview, IM_Page), &area);
        return CopyScreen(area).pixels;
    }
    // The page once it does not change any more: what is being painted may be there in part.
    static std::vector<uint32_t> SettledPixelsOf(HWND preview) {
        std::vector<uint32_t> pixels;
        EXPECT_TRUE(WaitUntil([&] {
            pixels = PixelsOf(preview);
            Sleep(100);
            return PixelsOf(preview) == pixels;
        }));
        return pixels;
    }
    // White paper with something blue, the plating, on it.
    static bool ShowsAPage(HWND preview) {
        const std::vector<uint32_t> pixels = PixelsOf(preview);
        const auto whites = std::ranges::count(pixels, 0xFFFFFFU);
        const auto blues = std::ranges::count_if(pixels, [](uint32_t pixel) {
            return (pixel & 0xFF) > 0xE0 && (pixel >> 16 & 0xFF) < 0xA0;
        });
        return whites > std::ssize(pixels) / 3 && blues > 50;
    }
    bool IsBackInTheList(HWND preview) const {
        return HasClosed(preview) && WaitUntil([&] { return IsWindowEnabled(main) != FALSE; }) &&
               FocusBecomes(main, LI_Sections);
    }
};

TEST_F(PicturePagesUi, ControlAndPShowThePageAndEscGoesBackToTheList) {
    TypeWithControl('P');
    const HWND preview = program.Window(kPagePreviewClass);
    ASSERT_NE(preview, nullptr);
    ASSERT_TRUE(TakesKeys(preview));
    EXPECT_EQ(Narrow(TextOf(preview)), "Page preview of 'Engine room, frame 30'");
    EXPECT_TRUE(WaitUntil([&] { return ShowsAPage(preview); }));
    const std::vector<uint32_t> fitted = SettledPixelsOf(preview);
    // The scale with its letter, then the list's keys.
    TypeWithAlt('S');
    ASSERT_TRUE(FocusBecomes(preview, CB_PageScale));
    ASSERT_TRUE(PressUntil(VK_END, [&] {
        return TextOf(GetDlgItem(preview, LB_ScaleNow)) == L"This page is 1:1000";
    }));
    EXPECT_TRUE(WaitUntil([&] { return PixelsOf(preview) != fitted; }));
    Type({VK_HOME, VK_DOWN});
    EXPECT_TRUE(TextBecomes(GetDlgItem(preview, LB_ScaleNow), L"This page is 1:10"));
    EXPECT_TRUE(TextOf(GetDlgItem(preview, LB_PageRemark)).starts_with(L"At this scale"));
    Type({VK_ESCAPE});
    EXPECT_TRUE(IsBackInTheList(preview));
    // The choice is that of the next preview, too.
    const HWND again = OpenPreview(ME_FilePrint);
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(TextBecomes(GetDlgItem(again, LB_ScaleNow), L"This page is 1:10"));
    ASSERT_TRUE(PressButton(again, IDCANCEL));
    PostMessageW(main, WM_CLOSE, 0, 0);
    ASSERT_TRUE(program.HasEnded());
    EXPECT_EQ(GetPrivateProfileIntW(L"Corvane window", L"PageScale", 0, Settings::Path().c_str()),
              10U);
}

TEST_F(PicturePagesUi, PagesOfAllSectionsAreTurnedByKeys) {
    const HWND preview = OpenPreview(ME_FilePrintAll);
    ASSERT_NE(preview, nullptr);
    ASSERT_TRUE(TakesKeys(preview));
    EXPECT_EQ(Narrow(TextOf(preview)), "Page preview of 'ship.ve2'");
    ASSERT_TRUE(WaitUntil([&] { return ShowsAPage(preview); }));
    const std::vector<uint32_t> first = SettledPixelsOf(preview);
    const HWND number = GetDlgItem(preview, LB_PageNumber);
    EXPECT_EQ(Narrow(TextOf(number)), "Page 1 of 9");
    ASSERT_TRUE(PressUntil(VK_NEXT, [&] { return TextOf(number) == L"Page 2 of 9"; }));
    EXPECT_TRUE(WaitUntil([&] { return ShowsAPage(preview) && PixelsOf(preview) != first; }));
    Type({VK_PRIOR});
    EXPECT_TRUE(TextBecomes(number, L"Page 1 of 9"));
    EXPECT_TRUE(WaitUntil([&] { return PixelsOf(preview) == first; }));
    // Print without a printer says so, and the preview stays.
    Type({VK_RETURN});
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find("could not be printed"), std::string::npos) << Narrow(box.text);
    ASSERT_TRUE(Press(box, IDOK));
    EXPECT_TRUE(IsWindow(preview));
    ASSERT_TRUE(TakesKeys(preview));
    Type({VK_ESCAPE});
    EXPECT_TRUE(IsBackInTheList(preview));
}

TEST_F(PicturePagesUi, AllPicturesAreWrittenAndExistingOnesAskedAboutOnce) {
    const std::wstring out = installation.File(L"pictures");
    CreateDirectoryW(out.c_str(), nullptr);
    const auto answer = [&] {
        ASSERT_TRUE(ChooseByKeys(program, 'F', 'X'));
        const HWND box = program.Window(kPicturesBoxClass);
        ASSERT_NE(box, nullptr);
        ASSERT_TRUE(TakesKeys(box));
        Send(GetDlgItem(box, TX_PictureFolder), WM_SETTEXT, 0,
             reinterpret_cast<LPARAM>(out.c_str()));
        Send(GetDlgItem(box, CB_PictureKind), CB_SETCURSEL, 1, 0);
        Type({VK_RETURN});
        ASSERT_TRUE(HasClosed(box));
    };
    const std::wstring done = L"9 of 9 pictures written to '" + out + L"'";
    answer();
    EXPECT_TRUE(TextBecomes(Control(PAN_Help), done)) << Narrow(TextOf(Control(PAN_Help)));
    EXPECT_EQ(test::FilesIn(out).size(), 9U);
    const std::wstring first = out + L"\\ship - 1 Engine room, frame 30.svg";
    EXPECT_TRUE(test::ReadFileBytes(first).ends_with("</svg>\r\n"));

    test::WriteFileBytes(first, "old");
    answer();
    Box question = WaitForBox(program);
    EXPECT_NE(Narrow(question.text).find("9 of 9 files are already"), std::string::npos);
    ASSERT_TRUE(Press(question, IDCANCEL));
    EXPECT_TRUE(FocusBecomes(main, LI_Sections));
    EXPECT_EQ(test::ReadFileBytes(first), "old");
    answer();
    question = WaitForBox(program);
    ASSERT_TRUE(Press(question, IDOK));
    EXPECT_TRUE(TextBecomes(Control(PAN_Help), done));
    EXPECT_TRUE(test::ReadFileBytes(first).ends_with("</svg>\r\n"));
}

TEST_F(PicturePagesUi, TableOfWhatIsMarkedGoesWithThePicture) {
    const std::wstring path = installation.File(L"a.svg");
    RECT area{};
    GetWindowRect(Control(PIC_Section), &area);
    Click({(area.left + area.right) / 2, (area.top + area.bottom) / 2});
    ASSERT_TRUE(WaitUntil([&] { return IsShown(TX_Facts); }));
    const HWND preview = OpenPreview(ME_FilePrint);
    ASSERT_NE(preview, nullptr);
    ASSERT_TRUE(WaitUntil([&] { return ShowsAPage(preview); }));
    const std::vector<uint32_t> plain = PixelsOf(preview);
    const HWND box = GetDlgItem(preview, OP_PageTable);
    ASSERT_NE(box, nullptr);
    PostMessageW(box, BM_CLICK, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return PixelsOf(preview) != plain; }));
    ASSERT_TRUE(PressButton(preview, IDCANCEL));
    ASSERT_TRUE(ChooseByKeys(program, 'F', 'P'));
    ASSERT_TRUE(AnswerFilePrompt(program, path));
    EXPECT_TRUE(TextBecomes(Control(PAN_Help), L"Picture written to '" + path + L"'"));
    const std::string svg = test::ReadFileBytes(path);
    EXPECT_NE(svg.find(">y</text>"), std::string::npos) << "the table's first label";
}

}  // namespace
}  // namespace corvane::ui
