#include <cwchar>

#include "platform/system.h"
#include "platform/win32/native.h"
#include "platform/win32/win32.h"

namespace corvane::system {
namespace {

// The text of a Windows call that fills a buffer and returns the length, or the size it wants.
template <class Call>
std::wstring TextOf(Call call) {
    std::wstring text(MAX_PATH, L'\0');
    DWORD length = call(static_cast<DWORD>(text.size()), text.data());
    if (length > text.size()) {
        text.resize(length);
        length = call(static_cast<DWORD>(text.size()), text.data());
    }
    text.resize(length < text.size() ? length : 0);
    return text;
}

std::wstring WithSeparator(std::wstring folder) {
    if (!folder.empty() && folder.back() != L'\\') folder += L'\\';
    return folder;
}

// With a trailing "\"; empty where the variable is not set.
std::wstring FolderInEnvironment(const wchar_t* variable) {
    return WithSeparator(TextOf([variable](DWORD size, wchar_t* buffer) {
        return GetEnvironmentVariableW(variable, buffer, size);
    }));
}

constexpr unsigned kTemporaryNumbers = 0x10000;

}  // namespace

std::wstring CurrentDirectory() {
    return TextOf([](DWORD size, wchar_t* buffer) { return GetCurrentDirectoryW(size, buffer); });
}

ErrorNumber SetCurrentTo(const std::wstring& path) {
    return ErrorOf(SetCurrentDirectoryW(path.c_str()) != 0);
}

bool IsOnLocalDisk(const std::wstring& path) {
    if (path.size() < 3 || path[1] != L':') return false;
    const UINT type = GetDriveTypeW((path.substr(0, 2) + L'\\').c_str());
    return type == DRIVE_FIXED || type == DRIVE_RAMDISK;
}

std::wstring AbsolutePath(const std::wstring& path) {
    return TextOf([&path](DWORD size, wchar_t* buffer) {
        return GetFullPathNameW(path.c_str(), size, buffer, nullptr);
    });
}

std::wstring TemporaryDirectory() {
    return TextOf([](DWORD size, wchar_t* buffer) { return GetTempPathW(size, buffer); });
}

// GetTempFileNameW does the same, but not in a folder whose name is long.
ErrorNumber NewTemporaryName(const std::wstring& directory, const std::wstring& prefix,
                             std::wstring& name) {
    const std::wstring folder = WithSeparator(directory);
    LARGE_INTEGER start;
    QueryPerformanceCounter(&start);
    for (unsigned i = 0; i < kTemporaryNumbers; ++i) {
        wchar_t digits[8];
        const unsigned number = (static_cast<unsigned>(start.QuadPart) + i) % kTemporaryNumbers;
        swprintf(digits, 8, L"%04X", number);
        name = folder + prefix.substr(0, 3) + digits + L".tmp";
        File file;
        ErrorNumber error = CreateNewForWriting(name, file);
        if (error == kErrorFileExists) continue;
        if (error == kErrorNone) {
            error = CloseFile(file);
            if (error == kErrorNone || RemoveFile(name) != kErrorNone) return error;
        }
        name.clear();
        return error;
    }
    name.clear();  // it is another's
    return kErrorFileExists;
}

std::wstring WindowsDirectory() {
    return WithSeparator(
        TextOf([](DWORD size, wchar_t* buffer) { return GetWindowsDirectoryW(buffer, size); }));
}

std::wstring UserDataDirectory() {
    return FolderInEnvironment(L"APPDATA");
}

std::wstring LocalDataDirectory() {
    return FolderInEnvironment(L"LOCALAPPDATA");
}

std::wstring ProgramPath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

}  // namespace corvane::system
