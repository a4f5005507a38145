#include "ui/main_window/child_windows.h"

#include <algorithm>
#include <vector>

#include "platform/win32/win32.h"
// windows.h must come first.
#include <tlhelp32.h>

namespace corvane {
namespace {

struct Children {
    std::vector<DWORD> processes;
    HWND topmost = nullptr;
};

std::vector<DWORD> StartedProcesses() {
    std::vector<DWORD> processes;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return processes;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot, &entry); more != 0;
         more = Process32NextW(snapshot, &entry)) {
        if (entry.th32ParentProcessID == GetCurrentProcessId()) {
            processes.push_back(entry.th32ProcessID);
        }
    }
    CloseHandle(snapshot);
    return processes;
}

// Windows come from the topmost down.
BOOL CALLBACK CompareProcess(HWND window, LPARAM parameter) {
    auto& children = *reinterpret_cast<Children*>(parameter);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (!IsWindowVisible(window) || std::ranges::count(children.processes, process) == 0) {
        return TRUE;
    }
    children.topmost = window;
    return FALSE;
}

}  // namespace

void BringChildToFront() {
    Children children{StartedProcesses()};
    EnumWindows(CompareProcess, reinterpret_cast<LPARAM>(&children));
    if (children.topmost == nullptr) return;
    if (IsIconic(children.topmost)) ShowWindowAsync(children.topmost, SW_RESTORE);
    SetForegroundWindow(children.topmost);
}

}  // namespace corvane
