#include "ui/main_window/windows_screen.h"

#include <exception>

#include "report/messages.h"
#include "shell/commands/legacy_commands.h"
#include "shell/state.h"
#include "ui/base/control_ids.h"
#include "ui/dialogs/about.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/input_box.h"
#include "ui/dialogs/splash.h"
#include "ui/main_window/main_window.h"

namespace corvane {
namespace {

// A window that is looked for, and what was found.
struct Search {
    std::wstring text;
    HWND exact = nullptr;
    HWND beginning = nullptr;
};

BOOL CALLBACK CompareClass(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    if (search.text != name) return TRUE;
    search.exact = window;
    return FALSE;
}

BOOL CALLBACK CompareTitle(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (!IsWindowVisible(window)) return TRUE;
    wchar_t buffer[512] = L"";
    const int length = GetWindowTextW(window, buffer, 512);
    const std::wstring_view title(buffer, static_cast<size_t>(length));
    if (title == search.text) {
        search.exact = window;
        return FALSE;
    }
    if (search.beginning == nullptr && title.starts_with(search.text)) search.beginning = window;
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
    return ShowBox(text, MB_OKCANCEL | MB_ICONQUESTION) == IDOK;
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
    search.text = title;
    EnumWindows(CompareTitle, reinterpret_cast<LPARAM>(&search));
    const HWND found = search.exact != nullptr ? search.exact : search.beginning;
    if (found == nullptr) return;
    if (IsIconic(found)) ShowWindow(found, SW_RESTORE);
    SetForegroundWindow(found);
}

}  // namespace

HWND OwnWindow(const wchar_t* className) {
    Search search;
    search.text = className;
    EnumThreadWindows(GetCurrentThreadId(), CompareClass, reinterpret_cast<LPARAM>(&search));
    return search.exact;
}

void ReportFault() noexcept {
    try {
        try {
            throw;
        } catch (const std::exception& fault) {
            const std::string text = fault.what();
            ReportMessage(kMsgUnexpectedFault, {std::wstring(text.begin(), text.end())});
        } catch (...) {
            ReportMessage(kMsgUnexpectedFault);
        }
    } catch (...) {
        // Not even the report could be made: what is left needs no memory of ours.
        MessageBoxW(nullptr, L"Out of memory", L"Corvane", MB_OK | MB_ICONEXCLAMATION);
    }
}

Screen WindowsScreen() {
    Screen screen;
    screen.showWarningBox = ShowWarningBox;
    screen.showPlainBox = ShowPlainBox;
    screen.askYesNo = AskYesNo;
    screen.askIrreversible = AskIrreversible;
    screen.askOkCancel = AskOkCancel;
    screen.askText = AskText;
    screen.showAbout = [](const std::wstring& heading) { ShowAbout(heading); };
    screen.processPendingMessages = ProcessPendingMessages;
    screen.showSplash = [](const std::wstring& title) { ShowSplash(title); };
    screen.unloadSplash = UnloadSplash;
    screen.activateRunningInstance = ActivateRunningInstance;
    screen.openLegacyDatabase = [](const std::wstring& path) { OpenLegacyDatabase(path); };
    FillMainWindowProcedures(screen);
    return screen;
}

}  // namespace corvane
