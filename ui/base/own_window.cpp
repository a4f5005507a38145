#include "ui/base/own_window.h"

#include <exception>
#include <string>

#include "report/reporters.h"
#include "shell/help_pages.h"
#include "shell/state.h"

namespace corvane {
namespace {

// A class that is looked for, and the window that was found.
struct Search {
    std::wstring className;
    HWND found = nullptr;
};

BOOL CALLBACK CompareClass(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    if (search.className != name) return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

HWND MainHandle() {
    return static_cast<HWND>(shell.mainWindow);
}

HWND OwnWindow(const wchar_t* className) {
    Search search;
    search.className = className;
    EnumThreadWindows(GetCurrentThreadId(), CompareClass, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND DialogOwner() {
    const HWND main = MainHandle();
    return main != nullptr && IsWindowVisible(main) ? GetLastActivePopup(main) : nullptr;
}

void ShowHelpOnBox(LONG& keyTime) {
    if (GetMessageTime() == keyTime) return;
    keyTime = GetMessageTime();
    ShowHelp(shell.helpAbout);
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
        reportView.unloadSplash();
        MessageBoxW(nullptr, L"Out of memory", L"Corvane", MB_OK | MB_ICONEXCLAMATION);
    }
}

}  // namespace corvane
