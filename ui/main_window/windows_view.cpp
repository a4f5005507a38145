#include "ui/main_window/windows_view.h"

#include <string>

#include "shell/state.h"
#include "ui/base/own_window.h"
#include "ui/dialogs/about.h"
#include "ui/dialogs/export_box.h"
#include "ui/dialogs/import_box.h"
#include "ui/dialogs/input_box.h"
#include "ui/dialogs/splash.h"
#include "ui/main_window/main_window_view.h"

namespace corvane {
namespace {

// A title that is looked for, and what was found.
struct Search {
    std::wstring title;
    HWND exact = nullptr;
    HWND beginning = nullptr;
};

BOOL CALLBACK CompareTitle(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (!IsWindowVisible(window)) return TRUE;
    wchar_t buffer[512] = L"";
    const int length = GetWindowTextW(window, buffer, 512);
    const std::wstring_view title(buffer, static_cast<size_t>(length));
    if (title == search.title) {
        search.exact = window;
        return FALSE;
    }
    if (search.beginning == nullptr && title.starts_with(search.title)) search.beginning = window;
    return TRUE;
}

int ShowBox(const std::wstring& text, UINT style) {
    return MessageBoxW(DialogOwner(), text.c_str(), shell.title.c_str(), style);
}

void ShowWarningBox(const std::wstring& text) {
    ShowBox(text, MB_OK | MB_ICONEXCLAMATION);
}

void ShowPlainBox(const std::wstring& text) {
    ShowBox(text, MB_OK);
}

bool AskYesNo(const std::wstring& text) {
    return ShowBox(text, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

bool AskIrreversible(const std::wstring& text) {
    return ShowBox(text, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

bool AskOkCancel(const std::wstring& text) {
    return ShowBox(text, MB_OKCANCEL | MB_ICONWARNING | MB_DEFBUTTON2) == IDOK;
}

// Repaints, and answers other programs; input stays waiting, so that no command begins inside of
// another one.
void ProcessPendingMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT | PM_QS_SENDMESSAGE)) {
        DispatchMessageW(&message);
    }
}

void ActivateRunningInstance(const std::wstring& title) {
    Search search;
    search.title = title;
    EnumWindows(CompareTitle, reinterpret_cast<LPARAM>(&search));
    const HWND found = search.exact != nullptr ? search.exact : search.beginning;
    if (found == nullptr) return;
    if (IsIconic(found)) ShowWindow(found, SW_RESTORE);
    SetForegroundWindow(found);
}

}  // namespace

View WindowsView() {
    View view;
    view.report.showWarningBox = ShowWarningBox;
    view.report.showPlainBox = ShowPlainBox;
    view.report.processPendingMessages = ProcessPendingMessages;
    view.report.unloadSplash = UnloadSplash;
    view.askYesNo = AskYesNo;
    view.askIrreversible = AskIrreversible;
    view.askOkCancel = AskOkCancel;
    view.askText = AskText;
    view.askExport = AskExport;
    view.askImport = [](ImportChoice& choice) { return AskImport(choice); };
    view.showAbout = [](const std::wstring& heading) { ShowAbout(heading); };
    view.showSplash = [](const std::wstring& title) { ShowSplash(title); };
    view.activateRunningInstance = ActivateRunningInstance;
    FillInMainWindow(view);
    return view;
}

}  // namespace corvane
