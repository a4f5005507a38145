#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "platform/host/native.h"
#include "platform/system.h"

namespace corvane::system {
namespace {

constexpr mode_t kWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr size_t kCopyBufferSize = size_t{64} * 1024;
constexpr int64_t kNanosecondsPerSecond = 1'000'000'000;

int HandleOf(File file) {
    return static_cast<int>(file.handle);
}

bool IsReadOnly(const std::string& native) {
    struct stat status;
    return stat(native.c_str(), &status) == 0 && (status.st_mode & kWriteBits) == 0;
}

bool IsDirectory(int handle) {
    struct stat status;
    return fstat(handle, &status) == 0 && S_ISDIR(status.st_mode);
}

// A read-only file is refused here as well, since root could write to it.
ErrorNumber Open(const std::wstring& path, int flags, File& file) {
    std::string native;
    const ErrorNumber error = NativePath(path, native);
    if (error != kErrorNone) return error;
    const bool mayExist = (flags & O_EXCL) == 0;
    if ((flags & O_WRONLY) != 0 && mayExist && IsReadOnly(native)) return kErrorAccessDenied;
    file.handle = open(native.c_str(), flags | O_CLOEXEC, 0666);
    if (!file.IsOpen()) return ErrorOfPath(-1, native);
    if (!IsDirectory(HandleOf(file))) {
        // Nobody opens for an edit what is being written.
        if ((flags & O_WRONLY) != 0) flock(HandleOf(file), LOCK_EX | LOCK_NB);
        return kErrorNone;
    }
    CloseFile(file);
    return kErrorAccessDenied;
}

// Both names of a procedure that has two.
ErrorNumber NativePaths(const std::wstring& from, const std::wstring& to, std::string& nativeFrom,
                        std::string& nativeTo) {
    const ErrorNumber error = NativePath(from, nativeFrom);
    return error != kErrorNone ? error : NativePath(to, nativeTo);
}

// A rename is on the disk only when its folder is. Not every file system can flush a folder.
void FlushFolderOf(const std::string& native) {
    const size_t slash = native.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : native.substr(0, slash + 1);
    const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle == -1) return;
    fsync(handle);
    close(handle);
}

ErrorNumber CopyAll(File from, File to) {
    std::vector<char> buffer(kCopyBufferSize);
    for (;;) {
        size_t count = 0;
        ErrorNumber error = ReadBytes(from, buffer.data(), buffer.size(), count);
        if (error != kErrorNone || count == 0) return error;
        error = WriteBytes(to, buffer.data(), count);
        if (error != kErrorNone) return error;
    }
}

bool IsSameFile(File file, const std::wstring& path) {
    FileStamp first;
    FileStamp second;
    return GetFileStamp(file, first) == kErrorNone && GetFileStamp(path, second) == kErrorNone &&
           first.identity == second.identity;
}

int64_t ModifiedTime(const struct stat& status) {
    return int64_t{status.st_mtim.tv_sec} * kNanosecondsPerSecond + status.st_mtim.tv_nsec;
}

FileStamp StampOf(const struct stat& status) {
    return {{status.st_dev, status.st_ino},
            status.st_size,
            ModifiedTime(status),
            static_cast<int64_t>(status.st_nlink),
            (status.st_mode & kWriteBits) == 0};
}

}  // namespace

ErrorNumber OpenForReading(const std::wstring& path, File& file) {
    return Open(path, O_RDONLY, file);
}

// A writer that locks the file is respected; the lock lasts until the file is closed.
ErrorNumber OpenForEditing(const std::wstring& path, File& file) {
    const ErrorNumber error = Open(path, O_RDONLY, file);
    if (error != kErrorNone) return error;
    if (flock(HandleOf(file), LOCK_SH | LOCK_NB) == 0 || errno != EWOULDBLOCK) return kErrorNone;
    CloseFile(file);
    return kErrorSharingViolation;
}

ErrorNumber CreateForWriting(const std::wstring& path, File& file) {
    return Open(path, O_WRONLY | O_CREAT | O_TRUNC, file);
}

ErrorNumber CreateNewForWriting(const std::wstring& path, File& file) {
    return Open(path, O_WRONLY | O_CREAT | O_EXCL, file);
}

ErrorNumber OpenForAppending(const std::wstring& path, File& file) {
    return Open(path, O_WRONLY | O_CREAT | O_APPEND, file);
}

ErrorNumber ReadBytes(File file, void* bytes, size_t most, size_t& count) {
    ssize_t result = -1;
    do {
        result = read(HandleOf(file), bytes, most);
    } while (result == -1 && errno == EINTR);
    count = result == -1 ? 0 : static_cast<size_t>(result);
    return ErrorOf(result);
}

