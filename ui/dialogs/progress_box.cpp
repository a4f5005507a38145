#include "ui/dialogs/progress_box.h"

#include <algorithm>
#include <string>

#include "report/reporters.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/base/own_window.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/splash.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kClientWidth = 380;
constexpr int kMargin = 11;
constexpr int kGap = 9;
constexpr int kBarHeight = 17;

// The window's own data: whether the user has cancelled.
LRESULT CALLBACK ProgressProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool isButton = message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED;
    if (isButton || message == WM_CLOSE) {
        SetWindowLongPtrW(window, GWLP_USERDATA, TRUE);
        EnableWindow(GetDlgItem(window, IDCANCEL), FALSE);
        return 0;
    }
    // F1: nothing is opened while an edit is at work.
    if (message == WM_HELP) return TRUE;
    return DefWindowProcW(window, message, wParam, lParam);
}

void RegisterProgressClass() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = ProgressProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kProgressClass;
    RegisterClassExW(&windowClass);
}

void AddControls(HWND box, HFONT font) {
    AddControl(box, {LB_Progress, WC_STATICW, L"", WS_VISIBLE | SS_LEFT | SS_NOPREFIX});
    AddControl(box, {PB_Progress, PROGRESS_CLASSW, L"", WS_VISIBLE | PBS_SMOOTH});
    AddControl(box, {IDCANCEL, WC_BUTTONW, L"Cancel", WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON});
    for (const int id : {int{LB_Progress}, int{PB_Progress}, IDCANCEL}) {
        SendDlgItemMessageW(box, id, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    }
}

// Returns the size of the client area.
SIZE PlaceControls(HWND box, UINT dpi) {
    const int margin = Scaled(kMargin, dpi);
    const int gap = Scaled(kGap, dpi);
    const SIZE button = ButtonSize(box, IDCANCEL, dpi);
    RECT area{margin, margin, Scaled(kClientWidth, dpi) - margin, 0};
    PlaceOnTop(box, LB_Progress, ControlTextSize(box, IDCANCEL).cy, area);
    area.top += gap;
    PlaceOnTop(box, PB_Progress, Scaled(kBarHeight, dpi), area);
    area.bottom = area.top + gap + button.cy;
    PlaceButtons(box, {IDCANCEL}, area, dpi);
    return {Scaled(kClientWidth, dpi), area.bottom + margin};
}

// In the middle of its owner, or of the screen.
void Centre(HWND box, SIZE size) {
    RECT middle{};
    const HWND owner = GetWindow(box, GW_OWNER);
    if (owner == nullptr || IsIconic(owner) || GetWindowRect(owner, &middle) == 0) {
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &middle, 0);
    }
    const LONG left = middle.left + (middle.right - middle.left - size.cx) / 2;
    const LONG top = middle.top + (middle.bottom - middle.top - size.cy) / 2;
    SetWindowPos(box, nullptr, std::max(left, 0L), std::max(top, 0L), size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

HWND OpenBox() {
    UnloadSplash();
    RegisterProgressClass();
    const HWND owner = DialogOwner();
    const HWND box = CreateWindowExW(WS_EX_DLGMODALFRAME, kProgressClass, shell.title.c_str(),
                                     WS_POPUP | WS_CAPTION | WS_SYSMENU, 0, 0, 0, 0, owner, nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
    if (box == nullptr) return nullptr;
    const UINT dpi = DpiOf(owner);
    AddControls(box, CreateMessageFont(dpi));
    Centre(box, WindowSize(box, PlaceControls(box, dpi), false, dpi));
    if (owner != nullptr) EnableWindow(owner, FALSE);
    ShowWindow(box, SW_SHOW);
    SetFocus(GetDlgItem(box, IDCANCEL));
    return box;
}

// The owner is enabled first, or the system would activate another program's window.
void CloseBox(HWND box) {
    const HWND owner = GetWindow(box, GW_OWNER);
    if (owner != nullptr) EnableWindow(owner, TRUE);
    const auto font = reinterpret_cast<HFONT>(SendDlgItemMessageW(box, IDCANCEL, WM_GETFONT, 0, 0));
    DestroyWindow(box);
    DeleteObject(font);
}

void HandleMessages(HWND box) {
    MSG message;
    while (PeekMessageW(&message, box, 0, 0, PM_REMOVE)) {
        if (IsDialogMessageW(box, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    reportView.processPendingMessages();
}

}  // namespace

bool ShowProgress(int percent) {
    HWND box = OwnWindow(kProgressClass);
    if (percent == kNoProgress) {
        if (box != nullptr) CloseBox(box);
        return false;
    }
    if (box == nullptr) box = OpenBox();
    if (box == nullptr) return false;
    const std::wstring text = reportView.statusCaption() + L"  " + std::to_wstring(percent) + L" %";
    if (WindowText(GetDlgItem(box, LB_Progress)) != text) {
        SetDlgItemTextW(box, LB_Progress, text.c_str());
        SendDlgItemMessageW(box, PB_Progress, PBM_SETPOS, static_cast<WPARAM>(percent), 0);
    }
    HandleMessages(box);
    return GetWindowLongPtrW(box, GWLP_USERDATA) != 0;
}

}  // namespace corvane
