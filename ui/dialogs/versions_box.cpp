#include "ui/dialogs/versions_box.h"

#include <algorithm>
#include <string>
#include <vector>

#include "files/paths.h"
#include "report/messages.h"
#include "shell/database_comparison.h"
#include "shell/exchange_boxes.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/list_controls.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kMargin = 11;
constexpr int kGap = 8;
constexpr int kLabelGap = 3;
constexpr int kCellPadding = 14;
constexpr int kVersionsHeight = 220;
constexpr int kModelRows = 8;

VersionChoice& ChoiceOf(void* contents) {
    return *static_cast<VersionChoice*>(contents);
}

HWND VersionsOf(HWND window) {
    return GetDlgItem(window, LI_Versions);
}

// The selected version; null without one.
const TextVersion* SelectedVersion(HWND window, const VersionChoice& choice) {
    const LRESULT row =
        SendMessageW(VersionsOf(window), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
    return row < 0 ? nullptr : &choice.versions.at(static_cast<size_t>(row));
}

void AddColumns(HWND list) {
    int index = 0;
    for (const VersionColumn& column : VersionColumns()) {
        AddListColumn(list, index++, column.title, column.alignsRight);
    }
}

void AddRow(HWND list, int row, const TextVersion& version) {
    LVITEMW item{};
    item.iItem = row;
    for (const VersionColumn& column : VersionColumns()) {
        std::wstring text = column.text(version);
        item.mask = LVIF_TEXT;
        item.pszText = text.data();
        SendMessageW(list, item.iSubItem == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0,
                     reinterpret_cast<LPARAM>(&item));
        ++item.iSubItem;
    }
}

void SelectRow(HWND list, int row) {
    LVITEMW item{};
    item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

// Models and buttons follow the selected version.
void ShowSelected(HWND window, const VersionChoice& choice) {
    const TextVersion* version = SelectedVersion(window, choice);
    std::vector<std::wstring> models;
    if (version != nullptr) {
        for (const ExchangeItem& item : ListForExchange(version->file)) models.push_back(item.text);
    }
    const bool isChanged = version != nullptr && version->isChanged;
    const std::wstring label = FormatMessage(isChanged ? kMsgVersionIsChanged : kMsgModelsOfVersion,
                                             {static_cast<int32_t>(models.size())});
    SetDlgItemTextW(window, LB_Sections, label.c_str());
    FillList(GetDlgItem(window, LI_Sections), models);
    for (const int button : {int{BT_Restore}, int{BT_SaveCopy}, int{BT_CompareVersion}}) {
        EnableButton(window, button, version != nullptr);
    }
}

// Into the empty list. The version of this number is selected; without it the newest one.
void ListVersions(HWND window, const VersionChoice& choice, int32_t number) {
    const HWND list = VersionsOf(window);
    const std::vector<TextVersion>& versions = choice.versions;
    int row = 0;
    for (const TextVersion& version : versions) AddRow(list, row++, version);
    const auto found = std::ranges::find(versions, number, &TextVersion::number);
    SelectRow(list, found == versions.end() ? 0 : static_cast<int>(found - versions.begin()));
    if (choice.versions.empty()) ShowSelected(window, choice);
}

void AddControls(HWND window, void* contents) {
    const VersionChoice& choice = ChoiceOf(contents);
    const DWORD label = WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS;
    const MessageNumber heading = choice.versions.empty() ? kMsgNoVersions : kMsgVersionsOf;
    AddControl(window,
               {LB_Versions, WC_STATICW, FormatMessage(heading, {FileNameOf(choice.path)}), label});
    const HWND list = AddControl(window, {LI_Versions, WC_LISTVIEWW, L"Versions",
                                          WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL |
                                              LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                                          WS_EX_CLIENTEDGE});
    const DWORD extended = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, extended, extended);
    AddColumns(list);
    AddControl(window, {LB_Sections, WC_STATICW, L"", label});
    AddControl(window, {LI_Sections, WC_LISTBOXW, L"",
                        WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOSEL,
                        WS_EX_CLIENTEDGE});
    const DWORD button = WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON;
    AddControl(window, {BT_Restore, WC_BUTTONW, L"&Restore", button});
    AddControl(window, {BT_SaveCopy, WC_BUTTONW, L"&Save a copy as...", button});
    AddControl(window, {BT_CompareVersion, WC_BUTTONW, L"&Compare...", button});
    AddControl(window,
               {IDCANCEL, WC_BUTTONW, L"Close", WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON});
    ListVersions(window, choice, 0);
}

// Each column has room for its usual texts. The result is the width of all.
int FitColumns(HWND list, UINT dpi) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0));
    int all = 0;
    int index = 0;
    for (const VersionColumn& column : VersionColumns()) {
        const int width = TextSize(list, font, column.sample).cx + Scaled(kCellPadding, dpi);
        SendMessageW(list, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(index++), width);
        all += width;
    }
    return all;
}

