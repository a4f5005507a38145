// How the items of a strake are drawn: as straight lines, an arc by its chords.
#pragma once

#include <vector>

#include "companions/grvelk/arcs.h"

namespace corvane::grvelk {

// Into how many straight lines an arc is cut.
struct Chords {
    double pixelsPerMetre;
    int most;  // 1 or more
};

// Adds the item's points, or those of its way back, without the first one. None of an item that is
// not computed.
void AppendItem(const StrakeItem& item, bool back, const Chords& chords,
                std::vector<Point>& points);

}  // namespace corvane::grvelk
