// A log: a text file in UTF-8, one line for each entry, "2026-11-23 16:40:12 1234 command
// ME_FileNew": local time, number of the process, kind, text. Several programs may write into one
// log.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "report/reporters.h"

namespace corvane {

// A log that would become longer [bytes] becomes the older one, in place of the one before.
inline constexpr int64_t kLongestLog = int64_t{512} * 1024;
// Of an entry's text no more characters are written.
inline constexpr size_t kLongestEntry = 1000;

// A disk that answers late is written to so many times, and then no longer.
inline constexpr int kMostSlowEntries = 3;

struct LogFile {
    std::wstring path;    // empty: there is no log
    int slowEntries = 0;  // that took long to write; see kMostSlowEntries
};

// The log that is no longer written to: "corvane.old.log" beside "corvane.log".
std::wstring OlderLog(const std::wstring& path);

// The line of an entry. What is no character of a text becomes a blank, so that it stays one line.
std::string LogLine(const system::LocalTime& time, LogKind kind, std::wstring_view text);

// Adds an entry. A log that cannot be written is left alone: nobody is disturbed, and the next
// entry is tried again.
void WriteEntry(LogFile& log, LogKind kind, std::wstring_view text);

}  // namespace corvane
