#include "stand_ins/win32/form_window.h"

#include <algorithm>
#include <string>

#include "platform/system.h"
#include "report/reporters.h"
#include "shell/help_pages.h"
#include "shell/library_checks.h"
#include "shell/state.h"
#include "stand_ins/win32/form_control_ids.h"
#include "ui/base/colours.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/base/system_services.h"
#include "ui/dialogs/dialogs.h"

namespace corvane::stand_ins {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kMargin = 10;
constexpr int kGap = 4;
constexpr int kGroupGap = 10;
constexpr int kFieldWidth = 330;
constexpr int kNumberWidth = 90;
// Of a field that is beside another: where its label begins, after the other one's left edge, and
// the label's width.
constexpr int kBesideLeft = 130;
constexpr int kBesideLabelWidth = 50;
constexpr int kDropHeight = 300;
constexpr int kLinesShown = 3;

// The one window of the process; the procedures of the screen reach it here.
struct FormWindow {
    const StandIn* standIn = nullptr;
    Form form;
    HWND window = nullptr;  // null before it opens and after it has closed
    bool failed = false;    // the status is red
};
FormWindow formWindow;

// ---- The screen --------------------------------------------------------------------------------

int ShowBox(const std::wstring& text, UINT style) {
    return MessageBoxW(formWindow.window, text.c_str(), formWindow.standIn->title, style);
}

// No is the default button: it changes nothing.
bool AskYesNo(const std::wstring& text) {
    return ShowBox(text, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

HWND StatusLabel() {
    return GetDlgItem(formWindow.window, kStatusId);
}

void SetStatus(const std::wstring& text) {
    SetWindowTextW(StatusLabel(), text.c_str());
    UpdateWindow(StatusLabel());
}

void SetStatusColour(StatusColour colour) {
    formWindow.failed = colour == StatusColour::kRed;
    if (formWindow.window != nullptr) InvalidateRect(StatusLabel(), nullptr, TRUE);
}

// F1 is about the stand-ins.
void FillInView() {
    shell.helpAbout = kHelpStandIns;
    shell.view.openDocument = OpenDocument;
    ReportView& view = reportView;
    view.statusCaption = [] { return WindowText(StatusLabel()); };
    view.setStatusCaption = SetStatus;
    view.setStatusColour = SetStatusColour;
    view.showWarningBox = [](const std::wstring& text) {
        ShowBox(text, MB_OK | MB_ICONEXCLAMATION);
    };
    view.showPlainBox = [](const std::wstring& text) { ShowBox(text, MB_OK); };
    view.setBusyPointer = [] { SetCursor(LoadCursorW(nullptr, IDC_WAIT)); };
    view.resetPointer = [] { SetCursor(LoadCursorW(nullptr, IDC_ARROW)); };
}

void ReportFault() noexcept {
    MessageBoxW(formWindow.window,
                L"An unexpected error, such as a lack of memory, ended the action.",
                L"Corvane (stand-in)", MB_OK | MB_ICONEXCLAMATION);
}

// ---- Controls ----------------------------------------------------------------------------------

void AddLabel(HWND window, int id, const std::wstring& text, DWORD style = SS_NOPREFIX) {
    AddControl(window, {id, WC_STATICW, text, WS_VISIBLE | SS_LEFT | style});
}

void AddFact(HWND window, const Fact& fact, int index) {
    const int id = kFactId + 2 * index;
    AddLabel(window, id, fact.label + L":");
    AddLabel(window, id + 1, fact.value, SS_NOPREFIX | SS_PATHELLIPSIS);
}

void AddChoice(HWND window, const Field& field, int id) {
    const HWND list = AddControl(
        window, {id, WC_COMBOBOXW, L"", WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST});
    for (const std::wstring& choice : field.choices) {
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.c_str()));
    }
    const auto chosen = std::find(field.choices.begin(), field.choices.end(), field.value);
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(chosen - field.choices.begin()), 0);
}

void AddEdit(HWND window, const Field& field, int id) {
    const DWORD style = field.kind == FieldKind::kLines
                            ? ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | WS_VSCROLL
                            : ES_AUTOHSCROLL;
    const HWND edit = AddControl(
        window, {id, WC_EDITW, field.value, WS_VISIBLE | WS_TABSTOP | style, WS_EX_CLIENTEDGE});
    if (field.longest > 0) SendMessageW(edit, EM_SETLIMITTEXT, field.longest, 0);
}

