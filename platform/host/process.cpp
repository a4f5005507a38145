#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstdlib>

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

ErrorNumber LastError() {
    return errno == 0 ? kErrorNone : ErrorFromErrno(errno);
}

void ClearLastError() {
    errno = 0;
}

}  // namespace corvane::system
