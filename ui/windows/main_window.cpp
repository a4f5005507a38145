#include "ui/windows/main_window.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "app/messages.h"
#include "app/start_up.h"
#include "app/state.h"
#include "ui/commands/main_window.h"
#include "ui/windows/control_ids.h"
#include "ui/windows/dpi.h"
#include "ui/windows/layout.h"
#include "ui/windows/list_view.h"
#include "ui/windows/menus.h"
#include "ui/windows/screen.h"
#include "ui/windows/section_picture.h"
#include "ui/windows/tool_tips.h"

namespace corvane {
namespace {

// Posted to the window itself after a row lost its selection: by then it is known whether another
// row got it.
constexpr UINT kSelectionLost = WM_APP;

// Belongs to the window from its creation on, and goes with it.
struct MainWindowState {
    UINT dpi = USER_DEFAULT_SCREEN_DPI;
    HFONT font = nullptr;
    HWND toolTips = nullptr;
    std::wstring toolTipText;  // what the tool tip shows
    HWND focus = nullptr;      // the control that gets the focus with the window's activation
    std::vector<ModelRow> rows;
    bool filling = false;  // the program, not the user, changes the list
    bool busy = false;     // the pointer is the hourglass
    bool shutDown = false;
    StatusColour statusColour = StatusColour::kButtonText;
    std::wstring statusTag = L"-1";
};

HWND MainHandle() {
    return OwnWindow(kMainWindowClass);
}

MainWindowState* StateOf(HWND window) {
    return reinterpret_cast<MainWindowState*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

// State of the main window, null when there is none.
MainWindowState* State() {
    const HWND window = MainHandle();
    return window == nullptr ? nullptr : StateOf(window);
}

HWND Control(ControlId id) {
    return GetDlgItem(MainHandle(), id);
}

void SetText(HWND control, const std::wstring& text) {
    SetWindowTextW(control, text.c_str());
}

// ---- What the core asks of the main window -----------------------------------------------------

void SetRows(const std::vector<ModelRow>& rows) {
    MainWindowState& state = *State();
    state.filling = true;
    state.rows = rows;
    SetModelRows(Control(LI_Sections), rows);
    state.filling = false;
}

void SelectRow(int index) {
    MainWindowState& state = *State();
    state.filling = true;
    SelectModelRow(Control(LI_Sections), index);
    state.filling = false;
}

int SelectedRow() {
    return SelectedModelRow(Control(LI_Sections));
}

void UpdateEnabling() {
    const bool rowSelected = SelectedRow() >= 0;
    UpdateMenus(MainHandle(), rowSelected);
    EnableWindow(Control(LI_Sections), IsDatabaseOpen());
    EnableWindow(Control(Command1), IsEnabled(*FindCommand(ME_FileOpen), rowSelected));
}

void FocusList() {
    const HWND list = Control(LI_Sections);
    State()->focus = list;
    if (GetActiveWindow() == MainHandle()) SetFocus(list);
}

constexpr MainWindow kProcedures{
    .setDatabaseText = [](const std::wstring& text) { SetText(Control(TX_DataBase), text); },
    .setRows = SetRows,
    .selectRow = SelectRow,
    .selectedRow = SelectedRow,
    .isPreviewOn =
        [] { return SendMessageW(Control(OP_Preview), BM_GETCHECK, 0, 0) == BST_CHECKED; },
    .redrawPreview = [] { RedrawSectionPicture(Control(PIC_Section)); },
    .clearPreview = [] { ClearSectionPicture(Control(PIC_Section)); },
    .setPositionText = [](const std::wstring& text) { SetText(Control(LB_X), text); },
    .setFrameText = [](const std::wstring& text) { SetText(Control(LB_Frame), text); },
    .setSectionMenuCaption =
        [](const std::wstring& text) { SetSectionMenuText(MainHandle(), text); },
    .selectedRule = [] { return 0; },
    .selectRule = [](int) {},
    .showModelButtons = [](ModelKind) {},
    .setLocked = [](bool) {},
    .updateEnabling = UpdateEnabling,
    .focusList = FocusList,
    .close = [] { SendMessageW(MainHandle(), WM_CLOSE, 0, 0); },
};

// ---- The window's messages ---------------------------------------------------------------------

HWND AddControl(HWND window, ControlId id, const wchar_t* windowClass, const wchar_t* text,
                DWORD style) {
    // A text field has a sunken edge.
    const DWORD exStyle = id == TX_DataBase ? WS_EX_CLIENTEDGE : 0;
    return CreateWindowExW(exStyle, windowClass, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                           window, reinterpret_cast<HMENU>(INT_PTR{id}), nullptr, nullptr);
}

// In the order of the tab key.
void AddControls(HWND window, MainWindowState& state) {
    const DWORD label = SS_LEFTNOWORDWRAP | SS_NOPREFIX | SS_ENDELLIPSIS;
    AddControl(window, LB_DataBase, WC_STATICW, L"&Database:", SS_LEFT);
    AddControl(window, TX_DataBase, WC_EDITW, L"",
               WS_TABSTOP | ES_READONLY | ES_AUTOHSCROLL | ES_LEFT);
    AddControl(window, Command1, WC_BUTTONW, L"&Open...", WS_TABSTOP | BS_PUSHBUTTON);
    CreateModelList(window);
    AddControl(window, OP_Preview, WC_BUTTONW, L"&Preview", WS_TABSTOP | BS_AUTOCHECKBOX);
    SendMessageW(GetDlgItem(window, OP_Preview), BM_SETCHECK, BST_CHECKED, 0);
    CreateSectionPicture(window);
    AddControl(window, LB_X, WC_STATICW, L"", label);
    AddControl(window, LB_Frame, WC_STATICW, L"", label);
    AddControl(window, LN_Status, WC_STATICW, L"", SS_ETCHEDHORZ);
    AddControl(window, PAN_Help, WC_STATICW, L"", label | SS_NOTIFY);
    state.toolTips = CreateToolTips(window);
    AddToolTip(state.toolTips, GetDlgItem(window, TX_DataBase));
    AddToolTip(state.toolTips, GetDlgItem(window, PAN_Help));
}

// Fonts and icons of a resolution.
void TakeResolution(HWND window, UINT dpi) {
    MainWindowState& state = *StateOf(window);
    const HFONT old = state.font;
    state.dpi = dpi;
    state.font = CreateMessageFont(dpi);
    for (const ControlId id :
         {LB_DataBase, TX_DataBase, Command1, OP_Preview, LB_X, LB_Frame, LN_Status, PAN_Help}) {
        SendMessageW(GetDlgItem(window, id), WM_SETFONT, reinterpret_cast<WPARAM>(state.font),
                     TRUE);
    }
    ScaleModelList(GetDlgItem(window, LI_Sections), state.font, dpi);
    if (old != nullptr) DeleteObject(old);
    LayOutMainWindow(window, state.font, dpi);
}

// The first size, held to the screen that the window is on.
void TakeFirstSize(HWND window, UINT dpi) {
    const SIZE client{Scaled(kFirstClientSize.cx, dpi), Scaled(kFirstClientSize.cy, dpi)};
    const SIZE size = WindowSize(window, client, true, dpi);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& area = monitor.rcWork;
    const LONG width = std::min(size.cx, area.right - area.left);
    const LONG height = std::min(size.cy, area.bottom - area.top);
    SetWindowPos(window, nullptr, area.left + (area.right - area.left - width) / 2,
                 area.top + (area.bottom - area.top - height) / 2, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void OnCreate(HWND window) {
    AddControls(window, *StateOf(window));
    const UINT dpi = DpiOf(window);
    TakeFirstSize(window, dpi);
    TakeResolution(window, dpi);
    UpdateMenus(window, false);
}

void ShutDownOnce(HWND window) {
    MainWindowState& state = *StateOf(window);
    if (state.shutDown) return;
    state.shutDown = true;
    ShutDown();
}

void OnDestroy(HWND window) {
    ShutDownOnce(window);
    shell.mainWindow = nullptr;
    PostQuitMessage(0);
}

void OnNcDestroy(HWND window) {
    const std::unique_ptr<MainWindowState> state(StateOf(window));
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    if (state != nullptr) DeleteObject(state->font);
}

void RunCommand(uint16_t id) {
    const Command* command = FindCommand(id);
    if (command == nullptr || command->run == nullptr) return;
    if (IsEnabled(*command, SelectedRow() >= 0)) command->run();
}

// The selected row is shown anew, with the preview or without.
void OnPreviewClick(HWND window) {
    const int row = SelectedRow();
    if (row >= 0) SelectModel(StateOf(window)->rows.at(static_cast<size_t>(row)));
}

void OnCommand(HWND window, uint16_t id) {
    if (id == OP_Preview) return OnPreviewClick(window);
    RunCommand(id == Command1 ? uint16_t{ME_FileOpen} : id);
}

void OnListChanged(HWND window, const NMLISTVIEW& change) {
    const MainWindowState& state = *StateOf(window);
    if (state.filling || (change.uChanged & LVIF_STATE) == 0) return;
    const bool was = (change.uOldState & LVIS_SELECTED) != 0;
    const bool is = (change.uNewState & LVIS_SELECTED) != 0;
    if (!was && is) SelectModel(state.rows.at(static_cast<size_t>(change.iItem)));
    if (was && !is) PostMessageW(window, kSelectionLost, 0, 0);
}

LRESULT OnNotify(HWND window, LPARAM lParam) {
    const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.idFrom == LI_Sections && header.code == LVN_ITEMCHANGED) {
        OnListChanged(window, *reinterpret_cast<const NMLISTVIEW*>(lParam));
    } else if (header.code == TTN_GETDISPINFOW) {
        FillToolTip(*reinterpret_cast<NMTTDISPINFOW*>(lParam), StateOf(window)->toolTipText);
    }
    return 0;
}

// A status line in red tells that the work stopped there.
LRESULT OnColourStatic(HWND window, HDC dc, HWND control) {
    const bool red =
        GetDlgCtrlID(control) == PAN_Help && StateOf(window)->statusColour == StatusColour::kRed;
    SetTextColor(dc, red ? RGB(255, 0, 0) : GetSysColor(COLOR_BTNTEXT));
    SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

void OnActivate(HWND window, bool active) {
    if (active) return;
    const HWND focus = GetFocus();
    if (focus != nullptr && IsChild(window, focus)) StateOf(window)->focus = focus;
}

void OnSetFocus(HWND window) {
    HWND focus = StateOf(window)->focus;
    if (focus == nullptr || !IsWindowEnabled(focus)) focus = GetDlgItem(window, TX_DataBase);
    SetFocus(focus);
}

void OnMinMaxInfo(HWND window, MINMAXINFO& limits) {
    const UINT dpi = DpiOf(window);
    const SIZE client{Scaled(kLeastClientSize.cx, dpi), Scaled(kLeastClientSize.cy, dpi)};
    const SIZE size = WindowSize(window, client, true, dpi);
    limits.ptMinTrackSize = {size.cx, size.cy};
}

void OnDpiChanged(HWND window, UINT dpi, const RECT& area) {
    SetWindowPos(window, nullptr, area.left, area.top, area.right - area.left,
                 area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE);
    TakeResolution(window, dpi);
}

// Messages of the window's life.
LRESULT HandleLife(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CLOSE:
            if (!IsChildRunning()) DestroyWindow(window);
            return 0;
        case WM_ENDSESSION:
            if (wParam != FALSE) ShutDownOnce(window);
            return 0;
        case WM_DESTROY:
            OnDestroy(window);
            return 0;
        case WM_NCDESTROY:
            OnNcDestroy(window);
            break;
        case WM_ACTIVATE:
            OnActivate(window, LOWORD(wParam) != WA_INACTIVE);
            break;
        case WM_SETFOCUS:
            OnSetFocus(window);
            return 0;
        case WM_SYSCOLORCHANGE:
            SendMessageW(GetDlgItem(window, LI_Sections), message, wParam, lParam);
            SendMessageW(GetDlgItem(window, PIC_Section), message, wParam, lParam);
            break;
        case WM_SETTINGCHANGE:
            TakeResolution(window, StateOf(window)->dpi);
            break;
        case WM_DPICHANGED:
            OnDpiChanged(window, LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return 0;
        default:
            break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            OnCreate(window);
            return 0;
        case WM_SIZE:
            LayOutMainWindow(window, StateOf(window)->font, StateOf(window)->dpi);
            return 0;
        case WM_GETMINMAXINFO:
            OnMinMaxInfo(window, *reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case WM_COMMAND:
            OnCommand(window, LOWORD(wParam));
            return 0;
        case WM_NOTIFY:
            return OnNotify(window, lParam);
        case WM_CTLCOLORSTATIC:
            return OnColourStatic(window, reinterpret_cast<HDC>(wParam),
                                  reinterpret_cast<HWND>(lParam));
        case WM_SETCURSOR:
            if (!StateOf(window)->busy) break;
            SetCursor(LoadCursorW(nullptr, IDC_WAIT));
            return TRUE;
        case kSelectionLost:
            if (SelectedRow() < 0) DeselectModel();
            return 0;
        default:
            return HandleLife(window, message, wParam, lParam);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK MainWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto& creation = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation.lpCreateParams));
    }
    // Before the state is there, and after it has gone, the window needs nothing of ours.
    if (StateOf(window) == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    try {
        return HandleMessage(window, message, wParam, lParam);
    } catch (...) {
        ReportFault();
        return message == WM_CREATE ? -1 : 0;
    }
}

// ---- What the core asks of the screen ----------------------------------------------------------

void LoadMainWindow() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = MainWindowProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hIcon = LoadIconW(windowClass.hInstance, MAKEINTRESOURCEW(1));
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kMainWindowClass;
    RegisterClassExW(&windowClass);
    const HWND window =
        CreateWindowExW(WS_EX_CONTROLPARENT, kMainWindowClass, shell.title.c_str(),
                        WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                        CW_USEDEFAULT, CW_USEDEFAULT, nullptr, CreateMenuBar(),
                        windowClass.hInstance, std::make_unique<MainWindowState>().release());
    if (window != nullptr) shell.mainWindow = &kProcedures;
}

void ShowMainWindow() {
    const HWND window = MainHandle();
    ShowWindow(window, SW_SHOWDEFAULT);
    UpdateWindow(window);
}

void SetStatusColour(StatusColour colour) {
    MainWindowState* state = State();
    if (state == nullptr || state->statusColour == colour) return;
    state->statusColour = colour;
    InvalidateRect(Control(PAN_Help), nullptr, TRUE);
}

void SetStatusTag(const std::wstring& tag) {
    MainWindowState* state = State();
    if (state != nullptr) state->statusTag = tag;
}

std::wstring StatusTag() {
    const MainWindowState* state = State();
    return state == nullptr ? std::wstring(L"-1") : state->statusTag;
}

void SetPointer(bool busy) {
    MainWindowState* state = State();
    if (state != nullptr) state->busy = busy;
    SetCursor(LoadCursorW(nullptr, busy ? IDC_WAIT : IDC_ARROW));
}

}  // namespace

void FillMainWindowProcedures(Screen& screen) {
    screen.statusCaption = [] { return WindowText(Control(PAN_Help)); };
    screen.setStatusCaption = [](const std::wstring& text) { SetText(Control(PAN_Help), text); };
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
