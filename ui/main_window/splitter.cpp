#include "ui/main_window/splitter.h"

#include <algorithm>

#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"

namespace corvane {
namespace {

// A step of an arrow key [pixels at 96 dots per inch].
constexpr int kStep = 16;
// The grip: how many dots, and how large one is [pixels at 96 dots per inch].
constexpr int kDots = 5;
constexpr int kDot = 2;

// The left edge in the parent's client area.
int LeftOf(HWND splitter) {
    POINT corner{};
    MapWindowPoints(splitter, GetParent(splitter), &corner, 1);
    return corner.x;
}

void MoveTo(HWND splitter, int left) {
    SendMessageW(GetParent(splitter), kSplitterMoved, static_cast<WPARAM>(left), 0);
}

void Reset(HWND splitter) {
    SendMessageW(GetParent(splitter), kSplitterReset, 0, 0);
}

int MouseX(LPARAM place) {
    return static_cast<short>(LOWORD(place));
}

void BeginDrag(HWND splitter, int x) {
    // Where on the bar the mouse holds it.
    SetWindowLongPtrW(splitter, GWLP_USERDATA, x);
    SetCapture(splitter);
}

void Drag(HWND splitter, int x) {
    if (GetCapture() != splitter) return;
    const auto held = static_cast<int>(GetWindowLongPtrW(splitter, GWLP_USERDATA));
    if (x != held) MoveTo(splitter, LeftOf(splitter) + x - held);
}

void OnKey(HWND splitter, WPARAM key) {
    const int step = Scaled(kStep, DpiOf(splitter));
    if (key == VK_LEFT) MoveTo(splitter, LeftOf(splitter) - step);
    if (key == VK_RIGHT) MoveTo(splitter, LeftOf(splitter) + step);
    if (key == VK_HOME) Reset(splitter);
}

// A column of dots in the middle.
void DrawGrip(HDC dc, const RECT& client, UINT dpi) {
    const int dot = std::max(Scaled(kDot, dpi), 2);
    const int step = 3 * dot;
    const int left = (client.right - dot) / 2;
    int top = (client.bottom - (kDots - 1) * step - dot) / 2;
    for (int i = 0; i < kDots; ++i) {
        const RECT place{left, top, left + dot, top + dot};
        FillRect(dc, &place, GetSysColorBrush(COLOR_BTNSHADOW));
        top += step;
    }
}

void OnPaint(HWND splitter) {
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(splitter, &paint);
    RECT client{};
    GetClientRect(splitter, &client);
    FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
    DrawGrip(dc, client, DpiOf(splitter));
    if (GetFocus() == splitter) DrawFocusRect(dc, &client);
    EndPaint(splitter, &paint);
}

LRESULT CALLBACK SplitterProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
            BeginDrag(window, MouseX(lParam));
            return 0;
        case WM_LBUTTONDBLCLK:
            Reset(window);
            return 0;
        case WM_MOUSEMOVE:
            Drag(window, MouseX(lParam));
            return 0;
        case WM_LBUTTONUP:
            if (GetCapture() == window) ReleaseCapture();
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        case WM_KEYDOWN:
            OnKey(window, wParam);
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            InvalidateRect(window, nullptr, FALSE);
            return 0;
        case WM_PAINT:
            OnPaint(window);
            return 0;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

}  // namespace

HWND CreateSplitter(HWND parent, int id, const wchar_t* name) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = SplitterProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_SIZEWE);
    windowClass.lpszClassName = kSplitterClass;
    RegisterClassExW(&windowClass);
    return CreateWindowExW(0, kSplitterClass, name, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0,
                           parent, reinterpret_cast<HMENU>(INT_PTR{id}), windowClass.hInstance,
                           nullptr);
}

}  // namespace corvane
