// Databases of the suite's DOS days, and the open database.
#pragma once

#include <string>

#include "legacy/exchange_report.h"

namespace corvane {

// Converts a legacy database into a new model database in WorkDirectory, which becomes the open one
// with its first model as the current one. Without a name the user is asked for the file. The new
// file's base name is the old one's; that of "star" is made of its folder. It becomes the ship's
// name, in upper case. An existing file is replaced only when the user says so. Sections
// that the library does not list are asked for by their numbers; where it cannot be asked, those of
// the list are converted, when the user says so. What became of each section is reported at the
// end.
//
// What fails is reported and leaves every file and the open database as they were. The current
// directory is the same afterwards; BrowseDirectory becomes the legacy file's folder.
void OpenLegacyDatabase(std::wstring path = {});

// The same for files that are named, without a question for the name: the new database is put at
// `target`, and does not become the open one. The ship's name is made of the legacy file's name.
// True when the database is there.
bool ConvertLegacyDatabase(const std::wstring& source, const std::wstring& target);

// Writes the sections of the open database into a new legacy database: when the library or the disk
// fails, which is reported, the file of that name is as it was. A section that cannot be read is
// reported and left out. True when the file is there; what became of each model is in `report`.
bool SaveAsLegacyDatabase(const std::wstring& path, ExchangeReport& report);

}  // namespace corvane
