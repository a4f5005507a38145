#include "ui/pictures/picture_table.h"

#include <string>

#include "report/messages.h"
#include "text/text.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/pictures/section_picture.h"

namespace corvane {
namespace {

// Where the values begin, in quarters of an average character.
constexpr UINT kValueColumn = 70;

}  // namespace

void CreatePictureTable(HWND window) {
    CreateWindowExW(0, WC_STATICW, GetMessage(kMsgMarkedPlace).c_str(),
                    WS_CHILD | SS_LEFT | SS_NOPREFIX, 0, 0, 0, 0, window,
                    reinterpret_cast<HMENU>(INT_PTR{LB_Facts}), nullptr, nullptr);
    const HWND field = CreateWindowExW(
        WS_EX_CLIENTEDGE, WC_EDITW, L"",
        WS_CHILD | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, 0, 0, 0,
        0, window, reinterpret_cast<HMENU>(INT_PTR{TX_Facts}), nullptr, nullptr);
    SendMessageW(field, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&kValueColumn));
}

bool ShowPictureTable(HWND window) {
    const std::wstring facts = PictureFacts(GetDlgItem(window, PIC_Section));
    SetDlgItemTextW(window, TX_Facts, WithLineFeeds(facts).c_str());
    const bool isShown = !facts.empty();
    if (isShown == IsPictureTableShown(window)) return false;
    for (const int id : {LB_Facts, TX_Facts}) {
        ShowWindow(GetDlgItem(window, id), isShown ? SW_SHOWNA : SW_HIDE);
    }
    return true;
}

bool IsPictureTableShown(HWND window) {
    return (GetWindowLongPtrW(GetDlgItem(window, TX_Facts), GWL_STYLE) & WS_VISIBLE) != 0;
}

}  // namespace corvane
