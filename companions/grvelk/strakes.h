// Strakes as lines through their nodes. A strake's items are good for a use once ComputeStrake gave
// them a length; the others are left out.
#pragma once

#include "companions/grvelk/arcs.h"
#include "companions/grvelk/records.h"

namespace corvane::grvelk {

// Status of functions about a point and a strake.
inline constexpr int16_t kOnStrake = 0;
inline constexpr int16_t kNotOnStrake = 1;

struct StrakePlace {
    Point point;
    Point direction;      // of the strake, unit vector
    double s = 0;         // [m] abscissa
    double distance = 0;  // [m] from the point, or abscissa, that was asked for
    int item = 0;
};

// False when the strake has no computed item.
bool NearestOnStrake(const Strake& strake, Point point, StrakePlace& place);
// An abscissa beyond an end gives that end, one where nothing is computed the end before it. The
// items follow one another by abscissa; at a knuckle it is the item that begins there.
bool PlaceAt(const Strake& strake, double s, StrakePlace& place);
// False as well where the strake is not, within what single precision leaves of an abscissa.
bool FindOnStrake(const Strake& strake, double s, StrakePlace& place);
bool CrossStrake(const Strake& strake, const Crossing& crossing, StrakePlace& place);
bool HasLine(const Strake& strake);
double LengthOf(const Strake& strake);
// Abscissa of one of the strake's own nodes.
double AbscissaOfNode(const Strake& strake, int16_t node);

// Sets up item `item` from its two nodes, without a length; its shape is kept from the first node.
void SetUpItem(const Strake& strake, int item);

}  // namespace corvane::grvelk
