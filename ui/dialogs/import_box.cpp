#include "ui/dialogs/import_box.h"

#include <utility>

#include "shell/commands/commands.h"
#include "shell/file_prompt.h"
#include "shell/preview_pane.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/exchange_box.h"
#include "ui/dialogs/list_controls.h"
#include "ui/pictures/section_picture.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kGap = 8;
constexpr int kLabelGap = 3;
constexpr SIZE kSectionsSize{340, 430};
constexpr int kListRows = 10;

// The box while it is open.
struct ImportBox {
    ImportChoice& choice;
    const std::wstring& sectionsTag;
    ExchangeBox files;
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
    return index >= 0 && place < box.files.items.size() ? &box.files.items[place] : nullptr;
}

void OnListClick(HWND window, ImportBox& box) {
    if (shell.suppressListEvents) return;
    const HWND picture = GetDlgItem(window, PIC_Section);
    const ExchangeItem* current = CurrentItem(window, box);
    const bool isOn = IsDlgButtonChecked(window, OP_Preview) == BST_CHECKED;
    box.isShown = isOn && current != nullptr &&
                  ReadForExchange(box.files.path, *current, box.section, box.bsd);
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

// The first item is selected.
void OnItems(HWND window, ImportBox& box) {
    const HWND list = GetDlgItem(window, LI_Sections);
    if (!box.files.items.empty()) {
        SendMessageW(list, LB_SETSEL, TRUE, 0);
        SendMessageW(list, LB_SETCARETINDEX, 0, FALSE);
    }
    OnListClick(window, box);
}

void OnBrowse(HWND window, ExchangeBox& files) {
    const std::wstring path = AskForFile({.command = ME_SectionImport,
                                          .types = BrowseTypes(files.lists.pattern),
                                          .proposed = L"",
                                          .directory = files.lists.folder});
    if (path.empty()) return;
    ShowFile(window, files.lists, path);
    ListChosenFile(window, files);
}

void AddControls(HWND window, void* contents) {
    ImportBox& box = BoxOf(contents);
    box.files.onItems = [window, &box] { OnItems(window, box); };
    AddFileLists(window, box.files.lists);
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddSectionsList(window, L"Model&s:", LBS_EXTENDEDSEL);
    AddControl(window, {OP_Preview, WC_BUTTONW, L"&Preview", button | BS_AUTOCHECKBOX});
    CheckDlgButton(window, OP_Preview, BST_CHECKED);
    PictureContents picture;
    picture.draw = [&box](Picture& drawn) {
        if (box.isShown) DrawSection(box.section, box.bsd, drawn);
    };
    picture.section = [&box] { return box.isShown ? &box.section : nullptr; };
    picture.typeface = L"Arial";
    CreateSectionPicture(window, std::move(picture));
    AddControl(window,
               {LB_Service, WC_STATICW, L"", WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS});
    // In the row of OK and Cancel.
    AddControl(window, {BT_Browse, WC_BUTTONW, L"&Browse...", button | BS_PUSHBUTTON | WS_GROUP});
    AddOkAndCancel(window);
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
    RECT area;
    const SIZE size = PlaceExchangeBox(window, BoxOf(contents).files, kSectionsSize, dpi, area);
    PlaceSections(window, area, dpi);
    const SIZE browse = ButtonSize(window, BT_Browse, dpi);
    const LONG margin = size.cx - area.right;
    const LONG bottom = size.cy - margin;
    PlaceControl(window, BT_Browse, {margin, bottom - browse.cy, margin + browse.cx, bottom});
    return size;
}

// Later, when the list is through with the message.
void PostOk(HWND window) {
    PostMessageW(window, WM_COMMAND, BT_Ok, 0);
}

void Notify(HWND window, void* contents, const Notification& notification) {
    ImportBox& box = BoxOf(contents);
    const auto [control, code] = notification;
    if (control == BT_Browse && code == BN_CLICKED) return OnBrowse(window, box.files);
    if (control == OP_Preview && code == BN_CLICKED) return OnListClick(window, box);
    if (control == LI_Sections && code == LBN_SELCHANGE) return OnListClick(window, box);
    if (control == LI_Sections && code == LBN_DBLCLK) return PostOk(window);
    if (OnExchangeFiles(window, box.files, notification)) PostOk(window);
}

bool Accept(HWND window, void* contents) {
    ImportBox& box = BoxOf(contents);
    auto [path, selected] =
        AcceptExchange(window, box.files, box.sectionsTag != kTagWithoutSections);
    if (path.empty()) return false;
    box.choice = {path, std::move(selected)};
    return true;
}

void Draw(void* contents, const DRAWITEMSTRUCT& item) {
    DrawFolderItem(BoxOf(contents).files.lists.folders, item);
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
    ImportBox box{choice, sectionsTag, {}, false, {}, {}};
    box.files.lists.pattern = L"*.vel;*.vew;*.ve2";
    return RunDialog(kImportBox, L"DOS Velk Sections", &box);
}

}  // namespace corvane
