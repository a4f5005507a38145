#include "ui/main_window/main_window_view.h"

#include <string>
#include <utility>

#include "shell/rule_set.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"
#include "ui/base/own_window.h"
#include "ui/main_window/filter_box.h"
#include "ui/main_window/larger_preview.h"
#include "ui/main_window/main_window.h"
#include "ui/main_window/main_window_controls.h"
#include "ui/main_window/main_window_state.h"
#include "ui/main_window/menus.h"
#include "ui/main_window/model_list_view.h"
#include "ui/main_window/panes.h"
#include "ui/main_window/place.h"
#include "ui/main_window/status_bar.h"
#include "ui/pictures/button_pictures.h"
#include "ui/pictures/section_picture.h"

namespace corvane {
namespace {

void SetText(HWND control, const std::wstring& text) {
    SetWindowTextW(control, text.c_str());
}

// The text of a label that the window draws.
void SetLabel(int id, const std::wstring& text) {
    SetText(MainControl(id), text);
    InvalidateRect(MainControl(id), nullptr, TRUE);
}

// ---- Contents ----------------------------------------------------------------------------------

void SetLines(int count) {
    MainWindowState* state = MainState();
    if (state == nullptr) return;
    state->filling = true;
    SetLineCount(MainControl(LI_Sections), count, shell.list.order);
    state->filling = false;
}

void ShowWhyGone(const std::wstring& why) {
    MainWindowState* state = MainState();
    if (state == nullptr || WindowText(MainControl(LB_WhyGone)) == why) return;
    SetLabel(LB_WhyGone, why);
    const bool isShown = !why.empty() && !state->layout.isPreviewLarge;
    ShowWindow(MainControl(LB_WhyGone), isShown ? SW_SHOWNA : SW_HIDE);
    GreyModelRows(MainControl(LI_Sections), !why.empty());
    LayOutMainWindow(MainHandle(), state->layout);
}

void SelectLine(int line) {
    MainWindowState* state = MainState();
    if (state == nullptr) return;
    state->filling = true;
    SelectListLine(MainControl(LI_Sections), line);
    state->filling = false;
}

void SelectAllLines() {
    MainWindowState* state = MainState();
    if (state == nullptr) return;
    state->filling = true;
    SelectAllListLines(MainControl(LI_Sections));
    state->filling = false;
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
    MainWindowState* state = MainState();
    if (state == nullptr || state->kind == kind) return;
    state->kind = kind;
    state->layout.hasRuleButton = kind != ModelKind::kTorsion;
    const bool isShown = state->layout.hasRuleButton && !state->layout.isPreviewLarge;
    ShowWindow(MainControl(BT_Rule), isShown ? SW_SHOWNA : SW_HIDE);
    PlaceOpenButton(MainHandle(), state->layout);
    ShowButtonPictures(MainHandle());
}

void RedrawRuleButton() {
    const MainWindowState* state = MainState();
    if (state == nullptr) return;
    ShowButtonPicture(MainControl(BT_Rule), RulePicture(state->kind, CurrentRuleSet()),
                      state->layout.dpi);
}

// What the user typed and clicked while the window was locked, and that it was to close, does not
// count afterwards.
void DropInput() {
    constexpr std::pair<UINT, UINT> kInput[] = {{WM_KEYFIRST, WM_KEYLAST},
                                                {WM_MOUSEFIRST, WM_MOUSELAST},
                                                {WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK},
                                                {WM_COMMAND, WM_COMMAND},
                                                {WM_SYSCOMMAND, WM_SYSCOMMAND},
                                                {WM_CLOSE, WM_CLOSE}};
    MSG message;
    for (const auto& [first, last] : kInput) {
        while (PeekMessageW(&message, nullptr, first, last, PM_REMOVE | PM_NOYIELD)) continue;
    }
}

void SetLocked(bool locked) {
    const HWND window = MainHandle();
    MainWindowState* state = MainState();
    if (state == nullptr || state->locked == locked) return;
    if (locked) {
        RememberFocus(window);
    } else {
        DropInput();
    }
    state->locked = locked;
    for (HWND control = GetWindow(window, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        EnableWindow(control, !locked);
    }
    UpdateEnabling(window);
    if (!locked && GetActiveWindow() == window) GiveFocus(window);
}

void FocusList() {
    MainWindowState* state = MainState();
    if (state == nullptr) return;
    state->focus = MainControl(LI_Sections);
    if (GetActiveWindow() == MainHandle()) GiveFocus(MainHandle());
}

// ---- Window, status label, pointer -------------------------------------------------------------

void ShowMainWindow() {
    const HWND window = MainHandle();
    ShowWindow(window, shell.windowPlace.isMaximised ? SW_SHOWMAXIMIZED : SW_SHOWDEFAULT);
    UpdateWindow(window);
}

// When the window has been painted: the system takes its time.
void AddToSystemsRecent(const std::wstring& path) {
    MainWindowState* state = MainState();
    if (state == nullptr) return;
    state->toSystem = path;
    PostMessageW(MainHandle(), kTellSystem, 0, 0);
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

void FillInContents(View& view) {
    view.setDatabaseText = [](const std::wstring& text) {
        SetText(MainControl(TX_DataBase), text);
    };
    view.showStatusParts = [](const StatusParts& parts) {
        if (MainState() != nullptr) ShowStatusParts(MainHandle(), parts);
    };
    view.setLines = SetLines;
    view.showWhyGone = ShowWhyGone;
    view.selectLine = SelectLine;
    view.selectedLine = [] {
        return MainHandle() == nullptr ? -1 : SelectedListLine(MainControl(LI_Sections));
    };
    view.selectedCount = [] {
        return MainHandle() == nullptr ? 0 : SelectedLineCount(MainControl(LI_Sections));
    };
    view.selectedLines = [] { return SelectedListLines(MainControl(LI_Sections)); };
    view.selectAllLines = SelectAllLines;
    view.setModelCount = [](const std::wstring& text) { SetLabel(LB_Count, text); };
    view.focusList = FocusList;
    view.focusFilter = [] { FocusFilterBox(MainHandle()); };
    view.focusPane = [](bool forward) {
        if (MainState() != nullptr) FocusPane(MainHandle(), forward);
    };
    view.isPreviewOn = [] { return IsDlgButtonChecked(MainHandle(), OP_Preview) == BST_CHECKED; };
    view.redrawPreview = [] {
        RedrawSectionPicture(MainControl(PIC_Section));
        // A bulkhead arrangement has its legend in the picture.
        SetLabel(LB_Legend, shell.preview.isShown ? GetMessage(kMsgPreviewLegend) : L"");
    };
    view.clearPreview = [](const std::wstring& why) {
        ClearSectionPicture(MainControl(PIC_Section), why);
        SetLabel(LB_Legend, L"");
    };
    view.zoomPreview = [](bool isLarger) {
        ZoomSectionPicture(MainControl(PIC_Section), isLarger);
    };
    view.fitPreview = [] { FitSectionPicture(MainControl(PIC_Section)); };
    view.annotatePreview = [] { AnnotateSectionPicture(MainControl(PIC_Section)); };
    view.showLargerPreview = [](bool isLarge) {
        if (MainState() != nullptr) ShowLargerPreviewIn(MainHandle(), isLarge);
    };
    view.setPositionText = [](const std::wstring& text) { SetLabel(LB_X, text); };
    view.setFrameText = [](const std::wstring& text) { SetLabel(LB_Frame, text); };
    view.setSectionMenuCaption = [](const std::wstring& text) {
        SetSectionMenuText(MainHandle(), text);
    };
    view.selectedRule = SelectedRule;
    view.selectRule = SelectRule;
    view.showModelButtons = ShowModelButtons;
    view.redrawRuleButton = RedrawRuleButton;
    view.setLocked = SetLocked;
    view.updateEnabling = [] {
        if (MainState() != nullptr) UpdateEnabling(MainHandle());
    };
}

}  // namespace

void FillInMainWindow(View& view) {
    FillInContents(view);
    view.loadMainWindow = LoadMainWindow;
    view.showMainWindow = ShowMainWindow;
    view.closeMainWindow = [] { SendMessageW(MainHandle(), WM_CLOSE, 0, 0); };
    view.addToSystemsRecent = AddToSystemsRecent;
    view.noteWindowPlace = [](WindowPlace& place) {
        if (MainState() != nullptr) NotePlace(MainHandle(), place);
    };
    view.noteScreen = [](Screen& screen) {
        if (MainState() != nullptr) NoteScreen(MainHandle(), screen);
    };
    view.setMainCaption = [](const std::wstring& text) { SetText(MainHandle(), text); };
    view.report.statusCaption = [] { return WindowText(MainControl(PAN_Help)); };
    view.report.setStatusCaption = [](const std::wstring& text) { SetLabel(PAN_Help, text); };
    view.report.setStatusColour = SetStatusColour;
    view.report.statusTag = StatusTag;
    view.report.setStatusTag = SetStatusTag;
    view.report.setBusyPointer = [] { SetPointer(true); };
    view.report.resetPointer = [] { SetPointer(false); };
}

}  // namespace corvane
