// Outlines in a transverse plane of the ship: of a bulkhead, from its nodes; of the ship, from a
// section or from its breadth and depth. y is the distance from the centre line, z the height above
// the base line [m].
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/grvelk.h"
#include "preview/figure.h"

namespace corvane {

// A closed line by its corners, in order; the last one is joined to the first one.
using Outline = std::vector<ShipPoint>;

// A part of the plane; left > right: there is nothing in it.
struct ShipBox {
    double left = 1, bottom = 1, right = 0, top = 0;  // [m]
};
bool IsEmpty(const ShipBox& box);
// The box that holds both.
ShipBox Union(const ShipBox& a, const ShipBox& b);
ShipBox BoxOf(std::span<const ShipPoint> points);

// A part of a line, from < to.
struct Extent {
    double from, to;
};

// Whether a coordinate is a number, and not farther off than any ship is large.
bool IsOfShip(double coordinate_m);

// The line of a computed strake, across gaps; its arcs as lines at most 0.5 mm off. Places that are
// not of a ship are left out.
Outline LineOf(const Strake& strake);

// One half of the ship, on the positive side of the centre line: what is seen from the side of a
// computed section, from its lowest plating to its highest, as far out as there is plating at each
// height. Empty without plating.
Outline HalfOutline(const Section& section);
// The same as a rectangle; empty for a breadth or a depth that no ship has.
Outline HalfOutline(double breadth_m, double depth_m);
// Both halves of the ship.
Outline BothHalves(const Outline& half);

// Whether an outline encloses anything.
bool HasArea(const Outline& outline);
// The parts at and above, or at and below, a height.
Outline PartAbove(const Outline& outline, double z);
Outline PartBelow(const Outline& outline, double z);

// The horizontal line at height z, the vertical line at y, from where it first meets the outline to
// where it last does.
std::optional<Extent> AcrossAtHeight(const Outline& outline, double z);
std::optional<Extent> AcrossAtBreadth(const Outline& outline, double y);

}  // namespace corvane
