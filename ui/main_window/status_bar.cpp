#include "ui/main_window/status_bar.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"

namespace corvane {
namespace {

// Distances in pixels at 96 dots per inch: around the text of a part, above and below it, and the
// room of the grip.
constexpr int kPadding = 10;
constexpr int kTextPadding = 5;
constexpr int kGripWidth = 18;
constexpr int kMargin = 11;

// The parts after the message's.
constexpr int kPartCount = 3;

std::wstring PartText(HWND bar, int part) {
    std::wstring text(LOWORD(SendMessageW(bar, SB_GETTEXTLENGTHW, static_cast<WPARAM>(part), 0)),
                      L'\0');
    SendMessageW(bar, SB_GETTEXTW, static_cast<WPARAM>(part),
                 reinterpret_cast<LPARAM>(text.data()));
    return text;
}

// Each part is as wide as its text.
void DivideBar(HWND bar, UINT dpi) {
    RECT client{};
    GetClientRect(bar, &client);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(bar, WM_GETFONT, 0, 0));
    int right = client.right - Scaled(kGripWidth, dpi);
    int edges[kPartCount + 1];
    for (int part = kPartCount; part > 0; --part) {
        edges[part] = part == kPartCount ? -1 : right;
        const std::wstring text = PartText(bar, part);
        if (!text.empty()) right -= TextSize(bar, font, text).cx + 2 * Scaled(kPadding, dpi);
    }
    edges[0] = std::max(right, 0);
    SendMessageW(bar, SB_SETPARTS, std::size(edges), reinterpret_cast<LPARAM>(edges));
}

void PlaceMessage(HWND window, HWND bar, int textHeight, UINT dpi) {
    RECT area{};
    SendMessageW(bar, SB_GETRECT, 0, reinterpret_cast<LPARAM>(&area));
    MapWindowPoints(bar, window, reinterpret_cast<POINT*>(&area), 2);
    const int left = Scaled(kMargin, dpi);
    const int width = std::max<int>(area.right - left - Scaled(kPadding, dpi) / 2, 0);
    const int top = area.top + (area.bottom - area.top - textHeight) / 2;
    SetWindowPos(GetDlgItem(window, PAN_Help), nullptr, left, top, width, textHeight,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

}  // namespace

void CreateStatusBar(HWND window) {
    CreateWindowExW(0, STATUSCLASSNAMEW, L"",
                    WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SBARS_SIZEGRIP, 0, 0, 0, 0, window,
                    reinterpret_cast<HMENU>(INT_PTR{SB_Status}), nullptr, nullptr);
}

void ShowStatusParts(HWND window, const StatusParts& parts) {
    const HWND bar = GetDlgItem(window, SB_Status);
    int part = 0;
    for (const std::wstring& text : {parts.models, parts.file, parts.ruleSet}) {
        SendMessageW(bar, SB_SETTEXTW, static_cast<WPARAM>(++part),
                     reinterpret_cast<LPARAM>(text.c_str()));
    }
    const UINT dpi = DpiOf(window);
    DivideBar(bar, dpi);
    RECT label{};
    GetClientRect(GetDlgItem(window, PAN_Help), &label);
    PlaceMessage(window, bar, static_cast<int>(label.bottom), dpi);
}

int PlaceStatusBar(HWND window, int textHeight, UINT dpi) {
    const HWND bar = GetDlgItem(window, SB_Status);
    const int height = textHeight + 2 * Scaled(kTextPadding, dpi);
    SendMessageW(bar, SB_SETMINHEIGHT, static_cast<WPARAM>(height), 0);
    SendMessageW(bar, WM_SIZE, 0, 0);
    DivideBar(bar, dpi);
    PlaceMessage(window, bar, textHeight, dpi);
    RECT place{};
    GetWindowRect(bar, &place);
    return static_cast<int>(place.bottom - place.top);
}

}  // namespace corvane
