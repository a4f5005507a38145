#include "ui/dialogs/exchange_box.h"

#include <utility>

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/file_prompt.h"
#include "shell/open_database.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/list_controls.h"
#include "ui/pictures/picture_commands.h"
#include "ui/pictures/picture_table.h"
#include "ui/pictures/section_picture.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kMargin = 11;
constexpr int kGap = 8;
constexpr int kLabelGap = 3;
constexpr int kFilesWidth = 250;
constexpr SIZE kSectionsSize{390, 422};
constexpr int kTableWidth = 205;
constexpr int kNoteLines = 3;  // of LB_Notes

HWND ListOf(HWND window) {
    return GetDlgItem(window, LI_Sections);
}

void ListNothing(HWND window, ExchangeBox& box) {
    box.path.clear();
    box.items.clear();
    box.ship.clear();
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

// ---- Preview -----------------------------------------------------------------------------------

// The table of the places that the user clicked on is beside the picture while there are any.
void PlacePicture(HWND window, const ExchangeBox& box) {
    RECT area = box.picture;
    if (IsPictureTableShown(window)) {
        const UINT dpi = box.dpi;
        RECT table = area;
        table.left = area.right - Scaled(kTableWidth, dpi);
        area.right = table.left - Scaled(kGap, dpi);
        PlaceOnTop(window, LB_Facts, ControlTextSize(window, LB_Facts).cy, table);
        table.top += Scaled(kLabelGap, dpi);
        PlaceControl(window, TX_Facts, table);
    }
    PlaceControl(window, PIC_Section, area);
}

void CreatePreviewPicture(HWND window, ExchangeBox& box) {
    PictureContents contents;
    contents.draw = [&box](Picture& drawn) { DrawExchangePreview(box.preview, drawn); };
    contents.pane = &box.preview.pane;
    contents.onMarked = [window, &box] {
        if (ShowPictureTable(window)) PlacePicture(window, box);
    };
    contents.typeface = L"Arial";
    CreateSectionPicture(window, std::move(contents));
}

}  // namespace

void AddSectionsList(HWND window, const wchar_t* label, DWORD style) {
    AddControl(window, {LB_Sections, WC_STATICW, label, WS_VISIBLE | SS_LEFT});
    AddControl(window, {LI_Sections, WC_LISTBOXW, L"",
                        style | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY |
                            LBS_NOINTEGRALHEIGHT,
                        WS_EX_CLIENTEDGE});
}

void AddPreview(HWND window, ExchangeBox& box) {
    box.preview = NewExchangePreview();
    AddControl(window, {OP_Preview, WC_BUTTONW, L"&Preview",
                        WS_VISIBLE | WS_TABSTOP | WS_GROUP | BS_AUTOCHECKBOX});
    CheckDlgButton(window, OP_Preview, BST_CHECKED);
    CreatePreviewPicture(window, box);
    CreatePictureTable(window);
    AddControl(window,
               {LB_Service, WC_STATICW, L"", WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS});
    AddControl(window, {LB_Notes, WC_STATICW, L"", WS_VISIBLE | SS_LEFT | SS_NOPREFIX});
}

void AddBrowse(HWND window) {
    AddControl(window, {BT_Browse, WC_BUTTONW, L"&Browse...",
                        WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON | WS_GROUP});
}

void AddOkAndCancel(HWND window) {
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddControl(window, {BT_Ok, WC_BUTTONW, L"OK", button | BS_DEFPUSHBUTTON | WS_GROUP});
    AddControl(window, {BT_Cancel, WC_BUTTONW, L"&Cancel", button | BS_PUSHBUTTON});
}

