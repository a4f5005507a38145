#include "files/paths.h"

#include <algorithm>
#include <iterator>

#include "platform/system.h"
#include "text/text.h"

namespace corvane {
namespace {

// Length of the root, with the "\" at its end: of "C:\", or of "\\machine\share\".
size_t RootLength(const std::wstring& folder) {
    const size_t from = folder.starts_with(L"\\\\") ? folder.find(L'\\', 2) : 0;
    if (from == std::wstring::npos) return folder.size();
    const size_t end = folder.find(L'\\', from == 0 ? 0 : from + 1);
    return end == std::wstring::npos ? folder.size() : end + 1;
}

}  // namespace

std::wstring WithTrailingBackslash(std::wstring_view path) {
    if (path.empty()) return {};
    return StripTrailingBackslash(path) + L'\\';
}

std::wstring StripTrailingBackslash(std::wstring_view path) {
    std::wstring stripped = Trim(path);
    if (stripped.ends_with(L'\\')) stripped.pop_back();
    return stripped;
}

std::wstring DirectoryOf(std::wstring_view path) {
    std::wstring directory = Trim(path);
    const size_t last = directory.rfind(L'\\');
    if (last == std::wstring::npos) return system::CurrentDirectory();
    directory.resize(last + 1);
    return directory;
}

std::wstring FileNameOf(std::wstring_view path) {
    // No backslash is npos, and npos + 1 the beginning.
    return std::wstring(path.substr(path.rfind(L'\\') + 1));
}

std::wstring StripExtension(std::wstring_view name) {
    const std::wstring trimmed = Trim(name);
    return trimmed.substr(0, trimmed.rfind(L'.'));
}

std::wstring FileExtension(std::wstring_view name) {
    const std::wstring trimmed = Trim(name);
    const size_t point = trimmed.rfind(L'.');
    if (point == std::wstring::npos) return {};
    return LowerCase(trimmed.substr(point + 1));
}

bool IsFullPath(std::wstring_view path) {
    const auto isSeparator = [](wchar_t c) { return c == L'\\' || c == L'/'; };
    if (path.size() < 3) return false;
    return path[1] == L':' ? isSeparator(path[2]) : isSeparator(path[0]) && isSeparator(path[1]);
}

bool IsDeviceName(std::wstring_view path) {
    static constexpr std::wstring_view kNames[] = {L"con", L"prn",    L"aux",
                                                   L"nul", L"conin$", L"conout$"};
    const std::wstring file = LowerCase(FileNameOf(path));
    const std::wstring name = Trim(file.substr(0, file.find(L'.')));
    if (std::ranges::find(kNames, name) != std::end(kNames)) return true;
    // Ports are numbered from 1 to 9; a raised digit is a number, too.
    const bool isPort = name.size() == 4 && (name.starts_with(L"com") || name.starts_with(L"lpt"));
    return isPort && std::wstring_view(L"123456789¹²³").find(name[3]) != std::wstring::npos;
}

std::wstring BackupPath(std::wstring_view path) {
    const std::wstring name = FileNameOf(path);
    const bool hasExtension = name.find(L'.') != std::wstring::npos;
    return (hasExtension ? StripExtension(path) : Trim(path)) + L".bak";
}

// The system's own matching would also look at a file's short name, where "ship.velo" is a "*.vel".
bool FitsPattern(std::wstring_view name, std::wstring_view pattern) {
    const std::wstring wanted = L"*." + FileExtension(name);
    while (!pattern.empty()) {
        const std::wstring_view one = pattern.substr(0, pattern.find(L';'));
        if (one == wanted) return true;
        pattern.remove_prefix(std::min(one.size() + 1, pattern.size()));
    }
    return false;
}

std::vector<std::wstring> FoldersDownTo(std::wstring_view folder) {
    const std::wstring path = WithTrailingBackslash(folder);
    std::vector<std::wstring> folders;
    for (size_t end = RootLength(path); end != 0; end = path.find(L'\\', end) + 1) {
        folders.push_back(path.substr(0, end));
    }
    return folders;
}

}  // namespace corvane
