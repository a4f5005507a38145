// The log of this program: what it is, and then which commands ran, which files were opened and
// written, which programs ran, and what went wrong. No name of a model, and nothing else of what a
// database holds.
#pragma once

#include <string>

namespace corvane {

// Where log and dumps of crashes are, with a trailing "\": "Corvane" in the user's local
// application data, or the program's folder where its settings are there. Empty: the user has no
// such folder.
std::wstring LogFolder();
// Full path of the log; empty when no folder for it is known.
std::wstring LogPath();

// From now on the reporters write a log. The first entries are the versions of program and system.
void StartLog();
// The versions of the companion libraries, or that one is not found.
void LogLibraries();

}  // namespace corvane
