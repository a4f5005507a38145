// How much of the room in the legacy form (platform/ztvelk32.h) a section takes: each of its tables
// has so many entries and no more. docs/legacy-form.md lists them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/section.h"
#include "legacy/exchange_report.h"

namespace corvane {

// One table.
struct LegacyNeed {
    int32_t message;  // the loss where it is not enough
    int32_t limit;    // argument of that message
    int32_t room;     // how many entries can be used
    int32_t count;    // how many the section needs
    bool Fits() const { return count <= room; }
};

// Of all tables, in the order in which they are filled.
std::vector<LegacyNeed> NeedsOf(const SectionModel& section);

// What does not fit, each with its count and limit, or else the table that is fullest; for the user
// to read before an export.
std::wstring RoomText(const std::vector<LegacyNeed>& needs);
// Whether all of it fits.
bool FitsAll(const std::vector<LegacyNeed>& needs);

// The losses of a section whose needs are known.
struct LimitLosses {
    Losses& losses;
    const std::vector<LegacyNeed>& needs;
};
// Notes what had no room: the table's message with its limit, and how many there are.
void NoteLimit(const LimitLosses& limits, int32_t message, int32_t limit);

}  // namespace corvane
