// The commands of the Help menu.
#pragma once

namespace corvane {

// The About box: the application's title with the program's version.
void ME_HelpAbout_Click();

}  // namespace corvane
