#include "ui/dialogs/exchange_box.h"

#include <utility>

#include "report/reporters.h"
#include "shell/open_database.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/list_controls.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kMargin = 11;
constexpr int kFilesWidth = 250;

HWND ListOf(HWND window) {
    return GetDlgItem(window, LI_Sections);
}

void ListNothing(HWND window, ExchangeBox& box) {
    box.path.clear();
    box.items.clear();
    FillList(ListOf(window), {});
    box.onItems();
}

std::vector<ExchangeItem> SelectedItems(HWND window, const ExchangeBox& box) {
    std::vector<ExchangeItem> selected;
    for (size_t i = 0; i < box.items.size(); ++i) {
        if (SendMessageW(ListOf(window), LB_GETSEL, i, 0) > 0) selected.push_back(box.items[i]);
    }
    return selected;
}

}  // namespace

void AddSectionsList(HWND window, const wchar_t* label, DWORD style) {
    AddControl(window, {LB_Sections, WC_STATICW, label, WS_VISIBLE | SS_LEFT});
    AddControl(window, {LI_Sections, WC_LISTBOXW, L"",
                        style | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY |
                            LBS_NOINTEGRALHEIGHT,
                        WS_EX_CLIENTEDGE});
}

void AddOkAndCancel(HWND window) {
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddControl(window, {BT_Ok, WC_BUTTONW, L"OK", button | BS_DEFPUSHBUTTON | WS_GROUP});
    AddControl(window, {BT_Cancel, WC_BUTTONW, L"&Cancel", button | BS_PUSHBUTTON});
}

SIZE PlaceExchangeBox(HWND window, ExchangeBox& box, SIZE sectionsSize, UINT dpi, RECT& sections) {
    const int margin = Scaled(kMargin, dpi);
    const RECT files{margin, margin, margin + Scaled(kFilesWidth, dpi),
                     margin + Scaled(sectionsSize.cy, dpi)};
    PlaceFileLists(window, box.lists, files, dpi);
    const LONG left = files.right + margin;
    sections = {left, files.top, left + Scaled(sectionsSize.cx, dpi), files.bottom};
    RECT withButtons = sections;
    withButtons.bottom += margin + ButtonSize(window, BT_Ok, dpi).cy;
    PlaceButtons(window, {BT_Ok, BT_Cancel}, withButtons, dpi);
    return {withButtons.right + margin, withButtons.bottom + margin};
}

void ListChosenFile(HWND window, ExchangeBox& box) {
    SetBusyPointer();
    const HWND list = ListOf(window);
    FillList(list, {});
    box.path = ChosenFile(window, box.lists);
    ExchangeList contents = ListOfFile(box.path);
    box.items = std::move(contents.items);
    std::vector<std::wstring> texts;
    texts.reserve(box.items.size());
    for (const ExchangeItem& item : box.items) texts.push_back(item.text);
    if (!contents.hint.empty()) texts = {contents.hint};
    EnableWindow(list, contents.hint.empty());
    FillList(list, texts);
    FitScrolling(list);
    ResetMousePointer();
    box.onItems();
}

bool OnExchangeFiles(HWND window, ExchangeBox& box, const Notification& notification) {
    const FileListsEvent event = OnFileLists(window, box.lists, notification);
    if (event == FileListsEvent::kFileClick) ListChosenFile(window, box);
    if (event == FileListsEvent::kOtherFolder) ListNothing(window, box);
    return event == FileListsEvent::kFileDoubleClick;
}

Accepted AcceptExchange(HWND window, ExchangeBox& box, bool needsSelection) {
    const EnterKey enter = OnEnterKey(window, box.lists);
    if (enter == EnterKey::kOpenedFolder) ListNothing(window, box);
    if (enter != EnterKey::kAccepts) return {};
    const std::wstring path = ChosenFile(window, box.lists);
    if (!RequireChosenFile(path) || !RequireOtherFile(path)) return {};
    std::vector<ExchangeItem> selected = SelectedItems(window, box);
    if (needsSelection && !RequireSelection(!selected.empty())) return {};
    return {path, std::move(selected)};
}

}  // namespace corvane
