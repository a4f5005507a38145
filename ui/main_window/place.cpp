#include "ui/main_window/place.h"

#include <algorithm>
#include <vector>

#include "shell/state.h"
#include "ui/base/dpi.h"
#include "ui/main_window/main_window_state.h"

namespace corvane {
namespace {

MONITORINFO MonitorOf(HMONITOR monitor) {
    MONITORINFO info{};
    info.cbSize = sizeof(info);
    GetMonitorInfoW(monitor, &info);
    return info;
}

MONITORINFO MonitorOf(HWND window) {
    return MonitorOf(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST));
}

BOOL CALLBACK AddScreen(HMONITOR monitor, HDC, RECT*, LPARAM parameter) {
    auto& screens = *reinterpret_cast<std::vector<ScreenArea>*>(parameter);
    const MONITORINFO info = MonitorOf(monitor);
    const RECT& work = info.rcWork;
    const bool isMain = (info.dwFlags & MONITORINFOF_PRIMARY) != 0;
    screens.insert(isMain ? screens.begin() : screens.end(),
                   ScreenArea{work.left, work.top, work.right, work.bottom});
    return TRUE;
}

void MoveOntoScreens(HWND window, const ScreenArea& area) {
    std::vector<ScreenArea> screens;
    EnumDisplayMonitors(nullptr, nullptr, AddScreen, reinterpret_cast<LPARAM>(&screens));
    const ScreenArea fitted = FitToScreens(area, screens);
    SetWindowPos(window, nullptr, fitted.left, fitted.top, fitted.Width(), fitted.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// In the middle of the screen that the window is on, and held to it.
void ApplyFirstSize(HWND window) {
    const UINT dpi = DpiOf(window);
    const SIZE client{Scaled(kFirstClientSize.cx, dpi), Scaled(kFirstClientSize.cy, dpi)};
    const SIZE size = WindowSize(window, client, true, dpi);
    const RECT area = MonitorOf(window).rcWork;
    const LONG width = std::min(size.cx, area.right - area.left);
    const LONG height = std::min(size.cy, area.bottom - area.top);
    SetWindowPos(window, nullptr, area.left + (area.right - area.left - width) / 2,
                 area.top + (area.bottom - area.top - height) / 2, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void ApplyPlace(HWND window) {
    const WindowPlace& place = shell.windowPlace;
    if (!place.isKnown) return ApplyFirstSize(window);
    MoveOntoScreens(window, place.area);
    const auto dpi = static_cast<int>(DpiOf(window));
    if (dpi == place.dpi) return;
    // The screen has another resolution than the one that the window was on.
    ScreenArea area = place.area;
    area.right = area.left + MulDiv(place.area.Width(), dpi, place.dpi);
    area.bottom = area.top + MulDiv(place.area.Height(), dpi, place.dpi);
    MoveOntoScreens(window, area);
}

void NotePlace(HWND window, WindowPlace& place) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof(placement);
    if (!GetWindowPlacement(window, &placement)) return;
    // The system counts from the corner beside the task bar.
    const MONITORINFO monitor = MonitorOf(window);
    RECT area = placement.rcNormalPosition;
    OffsetRect(&area, monitor.rcWork.left - monitor.rcMonitor.left,
               monitor.rcWork.top - monitor.rcMonitor.top);
    const MainWindowState& state = *StateOfMainWindow(window);
    place.isKnown = true;
    place.area = {area.left, area.top, area.right, area.bottom};
    place.dpi = static_cast<int>(state.layout.dpi);
    place.isMaximised = IsZoomed(window) ||
                        (IsIconic(window) != 0 && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
    place.listShare = state.layout.listShare;
    place.isPreviewOn = IsDlgButtonChecked(window, OP_Preview) == BST_CHECKED;
}

void NoteScreen(HWND window, Screen& screen) {
    const RECT area = MonitorOf(window).rcMonitor;
    screen = {static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top),
              static_cast<int>(DpiOf(window))};
}

}  // namespace corvane
