// Strakes, nodes and points of a section in the legacy form: a part of ToLegacyRecord. The legacy
// form numbers the nodes over all strakes, and has a point for every node with coordinates.
#pragma once

#include "database/section.h"
#include "legacy/exchange_report.h"
#include "legacy/fields.h"
#include "legacy/legacy_room.h"
#include "platform/ztvelk32.h"

namespace corvane {

// An export in the making. The section's geometry has been computed, the record is zeroed.
struct LegacyExport {
    SectionModel& section;
    const Section& geometry;  // the library's view of the section
    LegacySectionRecord& record;
    Losses& losses;  // what was left out, cut or changed is added
    CutNumbers& cut;
    LimitLosses limits;  // adds to them what has no room
};

// Fills the strakes' and the nodes' tables, up to the first strake, node or point that has no room,
// which is noted: the last strake ends there, or is left out when it has no node before. A node of
// a kind that the legacy form lacks is noted, and given by its coordinates.
void FillStrakes(const LegacyExport& work);

}  // namespace corvane
