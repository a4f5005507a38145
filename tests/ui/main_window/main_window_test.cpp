// The main window as Windows shows it: real controls, read with their messages.
#include <gtest/gtest.h>

#include <string>

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/rule_set.h"
#include "shell/state.h"
#include "tests/support/support.h"
#include "tests/ui/main_window/open_window.h"

namespace corvane {
namespace {

using test::OpenWindow;

constexpr auto kBsdMenu = static_cast<UINT>(Menu::kBsd);
constexpr auto kCreateMenu = static_cast<UINT>(Menu::kCreate);
constexpr auto kSectionMenu = static_cast<UINT>(Menu::kSection);

TEST(MainWindowWindow, LinesHaveTheIconOfTheirKind) {
    const OpenWindow open;
    ASSERT_EQ(open.Rows(), 14);
    for (const int row : {0, 9, 12}) {
        LVITEMW item{};
        item.mask = LVIF_IMAGE;
        item.iItem = row;
        SendMessageW(open.Control(LI_Sections), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        EXPECT_EQ(item.iImage, row == 0 ? 0 : row == 9 ? 1 : 2);
    }
    const LRESULT icons = SendMessageW(open.Control(LI_Sections), LVM_GETIMAGELIST, LVSIL_SMALL, 0);
    EXPECT_EQ(ImageList_GetImageCount(reinterpret_cast<HIMAGELIST>(icons)), 3);
}

TEST(MainWindowWindow, SelectionOfARowSelectsItsModel) {
    const OpenWindow open;
    open.SetSelected(9, true);
    EXPECT_EQ(shell.database.currentModel, 10);
    EXPECT_EQ(open.Text(LB_Frame), "Frame : 46");
    EXPECT_EQ(open.MenuText(kSectionMenu), "Bul&khead");
    open.SetSelected(13, true);
    EXPECT_EQ(shell.database.currentModel, 14);
    EXPECT_EQ(open.MenuText(kSectionMenu), "&Torsion");
}

TEST(MainWindowWindow, LegendIsThereWhileASectionIsShown) {
    const OpenWindow open;
    const std::string legend = "Lines: plating, T: stiffeners, ticks: plate ends";
    EXPECT_EQ(open.Text(LB_Legend), legend);
    open.SetSelected(9, true);
    EXPECT_EQ(open.Text(LB_Legend), "") << "a bulkhead has its own in the picture";
    open.SetSelected(1, true);
    EXPECT_EQ(open.Text(LB_Legend), legend);
    SendMessageW(open.Control(OP_Preview), BM_CLICK, 0, 0);
    EXPECT_EQ(open.Text(LB_Legend), "") << "the preview is off";
}

TEST(MainWindowWindow, LosingTheSelectionEmptiesTheLabelsAndKeepsTheNumber) {
    const OpenWindow open;
    open.SetSelected(12, true);
    open.SetSelected(12, false);
    EXPECT_EQ(open.SelectedRow(), -1);
    EXPECT_EQ(shell.database.currentModel, 13);
    EXPECT_EQ(open.Text(LB_X), "");
    EXPECT_EQ(open.Text(LB_Frame), "");
    EXPECT_EQ(open.MenuText(kSectionMenu), "&Section");
}

TEST(MainWindowWindow, WithoutADatabaseListAndMenusAreDisabled) {
    const OpenWindow open(false);
    EXPECT_EQ(open.Text(TX_DataBase), "No database selected");
    EXPECT_FALSE(IsWindowEnabled(open.Control(LI_Sections)));
    EXPECT_TRUE(open.MenuGreyed(kBsdMenu, MF_BYPOSITION));
    EXPECT_TRUE(open.MenuGreyed(kCreateMenu, MF_BYPOSITION));
    EXPECT_FALSE(open.MenuGreyed(0, MF_BYPOSITION));
    EXPECT_EQ(open.Text(PAN_Help), test::Narrow(GetMessage(kMsgNoDatabaseOpen)));
}

TEST(MainWindowWindow, MenuItemsAreGreyedAsTheTableSays) {
    const OpenWindow open;
    EXPECT_TRUE(IsWindowEnabled(open.Control(LI_Sections)));
    EXPECT_FALSE(open.MenuGreyed(kBsdMenu, MF_BYPOSITION));
    EXPECT_FALSE(open.MenuGreyed(kCreateMenu, MF_BYPOSITION));
    for (const Command& command : Commands()) {
        if (command.id == 0 || command.menu == Menu::kNone) continue;
        EXPECT_EQ(open.MenuGreyed(command.id, MF_BYCOMMAND), !IsEnabled(command)) << command.name;
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
    EXPECT_EQ(reportView.statusTag(), L"-1");
    StatusLinesOff();
    ShowStatus(L"hidden");
    EXPECT_EQ(open.Text(PAN_Help), "");
    StatusLinesOn();
    ShowStatus(L"shown");
    EXPECT_EQ(open.Text(PAN_Help), "shown...");
}

TEST(MainWindowWindow, ColumnsFillTheListWithoutAHorizontalScrollBar) {
    const OpenWindow open;
    const HWND list = open.Control(LI_Sections);
    for (const int width : {700, 1200, 800}) {
        SetWindowPos(open.window, nullptr, 0, 0, width, 600, SWP_NOZORDER | SWP_NOACTIVATE);
        RECT client{};
        GetClientRect(list, &client);
        LRESULT columns = 0;
        for (WPARAM i = 0; i < ModelColumns().size(); ++i) {
            columns += SendMessageW(list, LVM_GETCOLUMNWIDTH, i, 0);
        }
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
    const auto scaleTo = [&](WORD dpi) { open.ScaleTo(dpi, {800, 600}); };
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

// ---- The buttons and the rule set --------------------------------------------------------------

TEST(MainWindowWindow, ButtonsAreEnabledAsTheirCommands) {
    const OpenWindow open;
    const struct {
        int button;
        uint16_t command;
    } pairs[] = {{Command1, ME_FileOpen},
                 {BT_Open, ME_SectionInput},
                 {BT_Rule, ME_SectionVelkRule},
                 {BT_Bsd, ME_FileBSD}};
    for (const int row : {0, -1}) {
        open.SetSelected(row < 0 ? 0 : row, row >= 0);
        for (const auto& pair : pairs) {
            EXPECT_EQ(IsWindowEnabled(open.Control(pair.button)) != FALSE,
                      IsEnabled(*FindCommand(pair.command)))
                << pair.button;
        }
    }
}

// Which option of OP_Rule is set.
int ChosenRule(const OpenWindow& open) {
    int chosen = -1;
    for (int i = 0; i < kRuleSetCount; ++i) {
        if (IsDlgButtonChecked(open.window, OP_Rule + i) == BST_CHECKED) {
            EXPECT_EQ(chosen, -1) << "two options are set";
            chosen = i;
        }
    }
    return chosen;
}

TEST(MainWindowWindow, RuleOptionAtTheStartComesFromTheSwitches) {
    EXPECT_EQ(ChosenRule(OpenWindow()), 0);
    EXPECT_EQ(ChosenRule(OpenWindow(true, [] { shell.milMode = true; })), 2);
    EXPECT_EQ(ChosenRule(OpenWindow(true, [] { shell.jbpMode = true; })), 1);
    EXPECT_EQ(ChosenRule(OpenWindow(true, [] { shell.jbpMode = shell.milMode = true; })), 1);
}

TEST(MainWindowWindow, RuleOptionsHaveTheirCaptionsAndGiveTheirNumber) {
    const OpenWindow open;
    const char* const captions[] = {"QUOR", "CSR for BC", "QUOR MIL"};
    for (int i = 0; i < kRuleSetCount; ++i) {
        EXPECT_EQ(open.Text(OP_Rule + i), captions[i]);
        shell.view.selectRule(i);
        EXPECT_EQ(ChosenRule(open), i);
        EXPECT_EQ(shell.view.selectedRule(), i);
    }
}

void Click(const OpenWindow& open, int id) {
    SendMessageW(open.Control(id), BM_CLICK, 0, 0);
}

TEST(MainWindowWindow, RuleOptionChangesFlagsAndCaption) {
    const OpenWindow open;
    const struct {
        int option;
        bool jbp, mil;
        const char* caption;
    } clicks[] = {{1, true, false, "Corvane JBP - aurora_bay.ve2 - AURORA BAY"},
                  {0, false, false, "Corvane - aurora_bay.ve2 - AURORA BAY"},
                  {2, false, true, "Corvane MIL - aurora_bay.ve2 - AURORA BAY"},
                  {1, true, false, "Corvane JBP - aurora_bay.ve2 - AURORA BAY"}};
    for (const auto& click : clicks) {
        Click(open, OP_Rule + click.option);
        EXPECT_EQ(ChosenRule(open), click.option);
        EXPECT_EQ(shell.jbpMode, click.jbp);
        EXPECT_EQ(shell.milMode, click.mil);
        EXPECT_EQ(test::Narrow(WindowText(open.window)), click.caption);
    }
}

TEST(MainWindowWindow, FocusOnTheChosenOptionKeepsBothSwitches) {
    const OpenWindow open(true, [] { shell.jbpMode = shell.milMode = true; });
    SendMessageW(open.window, WM_COMMAND, MAKEWPARAM(OP_Rule + 1, BN_CLICKED),
                 reinterpret_cast<LPARAM>(open.Control(OP_Rule + 1)));
    EXPECT_TRUE(shell.jbpMode);
    EXPECT_TRUE(shell.milMode);
}

// ---- The lock ----------------------------------------------------------------------------------

// Whether each control and each menu item is enabled, in one line.
std::string Enabling(const OpenWindow& open) {
    std::string state;
    for (HWND control = GetWindow(open.window, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        state += IsWindowEnabled(control) ? '1' : '0';
    }
    state += ' ';
    for (UINT i = 0; i < kMenuCount; ++i) state += open.MenuGreyed(i, MF_BYPOSITION) ? '0' : '1';
    state += ' ';
    for (const Command& command : Commands()) {
        if (command.id != 0) state += open.MenuGreyed(command.id, MF_BYCOMMAND) ? '0' : '1';
    }
    return state;
}

TEST(MainWindowWindow, LockDisablesEverythingAndUnlockingEnablesItAsBefore) {
    const OpenWindow open;
    for (const bool selected : {true, false}) {
        open.SetSelected(0, selected);
        const std::string before = Enabling(open);
        ASSERT_NE(before.find('1'), std::string::npos);
        LockShell(true);
        EXPECT_EQ(Enabling(open).find('1'), std::string::npos) << Enabling(open);
        LockShell(false);
        EXPECT_EQ(Enabling(open), before);
    }
}

TEST(MainWindowWindow, RefreshWhileLockedEnablesNothing) {
    const OpenWindow open;
    const std::string before = Enabling(open);
    LockShell(true);
    RefreshMainWindow();
    open.SetSelected(3, true);
    EXPECT_EQ(Enabling(open).find('1'), std::string::npos) << Enabling(open);
    LockShell(false);
    EXPECT_EQ(Enabling(open), before);
}

TEST(MainWindowWindow, LockedWindowRunsNoCommandAndStaysOpen) {
    const OpenWindow open;
    LockShell(true);
    SendMessageW(open.window, WM_COMMAND, ME_FileQuit, 0);
    SendMessageW(open.window, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(open.window));
    LockShell(false);
    SendMessageW(open.window, WM_COMMAND, ME_FileQuit, 0);
    EXPECT_FALSE(IsWindow(open.window));
}

TEST(MainWindowWindow, ClicksThatWaitWhileLockedAreDropped) {
    const OpenWindow open;
    LockShell(true);
    PostMessageW(open.Control(OP_Rule + 2), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    PostMessageW(open.Control(OP_Rule + 2), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    PostMessageW(open.Control(LI_Sections), WM_KEYDOWN, VK_DOWN, 0);
    PostMessageW(open.window, WM_CLOSE, 0, 0);
    PostMessageW(open.window, WM_SYSCOMMAND, SC_CLOSE, 0);
    LockShell(false);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    ASSERT_TRUE(IsWindow(open.window));
    EXPECT_EQ(ChosenRule(open), 0);
    EXPECT_EQ(open.SelectedRow(), 0);
}

TEST(MainWindowWindow, GreyedAndUnknownCommandsDoNothing) {
    const OpenWindow open;
    open.SetSelected(0, false);
    for (const WPARAM id : {WPARAM{ME_SectionRemove}, WPARAM{7}, WPARAM{0}}) {
        SendMessageW(open.window, WM_COMMAND, id, 0);
    }
    EXPECT_TRUE(IsWindow(open.window));
    EXPECT_EQ(open.Rows(), 14);
}

}  // namespace
}  // namespace corvane
