#include "ui/dialogs/import_box.h"

#include <utility>

#include "shell/commands/commands.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/exchange_box.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kGap = 8;

constexpr int kListRows = 9;

// The box while it is open.
struct ImportBox {
    ImportChoice& choice;
    const std::wstring& sectionsTag;
    ExchangeBox files;
};

ImportBox& BoxOf(void* contents) {
    return *static_cast<ImportBox*>(contents);
}

// Shows the item that was clicked last.
void OnListClick(HWND window, ImportBox& box) {
    if (shell.suppressListEvents) return;
    const LRESULT caret = SendDlgItemMessageW(window, LI_Sections, LB_GETCARETINDEX, 0, 0);
    const auto item = static_cast<size_t>(caret);
    ExchangeBox& files = box.files;
    if (IsPreviewOn(window) && caret >= 0 && item < files.items.size()) {
        PreviewItem(files.preview, {files.path, files.items}, item);
    } else {
        EmptyPreview(files.preview);
    }
    ShowPreview(window, files);
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

void AddControls(HWND window, void* contents) {
    ImportBox& box = BoxOf(contents);
    box.files.onItems = [window, &box] { OnItems(window, box); };
    AddFileLists(window, box.files.lists);
    AddSectionsList(window, L"Model&s:", LBS_EXTENDEDSEL);
    AddPreview(window, box.files);
    AddBrowse(window);
    AddOkAndCancel(window);
}

SIZE Place(HWND window, void* contents, UINT dpi) {
    RECT area;
    ExchangeBox& files = BoxOf(contents).files;
    const SIZE size = PlaceExchangeBox(window, files, dpi, area);
    PlaceSectionsList(window, kListRows, dpi, area);
    area.top += Scaled(kGap, dpi);
    PlacePreview(window, files, dpi, area);
    return size;
}

void Notify(HWND window, void* contents, const Notification& notification) {
    ImportBox& box = BoxOf(contents);
    const auto [control, code] = notification;
    if (control == BT_Browse && code == BN_CLICKED) {
        return BrowseForFile(window, box.files, ME_SectionImport);
    }
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

bool OnKey(HWND window, void* contents, const MSG& message) {
    return OnPictureKey(window, BoxOf(contents).files, message);
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
                                           .key = OnKey,
                                           .draw = Draw};
    ImportBox box{choice, sectionsTag, {}};
    box.files.lists.pattern = L"*.vel;*.vew;*.ve2";
    return RunDialog(kImportBox, L"DOS Velk Sections", &box);
}

}  // namespace corvane
