// The compartments of a section in the legacy form, and back. The legacy form has a compartment in
// two blocks: outline, levels and codes in the geometry block, name and loads in a block of their
// own. What has no room is reported and left out.
#pragma once

#include <vector>

#include "legacy/strakes_to_legacy.h"

namespace corvane {

// Area and centre of the compartment, stored into it. The outline follows the plating, arcs too,
// where two nodes that follow one another are on one strake, as in the preview; elsewhere, and from
// the last node back to the first, it is straight. 0 for an outline without an area.
void ComputeCompartment(const Section& section, Compartment& compartment);

// What the geometry block has of each compartment; made before that block is filled, written into
// it at the end: only then the nodes have their numbers.
struct CompartmentList {
    std::vector<LegacyCompartment> compartments;  // all; FillCompartments cuts the list
    std::vector<LegacyLevel> levels;              // of all compartments, one after the other
};
CompartmentList ListCompartments(const LegacyExport& work);

// The block of compartments and loads.
void FillCompLoad(const LegacyExport& work);
// The list, as far as there is room.
void FillCompartments(const LegacyExport& work, const CompartmentList& list);

// The nodes of the legacy numbering, in its order, by strake and node.
using NodeNumbering = std::vector<NodeReference>;
NodeNumbering NumberNodes(const LegacyGeometry& legacy);

// Adds the compartments; outline nodes that do not exist are left out.
void ReadCompartments(const LegacySectionRecord& record, SectionModel& section);

}  // namespace corvane