void AddField(HWND window, const Field& field, int index) {
    // Its letter goes to the control after it.
    AddLabel(window, kFieldLabelId + index, field.label + L":", 0);
    const bool isChoice = field.kind == FieldKind::kChoice;
    (isChoice ? AddChoice : AddEdit)(window, field, kFieldId + index);
    AddLabel(window, kFieldUnitId + index, field.unit);
}

void AddControls(HWND window, void*) {
    formWindow.window = window;
    const Form& form = formWindow.form;
    AddLabel(window, kNoteId, formWindow.standIn->note);
    int index = 0;
    for (const Fact& fact : form.facts) AddFact(window, fact, index++);
    AddLabel(window, kLineId, L"", SS_ETCHEDHORZ);
    index = 0;
    for (const Field& field : form.fields) AddField(window, field, index++);
    AddLabel(window, kStatusId, L"", SS_NOPREFIX | SS_ENDELLIPSIS);
    const DWORD button = WS_VISIBLE | WS_TABSTOP;
    const bool saves = formWindow.standIn->save != nullptr;
    if (saves) AddControl(window, {IDOK, WC_BUTTONW, L"&Save", button | BS_DEFPUSHBUTTON});
    AddControl(window, {IDCANCEL, WC_BUTTONW, L"&Close",
                        button | (saves ? BS_PUSHBUTTON : BS_DEFPUSHBUTTON)});
}

// ---- Layout ------------------------------------------------------------------------------------

struct Layout {
    HWND window;
    UINT dpi;
    int lineHeight;
    LONG column;  // left edge of the facts' values and of the fields
    LONG top;     // of the field that was placed last
    RECT free;    // what is below the controls that have been placed
};

// Width of the widest label before facts and fields.
LONG LabelWidth(HWND window) {
    LONG width = 0;
    for (size_t i = 0; i < formWindow.form.facts.size(); ++i) {
        const int id = kFactId + 2 * static_cast<int>(i);
        width = std::max(width, ControlTextSize(window, id).cx);
    }
    for (size_t i = 0; i < formWindow.form.fields.size(); ++i) {
        const int id = kFieldLabelId + static_cast<int>(i);
        width = std::max(width, ControlTextSize(window, id).cx);
    }
    return width;
}

// A label before the column and a control in it, on one line.
void PlacePair(Layout& layout, int labelId, int valueId) {
    RECT& free = layout.free;
    const LONG bottom = free.top + layout.lineHeight;
    PlaceControl(layout.window, labelId, {free.left, free.top, layout.column, bottom});
    PlaceControl(layout.window, valueId, {layout.column, free.top, free.right, bottom});
    free.top = bottom + Scaled(kGap, layout.dpi) / 2;
}

void PlaceField(Layout& layout, const Field& field, int index) {
    // Of an edit control, above and below its text.
    const int edge =
        SystemMetric(SM_CYEDGE, layout.dpi) + 2 * SystemMetric(SM_CYBORDER, layout.dpi);
    const int gap = Scaled(kGap, layout.dpi);
    RECT& free = layout.free;
    const bool isNumber = field.kind == FieldKind::kNumber || field.kind == FieldKind::kInteger;
    const bool isTall = field.kind == FieldKind::kLines;
    LONG labelLeft = free.left;
    LONG left = layout.column;
    if (field.isBeside) {
        free.top = layout.top;
        labelLeft = left + Scaled(kBesideLeft, layout.dpi);
        left = labelLeft + Scaled(kBesideLabelWidth, layout.dpi);
    }
    layout.top = free.top;
    const LONG right = isNumber ? left + Scaled(kNumberWidth, layout.dpi) : free.right;
    const LONG bottom = free.top + (isTall ? kLinesShown : 1) * layout.lineHeight + 2 * edge;
    // The list that drops from a choice is part of its height.
    const int drop = field.kind == FieldKind::kChoice ? Scaled(kDropHeight, layout.dpi) : 0;
    PlaceControl(layout.window, kFieldId + index, {left, free.top, right, bottom + drop});
    const LONG text = free.top + edge;
    PlaceControl(layout.window, kFieldLabelId + index,
                 {labelLeft, text, left, text + layout.lineHeight});
    // The unit is after a short field, and below a tall one, which needs the whole breadth.
    const LONG unitTop = isTall ? bottom + gap / 2 : text;
    const LONG unitBottom = unitTop + layout.lineHeight;
    const LONG unitLeft = isTall ? left : right + gap;
    const LONG unitRight = unitLeft + ControlTextSize(layout.window, kFieldUnitId + index).cx;
    if (!field.unit.empty()) {
        PlaceControl(layout.window, kFieldUnitId + index,
                     {unitLeft, unitTop, unitRight, unitBottom});
    }
    free.top = (isTall && !field.unit.empty() ? unitBottom : bottom) + gap;
}

