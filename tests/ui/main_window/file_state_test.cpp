// What the main window shows of its database's file, and what it offers without one.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/file_system.h"
#include "platform/system.h"
#include "shell/commands/commands.h"
#include "shell/commands/help_commands.h"
#include "shell/open_database.h"
#include "tests/ui/main_window/open_window.h"
// After windows.h.
#include <shlobj.h>

namespace corvane {
namespace {

using test::DataPath;
using test::Narrow;
using test::OpenWindow;

bool IsShown(HWND control) {
    return (GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

// The window with a copy of the sample ship that a test may change.
struct FileStateTest : testing::Test {
    test::TemporaryFolder folder;
    OpenWindow open;
    std::wstring path = folder.File(L"ship.ve2");

    FileStateTest() {
        test::WriteFileBytes(path, test::ReadFileBytes(DataPath("../samples/aurora_bay.ve2")));
        LoadDatabase(path);
        RefreshMainWindow();
    }

    COLORREF RowColour() const {
        return static_cast<COLORREF>(
            SendMessageW(open.Control(LI_Sections), LVM_GETTEXTCOLOR, 0, 0));
    }
    std::string Part(int part) const {
        wchar_t text[200] = L"";
        SendMessageW(open.Control(SB_Status), SB_GETTEXTW, static_cast<WPARAM>(part),
                     reinterpret_cast<LPARAM>(text));
        return Narrow(text);
    }
    // What the File menu has between its own items when it opens.
    std::vector<std::string> RecentInMenu() const {
        const HMENU menu = GetSubMenu(GetMenu(open.window), 0);
        SendMessageW(open.window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
        std::vector<std::string> items;
        for (int i = 0; i < GetMenuItemCount(menu); ++i) {
            const UINT id = GetMenuItemID(menu, i);
            if (id < ME_FileRecent || id >= ME_FileRecent + 9) continue;
            wchar_t text[300] = L"";
            GetMenuStringW(menu, static_cast<UINT>(i), text, 300, MF_BYPOSITION);
            const bool isGrey = (GetMenuState(menu, id, MF_BYCOMMAND) & MF_GRAYED) != 0;
            items.push_back((isGrey ? "grey " : "") + Narrow(text));
        }
        return items;
    }
    // As the system hands over files that were dropped.
    void Drop(const std::wstring& files) const {
        const size_t size = sizeof(DROPFILES) + (files.size() + 2) * sizeof(wchar_t);
        const HGLOBAL memory = GlobalAlloc(GHND, size);
        auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
        drop->pFiles = sizeof(DROPFILES);
        drop->fWide = TRUE;
        auto* names = reinterpret_cast<wchar_t*>(drop + 1);
        files.copy(names, files.size());
        GlobalUnlock(memory);
        SendMessageW(open.window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    }
};

TEST_F(FileStateTest, FileThatHasGoneGreysTheRowsBelowALineThatSaysSo) {
    EXPECT_FALSE(IsShown(open.Control(LB_WhyGone)));
    const RECT before = open.Place(LI_Sections);
    ASSERT_EQ(system::RemoveFile(path), system::kErrorNone);
    RefreshWhenChanged();
    EXPECT_EQ(open.Rows(), 14);
    EXPECT_EQ(RowColour(), GetSysColor(COLOR_GRAYTEXT));
    EXPECT_TRUE(IsShown(open.Control(LB_WhyGone)));
    EXPECT_EQ(open.Text(LB_WhyGone).find("'ship.ve2' cannot be reached now."), 0U)
        << open.Text(LB_WhyGone);
    const RECT line = open.Place(LB_WhyGone);
    const RECT list = open.Place(LI_Sections);
    EXPECT_EQ(line.top, before.top);
    EXPECT_LE(line.bottom, list.top);
    EXPECT_EQ(list.bottom, before.bottom);
    EXPECT_EQ(Part(2), "Not there");
}

TEST_F(FileStateTest, FileThatComesBackIsShownAsBefore) {
    const std::string bytes = test::ReadFileBytes(path);
    const RECT before = open.Place(LI_Sections);
    const COLORREF colour = RowColour();
    ASSERT_EQ(system::RemoveFile(path), system::kErrorNone);
    RefreshWhenChanged();
    test::WriteFileBytes(path, bytes);
    RefreshWhenChanged();
    EXPECT_FALSE(IsShown(open.Control(LB_WhyGone)));
    const RECT after = open.Place(LI_Sections);
    EXPECT_TRUE(EqualRect(&before, &after));
    EXPECT_EQ(RowColour(), colour);
    EXPECT_EQ(open.Text(LB_X), "X = 20.7 m");
}

// ---- Status bar --------------------------------------------------------------------------------

TEST_F(FileStateTest, StatusBarShowsModelsFileAndRuleSet) {
    EXPECT_EQ(Part(1), "14 models");
    EXPECT_EQ(Part(2).find("Saved "), 0U) << Part(2);
    EXPECT_EQ(Part(3), "QUOR");
    SendMessageW(open.Control(OP_Rule + 1), BM_CLICK, 0, 0);
    EXPECT_EQ(Part(3), "CSR for BC");
    system::SetReadOnly(path, true);
    RefreshWhenChanged();
    EXPECT_EQ(Part(2), "Read-only");
    EXPECT_TRUE(Narrow(WindowText(open.window)).ends_with("AURORA BAY [Read-only]"));
    system::SetReadOnly(path, false);
}

TEST_F(FileStateTest, MessageHasWhatThePartsLeave) {
    for (const int width : {720, 1600}) {
        open.Resize(width, 700);
        RECT message = open.Place(PAN_Help);
        RECT part{};
        SendMessageW(open.Control(SB_Status), SB_GETRECT, 1, reinterpret_cast<LPARAM>(&part));
        EXPECT_LE(message.right, part.left) << width;
        EXPECT_GE(message.right - message.left, width - 360) << width;
        RECT bar = open.Place(SB_Status);
        RECT client{};
        GetClientRect(open.window, &client);
        EXPECT_EQ(bar.bottom, client.bottom);
        EXPECT_GE(message.top, bar.top);
        EXPECT_LE(message.bottom, bar.bottom);
    }
}

TEST_F(FileStateTest, CornerOfTheBarIsAGripForTheSize) {
    ShowWindow(open.window, SW_SHOWNOACTIVATE);
    RECT bar{};
    GetWindowRect(open.Control(SB_Status), &bar);
    const LPARAM corner = MAKELPARAM(bar.right - 3, bar.bottom - 3);
    EXPECT_EQ(SendMessageW(open.Control(SB_Status), WM_NCHITTEST, 0, corner), HTBOTTOMRIGHT);
}

// ---- Recent databases and drops ----------------------------------------------------------------

TEST_F(FileStateTest, FileMenuListsTheRecentDatabases) {
    const std::wstring other = folder.File(L"other.ve2");
    shell.recent = {path, other};
    std::vector<std::string> items = RecentInMenu();
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].substr(0, 3), "&1 ");
    EXPECT_TRUE(items[0].ends_with("\\ship.ve2")) << items[0];
    EXPECT_EQ(items[1].substr(0, 8), "grey &2 ");
    test::WriteFileBytes(other, "");
    items = RecentInMenu();
    ASSERT_EQ(items.size(), 2U) << "listed again, not added";
    EXPECT_EQ(items[1].substr(0, 3), "&2 ");
    const HMENU menu = GetSubMenu(GetMenu(open.window), 0);
    EXPECT_EQ(GetMenuItemID(menu, GetMenuItemCount(menu) - 1), UINT{ME_FileQuit});
}

TEST_F(FileStateTest, DroppedDatabaseIsOpened) {
    const std::wstring other = folder.File(L"other.ve2");
    test::WriteFileBytes(other, test::ReadFileBytes(path));
    Drop(other);
    EXPECT_EQ(shell.database.path, other);
    EXPECT_EQ(open.Text(TX_DataBase), Narrow(other));
}

TEST_F(FileStateTest, NothingIsOpenedWhileTheWindowIsAtWork) {
    shell.childRunning = true;
    Drop(DataPath("../samples/aurora_bay.ve2"));
    shell.childRunning = false;
    EXPECT_EQ(shell.database.path, path);
}

// ---- Divider -----------------------------------------------------------------------------------

TEST_F(FileStateTest, DoubleClickAndHomeTakeTheDividerBack) {
    const RECT first = open.Place(SP_Sections);
    const HWND divider = open.Control(SP_Sections);
    for (const UINT message : {UINT{WM_LBUTTONDBLCLK}, UINT{WM_KEYDOWN}}) {
        SendMessageW(divider, WM_KEYDOWN, VK_LEFT, 0);
        ASSERT_LT(open.Place(SP_Sections).left, first.left);
        SendMessageW(divider, message, message == WM_KEYDOWN ? VK_HOME : 0, 0);
        EXPECT_EQ(open.Place(SP_Sections).left, first.left) << message;
    }
}

// ---- Place -------------------------------------------------------------------------------------

TEST(WindowPlaceOfMainWindow, WindowComesBackAsItWasLeft) {
    WindowPlace place;
    {
        OpenWindow open;
        SetWindowPos(open.window, nullptr, 40, 50, 900, 640, SWP_NOZORDER | SWP_NOACTIVATE);
        SendMessageW(open.Control(OP_Preview), BM_CLICK, 0, 0);
        SendMessageW(open.Control(SP_Sections), WM_KEYDOWN, VK_LEFT, 0);
        shell.view.noteWindowPlace(place);
    }
    EXPECT_EQ(place.area, (ScreenArea{40, 50, 940, 690}));
    EXPECT_FALSE(place.isPreviewOn);
    EXPECT_LT(place.listShare, 0.54);
    static WindowPlace remembered;
    remembered = place;
    OpenWindow open(true, [] { shell.windowPlace = remembered; });
    RECT now{};
    GetWindowRect(open.window, &now);
    EXPECT_EQ((ScreenArea{now.left, now.top, now.right, now.bottom}), place.area);
    WindowPlace again;
    shell.view.noteWindowPlace(again);
    EXPECT_FALSE(again.isPreviewOn);
    EXPECT_EQ(again.listShare, place.listShare);
}

TEST(WindowPlaceOfMainWindow, WindowOfAScreenThatHasGoneComesToOneThatIsThere) {
    OpenWindow open(true, [] {
        shell.windowPlace.isKnown = true;
        shell.windowPlace.area = {-5000, -5000, -4100, -4400};
    });
    RECT now{};
    GetWindowRect(open.window, &now);
    EXPECT_NE(MonitorFromRect(&now, MONITOR_DEFAULTTONULL), nullptr);
    EXPECT_EQ(now.right - now.left, 900);
}

TEST(WindowPlaceOfMainWindow, ResolutionOfTheScreenScalesTheSize) {
    OpenWindow open(true, [] {
        shell.windowPlace.isKnown = true;
        shell.windowPlace.area = {0, 0, 1600, 1200};
        shell.windowPlace.dpi = 192;
    });
    RECT now{};
    GetWindowRect(open.window, &now);
    EXPECT_EQ(now.right - now.left, MulDiv(1600, static_cast<int>(DpiOf(open.window)), 192));
}

// ---- Without a database ------------------------------------------------------------------------

std::vector<std::string> Offers(const OpenWindow& open) {
    std::vector<std::string> offers;
    for (int id = BT_StartOpen; id < BT_StartRecent + 9; ++id) {
        const HWND control = open.Control(id);
        if (!IsShown(control) || id == LB_StartRecent) continue;
        offers.push_back((IsWindowEnabled(control) ? "" : "grey ") + open.Text(id));
    }
    return offers;
}

TEST(StartPane, OffersWhatCanBeOpened) {
    const OpenWindow open(false, [] {
        shell.recent = {DataPath("../samples/aurora_bay.ve2"), L"C:\\gone\\ship.ve2"};
    });
    EXPECT_FALSE(IsShown(open.Control(LI_Sections)));
    EXPECT_FALSE(IsShown(open.Control(LB_Models)));
    std::vector<std::string> offers = Offers(open);
    std::erase(offers, "Open the sample ship...");
    ASSERT_EQ(offers.size(), 4U);
    EXPECT_EQ(offers[0], "Open a database...");
    EXPECT_EQ(offers[1], "New...");
    EXPECT_TRUE(offers[2].ends_with("\\aurora_bay.ve2")) << offers[2];
    EXPECT_EQ(offers[3], "grey &2 C:\\gone\\ship.ve2");
    EXPECT_EQ(open.Text(LB_Start), "No database is open.");
}

TEST(StartPane, RecentDatabaseIsOpenedAndTheListComesBack) {
    const OpenWindow open(false, [] { shell.recent = {DataPath("../samples/aurora_bay.ve2")}; });
    SendMessageW(open.Control(BT_StartRecent), BM_CLICK, 0, 0);
    EXPECT_EQ(open.Rows(), 14);
    EXPECT_TRUE(IsShown(open.Control(LI_Sections)));
    EXPECT_TRUE(IsShown(open.Control(LB_Models)));
    EXPECT_TRUE(Offers(open).empty());
    EXPECT_FALSE(IsShown(open.Control(LB_Start)));
}

TEST(StartPane, ButtonsAreInsideThePaneAtEverySizeAndCoverNothing) {
    const OpenWindow open(false, [] {
        for (int i = 0; i < 9; ++i) shell.recent.push_back(L"Q:\\" + std::to_wstring(i) + L".ve2");
    });
    for (const WORD dpi : {WORD{96}, WORD{144}, WORD{192}}) {
        for (const SIZE size : {SIZE{700, 460}, SIZE{1000, 900}}) {
            open.ScaleTo(dpi, size);
            const RECT divider = open.Place(SP_Sections);
            LONG bottom = divider.top;
            int shown = 0;
            for (int id = LB_Start; id < BT_StartRecent + 9; ++id) {
                if (!IsShown(open.Control(id))) continue;
                const RECT place = open.Place(id);
                EXPECT_GE(place.top, bottom) << id;
                EXPECT_LE(place.right, divider.left) << id;
                bottom = place.bottom;
                ++shown;
            }
            EXPECT_LE(bottom, divider.bottom);
            EXPECT_GE(shown, 4);
        }
    }
}

TEST(StartPane, SampleShipIsOfferedWhereItIs) {
    EXPECT_EQ(IsEnabled(*FindCommand(ME_HelpSample)), FileExists(SamplePath()));
    const OpenWindow open(false);
    EXPECT_EQ(IsShown(open.Control(BT_StartSample)), FileExists(SamplePath()));
}

}  // namespace
}  // namespace corvane