SIZE PlaceExchangeBox(HWND window, ExchangeBox& box, UINT dpi, RECT& sections) {
    const int margin = Scaled(kMargin, dpi);
    const RECT files{margin, margin, margin + Scaled(kFilesWidth, dpi),
                     margin + Scaled(kSectionsSize.cy, dpi)};
    PlaceFileLists(window, box.lists, files, dpi);
    const LONG left = files.right + margin;
    sections = {left, files.top, left + Scaled(kSectionsSize.cx, dpi), files.bottom};
    RECT withButtons = sections;
    withButtons.bottom += margin + ButtonSize(window, BT_Ok, dpi).cy;
    PlaceButtons(window, {BT_Ok, BT_Cancel}, withButtons, dpi);
    const SIZE browse = ButtonSize(window, BT_Browse, dpi);
    const LONG bottom = withButtons.bottom;
    PlaceControl(window, BT_Browse, {margin, bottom - browse.cy, margin + browse.cx, bottom});
    return {withButtons.right + margin, withButtons.bottom + margin};
}

void PlaceSectionsList(HWND window, int rows, UINT dpi, RECT& area) {
    PlaceOnTop(window, LB_Sections, ControlTextSize(window, LB_Sections).cy, area);
    area.top += Scaled(kLabelGap, dpi);
    const auto rowHeight = static_cast<LONG>(SendMessageW(ListOf(window), LB_GETITEMHEIGHT, 0, 0));
    PlaceOnTop(window, LI_Sections, rows * rowHeight + 2 * SystemMetric(SM_CYEDGE, dpi), area);
    FitScrolling(ListOf(window));
}

void PlacePreview(HWND window, ExchangeBox& box, UINT dpi, RECT area) {
    const LONG line = ControlTextSize(window, LB_Sections).cy;
    const int labelGap = Scaled(kLabelGap, dpi);
    PlaceOnTop(window, OP_Preview, line + labelGap, area);
    area.top += labelGap;
    const LONG notes = kNoteLines * line;
    PlaceControl(window, LB_Notes, {area.left, area.bottom - notes, area.right, area.bottom});
    area.bottom -= notes + labelGap;
    PlaceControl(window, LB_Service, {area.left, area.bottom - line, area.right, area.bottom});
    area.bottom -= line + labelGap;
    box.picture = area;
    box.dpi = dpi;
    PlacePicture(window, box);
}

bool IsPreviewOn(HWND window) {
    return IsDlgButtonChecked(window, OP_Preview) == BST_CHECKED;
}

void ShowPreview(HWND window, const ExchangeBox& box) {
    const HWND picture = GetDlgItem(window, PIC_Section);
    // A model that cannot be drawn must not leave the one before it in the picture.
    ClearSectionPicture(picture, box.preview.why);
    if (HasPicture(box.preview.pane)) RedrawSectionPicture(picture);
    SetDlgItemTextW(window, LB_Service, box.preview.label.c_str());
    const bool hasBoth = !box.preview.note.empty() && !box.ship.empty();
    const std::wstring notes = box.preview.note + (hasBoth ? L"\r\n" : L"") + box.ship;
    SetDlgItemTextW(window, LB_Notes, notes.c_str());
}

bool OnPictureKey(HWND window, ExchangeBox& box, const MSG& message) {
    const uint16_t command = CommandOfKey(message);
    if (command != ME_ViewNextBulkhead) {
        return RunPictureCommand(GetDlgItem(window, PIC_Section), command);
    }
    if (PreviewNextBulkhead(box.preview)) ShowPreview(window, box);
    return true;
}

void ChooseFile(HWND window, ExchangeBox& box, const std::wstring& path) {
    ShowFile(window, box.lists, path);
    ListChosenFile(window, box);
}

void BrowseForFile(HWND window, ExchangeBox& box, uint16_t command) {
    const std::wstring path = AskForFile({.command = command,
                                          .types = BrowseTypes(box.lists.pattern),
                                          .proposed = L"",
                                          .directory = box.lists.folder});
    if (!path.empty()) ChooseFile(window, box, path);
}

void ListChosenFile(HWND window, ExchangeBox& box) {
    SetBusyPointer();
    const HWND list = ListOf(window);
    FillList(list, {});
    box.path = ChosenFile(window, box.lists);
    ExchangeList contents = ListOfFile(box.path);
    box.items = std::move(contents.items);
    box.ship = std::move(contents.ship);
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

void PostOk(HWND window) {
    PostMessageW(window, WM_COMMAND, BT_Ok, 0);
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
