// The command line: the switches "/d", "/mil" and "/JBP" and one database path.
#pragma once

#include <string>
#include <vector>

namespace corvane {

// Whether the switch is on the line, letter case aside. Only its first occurrence is judged: it
// counts when a blank follows it, or when at most one character is left after it. A switch that
// counts is blanked out of the line, and the line is trimmed.
bool SwitchPresent(std::wstring& commandLine, std::wstring_view switchText);

// Takes "/d" and "/mil" off the line and splits the rest into arguments: all quoted ones first,
// wherever they are, then the words. The result is the first argument; the others go to
// `furtherArguments` as far as it already has room.
std::wstring ParseCommandLine(const std::wstring& commandLine, bool& debug, bool& mil,
                              std::vector<std::wstring>& furtherArguments);

}  // namespace corvane
