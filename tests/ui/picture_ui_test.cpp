// The picture of the preview, exported and copied in the real program from the keyboard.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/ui/file_dialog.h"
#include "tests/ui/main_window_fixture.h"
#include "tests/ui/png_file.h"

namespace corvane::ui {
namespace {

using test::Narrow;
using test::ReadFileBytes;

struct PictureUiTest : MainWindowFixture {
    // File > Export picture to a file of this name in the program's folder; its path.
    std::wstring Export(std::wstring_view name) const {
        std::wstring path = installation.File(name);
        EXPECT_TRUE(ChooseByKeys(program, 'F', 'P'));
        EXPECT_TRUE(AnswerFilePrompt(program, path));
        EXPECT_TRUE(TextBecomes(Control(PAN_Help), L"Picture written to '" + path + L"'"));
        return path;
    }
};

TEST_F(PictureUiTest, MetafileIsTheSheet) {
    const std::wstring path = Export(L"a.emf");
    const HENHMETAFILE metafile = GetEnhMetaFileW(path.c_str());
    ASSERT_NE(metafile, nullptr);
    ENHMETAHEADER header{};
    GetEnhMetaFileHeader(metafile, sizeof header, &header);
    EXPECT_EQ(header.rclFrame.right, 29700);
    EXPECT_EQ(header.rclFrame.bottom, 21000);
    EXPECT_GT(header.nRecords, 100U);
    // What is drawn is inside of the sheet, and fills its height but for the margins.
    const double pixelsPerMm = 1.0 * header.szlDevice.cy / header.szlMillimeters.cy;
    EXPECT_NEAR(header.rclBounds.top / pixelsPerMm, 6, 5);
    EXPECT_NEAR(header.rclBounds.bottom / pixelsPerMm, 204, 5);
    DeleteEnhMetaFile(metafile);
}

TEST_F(PictureUiTest, PngHasTheColoursOfThePreview) {
    const test::PngFile png = test::ReadPng(Export(L"a.png"));
    ASSERT_TRUE(png.isSound);
    EXPECT_EQ(png.width, 3508U);
    EXPECT_EQ(png.height, 2480U);
    for (const uint32_t colour : {0x0000FFU, 0x008000U, 0x800000U, 0xF0F0F0U, 0xFFFFFFU}) {
        EXPECT_GT(std::ranges::count(png.pixels, colour), 100) << colour;
    }
    EXPECT_EQ(png.At(5, 5), 0xFFFFFFU);
}

TEST_F(PictureUiTest, SvgAndDxfAreWritten) {
    const std::string svg = ReadFileBytes(Export(L"a.svg"));
    EXPECT_NE(svg.find("<g id=\"stiffener\">\r\n<polyline"), svg.npos);
    EXPECT_TRUE(svg.ends_with("</svg>\r\n"));
    const std::string dxf = ReadFileBytes(Export(L"a.dxf"));
    EXPECT_NE(dxf.find("\r\nPOLYLINE\r\n8\r\nPLATE\r\n"), dxf.npos);
    EXPECT_TRUE(dxf.ends_with("EOF\r\n"));
}

TEST_F(PictureUiTest, FileThatIsHeldOrReadOnlyStays) {
    const std::wstring path = installation.File(L"a.svg");
    test::WriteFileBytes(path, "old");
    const HANDLE held = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(ChooseByKeys(program, 'F', 'P'));
    const Box question = AnswerWithBox(program, WaitForFileDialog(program), path);
    ASSERT_TRUE(Press(question, IDYES)) << "it asks before it overwrites";
    const Box box = WaitForPlainBox(program);
    EXPECT_NE(Narrow(box.text).find("a.svg"), std::string::npos) << Narrow(box.text);
    EXPECT_TRUE(Press(box, IDOK));
    CloseHandle(held);
    EXPECT_EQ(ReadFileBytes(path), "old");
}

TEST_F(PictureUiTest, ControlShiftAndPPutBothFormsOnTheClipboard) {
    ASSERT_NE(OpenClipboard(nullptr), 0);
    EmptyClipboard();
    CloseClipboard();
    TypeWithControlShift('P');
    EXPECT_TRUE(TextBecomes(Control(PAN_Help),
                            L"On the clipboard: the picture of 'Engine room, frame 30'"));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_ENHMETAFILE));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_DIB));
}

TEST_F(PictureUiTest, MenuSaysWhyAModelWithoutAPictureHasNoExport) {
    Type({VK_END});
    ASSERT_TRUE(WaitUntil([&] { return SelectedRow(Control(LI_Sections)) == 13; })) << "torsion";
    TypeWithAlt('F');
    ASSERT_TRUE(MenuIsOpen(true));
    EXPECT_TRUE(PressUntil(VK_UP, [&] {
        return TextOf(Control(PAN_Help)) ==
               L"Select a section or a bulkhead arrangement first, and turn the preview on";
    })) << Narrow(TextOf(Control(PAN_Help)));
    Type({VK_ESCAPE, VK_ESCAPE});
    EXPECT_TRUE(MenuIsOpen(false));
}

}  // namespace
}  // namespace corvane::ui
