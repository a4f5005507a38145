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
    int16_t strake;
    bool operator==(const Joint&) const = default;
};

struct AbsoluteGeometry {
    std::vector<Joint> joints;  // in the order of the nodes
    std::vector<StrakeFault> faults;
};

// Computes all nodes, strakes and stiffeners of a section. A node is computed after the strake that
// it is defined on; where strakes wait for one another the library's code says so. What cannot be
// computed is reported once, without a box, by the strake where it begins, and the rest goes on.
AbsoluteGeometry ComputeAbsoluteGeometry(Section& section, const std::wstring& sectionName);

}  // namespace corvane
