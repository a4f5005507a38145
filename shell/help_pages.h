// The pages of the user guide that F1 opens: which one is about a command, or about a part of the
// window. The build makes them of docs/user-guide.md, one for each chapter, and puts them into
// help\ beside the program (cmake/make_guide.py).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

// What F1 asks about besides commands (shell/commands/commands.h), whose numbers are others.
enum HelpTopic : uint16_t {
    kHelpContents,  // the guide's first page
    kHelpPath,      // the parts of the main window
    kHelpList,
    kHelpFilter,
    kHelpPreview,
    kHelpRuleSet,
    kHelpWarning,    // the box of a warning
    kHelpStandIns,   // the suite's programs, as long as they are stand-ins
    kHelpIsOpening,  // nothing: the guide is being opened
};

// The name of the page about a command or a HelpTopic, without its extension: "settings". Any other
// number has the guide's first page, "index".
std::wstring_view HelpPageName(uint16_t about);
// Its full path.
std::wstring HelpPagePath(uint16_t about);

// Opens the page in the user's browser. Reports a page that is not there or cannot be opened.
void ShowHelp(uint16_t about);

// While it lives F1 in a box is about a command or a topic. Nothing comes in the place of
// kHelpIsOpening: F1 in the box that reports why the guide cannot be opened does nothing.
class HelpAbout {
public:
    explicit HelpAbout(uint16_t about);
    ~HelpAbout();
    HelpAbout(const HelpAbout&) = delete;
    HelpAbout& operator=(const HelpAbout&) = delete;

private:
    uint16_t before_;
};

}  // namespace corvane
