#include "ui/dialogs/pictures_box.h"

#include <string>
#include <vector>

#include "report/messages.h"
#include "shell/commands/commands.h"
#include "shell/picture_file.h"
#include "text/text.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/folder_prompt.h"
#include "ui/dialogs/list_controls.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kClientWidth = 480;
constexpr int kMargin = 11;
constexpr int kGap = 9;
constexpr int kLabelGap = 3;
constexpr int kKindWidth = 280;

PicturesChoice& ChoiceOf(void* contents) {
    return *static_cast<PicturesChoice*>(contents);
}

void AddControls(HWND window, void* contents) {
    const PicturesChoice& choice = ChoiceOf(contents);
    AddControl(window,
               {LB_Pictures, WC_STATICW, FormatMessage(kMsgPicturesAsked, {int32_t{choice.count}}),
                WS_VISIBLE | SS_LEFT | SS_NOPREFIX});
    AddControl(window, {LB_PictureFolder, WC_STATICW, L"&Folder:", WS_VISIBLE | SS_LEFT});
    AddControl(window, {TX_PictureFolder, WC_EDITW, choice.folder,
                        WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE});
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddControl(window, {BT_PictureFolder, WC_BUTTONW, L"&Browse...", button | BS_PUSHBUTTON});
    AddControl(window, {LB_PictureKind, WC_STATICW, L"&Kind of file:", WS_VISIBLE | SS_LEFT});
    const HWND kinds =
        AddControl(window, {CB_PictureKind, WC_COMBOBOXW, L"", button | kDropDownStyle});
    std::vector<std::wstring> names;
    for (const PictureKind& kind : PictureKinds()) names.push_back(kind.name);
    FillDropDown(kinds, names, choice.kind);
    AddControl(window, {IDOK, WC_BUTTONW, L"OK", button | BS_DEFPUSHBUTTON});
    AddControl(window, {IDCANCEL, WC_BUTTONW, L"Cancel", button | BS_PUSHBUTTON});
}

// The field with its button at the right.
void PlaceFolder(HWND window, RECT& area, UINT dpi) {
    const SIZE button = ButtonSize(window, BT_PictureFolder, dpi);
    RECT row{area.left, area.top, area.right - button.cx - Scaled(kGap, dpi), area.top + button.cy};
    PlaceControl(window, TX_PictureFolder, row);
    row.left = area.right - button.cx;
    row.right = area.right;
    PlaceControl(window, BT_PictureFolder, row);
    area.top = row.bottom;
}

SIZE Place(HWND window, void*, UINT dpi) {
    const int margin = Scaled(kMargin, dpi);
    const int gap = Scaled(kGap, dpi);
    const int labelGap = Scaled(kLabelGap, dpi);
    const int width = Scaled(kClientWidth, dpi);
    const LONG line = ControlTextSize(window, IDOK).cy;
    RECT area{margin, margin, width - margin, margin};
    PlaceOnTop(window, LB_Pictures, HeightForText(window, LB_Pictures, area.right - area.left),
               area);
    area.top += gap;
    PlaceOnTop(window, LB_PictureFolder, line, area);
    area.top += labelGap;
    PlaceFolder(window, area, dpi);
    area.top += gap;
    PlaceOnTop(window, LB_PictureKind, line, area);
    area.top += labelGap;
    RECT kinds{area.left, area.top, area.left + Scaled(kKindWidth, dpi), area.top};
    PlaceDropDown(window, CB_PictureKind, kinds, dpi);
    area.top = kinds.top + 2 * gap;
    area.bottom = area.top + ButtonSize(window, IDOK, dpi).cy;
    PlaceButtons(window, {IDOK, IDCANCEL}, area, dpi);
    return {width, area.bottom + margin};
}

bool Accept(HWND window, void* contents) {
    PicturesChoice& choice = ChoiceOf(contents);
    const HWND field = GetDlgItem(window, TX_PictureFolder);
    choice.folder = Trim(WindowText(field));
    choice.kind = ChoiceOfDropDown(GetDlgItem(window, CB_PictureKind));
    if (RequirePictureFolder(choice)) return true;
    SetFocus(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
    return false;
}

void Notify(HWND window, void*, const Notification& notification) {
    if (notification.control != BT_PictureFolder || notification.code != BN_CLICKED) return;
    const HWND field = GetDlgItem(window, TX_PictureFolder);
    std::wstring folder = WindowText(field);
    const std::wstring title = MenuCaptionText(FindCommand(ME_FileExportAllPictures)->caption);
    if (AskFolder(title, folder)) SetWindowTextW(field, folder.c_str());
}

}  // namespace

bool AskPictures(PicturesChoice& choice) {
    static constexpr DialogKind kPicturesBox{.className = kPicturesBoxClass,
                                             .firstFocus = TX_PictureFolder,
                                             .addControls = AddControls,
                                             .place = Place,
                                             .accept = Accept,
                                             .notify = Notify};
    return RunDialog(kPicturesBox, MenuCaptionText(FindCommand(ME_FileExportAllPictures)->caption),
                     &choice);
}

}  // namespace corvane
