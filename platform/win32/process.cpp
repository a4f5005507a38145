#include "platform/single_instance.h"
#include "platform/system.h"
#include "platform/win32/win32.h"
// windows.h must come first.
#include <tlhelp32.h>

namespace corvane::system {
namespace {

// The mutex lives as long as the process: its handle is never closed.
bool ClaimMutex() {
    std::wstring path = ProgramPath();
    CharLowerBuffW(path.data(), static_cast<DWORD>(path.size()));
    const std::wstring name = L"Local\\" + InstanceName(path);
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, name.c_str());
    const DWORD error = GetLastError();
    return mutex != nullptr && error != ERROR_ALREADY_EXISTS;
}

// The length of the program's own path where the command line begins with it: a path with blanks
// may be there without quotes. 0 where it does not.
size_t UnquotedNameLength(const wchar_t* commandLine) {
    const std::wstring path = ProgramPath();
    const int length = static_cast<int>(path.size());
    if (lstrlenW(commandLine) < length) return 0;
    if (CompareStringOrdinal(commandLine, length, path.c_str(), length, TRUE) != CSTR_EQUAL) {
        return 0;
    }
    return path.size();
}

// Whether a process has not ended and was started from a program file.
bool IsProcessOf(DWORD id, const FileStamp& program) {
    constexpr DWORD kLongestName = 0x8000;
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, id);
    if (process == nullptr) return false;
    std::wstring path(kLongestName, L'\0');
    DWORD length = kLongestName;
    FileStamp found;
    const bool isRunning = WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    const bool isNamed = QueryFullProcessImageNameW(process, 0, path.data(), &length) != 0;
    CloseHandle(process);
    path.resize(isNamed ? length : 0);
    return isRunning && isNamed && GetFileStamp(path, found) == kErrorNone &&
           found.identity == program.identity;
}

}  // namespace

std::wstring RawCommandLine() {
    const wchar_t* next = GetCommandLineW();
    next += UnquotedNameLength(next);
    bool quoted = false;
    for (; *next != L'\0' && (quoted || (*next != L' ' && *next != L'\t')); ++next) {
        if (*next == L'"') quoted = !quoted;
    }
    while (*next == L' ' || *next == L'\t') ++next;
    return next;
}

bool ClaimSingleInstance() {
    static const bool claimed = ClaimMutex();
    return claimed;
}

std::wstring SystemVersion() {
    // Unlike GetVersionEx it knows versions that the program's manifest does not name.
    using GetVersionFunction = LONG WINAPI(OSVERSIONINFOW*);
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    const auto get = AsFunction<GetVersionFunction>(GetProcAddress(library, "RtlGetVersion"));
    if (get == nullptr || get(&version) != 0) return L"Windows";
    return L"Windows " + std::to_wstring(version.dwMajorVersion) + L'.' +
           std::to_wstring(version.dwMinorVersion) + L'.' + std::to_wstring(version.dwBuildNumber);
}

uint32_t ProcessNumber() {
    return GetCurrentProcessId();
}

bool IsProgramRunning(const std::wstring& path) {
    FileStamp wanted;
    if (GetFileStamp(path, wanted) != kErrorNone) return false;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return false;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    bool isFound = false;
    for (BOOL more = Process32FirstW(snapshot, &entry); more != 0 && !isFound;
         more = Process32NextW(snapshot, &entry)) {
        isFound = IsProcessOf(entry.th32ProcessID, wanted);
    }
    CloseHandle(snapshot);
    return isFound;
}

ErrorNumber LastError() {
    return GetLastError();
}

void ClearLastError() {
    SetLastError(ERROR_SUCCESS);
}

}  // namespace corvane::system
