// shown_models PROGRAM DATABASE: starts the program with the database, waits until its list has
// models, prints its rows, the columns separated by tabs, and then "shown". Ends with the
// program, and with its exit code; 1 when no list came.
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/win32.h"
// windows.h must come first.
#include <commctrl.h>

namespace {

constexpr DWORD kPatience = 30000;
constexpr DWORD kRest = 300;
constexpr int kLongestText = 200;

struct Search {
    DWORD process;
    HWND list;
};

BOOL CALLBACK TakeList(HWND window, LPARAM search) {
    wchar_t name[32] = L"";
    GetClassNameW(window, name, 32);
    if (std::wstring(name) != WC_LISTVIEWW || !IsWindowVisible(window)) return TRUE;
    reinterpret_cast<Search*>(search)->list = window;
    return FALSE;
}

BOOL CALLBACK LookIntoWindow(HWND window, LPARAM search) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == reinterpret_cast<Search*>(search)->process && IsWindowVisible(window)) {
        EnumChildWindows(window, TakeList, search);
    }
    return TRUE;
}

// The list of the process with at least one row; null when none comes.
HWND WaitForList(DWORD process) {
    for (const ULONGLONG end = GetTickCount64() + kPatience; GetTickCount64() < end; Sleep(20)) {
        Search search{process, nullptr};
        EnumWindows(LookIntoWindow, reinterpret_cast<LPARAM>(&search));
        if (search.list && SendMessageW(search.list, LVM_GETITEMCOUNT, 0, 0) > 0) {
            return search.list;
        }
    }
    return nullptr;
}

// The list reads and writes the texts in the memory of its own process.
std::wstring TextAt(HANDLE process, HWND list, int row, int column, void* memory) {
    LVITEMW item{};
    item.iSubItem = column;
    item.cchTextMax = kLongestText;
    item.pszText = reinterpret_cast<wchar_t*>(static_cast<char*>(memory) + sizeof item);
    std::vector<wchar_t> text(kLongestText + 1);
    WriteProcessMemory(process, memory, &item, sizeof item, nullptr);
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(memory));
    ReadProcessMemory(process, item.pszText, text.data(), kLongestText * sizeof(wchar_t), nullptr);
    return text.data();
}

// All rows, a line each, the columns separated by tabs.
std::wstring RowsOf(HANDLE process, HWND list, void* memory) {
    std::wstring rows;
    const auto count = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    const auto head = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const auto columns = static_cast<int>(SendMessageW(head, HDM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
        for (int column = 0; column < columns; ++column) {
            rows += TextAt(process, list, row, column, memory) + L'\t';
        }
        rows += L'\n';
    }
    return rows;
}

// Prints the rows when they have stayed the same for a while: the program has come to rest.
void PrintRows(HANDLE process, HWND list) {
    void* memory = VirtualAllocEx(process, nullptr, 4096, MEM_COMMIT, PAGE_READWRITE);
    std::wstring before;
    std::wstring rows = RowsOf(process, list, memory);
    const ULONGLONG end = GetTickCount64() + kPatience;
    while ((rows.empty() || rows != before) && GetTickCount64() < end) {
        Sleep(kRest);
        before = std::exchange(rows, RowsOf(process, list, memory));
    }
    std::printf("%lsshown\n", rows.c_str());
    std::fflush(stdout);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 3) return 2;
    std::wstring line = L"\"" + std::wstring(arguments[1]) + L"\" \"" + arguments[2] + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION program{};
    if (!CreateProcessW(arguments[1], line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &start, &program)) {
        return 1;
    }
    const HWND list = WaitForList(program.dwProcessId);
    if (!list) TerminateProcess(program.hProcess, 1);
    if (list) PrintRows(program.hProcess, list);
    WaitForSingleObject(program.hProcess, INFINITE);
    DWORD code = 1;
    GetExitCodeProcess(program.hProcess, &code);
    return static_cast<int>(code);
}
