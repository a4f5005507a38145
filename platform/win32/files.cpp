#include <algorithm>
#include <vector>

#include "platform/system.h"
#include "platform/win32/native.h"
#include "platform/win32/win32.h"

namespace corvane::system {
namespace {

// One call of Windows transfers at most this many bytes; its count has 32 bits.
constexpr size_t kLargestTransfer = size_t{1} << 30;

constexpr DWORD kLongestPath = 32 * 1024;

constexpr DWORD kCopiedAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                    FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;

HANDLE HandleOf(File file) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a handle is a number that Windows types so.
    return reinterpret_cast<HANDLE>(file.handle);
}

struct OpenMode {
    DWORD access;
    DWORD sharing;
    DWORD disposition;
    DWORD flags;
};

ErrorNumber Open(const std::wstring& path, const OpenMode& mode, File& file) {
    const HANDLE handle = CreateFileW(NativePath(path).c_str(), mode.access, mode.sharing, nullptr,
                                      mode.disposition, mode.flags, nullptr);
    const ErrorNumber error = ErrorOf(handle != INVALID_HANDLE_VALUE);
    file.handle = reinterpret_cast<intptr_t>(handle);
    return error;
}

ErrorNumber SetAttributes(const std::wstring& path, DWORD attributes) {
    if (attributes == 0) attributes = FILE_ATTRIBUTE_NORMAL;
    return ErrorOf(SetFileAttributesW(NativePath(path).c_str(), attributes) != 0);
}

// The path as users write it, without what lifts the limit of 260 characters.
std::wstring WithoutPrefix(const std::wstring& path) {
    constexpr std::wstring_view kShare = L"\\\\?\\UNC\\";
    constexpr std::wstring_view kDrive = L"\\\\?\\";
    if (path.starts_with(kShare)) return L"\\\\" + path.substr(kShare.size());
    return path.starts_with(kDrive) ? path.substr(kDrive.size()) : path;
}

FileStamp StampOf(const BY_HANDLE_FILE_INFORMATION& data) {
    const auto joined = [](DWORD high, DWORD low) { return uint64_t{high} << 32 | low; };
    return {{data.dwVolumeSerialNumber, joined(data.nFileIndexHigh, data.nFileIndexLow)},
            static_cast<int64_t>(joined(data.nFileSizeHigh, data.nFileSizeLow)),
            static_cast<int64_t>(
                joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)),
            data.nNumberOfLinks,
            (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0};
}

// Asks for no right to the contents, so that a file that others lock is found, too.
ErrorNumber OpenToLook(const std::wstring& path, DWORD access, File& file) {
    const OpenMode mode{access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS};
    return Open(path, mode, file);
}

// A part of the security of one file for another; nothing where the user may not.
void CopySecurity(const std::wstring& from, const std::wstring& to, SECURITY_INFORMATION part) {
    DWORD size = 0;
    GetFileSecurityW(from.c_str(), part, nullptr, 0, &size);
    std::vector<std::byte> security(size);
    if (size > 0 && GetFileSecurityW(from.c_str(), part, security.data(), size, &size) != 0) {
        SetFileSecurityW(to.c_str(), part, security.data());
    }
}

void CopyCreationTime(const std::wstring& from, const std::wstring& to) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    File file;
    if (GetFileAttributesExW(NativePath(from).c_str(), GetFileExInfoStandard, &data) == 0 ||
        OpenToLook(to, FILE_WRITE_ATTRIBUTES, file) != kErrorNone) {
        return;
    }
    SetFileTime(HandleOf(file), &data.ftCreationTime, nullptr, nullptr);
    CloseFile(file);
}

bool IsReadOnly(const std::wstring& path) {
    FileStatus status;
    return GetFileStatus(path, status) == kErrorNone && status.isReadOnly;
}

// Renames over a file that others hold open, who go on reading the old text: Windows 10 can, on its
// own file system. What it takes is younger than the headers that this program is built with.
ErrorNumber RenameInOneStep(const std::wstring& from, const std::wstring& to) {
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): as said above.
    constexpr auto kRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
    constexpr BOOLEAN kReplaceWithPosixSemantics = 3;
    const std::wstring name = NativePath(to);
    std::vector<FILE_RENAME_INFO> info(
        1 + name.size() * sizeof(wchar_t) / sizeof(FILE_RENAME_INFO) + 1);
    info[0].ReplaceIfExists = kReplaceWithPosixSemantics;
    info[0].FileNameLength = static_cast<DWORD>(name.size() * sizeof(wchar_t));
    std::copy(name.begin(), name.end(), info[0].FileName);
    File file;
    const OpenMode mode{GENERIC_WRITE | DELETE,
                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING,
                        FILE_ATTRIBUTE_NORMAL};
    ErrorNumber error = Open(from, mode, file);
    if (error != kErrorNone) return error;
    const size_t size = info.size() * sizeof(FILE_RENAME_INFO);
    error = ErrorOf(SetFileInformationByHandle(HandleOf(file), kRenameInfoEx, info.data(),
                                               static_cast<DWORD>(size)) != 0);
    if (error == kErrorNone) FlushToDisk(file);
    CloseFile(file);
    return error;
}

}  // namespace

