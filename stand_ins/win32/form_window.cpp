#include "stand_ins/win32/form_window.h"

#include <algorithm>
#include <string>
#include <vector>

#include "platform/system.h"
#include "report/messages.h"
#include "shell/library_checks.h"
#include "shell/state.h"
#include "stand_ins/win32/form_control_ids.h"
#include "stand_ins/win32/form_layout.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"

namespace corvane::siblings {
namespace {

// Belongs to the window for as long as it lives.
struct WindowState {
    const StandIn& standIn;
    Form form;
    HFONT font = nullptr;
    bool failed = false;  // the status is red
};

WindowState* StateOf(HWND window) {
    return reinterpret_cast<WindowState*>(GetWindowLongPtrW(window, DWLP_USER));
}

BOOL CALLBACK FindStandIn(HWND found, LPARAM parameter) {
    wchar_t name[32] = L"";
    GetClassNameW(found, name, 32);
    if (std::wstring_view(name) != kStandInClass) return TRUE;
    *reinterpret_cast<HWND*>(parameter) = found;
    return FALSE;
}

// The thread has one window, or none yet.
HWND OwnWindow() {
    HWND window = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindStandIn, reinterpret_cast<LPARAM>(&window));
    return window;
}

// ---- What the core asks of the screen ----------------------------------------------------------

int ShowBox(const std::wstring& text, UINT style) {
    return MessageBoxW(OwnWindow(), text.c_str(), shell.title.c_str(), style);
}

void SetStatus(const std::wstring& text) {
    const HWND status = GetDlgItem(OwnWindow(), kStatusId);
    SetWindowTextW(status, text.c_str());
    UpdateWindow(status);
}

void SetStatusColour(StatusColour colour) {
    const HWND window = OwnWindow();
    if (window == nullptr) return;
    StateOf(window)->failed = colour == StatusColour::kRed;
    InvalidateRect(GetDlgItem(window, kStatusId), nullptr, TRUE);
}

Screen StandInScreen() {
    Screen screen;
    screen.statusCaption = [] { return WindowText(GetDlgItem(OwnWindow(), kStatusId)); };
    screen.setStatusCaption = SetStatus;
    screen.setStatusColour = SetStatusColour;
    screen.showWarningBox = [](const std::wstring& text) {
        ShowBox(text, MB_OK | MB_ICONEXCLAMATION);
    };
    screen.showPlainBox = [](const std::wstring& text) { ShowBox(text, MB_OK); };
    // No is proposed: it changes nothing.
    screen.askYesNo = [](const std::wstring& text) {
        return ShowBox(text, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
    };
    screen.setBusyPointer = [] { SetCursor(LoadCursorW(nullptr, IDC_WAIT)); };
    screen.resetPointer = [] { SetCursor(LoadCursorW(nullptr, IDC_ARROW)); };
    return screen;
}

void ReportFault() noexcept {
    MessageBoxW(OwnWindow(), L"An unexpected error, such as a lack of memory, ended the action.",
                L"Corvane (stand-in)", MB_OK | MB_ICONEXCLAMATION);
}

// ---- Controls ----------------------------------------------------------------------------------

struct ControlPlan {
    int id;
    const wchar_t* windowClass;
    std::wstring text;
    DWORD style;
};

HWND AddControl(HWND window, const ControlPlan& plan) {
    const bool isEdit = plan.windowClass == std::wstring_view(WC_EDITW);
    return CreateWindowExW(isEdit ? WS_EX_CLIENTEDGE : 0, plan.windowClass, plan.text.c_str(),
                           WS_CHILD | WS_VISIBLE | plan.style, 0, 0, 0, 0, window,
                           reinterpret_cast<HMENU>(INT_PTR{plan.id}), nullptr, nullptr);
}

void AddFact(HWND window, const Fact& fact, int index) {
    const int id = kFactId + 2 * index;
    AddControl(window, {id, WC_STATICW, fact.label + L":", SS_LEFT | SS_NOPREFIX});
    AddControl(window, {id + 1, WC_STATICW, fact.value, SS_LEFT | SS_NOPREFIX | SS_PATHELLIPSIS});
}

HWND AddInput(HWND window, const Field& field, int id) {
    if (field.kind == FieldKind::kChoice) {
        const HWND list =
            AddControl(window, {id, WC_COMBOBOXW, L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST});
        for (const std::wstring& choice : field.choices) {
            SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.c_str()));
        }
        return list;
    }
    const bool isLines = field.kind == FieldKind::kLines;
    const DWORD style =
        isLines ? ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | WS_VSCROLL : ES_AUTOHSCROLL;
    const HWND edit = AddControl(window, {id, WC_EDITW, L"", WS_TABSTOP | style});
    if (field.longest > 0) SendMessageW(edit, EM_SETLIMITTEXT, field.longest, 0);
    return edit;
}

