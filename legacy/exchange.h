// The exchange with a legacy database: whole conversations with the legacy library. The library
// does all work on the file; a status other than 0 is reported, and ends the conversation. What it
// had written by then stays in the file. An export ends with the list of sections, whose status
// says whether all of it has been written: the calls for the blocks of a section have none.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/listing.h"
#include "database/section.h"
#include "legacy/losses.h"

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
    int16_t number = 0;  // from 1; with `isNew` the number of the slot that is added
    bool isNew = true;   // false: the slot is overwritten, its name in the list stays
};

// Writes the section into a slot of an existing legacy database. The section gets the defaults that
// it lacks (with message 1074 when breadth or draught is one of them) and its geometry computed.
// What did not fit is reported at the end. False when the library reports a failure.
bool ExportSection(const LegacySlot& slot, SectionModel& section, const BasicShipData& bsd);

// Makes a new legacy database at `target`, instead of any file there, of all sections of the
// model database `source`, in file order; one that cannot be read is reported and left out. Nothing
// happens when `source` is not a model database, which is reported. False then, and when the
// library reports a failure. What did not fit is reported at the end. `shown` is the name that
// messages have for the target, where that is to be put elsewhere.
bool ExportDatabase(const std::wstring& source, const std::wstring& target,
                    const std::wstring& shown = {});

// ---- Import ------------------------------------------------------------------------------------

// Reads section `number`, from 1. A missing file is reported (1020): false then. A section that
// the library fails to read is empty: RequireAllRead says so. What could not be placed is added to
// `losses`, to be reported at the end of the import.
bool ImportSection(const std::wstring& path, int16_t number, SectionModel& section,
                   ExchangeLosses& losses);
// Whether the library has read what ImportSection asked it for: the calls for the blocks of a
// section have no status, but the list of sections has. Reported when not (3556).
bool RequireAllRead(const std::wstring& path);

// The names of the database's sections, at most 20; x is -1. `status` is the library's: the list
// is empty unless it is 0.
std::vector<ModelEntry> ListLegacySections(const std::wstring& path, int16_t& status);

// The number of the database's sections, when its list has `listed`: beyond 20 too; 32,767 when the
// library gives a section for any number.
int16_t CountLegacySections(const std::wstring& path, size_t listed);

// The ship's data; the library's status. Unless it is 0 the record keeps its contents.
int16_t LoadBsdFromLegacy(const std::wstring& path, BasicShipData& bsd);

// What a status other than 0 means, and what the user can do; of a status that our own library does
// not have, the number.
std::wstring LegacyStatusText(int16_t status);

// Whether a status is success; any other is reported (3556).
bool RequireLegacyRead(const std::wstring& path, int16_t status);

}  // namespace corvane
