#include "ui/main_window/tool_tips.h"

#include "ui/base/dpi.h"

namespace corvane {

HWND CreateToolTips(HWND parent) {
    return CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                           WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, parent, nullptr,
                           nullptr, nullptr);
}

void AddToolTip(HWND toolTips, HWND control) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = GetParent(control);
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    SendMessageW(toolTips, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(toolTips, TTM_SETMAXTIPWIDTH, 0, 600);
}

void FillToolTip(NMTTDISPINFOW& request, std::wstring& text) {
    const auto control = reinterpret_cast<HWND>(request.hdr.idFrom);
    text = WindowText(control);
    RECT client{};
    GetClientRect(control, &client);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    if (TextSize(control, font, text).cx <= client.right) text.clear();
    request.lpszText = text.data();
}

}  // namespace corvane