void ShowValue(HWND window, const Field& field, int index) {
    const HWND input = GetDlgItem(window, kFieldId + index);
    if (field.kind != FieldKind::kChoice) {
        SetWindowTextW(input, field.value.c_str());
        return;
    }
    const auto choice = std::find(field.choices.begin(), field.choices.end(), field.value);
    SendMessageW(input, CB_SETCURSEL, static_cast<WPARAM>(choice - field.choices.begin()), 0);
}

void AddField(HWND window, const Field& field, int index) {
    AddControl(window, {kFieldLabelId + index, WC_STATICW, field.label + L":", SS_LEFT});
    AddInput(window, field, kFieldId + index);
    AddControl(window, {kFieldUnitId + index, WC_STATICW, field.unit, SS_LEFT | SS_NOPREFIX});
    ShowValue(window, field, index);
}

// In the order of the tab key.
void AddControls(HWND window, const WindowState& state) {
    const Form& form = state.form;
    AddControl(window, {kNoteId, WC_STATICW, state.standIn.note, SS_LEFT | SS_NOPREFIX});
    for (size_t i = 0; i < form.facts.size(); ++i) {
        AddFact(window, form.facts[i], static_cast<int>(i));
    }
    AddControl(window, {kLineId, WC_STATICW, L"", SS_ETCHEDHORZ});
    for (size_t i = 0; i < form.fields.size(); ++i) {
        AddField(window, form.fields[i], static_cast<int>(i));
    }
    AddControl(window, {kStatusId, WC_STATICW, L"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS});
    const bool saves = state.standIn.save != nullptr;
    const DWORD closeStyle = saves ? BS_PUSHBUTTON : BS_DEFPUSHBUTTON;
    if (saves) AddControl(window, {IDOK, WC_BUTTONW, L"&Save", WS_TABSTOP | BS_DEFPUSHBUTTON});
    AddControl(window, {IDCANCEL, WC_BUTTONW, L"&Close", WS_TABSTOP | closeStyle});
    SendMessageW(window, DM_SETDEFID, saves ? IDOK : IDCANCEL, 0);
}

// ---- The window's messages ---------------------------------------------------------------------

// Font and places of a resolution; the size of the window that they need.
SIZE TakeResolution(HWND window, UINT dpi) {
    WindowState& state = *StateOf(window);
    const HFONT old = state.font;
    state.font = CreateMessageFont(dpi);
    const SIZE client = LayOut(window, state.form, state.font, dpi);
    if (old != nullptr) DeleteObject(old);
    InvalidateRect(window, nullptr, TRUE);
    return WindowSize(window, client, false, dpi);
}

void Centre(HWND window, SIZE size) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& area = monitor.rcWork;
    SetWindowPos(window, nullptr, area.left + (area.right - area.left - size.cx) / 2,
                 std::max(area.top, area.top + (area.bottom - area.top - size.cy) / 2), size.cx,
                 size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FocusField(HWND window, int index) {
    const HWND input = GetDlgItem(window, kFieldId + index);
    SendMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(input), TRUE);
}

void FocusFirst(HWND window, const Form& form) {
    if (form.fields.empty()) {
        SetFocus(GetDlgItem(window, IDCANCEL));
    } else {
        FocusField(window, 0);
    }
}

void OnInit(HWND window) {
    const WindowState& state = *StateOf(window);
    const auto icon =
        reinterpret_cast<LPARAM>(LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(1)));
    SendMessageW(window, WM_SETICON, ICON_BIG, icon);
    AddControls(window, state);
    Centre(window, TakeResolution(window, DpiOf(window)));
}

void OnSave(HWND window) {
    WindowState& state = *StateOf(window);
    for (size_t i = 0; i < state.form.fields.size(); ++i) {
        state.form.fields[i].value = WindowText(GetDlgItem(window, kFieldId + static_cast<int>(i)));
    }
    SetStatus(L"");
    SetStatusColour(StatusColour::kButtonText);
    const std::wstring saved = SaveForm(state.standIn, state.form);
    if (saved.empty()) {
        if (state.form.fault >= 0) FocusField(window, state.form.fault);
        return;
    }
    SetStatus(saved);
    for (size_t i = 0; i < state.form.facts.size(); ++i) {
        SetDlgItemTextW(window, kFactId + 2 * static_cast<int>(i) + 1,
                        state.form.facts[i].value.c_str());
    }
}

void OnCommand(HWND window, WORD id) {
    if (id == IDCANCEL) DestroyWindow(window);
    if (id == IDOK && StateOf(window)->standIn.save != nullptr) OnSave(window);
}

void OnDpiChanged(HWND window, UINT dpi, const RECT& area) {
    const SIZE size = TakeResolution(window, dpi);
    SetWindowPos(window, nullptr, area.left, area.top, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR OnColourStatic(HWND window, HDC dc, HWND control) {
    if (GetDlgCtrlID(control) != kStatusId || !StateOf(window)->failed) return FALSE;
    SetTextColor(dc, RGB(255, 0, 0));
    SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
    return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
}

INT_PTR HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            OnInit(window);
            return FALSE;  // the focus is set once the window is shown
        case WM_COMMAND:
            OnCommand(window, LOWORD(wParam));
            return TRUE;
        case WM_CTLCOLORSTATIC:
            return OnColourStatic(window, reinterpret_cast<HDC>(wParam),
                                  reinterpret_cast<HWND>(lParam));
        case WM_DPICHANGED:
            OnDpiChanged(window, LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
            return TRUE;
        case WM_DESTROY:
            PostQuitMessage(0);
            return TRUE;
        default:
            return FALSE;
    }
}

INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lParam);
    if (StateOf(window) == nullptr) return FALSE;
    try {
        return HandleMessage(window, message, wParam, lParam);
    } catch (...) {
        ReportFault();
        return FALSE;
    }
}

