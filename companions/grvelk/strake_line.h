// The computed line of a strake: points along it and places on it. Arrays that are missing, counts
// below 0 and items without a length count as nothing.
#pragma once

#include <span>
#include <vector>

#include "companions/grvelk/frame.h"

namespace corvane::grvelk {

std::span<const Node> NodesIn(const Strake& strake);
std::span<const StrakeItem> ItemsIn(const Strake& strake);
std::span<const Stiffener> StiffenersIn(const Strake& strake);
std::span<const float> PlateEndsIn(const Strake& strake);
std::span<const Strake> StrakesIn(const Section& section);
std::span<const CompartmentOutline> CompartmentsIn(const Section& section);
std::span<const NodeReference> OutlineIn(const CompartmentOutline& compartment);

// Into how many straight lines an arc is cut.
struct Chords {
    double pixelsPerMetre;
    int most;  // 1 or more
};

inline bool IsArc(const StrakeItem& item) {
    return item.arcRadius > 0;
}

// Whether the item has been computed.
inline bool IsComputed(const StrakeItem& item) {
    return item.length > 0;
}

// Adds the item's points, or those of its way back, without the first one.
void AppendItem(const StrakeItem& item, bool back, const Chords& chords,
                std::vector<PlanePoint>& points);

// A place on a strake, and the unit vector of the strake's direction there.
struct Spot {
    PlanePoint at;
    PlanePoint direction;
};
// False when the abscissa is on no item of the strake. Items follow one another by abscissa; at a
// knuckle it is the item that begins there.
bool FindSpot(const Strake& strake, double s, Spot& place);

}  // namespace corvane::grvelk
