// The program's own layer over the geometry library: node references, points and abscissas, and
// the absolute geometry of a whole section, as it is run before an export and after an import.
//
// All work on the library's own record of a section (MakeLibraryView). A reference that leads
// nowhere never reaches the library.
#pragma once

#include <string>
#include <vector>

#include "platform/grvelk.h"

namespace corvane {

// A copy of the node; a zeroed one when there is none.
Node NodeRecord(const Section& section, NodeReference reference);

// Whether the node has coordinates of its own, by the library; when not, whether the node that it
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

// Reports a code of the library, for a strake of the section, as message 1041 + code.
void ReportStrakeCode(int16_t code, int16_t strake, const std::wstring& sectionName);

// Items `first` to `last` of a strake's list, both from 1.
struct ItemList {
    StrakeItem* items;
    int16_t first, last;
    int16_t strake;  // number of the strake, for messages
};
// Computes the items in order. A code of the library is reported, and the next item follows.
void ComputeStrakeItems(const ItemList& list, float tolerance, const std::wstring& sectionName);

// A node that lies on a strake which is not its own: there the two strakes meet.
struct Joint {
    NodeReference node;
    int16_t strake;
    bool operator==(const Joint&) const = default;
};

// Computes all nodes, strakes and stiffeners of a section, in place, and gives its joints in the
// order of the nodes. A node is computed after the strake that it is defined on; where strakes wait
// for one another the library's code says so. What can't be computed is reported once, by the
// strake where it begins, and the rest goes on.
std::vector<Joint> ComputeAbsoluteGeometry(Section& section, const std::wstring& sectionName);

}  // namespace corvane
