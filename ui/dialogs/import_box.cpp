#include "ui/dialogs/import_box.h"

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/file_prompt.h"
#include "shell/preview_pane.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/exchange_list.h"
#include "ui/dialogs/file_lists.h"
#include "ui/dialogs/list_controls.h"
#include "ui/pictures/section_picture.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kMargin = 11;
constexpr int kGap = 8;
constexpr int kLabelGap = 3;
constexpr int kPlaceWidth = 250;
constexpr int kSectionsWidth = 340;
constexpr int kHeight = 430;
constexpr int kListRows = 10;

// The box while it is open.
struct ImportBox {
    ImportChoice& choice;
    const std::wstring& sectionsTag;
    FileLists lists;
    std::wstring path;                // of the file whose items are listed
    std::vector<ExchangeItem> items;  // of the list
    // The preview.
    bool isShown = false;
    SectionModel section;
    BasicShipData bsd;
};

ImportBox& BoxOf(void* contents) {
    return *static_cast<ImportBox*>(contents);
}

// The item that was clicked last; null without one.
const ExchangeItem* CurrentItem(HWND window, const ImportBox& box) {
    const LRESULT index = SendDlgItemMessageW(window, LI_Sections, LB_GETCARETINDEX, 0, 0);
    const auto place = static_cast<size_t>(index);
    return index >= 0 && place < box.items.size() ? &box.items[place] : nullptr;
}

void OnListClick(HWND window, ImportBox& box) {
    if (shell.suppressListEvents) return;
    const HWND picture = GetDlgItem(window, PIC_Section);
    const ExchangeItem* current = CurrentItem(window, box);
    const bool isOn = IsDlgButtonChecked(window, OP_Preview) == BST_CHECKED;
    box.isShown =
        isOn && current != nullptr && ReadForExchange(box.path, *current, box.section, box.bsd);
    std::wstring why;
    if (box.isShown) {
        why = WhyNoPicture(box.section, box.bsd);
    } else if (isOn && current != nullptr && current->kind != ModelKind::kSection) {
        why = WhyNoPicture(current->kind);
    }
    // A section that cannot be drawn must not leave the one before it in the picture.
    ClearSectionPicture(picture, why);
    if (box.isShown && why.empty()) RedrawSectionPicture(picture);
    SetDlgItemTextW(window, LB_Service, box.isShown ? ServiceText(box.bsd).c_str() : L"");
}

// The file that is chosen becomes the one whose items are listed, the first one selected.
void OnFileClick(HWND window, ImportBox& box) {
    SetBusyPointer();
    const HWND list = GetDlgItem(window, LI_Sections);
    box.path = ChosenFile(window, box.lists);
    box.items = FillExchangeList(list, box.path);
    if (!box.items.empty()) {
        SendMessageW(list, LB_SETSEL, TRUE, 0);
        SendMessageW(list, LB_SETCARETINDEX, 0, FALSE);
    }
    ResetMousePointer();
    OnListClick(window, box);
}

void OnOtherFolder(HWND window, ImportBox& box) {
    box.items.clear();
    FillList(GetDlgItem(window, LI_Sections), {});
    OnListClick(window, box);
}

void OnBrowse(HWND window, ImportBox& box) {
    const std::wstring path = AskForFile({.command = ME_SectionImport,
                                          .types = BrowseTypes(box.lists.pattern),
                                          .proposed = L"",
                                          .directory = box.lists.folder});
    if (path.empty()) return;
    ShowFile(window, box.lists, path);
    OnFileClick(window, box);
}

void AddControls(HWND window, void* contents) {
    ImportBox& box = BoxOf(contents);
    AddFileLists(window, box.lists);
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddControl(window, {BT_Browse, WC_BUTTONW, L"&Browse...", button | BS_PUSHBUTTON | WS_GROUP});
    AddControl(window, {LB_Sections, WC_STATICW, L"&Sections:", WS_VISIBLE | SS_LEFT});
    AddControl(window, {LI_Sections, WC_LISTBOXW, L"",
                        WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY |
                            LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT,
                        WS_EX_CLIENTEDGE});
    AddControl(window, {OP_Preview, WC_BUTTONW, L"&Preview", button | BS_AUTOCHECKBOX});
    CheckDlgButton(window, OP_Preview, BST_CHECKED);
    CreateSectionPicture(window, {[&box](Picture& picture) {
                                      if (box.isShown) DrawSection(box.section, box.bsd, picture);
                                  },
                                  L"Arial"});
    AddControl(window,
               {LB_Service, WC_STATICW, L"", WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS});
    AddControl(window, {BT_Ok, WC_BUTTONW, L"OK", button | BS_DEFPUSHBUTTON | WS_GROUP});
    AddControl(window, {BT_Cancel, WC_BUTTONW, L"&Cancel", button | BS_PUSHBUTTON});
}

