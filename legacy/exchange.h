// The exchange with a legacy database: whole conversations with the legacy library. The library
// does all work on the file; a status other than 0 is reported, and ends the conversation. What it
// had written by then stays in the file. An export ends with the list of sections, whose status
// says whether all of it has been written: the calls for the blocks of a section have none. Then it
// is read again, so that a library that fails without a word is found out.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/listing.h"
#include "database/section.h"
#include "legacy/exchange_report.h"

namespace corvane {

// ---- Export ------------------------------------------------------------------------------------

// A field below this value is not set.
inline constexpr float kUnsetBelow = 0.001F;
// With this one all fields count as not set.
inline constexpr float kAllUnset = 1e38F;

// Gives what the section lacks the ship's values: an empty name, position (half of the length),
// breadth, depth, draught, the three codes, and the slopes 30 and 45 degrees.
void SetSectionDefaults(SectionModel& section, const BasicShipData& bsd,
                        float threshold = kAllUnset);

struct LegacySlot {
    std::wstring path;
    int16_t number = 0;       // from 1; with `isNew` the number of the slot that is added
    bool isNew = true;        // false: the slot is overwritten, its name in the list stays
    std::wstring shown = {};  // the file's name in messages; empty: its path
};

// Writes the section into a slot of an existing legacy database. The section gets the defaults that
// it lacks (with message 1074 when breadth or draught is one of them) and its geometry computed.
// Then it is read again. False, and reported, when the library reports a failure, and when it gives
// back something else than it got (3984); otherwise what became of the section is added to
// `report`.
bool ExportSection(const LegacySlot& slot, SectionModel& section, const BasicShipData& bsd,
                   ExchangeReport& report);

// Makes a new legacy database at `path`, instead of any file there, of the ship's data alone.
// `shown` is its name in messages. False, and reported, when the library reports a failure.
bool CreateLegacyDatabase(const std::wstring& path, const std::wstring& shown,
                          const BasicShipData& bsd);

// A whole database on its way.
struct DatabasePaths {
    std::wstring source, target;
    std::wstring shown = {};  // the target's name in messages; empty: its path
};
// Makes a new legacy database at `target`, instead of any file there, of all sections of the
// model database `source`, in file order, and of its ship's data; one that cannot be read is
// reported and left out. At the end all of it is read again. False, and reported, when `source` is
// not a model database, and in the cases of ExportSection. What became of each model is added to
// `report`.
bool ExportDatabase(const DatabasePaths& paths, ExchangeReport& report);

// ---- Import ------------------------------------------------------------------------------------

// Reads section `number`, from 1. A missing file is reported (1020): false then. A section that
// the library fails to read is empty: RequireAllRead says so. What could not be placed is added to
// `losses`, to be reported at the end of the import.
bool ImportSection(const std::wstring& path, int16_t number, SectionModel& section, Losses& losses);
// Whether the library has read what ImportSection asked it for: the calls for the blocks of a
// section have no status, but the list of sections has. Reported when not (3556).
bool RequireAllRead(const std::wstring& path);

// The names of the database's sections, at most 20; x is -1. `status` is the library's: the list
// is empty unless it is 0.
std::vector<ModelEntry> ListLegacySections(const std::wstring& path, int16_t& status);

// The number of the database's sections, when its list has `listed`: beyond 20 too; 32,767
// (kSlotsUnknown) when the library gives a section for any number.
inline constexpr int16_t kSlotsUnknown = INT16_MAX;
int16_t CountLegacySections(const std::wstring& path, size_t listed);

// The names of all sections, those beyond the library's list as their slots have them. Where the
// library gives a section for any number, `hasMore` says that there may be more than are listed.
struct LegacySections {
    std::vector<ModelEntry> sections;
    bool hasMore = false;
};
LegacySections ListAllLegacySections(const std::wstring& path, int16_t& status);

// The ship's data; the library's status. Unless it is 0 the record keeps its contents.
int16_t LoadBsdFromLegacy(const std::wstring& path, BasicShipData& bsd);

// What a status other than 0 means, and what the user can do; of a status that our own library does
// not have, the number.
std::wstring LegacyStatusText(int16_t status);

// Whether a status is success; any other is reported (3556).
bool RequireLegacyRead(const std::wstring& path, int16_t status);

}  // namespace corvane
