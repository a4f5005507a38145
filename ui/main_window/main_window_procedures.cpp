// What the core asks of the main window and of its part of the screen.
#include <utility>

#include "report/messages.h"
#include "shell/state.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/export_box.h"
#include "ui/dialogs/import_box.h"
#include "ui/main_window/main_window.h"
#include "ui/main_window/main_window_controls.h"
#include "ui/main_window/menus.h"
#include "ui/main_window/model_list_view.h"
#include "ui/main_window/windows_screen.h"
#include "ui/pictures/button_pictures.h"
#include "ui/pictures/section_picture.h"

namespace corvane {
namespace {

void SetText(HWND control, const std::wstring& text) {
    SetWindowTextW(control, text.c_str());
}

// ---- The main window ---------------------------------------------------------------------------

void SetRows(const std::vector<ModelRow>& rows) {
    MainWindowState& state = *MainState();
    state.filling = true;
    state.rows = rows;
    SetModelRows(MainControl(LI_Sections), rows);
    state.filling = false;
}

void SelectRow(int index) {
    MainWindowState& state = *MainState();
    state.filling = true;
    SelectModelRow(MainControl(LI_Sections), index);
    state.filling = false;
}

int SelectedRule() {
    for (int i = 0; i < kRuleSetCount; ++i) {
        if (IsDlgButtonChecked(MainHandle(), OP_Rule + i) == BST_CHECKED) return i;
    }
    return 0;
}

void SelectRule(int index) {
    CheckRadioButton(MainHandle(), OP_Rule, OP_Rule + kRuleSetCount - 1, OP_Rule + index);
}

void ShowModelButtons(ModelKind kind) {
    MainWindowState& state = *MainState();
    if (state.kind == kind) return;
    state.kind = kind;
    state.layout.hasRuleButton = kind != ModelKind::kTorsion;
    ShowWindow(MainControl(BT_Rule), state.layout.hasRuleButton ? SW_SHOWNA : SW_HIDE);
    PlaceOpenButton(MainHandle(), state.layout);
    ShowButtonPictures(MainHandle());
}

void RedrawRuleButton() {
    const MainWindowState& state = *MainState();
    ShowRulePicture(MainControl(BT_Rule), state.kind, CurrentRuleSet(), state.layout.dpi);
}

// What the user typed and clicked while the window was locked, and that it was to close, does not
// count afterwards.
void DropInput() {
    constexpr std::pair<UINT, UINT> kInput[] = {{WM_KEYFIRST, WM_KEYLAST},
                                                {WM_MOUSEFIRST, WM_MOUSELAST},
                                                {WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK},
                                                {WM_SYSCOMMAND, WM_SYSCOMMAND},
                                                {WM_CLOSE, WM_CLOSE}};
    MSG message;
    for (const auto& [first, last] : kInput) {
        while (PeekMessageW(&message, nullptr, first, last, PM_REMOVE | PM_NOYIELD)) continue;
    }
}

void SetLocked(bool locked) {
    const HWND window = MainHandle();
    MainWindowState& state = *MainState();
    if (state.locked == locked) return;
    if (locked) {
        RememberFocus(window);
    } else {
        DropInput();
    }
    state.locked = locked;
    for (HWND control = GetWindow(window, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        EnableWindow(control, !locked);
    }
    UpdateEnabling(window);
    if (!locked && GetActiveWindow() == window) GiveFocus(window);
}

void FocusList() {
    const HWND list = MainControl(LI_Sections);
    MainState()->focus = list;
    if (GetActiveWindow() == MainHandle()) GiveFocus(MainHandle());
}

constexpr MainWindow kProcedures{
    .setDatabaseText = [](const std::wstring& text) { SetText(MainControl(TX_DataBase), text); },
    .setRows = SetRows,
    .selectRow = SelectRow,
    .selectedRow = [] { return SelectedModelRow(MainControl(LI_Sections)); },
    .isPreviewOn = [] { return IsDlgButtonChecked(MainHandle(), OP_Preview) == BST_CHECKED; },
    .redrawPreview = [] { RedrawSectionPicture(MainControl(PIC_Section)); },
    .clearPreview = [] { ClearSectionPicture(MainControl(PIC_Section)); },
    .setPositionText = [](const std::wstring& text) { SetText(MainControl(LB_X), text); },
    .setFrameText = [](const std::wstring& text) { SetText(MainControl(LB_Frame), text); },
    .setSectionMenuCaption =
        [](const std::wstring& text) { SetSectionMenuText(MainHandle(), text); },
    .selectedRule = SelectedRule,
    .selectRule = SelectRule,
    .showModelButtons = ShowModelButtons,
    .redrawRuleButton = RedrawRuleButton,
    .setLocked = SetLocked,
    .updateEnabling = [] { UpdateEnabling(MainHandle()); },
    .focusList = FocusList,
    .askExport = AskExport,
    .askImport = [](ImportChoice& choice) { return AskImport(choice); },
    .close = [] { SendMessageW(MainHandle(), WM_CLOSE, 0, 0); },
};

// ---- The screen --------------------------------------------------------------------------------

void ShowMainWindow() {
    const HWND window = MainHandle();
    ShowWindow(window, SW_SHOWDEFAULT);
    UpdateWindow(window);
}

void SetStatusColour(StatusColour colour) {
    MainWindowState* state = MainState();
    if (state == nullptr || state->statusColour == colour) return;
    state->statusColour = colour;
    InvalidateRect(MainControl(PAN_Help), nullptr, TRUE);
}

void SetStatusTag(const std::wstring& tag) {
    MainWindowState* state = MainState();
    if (state != nullptr) state->statusTag = tag;
}

std::wstring StatusTag() {
    const MainWindowState* state = MainState();
    return state == nullptr ? std::wstring(L"-1") : state->statusTag;
}

void SetPointer(bool busy) {
    MainWindowState* state = MainState();
    if (state != nullptr) state->busy = busy;
    SetCursor(LoadCursorW(nullptr, busy ? IDC_WAIT : IDC_ARROW));
}

}  // namespace

const MainWindow& MainWindowProcedures() {
    return kProcedures;
}

void FillMainWindowProcedures(Screen& screen) {
    screen.statusCaption = [] { return WindowText(MainControl(PAN_Help)); };
    screen.setStatusCaption = [](const std::wstring& text) {
        SetText(MainControl(PAN_Help), text);
    };
    screen.setStatusColour = SetStatusColour;
    screen.statusTag = StatusTag;
    screen.setStatusTag = SetStatusTag;
    screen.setBusyPointer = [] { SetPointer(true); };
    screen.resetPointer = [] { SetPointer(false); };
    screen.loadMainWindow = LoadMainWindow;
    screen.showMainWindow = ShowMainWindow;
    screen.setMainCaption = [](const std::wstring& text) { SetText(MainHandle(), text); };
    screen.refreshMainWindow = RefreshMainWindow;
}

}  // namespace corvane
