#include "ui/base/dpi.h"

namespace corvane {
namespace {

// A function of user32 that older Windows lacks; null there.
template <class Signature>
Signature* User32Function(const char* name) {
    const HMODULE library = GetModuleHandleW(L"user32.dll");
    if (library == nullptr) return nullptr;
    return AsFunction<Signature>(GetProcAddress(library, name));
}

UINT SystemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? static_cast<UINT>(dpi) : USER_DEFAULT_SCREEN_DPI;
}

bool ReadMessageFont(LOGFONTW& font, UINT dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    using ForDpi = BOOL WINAPI(UINT, UINT, PVOID, UINT, UINT);
    if (const auto forDpi = User32Function<ForDpi>("SystemParametersInfoForDpi")) {
        if (!forDpi(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0, dpi)) return false;
        font = metrics.lfMessageFont;
        return true;
    }
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0)) return false;
    font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, static_cast<int>(dpi), static_cast<int>(SystemDpi()));
    return true;
}

}  // namespace

UINT DpiOf(HWND window) {
    using ForWindow = UINT WINAPI(HWND);
    const auto forWindow = User32Function<ForWindow>("GetDpiForWindow");
    const UINT dpi = forWindow != nullptr && window != nullptr ? forWindow(window) : 0;
    return dpi != 0 ? dpi : SystemDpi();
}

int Scaled(int length, UINT dpi) {
    return MulDiv(length, static_cast<int>(dpi), USER_DEFAULT_SCREEN_DPI);
}

int SystemMetric(int index, UINT dpi) {
    using ForDpi = int WINAPI(int, UINT);
    if (const auto forDpi = User32Function<ForDpi>("GetSystemMetricsForDpi")) {
        return forDpi(index, dpi);
    }
    return MulDiv(GetSystemMetrics(index), static_cast<int>(dpi), static_cast<int>(SystemDpi()));
}

HFONT CreateMessageFont(UINT dpi, int scalePercent, LONG weight) {
    LOGFONTW font{};
    if (!ReadMessageFont(font, dpi)) {
        font.lfHeight = -Scaled(12, dpi);
        lstrcpynW(font.lfFaceName, L"Segoe UI", LF_FACESIZE);
    }
    font.lfHeight = MulDiv(font.lfHeight, scalePercent, 100);
    if (weight != FW_NORMAL) font.lfWeight = weight;
    return CreateFontIndirectW(&font);
}

SIZE TextSize(HWND window, HFONT font, const std::wstring& text) {
    SIZE size{};
    const HDC dc = GetDC(window);
    const HGDIOBJ old = SelectObject(dc, font);
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, old);
    ReleaseDC(window, dc);
    return size;
}

int TextHeight(HWND window, HFONT font, const std::wstring& text, int width) {
    const HDC dc = GetDC(window);
    const HGDIOBJ before = SelectObject(dc, font);
    RECT area{0, 0, width, 0};
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area,
              DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(dc, before);
    ReleaseDC(window, dc);
    return area.bottom;
}

std::wstring WindowText(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(length));
    return text;
}

void ScaleDialogOurselves(HWND dialog) {
    constexpr int kDisableAll = 1;
    using SetBehaviour = BOOL WINAPI(HWND, int, int);
    const auto set = User32Function<SetBehaviour>("SetDialogDpiChangeBehavior");
    if (set != nullptr) set(dialog, kDisableAll, kDisableAll);
}

SIZE WindowSize(HWND window, SIZE client, bool hasMenu, UINT dpi) {
    RECT outer{0, 0, client.cx, client.cy};
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
    const auto exStyle = static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
    using ForDpi = BOOL WINAPI(LPRECT, DWORD, BOOL, DWORD, UINT);
    if (const auto forDpi = User32Function<ForDpi>("AdjustWindowRectExForDpi")) {
        forDpi(&outer, style, hasMenu, exStyle, dpi);
    } else {
        AdjustWindowRectEx(&outer, style, hasMenu, exStyle);
    }
    return {outer.right - outer.left, outer.bottom - outer.top};
}

}  // namespace corvane
