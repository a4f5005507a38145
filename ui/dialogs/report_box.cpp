#include "ui/dialogs/report_box.h"

#include <algorithm>
#include <string>
#include <vector>

#include "report/messages.h"
#include "text/text.h"
#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"
#include "ui/base/keys.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/list_controls.h"
#include "ui/dialogs/row_list.h"
#include "ui/pictures/icons.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr SIZE kClientSize{740, 480};
constexpr SIZE kLeastSize{480, 320};
constexpr int kMargin = 11;
constexpr int kGap = 8;
constexpr int kLabelGap = 3;
constexpr int kIconGap = 3;
constexpr int kDetailLines = 5;
constexpr int kFieldPadding = 8;

Report& ReportOf(void* contents) {
    return *static_cast<Report*>(contents);
}

HWND ListOf(HWND window) {
    return GetDlgItem(window, LI_Report);
}

bool HasSeverities(const Report& report) {
    return std::ranges::any_of(report.rows,
                               [](const ReportRow& row) { return row.severity.has_value(); });
}

// ---- Rows --------------------------------------------------------------------------------------

// Only where there are more lines than the field shows.
void ShowScrolling(HWND field) {
    const LRESULT lines = SendMessageW(field, EM_GETLINECOUNT, 0, 0);
    ShowScrollBar(field, SB_VERT, lines > kDetailLines ? TRUE : FALSE);
}

// Of that row, below the list.
void ShowDetails(HWND window, Report& report) {
    const int row = ShownRow(ListOf(window));
    const auto index = static_cast<size_t>(row);
    const bool isRow = row >= 0 && index < report.rows.size();
    if (isRow) report.selected = index;
    const std::wstring text = isRow ? WithLineFeeds(report.rows[index].details) : std::wstring();
    const HWND field = GetDlgItem(window, TX_ReportDetails);
    if (WindowText(field) == text) return;
    SetWindowTextW(field, text.c_str());
    ShowScrolling(field);
}

void ShowRows(HWND window, Report& report) {
    const HWND list = ListOf(window);
    EnableButton(window, BT_ReportAction, !report.action.empty());
    SetDlgItemTextW(window, LB_Report, WithLineFeeds(report.summary).c_str());
    SetRows(list, report.rows.size(), report.selected);
    ShowDetails(window, report);
}

void FillIn(void* contents, int, LVITEMW& item) {
    const Report& report = ReportOf(contents);
    const auto index = static_cast<size_t>(item.iItem);
    if (item.iItem < 0 || index >= report.rows.size()) return;
    const ReportRow& row = report.rows[index];
    if ((item.mask & LVIF_IMAGE) != 0) {
        item.iImage = row.severity ? static_cast<int>(*row.severity) : I_IMAGENONE;
    }
    if ((item.mask & LVIF_TEXT) == 0) return;
    PutItemText(item, OnOneLine(row.cells.at(static_cast<size_t>(item.iSubItem))));
}

// ---- Controls ----------------------------------------------------------------------------------

void AddButtons(HWND window, const Report& report) {
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddControl(window, {BT_CopyReport, WC_BUTTONW, L"&Copy all", button | BS_PUSHBUTTON});
    AddControl(window, {BT_SaveReport, WC_BUTTONW, L"&Save as text...", button | BS_PUSHBUTTON});
    if (!report.action.empty()) {
        AddControl(window, {BT_ReportAction, WC_BUTTONW, report.action, button | BS_PUSHBUTTON});
    }
    AddControl(window, {IDCANCEL, WC_BUTTONW, report.isQuestion ? L"Cancel" : L"Close",
                        button | BS_DEFPUSHBUTTON});
}

void AddControls(HWND window, void* contents) {
    Report& report = ReportOf(contents);
    AddControl(window, {LB_Report, WC_STATICW, L"", WS_VISIBLE | SS_LEFT | SS_NOPREFIX});
    AddRowList(window, LI_Report, report.title, report.columns);
    AddControl(window, {LB_ReportDetails, WC_STATICW, L"&Details:", WS_VISIBLE | SS_LEFT});
    AddControl(window,
               {TX_ReportDetails, WC_EDITW, L"",
                WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                WS_EX_CLIENTEDGE});
    AddButtons(window, report);
    ShowRows(window, report);
}

// ---- Sizes -------------------------------------------------------------------------------------

HIMAGELIST CreateSeverityIcons(UINT dpi) {
    const int side = SystemMetric(SM_CXSMICON, dpi);
    const HIMAGELIST icons = ImageList_Create(side + Scaled(kIconGap, dpi), side,
                                              ILC_COLOR32 | ILC_MASK, kSeverities, 0);
    for (const PCWSTR name : {IDI_ERROR, IDI_WARNING, IDI_INFORMATION}) {
        AddSystemListPicture(icons, name);
    }
    return icons;
}

// The list destroys the one that it has at its end.
void SetSeverityIcons(HWND list, UINT dpi) {
    const LRESULT old = SendMessageW(list, LVM_SETIMAGELIST, LVSIL_SMALL,
                                     reinterpret_cast<LPARAM>(CreateSeverityIcons(dpi)));
    // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry handles as numbers.
    if (old != 0) ImageList_Destroy(reinterpret_cast<HIMAGELIST>(old));
}

