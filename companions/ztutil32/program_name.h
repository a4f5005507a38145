// Which part of a command line names the program file.
#pragma once

#include <algorithm>
#include <string>

namespace corvane::ztutil {

// Whether ".exe", in any case, is at `position`.
template <class Character>
bool IsExtensionAt(std::basic_string_view<Character> text, size_t position) {
    constexpr std::string_view kExtension = ".exe";
    if (text.size() - position < kExtension.size()) return false;
    return std::equal(kExtension.begin(), kExtension.end(), text.begin() + position,
                      [](char wanted, Character found) {
                          return found == static_cast<Character>(wanted) ||
                                 (wanted != '.' && found == static_cast<Character>(wanted - 0x20));
                      });
}

// Length of the program file's name at the front of a command line: up to the first ".exe" that a
// blank or the end follows. A name in quotes ends with the second one, which is counted. 0: no
// program is named.
template <class Character>
size_t ProgramNameLength(std::basic_string_view<Character> commandLine) {
    if (!commandLine.empty() && commandLine[0] == '"') {
        const size_t quote = commandLine.find('"', 1);
        return quote == commandLine.npos ? 0 : quote + 1;
    }
    for (size_t i = 0; i + 4 <= commandLine.size(); ++i) {
        const bool isEnd = i + 4 == commandLine.size() || commandLine[i + 4] == ' ';
        if (isEnd && IsExtensionAt(commandLine, i)) return i + 4;
    }
    return 0;
}

// The program file's name, without quotes; empty when the command line names none.
template <class Character>
std::basic_string<Character> ProgramName(std::basic_string_view<Character> commandLine) {
    const size_t length = ProgramNameLength(commandLine);
    if (length > 1 && commandLine[0] == '"') {
        return std::basic_string<Character>(commandLine.substr(1, length - 2));
    }
    return std::basic_string<Character>(commandLine.substr(0, length));
}

}  // namespace corvane::ztutil
