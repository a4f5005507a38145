#include "ui/dialogs/folder_contents.h"

#include <algorithm>

#include "files/paths.h"
#include "platform/win32/win32.h"

namespace corvane {
namespace {

// While this lives, the system shows no box about a drive without a disk.
struct WithoutSystemBoxes {
    DWORD before = 0;
    WithoutSystemBoxes() { SetThreadErrorMode(SEM_FAILCRITICALERRORS, &before); }
    ~WithoutSystemBoxes() { SetThreadErrorMode(before, nullptr); }
    WithoutSystemBoxes(const WithoutSystemBoxes&) = delete;
    WithoutSystemBoxes& operator=(const WithoutSystemBoxes&) = delete;
};

bool ComesBefore(const std::wstring& a, const std::wstring& b) {
    return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, a.c_str(), -1, b.c_str(), -1) ==
           CSTR_LESS_THAN;
}

void Add(const WIN32_FIND_DATAW& found, const std::wstring& pattern, FolderContents& contents) {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0) return;
    const std::wstring name = found.cFileName;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        if (FitsPattern(name, pattern)) contents.files.push_back(name);
    } else if (name != L"." && name != L"..") {
        contents.folders.push_back(name);
    }
}

}  // namespace

bool ReadFolder(const std::wstring& folder, const std::wstring& pattern, FolderContents& contents) {
    const WithoutSystemBoxes quiet;
    WIN32_FIND_DATAW found{};
    const HANDLE search =
        FindFirstFileExW((WithTrailingBackslash(folder) + L"*").c_str(), FindExInfoBasic, &found,
                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    FolderContents read;
    if (search != INVALID_HANDLE_VALUE) {
        do {
            Add(found, pattern, read);
        } while (FindNextFileW(search, &found) != FALSE);
        FindClose(search);
    } else if (GetLastError() != ERROR_FILE_NOT_FOUND) {
        return false;  // not found: a drive's root with nothing in it
    }
    std::sort(read.folders.begin(), read.folders.end(), ComesBefore);
    std::sort(read.files.begin(), read.files.end(), ComesBefore);
    contents = std::move(read);
    return true;
}

std::vector<std::wstring> Drives() {
    std::vector<std::wstring> drives;
    const DWORD existing = GetLogicalDrives();
    for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
        if ((existing >> (letter - L'A') & 1U) != 0) drives.push_back({letter, L':'});
    }
    return drives;
}

}  // namespace corvane