void PlaceSections(HWND window, RECT area, UINT dpi) {
    const LONG line = ControlTextSize(window, LB_Sections).cy;
    const int labelGap = Scaled(kLabelGap, dpi);
    const int gap = Scaled(kGap, dpi);
    PlaceOnTop(window, LB_Sections, line, area);
    area.top += labelGap;
    const HWND list = GetDlgItem(window, LI_Sections);
    const auto rowHeight = static_cast<LONG>(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0));
    PlaceOnTop(window, LI_Sections, kListRows * rowHeight + 2 * SystemMetric(SM_CYEDGE, dpi), area);
    FitScrolling(list);
    area.top += gap;
    PlaceOnTop(window, OP_Preview, line + labelGap, area);
    area.top += labelGap;
    PlaceControl(window, LB_Service, {area.left, area.bottom - line, area.right, area.bottom});
    area.bottom -= line + labelGap;
    PlaceControl(window, PIC_Section, area);
}

SIZE Place(HWND window, void* contents, UINT dpi) {
    const int margin = Scaled(kMargin, dpi);
    const RECT place{margin, margin, margin + Scaled(kPlaceWidth, dpi),
                     margin + Scaled(kHeight, dpi)};
    PlaceFileLists(window, BoxOf(contents).lists, place, dpi);
    const LONG left = place.right + margin;
    RECT area{left, place.top, left + Scaled(kSectionsWidth, dpi), place.bottom};
    PlaceSections(window, area, dpi);
    const SIZE browse = ButtonSize(window, BT_Browse, dpi);
    area.bottom += margin + ButtonSize(window, BT_Ok, dpi).cy;
    PlaceControl(window, BT_Browse,
                 {place.left, area.bottom - browse.cy, place.left + browse.cx, area.bottom});
    PlaceButtons(window, {BT_Ok, BT_Cancel}, area, dpi);
    return {area.right + margin, area.bottom + margin};
}

// Later, when the list is through with the message.
void PostOk(HWND window) {
    PostMessageW(window, WM_COMMAND, BT_Ok, 0);
}

void OnFileListsEvent(HWND window, ImportBox& box, FileListsEvent event) {
    switch (event) {
        case FileListsEvent::kFileClick:
            return OnFileClick(window, box);
        case FileListsEvent::kOtherFolder:
            return OnOtherFolder(window, box);
        case FileListsEvent::kFileDoubleClick:
            return PostOk(window);
        case FileListsEvent::kNone:
            return;
    }
}

void Notify(HWND window, void* contents, const Notification& notification) {
    ImportBox& box = BoxOf(contents);
    const auto [control, code] = notification;
    if (control == BT_Browse && code == BN_CLICKED) return OnBrowse(window, box);
    if (control == OP_Preview && code == BN_CLICKED) return OnListClick(window, box);
    if (control == LI_Sections && code == LBN_SELCHANGE) return OnListClick(window, box);
    if (control == LI_Sections && code == LBN_DBLCLK) return PostOk(window);
    OnFileListsEvent(window, box, OnFileLists(window, box.lists, notification));
}

bool Accept(HWND window, void* contents) {
    ImportBox& box = BoxOf(contents);
    const EnterKey enter = OnEnterKey(window, box.lists);
    if (enter == EnterKey::kOpenedFolder) OnOtherFolder(window, box);
    if (enter != EnterKey::kAccepts) return false;
    std::vector<ExchangeItem> selected = SelectedItems(GetDlgItem(window, LI_Sections), box.items);
    const bool needsSelection = box.sectionsTag != kTagWithoutSections;
    if (needsSelection && !RequireSelection(!selected.empty())) return false;
    const std::wstring path = ChosenFile(window, box.lists);
    if (!RequireChosenFile(path)) return false;
    box.choice = {path, std::move(selected)};
    return true;
}

void Draw(void* contents, const DRAWITEMSTRUCT& item) {
    DrawFolderItem(BoxOf(contents).lists.folders, item);
}

}  // namespace

bool AskImport(ImportChoice& choice, const std::wstring& sectionsTag) {
    static constexpr DialogKind kImportBox{.className = kImportBoxClass,
                                           .firstFocus = FIL_Db,
                                           .addControls = AddControls,
                                           .place = Place,
                                           .accept = Accept,
                                           .colour = nullptr,
                                           .notify = Notify,
                                           .draw = Draw};
    ImportBox box{choice, sectionsTag, {}, {}, {}, false, {}, {}};
    box.lists.pattern = L"*.vel;*.vew;*.ve2";
    return RunDialog(kImportBox, L"DOS Velk Sections", &box);
}

}  // namespace corvane