ErrorNumber OpenForReading(const std::wstring& path, File& file) {
    const OpenMode mode{GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN};
    return Open(path, mode, file);
}

ErrorNumber OpenForEditing(const std::wstring& path, File& file) {
    const OpenMode mode{GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, OPEN_EXISTING,
                        FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN};
    return Open(path, mode, file);
}

// CREATE_ALWAYS would fail on a hidden file and reset the attributes of any other.
ErrorNumber CreateForWriting(const std::wstring& path, File& file) {
    const OpenMode mode{GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL};
    const ErrorNumber error = Open(path, mode, file);
    if (error != kErrorNone) return error;
    const ErrorNumber emptied = ErrorOf(SetEndOfFile(HandleOf(file)) != 0);
    if (emptied != kErrorNone) CloseFile(file);
    return emptied;
}

ErrorNumber CreateNewForWriting(const std::wstring& path, File& file) {
    const OpenMode mode{GENERIC_WRITE, FILE_SHARE_READ, CREATE_NEW, FILE_ATTRIBUTE_NORMAL};
    return Open(path, mode, file);
}

// Without the right to write elsewhere the system itself finds the end of the file.
ErrorNumber OpenForAppending(const std::wstring& path, File& file) {
    const OpenMode mode{FILE_APPEND_DATA | SYNCHRONIZE,
                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_ALWAYS,
                        FILE_ATTRIBUTE_NORMAL};
    return Open(path, mode, file);
}

ErrorNumber ReadBytes(File file, void* bytes, size_t most, size_t& count) {
    DWORD read = 0;
    const auto wanted = static_cast<DWORD>(std::min(most, kLargestTransfer));
    const ErrorNumber error = ErrorOf(ReadFile(HandleOf(file), bytes, wanted, &read, nullptr) != 0);
    count = read;
    return error;
}

ErrorNumber WriteBytes(File file, const void* bytes, size_t count) {
    const auto* next = static_cast<const char*>(bytes);
    while (count > 0) {
        const auto wanted = static_cast<DWORD>(std::min(count, kLargestTransfer));
        DWORD written = 0;
        const ErrorNumber error =
            ErrorOf(WriteFile(HandleOf(file), next, wanted, &written, nullptr) != 0);
        if (error != kErrorNone) return error;
        if (written != wanted) return kErrorDiskFull;
        next += written;
        count -= written;
    }
    return kErrorNone;
}

ErrorNumber SetPosition(File file, int64_t position) {
    LARGE_INTEGER distance;
    distance.QuadPart = position;
    return ErrorOf(SetFilePointerEx(HandleOf(file), distance, nullptr, FILE_BEGIN) != 0);
}

ErrorNumber FlushToDisk(File file) {
    return ErrorOf(FlushFileBuffers(HandleOf(file)) != 0);
}

ErrorNumber CloseFile(File& file) {
    if (!file.IsOpen()) return kErrorNone;
    const ErrorNumber error = ErrorOf(CloseHandle(HandleOf(file)) != 0);
    file = File();
    return error;
}

ErrorNumber GetFileStatus(const std::wstring& path, FileStatus& status) {
    status = FileStatus();
    WIN32_FILE_ATTRIBUTE_DATA data;
    const ErrorNumber error =
        ErrorOf(GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &data) != 0);
    if (error == kErrorFileNotFound || error == kErrorPathNotFound) return kErrorNone;
    if (error != kErrorNone) return error;
    status.exists = true;
    status.attributes = data.dwFileAttributes;
    status.isDirectory = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    status.isReadOnly = (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    status.size = static_cast<int64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
    status.modified = static_cast<int64_t>(data.ftLastWriteTime.dwHighDateTime) << 32 |
                      data.ftLastWriteTime.dwLowDateTime;
    return kErrorNone;
}

ErrorNumber GetFileStamp(File file, FileStamp& stamp) {
    BY_HANDLE_FILE_INFORMATION data;
    const ErrorNumber error = ErrorOf(GetFileInformationByHandle(HandleOf(file), &data) != 0);
    if (error == kErrorNone) stamp = StampOf(data);
    return error;
}

ErrorNumber GetFileStamp(const std::wstring& path, FileStamp& stamp) {
    File file;
    ErrorNumber error = OpenToLook(path, 0, file);
    if (error != kErrorNone) return error;
    error = GetFileStamp(file, stamp);
    CloseFile(file);
    return error;
}

