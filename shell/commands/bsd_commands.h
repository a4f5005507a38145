// The commands of the BSD menu, on the Basic Ship Data of the open database.
#pragma once

#include <string>

namespace corvane {

struct BasicShipData;  // bsd/basic_ship_data.h

// Edits the data in the suite's BSD program, and reads them again when the file has changed.
void ME_FileBSD_Click();

// Takes the data from a standalone file ("bsd"), a legacy database ("vel") or a database (any other
// extension) into the open database, whose valid data are replaced only when the user says so. When
// the source cannot be read, or the database cannot be written, which is reported, the data are as
// they were.
void ME_FileImportBSD_Click();

// Reads the data that a file of one of these kinds has. False, and reported, when it cannot.
bool ReadShipDataOf(const std::wstring& path, BasicShipData& bsd);

// False, and reported (3794), when a file that is to be opened as the database holds Basic Ship
// Data alone, as its extension "bsd" says.
bool RequireNoShipDataFile(const std::wstring& path);

}  // namespace corvane
