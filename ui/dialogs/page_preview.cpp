#include "ui/dialogs/page_preview.h"

#include <algorithm>
#include <string>

#include "report/messages.h"
#include "shell/page_preview.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/list_controls.h"
#include "ui/dialogs/print_dialog.h"
#include "ui/pictures/page_picture.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr SIZE kPictureSize{540, 420};
constexpr int kChoicesWidth = 190;
constexpr int kMargin = 11;
constexpr int kGap = 9;
constexpr int kLabelGap = 3;
constexpr int kOptionGap = 5;
constexpr int kFramePadding = 9;
constexpr int kAroundPaper = 12;

constexpr int kLandscape = OP_Paper;
constexpr int kPortrait = OP_Paper + 1;

struct PreviewBox {
    PagePreview preview;
    PrinterChoice printer;
    PagePicture picture;

    explicit PreviewBox(const PrintJob& job) : preview{.job = job} {
        TakeDefaultPrinter(printer);
        preview.paperFor = [this](bool isPortrait) { return TurnPaper(printer, isPortrait); };
        TakePaper(preview);
    }
    bool HasSeveralPages() const { return preview.job.pageCount > 1; }
};

PreviewBox& BoxOf(void* contents) {
    return *static_cast<PreviewBox*>(contents);
}

// ---- What it shows -----------------------------------------------------------------------------

// A button that cannot be pressed any more gives the focus to the other one.
void EnableTurning(HWND window, int button, int other, bool isEnabled) {
    const bool hadFocus = GetFocus() == GetDlgItem(window, button);
    EnableWindow(GetDlgItem(window, button), isEnabled);
    if (!hadFocus || isEnabled) return;
    SendMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(window, other)), TRUE);
}

void ShowPreview(HWND window, PreviewBox& box) {
    const PagePreview& preview = box.preview;
    box.picture.Forget();
    SetDlgItemTextW(window, LB_ScaleNow, PageScaleText(preview).c_str());
    SetDlgItemTextW(window, LB_PageRemark, PageRemark(preview).c_str());
    SetDlgItemTextW(window, IM_Page, PageText(preview).c_str());
    InvalidateRect(GetDlgItem(window, IM_Page), nullptr, FALSE);
    if (!box.HasSeveralPages()) return;
    SetDlgItemTextW(window, LB_PageNumber, PageText(preview).c_str());
    // First what can be pressed now: the focus may go there.
    const bool hasAfter = HasPageAfter(preview);
    if (hasAfter) EnableTurning(window, BT_NextPage, BT_PreviousPage, true);
    EnableTurning(window, BT_PreviousPage, BT_NextPage, HasPageBefore(preview));
    if (!hasAfter) EnableTurning(window, BT_NextPage, BT_PreviousPage, false);
}

void Draw(void* contents, const DRAWITEMSTRUCT& item) {
    PreviewBox& box = BoxOf(contents);
    const int around = Scaled(kAroundPaper, DpiOf(item.hwndItem));
    box.picture.Draw(item.hDC, item.rcItem, around, box.preview.shown.figure);
}

// ---- Its controls ------------------------------------------------------------------------------

