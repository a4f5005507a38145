#include "ui/dialogs/dialogs.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "report/reporters.h"
#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"
#include "ui/base/own_window.h"
#include "ui/pictures/icons.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kLeastButtonWidth = 80;
constexpr int kButtonPadding = 10;
constexpr int kButtonGap = 7;

// A dialog while it is open; lives in RunDialog.
struct OpenDialog {
    const DialogKind& kind;
    const std::wstring& caption;
    void* contents;
    HFONT font = nullptr;
    UINT dpi = 0;       // that it has been placed for; 0: not yet
    LONG helpTime = 0;  // of the last key that asked for help
};

OpenDialog& StateOf(HWND window) {
    return *reinterpret_cast<OpenDialog*>(GetWindowLongPtrW(window, DWLP_USER));
}

BOOL CALLBACK SetFont(HWND control, LPARAM font) {
    SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(font), TRUE);
    return TRUE;
}

// Of the screen that the window is on, what no task bar covers.
RECT WorkArea(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

// ---- A size that the user may change -----------------------------------------------------------

void AddGrip(HWND window) {
    AddControl(window, {SB_Grip, WC_SCROLLBARW, L"",
                        WS_VISIBLE | SBS_SIZEGRIP | SBS_SIZEBOXBOTTOMRIGHTALIGN});
}

void Fit(HWND window) {
    const OpenDialog& dialog = StateOf(window);
    if (dialog.kind.fit == nullptr || dialog.dpi == 0 || IsIconic(window)) return;
    RECT client{};
    GetClientRect(window, &client);
    const int width = SystemMetric(SM_CXVSCROLL, dialog.dpi);
    PlaceControl(window, SB_Grip,
                 {client.right - width, client.bottom - GripHeight(dialog.dpi), client.right,
                  client.bottom});
    ShowWindow(GetDlgItem(window, SB_Grip), IsZoomed(window) ? SW_HIDE : SW_SHOWNA);
    dialog.kind.fit(window, dialog.contents, {client.right, client.bottom}, dialog.dpi);
    InvalidateRect(window, nullptr, TRUE);
}

void SetLeastSize(HWND window, MINMAXINFO& info) {
    const OpenDialog& dialog = StateOf(window);
    if (dialog.kind.fit == nullptr || dialog.dpi == 0) return;
    const SIZE least{Scaled(dialog.kind.least.cx, dialog.dpi),
                     Scaled(dialog.kind.least.cy, dialog.dpi)};
    const SIZE size = WindowSize(window, least, false, dialog.dpi);
    info.ptMinTrackSize = {size.cx, size.cy};
}

// As large as `client` at a resolution; of a dialog that can be sized no larger than the screen,
// and as large as the user has made it.
SIZE SizeFor(HWND window, SIZE client, UINT dpi) {
    const OpenDialog& dialog = StateOf(window);
    if (dialog.kind.fit == nullptr) return WindowSize(window, client, false, dpi);
    if (dialog.dpi != 0) {
        RECT now{};
        GetClientRect(window, &now);
        client.cx = MulDiv(now.right, static_cast<int>(dpi), static_cast<int>(dialog.dpi));
        client.cy = MulDiv(now.bottom, static_cast<int>(dpi), static_cast<int>(dialog.dpi));
    }
    const SIZE size = WindowSize(window, client, false, dpi);
    const RECT screen = WorkArea(window);
    return {std::min(size.cx, screen.right - screen.left),
            std::min(size.cy, screen.bottom - screen.top)};
}

void ApplyResolution(HWND window, UINT dpi) {
    OpenDialog& dialog = StateOf(window);
    const HFONT old = dialog.font;
    dialog.font = CreateMessageFont(dpi);
    EnumChildWindows(window, SetFont, reinterpret_cast<LPARAM>(dialog.font));
    const SIZE client = dialog.kind.place(window, dialog.contents, dpi);
    const SIZE size = SizeFor(window, client, dpi);
    dialog.dpi = dpi;
    SetWindowPos(window, nullptr, 0, 0, size.cx, size.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    Fit(window);
    if (dialog.kind.isProgram) SetWindowIcons(window, dpi);
    if (old != nullptr) DeleteObject(old);
}

// In the middle of the owner, as far as the screen has room there.
void Centre(HWND window, HWND owner) {
    const RECT screen = WorkArea(owner != nullptr ? owner : window);
    RECT middle = screen;
    if (owner != nullptr && !IsIconic(owner)) GetWindowRect(owner, &middle);
    RECT own{};
    GetWindowRect(window, &own);
    const LONG width = own.right - own.left;
    const LONG height = own.bottom - own.top;
    const LONG left = middle.left + (middle.right - middle.left - width) / 2;
    const LONG top = middle.top + (middle.bottom - middle.top - height) / 2;
    SetWindowPos(window, nullptr, std::max(screen.left, std::min(left, screen.right - width)),
                 std::max(screen.top, std::min(top, screen.bottom - height)), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Shows the window as the user wants to have the program started. Not later: a window that has the
// focus while it is hidden gets an inactive title.
void ShowProgramWindow(HWND window) {
    ShowWindow(window, SW_SHOWDEFAULT);
}

void OnInitialise(HWND window) {
    OpenDialog& dialog = StateOf(window);
    ScaleDialogOurselves(window);
    SetWindowTextW(window, dialog.caption.c_str());
    dialog.kind.addControls(window, dialog.contents);
    if (dialog.kind.fit != nullptr) AddGrip(window);
    SendMessageW(window, DM_SETDEFID, GetDlgItem(window, IDOK) != nullptr ? IDOK : IDCANCEL, 0);
    ApplyResolution(window, DpiOf(window));
    Centre(window, GetWindow(window, GW_OWNER));
    if (dialog.kind.isProgram) ShowProgramWindow(window);
    const HWND first = GetDlgItem(window, dialog.kind.firstFocus);
    SetFocus(first);
    // Only now: a field without a size would scroll its text away.
    const LRESULT code = SendMessageW(first, WM_GETDLGCODE, 0, 0);
    if ((code & DLGC_HASSETSEL) == 0) return;
    // From the end, so that a long text shows its beginning.
    SendMessageW(first, EM_SETSEL, static_cast<WPARAM>(GetWindowTextLengthW(first)), 0);
    SendMessageW(first, EM_SCROLLCARET, 0, 0);
}

bool MayClose(HWND window) {
    const OpenDialog& dialog = StateOf(window);
    return dialog.kind.accept == nullptr || dialog.kind.accept(window, dialog.contents);
}

void OnCommand(HWND window, const Notification& notification) {
    const OpenDialog& dialog = StateOf(window);
    const int id = notification.control;
    if (id == IDOK && !MayClose(window)) return;
    if (id == IDOK || id == IDCANCEL) {
        EndDialog(window, id);
    } else if (dialog.kind.notify != nullptr) {
        dialog.kind.notify(window, dialog.contents, notification);
    }
}

void OnNotify(HWND window, NMHDR& header) {
    const OpenDialog& dialog = StateOf(window);
    if (header.code == LVN_GETDISPINFOW && dialog.kind.fillIn != nullptr) {
        return dialog.kind.fillIn(dialog.contents, static_cast<int>(header.idFrom),
                                  reinterpret_cast<NMLVDISPINFOW&>(header).item);
    }
    if (dialog.kind.notify == nullptr) return;
    dialog.kind.notify(window, dialog.contents,
                       {static_cast<int>(header.idFrom), static_cast<int>(header.code)});
}

// TRUE: the message needs nothing more. Of WM_CTLCOLORSTATIC the background's brush.
INT_PTR HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            SetWindowLongPtrW(window, DWLP_USER, lParam);
            OnInitialise(window);
            return FALSE;  // the focus has been set
        case WM_COMMAND:
            OnCommand(window, {LOWORD(wParam), HIWORD(wParam)});
            return TRUE;
        case WM_NOTIFY:
            OnNotify(window, *reinterpret_cast<NMHDR*>(lParam));
            return FALSE;
        case WM_SIZE:
            Fit(window);
            return FALSE;
        case WM_GETMINMAXINFO:
            SetLeastSize(window, *reinterpret_cast<MINMAXINFO*>(lParam));
            return TRUE;
        case WM_HELP:
            ShowHelpOnBox(StateOf(window).helpTime);
            return TRUE;
        case WM_DRAWITEM:
            if (StateOf(window).kind.draw == nullptr) return FALSE;
            StateOf(window).kind.draw(StateOf(window).contents,
                                      *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_CTLCOLORSTATIC:
            if (StateOf(window).kind.colour == nullptr) return FALSE;
            return reinterpret_cast<INT_PTR>(StateOf(window).kind.colour(
                reinterpret_cast<HWND>(lParam), reinterpret_cast<HDC>(wParam)));
        case WM_DPICHANGED: {
            const auto& area = *reinterpret_cast<const RECT*>(lParam);
            SetWindowPos(window, nullptr, area.left, area.top, 0, 0,
                         SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
            ApplyResolution(window, LOWORD(wParam));
            return TRUE;
        }
        case WM_DESTROY:
            if (StateOf(window).kind.isProgram) RemoveWindowIcons(window);
            return FALSE;
        default:
            return FALSE;
    }
}

INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // Before the first message and after the last there is no state.
    if (message != WM_INITDIALOG && GetWindowLongPtrW(window, DWLP_USER) == 0) return FALSE;
    try {
        return HandleMessage(window, message, wParam, lParam);
    } catch (...) {
        ReportFault();
        EndDialog(window, IDCANCEL);
        return FALSE;
    }
}

// ---- Keys --------------------------------------------------------------------------------------

bool HandleKey(const MSG& message) {
    const HWND window = GetAncestor(message.hwnd, GA_ROOT);
    const auto procedure = GetWindowLongPtrW(window, DWLP_DLGPROC);
    // A box of the system may be over the dialog.
    if (procedure != reinterpret_cast<LONG_PTR>(DialogProcedure)) return false;
    const OpenDialog& dialog = StateOf(window);
    return dialog.kind.key != nullptr && dialog.kind.key(window, dialog.contents, message);
}

// Sees the messages of the thread's dialogs before they do; TRUE: they do not get this one.
LRESULT CALLBACK FilterMessage(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = *reinterpret_cast<const MSG*>(lParam);
    try {
        const bool isKey = code == MSGF_DIALOGBOX && message.message == WM_KEYDOWN;
        if (isKey && HandleKey(message)) return TRUE;
    } catch (...) {
        ReportFault();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// Keys go to the dialogs' own procedures as long as this lives.
struct KeyFilter {
    HHOOK hook = SetWindowsHookExW(WH_MSGFILTER, FilterMessage, nullptr, GetCurrentThreadId());

    KeyFilter() = default;
    ~KeyFilter() { UnhookWindowsHookEx(hook); }
    KeyFilter(const KeyFilter&) = delete;
    KeyFilter& operator=(const KeyFilter&) = delete;
};

void RegisterDialogClass(const wchar_t* className) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = DefDlgProcW;
    windowClass.cbWndExtra = DLGWINDOWEXTRA;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = className;
    RegisterClassExW(&windowClass);
}

DWORD FrameOf(const DialogKind& kind) {
    if (kind.fit != nullptr) return DS_MODALFRAME | WS_THICKFRAME | WS_MAXIMIZEBOX;
    return kind.isProgram ? WS_MINIMIZEBOX : DWORD{DS_MODALFRAME};
}

// A dialog template without controls: style, number of controls, places, menu, class and caption.
std::vector<WORD> EmptyTemplate(const std::wstring& className, DWORD style) {
    DLGTEMPLATE head{};
    head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | style;
    std::vector<WORD> words(sizeof(head) / sizeof(WORD));
    std::copy_n(reinterpret_cast<const WORD*>(&head), words.size(), words.begin());
    words.push_back(0);
    words.insert(words.end(), className.begin(), className.end());
    words.insert(words.end(), {0, 0});
    return words;
}

}  // namespace

bool RunDialog(const DialogKind& kind, const std::wstring& caption, void* contents) {
    reportView.unloadSplash();
    RegisterDialogClass(kind.className);
    const std::vector<WORD> words = EmptyTemplate(kind.className, FrameOf(kind));
    OpenDialog dialog{kind, caption, contents};
    std::optional<KeyFilter> filter;
    if (kind.key != nullptr) filter.emplace();
    const INT_PTR answer = DialogBoxIndirectParamW(
        GetModuleHandleW(nullptr), reinterpret_cast<const DLGTEMPLATE*>(words.data()),
        DialogOwner(), DialogProcedure, reinterpret_cast<LPARAM>(&dialog));
    if (dialog.font != nullptr) DeleteObject(dialog.font);
    return answer == IDOK;
}

HWND AddControl(HWND window, const DialogControl& control) {
    return CreateWindowExW(control.exStyle, control.windowClass, control.text.c_str(),
                           WS_CHILD | control.style, 0, 0, 0, 0, window,
                           reinterpret_cast<HMENU>(INT_PTR{control.id}), nullptr, nullptr);
}

void PlaceControl(HWND window, int id, const RECT& place) {
    SetWindowPos(GetDlgItem(window, id), nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void PlaceOnTop(HWND window, int id, LONG height, RECT& area) {
    PlaceControl(window, id, {area.left, area.top, area.right, area.top + height});
    area.top += height;
}

SIZE ControlTextSize(HWND window, int id) {
    const HWND control = GetDlgItem(window, id);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    return TextSize(window, font, WindowText(control));
}

int HeightForText(HWND window, int id, int width) {
    const HWND control = GetDlgItem(window, id);
    const std::wstring text = WindowText(control);
    const HDC dc = GetDC(window);
    const HGDIOBJ old =
        SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    RECT area{0, 0, width, 0};
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area,
              DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX | DT_EXPANDTABS);
    SelectObject(dc, old);
    ReleaseDC(window, dc);
    const RECT screen = WorkArea(window);
    return std::min(area.bottom, (screen.bottom - screen.top) / 2);
}

SIZE ButtonSize(HWND window, int id, UINT dpi) {
    const SIZE text = ControlTextSize(window, id);
    const int padding = Scaled(kButtonPadding, dpi);
    return {std::max<LONG>(Scaled(kLeastButtonWidth, dpi), text.cx + 2 * padding),
            text.cy + padding};
}

void PlaceButtons(HWND window, std::initializer_list<int> ids, const RECT& area, UINT dpi) {
    LONG right = area.right;
    for (auto id = std::rbegin(ids); id != std::rend(ids); ++id) {
        const SIZE size = ButtonSize(window, *id, dpi);
        PlaceControl(window, *id, {right - size.cx, area.bottom - size.cy, right, area.bottom});
        right -= size.cx + Scaled(kButtonGap, dpi);
    }
}

void EnableButton(HWND window, int id, bool isEnabled) {
    const HWND button = GetDlgItem(window, id);
    if (button == nullptr) return;
    if (!isEnabled && GetFocus() == button) {
        const auto next = reinterpret_cast<WPARAM>(GetDlgItem(window, IDCANCEL));
        SendMessageW(window, WM_NEXTDLGCTL, next, TRUE);
    }
    EnableWindow(button, isEnabled);
}

int GripHeight(UINT dpi) {
    return SystemMetric(SM_CYHSCROLL, dpi);
}

}  // namespace corvane