// A dialog of our own class, without controls: a header, no menu, the class, no title.
std::vector<WORD> DialogTemplate() {
    DLGTEMPLATE header{};
    header.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
    const auto* words = reinterpret_cast<const WORD*>(&header);
    std::vector<WORD> made(words, words + sizeof(header) / sizeof(WORD));
    made.push_back(0);
    for (const wchar_t letter : std::wstring_view(kStandInClass)) made.push_back(letter);
    made.insert(made.end(), {0, 0});
    return made;
}

HWND CreateStandInWindow(WindowState& state) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = DefDlgProcW;
    windowClass.cbWndExtra = DLGWINDOWEXTRA;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kStandInClass;
    RegisterClassExW(&windowClass);
    const std::vector<WORD> plan = DialogTemplate();
    return CreateDialogIndirectParamW(instance, reinterpret_cast<LPCDLGTEMPLATEW>(plan.data()),
                                      nullptr, DialogProcedure, reinterpret_cast<LPARAM>(&state));
}

int ShowForm(WindowState& state) {
    const HWND window = CreateStandInWindow(state);
    if (window == nullptr) return 1;
    SetWindowTextW(window, state.standIn.title);
    ShowWindow(window, SW_SHOWDEFAULT);
    // Not before: a window that has the focus while it is hidden gets an inactive title.
    FocusFirst(window, state.form);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (IsDialogMessageW(window, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    DeleteObject(state.font);
    return static_cast<int>(message.wParam);
}

}  // namespace

int RunStandIn(const StandIn& standIn) {
    INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    shell.title = standIn.title;
    shell.screen = StandInScreen();
    try {
        WindowState state{standIn, Form()};
        // Without the libraries no file is what it is.
        if (!CheckLibraryVersions()) return 1;
        if (!OpenForm(standIn, system::RawCommandLine(), state.form)) return 1;
        shell.debugMode = state.form.request.debug;
        return ShowForm(state);
    } catch (...) {
        ReportFault();
        return 1;
    }
}

}  // namespace corvane::siblings
