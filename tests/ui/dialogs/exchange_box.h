// An exchange box that is open in the test's own process, with files in a folder of the test's.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

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
    // At 96 dots per inch, on a screen of 800 by 600 with a task bar.
    static void ExpectFitsASmallScreen(HWND window) {
        ScaleTo(window, 96);
        RECT whole{};
        GetWindowRect(window, &whole);
        EXPECT_LE(whole.right - whole.left, 800);
        EXPECT_LE(whole.bottom - whole.top, 560);
    }
    // The label before a control names it for screen readers.
    static std::string LabelBefore(HWND window, int id) {
        return Narrow(WindowText(GetWindow(GetDlgItem(window, id), GW_HWNDPREV)));
    }
};

}  // namespace corvane::test
