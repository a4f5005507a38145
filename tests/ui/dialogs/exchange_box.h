// An exchange box that is open in the test's own process, with files in a folder of the test's.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report/messages.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"
#include "tests/ui/dialogs/modal_window.h"
#include "ui/base/control_ids.h"
#include "ui/dialogs/list_controls.h"

namespace corvane::test {

struct ExchangeBoxTest : testing::Test {
    FakeView screen;
    FreshSettingsFile settings;
    KeepCurrentDirectory directory;
    TemporaryFolder folder;

    ExchangeBoxTest() { shell.settings.BrowseDirectory = folder.path; }

    // Paths of copies of the sample ship.
    std::wstring Copy(const char* sample, std::wstring_view name) const {
        std::wstring path = folder.File(name);
        CopyFileW(DataPath(std::string("../samples/") + sample).c_str(), path.c_str(), FALSE);
        return path;
    }
    std::wstring Legacy(std::wstring_view name) const { return Copy("aurora_bay.vel", name); }
    std::wstring Model(std::wstring_view name) const { return Copy("aurora_bay.ve2", name); }
    std::wstring Subfolder(std::wstring_view name) const {
        CreateDirectoryW(folder.File(name).c_str(), nullptr);
        return folder.File(name) + L"\\";
    }
    // What the program has shown the user so far.
    static std::vector<std::string> Shown() { return RecordedReports::Of("plain"); }

