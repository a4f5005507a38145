// Reports a read that has failed.
#pragma once

#include <string>

#include "files/text_file.h"

namespace corvane {

// Whether a read of this reader has failed, or the file could not be opened, which is then reported
// (message 3509); that the user has cancelled is noted in the status line (3731).
bool ReportReadFault(const TextReader& reader, const std::wstring& path);

// The programs that have a file open, for a message (3692, 3694): their names, or that the system
// does not say.
std::wstring HoldersOf(const std::wstring& path);

}  // namespace corvane