SIZE Place(HWND window, void* contents, UINT dpi) {
    const Report& report = ReportOf(contents);
    const HWND list = ListOf(window);
    const int picture =
        HasSeverities(report) ? SystemMetric(SM_CXSMICON, dpi) + Scaled(kIconGap, dpi) : 0;
    if (picture != 0) SetSeverityIcons(list, dpi);
    FitColumns(list, report.columns, dpi);
    const int first = WidthOfColumn(list, report.columns.front(), dpi);
    SendMessageW(list, LVM_SETCOLUMNWIDTH, 0, first + picture);
    return {Scaled(kClientSize.cx, dpi), Scaled(kClientSize.cy, dpi)};
}

void PlaceRow(HWND window, const RECT& area, UINT dpi) {
    if (GetDlgItem(window, BT_ReportAction) == nullptr) {
        PlaceButtons(window, {BT_CopyReport, BT_SaveReport, IDCANCEL}, area, dpi);
    } else {
        PlaceButtons(window, {BT_CopyReport, BT_SaveReport, BT_ReportAction, IDCANCEL}, area, dpi);
    }
}

// From the bottom up, the list has what is left.
void Fit(HWND window, void* contents, SIZE client, UINT dpi) {
    const Report& report = ReportOf(contents);
    const int margin = Scaled(kMargin, dpi);
    const int gap = Scaled(kGap, dpi);
    const LONG line = ControlTextSize(window, LB_ReportDetails).cy;
    RECT area{margin, margin, client.cx - margin, client.cy - std::max(margin, GripHeight(dpi))};
    PlaceOnTop(window, LB_Report, HeightForText(window, LB_Report, area.right - area.left), area);
    area.top += Scaled(kLabelGap, dpi);
    PlaceRow(window, area, dpi);
    area.bottom -= ButtonSize(window, IDCANCEL, dpi).cy + gap;
    const LONG field = area.bottom - kDetailLines * line - Scaled(kFieldPadding, dpi);
    PlaceControl(window, TX_ReportDetails, {area.left, field, area.right, area.bottom});
    ShowScrolling(GetDlgItem(window, TX_ReportDetails));
    area.bottom = field - Scaled(kLabelGap, dpi);
    PlaceControl(window, LB_ReportDetails,
                 {area.left, area.bottom - line, area.right, area.bottom});
    area.bottom -= line + gap;
    const HWND list = ListOf(window);
    RECT before{};
    GetClientRect(list, &before);
    PlaceControl(window, LI_Report, area);
    WidenColumn(list, report.columns, report.columns.size() - 1, dpi);
    // Without a size no row was in view.
    if (before.bottom == 0) EnsureRowVisible(list, report.selected);
}

// ---- What the user does ------------------------------------------------------------------------

// The report as it is now; its summary may need another height.
void ShowAgain(HWND window, Report& report) {
    ShowRows(window, report);
    RECT client{};
    GetClientRect(window, &client);
    SendMessageW(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
}

void RunAction(HWND window, Report& report) {
    if (report.act(report)) {
        EndDialog(window, IDOK);
    } else {
        ShowAgain(window, report);
    }
}

void Notify(HWND window, void* contents, const Notification& notification) {
    Report& report = ReportOf(contents);
    const auto [control, code] = notification;
    if (control == LI_Report && IsSelectionNotification(code)) return ShowDetails(window, report);
    if (code != BN_CLICKED) return;
    if (control == BT_CopyReport) CopyReport(report, {});
    if (control == BT_SaveReport) SaveReport(report);
    if (control == BT_ReportAction) RunAction(window, report);
}

void SelectAll(HWND window) {
    if (GetFocus() == ListOf(window)) {
        SelectAllRows(ListOf(window));
    } else {
        SendDlgItemMessageW(window, TX_ReportDetails, EM_SETSEL, 0, -1);
    }
}

// Ctrl+C is for the list; in the field it copies what is selected there.
bool OnKey(HWND window, void* contents, const MSG& message) {
    const Key key = KeyOf(message);
    const HWND focus = GetFocus();
    const bool isInList = focus == ListOf(window);
    const bool isInField = focus == GetDlgItem(window, TX_ReportDetails);
    if (!key.control || key.shift || key.alt) return false;
    if (key.code == L'A' && (isInList || isInField)) {
        SelectAll(window);
        return true;
    }
    if (key.code != L'C' || !isInList) return false;
    CopyReport(ReportOf(contents), SelectedRows(ListOf(window)));
    return true;
}

}  // namespace

bool ShowReport(Report& report) {
    static constexpr DialogKind kReportBox{.className = kReportBoxClass,
                                           .firstFocus = LI_Report,
                                           .addControls = AddControls,
                                           .place = Place,
                                           .notify = Notify,
                                           .key = OnKey,
                                           .fillIn = FillIn,
                                           .fit = Fit,
                                           .least = kLeastSize};
    return RunDialog(kReportBox, report.title, &report);
}

}  // namespace corvane