ErrorNumber WriteBytes(File file, const void* bytes, size_t count) {
    const auto* next = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t written = write(HandleOf(file), next, count);
        if (written == -1 && errno == EINTR) continue;
        if (written == -1) return ErrorOf(-1);
        if (written == 0) return kErrorDiskFull;
        next += written;
        count -= static_cast<size_t>(written);
    }
    return kErrorNone;
}

ErrorNumber SetPosition(File file, int64_t position) {
    return ErrorOf(lseek(HandleOf(file), position, SEEK_SET));
}

ErrorNumber FlushToDisk(File file) {
    return ErrorOf(fsync(HandleOf(file)));
}

ErrorNumber CloseFile(File& file) {
    if (!file.IsOpen()) return kErrorNone;
    const int result = close(HandleOf(file));
    file = File();
    // An interrupted close has closed the file all the same.
    return result == -1 && errno == EINTR ? kErrorNone : ErrorOf(result);
}

ErrorNumber GetFileStatus(const std::wstring& path, FileStatus& status) {
    status = FileStatus();
    std::string native;
    ErrorNumber error = NativePath(path, native);
    struct stat data;
    if (error == kErrorNone) error = ErrorOf(stat(native.c_str(), &data));
    if (error == kErrorFileNotFound || error == kErrorPathNotFound) return kErrorNone;
    if (error != kErrorNone) return error;
    status.exists = true;
    status.isDirectory = S_ISDIR(data.st_mode);
    status.isReadOnly = (data.st_mode & kWriteBits) == 0;
    status.size = data.st_size;
    status.modified = ModifiedTime(data);
    return kErrorNone;
}

ErrorNumber GetFileStamp(File file, FileStamp& stamp) {
    struct stat status;
    if (fstat(HandleOf(file), &status) == -1) return ErrorOf(-1);
    stamp = StampOf(status);
    return kErrorNone;
}

ErrorNumber GetFileStamp(const std::wstring& path, FileStamp& stamp) {
    std::string native;
    const ErrorNumber error = NativePath(path, native);
    if (error != kErrorNone) return error;
    struct stat status;
    if (stat(native.c_str(), &status) == -1) return ErrorOfPath(-1, native);
    stamp = StampOf(status);
    return kErrorNone;
}

ErrorNumber SetReadOnly(const std::wstring& path, bool readOnly) {
    std::string native;
    const ErrorNumber error = NativePath(path, native);
    if (error != kErrorNone) return error;
    struct stat status;
    if (stat(native.c_str(), &status) == -1) return ErrorOfPath(-1, native);
    const mode_t others = status.st_mode & 07777 & ~kWriteBits;
    const mode_t mode = readOnly ? others : (status.st_mode & 07777) | S_IWUSR;
    return ErrorOfPath(chmod(native.c_str(), mode), native);
}

ErrorNumber CopyAttributes(const std::wstring& from, const std::wstring& to) {
    std::string nativeFrom;
    std::string nativeTo;
    const ErrorNumber error = NativePaths(from, to, nativeFrom, nativeTo);
    if (error != kErrorNone) return error;
    struct stat status;
    if (stat(nativeFrom.c_str(), &status) == -1) return ErrorOfPath(-1, nativeFrom);
    // Only the administrator can give a file away.
    const bool isGiven = chown(nativeTo.c_str(), status.st_uid, status.st_gid) == 0;
    if (!isGiven) (void)!chown(nativeTo.c_str(), static_cast<uid_t>(-1), status.st_gid);
    return ErrorOfPath(chmod(nativeTo.c_str(), status.st_mode & 0777), nativeTo);
}

ErrorNumber RemoveFile(const std::wstring& path) {
    std::string native;
    const ErrorNumber error = NativePath(path, native);
    if (error != kErrorNone) return error;
    if (IsReadOnly(native)) return kErrorAccessDenied;
    return ErrorOfPath(unlink(native.c_str()), native);
}

ErrorNumber CopyBytes(const std::wstring& from, const std::wstring& to, bool overwrite) {
    File source;
    ErrorNumber error = OpenForReading(from, source);
    if (!source.IsOpen()) return error;
    File copy;
    if (overwrite && IsSameFile(source, to)) {
        error = kErrorSharingViolation;
    } else {
        error = overwrite ? CreateForWriting(to, copy) : CreateNewForWriting(to, copy);
    }
    if (copy.IsOpen()) {
        error = CopyAll(source, copy);
        const ErrorNumber closeError = CloseFile(copy);
        if (error == kErrorNone) error = closeError;
        if (error != kErrorNone) RemoveFile(to);
    }
    CloseFile(source);
    return error;
}

