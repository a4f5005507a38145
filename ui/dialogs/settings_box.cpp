#include "ui/dialogs/settings_box.h"

#include <algorithm>

#include "report/messages.h"
#include "shell/commands/commands.h"
#include "text/text.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/folder_prompt.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kClientWidth = 560;
constexpr int kMargin = 11;
constexpr int kGap = 7;
constexpr int kLabelGap = 2;
constexpr int kFieldPadding = 8;
constexpr int kNumberWidth = 110;

// No two buttons have the same name for who hears them.
constexpr const wchar_t* kChooseCaptions[kFolderFieldCount] = {
    L"Programs folder...", L"Working folder...", L"Dialogs folder..."};

SettingsChoice& ChoiceOf(void* contents) {
    return *static_cast<SettingsChoice*>(contents);
}

void ShowPrograms(HWND window, const SettingsChoice& choice) {
    const std::wstring text = choice.isProgramsFolderFixed
                                  ? GetMessage(kMsgProgramsBeside)
                                  : ProgramsText(WindowText(GetDlgItem(window, TX_Setting)));
    SetDlgItemTextW(window, LB_Programs, text.c_str());
}

void AddField(HWND window, int field, const SettingsChoice& choice) {
    const auto index = static_cast<size_t>(field);
    const bool isFixed = field == kProgramsFolder && choice.isProgramsFolderFixed;
    AddControl(window,
               {LB_Setting + field, WC_STATICW, SettingsLabels()[index], WS_VISIBLE | SS_LEFT});
    AddControl(window, {TX_Setting + field, WC_EDITW, choice.texts[index],
                        WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL |
                            (isFixed ? DWORD{ES_READONLY} : DWORD{0}),
                        WS_EX_CLIENTEDGE});
    if (field >= kFolderFieldCount) return;
    AddControl(window, {BT_ChooseFolder + field, WC_BUTTONW, kChooseCaptions[field],
                        WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON |
                            (isFixed ? DWORD{WS_DISABLED} : DWORD{0})});
    if (field == kProgramsFolder) {
        AddControl(window, {LB_Programs, WC_STATICW, L"", WS_VISIBLE | SS_LEFT | SS_NOPREFIX});
    }
}

void AddControls(HWND window, void* contents) {
    const SettingsChoice& choice = ChoiceOf(contents);
    for (int field = 0; field < kSettingsFieldCount; ++field) AddField(window, field, choice);
    ShowPrograms(window, choice);
    AddControl(window, {LB_SettingsFile, WC_STATICW, L"&Location of the settings file",
                        WS_VISIBLE | SS_LEFT});
    AddControl(window, {TX_SettingsFile, WC_EDITW, choice.file,
                        WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | ES_READONLY, WS_EX_CLIENTEDGE});
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    AddControl(window, {IDOK, WC_BUTTONW, L"OK", button | BS_DEFPUSHBUTTON});
    AddControl(window, {IDCANCEL, WC_BUTTONW, L"Cancel", button | BS_PUSHBUTTON});
}

// As wide as the widest of them.
SIZE ChooseButtonSize(HWND window, UINT dpi) {
    SIZE size{};
    for (int field = 0; field < kFolderFieldCount; ++field) {
        const SIZE own = ButtonSize(window, BT_ChooseFolder + field, dpi);
        size = {std::max(size.cx, own.cx), own.cy};
    }
    return size;
}

// Label, field and button of a folder below each other and side by side.
void PlaceFolder(HWND window, int field, RECT& area, UINT dpi) {
    const LONG line = ControlTextSize(window, IDOK).cy;
    const SIZE button = ChooseButtonSize(window, dpi);
    const int gap = Scaled(kGap, dpi);
    PlaceOnTop(window, LB_Setting + field, line, area);
    area.top += Scaled(kLabelGap, dpi);
    RECT row{area.left, area.top, area.right - button.cx - gap, area.top + button.cy};
    PlaceControl(window, TX_Setting + field, row);
    row.left = row.right + gap;
    row.right = area.right;
    PlaceControl(window, BT_ChooseFolder + field, row);
    area.top = row.bottom;
    if (field == kProgramsFolder) {
        // Two lines: all programs may be missing.
        area.top += Scaled(kLabelGap, dpi);
        PlaceOnTop(window, LB_Programs, 2 * line, area);
    }
    area.top += gap;
}

