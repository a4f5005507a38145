// Metafiles, PNG files and the clipboard's picture, as the system reads them.
#include "ui/pictures/picture_output.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/support/support.h"
#include "tests/ui/png_file.h"

namespace corvane {
namespace {

// A red square of 20 mm in the upper left corner, and a blue line of 4 mm across the middle.
Figure TestFigure(double width_mm, double height_mm) {
    Figure figure = MakeFigure(width_mm, height_mm, 1, {0, 0});
    AddSheetArea(figure, FigureLayer::kCompartment, RGB(255, 0, 0),
                 std::array<SheetPoint, 4>{{{0, 0}, {20, 0}, {20, 20}, {0, 20}}});
    AddSheetLine(figure, {FigureLayer::kPlate, RGB(0, 0, 255), 4},
                 std::array<SheetPoint, 2>{{{0, height_mm / 2}, {width_mm, height_mm / 2}}});
    return figure;
}

// A metafile on white paper, 10 pixels for each mm.
struct PaperCopy {
    static constexpr int kPixelsPerMm = 10;
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap;
    HGDIOBJ before;

    PaperCopy(HENHMETAFILE metafile, int width_mm, int height_mm) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader,
                          width_mm * kPixelsPerMm,
                          height_mm * kPixelsPerMm,
                          1,
                          32,
                          BI_RGB,
                          0,
                          0,
                          0,
                          0,
                          0};
        void* bits = nullptr;
        bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        before = SelectObject(dc, bitmap);
        const RECT all{0, 0, width_mm * kPixelsPerMm, height_mm * kPixelsPerMm};
        FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        PlayEnhMetaFile(dc, metafile, &all);
    }
    ~PaperCopy() {
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }
    COLORREF At(double x_mm, double y_mm) const {
        return GetPixel(dc, static_cast<int>(x_mm * kPixelsPerMm),
                        static_cast<int>(y_mm * kPixelsPerMm));
    }
};

void ExpectTestFigure(HENHMETAFILE metafile) {
    ENHMETAHEADER header{};
    ASSERT_NE(GetEnhMetaFileHeader(metafile, sizeof header, &header), 0U);
    EXPECT_EQ(header.rclFrame.left, 0);
    EXPECT_EQ(header.rclFrame.right, 29700) << "hundredths of a millimetre";
    EXPECT_EQ(header.rclFrame.bottom, 21000);
    const PaperCopy copy(metafile, 297, 210);
    EXPECT_EQ(copy.At(10, 10), RGB(255, 0, 0));
    EXPECT_EQ(copy.At(19, 19), RGB(255, 0, 0));
    EXPECT_EQ(copy.At(21.5, 10), RGB(255, 255, 255));
    EXPECT_EQ(copy.At(150, 105), RGB(0, 0, 255));
    EXPECT_EQ(copy.At(150, 104), RGB(0, 0, 255));
    EXPECT_EQ(copy.At(150, 102), RGB(255, 255, 255));
}

TEST(PictureOutputTest, MetafileHasTheSheetsTrueSize) {
    const test::TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.emf");
    test::WriteFileBytes(path, "");
    ASSERT_EQ(WriteMetafile(TestFigure(297, 210), path), system::kErrorNone);
    const HENHMETAFILE metafile = GetEnhMetaFileW(path.c_str());
    ASSERT_NE(metafile, nullptr);
    ExpectTestFigure(metafile);
    DeleteEnhMetaFile(metafile);
}

TEST(PictureOutputTest, PngHasThreeHundredDotsPerInch) {
    const test::TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.png");
    ASSERT_EQ(WritePng(TestFigure(297, 210), path), system::kErrorNone);
    const test::PngFile png = test::ReadPng(path);
    ASSERT_TRUE(png.isSound);
    EXPECT_EQ(png.width, 3508U);
    EXPECT_EQ(png.height, 2480U);
    EXPECT_NEAR(png.pixelsPerMetre, 11811, 1);
    ASSERT_FALSE(png.pixels.empty());
    // 11.81 pixels for each mm; the rows come in several bands.
    EXPECT_EQ(png.At(118, 118), 0xFF0000U);
    EXPECT_EQ(png.At(230, 230), 0xFF0000U);
    EXPECT_EQ(png.At(245, 118), 0xFFFFFFU);
    EXPECT_EQ(png.At(1754, 1240), 0x0000FFU);
    EXPECT_EQ(png.At(3500, 1240), 0x0000FFU);
    EXPECT_EQ(png.At(1754, 1200), 0xFFFFFFU);
    EXPECT_EQ(png.At(1754, 2470), 0xFFFFFFU);
}

TEST(PictureOutputTest, PngMayBeVeryLargeAndVerySmall) {
    const test::TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.png");
    ASSERT_EQ(WritePng(TestFigure(1693.4, 60), path), system::kErrorNone);
    const test::PngFile png = test::ReadPng(path);
    ASSERT_TRUE(png.isSound);
    EXPECT_EQ(png.width, 20001U);
    EXPECT_EQ(png.height, 709U);
    EXPECT_EQ(png.At(20000, 354), 0x0000FFU);
    ASSERT_EQ(WritePng(TestFigure(0.01, 0.01), path), system::kErrorNone);
    EXPECT_EQ(test::ReadPng(path).width, 1U);
}

TEST(PictureOutputTest, FolderThatIsNotThereIsAnError) {
    const test::TemporaryFolder folder;
    EXPECT_NE(WriteMetafile(TestFigure(10, 10), folder.File(L"no\\a.emf")), system::kErrorNone);
    EXPECT_NE(WritePng(TestFigure(10, 10), folder.File(L"no\\a.png")), system::kErrorNone);
}

TEST(PictureOutputTest, ClipboardHasAMetafileAndABitmap) {
    ASSERT_TRUE(CopyPicture(nullptr, TestFigure(297, 210)));
    ASSERT_NE(OpenClipboard(nullptr), 0);
    const auto metafile = static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE));
    ASSERT_NE(metafile, nullptr);
    ExpectTestFigure(metafile);
    const auto* header = static_cast<const BITMAPINFOHEADER*>(GlobalLock(GetClipboardData(CF_DIB)));
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->biWidth, 1754);
    EXPECT_EQ(header->biHeight, 1240);
    EXPECT_NEAR(header->biXPelsPerMeter, 5906, 1);
    // The rows come from the lowest up; 1754 pixels of three bytes and two more.
    const auto* rows = reinterpret_cast<const uint8_t*>(header + 1);
    const uint8_t* middle = rows + size_t{620} * 5264 + size_t{877} * 3;
    EXPECT_EQ(middle[0], 255) << "blue comes first";
    EXPECT_EQ(middle[2], 0);
    const uint8_t* corner = rows + size_t{1180} * 5264 + size_t{59} * 3;
    EXPECT_EQ(corner[0], 0);
    EXPECT_EQ(corner[2], 255) << "red, 10 mm from the upper left corner";
    CloseClipboard();
}

}  // namespace
}  // namespace corvane
