#include "ui/dialogs/splash.h"

#include <algorithm>
#include <memory>

#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"
#include "ui/base/own_window.h"
#include "ui/dialogs/product_panel.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kLeastWidth = 360;
constexpr int kMargin = 12;

// Belongs to the window from its creation on, and goes with it.
ProductPanel* PanelOf(HWND window) {
    return reinterpret_cast<ProductPanel*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

LRESULT CALLBACK SplashProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCREATE:
            SetWindowLongPtrW(window, GWLP_USERDATA,
                              reinterpret_cast<LONG_PTR>(
                                  reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams));
            break;
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<LRESULT>(ColourProductLabel(
                reinterpret_cast<HWND>(lParam), reinterpret_cast<HDC>(wParam), COLOR_WINDOW));
        case WM_NCDESTROY: {
            const std::unique_ptr<ProductPanel> panel(PanelOf(window));
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            break;
        }
        default:
            break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

// Gives the window its size, in the middle of the main screen.
void Centre(HWND window, SIZE client, UINT dpi) {
    const SIZE size = WindowSize(window, client, false, dpi);
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    SetWindowPos(window, HWND_TOPMOST, area.left + (area.right - area.left - size.cx) / 2,
                 area.top + (area.bottom - area.top - size.cy) / 2, size.cx, size.cy,
                 SWP_NOACTIVATE);
}

void AddPanel(HWND window, const ProductTexts& texts) {
    AddProductPanel(window, texts);
    const UINT dpi = DpiOf(window);
    const SIZE panel = ScaleProductPanel(window, *PanelOf(window), dpi);
    const int margin = Scaled(kMargin, dpi);
    const LONG width = std::max<LONG>(Scaled(kLeastWidth, dpi), panel.cx + 2 * margin);
    PlaceProductPanel(window, {margin, margin, width - margin, margin + panel.cy}, dpi);
    Centre(window, {width, panel.cy + 2 * margin}, dpi);
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

void ShowSplash(const std::wstring& title, const ProgramVersion& version) {
    UnloadSplash();
    RegisterSplashClass();
    const HWND window =
        CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kSplashClass, title.c_str(),
                        WS_POPUP | WS_BORDER, 0, 0, 0, 0, nullptr, nullptr,
                        GetModuleHandleW(nullptr), std::make_unique<ProductPanel>().release());
    if (window == nullptr) return;
    AddPanel(window, {title, L"Version " + VersionText(version, shell.debugMode), version});
    ShowWindow(window, SW_SHOWNOACTIVATE);
    UpdateWindow(window);
}

void UnloadSplash() {
    const HWND window = OwnWindow(kSplashClass);
    if (window != nullptr) DestroyWindow(window);
}

}  // namespace corvane
