// The page preview as Windows shows it: the paper, the pages, the choices, the keys.
#include "ui/dialogs/page_preview.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report/messages.h"
#include "tests/shell/fake_view.h"
#include "tests/ui/dialogs/modal_window.h"
#include "ui/base/control_ids.h"
#include "ui/dialogs/print_dialog.h"

namespace corvane {
namespace {

using test::PlaceIn;
using test::Press;
using test::RecordedReports;
using test::TextOf;

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kRed = RGB(255, 0, 0);

// A document whose pages have a red square in their middle, 20 mm wide on the first page, 40 mm on
// the second one.
struct PagePreviewBox : testing::Test {
    test::FakeView kept;
    PrintJob job;

    PagePreviewBox() {
        job.name = L"ship.ve2";
        job.pageCount = 3;
        job.makePage = [](int number, const Paper& paper) {
            Page page;
            page.figure = MakeFigure(paper.width_mm, paper.height_mm, 1, {0, 0});
            const double x = paper.width_mm / 2, y = paper.height_mm / 2, half = 10.0 * number;
            AddSheetArea(page.figure, FigureLayer::kPlate, kRed,
                         std::vector<SheetPoint>{{x - half, y - half},
                                                 {x + half, y - half},
                                                 {x + half, y + half},
                                                 {x - half, y + half}});
            page.scale = shell.pages.scale > 0 ? shell.pages.scale : 137;
            page.isCutOff = shell.pages.scale == 10;
            return page;
        };
    }
    void Show(const std::function<void(HWND)>& look) const {
        const test::WhenOpen open(kPagePreviewClass, look);
        PreviewPages(job);
    }
    // What part of the picture has a colour, in its coordinates.
    static RECT AreaOf(HWND window, COLORREF colour) {
        const HWND picture = GetDlgItem(window, IM_Page);
        UpdateWindow(picture);
        RECT client{};
        GetClientRect(picture, &client);
        RECT area{client.right, client.bottom, 0, 0};
        const HDC dc = GetDC(picture);
        for (LONG y = 0; y < client.bottom; y += 2) {
            for (LONG x = 0; x < client.right; x += 2) {
                if (GetPixel(dc, x, y) != colour) continue;
                area.left = std::min(area.left, x);
                area.top = std::min(area.top, y);
                area.right = std::max(area.right, x + 1);
                area.bottom = std::max(area.bottom, y + 1);
            }
        }
        ReleaseDC(picture, dc);
        return area;
    }
    static LONG Width(const RECT& area) { return area.right - area.left; }
    static LONG Height(const RECT& area) { return area.bottom - area.top; }
    static void Choose(HWND window, int index) {
        SendDlgItemMessageW(window, CB_PageScale, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        SendMessageW(window, WM_COMMAND, MAKEWPARAM(CB_PageScale, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(GetDlgItem(window, CB_PageScale)));
    }
    static void Click(HWND window, int button) {
        SendDlgItemMessageW(window, button, BM_CLICK, 0, 0);
    }
    static bool IsEnabled(HWND window, int id) {
        return IsWindowEnabled(GetDlgItem(window, id)) != FALSE;
    }
};

TEST_F(PagePreviewBox, PaperIsWhiteInTheMiddleWithThePageDrawnOnIt) {
    Show([](HWND window) {
        EXPECT_EQ(test::Narrow(WindowText(window)), "Page preview of 'ship.ve2'");
        RECT client{};
        GetClientRect(GetDlgItem(window, IM_Page), &client);
        const RECT paper = AreaOf(window, kWhite);
        EXPECT_NEAR(1.0 * Width(paper) / Height(paper), 297.0 / 210, 0.02);
        EXPECT_NEAR(paper.left, client.right - paper.right, 4);
        EXPECT_NEAR(paper.top, client.bottom - paper.bottom, 4);
        EXPECT_GT(paper.left, 5) << "grey is around it";
        const RECT square = AreaOf(window, kRed);
        EXPECT_NEAR(1.0 * Width(square) / Width(paper), 20.0 / 297, 0.01);
        EXPECT_NEAR(square.left + square.right, client.right, 6);
        Press(window, IDCANCEL);
    });
}

TEST_F(PagePreviewBox, ButtonsAndKeysTurnThePages) {
    Show([](HWND window) {
        EXPECT_EQ(TextOf(window, LB_PageNumber), "Page 1 of 3");
        EXPECT_FALSE(IsEnabled(window, BT_PreviousPage));
        const LONG first = Width(AreaOf(window, kRed));
        Click(window, BT_NextPage);
        EXPECT_EQ(TextOf(window, LB_PageNumber), "Page 2 of 3");
        EXPECT_NEAR(Width(AreaOf(window, kRed)), 2 * first, 6);
        EXPECT_TRUE(IsEnabled(window, BT_PreviousPage));
        SetFocus(GetDlgItem(window, BT_NextPage));
        Click(window, BT_NextPage);
        EXPECT_FALSE(IsEnabled(window, BT_NextPage));
        EXPECT_EQ(GetFocus(), GetDlgItem(window, BT_PreviousPage));
        for (const int from : {int{IDOK}, int{CB_PageScale}, int{OP_Paper}}) {
            SetFocus(GetDlgItem(window, from));
            SendMessageW(GetFocus(), WM_KEYDOWN, VK_PRIOR, 0);
            EXPECT_EQ(TextOf(window, LB_PageNumber), "Page 2 of 3");
            SendMessageW(GetFocus(), WM_KEYDOWN, VK_NEXT, 0);
            SendMessageW(GetFocus(), WM_KEYDOWN, VK_NEXT, 0);
            EXPECT_EQ(TextOf(window, LB_PageNumber), "Page 3 of 3");
        }
        EXPECT_EQ(SendDlgItemMessageW(window, CB_PageScale, CB_GETCURSEL, 0, 0), 0);
        Press(window, IDCANCEL);
    });
}

TEST_F(PagePreviewBox, OnePageHasNothingToTurn) {
    job.pageCount = 1;
    Show([](HWND window) {
        for (const int id : {BT_PreviousPage, LB_PageNumber, BT_NextPage, OP_PageTable}) {
            EXPECT_EQ(GetDlgItem(window, id), nullptr) << id;
        }
        Press(window, IDCANCEL);
    });
}

TEST_F(PagePreviewBox, ScaleIsChosenAndSaidAndTheCutIsExplained) {
    Show([](HWND window) {
        EXPECT_EQ(TextOf(window, LB_ScaleNow), "This page is 1:137");
        EXPECT_EQ(TextOf(window, LB_PageRemark), "");
        Choose(window, 1);
        EXPECT_EQ(TextOf(window, LB_ScaleNow), "This page is 1:10");
        EXPECT_NE(TextOf(window, LB_PageRemark).find("larger than the page"), std::string::npos);
        test::ExpectWholeAt(window, 96);
        Choose(window, 5);
        EXPECT_EQ(TextOf(window, LB_PageRemark), "");
        Press(window, IDCANCEL);
    });
    EXPECT_EQ(shell.pages.scale, 100);
    Show([](HWND window) {
        EXPECT_EQ(SendDlgItemMessageW(window, CB_PageScale, CB_GETCURSEL, 0, 0), 5);
        Press(window, IDCANCEL);
    });
}

TEST_F(PagePreviewBox, PaperIsTurnedAndTheTableSwitched) {
    job.hasMarks = true;
    Show([](HWND window) {
        EXPECT_EQ(IsDlgButtonChecked(window, OP_Paper), BST_CHECKED) << "across at first";
        Click(window, OP_Paper + 1);
        const RECT paper = AreaOf(window, kWhite);
        EXPECT_NEAR(1.0 * Width(paper) / Height(paper), 210.0 / 297, 0.02);
        EXPECT_EQ(IsDlgButtonChecked(window, OP_PageTable), BST_UNCHECKED);
        Click(window, OP_PageTable);
        Press(window, IDCANCEL);
    });
    EXPECT_TRUE(shell.pages.isPortrait);
    EXPECT_TRUE(shell.preview.options.hasTable);
}

TEST_F(PagePreviewBox, WithoutAPrinterPrintSaysSoAndThePreviewStays) {
    {
        PrinterChoice printer;
        TakeDefaultPrinter(printer);
        if (printer.dialog.hDevNames != nullptr) GTEST_SKIP() << "this system has a printer";
    }
    Show([](HWND window) {
        EXPECT_EQ(GetFocus(), GetDlgItem(window, IDOK));
        Click(window, IDOK);
        EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
        EXPECT_TRUE(IsWindowVisible(window));
        Press(window, IDCANCEL);
    });
}

TEST_F(PagePreviewBox, EscClosesItFromEverywhere) {
    for (const int from : {int{IDOK}, int{CB_PageScale}, int{BT_NextPage}}) {
        Show([from](HWND window) {
            SetFocus(GetDlgItem(window, from));
            test::PressKey(GetDlgItem(window, from), VK_ESCAPE);
        });
    }
}

TEST_F(PagePreviewBox, NothingIsCutAtAnyResolution) {
    job.hasMarks = true;
    shell.pages.scale = 10;
    Show([](HWND window) {
        for (const WORD dpi : test::kResolutions) {
            test::ExpectWholeAt(window, dpi);
            const RECT paper = AreaOf(window, kWhite);
            const RECT picture = PlaceIn(window, IM_Page);
            EXPECT_GT(Width(paper), Width(picture) * 3 / 4) << dpi;
        }
        Press(window, IDCANCEL);
    });
}

// ---- The printer's paper -----------------------------------------------------------------------

TEST(PrinterPaper, OrientationIsHandedToTheSystemsDialog) {
    PrinterChoice printer;
    printer.dialog.hDevMode = GlobalAlloc(GHND, sizeof(DEVMODEW));
    const auto orientation = [&printer] {
        const auto* mode = static_cast<DEVMODEW*>(GlobalLock(printer.dialog.hDevMode));
        const short value = (mode->dmFields & DM_ORIENTATION) != 0 ? mode->dmOrientation : 0;
        GlobalUnlock(printer.dialog.hDevMode);
        return value;
    };
    EXPECT_EQ(orientation(), 0);
    // Without a device it is A4.
    EXPECT_EQ(TurnPaper(printer, false).width_mm, 297);
    EXPECT_EQ(orientation(), DMORIENT_LANDSCAPE);
    EXPECT_EQ(TurnPaper(printer, true).width_mm, 210);
    EXPECT_EQ(orientation(), DMORIENT_PORTRAIT);
}

// The display stands for a printer.
TEST(PrinterPaper, IsThatOfTheDevice) {
    constexpr wchar_t kDriver[] = L"DISPLAY";
    PrinterChoice printer;
    printer.dialog.hDevNames = GlobalAlloc(GHND, sizeof(DEVNAMES) + sizeof kDriver);
    auto* names = static_cast<DEVNAMES*>(GlobalLock(printer.dialog.hDevNames));
    names->wDriverOffset = names->wDeviceOffset = sizeof(DEVNAMES) / sizeof(wchar_t);
    std::ranges::copy(kDriver, reinterpret_cast<wchar_t*>(names) + names->wDriverOffset);
    GlobalUnlock(printer.dialog.hDevNames);
    const HDC screen = GetDC(nullptr);
    const Paper expected = PaperOf(DeviceOf(screen));
    ReleaseDC(nullptr, screen);
    const Paper paper = TurnPaper(printer, false);
    EXPECT_EQ(paper.width_mm, expected.width_mm);
    EXPECT_EQ(paper.height_mm, expected.height_mm);
}

}  // namespace
}  // namespace corvane