SIZE Place(HWND window, void*, UINT dpi) {
    const int margin = Scaled(kMargin, dpi);
    const LONG line = ControlTextSize(window, IDCANCEL).cy;
    const int gap = Scaled(kGap, dpi);
    const int labelGap = Scaled(kLabelGap, dpi);
    const int edges = 2 * SystemMetric(SM_CXEDGE, dpi) + SystemMetric(SM_CXVSCROLL, dpi);
    const int width = FitColumns(VersionsOf(window), dpi) + edges;
    RECT area{margin, margin, margin + width, margin};
    PlaceOnTop(window, LB_Versions, line, area);
    area.top += labelGap;
    PlaceOnTop(window, LI_Versions, Scaled(kVersionsHeight, dpi), area);
    area.top += gap;
    PlaceOnTop(window, LB_Sections, line, area);
    area.top += labelGap;
    const auto rowHeight =
        static_cast<LONG>(SendDlgItemMessageW(window, LI_Sections, LB_GETITEMHEIGHT, 0, 0));
    PlaceOnTop(window, LI_Sections, kModelRows * rowHeight + 2 * SystemMetric(SM_CYEDGE, dpi),
               area);
    area.bottom = area.top + gap + ButtonSize(window, IDCANCEL, dpi).cy;
    PlaceButtons(window, {BT_Restore, BT_SaveCopy, BT_CompareVersion, IDCANCEL}, area, dpi);
    return {area.right + margin, area.bottom + margin};
}

// An import from there has replaced one more version.
void Compare(HWND window, VersionChoice& choice, const TextVersion& version) {
    const int32_t number = version.number;
    if (!CompareWithVersion(version)) return;
    SendMessageW(VersionsOf(window), LVM_DELETEALLITEMS, 0, 0);
    choice = ReadVersions();
    ListVersions(window, choice, number);
}

void Notify(HWND window, void* contents, const Notification& notification) {
    VersionChoice& choice = ChoiceOf(contents);
    const auto [control, code] = notification;
    if (control == LI_Versions && code == static_cast<int>(LVN_ITEMCHANGED)) {
        return ShowSelected(window, choice);
    }
    const TextVersion* version = SelectedVersion(window, choice);
    if (version == nullptr || code != BN_CLICKED) return;
    if (control == BT_SaveCopy) SaveVersionAs(choice.path, *version);
    if (control == BT_CompareVersion) Compare(window, choice, *version);
    if (control == BT_Restore) {
        choice.chosen = static_cast<size_t>(version - choice.versions.data());
        EndDialog(window, IDOK);
    }
}

}  // namespace

bool AskVersion(VersionChoice& choice) {
    static constexpr DialogKind kVersionsBox{.className = kVersionsBoxClass,
                                             .firstFocus = LI_Versions,
                                             .addControls = AddControls,
                                             .place = Place,
                                             .accept = nullptr,
                                             .colour = nullptr,
                                             .notify = Notify};
    return RunDialog(kVersionsBox, L"Earlier versions", &choice);
}

}  // namespace corvane
