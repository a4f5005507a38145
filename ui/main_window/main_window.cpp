#include "ui/main_window/main_window.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/commands/file_commands.h"
#include "shell/commands/view_commands.h"
#include "shell/recent_databases.h"
#include "shell/rule_set.h"
#include "shell/start_up.h"
#include "shell/state.h"
#include "ui/base/colours.h"
#include "ui/base/dpi.h"
#include "ui/base/own_window.h"
#include "ui/main_window/child_windows.h"
#include "ui/main_window/context_menu.h"
#include "ui/main_window/drop.h"
#include "ui/main_window/filter_box.h"
#include "ui/main_window/help.h"
#include "ui/main_window/list_notifications.h"
#include "ui/main_window/main_window_controls.h"
#include "ui/main_window/menu_hints.h"
#include "ui/main_window/menus.h"
#include "ui/main_window/model_list_view.h"
#include "ui/main_window/place.h"
#include "ui/main_window/running_instance.h"
#include "ui/main_window/splitter.h"
#include "ui/main_window/system_lists.h"
#include "ui/main_window/tool_tips.h"
#include "ui/pictures/icons.h"

namespace corvane {
namespace {

// Posted to the window itself when a second start has handed over a file, until it is opened.
constexpr UINT kFileHandedOver = WM_APP + 2;

void OnCreate(HWND window) {
    MainWindowState& state = *StateOfMainWindow(window);
    if (shell.windowPlace.listShare > 0) state.layout.listShare = shell.windowPlace.listShare;
    AddMainControls(window, state);
    ApplyPlace(window);
    ApplyResolution(window, DpiOf(window));
    UpdateEnabling(window);
    AcceptDrops(window);
}

// A box is open over the window, or a program of the suite runs.
bool IsAtWork(HWND window) {
    return !IsWindowEnabled(window) || shell.childRunning || StateOfMainWindow(window)->locked;
}

void ShutDownOnce(HWND window, bool sessionEnds = false) {
    MainWindowState& state = *StateOfMainWindow(window);
    if (state.shutDown) return;
    state.shutDown = true;
    ShutDown(sessionEnds);
}

// What shutting down reports is seen over the window.
void OnClose(HWND window) {
    if (IsAtWork(window)) return;
    ShutDownOnce(window);
    DestroyWindow(window);
}

void OnDestroy(HWND window) {
    ShutDownOnce(window);
    ReleaseMainControls(window);
    shell.mainWindow = nullptr;
    PostQuitMessage(0);
}

void OnNcDestroy(HWND window) {
    MainWindowState& state = *StateOfMainWindow(window);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    DeleteObject(state.layout.font);
    state.hasGone = true;
}

// While a message is being handled the window's record stays, even if the message, or another one
// that came while it showed a box, ends the window. The last one frees the record.
class Handling {
public:
    explicit Handling(HWND window) : window_(window), state_(*StateOfMainWindow(window)) {
        ++state_.handling;
    }
    ~Handling() {
        if (--state_.handling == 0 && state_.hasGone) delete &state_;
    }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

