// Stamp lines: comment lines that say who wrote a file head or a block, when, and in which layout.
// Readers skip them as they skip every comment.
#pragma once

#include <string>

#include "files/text_file.h"

namespace corvane {

// What the stamps say; gathered once per file written.
struct Stamp {
    std::wstring firstIdentification;  // from the settings file, trimmed
    std::wstring secondIdentification;
    std::wstring date;  // in the user's formats
    std::wstring time;
    std::wstring userName;  // empty: no line for it
};
Stamp CurrentStamp();

// Three lines, and a fourth where there is a user's name.
void WriteStampLines(TextWriter& writer, const Stamp& stamp, float formatVersion);

}  // namespace corvane