ErrorNumber RenameOver(const std::wstring& from, const std::wstring& to) {
    std::string nativeFrom;
    std::string nativeTo;
    const ErrorNumber error = NativePaths(from, to, nativeFrom, nativeTo);
    if (error != kErrorNone) return error;
    if (IsReadOnly(nativeTo)) return kErrorAccessDenied;
    if (rename(nativeFrom.c_str(), nativeTo.c_str()) == -1) return ErrorOfPath(-1, nativeTo);
    FlushFolderOf(nativeTo);
    return kErrorNone;
}

ErrorNumber RenameToNewName(const std::wstring& from, const std::wstring& to) {
    std::string nativeFrom;
    std::string nativeTo;
    const ErrorNumber error = NativePaths(from, to, nativeFrom, nativeTo);
    if (error != kErrorNone) return error;
    const int result =
        renameat2(AT_FDCWD, nativeFrom.c_str(), AT_FDCWD, nativeTo.c_str(), RENAME_NOREPLACE);
    if (result == -1) return ErrorOfPath(-1, nativeTo);
    FlushFolderOf(nativeTo);
    return kErrorNone;
}

ErrorNumber SwapIn(const std::wstring& target, const std::wstring& replacement,
                   const std::wstring& backup) {
    std::string nativeTarget;
    std::string nativeBackup;
    const ErrorNumber error = NativePaths(target, backup, nativeTarget, nativeBackup);
    if (error != kErrorNone) return error;
    if (IsReadOnly(nativeTarget)) return kErrorAccessDenied;
    FileStatus status;
    GetFileStatus(replacement, status);
    if (!status.exists) return kErrorFileNotFound;
    GetFileStatus(target, status);
    if (!status.exists) return kErrorFileNotFound;
    unlink(nativeBackup.c_str());
    if (link(nativeTarget.c_str(), nativeBackup.c_str()) == -1) {
        return ErrorOfPath(-1, nativeBackup);
    }
    const ErrorNumber renaming = RenameOver(replacement, target);
    if (renaming != kErrorNone) unlink(nativeBackup.c_str());
    return renaming;
}

ErrorNumber MakeLink(const std::wstring& existing, const std::wstring& name) {
    std::string nativeExisting;
    std::string nativeName;
    const ErrorNumber error = NativePaths(existing, name, nativeExisting, nativeName);
    if (error != kErrorNone) return error;
    return ErrorOfPath(link(nativeExisting.c_str(), nativeName.c_str()), nativeName);
}

std::wstring LinkedFile(const std::wstring& path) {
    std::string native;
    struct stat status;
    if (NativePath(path, native) != kErrorNone || lstat(native.c_str(), &status) == -1 ||
        !S_ISLNK(status.st_mode)) {
        return AbsolutePath(path);
    }
    char* const real = realpath(native.c_str(), nullptr);
    std::wstring linked = real != nullptr ? WindowsPath(real) : AbsolutePath(path);
    free(real);
    return linked;
}

std::vector<std::wstring> NamesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    std::string native;
    if (NativePath(folder, native) != kErrorNone) return names;
    DIR* const entries = opendir(native.c_str());
    if (entries == nullptr) return names;
    while (const dirent* const entry = readdir(entries)) {
        const std::wstring name = WideFromUtf8(entry->d_name);
        if (name != L"." && name != L"..") names.push_back(name);
    }
    closedir(entries);
    return names;
}

bool TakesNewFiles(const std::wstring& folder) {
    std::string native;
    return NativePath(folder, native) == kErrorNone && access(native.c_str(), W_OK) == 0;
}

ErrorNumber MakeDirectory(const std::wstring& path) {
    constexpr ErrorNumber kAlreadyExists = 183;
    std::string native;
    const ErrorNumber error = NativePath(path, native);
    if (error != kErrorNone) return error;
    if (mkdir(native.c_str(), 0777) == 0) return kErrorNone;
    return errno == EEXIST ? kAlreadyExists : ErrorOfPath(-1, native);
}

ErrorNumber RemoveEmptyDirectory(const std::wstring& path) {
    constexpr ErrorNumber kNoDirectory = 267;
    std::string native;
    const ErrorNumber error = NativePath(path, native);
    if (error != kErrorNone) return error;
    if (rmdir(native.c_str()) == 0) return kErrorNone;
    return errno == ENOTDIR ? kNoDirectory : ErrorOfPath(-1, native);
}

}  // namespace corvane::system
