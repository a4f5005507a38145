#include "ui/main_window/main_window_controls.h"

#include <utility>

#include "shell/open_database.h"
#include "shell/preview_pane.h"
#include "shell/rule_set.h"
#include "shell/state.h"
#include "ui/base/dpi.h"
#include "ui/main_window/filter_box.h"
#include "ui/main_window/menu_hints.h"
#include "ui/main_window/menus.h"
#include "ui/main_window/model_list_view.h"
#include "ui/main_window/path_field.h"
#include "ui/main_window/splitter.h"
#include "ui/main_window/start_pane.h"
#include "ui/main_window/status_bar.h"
#include "ui/main_window/tool_tips.h"
#include "ui/pictures/button_pictures.h"
#include "ui/pictures/picture_table.h"
#include "ui/pictures/section_picture.h"

namespace corvane {
namespace {

HWND AddControl(HWND window, int id, const wchar_t* windowClass, const wchar_t* text, DWORD style) {
    DWORD exStyle = 0;
    // A text field has a sunken edge.
    if (id == TX_DataBase || id == TX_Filter) exStyle = WS_EX_CLIENTEDGE;
    return CreateWindowExW(exStyle, windowClass, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                           window, reinterpret_cast<HMENU>(INT_PTR{id}), nullptr, nullptr);
}

// A group leaves its background to the window below, which does not paint there.
LRESULT CALLBACK GroupProcedure(HWND group, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                DWORD_PTR) {
    if (message == WM_ERASEBKGND) {
        RECT client{};
        GetClientRect(group, &client);
        FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_BTNFACE));
        return TRUE;
    }
    if (message == WM_NCDESTROY) RemoveWindowSubclass(group, GroupProcedure, id);
    return DefSubclassProc(group, message, wParam, lParam);
}

void AddRuleSets(HWND window) {
    const HWND group =
        AddControl(window, GR_Rule, WC_BUTTONW, L"R&ule set", BS_GROUPBOX | WS_GROUP);
    SetWindowSubclass(group, GroupProcedure, 1, 0);
    DWORD first = WS_GROUP | WS_TABSTOP;
    int id = OP_Rule;
    for (const RuleSet ruleSet : {RuleSet::kQuor, RuleSet::kCsr, RuleSet::kMil}) {
        AddControl(window, id++, WC_BUTTONW, RuleSetName(ruleSet), BS_AUTORADIOBUTTON | first);
        first = 0;
    }
    const int chosen = OP_Rule + static_cast<int>(CurrentRuleSet());
    CheckRadioButton(window, OP_Rule, OP_Rule + kRuleSetCount - 1, chosen);
}

// What is under the pointer goes to the status line, what was clicked on to the table.
void CreatePreviewPicture(HWND window) {
    PictureContents contents;
    contents.draw = DrawPreview;
    contents.pane = &shell.preview;
    contents.onPointedAt = [window](const std::wstring& text) { ShowHint(window, text); };
    contents.onMarked = [window] {
        if (ShowPictureTable(window)) {
            LayOutMainWindow(window, StateOfMainWindow(window)->layout);
        }
    };
    CreateSectionPicture(window, std::move(contents));
}

bool CanHaveFocus(HWND control) {
    const auto style = GetWindowLongPtrW(control, GWL_STYLE);
    return IsWindow(control) && (style & WS_VISIBLE) != 0 && (style & WS_DISABLED) == 0;
}

}  // namespace