// Page Up and Page Down turn the pages wherever the focus is, but for a list that is open.
LRESULT CALLBACK KeysProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam,
                               UINT_PTR id, DWORD_PTR) {
    const bool turns = message == WM_KEYDOWN && (wParam == VK_PRIOR || wParam == VK_NEXT);
    if (turns && SendMessageW(control, CB_GETDROPPEDSTATE, 0, 0) == FALSE) {
        const WORD button = wParam == VK_PRIOR ? BT_PreviousPage : BT_NextPage;
        SendMessageW(GetParent(control), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
        return 0;
    }
    if (message == WM_NCDESTROY) RemoveWindowSubclass(control, KeysProcedure, id);
    return DefSubclassProc(control, message, wParam, lParam);
}

void AddChoices(HWND window, const PreviewBox& box) {
    const DWORD option = WS_VISIBLE | BS_AUTORADIOBUTTON;
    AddControl(window, {LB_PageScale, WC_STATICW, L"&Scale:", WS_VISIBLE | SS_LEFT});
    const HWND scales = AddControl(
        window, {CB_PageScale, WC_COMBOBOXW, L"", WS_VISIBLE | WS_TABSTOP | kDropDownStyle});
    FillDropDown(scales, ScaleChoices(), ScaleChoiceNow());
    AddControl(window, {LB_ScaleNow, WC_STATICW, L"", WS_VISIBLE | SS_LEFT | SS_NOPREFIX});
    AddControl(window, {GR_Paper, WC_BUTTONW, L"Paper", WS_VISIBLE | BS_GROUPBOX | WS_GROUP,
                        WS_EX_TRANSPARENT});
    AddControl(window, {kLandscape, WC_BUTTONW, L"&Landscape", option | WS_GROUP | WS_TABSTOP});
    AddControl(window, {kPortrait, WC_BUTTONW, L"P&ortrait", option});
    CheckRadioButton(window, kLandscape, kPortrait,
                     shell.pages.isPortrait ? kPortrait : kLandscape);
    if (box.preview.job.hasMarks) {
        AddControl(window, {OP_PageTable, WC_BUTTONW, L"&Table of what is marked",
                            WS_VISIBLE | WS_TABSTOP | WS_GROUP | BS_AUTOCHECKBOX});
        CheckDlgButton(window, OP_PageTable,
                       shell.preview.options.hasTable ? BST_CHECKED : BST_UNCHECKED);
    }
    AddControl(window,
               {LB_PageRemark, WC_STATICW, L"", WS_VISIBLE | WS_GROUP | SS_LEFT | SS_NOPREFIX});
}

void AddControls(HWND window, void* contents) {
    PreviewBox& box = BoxOf(contents);
    AddChoices(window, box);
    AddControl(window, {IM_Page, WC_STATICW, L"", WS_VISIBLE | SS_OWNERDRAW});
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    if (box.HasSeveralPages()) {
        AddControl(window, {BT_PreviousPage, WC_BUTTONW, L"&Previous", button | BS_PUSHBUTTON});
        AddControl(window, {LB_PageNumber, WC_STATICW, L"", WS_VISIBLE | SS_CENTER | SS_NOPREFIX});
        AddControl(window, {BT_NextPage, WC_BUTTONW, L"&Next", button | BS_PUSHBUTTON});
    }
    AddControl(window, {IDOK, WC_BUTTONW, L"P&rint...", button | BS_DEFPUSHBUTTON});
    AddControl(window, {IDCANCEL, WC_BUTTONW, L"Close", button | BS_PUSHBUTTON});
    ShowPreview(window, box);
    if (!box.HasSeveralPages()) return;
    for (const int id : {int{CB_PageScale}, kLandscape, kPortrait, int{BT_PreviousPage},
                         int{BT_NextPage}, IDOK, IDCANCEL}) {
        SetWindowSubclass(GetDlgItem(window, id), KeysProcedure, 1, 0);
    }
}

void PlacePaper(HWND window, RECT& area, LONG line, UINT dpi) {
    const int padding = Scaled(kFramePadding, dpi);
    const int gap = Scaled(kOptionGap, dpi);
    const LONG option = line + Scaled(kLabelGap, dpi);
    RECT frame = area;
    frame.bottom = frame.top + line + 2 * option + 2 * gap + padding;
    PlaceControl(window, GR_Paper, frame);
    RECT inner{frame.left + padding, frame.top + line + gap, frame.right - padding, frame.bottom};
    PlaceOnTop(window, kLandscape, option, inner);
    inner.top += gap;
    PlaceOnTop(window, kPortrait, option, inner);
    area.top = frame.bottom;
}

// The choices below each other, at the right of the page.
void PlaceChoices(HWND window, const PreviewBox& box, RECT area, UINT dpi) {
    const int gap = Scaled(kGap, dpi);
    const LONG line = ControlTextSize(window, LB_PageScale).cy;
    PlaceOnTop(window, LB_PageScale, line, area);
    area.top += Scaled(kLabelGap, dpi);
    PlaceDropDown(window, CB_PageScale, area, dpi);
    area.top += Scaled(kLabelGap, dpi);
    PlaceOnTop(window, LB_ScaleNow, line, area);
    area.top += 2 * gap;
    PlacePaper(window, area, line, dpi);
    area.top += gap;
    if (box.preview.job.hasMarks) {
        PlaceOnTop(window, OP_PageTable, line + Scaled(kLabelGap, dpi), area);
        area.top += gap;
    }
    PlaceControl(window, LB_PageRemark, area);
}

// Below the page, the number between the buttons.
void PlaceTurning(HWND window, const RECT& row, UINT dpi) {
    const SIZE before = ButtonSize(window, BT_PreviousPage, dpi);
    const SIZE after = ButtonSize(window, BT_NextPage, dpi);
    const LONG line = ControlTextSize(window, LB_PageScale).cy;
    const LONG top = row.bottom - before.cy;
    const LONG textTop = top + (before.cy - line) / 2;
    PlaceControl(window, BT_PreviousPage, {row.left, top, row.left + before.cx, row.bottom});
    PlaceControl(window, LB_PageNumber,
                 {row.left + before.cx, textTop, row.right - after.cx, textTop + line});
    PlaceControl(window, BT_NextPage, {row.right - after.cx, top, row.right, row.bottom});
}

SIZE Place(HWND window, void* contents, UINT dpi) {
    PreviewBox& box = BoxOf(contents);
    const int margin = Scaled(kMargin, dpi);
    RECT page{margin, margin, margin + Scaled(kPictureSize.cx, dpi),
              margin + Scaled(kPictureSize.cy, dpi)};
    PlaceControl(window, IM_Page, page);
    box.picture.Forget();
    RECT choices{page.right + margin, page.top, page.right + margin + Scaled(kChoicesWidth, dpi),
                 page.bottom};
    PlaceChoices(window, box, choices, dpi);
    RECT row{margin, page.bottom, page.right,
             page.bottom + Scaled(kGap, dpi) + ButtonSize(window, IDOK, dpi).cy};
    if (box.HasSeveralPages()) PlaceTurning(window, row, dpi);
    row.right = choices.right;
    PlaceButtons(window, {IDOK, IDCANCEL}, row, dpi);
    return {row.right + margin, row.bottom + margin};
}

// ---- What the user does ------------------------------------------------------------------------

void Notify(HWND window, void* contents, const Notification& notification) {
    PreviewBox& box = BoxOf(contents);
    PagePreview& preview = box.preview;
    const auto [control, code] = notification;
    if (control == CB_PageScale && code == CBN_SELCHANGE) {
        ChooseScale(preview, ChoiceOfDropDown(GetDlgItem(window, CB_PageScale)));
        return ShowPreview(window, box);
    }
    if (code != BN_CLICKED) return;
    if (control == BT_PreviousPage) ShowPage(preview, preview.page - 1);
    if (control == BT_NextPage) ShowPage(preview, preview.page + 1);
    const bool isPortrait = control == kPortrait;
    const bool isOrientation = isPortrait || control == kLandscape;
    if (isOrientation && isPortrait != shell.pages.isPortrait) ChoosePortrait(preview, isPortrait);
    if (control == OP_PageTable) {
        SwitchTable(preview, IsDlgButtonChecked(window, OP_PageTable) == BST_CHECKED);
    }
    ShowPreview(window, box);
}

// Stays open when the user cancels the system's dialog, and when printing fails.
bool Accept(HWND window, void* contents) {
    PreviewBox& box = BoxOf(contents);
    if (PrintThroughSystem(box.preview.job, box.printer) == PrintEnd::kPrinted) return true;
    // The user may have chosen another printer.
    TakePaper(box.preview);
    ShowPreview(window, box);
    return false;
}

}  // namespace

void PreviewPages(const PrintJob& job) {
    static constexpr DialogKind kPagePreview{.className = kPagePreviewClass,
                                             .firstFocus = IDOK,
                                             .addControls = AddControls,
                                             .place = Place,
                                             .accept = Accept,
                                             .notify = Notify,
                                             .draw = Draw};
    PreviewBox box(job);
    RunDialog(kPagePreview, FormatMessage(kMsgPagePreview, {job.name}), &box);
}

}  // namespace corvane
