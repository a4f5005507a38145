#include "ui/windows/splash.h"

#include "ui/windows/control_ids.h"
#include "ui/windows/controls.h"
#include "ui/windows/dpi.h"
#include "ui/windows/screen.h"
#include "util/version.h"

namespace corvane {
namespace {

// Sizes in pixels at 96 dots per inch.
constexpr SIZE kClientSize{360, 160};
constexpr int kTitleTop = 48;
constexpr int kVersionTop = 96;

// Each label owns its font.
void DeleteFonts(HWND window) {
    for (const ControlId id : {LB_Title, LB_Version}) {
        DeleteObject(
            reinterpret_cast<HFONT>(SendMessageW(GetDlgItem(window, id), WM_GETFONT, 0, 0)));
    }
}

LRESULT CALLBACK SplashProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CTLCOLORSTATIC:
            SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
        case WM_DESTROY:
            DeleteFonts(window);
            break;
        default:
            break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void AddLine(HWND window, ControlId id, const std::wstring& text, HFONT font) {
    const UINT dpi = DpiOf(window);
    const int top = Scaled(id == LB_Title ? kTitleTop : kVersionTop, dpi);
    const int height = TextSize(window, font, text).cy;
    const HWND label = CreateWindowExW(0, WC_STATICW, text.c_str(),
                                       WS_CHILD | WS_VISIBLE | SS_CENTER | SS_NOPREFIX, 0, top,
                                       Scaled(kClientSize.cx, dpi), height, window,
                                       reinterpret_cast<HMENU>(INT_PTR{id}), nullptr, nullptr);
    SendMessageW(label, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

// Gives the window its size, in the middle of the main screen.
void Centre(HWND window) {
    const UINT dpi = DpiOf(window);
    const SIZE size =
        WindowSize(window, {Scaled(kClientSize.cx, dpi), Scaled(kClientSize.cy, dpi)}, false, dpi);
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    SetWindowPos(window, HWND_TOPMOST, area.left + (area.right - area.left - size.cx) / 2,
                 area.top + (area.bottom - area.top - size.cy) / 2, size.cx, size.cy,
                 SWP_NOACTIVATE);
}

void RegisterSplashClass() {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = SplashProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_APPSTARTING);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    windowClass.lpszClassName = kSplashClass;
    RegisterClassExW(&windowClass);
}

}  // namespace

void ShowSplash(const std::wstring& title) {
    UnloadSplash();
    RegisterSplashClass();
    const HWND window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kSplashClass,
                                        title.c_str(), WS_POPUP | WS_BORDER, 0, 0, 0, 0, nullptr,
                                        nullptr, GetModuleHandleW(nullptr), nullptr);
    if (window == nullptr) return;
    Centre(window);
    const UINT dpi = DpiOf(window);
    AddLine(window, LB_Title, title, CreateMessageFont(dpi, 220, FW_SEMIBOLD));
    AddLine(window, LB_Version, L"Version " + VersionText(), CreateMessageFont(dpi));
    ShowWindow(window, SW_SHOWNOACTIVATE);
    UpdateWindow(window);
}

void UnloadSplash() {
    const HWND window = OwnWindow(kSplashClass);
    if (window != nullptr) DestroyWindow(window);
}

}  // namespace corvane
