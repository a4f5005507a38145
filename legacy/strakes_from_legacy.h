// Strakes and nodes of a section from the legacy form: a part of FromLegacyRecord. Counts and
// numbers that lead outside of the record's tables count as the nearest that does not, or as none.
#pragma once

#include <cstdint>

#include "database/section.h"
#include "platform/ztvelk32.h"

namespace corvane {

// How many strakes there are; the first that is not present ends them.
int16_t StrakesOf(const LegacyGeometry& legacy);

// The nodes of a strake that is there, in the legacy numbering: from 1, over all strakes.
struct NodeRange {
    int16_t first, count;  // first + count - 1 is at most kLegacyNodes; count 0: no nodes
};
NodeRange NodesOf(const LegacyGeometry& legacy, int16_t strake);

// Adds the panels with their nodes to the section; no geometry is computed. A node that is defined
// on nothing has the coordinates of its point, where that is used; otherwise those of the node.
void ReadStrakes(const LegacyGeometry& legacy, SectionModel& section);

}  // namespace corvane
