// The ship's outline at a bulkhead arrangement, from the sections of its database.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/scanning.h"
#include "preview/bulkhead_layout.h"

namespace corvane {

struct ModelRow;  // shell/model_list.h

// A section of a database, and its position [m] along the ship.
struct SectionPlace {
    BlockPlace place;
    float x_m;
};
// The sections among the rows whose numbers lead to them.
std::vector<SectionPlace> SectionPlaces(std::span<const ModelRow> rows);

// What is seen from the side of the section that is nearest to `x_m` along the ship, of several the
// first one; of the next ones where it has no plating. Without any, the ship's breadth and depth;
// without those nothing. The section is read from the file; a fault is reported.
ShipOutline OutlineAt(const std::wstring& path, std::vector<SectionPlace> sections,
                      const BasicShipData& bsd, float x_m);

}  // namespace corvane
