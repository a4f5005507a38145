#include "ui/dialogs/compare_box.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "report/messages.h"
#include "shell/commands/commands.h"
#include "shell/comparison_box.h"
#include "text/text.h"
#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"
#include "ui/base/keys.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/list_controls.h"
#include "ui/dialogs/row_list.h"
#include "ui/pictures/picture_commands.h"
#include "ui/pictures/picture_table.h"
#include "ui/pictures/section_picture.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr SIZE kClientSize{780, 510};
constexpr SIZE kLeastSize{560, 400};
constexpr int kMargin = 11;
constexpr int kGap = 8;
constexpr int kLabelGap = 3;
constexpr int kLabelLines = 2;  // of LB_Compared

// Of the lists' columns, those that take what the others leave: the model's name, where a value is.
constexpr size_t kWideOfModels = 2;
constexpr size_t kWideOfValues = 0;

// The box while it is open.
struct OpenBox {
    ComparisonBox contents;
    int shown = -1;  // the row that is shown
    UINT dpi = USER_DEFAULT_SCREEN_DPI;
};

OpenBox& BoxOf(void* contents) {
    return *static_cast<OpenBox*>(contents);
}

HWND ModelsOf(HWND window) {
    return GetDlgItem(window, LI_Differing);
}

HWND ValuesOf(HWND window) {
    return GetDlgItem(window, LI_Values);
}

void WidenColumns(HWND window, UINT dpi) {
    WidenColumn(ModelsOf(window), DifferingColumns(), kWideOfModels, dpi);
    WidenColumn(ValuesOf(window), ValueColumns(), kWideOfValues, dpi);
}

// ---- What is shown -----------------------------------------------------------------------------

void ShowPicture(HWND window, const ComparisonPicture& shown) {
    const HWND picture = GetDlgItem(window, PIC_Section);
    ClearSectionPicture(picture, shown.why);
    if (HasPicture(shown.pane)) RedrawSectionPicture(picture);
    SetDlgItemTextW(window, LB_Compared, shown.label.c_str());
}

// Values, picture and button follow the selected rows.
void ShowSelected(HWND window, OpenBox& box) {
    const HWND models = ModelsOf(window);
    const int row = ShownRow(models);
    if (row != box.shown) {
        box.shown = row;
        ShowRow(box.contents, row < 0 ? box.contents.rows.size() : static_cast<size_t>(row));
        SetRows(ValuesOf(window), box.contents.values.size(), 0);
        WidenColumns(window, box.dpi);  // a list may scroll now
        ShowPicture(window, box.contents.picture);
    }
    EnableButton(window, BT_ImportCompared, MayImport(box.contents, SelectedRows(models)));
}

// The comparison as it is now, with this row selected.
void ShowAll(HWND window, OpenBox& box, size_t selected) {
    const std::wstring summary = SummaryOf(box.contents.comparison);
    SetDlgItemTextW(window, LB_Comparison, WithLineFeeds(summary).c_str());
    SetRows(ModelsOf(window), box.contents.rows.size(), selected);
    box.shown = -1;
    ShowSelected(window, box);
}

void FillIn(void* contents, int list, LVITEMW& item) {
    const ComparisonBox& box = BoxOf(contents).contents;
    const bool isModel = list == LI_Differing;
    const auto row = static_cast<size_t>(item.iItem);
    if (item.iItem < 0 || row >= (isModel ? box.rows.size() : box.values.size())) return;
    const std::vector<std::wstring> cells =
        isModel ? DifferingCells(box, row) : ValueCells(box, row);
    PutItemText(item, OnOneLine(cells.at(static_cast<size_t>(item.iSubItem))));
}

// ---- Controls ----------------------------------------------------------------------------------

