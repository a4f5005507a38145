// Stamp lines: comment lines that tell who wrote a file head or a block, when, and in which layout.
#pragma once

#include <string>

#include "files/text_file.h"

namespace corvane {

// What the stamps tell; gathered once per file written.
struct Stamp {
    std::wstring firstIdentification;  // from the settings file, trimmed
    std::wstring secondIdentification;
    std::wstring date;  // in the user's formats
    std::wstring time;
    std::wstring userName;  // empty: no line for it
};
Stamp CurrentStamp();

void WriteStampLines(TextWriter& writer, const Stamp& stamp, float formatVersion);

}  // namespace corvane
