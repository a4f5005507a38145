#include "ui/dialogs/folder_contents.h"

#include <algorithm>
#include <string_view>

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

// The system's own matching would also look at a file's short name, where "ship.velo" is a "*.vel".
bool Fits(const std::wstring& name, std::wstring_view pattern) {
    const std::wstring wanted = L"*." + FileExtension(name);
    while (!pattern.empty()) {
        const std::wstring_view one = pattern.substr(0, pattern.find(L';'));
        if (one == wanted) return true;
        pattern.remove_prefix(std::min(one.size() + 1, pattern.size()));
    }
    return false;
}

void Add(const WIN32_FIND_DATAW& found, const std::wstring& pattern, FolderContents& contents) {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0) return;
    const std::wstring name = found.cFileName;
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        if (Fits(name, pattern)) contents.files.push_back(name);
    } else if (name != L"." && name != L"..") {
        contents.folders.push_back(name);
    }
}

// Length of the root, with the "\" at its end: of "C:\", or of "\\machine\share\".
size_t RootLength(const std::wstring& folder) {
    const size_t from = folder.starts_with(L"\\\\") ? folder.find(L'\\', 2) : 0;
    if (from == std::wstring::npos) return folder.size();
    const size_t end = folder.find(L'\\', from == 0 ? 0 : from + 1);
    return end == std::wstring::npos ? folder.size() : end + 1;
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

std::vector<std::wstring> FoldersDownTo(const std::wstring& folder) {
    const std::wstring path = WithTrailingBackslash(folder);
    std::vector<std::wstring> folders;
    for (size_t end = RootLength(path); end != 0; end = path.find(L'\\', end) + 1) {
        folders.push_back(path.substr(0, end));
    }
    return folders;
}

}  // namespace corvane
