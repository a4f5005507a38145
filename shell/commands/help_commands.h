// The commands of the Help menu.
#pragma once

#include <string>

namespace corvane {

// The About box: the application's title with the program's version.
void ME_HelpAbout_Click();

// Opens the user guide at its first page.
void ME_HelpContents_Click();

// Puts on the clipboard what a report of a problem needs.
void ME_HelpDetails_Click();

// Opens the folder of the log and of the dumps of crashes.
void ME_HelpLog_Click();

// Asks where, copies the sample ship there, and opens the copy.
void ME_HelpSample_Click();
// The sample ship beside the program.
std::wstring SamplePath();

}  // namespace corvane
