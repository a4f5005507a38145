#include "platform/win32/native.h"

#include <string_view>
#include <vector>

#include "platform/win32/win32.h"

namespace corvane::system {
namespace {

// A folder's name must leave room for a file name of 8 + 3 characters; one limit serves both.
constexpr size_t kLongestPlainPath = MAX_PATH - 13;

}  // namespace

std::wstring NativePath(const std::wstring& path) {
    const std::wstring full = AbsolutePath(path);
    if (full.size() <= kLongestPlainPath) return path;
    if (full.compare(0, 4, L"\\\\?\\") == 0 || full.compare(0, 4, L"\\\\.\\") == 0) return path;
    if (full.compare(0, 2, L"\\\\") == 0) return L"\\\\?\\UNC" + full.substr(1);
    return L"\\\\?\\" + full;
}

ErrorNumber ErrorOf(bool succeeded) {
    return succeeded ? kErrorNone : GetLastError();
}

std::wstring ErrorText(ErrorNumber error) {
    std::vector<wchar_t> buffer(1024);
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, error, 0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    std::wstring text(buffer.data(), length);
    text.erase(text.find_last_not_of(L" \r\n") + 1);
    // Where the system's text names the file, which its error number does not.
    constexpr std::wstring_view kMark = L"%1";
    const size_t mark = text.find(kMark);
    if (mark != std::wstring::npos) text.replace(mark, kMark.size(), L"the file");
    return text.empty() ? L"Unknown error." : text;
}

}  // namespace corvane::system
