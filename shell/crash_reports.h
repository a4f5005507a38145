// What a crash left behind: a dump, which the next start names to the user.
#pragma once

namespace corvane {

// Of the dumps in the log's folder so many are kept, the newest ones.
inline constexpr int kDumpsKept = 5;

// From now on a crash leaves a dump in the log's folder, and an entry in the log.
void CatchCrashes();

// Says in one box that the program crashed when it ran last, where the dump is, and what to do;
// once for each dump. Dumps that are too many are removed.
void ReportCrashes();

}  // namespace corvane
