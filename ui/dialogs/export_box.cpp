#include "ui/dialogs/export_box.h"

#include "report/reporters.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/exchange_box.h"
#include "ui/dialogs/list_controls.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kGap = 8;
constexpr int kLabelGap = 3;
constexpr int kFieldPadding = 8;
constexpr SIZE kSectionsSize{270, 370};
constexpr int kIndent = 18;  // what belongs to an option, below it

constexpr int kReplace = OP_CreateNew;
constexpr int kCreateNew = OP_CreateNew + 1;

// A name in a legacy database has room for so many characters.
constexpr int kLongestName = 40;

struct ExportBox {
    ExportChoice& choice;
    ExchangeBox files;
};

ExportBox& BoxOf(void* contents) {
    return *static_cast<ExportBox*>(contents);
}

bool IsCreateNew(HWND window) {
    return IsDlgButtonChecked(window, kCreateNew) == BST_CHECKED;
}

// The option that is set has its own control; several sections can only become new ones, with
// their own names.
void FollowOptions(HWND window, const ExportBox& box) {
    const bool createNew = IsCreateNew(window);
    const bool isOne = box.choice.sections == 1;
    EnableWindow(GetDlgItem(window, kReplace), isOne);
    for (const int id : {int{LB_Name}, int{TX_Name}}) {
        EnableWindow(GetDlgItem(window, id), createNew && isOne);
    }
    for (const int id : {int{LB_Sections}, int{LI_Sections}}) {
        EnableWindow(GetDlgItem(window, id), !createNew);
    }
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
    box.files.onItems = [window, &box] { FollowOptions(window, box); };
    AddFileLists(window, box.files.lists);
    AddOptions(window);
    AddControl(window, {LB_Name, WC_STATICW, L"&Name:", WS_VISIBLE | SS_LEFT | WS_GROUP});
    const std::wstring text = box.choice.sections == 1
                                  ? box.choice.name
                                  : FormatMessage(kMsgSectionsKeepNames, {box.choice.sections});
    const HWND name =
        AddControl(window, {TX_Name, WC_EDITW, text,
                            WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | ES_LEFT, WS_EX_CLIENTEDGE});
    SendMessageW(name, EM_SETLIMITTEXT, kLongestName, 0);
    AddSectionsList(window, L"&Sections:");
    AddOkAndCancel(window);
    FollowOptions(window, box);
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
    RECT area;
    const SIZE size = PlaceExchangeBox(window, BoxOf(contents).files, kSectionsSize, dpi, area);
    PlaceSections(window, area, dpi);
    return size;
}

void Notify(HWND window, void* contents, const Notification& notification) {
    const int control = notification.control;
    if (control == kReplace || control == kCreateNew) return FollowOptions(window, BoxOf(contents));
    OnExchangeFiles(window, BoxOf(contents).files, notification);
}

bool Accept(HWND window, void* contents) {
    ExportBox& box = BoxOf(contents);
    const bool createNew = IsCreateNew(window);
    const auto [path, selected] = AcceptExchange(window, box.files, !createNew);
    if (path.empty()) return false;
    box.choice = {path, createNew,
                  createNew ? int16_t{0} : static_cast<int16_t>(selected[0].number),
                  WindowText(GetDlgItem(window, TX_Name)), box.choice.sections};
    return true;
}

void Draw(void* contents, const DRAWITEMSTRUCT& item) {
    DrawFolderItem(BoxOf(contents).files.lists.folders, item);
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
    ExportBox box{choice, {}};
    box.files.lists.pattern = L"*.vel";
    return RunDialog(kExportBox, L"Export to Velk Dos", &box);
}

}  // namespace corvane
