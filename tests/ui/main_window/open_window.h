// The real main window for tests of it, inside the test's own process.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "bsd/bsd_file.h"
#include "report/messages.h"
#include "shell/open_database.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/base/own_window.h"
#include "ui/main_window/windows_view.h"

namespace corvane::test {

// The main window with the sample ship, not shown. Closed with the record, when the test has not.
struct OpenWindow {
    FakeView keptState;
    FreshSettingsFile settings;
    KeepCurrentDirectory directory;
    HWND window = nullptr;

    // `prepare` changes the state before the window is made.
    explicit OpenWindow(bool withSample = true, void (*prepare)() = nullptr) {
        UseView(WindowsView());
        if (withSample) {
            LoadDatabase(DataPath("../samples/aurora_bay.ve2"));
            EXPECT_TRUE(IsBsdDefined(shell.database.bsd));
        }
        if (prepare != nullptr) prepare();
        shell.view.loadMainWindow();
        window = MainHandle();
        if (window == nullptr) return;
        RefreshMainWindow();
    }
    ~OpenWindow() {
        if (IsWindow(window)) DestroyWindow(window);
        // The window's end asks the message loop to end; here none is running.
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        }
    }
    OpenWindow(const OpenWindow&) = delete;
    OpenWindow& operator=(const OpenWindow&) = delete;

    HWND Control(int id) const { return GetDlgItem(window, id); }
    std::string Text(int id) const { return Narrow(WindowText(Control(id))); }

    std::string Cell(int row, int column) const {
        wchar_t text[200] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 200;
        SendMessageW(Control(LI_Sections), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
        return Narrow(text);
    }
    int Rows() const {
        return static_cast<int>(SendMessageW(Control(LI_Sections), LVM_GETITEMCOUNT, 0, 0));
    }
    int SelectedRow() const {
        return static_cast<int>(SendMessageW(Control(LI_Sections), LVM_GETNEXTITEM,
                                             static_cast<WPARAM>(-1), LVNI_SELECTED));
    }
    // As a user's click or key does: no other row is selected then.
    void SetSelected(int row, bool selected) const {
        if (selected) SetState(-1, LVIS_SELECTED, 0);
        SetState(row, LVIS_SELECTED | LVIS_FOCUSED, selected ? LVIS_SELECTED | LVIS_FOCUSED : 0);
        HandlePostedMessages();
    }
    void SetState(int row, UINT mask, UINT state) const {
        LVITEMW item{};
        item.stateMask = mask;
        item.state = state;
        SendMessageW(Control(LI_Sections), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
    }
    void HandlePostedMessages() const {
        MSG message;
        while (PeekMessageW(&message, window, WM_APP, WM_APP + 100, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
    }
    void Resize(int width, int height) const {
        SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    // As Windows does when the window comes to a screen of another resolution.
    void ScaleTo(WORD dpi, SIZE sizeAt96) const {
        RECT area{0, 0, sizeAt96.cx * dpi / 96, sizeAt96.cy * dpi / 96};
        SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&area));
    }
    std::string MenuText(UINT position) const {
        wchar_t text[100] = L"";
        GetMenuStringW(GetMenu(window), position, text, 100, MF_BYPOSITION);
        return Narrow(text);
    }
    bool MenuGreyed(UINT item, UINT by) const {
        return (GetMenuState(GetMenu(window), item, by) & MF_GRAYED) != 0;
    }
    RECT Place(int id) const {
        RECT place{};
        GetWindowRect(Control(id), &place);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
};

}  // namespace corvane::test
