// A page on a device: true to size, whatever its resolution is. A metafile and a bitmap stand for
// the printer's device context.
#include "ui/dialogs/print_dialog.h"

#include <gtest/gtest.h>
#include <winspool.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "preview/page_layout.h"
#include "report/messages.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::RecordedReports;

constexpr int32_t kRed = 0x000000FF;
constexpr FigurePen kPen{FigureLayer::kPlate, kRed, 0.1};

// A page of 100 mm by 100 mm with the model's square of 1 m at 1:50, which are 20 mm.
Figure SquarePage() {
    PageContents contents{};
    contents.width_mm = contents.height_mm = 100;
    contents.margins = {5, 5, 5, 5};
    contents.scale = 50;
    contents.extent = {0, 0, 1, 1};
    contents.draw = [](Figure& figure) {
        AddLine(figure, kPen, std::vector<ShipPoint>{{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}});
    };
    return MakePage(contents).figure;
}

// The lines of five points that a metafile has, with the colour of the pen before them.
struct Recorded {
    std::vector<std::vector<POINTS>> squares;
    bool isRed = false;
};

int CALLBACK NoteRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM target) {
    Recorded& recorded = *reinterpret_cast<Recorded*>(target);
    if (record->iType == EMR_CREATEPEN) {
        recorded.isRed = reinterpret_cast<const EMRCREATEPEN*>(record)->lopn.lopnColor == kRed;
    }
    if (record->iType == EMR_POLYLINE16) {
        const auto& line = *reinterpret_cast<const EMRPOLYLINE16*>(record);
        if (line.cpts == 5 && recorded.isRed) {
            recorded.squares.emplace_back(line.apts, line.apts + line.cpts);
        }
    }
    return 1;
}

TEST(PrintDialog, PageOnAMetafileIsTrueToSize) {
    const HDC dc = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    const PrintDevice device = DeviceOf(dc);
    DrawPage(device, SquarePage());
    const HENHMETAFILE file = CloseEnhMetaFile(dc);
    Recorded recorded;
    EnumEnhMetaFile(nullptr, file, NoteRecord, &recorded, nullptr);
    DeleteEnhMetaFile(file);
    ASSERT_EQ(recorded.squares.size(), 1U);
    const std::vector<POINTS>& square = recorded.squares[0];
    const double dots = 20 * device.across / 25.4;
    EXPECT_NEAR(square[1].x - square[0].x, dots, 1);
    EXPECT_NEAR(square[1].y - square[2].y, dots, 1);
}

// A black bitmap as a device.
struct BitmapDevice {
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap;
    HGDIOBJ before;

    BitmapDevice(int width, int height) {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(info.bmiHeader), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        before = SelectObject(dc, bitmap);
    }
    ~BitmapDevice() {
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
    }
    BitmapDevice(const BitmapDevice&) = delete;
    BitmapDevice& operator=(const BitmapDevice&) = delete;

    // The dots that have the pen's colour.
    RECT Red(int width, int height) const {
        RECT red{width, height, -1, -1};
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (GetPixel(dc, x, y) != static_cast<COLORREF>(kRed)) continue;
                red.left = std::min<LONG>(red.left, x);
                red.top = std::min<LONG>(red.top, y);
                red.right = std::max<LONG>(red.right, x);
                red.bottom = std::max<LONG>(red.bottom, y);
            }
        }
        return red;
    }
};

TEST(PrintDialog, ResolutionsAcrossAndDownMayDiffer) {
    constexpr int kSize = 400;
    const BitmapDevice bitmap(kSize, kSize);
    const PrintDevice device{bitmap.dc, 96, 48};
    DrawPage(device, SquarePage());
    const RECT red = bitmap.Red(kSize, kSize);
    EXPECT_NEAR(red.right - red.left, 20 * 96 / 25.4, 1.5);
    EXPECT_NEAR(red.bottom - red.top, 20 * 48 / 25.4, 1.5);
    EXPECT_EQ(GetMapMode(bitmap.dc), MM_TEXT) << "the device is as before";
}

TEST(PrintDialog, PaperBeginsBeforeWhatCanBePrinted) {
    constexpr int kSize = 400;
    const BitmapDevice whole(kSize, kSize);
    const BitmapDevice cut(kSize, kSize);
    DrawPage({whole.dc, 96, 96}, SquarePage());
    DrawPage({cut.dc, 96, 96, {30, 12}}, SquarePage());
    const RECT a = whole.Red(kSize, kSize);
    const RECT b = cut.Red(kSize, kSize);
    EXPECT_EQ(a.left - b.left, 30);
    EXPECT_EQ(a.top - b.top, 12);
}

TEST(PrintDialog, PaperOfAnotherDeviceThanAPrinterIsAllOfIt) {
    const HDC screen = GetDC(nullptr);
    const PrintDevice device = DeviceOf(screen);
    const Paper paper = PaperOf(device);
    EXPECT_NEAR(paper.width_mm, GetDeviceCaps(screen, HORZRES) * 25.4 / device.across, 1e-9);
    EXPECT_NEAR(paper.height_mm, GetDeviceCaps(screen, VERTRES) * 25.4 / device.down, 1e-9);
    EXPECT_EQ(paper.margins, (SheetArea{10, 10, 10, 10}));
    ReleaseDC(nullptr, screen);
}

TEST(PrintDialog, WithoutAPrinterItSaysSo) {
    DWORD size = 0, count = 0;
    EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 4, nullptr, 0, &size,
                  &count);
    if (size > 0) GTEST_SKIP() << "this system has a printer";
    const RecordedReports reports;
    PrintJob job;
    job.name = L"Midship";
    job.pageCount = 1;
    PrinterChoice printer;
    TakeDefaultPrinter(printer);
    EXPECT_EQ(PrintThroughSystem(job, printer), PrintEnd::kFailed);
    const std::vector<std::string> warnings = RecordedReports::Of("warning");
    constexpr system::ErrorNumber kNoPrinters = 3012;
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_NE(warnings[0].find("'Midship' could not be printed: " +
                               test::Narrow(system::ErrorText(kNoPrinters))),
              std::string::npos)
        << warnings[0];
}

}  // namespace
}  // namespace corvane
