// The file of a legacy database: docs/legacy-form.md gives the layout. A file is read whole and
// written whole: the new text goes to a new file in the same folder, which then replaces
// the old one, so that a legacy database is never half written.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/system.h"
#include "platform/ztvelk32.h"

namespace corvane::ztvelk32 {

inline constexpr char kMagic[8] = {'C', 'V', 'N', 'L', 'E', 'G', '\r', '\n'};
inline constexpr uint32_t kFormatVersion = 1;
inline constexpr int16_t kMostSections = 999;

// Magic, version and checksum stay where they are in all versions.
struct FileHead {
    char magic[8];
    uint32_t version;
    uint32_t sectionCount;
    uint32_t unused[3];
    uint32_t checksum;  // of the bytes before it
};
static_assert(sizeof(FileHead) == 32);

struct ShipBlock {
    LegacyBsd bsd;
    uint32_t checksum;  // of `bsd`
};
static_assert(sizeof(ShipBlock) == 1188);

struct Slot {
    LegacySectionEntry entry;
    LegacySectionRecord record;
    uint32_t checksum;  // of the bytes before it
};
static_assert(offsetof(Slot, record) == 44 && offsetof(Slot, checksum) == 16596);
static_assert(sizeof(Slot) == 16600);

struct Database {
    LegacyBsd bsd{};
    std::vector<Slot> slots;
};

// All return a kLegacy... status. What was not read is left as it was. A program that holds the
// file is waited for, about a second.
int16_t ReadDatabase(const std::wstring& path, Database& database);
// The same for a file that is to be changed: nobody writes into it meanwhile. `stamp` is what the
// file is.
int16_t ReadForChange(const std::wstring& path, Database& database, system::FileStamp& stamp);
// One section, from 1; no other section is looked at.
int16_t ReadSlot(const std::wstring& path, int16_t section, Slot& slot);
// Sets the checksums. `old`: the file that is replaced, which must still be what it was; null: any
// file, or none. A read-only file is not written. On failure the old file is as it was, and
// `leftOver` is the new one, where it could not be removed.
int16_t WriteDatabase(const std::wstring& path, Database& database, const system::FileStamp* old,
                      std::wstring& leftOver);

}  // namespace corvane::ztvelk32