// A line, the fields, and the status of Save.
void PlaceFields(Layout& layout) {
    layout.free.top += Scaled(kGap, layout.dpi);
    PlaceOnTop(layout.window, kLineId, 2, layout.free);
    layout.free.top += Scaled(kGroupGap, layout.dpi);
    int index = 0;
    for (const Field& field : formWindow.form.fields) PlaceField(layout, field, index++);
    PlaceOnTop(layout.window, kStatusId, layout.lineHeight, layout.free);
}

SIZE PlaceControls(HWND window, void*, UINT dpi) {
    const int margin = Scaled(kMargin, dpi);
    const int groupGap = Scaled(kGroupGap, dpi);
    Layout layout{window, dpi, ControlTextSize(window, IDCANCEL).cy, 0, 0, {}};
    layout.column = margin + LabelWidth(window) + groupGap;
    RECT& free = layout.free;
    free = {margin, margin, layout.column + Scaled(kFieldWidth, dpi), margin};
    PlaceOnTop(window, kNoteId, HeightForText(window, kNoteId, free.right - free.left), free);
    free.top += groupGap;
    for (int i = 0; i < static_cast<int>(formWindow.form.facts.size()); ++i) {
        PlacePair(layout, kFactId + 2 * i, kFactId + 2 * i + 1);
    }
    // Without fields nothing is saved.
    if (!formWindow.form.fields.empty()) PlaceFields(layout);
    free.bottom = free.top + groupGap + ButtonSize(window, IDCANCEL, dpi).cy;
    if (formWindow.standIn->save != nullptr) {
        PlaceButtons(window, {IDOK, IDCANCEL}, free, dpi);
    } else {
        PlaceButtons(window, {IDCANCEL}, free, dpi);
    }
    return {free.right + margin, free.bottom + margin};
}

// ---- Save --------------------------------------------------------------------------------------

void Save(HWND window) {
    Form& form = formWindow.form;
    int id = kFieldId;
    for (Field& field : form.fields) field.value = WindowText(GetDlgItem(window, id++));
    SetStatus(L"");
    SetStatusColour(StatusColour::kButtonText);
    const std::wstring saved = SaveForm(*formWindow.standIn, form, AskYesNo);
    if (saved.empty()) {
        const HWND wrong = form.fault >= 0 ? GetDlgItem(window, kFieldId + form.fault) : nullptr;
        if (wrong != nullptr) {
            SendMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(wrong), TRUE);
        }
        return;
    }
    SetStatus(saved);
    id = kFactId + 1;
    for (const Fact& fact : form.facts) {
        SetDlgItemTextW(window, id, fact.value.c_str());
        id += 2;
    }
}

// Saves, and keeps the window open. A fault leaves the user what has been typed.
bool SaveAndStay(HWND window, void*) {
    try {
        Save(window);
    } catch (...) {
        ReportFault();
    }
    return false;
}

HBRUSH ColourStatus(HWND label, HDC dc) {
    if (GetDlgCtrlID(label) != kStatusId || !formWindow.failed) return nullptr;
    SetTextColor(dc,
                 NeedsSystemColours(COLOR_BTNFACE) ? GetSysColor(COLOR_BTNTEXT) : RGB(255, 0, 0));
    SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
    return GetSysColorBrush(COLOR_BTNFACE);
}

int ShowForm() {
    DialogKind kind{kStandInClass, kFieldId, AddControls, PlaceControls, SaveAndStay, ColourStatus};
    if (formWindow.form.fields.empty()) kind.firstFocus = IDCANCEL;
    kind.isProgram = true;
    RunDialog(kind, formWindow.standIn->title, nullptr);
    const bool wasShown = formWindow.window != nullptr;
    formWindow.window = nullptr;
    return wasShown ? 0 : 1;
}

}  // namespace

int RunStandIn(const StandIn& standIn) {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    formWindow.standIn = &standIn;
    FillInView();
    try {
        // Without the libraries no file is what it is.
        if (!CheckLibraryVersions()) return 1;
        if (!OpenForm(standIn, system::RawCommandLine(), formWindow.form)) return 1;
        reportView.isDebugMode = [] { return formWindow.form.request.debug; };
        return ShowForm();
    } catch (...) {
        ReportFault();
        return 1;
    }
}

}  // namespace corvane::stand_ins
