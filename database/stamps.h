// Stamp lines: comment lines that say who wrote a file head or a block, when, and in which layout.
// Readers skip them as they skip every comment.
#pragma once

#include <string>
#include <string_view>

#include "files/text_file.h"

namespace corvane {

// What the stamps say; gathered once per file written.
struct Stamp {
    // From the settings file, trimmed, of at most 400 characters; empty when it has none.
    std::wstring firstIdentification;
    std::wstring secondIdentification;
    std::wstring date;  // in the user's formats
    std::wstring time;
    std::wstring userName;  // empty: no line for it
};
Stamp CurrentStamp();

// Three lines, and a fourth where there is a user's name, each after the comment rule of the
// catalogue, in the ANSI code page (a letter that it lacks is "?"). With the usual catalogue:
//     * Program : Corvane 1.0 R0 32bit
//     * Format version :  2.002
//     * Written by : Yard, Oslo 20/11/2026,  17:45:00
//     * User : ann
// The blank after "Oslo" is left out where there is no second identification.
void WriteStampLines(TextWriter& writer, const Stamp& stamp, float formatVersion);

// Stamp lines as they are in a file, each without what comes before its colon.
struct StampTexts {
    std::wstring written;  // by whom, and when
    std::wstring user;
    std::wstring program;
    std::wstring formatVersion;
};
// Adds what a line says; nothing when it is no stamp line.
void ReadStampLine(std::string_view line, StampTexts& texts);

}  // namespace corvane
