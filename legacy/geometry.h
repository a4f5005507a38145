// The program's own layer over the geometry library (platform/grvelk.h): node references, points
// and abscissas on the library's own record of a section (database/section_view.h).
//
// Strakes and nodes count from 1; lengths are in m, y and z as everywhere. A reference to what does
// not exist never reaches the library. The absolute geometry of a whole section is
// legacy/absolute_geometry.h.
#pragma once

#include <string>
#include <vector>

#include "platform/grvelk.h"

namespace corvane {

// A copy of the node; a zeroed one when there is none.
Node NodeRecord(const Section& section, NodeReference reference);

// Whether the node has its own coordinates, by the library; when not, whether the node that it
// is defined on has. 0 is no.
int16_t NodeAbsolute(const Section& section, NodeReference reference);

// The node on which strake `k` begins; (0, 0) when there is none.
NodeReference RelativeNode(const Section& section, int16_t k);

// Abscissa of a node's point on strake `k`, which need not be its own: `s`, and the status of
// YZToS. 0 without a call, and `s` untouched, when strake or node does not exist.
int16_t AbscissaOfPoint(const Section& section, NodeReference reference, int16_t k, float& s);

// The first node, in the order of strakes and then of nodes, that is the same point within the
// section's tolerance; (0, 0) when none is.
NodeReference NodeAtPoint(const Section& section, float y, float z);

// What the library could not compute.
struct StrakeFault {
    int16_t code;    // kCode...
    int16_t item;    // the node, or the line from it to the next one; 0: the strake itself
    int16_t strake;  // its number
    bool operator==(const StrakeFault&) const = default;
};
// Reports a fault as message 1041 + code, without a box: a section may have many.
void ReportStrakeFault(const StrakeFault& fault, const std::wstring& sectionName);

// Items `first` to `last` of a strake's list, both from 1.
struct ItemList {
    StrakeItem* items;
    int16_t first, last;
    int16_t strake;  // number of the strake, for messages
};
// Computes the items in order. A fault is reported, and the next item follows. Returns the faults.
std::vector<StrakeFault> ComputeStrakeItems(const ItemList& list, float tolerance,
                                            const std::wstring& sectionName);

}  // namespace corvane