ErrorNumber SetReadOnly(const std::wstring& path, bool readOnly) {
    const DWORD attributes = GetFileAttributesW(NativePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return GetLastError();
    const DWORD others = attributes & kCopiedAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY};
    return SetAttributes(path, others | (readOnly ? DWORD{FILE_ATTRIBUTE_READONLY} : 0));
}

ErrorNumber CopyAttributes(const std::wstring& from, const std::wstring& to) {
    const DWORD attributes = GetFileAttributesW(NativePath(from).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return GetLastError();
    CopyCreationTime(from, to);
    // The access list by itself, since few may give a file away.
    CopySecurity(NativePath(from), NativePath(to), DACL_SECURITY_INFORMATION);
    CopySecurity(NativePath(from), NativePath(to),
                 OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION);
    // Last: some systems clear attributes when they set a time.
    return SetAttributes(to, attributes & kCopiedAttributes);
}

ErrorNumber RemoveFile(const std::wstring& path) {
    return ErrorOf(DeleteFileW(NativePath(path).c_str()) != 0);
}

// Windows copies the attributes too: a copy of a read-only file is made writable.
ErrorNumber CopyBytes(const std::wstring& from, const std::wstring& to, bool overwrite) {
    const ErrorNumber error =
        ErrorOf(CopyFileW(NativePath(from).c_str(), NativePath(to).c_str(), !overwrite) != 0);
    if (error != kErrorNone || !IsReadOnly(to)) return error;
    return SetReadOnly(to, false);
}

// Not every system refuses to rename over a read-only file by itself.
ErrorNumber RenameOver(const std::wstring& from, const std::wstring& to) {
    if (IsReadOnly(to)) return kErrorAccessDenied;
    return ErrorOf(MoveFileExW(NativePath(from).c_str(), NativePath(to).c_str(),
                               MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0);
}

ErrorNumber RenameToNewName(const std::wstring& from, const std::wstring& to) {
    const ErrorNumber error = ErrorOf(
        MoveFileExW(NativePath(from).c_str(), NativePath(to).c_str(), MOVEFILE_WRITE_THROUGH) != 0);
    return error == ERROR_ALREADY_EXISTS ? kErrorFileExists : error;
}

// ReplaceFileW renames twice, so that a program that ends in between leaves the target missing. It
// is for the systems and volumes that cannot do better.
ErrorNumber SwapIn(const std::wstring& target, const std::wstring& replacement,
                   const std::wstring& backup) {
    if (IsReadOnly(target)) return kErrorAccessDenied;
    if (RenameInOneStep(replacement, target) == kErrorNone) return kErrorNone;
    return ErrorOf(ReplaceFileW(NativePath(target).c_str(), NativePath(replacement).c_str(),
                                NativePath(backup).c_str(), REPLACEFILE_IGNORE_MERGE_ERRORS,
                                nullptr, nullptr) != 0);
}

ErrorNumber MakeLink(const std::wstring& existing, const std::wstring& name) {
    return ErrorOf(
        CreateHardLinkW(NativePath(name).c_str(), NativePath(existing).c_str(), nullptr) != 0);
}

std::wstring LinkedFile(const std::wstring& path) {
    std::wstring absolute = AbsolutePath(path);
    const DWORD attributes = GetFileAttributesW(NativePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return absolute;
    }
    File file;
    if (OpenToLook(path, 0, file) != kErrorNone) return absolute;
    std::wstring linked(kLongestPath, L'\0');
    linked.resize(GetFinalPathNameByHandleW(HandleOf(file), linked.data(), kLongestPath, 0));
    CloseFile(file);
    if (linked.empty() || linked.size() >= kLongestPath) return absolute;
    return WithoutPrefix(linked);
}

std::vector<std::wstring> NamesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    const std::wstring all = folder.ends_with(L'\\') ? folder + L'*' : folder + L"\\*";
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(NativePath(all).c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const std::wstring name = entry.cFileName;
        if (name != L"." && name != L"..") names.push_back(name);
    } while (FindNextFileW(search, &entry) != 0);
    FindClose(search);
    return names;
}

bool TakesNewFiles(const std::wstring& folder) {
    File file;
    const ErrorNumber error = OpenToLook(folder, FILE_ADD_FILE, file);
    CloseFile(file);
    return error != kErrorAccessDenied;
}

ErrorNumber MakeDirectory(const std::wstring& path) {
    return ErrorOf(CreateDirectoryW(NativePath(path).c_str(), nullptr) != 0);
}

ErrorNumber RemoveEmptyDirectory(const std::wstring& path) {
    return ErrorOf(RemoveDirectoryW(NativePath(path).c_str()) != 0);
}

}  // namespace corvane::system
