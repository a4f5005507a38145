// Start-up and shutdown, on the one thread of the user interface.
#pragma once

#include <string>

#include "shell/view.h"

namespace corvane {

// All that happens before the program runs on its main window's events. `commandLine` is what
// follows the program's name. False: the process is to end at once (a second instance, a companion
// library that does not fit, regional settings refused).
bool Main(const std::wstring& commandLine);

// Main's two ways. The first brings the instance that runs already to the front and hands it the
// file of the command line, or reports that it does not take it; false when that instance shows no
// window, and the user wants to start this one. The second starts this one.
bool GiveWayToRunningInstance(const std::wstring& commandLine);
bool StartUp(const std::wstring& commandLine);

// A second start handed over a file: it is opened as File > Open opens it, or, when this instance
// was at work (`wasAtWork`), the user is asked first.
void OpenHandedOver(const StartRequest& request, bool wasAtWork);

// Whether numbers are written with "." in the user's regional settings; offers to change them.
bool CheckRegionalSettings();

// Writes the settings and restores the current directory; the caller ends the process. Settings
// that cannot be saved are reported in a box, but not at the end of the Windows session, which a
// box would hold up.
void ShutDown(bool sessionEnds = false);

}  // namespace corvane
