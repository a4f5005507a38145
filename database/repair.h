// Repairs what the check of a database found and what can be repaired without loss: numbers and
// identifiers of models, the last line's end, files that were left over. CheckResult::repairs has
// each change before it is made.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "database/check.h"

namespace corvane {

// How many changes were made, by RepairKind.
using RepairCounts = std::array<int64_t, 4>;

// Makes these changes, all or some of those that the check planned; numbers of models all together
// or not at all. The text is written again once, as by any edit: the old text enters the history
// and becomes the backup, and all lines that are not repaired are copied byte by byte. A file that
// was left over goes when the database still begins with all that is in it, after the text is in
// place.
//
// A read-only file (1086), a file that is no longer the one that was checked (3963), and one that
// cannot be written are reported: false, and nothing has changed. True where there is nothing to
// repair.
bool RepairDatabase(const std::wstring& path, const system::FileStamp& checked,
                    const std::vector<Repair>& repairs, RepairCounts& done);

}  // namespace corvane