// The window is laid out again as it is.
void LayOutAgain(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    SendMessageW(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
}

void AddPicture(HWND window, OpenBox& box) {
    ComparisonPicture& shown = box.contents.picture;
    PictureContents contents;
    contents.draw = [&shown](Picture& drawn) { DrawComparison(shown, drawn); };
    contents.pane = &shown.pane;
    contents.onMarked = [window] {
        if (ShowPictureTable(window)) LayOutAgain(window);
    };
    contents.typeface = L"Arial";
    CreateSectionPicture(window, std::move(contents));
    CreatePictureTable(window);
    AddControl(window, {LB_Compared, WC_STATICW, L"", WS_VISIBLE | SS_LEFT | SS_NOPREFIX});
}

void AddButtons(HWND window) {
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddControl(window, {BT_ImportCompared, WC_BUTTONW, L"&Import...", button | BS_PUSHBUTTON});
    AddControl(window, {BT_CopyReport, WC_BUTTONW, L"Copy &all", button | BS_PUSHBUTTON});
    AddControl(window, {BT_SaveReport, WC_BUTTONW, L"&Save as text...", button | BS_PUSHBUTTON});
    AddControl(window, {IDCANCEL, WC_BUTTONW, L"Close", button | BS_DEFPUSHBUTTON});
}

void AddControls(HWND window, void* contents) {
    OpenBox& box = BoxOf(contents);
    const DWORD label = WS_VISIBLE | SS_LEFT;
    AddControl(window, {LB_Comparison, WC_STATICW, L"", label | SS_NOPREFIX});
    AddControl(window, {LB_Differing, WC_STATICW, L"&Models that differ:", label});
    AddRowList(window, LI_Differing, L"Models that differ", DifferingColumns());
    AddControl(window,
               {LB_Values, WC_STATICW, L"&Values that differ in the selected model:", label});
    AddRowList(window, LI_Values, L"Values that differ", ValueColumns());
    AddPicture(window, box);
    AddButtons(window);
    ListDifferences(box.contents);
    ShowAll(window, box, 0);
}

// ---- Sizes -------------------------------------------------------------------------------------

SIZE Place(HWND window, void*, UINT dpi) {
    FitColumns(ModelsOf(window), DifferingColumns(), dpi);
    FitColumns(ValuesOf(window), ValueColumns(), dpi);
    return {Scaled(kClientSize.cx, dpi), Scaled(kClientSize.cy, dpi)};
}

// A label, and the list below it.
void PlaceList(HWND window, std::pair<int, int> ids, RECT area, UINT dpi) {
    const auto [label, list] = ids;
    PlaceOnTop(window, label, ControlTextSize(window, label).cy, area);
    area.top += Scaled(kLabelGap, dpi);
    PlaceControl(window, list, area);
}

// The lists one below the other, as high.
void PlaceLists(HWND window, const RECT& area, UINT dpi) {
    const LONG height = (area.bottom - area.top - Scaled(kGap, dpi)) / 2;
    RECT upper = area;
    RECT lower = area;
    upper.bottom = upper.top + height;
    lower.top = lower.bottom - height;
    PlaceList(window, {LB_Differing, LI_Differing}, upper, dpi);
    PlaceList(window, {LB_Values, LI_Values}, lower, dpi);
    WidenColumns(window, dpi);
}

// The picture; below it the table of the places that the user clicked on, while there are any.
void PlacePicture(HWND window, RECT area, UINT dpi) {
    const int gap = Scaled(kLabelGap, dpi);
    const LONG line = ControlTextSize(window, LB_Differing).cy;
    PlaceControl(window, LB_Compared,
                 {area.left, area.bottom - kLabelLines * line, area.right, area.bottom});
    area.bottom -= kLabelLines * line + gap;
    if (IsPictureTableShown(window)) {
        RECT table = area;
        table.top = area.top + (area.bottom - area.top) * 3 / 5;
        area.bottom = table.top - gap;
        PlaceOnTop(window, LB_Facts, line, table);
        table.top += gap;
        PlaceControl(window, TX_Facts, table);
    }
    PlaceControl(window, PIC_Section, area);
}

void Fit(HWND window, void* contents, SIZE client, UINT dpi) {
    BoxOf(contents).dpi = dpi;
    const int margin = Scaled(kMargin, dpi);
    const int gap = Scaled(kGap, dpi);
    RECT area{margin, margin, client.cx - margin, client.cy - std::max(margin, GripHeight(dpi))};
    PlaceButtons(window, {BT_ImportCompared, BT_CopyReport, BT_SaveReport, IDCANCEL}, area, dpi);
    PlaceOnTop(window, LB_Comparison, HeightForText(window, LB_Comparison, area.right - area.left),
               area);
    area.top += gap;
    area.bottom -= ButtonSize(window, IDCANCEL, dpi).cy + gap;
    RECT lists = area;
    lists.right = area.left + (area.right - area.left - gap) * 3 / 5;
    PlaceLists(window, lists, dpi);
    PlacePicture(window, {lists.right + gap, area.top, area.right, area.bottom}, dpi);
}

// ---- What the user does ------------------------------------------------------------------------

void Import(HWND window, OpenBox& box) {
    const int row = std::max(box.shown, 0);
    if (!ImportRows(box.contents, SelectedRows(ModelsOf(window)))) return;
    ShowAll(window, box, static_cast<size_t>(row));
    LayOutAgain(window);  // the summary may need another height
}

void Notify(HWND window, void* contents, const Notification& notification) {
    OpenBox& box = BoxOf(contents);
    const auto [control, code] = notification;
    if (control == LI_Differing && IsSelectionNotification(code)) return ShowSelected(window, box);
    if (code != BN_CLICKED) return;
    if (control == BT_ImportCompared) Import(window, box);
    if (control == BT_CopyReport) CopyComparison(box.contents.comparison);
    if (control == BT_SaveReport) SaveComparison(box.contents.comparison);
}

// Ctrl+A and Ctrl+C are for the list that has the focus.
bool OnListKey(HWND list, bool isModels, const ComparisonBox& box, WORD code) {
    if (code == L'A') {
        SelectAllRows(list);
    } else if (code != L'C') {
        return false;
    } else if (isModels) {
        CopyDiffering(box, SelectedRows(list));
    } else {
        CopyValues(box, SelectedRows(list));
    }
    return true;
}

bool OnKey(HWND window, void* contents, const MSG& message) {
    ComparisonBox& box = BoxOf(contents).contents;
    const Key key = KeyOf(message);
    const HWND focus = GetFocus();
    const bool isModels = focus == ModelsOf(window);
    const bool isControl = key.control && !key.shift && !key.alt;
    if (isControl && (isModels || focus == ValuesOf(window)) &&
        OnListKey(focus, isModels, box, key.code)) {
        return true;
    }
    const uint16_t command = CommandOfKey(message);
    if (command != ME_ViewNextBulkhead) {
        return RunPictureCommand(GetDlgItem(window, PIC_Section), command);
    }
    if (ShowNextComparedBulkhead(box.picture)) ShowPicture(window, box.picture);
    return true;
}

}  // namespace

void ShowComparison(Comparison& comparison) {
    static constexpr DialogKind kCompareBox{.className = kCompareBoxClass,
                                            .firstFocus = LI_Differing,
                                            .addControls = AddControls,
                                            .place = Place,
                                            .notify = Notify,
                                            .key = OnKey,
                                            .fillIn = FillIn,
                                            .fit = Fit,
                                            .least = kLeastSize};
    OpenBox box{.contents = {comparison}};
    RunDialog(kCompareBox, FormatMessage(kMsgComparisonWith, {comparison.beforeName}), &box);
}

}  // namespace corvane
