#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/host/native.h"
#include "platform/single_instance.h"
#include "platform/system.h"

namespace corvane::system {
namespace {

// The lock lives as long as the process: its file is never closed.
bool ClaimLockFile() {
    std::string native;
    if (NativePath(TemporaryDirectory() + InstanceName(ProgramPath()), native) != kErrorNone) {
        return false;
    }
    const int handle = open(native.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    return handle != -1 && flock(handle, LOCK_EX | LOCK_NB) == 0;
}

}  // namespace

std::wstring RawCommandLine() {
    const char* line = std::getenv("CORVANE_COMMAND_LINE");
    return line == nullptr ? std::wstring() : WideFromUtf8(line);
}

bool ClaimSingleInstance() {
    static const bool claimed = ClaimLockFile();
    return claimed;
}

std::wstring SystemVersion() {
    utsname system;
    if (uname(&system) != 0) return L"POSIX";
    return WideFromUtf8(std::string(system.sysname) + ' ' + system.release);
}

uint32_t ProcessNumber() {
    return static_cast<uint32_t>(getpid());
}

// The host has no list of them for users.
std::wstring ProgramsThatHold(const std::wstring&) {
    return {};
}

bool IsProgramRunning(const std::wstring& path) {
    std::string native;
    struct stat wanted;
    if (NativePath(path, native) != kErrorNone || stat(native.c_str(), &wanted) == -1) return false;
    std::error_code ignored;
    for (const auto& process : std::filesystem::directory_iterator("/proc", ignored)) {
        struct stat found;
        if (stat((process.path() / "exe").c_str(), &found) == -1) continue;
        if (found.st_dev == wanted.st_dev && found.st_ino == wanted.st_ino) return true;
    }
    return false;
}

ErrorNumber LastError() {
    return errno == 0 ? kErrorNone : ErrorFromErrno(errno);
}

void ClearLastError() {
    errno = 0;
}

}  // namespace corvane::system
