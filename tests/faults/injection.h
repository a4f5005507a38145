// Faults at the calls that reach the file system: the process dies at one of them, or one fails.
//
// Every such call that the program makes goes through host/hooks.cpp or win32/hooks.cpp, which
// count it here and do as planned. On the host these are the calls of the C library, for Windows
// those of the system itself (NtWriteFile ...), so that a procedure of Windows that takes several
// steps is stopped between them as well.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/system.h"

namespace corvane::faults {

enum class Fault {
    kNone,
    kKillBefore,  // the process dies before the call,
    kKillWithin,  // with half of a write done,
    kKillAfter,   // or after the call
    kFailOnce,    // the call fails; the next one of its kind succeeds
    kFailKind,    // it fails, and so does every later call of the same kind
    kFailAll,     // it fails, and so does every later call
    kShortWrite,  // half of a write is done, and the call succeeds
    kMeanwhile,   // another program acts before the call (Plan::meanwhile)
};

struct Plan {
    Fault fault = Fault::kNone;
    int call = 0;  // the first one is 1
    system::ErrorNumber error = system::kErrorNone;
    std::function<void()> meanwhile = {};
};

// From here on calls are counted, and the plan is followed.
void StartFaults(const Plan& plan);
// Ends it. The kinds of the calls made since, in order.
std::vector<std::string> StopFaults();

// What the hooks of Windows call the one of NtSetInformationFile's calls that renames.
inline constexpr char kRenameForWindows[] = "NtSetInformationFile (rename)";

inline bool IsOpening(const std::string& kind) {
    return kind == "open" || kind == "NtCreateFile";
}
inline bool IsWrite(const std::string& kind) {
    return kind == "write" || kind == "NtWriteFile";
}
inline bool IsFlush(const std::string& kind) {
    return kind == "fsync" || kind == "NtFlushBuffersFile";
}
inline bool IsClose(const std::string& kind) {
    return kind == "close" || kind == "NtClose";
}
inline bool IsRename(const std::string& kind) {
    return kind == "rename" || kind == "renameat2" || kind == kRenameForWindows;
}

// How many calls open a database so that nobody writes into it.
extern const int kCallsOfAnOpening;

// How many calls the last rename of an edit takes, from the first one on after which nothing is
// noticed of what happens to the target.
extern const int kCallsOfARename;

// ---- For the hooks -----------------------------------------------------------------------------

enum class Step { kPass, kFail, kHalf };

// Counts a call; does not return when the process is to die before it.
Step BeforeCall(const char* kind);
// The call has been made; does not return when the process is to die now.
void AfterCall();
// A half write has been made.
void AfterHalf();
system::ErrorNumber PlannedError();

// ---- Twins -------------------------------------------------------------------------------------

// Puts the hooks in place; once, before the first StartFaults.
void InstallHooks();
// Ends the process at once, with no chance to clean up; for Windows, with this exit status.
inline constexpr uint32_t kKilledStatus = 99;
[[noreturn]] void KillThisProcess();
void SetTemporaryFolder(const std::wstring& folder);

}  // namespace corvane::faults