    // What the user does to an open box.
    static HWND List(HWND window, int id) { return GetDlgItem(window, id); }
    static LRESULT Count(HWND window, int id) {
        return SendMessageW(List(window, id), LB_GETCOUNT, 0, 0);
    }
    static LRESULT Selected(HWND window, int id) {
        return SendMessageW(List(window, id), LB_GETCURSEL, 0, 0);
    }
    static std::vector<std::string> Items(HWND window, int id) {
        std::vector<std::string> items;
        for (LRESULT i = 0; i < Count(window, id); ++i) {
            items.push_back(Narrow(ListItemText(List(window, id), i)));
        }
        return items;
    }
    static void Notify(HWND window, int id, int code) {
        SendMessageW(window, WM_COMMAND, MAKEWPARAM(id, code),
                     reinterpret_cast<LPARAM>(List(window, id)));
    }
    static void Select(HWND window, int id, int index) {
        SendMessageW(List(window, id), LB_SETCURSEL, static_cast<WPARAM>(index), 0);
        Notify(window, id, LBN_SELCHANGE);
    }
    static void Choose(HWND window, const std::wstring& fileName) {
        const auto index =
            SendMessageW(List(window, FIL_Db), LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                         reinterpret_cast<LPARAM>(fileName.c_str()));
        ASSERT_GE(index, 0) << Narrow(fileName);
        Select(window, FIL_Db, static_cast<int>(index));
    }
    static void SetOption(HWND window, int id) {
        SendMessageW(GetDlgItem(window, id), BM_CLICK, 0, 0);
    }
    static void PressOk(HWND window) { SetOption(window, BT_Ok); }
    static bool IsEnabled(HWND window, int id) {
        return IsWindowEnabled(GetDlgItem(window, id)) != FALSE;
    }
    static bool IsOpen(HWND window) { return IsWindow(window) && IsWindowVisible(window); }
    // Goes to a control and presses a key there.
    static void PressKeyIn(HWND window, int id, WPARAM key) {
        SendMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(window, id)), TRUE);
        PressKey(GetDlgItem(window, id), key);
        // The dialog's own loop would handle the keys only after the test has looked.
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
            if (!IsDialogMessageW(window, &message)) DispatchMessageW(&message);
        }
    }
    // The same with the Ctrl key held.
    static void PressControlKeyIn(HWND window, int id, WPARAM key) {
        BYTE before[256];
        BYTE held[256];
        GetKeyboardState(before);
        std::ranges::copy(before, held);
        held[VK_CONTROL] = 0x80;
        SetKeyboardState(held);
        PressKeyIn(window, id, key);
        SetKeyboardState(before);
    }
    // Controls that the Tab key goes to, from the first one on.
    static std::vector<int> TabOrder(HWND window, int first) {
        std::vector<int> order{first};
        HWND control = GetDlgItem(window, first);
        for (;;) {
            control = GetNextDlgTabItem(window, control, FALSE);
            if (control == nullptr || GetDlgCtrlID(control) == first) return order;
            order.push_back(GetDlgCtrlID(control));
        }
    }
    // What the picture shows, row by row.
    static std::vector<COLORREF> Pixels(HWND window) {
        const HWND picture = GetDlgItem(window, PIC_Section);
        RECT client{};
        GetClientRect(picture, &client);
        const HDC screenDc = GetDC(picture);
        const HDC dc = CreateCompatibleDC(screenDc);
        const HBITMAP bitmap = CreateCompatibleBitmap(screenDc, client.right, client.bottom);
        const HGDIOBJ before = SelectObject(dc, bitmap);
        SendMessageW(picture, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
        std::vector<COLORREF> pixels;
        for (int y = 0; y < client.bottom; ++y) {
            for (int x = 0; x < client.right; ++x) pixels.push_back(GetPixel(dc, x, y));
        }
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
        ReleaseDC(picture, screenDc);
        return pixels;
    }
    // Number of pixels of the picture that are not of its background.
    static int DrawnPixels(HWND window) {
        const COLORREF background = GetSysColor(COLOR_WINDOW);
        return static_cast<int>(std::ranges::count_if(
            Pixels(window), [background](COLORREF pixel) { return pixel != background; }));
    }
    // Plating, stiffeners and ends of plates are in it.
    static bool ShowsLines(HWND window) {
        const std::vector<COLORREF> pixels = Pixels(window);
        return std::ranges::count(pixels, RGB(0, 0, 255)) > 30 &&
               std::ranges::count(pixels, RGB(0, 128, 0)) > 10;
    }
    static bool ShowsPreview(HWND window) {
        return DrawnPixels(window) > 100 && !TextOf(window, LB_Service).empty();
    }
    static bool ShowsNoPreview(HWND window) {
        return DrawnPixels(window) == 0 && TextOf(window, LB_Service).empty();
    }
    // Clicks into the picture, at parts of its width and height.
    static void ClickPicture(HWND window, double across, double down) {
        const HWND picture = GetDlgItem(window, PIC_Section);
        RECT client{};
        GetClientRect(picture, &client);
        const LPARAM at = MAKELPARAM(static_cast<int>(across * client.right),
                                     static_cast<int>(down * client.bottom));
        SendMessageW(picture, WM_LBUTTONDOWN, MK_LBUTTON, at);
        SendMessageW(picture, WM_LBUTTONUP, 0, at);
    }
    // A picture with a mark has the table of what is there beside it, at every resolution.
    static void ExpectTableBesidePicture(HWND window) {
        EXPECT_FALSE(IsShown(window, TX_Facts));
        ClickPicture(window, 0.5, 0.5);
        for (const WORD dpi : kResolutions) {
            ExpectWholeAt(window, dpi);
            ASSERT_TRUE(IsShown(window, TX_Facts));
            const RECT picture = PlaceIn(window, PIC_Section);
            const RECT table = PlaceIn(window, TX_Facts);
            EXPECT_GT(table.left, picture.right);
            EXPECT_EQ(table.bottom, picture.bottom);
            EXPECT_GT(picture.right - picture.left, 150 * dpi / 96);
            EXPECT_LE(picture.bottom, PlaceIn(window, LB_Service).top);
        }
        EXPECT_EQ(LabelBefore(window, TX_Facts), Narrow(GetMessage(kMsgMarkedPlace)));
        EXPECT_TRUE(TextOf(window, TX_Facts).starts_with("y\t")) << TextOf(window, TX_Facts);
    }
    // At 96 dots per inch, on a screen of 800 by 600 with a task bar; at 144, on one of 1024 by
    // 768.
    static void ExpectFitsASmallScreen(HWND window) {
        const struct {
            WORD dpi;
            LONG width, height;
        } screens[] = {{144, 1024, 768}, {96, 800, 560}};
        for (const auto& screen : screens) {
            ScaleTo(window, screen.dpi);
            RECT whole{};
            GetWindowRect(window, &whole);
            EXPECT_LE(whole.right - whole.left, screen.width) << screen.dpi;
            EXPECT_LE(whole.bottom - whole.top, screen.height) << screen.dpi;
        }
    }
    // The label before a control names it for screen readers.
    static std::string LabelBefore(HWND window, int id) {
        return Narrow(WindowText(GetWindow(GetDlgItem(window, id), GW_HWNDPREV)));
    }
};

}  // namespace corvane::test
