// Files that an edit left beside a database because the process ended before the edit did: a crash,
// a power cut. They have a temporary name (files/file_system.h) and the text of a database, whole
// or in part. Nothing here deletes one.
#pragma once

#include <string>

namespace corvane {

// Informs the user (3740) of such files in the folder of a database, of each once for as long as
// the process lives. One that another program is still writing is not left over.
void ReportLeftOvers(const std::wstring& database);

// False, and reported (3742), when a file that is to be opened as the database is such a file.
bool RequireNoLeftOver(const std::wstring& path);

}  // namespace corvane
