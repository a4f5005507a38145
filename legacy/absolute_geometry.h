// The absolute geometry of a whole section: computed before an export and after an import, in
// place, on the library's own record of the section (database/section_view.h).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "legacy/geometry.h"
#include "platform/grvelk.h"

namespace corvane {

// A node that is on a strake which is not its own: there the two strakes meet.
struct Joint {
    NodeReference node;
    int16_t strake;  // the one that it is on; never its own
    bool operator==(const Joint&) const = default;
};

struct AbsoluteGeometry {
    std::vector<Joint> joints;        // in the order of the nodes
    std::vector<StrakeFault> faults;  // in the order in which they were met; empty: all is computed
};

// Computes all nodes, strakes and stiffeners of a section. A node is computed after the strake that
// it is defined on; where strakes wait for one another the library's code says so. What cannot be
// computed is reported once, without a box, by the strake where it begins, and the rest continues.
// The section's own arrays are changed, even where there are faults: what was computed is valid (a
// node's `computed` says so). `sectionName` is for the reports only.
AbsoluteGeometry ComputeAbsoluteGeometry(Section& section, const std::wstring& sectionName);

}  // namespace corvane
