#include "files/paths.h"

#include "platform/system.h"
#include "text/text.h"

namespace corvane {

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

std::wstring BackupPath(std::wstring_view path) {
    return StripExtension(path) + L".bak";
}

}  // namespace corvane
