#include "ui/dialogs/export_box.h"

#include <utility>

#include "files/paths.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/file_prompt.h"
#include "shell/model_exchange.h"
#include "shell/open_database.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/exchange_box.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kGap = 8;
constexpr int kLabelGap = 3;
constexpr int kFieldPadding = 8;
constexpr int kIndent = 18;  // what belongs to an option, below it

constexpr int kListRows = 6;

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

// What would be replaced, or else what is exported.
void FollowSelection(HWND window, ExportBox& box) {
    ExchangeBox& files = box.files;
    const LRESULT selected = SendDlgItemMessageW(window, LI_Sections, LB_GETCURSEL, 0, 0);
    const auto item = static_cast<size_t>(selected);
    if (!IsPreviewOn(window)) {
        EmptyPreview(files.preview);
    } else if (!IsCreateNew(window) && selected >= 0 && item < files.items.size()) {
        PreviewReplaced(files.preview, {files.path, files.items}, item);
    } else {
        PreviewExported(files.preview, box.choice);
    }
    files.preview.note = box.choice.room;
    ShowPreview(window, files);
}

void Follow(HWND window, ExportBox& box) {
    FollowOptions(window, box);
    FollowSelection(window, box);
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
    box.files.onItems = [window, &box] { Follow(window, box); };
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
    AddPreview(window, box.files);
    AddBrowse(window);
    AddControl(window, {BT_NewLegacy, WC_BUTTONW, L"New &DOS database...",
                        WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON});
    AddOkAndCancel(window);
    Follow(window, box);
}

// The label beside its field; `area` becomes what is left below them.
void PlaceName(HWND window, UINT dpi, RECT& area) {
    const SIZE label = ControlTextSize(window, LB_Name);
    const int padding = Scaled(kFieldPadding, dpi);
    const LONG labelTop = area.top + padding / 2;
    const LONG labelRight = area.left + label.cx;
    PlaceControl(window, LB_Name, {area.left, labelTop, labelRight, labelTop + label.cy});
    RECT field{labelRight + Scaled(kGap, dpi), area.top, area.right, area.bottom};
    PlaceOnTop(window, TX_Name, label.cy + padding, field);
    area.top = field.top;
}

// The options, each with its control below it, and the preview.
void PlaceSections(HWND window, ExchangeBox& files, UINT dpi, RECT area) {
    const LONG optionHeight = ControlTextSize(window, LB_Name).cy + Scaled(kLabelGap, dpi);
    const int indent = Scaled(kIndent, dpi);
    const int gap = Scaled(kGap, dpi);
    PlaceOnTop(window, kCreateNew, optionHeight, area);
    area.left += indent;
    area.top += Scaled(kLabelGap, dpi);
    PlaceName(window, dpi, area);
    area.left -= indent;
    area.top += gap;
    PlaceOnTop(window, kReplace, optionHeight, area);
    area.left += indent;
    area.top += Scaled(kLabelGap, dpi);
    PlaceSectionsList(window, kListRows, dpi, area);
    area.left -= indent;
    area.top += gap;
    PlacePreview(window, files, dpi, area);
}

SIZE Place(HWND window, void* contents, UINT dpi) {
    RECT area;
    ExchangeBox& files = BoxOf(contents).files;
    const SIZE size = PlaceExchangeBox(window, files, dpi, area);
    const LONG margin = size.cx - area.right;
    PlaceSections(window, files, dpi, area);
    // In the row of the other buttons, after Browse.
    const SIZE button = ButtonSize(window, BT_NewLegacy, dpi);
    const LONG left = margin + ButtonSize(window, BT_Browse, dpi).cx + Scaled(kGap, dpi);
    const LONG bottom = size.cy - margin;
    PlaceControl(window, BT_NewLegacy, {left, bottom - button.cy, left + button.cx, bottom});
    return size;
}

// Makes an empty database, which is then the chosen one.
void OnNewDatabase(HWND window, ExchangeBox& files) {
    const std::wstring path = AskForFile({.command = ME_SectionExport,
                                          .types = GetMessage(kMsgLegacyFiles),
                                          .defaultExtension = L"vel",
                                          .proposed = L"",
                                          .directory = files.lists.folder,
                                          .toSave = true});
    if (path.empty() || !RequireOtherFile(path) || !MakeLegacyDatabase(path)) return;
    // The folder's files are listed again, with the new one.
    ShowFolder(window, files.lists, DirectoryOf(path));
    ChooseFile(window, files, path);
}

void Notify(HWND window, void* contents, const Notification& notification) {
    ExportBox& box = BoxOf(contents);
    const auto [control, code] = notification;
    if (control == kReplace || control == kCreateNew) return Follow(window, box);
    if (control == OP_Preview && code == BN_CLICKED) return FollowSelection(window, box);
    if (control == LI_Sections && code == LBN_SELCHANGE) return FollowSelection(window, box);
    if (control == BT_Browse && code == BN_CLICKED) {
        return BrowseForFile(window, box.files, ME_SectionExport);
    }
    if (control == BT_NewLegacy && code == BN_CLICKED) return OnNewDatabase(window, box.files);
    if (control == LI_Sections && code == LBN_DBLCLK) return PostOk(window);
    if (OnExchangeFiles(window, box.files, notification)) PostOk(window);
}

bool Accept(HWND window, void* contents) {
    ExportBox& box = BoxOf(contents);
    const bool createNew = IsCreateNew(window);
    const auto [path, selected] = AcceptExchange(window, box.files, !createNew);
    if (path.empty()) return false;
    box.choice = {path,
                  createNew,
                  createNew ? int16_t{0} : static_cast<int16_t>(selected[0].number),
                  WindowText(GetDlgItem(window, TX_Name)),
                  box.choice.sections,
                  std::move(box.choice.section),
                  std::move(box.choice.room)};
    return true;
}

bool OnKey(HWND window, void* contents, const MSG& message) {
    return OnPictureKey(window, BoxOf(contents).files, message);
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
                                           .key = OnKey,
                                           .draw = Draw};
    ExportBox box{choice, {}};
    box.files.lists.pattern = L"*.vel";
    return RunDialog(kExportBox, L"Export to Velk Dos", &box);
}

}  // namespace corvane
