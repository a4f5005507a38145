#include "platform/system.h"
#include "platform/win32/native.h"
#include "platform/win32/win32.h"

namespace corvane::system {
namespace {

// The profile functions treat a name without a folder as a file of the Windows folder.
std::wstring ProfilePath(const std::wstring& file) {
    const bool hasFolder = file.find_first_of(L"\\/:") != std::wstring::npos;
    return hasFolder ? NativePath(AbsolutePath(file)) : file;
}

}  // namespace

std::string ReadProfileText(const std::string& section, const std::string& key,
                            const std::string& fallback, const std::wstring& file, size_t most) {
    std::wstring buffer(most + 1, L'\0');
    const DWORD length = GetPrivateProfileStringW(
        WideFromAnsi(section).c_str(), WideFromAnsi(key).c_str(), WideFromAnsi(fallback).c_str(),
        buffer.data(), static_cast<DWORD>(buffer.size()), ProfilePath(file).c_str());
    buffer.resize(length);
    return AnsiFromWide(buffer);
}

int32_t ReadProfileInteger(const std::string& section, const std::string& key, int32_t fallback,
                           const std::wstring& file) {
    return static_cast<int32_t>(GetPrivateProfileIntW(WideFromAnsi(section).c_str(),
                                                      WideFromAnsi(key).c_str(), fallback,
                                                      ProfilePath(file).c_str()));
}

ErrorNumber WriteProfileText(const std::string& section, const std::string& key,
                             const std::string& value, const std::wstring& file) {
    return ErrorOf(
        WritePrivateProfileStringW(WideFromAnsi(section).c_str(), WideFromAnsi(key).c_str(),
                                   WideFromAnsi(value).c_str(), ProfilePath(file).c_str()) != 0);
}

}  // namespace corvane::system
