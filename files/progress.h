// How far an operation is that may take long. From half a second on the user sees it, in per cent,
// and can cancel it. There is one thread: the user is heard between two steps, so a step must be
// short, such as one buffer of a file.
#pragma once

#include <cstdint>

namespace corvane {

// Lives as long as the operation. What an operation inside of another one shows hides that of the
// outer one, which comes back with its next step.
struct Progress {
    int64_t total;     // of the steps that there are to do: bytes, or items; 0: not known
    int64_t done = 0;  // a place may be read twice, so this may become more than the total
    int64_t nextShow_ms;
    bool isShown = false;
    bool isCancelled = false;

    explicit Progress(int64_t itsTotal = 0);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
};

// So many bytes or items more are done. False from the time on that the user has cancelled.
bool Advance(Progress& progress, int64_t more);

}  // namespace corvane
