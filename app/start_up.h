// Start-up and shutdown, on the one thread of the user interface.
#pragma once

#include <string>

namespace corvane {

// All that happens before the program runs on its main window's events. `commandLine` is what
// follows the program's name. False: the process is to end at once (a second instance, a companion
// library that does not fit, regional settings refused).
bool Main(const std::wstring& commandLine);

// Compares the versions of the companion libraries with what the program needs; the first that
// does not fit is reported (message 1052), and the result is false.
bool CheckLibraryVersions();

// Whether numbers are written with "." in the user's regional settings; offers to change them.
bool CheckRegionalSettings();

// Writes the settings and restores the current directory; the caller ends the process.
void ShutDown();

// The title without the rule-set suffixes at its end.
std::wstring WithoutRuleSetSuffixes(std::wstring title);

}  // namespace corvane
