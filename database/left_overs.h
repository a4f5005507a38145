// Files that edits of a database left beside it because the process ended before the edit did.
#pragma once

#include <string>
#include <vector>

namespace corvane {

struct LeftOver {
    std::wstring path;
    bool isPart = false;  // the database begins with all that is in it: it has nothing of its own
};

// Files in the folder of the database that have a temporary name (files/file_system.h) and the text
// of a database, whole or in part. One that another program is still writing is not left over.
std::vector<LeftOver> FindLeftOvers(const std::wstring& database);

// Whether a database begins with all bytes of another file. False where one of them cannot be read.
bool IsPartOfDatabase(const std::wstring& file, const std::wstring& database);

}  // namespace corvane
