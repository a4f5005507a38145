#include "ui/dialogs/properties_box.h"

#include <algorithm>

#include "report/messages.h"
#include "text/text.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kFieldWidth = 480;
constexpr int kMargin = 11;
constexpr int kGap = 7;
constexpr int kFieldPadding = 12;
// Where the values begin, in quarters of an average character.
constexpr UINT kValueColumn = 90;

void AddControls(HWND window, void* contents) {
    AddControl(window, {LB_Properties, WC_STATICW, GetMessage(kMsgPropertiesLabel),
                        WS_VISIBLE | SS_LEFT | SS_NOPREFIX});
    const HWND field = AddControl(
        window, {TX_Properties, WC_EDITW, L"",
                 WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                 WS_EX_CLIENTEDGE});
    SendMessageW(field, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&kValueColumn));
    SetWindowTextW(field, WithLineFeeds(*static_cast<const std::wstring*>(contents)).c_str());
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddControl(window, {BT_CopyAll, WC_BUTTONW, L"C&opy all", button | BS_PUSHBUTTON});
    AddControl(window, {IDCANCEL, WC_BUTTONW, L"Close", button | BS_DEFPUSHBUTTON});
}

SIZE Place(HWND window, void*, UINT dpi) {
    const int margin = Scaled(kMargin, dpi);
    const int gap = Scaled(kGap, dpi);
    const LONG line = ControlTextSize(window, LB_Properties).cy;
    RECT area{margin, margin, margin + Scaled(kFieldWidth, dpi), margin};
    PlaceOnTop(window, LB_Properties, line, area);
    area.top += gap / 2;
    // The lines that the field has at this width.
    const LONG top = area.top;
    PlaceOnTop(window, TX_Properties, line, area);
    const auto lines =
        static_cast<LONG>(SendDlgItemMessageW(window, TX_Properties, EM_GETLINECOUNT, 0, 0));
    constexpr LONG kMostLines = 24;
    ShowScrollBar(GetDlgItem(window, TX_Properties), SB_VERT, lines > kMostLines ? TRUE : FALSE);
    area.top = top;
    PlaceOnTop(window, TX_Properties,
               std::min(lines, kMostLines) * line + Scaled(kFieldPadding, dpi), area);
    area.bottom = area.top + gap + ButtonSize(window, IDCANCEL, dpi).cy;
    PlaceButtons(window, {BT_CopyAll, IDCANCEL}, area, dpi);
    return {area.right + margin, area.bottom + margin};
}

void Notify(HWND window, void*, const Notification& notification) {
    if (notification.control != BT_CopyAll || notification.code != BN_CLICKED) return;
    SendDlgItemMessageW(window, TX_Properties, EM_SETSEL, 0, -1);
    SendDlgItemMessageW(window, TX_Properties, WM_COPY, 0, 0);
}

}  // namespace

void ShowProperties(const std::wstring& caption, const std::wstring& text) {
    static constexpr DialogKind kPropertiesBox{.className = kPropertiesBoxClass,
                                               .firstFocus = IDCANCEL,
                                               .addControls = AddControls,
                                               .place = Place,
                                               .notify = Notify};
    std::wstring shown = text;
    RunDialog(kPropertiesBox, caption, &shown);
}

}  // namespace corvane
