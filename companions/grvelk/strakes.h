// Strakes as lines through their nodes. A strake's items are good for a use once ComputeStrake gave
// them a length; the others are left out.
#pragma once

#include <cstddef>

#include "companions/grvelk/arcs.h"

namespace corvane::grvelk {

// Status of functions about a point and a strake.
inline constexpr int16_t kOnStrake = 0;
inline constexpr int16_t kNotOnStrake = 1;

// Null when there is no such strake, node or item; numbers count from 1.
Strake* StrakeOf(Strake* strakes, int16_t count, int16_t strake);
Node* NodeOf(const Strake& strake, int16_t node);
StrakeItem* ItemOf(const Strake& strake, int item);
// Nodes and items that the record has memory for.
int16_t NodesOf(const Strake& strake);
int ItemsOf(const Strake& strake);

struct StrakePlace {
    Point point;
    Point direction;      // of the strake, unit vector
    double s = 0;         // [m] abscissa
    double distance = 0;  // [m] from the point, or abscissa, that was asked for
    int item = 0;
};

// False when the strake has no computed item.
bool NearestOnStrake(const Strake& strake, Point point, StrakePlace& place);
// An abscissa beyond an end gives that end.
bool PlaceAt(const Strake& strake, double s, StrakePlace& place);
bool CrossStrake(const Strake& strake, const Crossing& crossing, StrakePlace& place);
bool HasLine(const Strake& strake);
double LengthOf(const Strake& strake);
// Abscissa of one of the strake's own nodes.
double AbscissaOfNode(const Strake& strake, int16_t node);

// Sets up item `item` from its two nodes, without a length; its shape is kept from the first node.
void SetUpItem(const Strake& strake, int item);

}  // namespace corvane::grvelk