    // What came while the window was at work.
    void PassOnHandedFile() const {
        if (state_.handling > 1 || state_.handedOver.file.empty()) return;
        PostMessageW(window_, kFileHandedOver, 0, 0);
    }

private:
    HWND window_;
    MainWindowState& state_;
};

void OnCommand(HWND window, uint16_t id, uint16_t notification) {
    // By its key the guide opens at what has the focus, from the menu at its beginning.
    constexpr uint16_t kByKey = 1;
    if (id == ME_HelpContents && notification == kByKey) return ShowHelpOnFocus();
    if (id == IDOK) return LeaveFilterBox(window);
    if (id == IDCANCEL && shell.preview.isLarge) return ShowLargerPreview(false);
    if (id == IDCANCEL && ClearFilterBox(window)) return;
    if (id == TX_Filter) return OnFilterNotify(window, notification);
    if (id == OP_Preview) return ShowSelectedLineAgain();
    if (id >= OP_Rule && id < OP_Rule + kRuleSetCount) {
        // Options report a click when they get the focus, too.
        const auto ruleSet = static_cast<RuleSet>(id - OP_Rule);
        if (notification == BN_CLICKED && ruleSet != CurrentRuleSet()) RuleSetChosen(ruleSet);
        return;
    }
    if (id >= BT_StartRecent && id < BT_StartRecent + static_cast<int>(kRecentCount)) {
        return RunCommand(static_cast<uint16_t>(ME_FileRecent + id - BT_StartRecent));
    }
    const auto button = std::ranges::find(kCommandButtons, id, &CommandButton::control);
    RunCommand(button == std::end(kCommandButtons) ? id : button->command);
}

LRESULT OnNotify(HWND window, LPARAM lParam) {
    const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (IsFromList(window, header)) return OnListNotify(window, lParam);
    if (header.code == TTN_GETDISPINFOW) {
        FillToolTip(*reinterpret_cast<NMTTDISPINFOW*>(lParam),
                    StateOfMainWindow(window)->toolTipText);
    }
    return 0;
}

// A status line in red says that the work stopped there.
bool IsRed(HWND window, HWND control) {
    return GetDlgCtrlID(control) == PAN_Help &&
           StateOfMainWindow(window)->statusColour == StatusColour::kRed;
}

LRESULT OnColourStatic(HWND window, HDC dc, HWND control) {
    const bool red = IsRed(window, control) && !NeedsSystemColours(COLOR_BTNFACE);
    SetTextColor(dc, red ? RGB(255, 0, 0) : GetSysColor(COLOR_BTNTEXT));
    SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

// Not everybody sees red. `area` becomes what is left beside the picture.
void DrawWarning(HDC dc, RECT& area) {
    const int side = static_cast<int>(area.bottom - area.top);
    const HICON picture = LoadSystemPicture(IDI_WARNING, side);
    DrawIconEx(dc, area.left, area.top, picture, side, side, 0, nullptr, DI_NORMAL);
    DestroyIcon(picture);
    area.left += side + side / 3;
}

// The status line or a label of the selected model.
void OnDrawLabel(HWND window, const DRAWITEMSTRUCT& item) {
    const std::wstring text = WindowText(item.hwndItem);
    RECT area = item.rcItem;
    FillRect(item.hDC, &area, GetSysColorBrush(COLOR_BTNFACE));
    const HGDIOBJ before = SelectObject(item.hDC, StateOfMainWindow(window)->layout.font);
    OnColourStatic(window, item.hDC, item.hwndItem);
    if (IsRed(window, item.hwndItem) && !text.empty()) DrawWarning(item.hDC, area);
    // The legend ends where the picture ends, the count where the list ends.
    const bool isRight = item.CtlID == LB_Legend || item.CtlID == LB_Count;
    const UINT align = isRight ? DT_RIGHT : DT_LEFT;
    const UINT lines = item.CtlID == LB_WhyGone ? DT_WORDBREAK : DT_SINGLELINE;
    DrawTextW(item.hDC, text.c_str(), static_cast<int>(text.size()), &area,
              align | lines | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(item.hDC, before);
}

// Whether a mouse message is the press of a button, in the window or on its frame.
bool IsPress(UINT message) {
    constexpr UINT kPresses[] = {WM_LBUTTONDOWN,   WM_RBUTTONDOWN,   WM_MBUTTONDOWN,
                                 WM_NCLBUTTONDOWN, WM_NCRBUTTONDOWN, WM_NCMBUTTONDOWN};
    return std::ranges::find(kPresses, message) != std::end(kPresses);
}

// Comes with every mouse message. A click while a program of the suite runs is one for it.
bool OnSetCursor(HWND window, UINT mouseMessage) {
    if (shell.childRunning && IsPress(mouseMessage)) BringChildToFront();
    if (!StateOfMainWindow(window)->busy) return false;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    return true;
}

// The keyboard letter of a label or a frame goes to the control after it; dialogs do that by
// themselves.
void OnNextControl(HWND window, WPARAM which, bool isHandle) {
    const HWND next = isHandle ? reinterpret_cast<HWND>(which)
                               : GetNextDlgTabItem(window, GetFocus(), which != FALSE);
    if (next != nullptr) SetFocus(next);
}

void ShareWidth(HWND window, double listShare) {
    Layout& layout = StateOfMainWindow(window)->layout;
    layout.listShare = listShare;
    LayOutMainWindow(window, layout);
    UpdateWindow(window);
}

void OnSplitterMoved(HWND window, int left) {
    ShareWidth(window, ListShareFor(window, StateOfMainWindow(window)->layout, left));
}

// Not now: the second start waits for the answer.
LRESULT OnCopyData(HWND window, const COPYDATASTRUCT& data) {
    MainWindowState& state = *StateOfMainWindow(window);
    StartRequest request = ReadHandedOver(data);
    if (request.file.empty()) return FALSE;
    state.handedOver = std::move(request);
    state.wasAtWork = IsAtWork(window) || state.handling > 1;
    PostMessageW(window, kFileHandedOver, 0, 0);
    return TRUE;
}

// While the window is at work the file waits for the end of that.
void OnFileHandedOver(HWND window) {
    MainWindowState& state = *StateOfMainWindow(window);
    const bool isReady = IsWindowVisible(window) && !IsAtWork(window) && state.handling == 1;
    if (!isReady || state.handedOver.file.empty()) return;
    OpenHandedOver(std::exchange(state.handedOver, {}), state.wasAtWork);
}

// Not while a command is at work; it looks for itself.
void OnLookAtFile(HWND window) {
    if (StateOfMainWindow(window)->handling == 1 && !IsAtWork(window)) RefreshOnActivation();
}

void OnTellSystem(HWND window) {
    AddToSystemsLists(std::exchange(StateOfMainWindow(window)->toSystem, {}));
}

void OnDropFiles(HWND window, HDROP drop) {
    const std::vector<std::wstring> paths = TakeDroppedPaths(drop);
    if (StateOfMainWindow(window)->handling > 1 || IsAtWork(window)) return;
    SetForegroundWindow(window);
    OpenDropped(paths);
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
    ApplyResolution(window, dpi);
}

// Messages of the window's life.
LRESULT HandleLife(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CLOSE:
            OnClose(window);
            return 0;
        case WM_ENDSESSION:
            if (wParam != FALSE) ShutDownOnce(window, true);
            return 0;
        case WM_DESTROY:
            OnDestroy(window);
            return 0;
        case WM_NCDESTROY:
            OnNcDestroy(window);
            break;
        case WM_ACTIVATE:
            if (LOWORD(wParam) == WA_INACTIVE) {
                RememberFocus(window);
            } else {
                PostMessageW(window, kLookAtFile, 0, 0);
            }
            break;
        case WM_SETFOCUS:
            GiveFocus(window);
            return 0;
        case WM_NEXTDLGCTL:
            OnNextControl(window, wParam, LOWORD(lParam) != FALSE);
            return 0;
        case WM_SYSCOLORCHANGE:
            SendMessageW(GetDlgItem(window, LI_Sections), message, wParam, lParam);
            SendMessageW(GetDlgItem(window, PIC_Section), message, wParam, lParam);
            ShowButtonPictures(window);
            ScaleModelList(GetDlgItem(window, LI_Sections), StateOfMainWindow(window)->layout.dpi);
            GreyModelRows(GetDlgItem(window, LI_Sections), !shell.database.whyGone.empty());
            break;
        case WM_SETTINGCHANGE:
            ApplyResolution(window, StateOfMainWindow(window)->layout.dpi);
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
            LayOutMainWindow(window, StateOfMainWindow(window)->layout);
            return 0;
        case WM_GETMINMAXINFO:
            OnMinMaxInfo(window, *reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case WM_COMMAND:
            OnCommand(window, LOWORD(wParam), HIWORD(wParam));
            return 0;
        case WM_CONTEXTMENU:
            if (ShowContextMenu(window, reinterpret_cast<HWND>(wParam), lParam)) return 0;
            break;
        case WM_MENUSELECT:
            OnMenuSelect(window, LOWORD(wParam), HIWORD(wParam));
            return 0;
        case WM_NOTIFY:
            return OnNotify(window, lParam);
        case WM_CTLCOLORSTATIC:
            return OnColourStatic(window, reinterpret_cast<HDC>(wParam),
                                  reinterpret_cast<HWND>(lParam));
        case WM_DRAWITEM:
            OnDrawLabel(window, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_SETCURSOR:
            if (OnSetCursor(window, HIWORD(lParam))) return TRUE;
            break;
        case kSplitterMoved:
            OnSplitterMoved(window, static_cast<int>(wParam));
            return 0;
        case kSplitterReset:
            ShareWidth(window, kFirstListShare);
            return 0;
        case WM_COPYDATA:
            return OnCopyData(window, *reinterpret_cast<const COPYDATASTRUCT*>(lParam));
        case kFileHandedOver:
            OnFileHandedOver(window);
            return 0;
        case kColumnSized:
            OnColumnSized(window, static_cast<int>(wParam));
            return 0;
        case kLookAtFile:
            OnLookAtFile(window);
            return 0;
        case kTellSystem:
            OnTellSystem(window);
            return 0;
        case WM_DROPFILES:
            OnDropFiles(window, reinterpret_cast<HDROP>(wParam));
            return 0;
        case WM_HELP:
            OnHelp(window, *reinterpret_cast<const HELPINFO*>(lParam));
            return TRUE;
        case WM_INITMENUPOPUP:
            ShowRecent(window, reinterpret_cast<HMENU>(wParam));
            break;
        case kSelectionChanged:
            ShowSelection();
            return 0;
        default:
            return HandleLife(window, message, wParam, lParam);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK MainWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        shell.mainWindow = window;
        const auto& creation = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(creation.lpCreateParams));
    }
    // Before the state is there, and after it has gone, the window needs nothing of ours.
    if (StateOfMainWindow(window) == nullptr)
        return DefWindowProcW(window, message, wParam, lParam);
    const Handling handling(window);
    try {
        const LRESULT answer = HandleMessage(window, message, wParam, lParam);
        if (message != kFileHandedOver) handling.PassOnHandedFile();
        return answer;
    } catch (...) {
        ReportFault();
        return message == WM_CREATE ? -1 : 0;
    }
}

}  // namespace

MainWindowState* StateOfMainWindow(HWND window) {
    return reinterpret_cast<MainWindowState*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

MainWindowState* MainState() {
    const HWND window = MainHandle();
    return window == nullptr ? nullptr : StateOfMainWindow(window);
}

HWND MainControl(int id) {
    return GetDlgItem(MainHandle(), id);
}

void LoadMainWindow() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = MainWindowProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kMainWindowClass;
    RegisterClassExW(&windowClass);
    CreateWindowExW(WS_EX_CONTROLPARENT, kMainWindowClass, shell.title.c_str(),
                    WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                    CW_USEDEFAULT, CW_USEDEFAULT, nullptr, CreateMenuBar(), windowClass.hInstance,
                    std::make_unique<MainWindowState>().release());
}

}  // namespace corvane
