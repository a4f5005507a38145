// The main window as Windows shows it: real controls, read with their messages.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/messages.h"
#include "app/state.h"
#include "bsd/bsd_file.h"
#include "tests/unit/support.h"
#include "ui/commands/main_window.h"
#include "ui/windows/control_ids.h"
#include "ui/windows/controls.h"
#include "ui/windows/dpi.h"
#include "ui/windows/screen.h"

namespace corvane {
namespace {

// The main window with the sample ship, not shown. Closed with the record, when the test has not.
struct OpenWindow {
    test::RecordingScreen keptState;
    test::FreshSettingsFile settings;
    test::KeepCurrentDirectory directory;
    HWND window = nullptr;

    explicit OpenWindow(bool withSample = true) {
        shell.screen = WindowsScreen();
        if (withSample) {
            shell.settings.DatabasePath = test::DataPath("../samples/aurora_bay.ve2");
            EXPECT_TRUE(LoadBsdFromDatabase(shell.settings.DatabasePath, shell.bsd));
        }
        shell.screen.loadMainWindow();
        window = OwnWindow(kMainWindowClass);
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

    HWND Control(ControlId id) const { return GetDlgItem(window, id); }
    std::string Text(ControlId id) const { return test::Narrow(WindowText(Control(id))); }

    std::string Cell(int row, int column) const {
        wchar_t text[200] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 200;
        SendMessageW(Control(LI_Sections), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
        return test::Narrow(text);
    }
    int Rows() const {
        return static_cast<int>(SendMessageW(Control(LI_Sections), LVM_GETITEMCOUNT, 0, 0));
    }
    int SelectedRow() const {
        return static_cast<int>(SendMessageW(Control(LI_Sections), LVM_GETNEXTITEM,
                                             static_cast<WPARAM>(-1), LVNI_SELECTED));
    }
    // As a user's click or key does.
    void SetSelected(int row, bool selected) const {
        LVITEMW item{};
        item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        item.state = selected ? LVIS_SELECTED | LVIS_FOCUSED : 0;
        SendMessageW(Control(LI_Sections), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
        HandlePostedMessages();
    }
    void HandlePostedMessages() const {
        MSG message;
        while (PeekMessageW(&message, window, WM_APP, WM_APP + 100, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
    }
    std::string MenuText(UINT position) const {
        wchar_t text[100] = L"";
        GetMenuStringW(GetMenu(window), position, text, 100, MF_BYPOSITION);
        return test::Narrow(text);
    }
    bool MenuGreyed(UINT item, UINT by) const {
        return (GetMenuState(GetMenu(window), item, by) & MF_GRAYED) != 0;
    }
    RECT Place(ControlId id) const {
        RECT place{};
        GetWindowRect(Control(id), &place);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
};

TEST(MainWindowWindow, ListShowsTheSamplesModels) {
    const OpenWindow open;
    ASSERT_NE(open.window, nullptr);
    ASSERT_EQ(open.Rows(), 14);
    EXPECT_EQ(open.Cell(4, 0), "Midship section, hold 4");
    EXPECT_EQ(open.Cell(4, 1), "108.500");
    EXPECT_EQ(open.Cell(4, 2), " 5");
    EXPECT_EQ(open.Cell(4, 3), "Section");
    EXPECT_EQ(open.Cell(13, 1), "");
    EXPECT_EQ(open.Cell(13, 2), "14");
    EXPECT_EQ(open.Cell(13, 3), "Torsion");
}

TEST(MainWindowWindow, RowsCarryTheirIconAndTag) {
    const OpenWindow open;
    ASSERT_EQ(open.Rows(), 14);
    for (const int row : {0, 9, 12}) {
        LVITEMW item{};
        item.mask = LVIF_IMAGE | LVIF_PARAM;
        item.iItem = row;
        SendMessageW(open.Control(LI_Sections), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        EXPECT_EQ(item.iImage, row == 0 ? 0 : row == 9 ? 1 : 2);
        EXPECT_EQ(item.lParam, row + 1);
    }
    const LRESULT icons = SendMessageW(open.Control(LI_Sections), LVM_GETIMAGELIST, LVSIL_SMALL, 0);
    EXPECT_EQ(ImageList_GetImageCount(reinterpret_cast<HIMAGELIST>(icons)), 3);
}

TEST(MainWindowWindow, RefreshSelectsTheCurrentModelAndFillsTheLabels) {
    const OpenWindow open;
    EXPECT_EQ(open.SelectedRow(), 0);
    EXPECT_EQ(open.Text(LB_X), "X = 20.7 m");
    EXPECT_EQ(open.Text(LB_Frame), "Frame : 30");
    EXPECT_EQ(open.Text(TX_DataBase), test::Narrow(shell.settings.DatabasePath));
    EXPECT_EQ(test::Narrow(WindowText(open.window)), "Corvane - aurora_bay.ve2 - AURORA BAY");
    EXPECT_EQ(open.Text(PAN_Help), "");
}

TEST(MainWindowWindow, SelectionOfARowSelectsItsModel) {
    const OpenWindow open;
    open.SetSelected(9, true);
    EXPECT_EQ(shell.currentModel, 10);
    EXPECT_EQ(open.Text(LB_Frame), "Frame : 46");
    EXPECT_EQ(open.MenuText(3), "Bul&khead");
    open.SetSelected(13, true);
    EXPECT_EQ(shell.currentModel, 14);
    EXPECT_EQ(open.MenuText(3), "&Torsion");
}

TEST(MainWindowWindow, LosingTheSelectionEmptiesTheLabelsAndKeepsTheNumber) {
    const OpenWindow open;
    open.SetSelected(12, true);
    open.SetSelected(12, false);
    EXPECT_EQ(open.SelectedRow(), -1);
    EXPECT_EQ(shell.currentModel, 13);
    EXPECT_EQ(open.Text(LB_X), "");
    EXPECT_EQ(open.Text(LB_Frame), "");
    EXPECT_EQ(open.MenuText(3), "&Section");
}

TEST(MainWindowWindow, WithoutADatabaseListAndMenusAreDisabled) {
    const OpenWindow open(false);
    EXPECT_EQ(open.Text(TX_DataBase), "No database selected");
    EXPECT_FALSE(IsWindowEnabled(open.Control(LI_Sections)));
    EXPECT_TRUE(open.MenuGreyed(1, MF_BYPOSITION));
    EXPECT_TRUE(open.MenuGreyed(2, MF_BYPOSITION));
    EXPECT_FALSE(open.MenuGreyed(0, MF_BYPOSITION));
    EXPECT_EQ(open.Text(PAN_Help), test::Narrow(GetMessage(kMsgInputBsdFirst)) + "...");
}

TEST(MainWindowWindow, MenuItemsAreGreyedAsTheTableTells) {
    const OpenWindow open;
    EXPECT_TRUE(IsWindowEnabled(open.Control(LI_Sections)));
    EXPECT_FALSE(open.MenuGreyed(1, MF_BYPOSITION));
    EXPECT_FALSE(open.MenuGreyed(2, MF_BYPOSITION));
    for (const Command& command : Commands()) {
        if (command.id == 0) continue;
        EXPECT_EQ(open.MenuGreyed(command.id, MF_BYCOMMAND), !IsEnabled(command, true))
            << command.name;
    }
}

TEST(MainWindowWindow, PathsKeepTheirAmpersandInTheStatusLine) {
    const OpenWindow open;
    ShowStatus(L"Reading A&B");
    EXPECT_EQ(open.Text(PAN_Help), "Reading A&B...");
    const auto style = GetWindowLongPtrW(open.Control(PAN_Help), GWL_STYLE);
    EXPECT_NE(style & SS_NOPREFIX, 0);
}

TEST(MainWindowWindow, StatusLineTurnsRedAndBack) {
    const OpenWindow open;
    const HDC dc = GetDC(open.Control(PAN_Help));
    const auto colour = [&] {
        SendMessageW(open.window, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                     reinterpret_cast<LPARAM>(open.Control(PAN_Help)));
        return GetTextColor(dc);
    };
    EXPECT_EQ(colour(), GetSysColor(COLOR_BTNTEXT));
    FlagStatusFailed(L"fault");
    EXPECT_EQ(colour(), RGB(255, 0, 0));
    ShowStatus(L"next");
    EXPECT_EQ(colour(), GetSysColor(COLOR_BTNTEXT));
    ReleaseDC(open.Control(PAN_Help), dc);
}

TEST(MainWindowWindow, StatusTagSwitchesStatusLinesOff) {
    const OpenWindow open;
    EXPECT_EQ(shell.screen.statusTag(), L"-1");
    StatusLinesOff();
    ShowStatus(L"hidden");
    EXPECT_EQ(open.Text(PAN_Help), "");
    StatusLinesOn();
    ShowStatus(L"shown");
    EXPECT_EQ(open.Text(PAN_Help), "shown...");
}

TEST(MainWindowWindow, ControlsStayInsideAtEverySize) {
    const OpenWindow open;
    for (const SIZE size : {SIZE{500, 380}, SIZE{800, 600}, SIZE{1600, 1000}}) {
        SetWindowPos(open.window, nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
        RECT client{};
        GetClientRect(open.window, &client);
        for (const ControlId id :
             {LB_DataBase, TX_DataBase, Command1, LI_Sections, LB_X, LB_Frame, PAN_Help}) {
            const RECT place = open.Place(id);
            EXPECT_GE(place.left, 0) << id;
            EXPECT_GE(place.top, 0) << id;
            EXPECT_LE(place.right, client.right) << id;
            EXPECT_LE(place.bottom, client.bottom) << id;
            EXPECT_GT(place.right, place.left) << id;
            EXPECT_GT(place.bottom, place.top) << id;
        }
        EXPECT_LT(open.Place(TX_DataBase).bottom, open.Place(LI_Sections).top);
        EXPECT_LT(open.Place(LI_Sections).bottom, open.Place(LB_X).top);
        EXPECT_LT(open.Place(LB_X).bottom, open.Place(PAN_Help).top);
    }
}

TEST(MainWindowWindow, ColumnsFillTheListWithoutAHorizontalScrollBar) {
    const OpenWindow open;
    const HWND list = open.Control(LI_Sections);
    for (const int width : {700, 1200, 800}) {
        SetWindowPos(open.window, nullptr, 0, 0, width, 600, SWP_NOZORDER | SWP_NOACTIVATE);
        RECT client{};
        GetClientRect(list, &client);
        LRESULT columns = 0;
        for (WPARAM i = 0; i < 4; ++i) columns += SendMessageW(list, LVM_GETCOLUMNWIDTH, i, 0);
        EXPECT_EQ(columns, client.right);
        EXPECT_EQ(GetWindowLongPtrW(list, GWL_STYLE) & WS_HSCROLL, 0);
    }
}

TEST(MainWindowWindow, AnotherResolutionScalesFontIconsAndPlaces) {
    const OpenWindow open;
    const auto lineHeight = [&] {
        const LRESULT font = SendMessageW(open.Control(LB_X), WM_GETFONT, 0, 0);
        return TextSize(open.window, reinterpret_cast<HFONT>(font), L"X").cy;
    };
    const auto iconWidth = [&] {
        const LRESULT icons =
            SendMessageW(open.Control(LI_Sections), LVM_GETIMAGELIST, LVSIL_SMALL, 0);
        int width = 0;
        int height = 0;
        ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(icons), &width, &height);
        return width;
    };
    const auto scaleTo = [&](WORD dpi) {
        RECT area{0, 0, 800 * dpi / 96, 600 * dpi / 96};
        SendMessageW(open.window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                     reinterpret_cast<LPARAM>(&area));
    };
    scaleTo(96);
    const LONG height = lineHeight();
    const int icon = iconWidth();
    const RECT button = open.Place(Command1);
    scaleTo(192);
    EXPECT_NEAR(lineHeight(), 2 * height, 2);
    EXPECT_EQ(iconWidth(), 2 * icon);
    EXPECT_NEAR(open.Place(Command1).right - open.Place(Command1).left,
                2 * (button.right - button.left), 1);
    EXPECT_EQ(open.Rows(), 14);
    EXPECT_EQ(open.SelectedRow(), 0);
}

TEST(MainWindowWindow, CloseSavesTheSettingsOnce) {
    const OpenWindow open;
    shell.settings.WorkDirectory = L"C:\\work\\";
    SendMessageW(open.window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(open.window));
    EXPECT_EQ(shell.mainWindow, nullptr);
    EXPECT_NE(test::ReadFileBytes(open.settings.path).find("aurora_bay.ve2"), std::string::npos);
}

TEST(MainWindowWindow, QuitClosesTheWindow) {
    const OpenWindow open;
    SendMessageW(open.window, WM_COMMAND, ME_FileQuit, 0);
    EXPECT_FALSE(IsWindow(open.window));
}

TEST(MainWindowWindow, WindowStaysOpenWhileAProgramRuns) {
    const OpenWindow open;
    SetChildRunning(true);
    SendMessageW(open.window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(open.window));
    SetChildRunning(false);
    SendMessageW(open.window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(open.window));
}

TEST(MainWindowWindow, EndOfTheSessionSavesTheSettings) {
    const OpenWindow open;
    SendMessageW(open.window, WM_ENDSESSION, FALSE, 0);
    EXPECT_EQ(GetFileAttributesW(open.settings.path.c_str()), INVALID_FILE_ATTRIBUTES);
    SendMessageW(open.window, WM_ENDSESSION, TRUE, 0);
    EXPECT_NE(test::ReadFileBytes(open.settings.path).find("aurora_bay.ve2"), std::string::npos);
}

TEST(MainWindowWindow, GreyedAndUnknownCommandsDoNothing) {
    const OpenWindow open;
    for (const WPARAM id : {WPARAM{ME_SectionRemove}, WPARAM{7}, WPARAM{0}}) {
        SendMessageW(open.window, WM_COMMAND, id, 0);
    }
    EXPECT_TRUE(IsWindow(open.window));
    EXPECT_EQ(open.Rows(), 14);
}

TEST(MainWindowWindow, TabOrderIsPathButtonList) {
    const OpenWindow open;
    EnableWindow(open.Control(Command1), TRUE);
    HWND control = open.Control(TX_DataBase);
    control = GetNextDlgTabItem(open.window, control, FALSE);
    EXPECT_EQ(GetDlgCtrlID(control), Command1);
    control = GetNextDlgTabItem(open.window, control, FALSE);
    EXPECT_EQ(GetDlgCtrlID(control), LI_Sections);
}

TEST(SplashWindow, ShowsTitleAndVersionOnTopAndGoes) {
    const test::RecordingScreen kept;
    shell.screen = WindowsScreen();
    shell.screen.unloadSplash();
    shell.screen.showSplash(L"Corvane JBP");
    const HWND splash = OwnWindow(kSplashClass);
    ASSERT_NE(splash, nullptr);
    EXPECT_EQ(WindowText(GetDlgItem(splash, LB_Title)), L"Corvane JBP");
    EXPECT_EQ(WindowText(GetDlgItem(splash, LB_Version)), L"Version 1.0");
    EXPECT_NE(GetWindowLongPtrW(splash, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    shell.screen.unloadSplash();
    EXPECT_EQ(OwnWindow(kSplashClass), nullptr);
}

}  // namespace
}  // namespace corvane
