// What is left of a process that crashes: a dump, which a debugger reads, and an entry in the log.
#pragma once

#include <string>

namespace corvane::system {

// From now on a crash of this process (a fault of the processor, an exception that nobody catches,
// an assertion that fails) leaves a dump in `folder`, a path with a "\" at its end: "Corvane
// 2026-11-23 164012 1234.new.dmp", with date, time and number of the process, empty when the system
// could not write it; and a line in the file `log`. Then the system goes on as without it. What
// that takes is made ready now, since a crash may have damaged anything. Nothing on the host, with
// an empty folder, and with paths of more than 4000 characters.
void CatchCrashes(const std::wstring& folder, const std::wstring& log);

// Crashes in the way that the environment variable CORVANE_CRASH names (docs/debugging.md), for the
// tests of what is left. Nothing without the variable, and on the host.
void CrashIfAsked();

}  // namespace corvane::system
