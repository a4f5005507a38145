// What another program holds is often free a moment later, so calls that fail for that reason are
// made again, for about a second.
#pragma once

#include <array>

#include "platform/system.h"

namespace corvane::system {

// Another program lets nobody open the file, or not in this way.
inline bool IsLocked(ErrorNumber error) {
    return error == kErrorSharingViolation || error == kErrorLockViolation;
}

// Another program may hold the file that is to be replaced or removed; or nobody may do so.
inline bool IsHeldByAnother(ErrorNumber error) {
    return error == kErrorAccessDenied || IsLocked(error);
}

// Calls again, after a pause, as long as the error is one of those that may pass.
template <class MayPass, class Call>
ErrorNumber CallPatiently(MayPass mayPass, Call call) {
    constexpr std::array kPauses_ms = {10, 30, 60, 120, 240, 540};
    ErrorNumber error = call();
    for (const int pause : kPauses_ms) {
        if (!mayPass(error)) break;
        SleepFor(pause);
        error = call();
    }
    return error;
}

}  // namespace corvane::system
