// The compartments of a section in the legacy form, and back.
#pragma once

#include <vector>

#include "legacy/to_legacy.h"

namespace corvane {

// Area and centre of the outline, as a polygon through its nodes; 0 for fewer than three nodes.
// Stored into the compartment.
void ComputeCompartment(const Section& section, Compartment& compartment);

// What the geometry block gets of each compartment; made before that block is filled, written into
// it at the end.
struct CompartmentList {
    std::vector<LegacyCompartment> compartments;
    std::vector<LegacyLevel> levels;
};
CompartmentList ListCompartments(const LegacyExport& work);

// The block of compartments and loads.
void FillCompLoad(const LegacyExport& work);
// The list, as far as there is room.
void FillCompartments(const LegacyExport& work, const CompartmentList& list);

// The nodes of the legacy numbering, in its order: where each of them stands.
using NodeNumbering = std::vector<NodeReference>;
NodeNumbering NumberNodes(const LegacyGeometry& legacy);

void ReadCompartments(const LegacySectionRecord& record, SectionModel& section);

}  // namespace corvane
