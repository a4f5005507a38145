#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cwctype>
#include <vector>

#include "platform/host/native.h"
#include "platform/system.h"

namespace corvane::system {
namespace {

constexpr unsigned kTemporaryNumbers = 0x10000;

bool HasDrive(const std::wstring& path) {
    return path.size() >= 2 && path[1] == L':';
}

// The drive that the current directory is on: the one chosen last.
wchar_t& CurrentDrive() {
    static wchar_t drive = L'C';
    return drive;
}

bool IsSeparator(wchar_t character) {
    return character == L'\\' || character == L'/';
}

// A rooted path, without drive, with "." and ".." worked out; the root is left as it is.
std::wstring Resolved(const std::wstring& path) {
    std::vector<std::wstring> parts;
    std::wstring part;
    for (size_t i = 0; i <= path.size(); ++i) {
        if (i < path.size() && !IsSeparator(path[i])) {
            part += path[i];
            continue;
        }
        if (part == L"..") {
            if (!parts.empty()) parts.pop_back();
        } else if (!part.empty() && part != L".") {
            parts.push_back(part);
        }
        part.clear();
    }
    std::wstring result;
    for (const std::wstring& name : parts) result += L'\\' + name;
    const bool endsInSeparator = !path.empty() && IsSeparator(path.back());
    if (result.empty() || endsInSeparator) result += L'\\';
    return result;
}

// With a trailing "\"; empty where the variable is not set.
std::wstring FolderInEnvironment(const char* variable) {
    const char* folder = std::getenv(variable);
    if (folder == nullptr || *folder == '\0') return {};
    return WideFromUtf8(folder) + L'\\';
}

}  // namespace

std::wstring CurrentDirectory() {
    std::array<char, PATH_MAX> buffer;
    if (getcwd(buffer.data(), buffer.size()) == nullptr) return {};
    std::wstring path = WindowsPath(buffer.data());
    path[0] = CurrentDrive();
    return path;
}

ErrorNumber SetCurrentTo(const std::wstring& path) {
    constexpr ErrorNumber kNoDirectory = 267;
    std::string native;
    const ErrorNumber error = NativePath(path, native);
    if (error != kErrorNone) return error;
    if (chdir(native.c_str()) == -1) {
        return errno == ENOTDIR ? kNoDirectory : ErrorOfPath(-1, native);
    }
    if (HasDrive(path)) {
        CurrentDrive() = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(path[0])));
    }
    return kErrorNone;
}

bool IsOnLocalDisk(const std::wstring& path) {
    if (!HasDrive(path)) return false;
    const wchar_t drive = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(path[0])));
    return drive == L'C' || drive == L'Z';
}

std::wstring AbsolutePath(const std::wstring& path) {
    if (path.empty()) return {};
    const std::wstring drive = HasDrive(path) ? path.substr(0, 2) : CurrentDirectory().substr(0, 2);
    std::wstring name = HasDrive(path) ? path.substr(2) : path;
    if (name.empty()) return drive + Resolved(CurrentDirectory().substr(2));
    if (!IsSeparator(name[0])) name = CurrentDirectory().substr(2) + L'\\' + name;
    return drive + Resolved(name);
}

std::wstring WindowsDirectory() {
    const char* folder = std::getenv("CORVANE_WINDOWS_DIRECTORY");
    if (folder == nullptr || *folder == '\0') return TemporaryDirectory();
    return WideFromUtf8(folder) + L'\\';
}

std::wstring UserDataDirectory() {
    return FolderInEnvironment("APPDATA");
}

std::wstring LocalDataDirectory() {
    return FolderInEnvironment("LOCALAPPDATA");
}

std::wstring TemporaryDirectory() {
    const char* folder = std::getenv("TMPDIR");
    if (folder == nullptr || *folder == '\0') folder = "/tmp";
    std::wstring path = WindowsPath(folder);
    if (path.back() != L'\\') path += L'\\';
    return path;
}

ErrorNumber NewTemporaryName(const std::wstring& directory, const std::wstring& prefix,
                             std::wstring& name) {
    std::wstring folder = directory;
    if (!folder.empty() && folder.back() != L'\\') folder += L'\\';
    const auto start = std::chrono::steady_clock::now().time_since_epoch().count();
    for (unsigned i = 0; i < kTemporaryNumbers; ++i) {
        std::array<char, 16> digits;
        const unsigned number = (static_cast<unsigned>(start) + i) % kTemporaryNumbers;
        std::snprintf(digits.data(), digits.size(), "%04X.tmp", number);
        name = folder + prefix.substr(0, 3) + WideFromUtf8(digits.data());
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

std::wstring ProgramPath() {
    std::array<char, PATH_MAX> buffer;
    const ssize_t length = readlink("/proc/self/exe", buffer.data(), buffer.size());
    if (length <= 0) return {};
    return WindowsPath({buffer.data(), static_cast<size_t>(length)});
}

}  // namespace corvane::system
