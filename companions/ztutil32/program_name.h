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

// Length of the program file's name at the front of a command line. Of the beginnings that end in
// ".exe" before a blank or the end, it is the longest one that names a file, so that neither a
// blank nor an ".exe" in a folder's name starts another program; the shortest one where none does.
// A name in quotes ends with the second one, which is counted. 0: no program is named.
template <class Character, class IsFile>
size_t ProgramNameLength(std::basic_string_view<Character> commandLine, IsFile isFile) {
    if (!commandLine.empty() && commandLine[0] == '"') {
        const size_t quote = commandLine.find('"', 1);
        return quote == commandLine.npos ? 0 : quote + 1;
    }
    size_t shortest = 0;
    for (size_t end = commandLine.size(); end >= 4; --end) {
        const bool isEnd = end == commandLine.size() || commandLine[end] == ' ';
        if (!isEnd || !IsExtensionAt(commandLine, end - 4)) continue;
        if (isFile(commandLine.substr(0, end))) return end;
        shortest = end;
    }
    return shortest;
}

// The program file's name, without quotes; empty when the command line names none.
template <class Character, class IsFile>
std::basic_string<Character> ProgramName(std::basic_string_view<Character> commandLine,
                                         IsFile isFile) {
    const size_t length = ProgramNameLength(commandLine, isFile);
    if (length > 1 && commandLine[0] == '"') {
        return std::basic_string<Character>(commandLine.substr(1, length - 2));
    }
    return std::basic_string<Character>(commandLine.substr(0, length));
}

}  // namespace corvane::ztutil
