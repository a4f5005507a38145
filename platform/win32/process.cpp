#include "platform/single_instance.h"
#include "platform/system.h"
#include "platform/win32/win32.h"

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

ErrorNumber LastError() {
    return GetLastError();
}

void ClearLastError() {
    SetLastError(ERROR_SUCCESS);
}

}  // namespace corvane::system
