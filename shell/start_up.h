// Start-up and shutdown, on the one thread of the user interface.
#pragma once

#include <string>

namespace corvane {

// All that happens before the program runs on its main window's events. `commandLine` is what
// follows the program's name. False: the process is to end at once (a second instance, a companion
// library that does not fit, regional settings refused).
bool Main(const std::wstring& commandLine);

// Main's two ways: brings the instance that runs already to the front, or starts this one.
void GiveWayToRunningInstance();
bool StartUp(const std::wstring& commandLine);

// Whether numbers are written with "." in the user's regional settings; offers to change them.
bool CheckRegionalSettings();

// Writes the settings and restores the current directory; the caller ends the process.
void ShutDown();

}  // namespace corvane
