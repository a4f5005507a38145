// The hooks of the host: the linker gives every call of these functions of the C library to
// __wrap_..., and the library's own function the name __real_... (option --wrap).
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>

#include "tests/faults/injection.h"

extern "C" {
int __real_open(const char* path, int flags, ...);
ssize_t __real_read(int file, void* bytes, size_t count);
ssize_t __real_write(int file, const void* bytes, size_t count);
off_t __real_lseek(int file, off_t offset, int origin);
int __real_fsync(int file);
int __real_close(int file);
int __real_stat(const char* path, struct stat* status);
int __real_fstat(int file, struct stat* status);
int __real_chmod(const char* path, mode_t mode);
int __real_rename(const char* from, const char* to);
int __real_renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                     unsigned int flags);
int __real_link(const char* from, const char* to);
int __real_unlink(const char* path);
}

namespace corvane::faults {
namespace {

int ErrnoOf(system::ErrorNumber error) {
    switch (error) {
        case system::kErrorAccessDenied:
            return EACCES;
        case system::kErrorSharingViolation:
            return EBUSY;
        case system::kErrorDiskFull:
            return ENOSPC;
        default:
            return EIO;
    }
}

template <class Function, class... Arguments>
auto Interpose(const char* kind, Function real, Arguments... arguments) {
    if (BeforeCall(kind) == Step::kFail) {
        errno = ErrnoOf(PlannedError());
        return static_cast<decltype(real(arguments...))>(-1);
    }
    const auto result = real(arguments...);
    AfterCall();
    return result;
}

}  // namespace

// It is locked after the look whether it is a folder.
const int kCallsOfAnOpening = 2;
const int kCallsOfARename = 2;

void InstallHooks() {}

void KillThisProcess() {
    raise(SIGKILL);
    abort();
}

void SetTemporaryFolder(const std::wstring& folder) {
    std::string native;
    for (const wchar_t character : folder.substr(2)) {
        native += character == L'\\' ? '/' : static_cast<char>(character);
    }
    setenv("TMPDIR", native.c_str(), 1);
}

}  // namespace corvane::faults

using corvane::faults::Interpose;
using corvane::faults::Step;

extern "C" {

int __wrap_open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return Interpose("open", __real_open, path, flags, mode);
}

ssize_t __wrap_read(int file, void* bytes, size_t count) {
    return Interpose("read", __real_read, file, bytes, count);
}

ssize_t __wrap_write(int file, const void* bytes, size_t count) {
    const Step step = corvane::faults::BeforeCall("write");
    if (step == Step::kFail) {
        errno = corvane::faults::ErrnoOf(corvane::faults::PlannedError());
        return -1;
    }
    const ssize_t written = __real_write(file, bytes, step == Step::kHalf ? count / 2 : count);
    if (step == Step::kHalf) corvane::faults::AfterHalf();
    corvane::faults::AfterCall();
    return written;
}

off_t __wrap_lseek(int file, off_t offset, int origin) {
    return Interpose("lseek", __real_lseek, file, offset, origin);
}

int __wrap_fsync(int file) {
    return Interpose("fsync", __real_fsync, file);
}

// Closing fails only after the fact: the system gives the handle back in any case.
int __wrap_close(int file) {
    const bool fails = corvane::faults::BeforeCall("close") == Step::kFail;
    const int result = __real_close(file);
    corvane::faults::AfterCall();
    if (!fails) return result;
    errno = corvane::faults::ErrnoOf(corvane::faults::PlannedError());
    return -1;
}

int __wrap_stat(const char* path, struct stat* status) {
    return Interpose("stat", __real_stat, path, status);
}

int __wrap_fstat(int file, struct stat* status) {
    return Interpose("fstat", __real_fstat, file, status);
}

int __wrap_chmod(const char* path, mode_t mode) {
    return Interpose("chmod", __real_chmod, path, mode);
}

int __wrap_rename(const char* from, const char* to) {
    return Interpose("rename", __real_rename, from, to);
}

int __wrap_renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                     unsigned int flags) {
    return Interpose("renameat2", __real_renameat2, fromFolder, from, toFolder, to, flags);
}

int __wrap_link(const char* from, const char* to) {
    return Interpose("link", __real_link, from, to);
}

int __wrap_unlink(const char* path) {
    return Interpose("unlink", __real_unlink, path);
}

}  // extern "C"
