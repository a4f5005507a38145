// The commands of the Help menu.
#pragma once

#include <string>

namespace corvane {

// The About box: the application's title with the program's version.
void ME_HelpAbout_Click();

// Asks where, copies the sample ship there, and opens the copy.
void ME_HelpSample_Click();
// The sample ship beside the program.
std::wstring SamplePath();

}  // namespace corvane