// In the order of the tab key. The label before a control names it for screen readers.
void AddMainControls(HWND window, MainWindowState& state) {
    // Drawn by the window, so that they can be read while the window is locked, too.
    const DWORD label = SS_OWNERDRAW | SS_NOPREFIX;
    const DWORD button = WS_TABSTOP | BS_PUSHBUTTON;
    AddControl(window, LB_DataBase, WC_STATICW, L"&Database:", SS_LEFT);
    AddControl(window, TX_DataBase, WC_EDITW, L"",
               WS_TABSTOP | ES_READONLY | ES_AUTOHSCROLL | ES_LEFT);
    MakePathField(GetDlgItem(window, TX_DataBase));
    AddControl(window, Command1, WC_BUTTONW, L"&Open...", button);
    AddControl(window, LB_Filter, WC_STATICW, L"Fi&nd:", SS_LEFT);
    AddControl(window, TX_Filter, WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL | ES_LEFT);
    MakeFilterBox(GetDlgItem(window, TX_Filter));
    AddControl(window, LB_Count, WC_STATICW, L"", label);
    AddControl(window, LB_WhyGone, WC_STATICW, L"", label | SS_NOTIFY);
    ShowWindow(GetDlgItem(window, LB_WhyGone), SW_HIDE);
    AddControl(window, LB_Models, WC_STATICW, L"&Models:", SS_LEFT);
    CreateModelList(window);
    CreateStartPane(window);
    CreateSplitter(window, SP_Sections, L"Divider between the models and the preview");
    AddControl(window, OP_Preview, WC_BUTTONW, L"&Preview", WS_TABSTOP | BS_AUTOCHECKBOX);
    SendMessageW(GetDlgItem(window, OP_Preview), BM_SETCHECK,
                 shell.windowPlace.isPreviewOn ? BST_CHECKED : BST_UNCHECKED, 0);
    CreatePreviewPicture(window);
    CreatePictureTable(window);
    AddControl(window, LB_Legend, WC_STATICW, L"", label | SS_NOTIFY);
    AddControl(window, LB_X, WC_STATICW, L"", label);
    AddControl(window, LB_Frame, WC_STATICW, L"", label);
    AddControl(window, BT_Open, WC_BUTTONW, L"&Edit", button | WS_GROUP);
    AddControl(window, BT_Rule, WC_BUTTONW, L"&Rule", button);
    AddRuleSets(window);
    AddControl(window, BT_Bsd, WC_BUTTONW, L"&Basic Data", button | WS_GROUP);
    AddControl(window, PAN_Help, WC_STATICW, L"", label | SS_NOTIFY);
    CreateStatusBar(window);
    state.toolTips = CreateToolTips(window);
    AddToolTip(state.toolTips, GetDlgItem(window, TX_DataBase));
    AddToolTip(state.toolTips, GetDlgItem(window, PAN_Help));
    AddToolTip(state.toolTips, GetDlgItem(window, LB_Legend));
}

void ApplyResolution(HWND window, UINT dpi) {
    MainWindowState& state = *StateOfMainWindow(window);
    const HFONT old = state.layout.font;
    state.layout.dpi = dpi;
    state.layout.font = CreateMessageFont(dpi);
    const auto font = reinterpret_cast<WPARAM>(state.layout.font);
    for (HWND control = GetWindow(window, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        SendMessageW(control, WM_SETFONT, font, TRUE);
    }
    ScaleModelList(GetDlgItem(window, LI_Sections), dpi);
    if (old != nullptr) DeleteObject(old);
    SetWindowIcons(window, dpi);
    ShowButtonPictures(window);
    LayOutMainWindow(window, state.layout);
}

void ShowButtonPictures(HWND window) {
    const MainWindowState& state = *StateOfMainWindow(window);
    const UINT dpi = state.layout.dpi;
    ShowButtonPicture(GetDlgItem(window, BT_Open), EditPicture(state.kind), dpi);
    ShowButtonPicture(GetDlgItem(window, BT_Rule), RulePicture(state.kind, CurrentRuleSet()), dpi);
    ShowButtonPicture(GetDlgItem(window, BT_Bsd), kShipPicture, dpi);
}

void ReleaseMainControls(HWND window) {
    for (const ControlId id : {BT_Open, BT_Rule, BT_Bsd}) RemovePicture(GetDlgItem(window, id));
    RemoveWindowIcons(window);
}

void UpdateEnabling(HWND window) {
    const bool locked = StateOfMainWindow(window)->locked;
    const HWND list = GetDlgItem(window, LI_Sections);
    UpdateMenus(window, locked);
    EnableWindow(list, !locked && IsDatabaseOpen());
    EnableWindow(GetDlgItem(window, TX_Filter), !locked && IsDatabaseOpen());
    for (const CommandButton& button : kCommandButtons) {
        const bool enabled = IsEnabled(*FindCommand(button.command));
        EnableWindow(GetDlgItem(window, button.control), !locked && enabled);
    }
    if (ShowStartPane(window, !IsDatabaseOpen())) {
        LayOutMainWindow(window, StateOfMainWindow(window)->layout);
    }
    const HWND focus = GetFocus();
    if (!locked && focus != nullptr && IsChild(window, focus) && !CanHaveFocus(focus)) {
        GiveFocus(window);
    }
}

void RememberFocus(HWND window) {
    MainWindowState& state = *StateOfMainWindow(window);
    const HWND focus = GetFocus();
    if (!state.locked && focus != nullptr && IsChild(window, focus)) state.focus = focus;
}

void GiveFocus(HWND window) {
    const HWND candidates[] = {StateOfMainWindow(window)->focus, GetDlgItem(window, LI_Sections),
                               GetDlgItem(window, BT_StartOpen), GetDlgItem(window, Command1),
                               GetDlgItem(window, TX_DataBase),  GetDlgItem(window, PIC_Section)};
    for (const HWND candidate : candidates) {
        if (!CanHaveFocus(candidate)) continue;
        SetFocus(candidate);
        return;
    }
}

}  // namespace corvane
