#include "ui/dialogs/export_box.h"

#include <algorithm>

#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/exchange_list.h"
#include "ui/dialogs/file_lists.h"
#include "ui/dialogs/list_controls.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kMargin = 11;
constexpr int kGap = 8;
constexpr int kLabelGap = 3;
constexpr int kFieldPadding = 8;
constexpr int kPlaceWidth = 250;
constexpr int kSectionsWidth = 270;
constexpr int kHeight = 370;
constexpr int kIndent = 18;  // what belongs to an option, below it

constexpr int kReplace = OP_CreateNew;
constexpr int kCreateNew = OP_CreateNew + 1;

// A name in a legacy database has room for so many characters.
constexpr int kLongestName = 40;

struct ExportBox {
    ExportChoice& choice;
    FileLists lists;
    std::vector<ExchangeItem> items;  // of the chosen file
};

ExportBox& BoxOf(void* contents) {
    return *static_cast<ExportBox*>(contents);
}

bool IsCreateNew(HWND window) {
    return IsDlgButtonChecked(window, kCreateNew) == BST_CHECKED;
}

// The option that is set has its own control.
void FollowOptions(HWND window) {
    const bool createNew = IsCreateNew(window);
    for (const int id : {int{LB_Name}, int{TX_Name}}) {
        EnableWindow(GetDlgItem(window, id), createNew);
    }
    for (const int id : {int{LB_Sections}, int{LI_Sections}}) {
        EnableWindow(GetDlgItem(window, id), !createNew);
    }
}

void ShowSections(HWND window, ExportBox& box) {
    const HWND list = GetDlgItem(window, LI_Sections);
    box.items = FillExchangeList(list, ChosenFile(window, box.lists));
    FollowOptions(window);
}

void ShowNoSections(HWND window, ExportBox& box) {
    box.items.clear();
    FillList(GetDlgItem(window, LI_Sections), {});
}

void AddOptions(HWND window) {
    const DWORD option = WS_VISIBLE | BS_AUTORADIOBUTTON;
    AddControl(window, {kCreateNew, WC_BUTTONW, L"Create a new section in database",
                        option | WS_GROUP | WS_TABSTOP});
    AddControl(window, {kReplace, WC_BUTTONW, L"Replace an existing section :", option});
    CheckRadioButton(window, kReplace, kCreateNew, kCreateNew);
}

void AddControls(HWND window, void* contents) {
    ExportBox& box = BoxOf(contents);
    AddFileLists(window, box.lists);
    AddOptions(window);
    AddControl(window, {LB_Name, WC_STATICW, L"&Name:", WS_VISIBLE | SS_LEFT | WS_GROUP});
    const HWND name =
        AddControl(window, {TX_Name, WC_EDITW, box.choice.name,
                            WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | ES_LEFT, WS_EX_CLIENTEDGE});
    SendMessageW(name, EM_SETLIMITTEXT, kLongestName, 0);
    AddControl(window, {LB_Sections, WC_STATICW, L"&Sections:", WS_VISIBLE | SS_LEFT});
    AddControl(window, {LI_Sections, WC_LISTBOXW, L"",
                        WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY |
                            LBS_NOINTEGRALHEIGHT,
                        WS_EX_CLIENTEDGE});
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddControl(window, {BT_Ok, WC_BUTTONW, L"OK", button | BS_DEFPUSHBUTTON | WS_GROUP});
    AddControl(window, {BT_Cancel, WC_BUTTONW, L"&Cancel", button | BS_PUSHBUTTON});
    FollowOptions(window);
}

// The options, each with its control below it, over the whole height of the area.
void PlaceSections(HWND window, RECT area, UINT dpi) {
    const LONG line = ControlTextSize(window, LB_Name).cy;
    const LONG optionHeight = line + Scaled(kLabelGap, dpi);
    const int indent = Scaled(kIndent, dpi);
    PlaceOnTop(window, kCreateNew, optionHeight, area);
    area.left += indent;
    area.top += Scaled(kLabelGap, dpi);
    PlaceOnTop(window, LB_Name, line, area);
    area.top += Scaled(kLabelGap, dpi);
    PlaceOnTop(window, TX_Name, line + Scaled(kFieldPadding, dpi), area);
    area.left -= indent;
    area.top += 2 * Scaled(kGap, dpi);
    PlaceOnTop(window, kReplace, optionHeight, area);
    area.left += indent;
    area.top += Scaled(kLabelGap, dpi);
    PlaceOnTop(window, LB_Sections, line, area);
    area.top += Scaled(kLabelGap, dpi);
    PlaceControl(window, LI_Sections, area);
    FitScrolling(GetDlgItem(window, LI_Sections));
}

SIZE Place(HWND window, void* contents, UINT dpi) {
    const int margin = Scaled(kMargin, dpi);
    const RECT place{margin, margin, margin + Scaled(kPlaceWidth, dpi),
                     margin + Scaled(kHeight, dpi)};
    PlaceFileLists(window, BoxOf(contents).lists, place, dpi);
    const LONG left = place.right + margin;
    RECT area{left, place.top, left + Scaled(kSectionsWidth, dpi), place.bottom};
    PlaceSections(window, area, dpi);
    area.bottom += margin + ButtonSize(window, BT_Ok, dpi).cy;
    PlaceButtons(window, {BT_Ok, BT_Cancel}, area, dpi);
    return {area.right + margin, area.bottom + margin};
}

void Notify(HWND window, void* contents, const Notification& notification) {
    ExportBox& box = BoxOf(contents);
    const int control = notification.control;
    if (control == kReplace || control == kCreateNew) return FollowOptions(window);
    switch (OnFileLists(window, box.lists, notification)) {
        case FileListsEvent::kFileClick:
            return ShowSections(window, box);
        case FileListsEvent::kOtherFolder:
            return ShowNoSections(window, box);
        case FileListsEvent::kFileDoubleClick:
        case FileListsEvent::kNone:
            return;
    }
}

bool Accept(HWND window, void* contents) {
    ExportBox& box = BoxOf(contents);
    const EnterKey enter = OnEnterKey(window, box.lists);
    if (enter == EnterKey::kOpenedFolder) ShowNoSections(window, box);
    if (enter != EnterKey::kAccepts) return false;
    const std::wstring path = ChosenFile(window, box.lists);
    if (!RequireChosenFile(path)) return false;
    const bool createNew = IsCreateNew(window);
    const auto selected = SelectedItems(GetDlgItem(window, LI_Sections), box.items);
    if (!createNew && !RequireSelection(!selected.empty())) return false;
    box.choice = {path, createNew,
                  createNew ? int16_t{0} : static_cast<int16_t>(selected[0].number),
                  WindowText(GetDlgItem(window, TX_Name))};
    return true;
}

void Draw(void* contents, const DRAWITEMSTRUCT& item) {
    DrawFolderItem(BoxOf(contents).lists.folders, item);
}

}  // namespace

bool AskExport(ExportChoice& choice) {
    static constexpr DialogKind kExportBox{.className = kExportBoxClass,
                                           .firstFocus = FIL_Db,
                                           .addControls = AddControls,
                                           .place = Place,
                                           .accept = Accept,
                                           .colour = nullptr,
                                           .notify = Notify,
                                           .draw = Draw};
    ExportBox box{choice, {}, {}};
    box.lists.pattern = L"*.vel";
    return RunDialog(kExportBox, L"Export to Velk Dos", &box);
}

}  // namespace corvane