// A number beside its label.
void PlaceNumber(HWND window, int field, RECT& area, UINT dpi) {
    const LONG line = ControlTextSize(window, IDOK).cy;
    const LONG height = line + Scaled(kFieldPadding, dpi);
    const LONG left = area.right - Scaled(kNumberWidth, dpi);
    const LONG labelTop = area.top + (height - line) / 2;
    PlaceControl(window, LB_Setting + field,
                 {area.left, labelTop, left - Scaled(kGap, dpi), labelTop + line});
    PlaceControl(window, TX_Setting + field, {left, area.top, area.right, area.top + height});
    area.top += height + Scaled(kGap, dpi) / 2;
}

SIZE Place(HWND window, void*, UINT dpi) {
    const int margin = Scaled(kMargin, dpi);
    const int gap = Scaled(kGap, dpi);
    const int width = Scaled(kClientWidth, dpi);
    const LONG line = ControlTextSize(window, IDOK).cy;
    RECT area{margin, margin, width - margin, margin};
    for (int field = 0; field < kFolderFieldCount; ++field) PlaceFolder(window, field, area, dpi);
    for (int field = kFolderFieldCount; field < kSettingsFieldCount; ++field) {
        PlaceNumber(window, field, area, dpi);
    }
    area.top += gap;
    PlaceOnTop(window, LB_SettingsFile, line, area);
    area.top += Scaled(kLabelGap, dpi);
    PlaceOnTop(window, TX_SettingsFile, line + Scaled(kFieldPadding, dpi), area);
    area.bottom = area.top + 2 * gap + ButtonSize(window, IDOK, dpi).cy;
    PlaceButtons(window, {IDOK, IDCANCEL}, area, dpi);
    return {width, area.bottom + margin};
}

bool Accept(HWND window, void* contents) {
    SettingsChoice& choice = ChoiceOf(contents);
    for (int field = 0; field < kSettingsFieldCount; ++field) {
        choice.texts[static_cast<size_t>(field)] =
            WindowText(GetDlgItem(window, TX_Setting + field));
    }
    SettingsField wrong = kProgramsFolder;
    if (RequireValidSettings(choice, wrong)) return true;
    const HWND field = GetDlgItem(window, TX_Setting + int{wrong});
    SetFocus(field);
    SendMessageW(field, EM_SETSEL, 0, -1);
    return false;
}

void ChooseFolder(HWND window, int field) {
    const HWND text = GetDlgItem(window, TX_Setting + field);
    std::wstring folder = WindowText(text);
    const std::wstring title = MenuCaptionText(SettingsLabels()[static_cast<size_t>(field)]);
    if (AskFolder(title, folder)) SetWindowTextW(text, folder.c_str());
}

void Notify(HWND window, void* contents, const Notification& notification) {
    const auto [control, code] = notification;
    if (control == TX_Setting && code == EN_CHANGE) return ShowPrograms(window, ChoiceOf(contents));
    const int field = control - BT_ChooseFolder;
    if (code == BN_CLICKED && field >= 0 && field < kFolderFieldCount) ChooseFolder(window, field);
}

}  // namespace

bool AskSettings(SettingsChoice& choice) {
    static constexpr DialogKind kSettingsBox{.className = kSettingsBoxClass,
                                             .firstFocus = TX_Setting,
                                             .addControls = AddControls,
                                             .place = Place,
                                             .accept = Accept,
                                             .notify = Notify};
    return RunDialog(kSettingsBox, MenuCaptionText(FindCommand(ME_FileSettings)->caption), &choice);
}

}  // namespace corvane
