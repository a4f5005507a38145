// The edits that faults are injected into: each rewrites a file through the program's own
// procedures.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::faults {

struct Edit {
    std::string name;
    bool startsWithFile = true;
    bool startsWithBackup = false;  // an older one
    bool keepsBackup = false;
    // True when the procedure says that the file has the new text.
    bool (*run)(const std::wstring& path) = nullptr;
    bool keepsText = true;  // the new text has what the edit did not change of the old one
};

// GoogleTest's way to show one.
inline void PrintTo(const Edit& edit, std::ostream* out) {
    *out << edit.name;
}

const std::vector<Edit>& Edits();
// Null when there is none of that name.
const Edit* FindEdit(std::string_view name);

// The database that every edit begins with: a torsion model whose text alone fills a buffer, two
// sections and a bulkhead arrangement. Made by the program's procedures at the first call.
const std::string& OldDatabase();
// Loads the libraries that the edits call, so that none is looked for while calls are counted.
void LoadLibraries();
// What an older backup holds.
inline constexpr std::string_view kOlderBackup = "an older backup\r\n";

}  // namespace corvane::faults
