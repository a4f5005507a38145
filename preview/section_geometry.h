// The lines of a computed section as points: its strakes with their arcs, places along them, and
// the way around a compartment. y is the distance from the centre line, z the height above the base
// line [m].
//
// The section is one that the library has computed (ComputeSection). What only damaged data ask for
// is limited: an arc has at most 1,000 lines, the outline of a compartment about 20,000 corners.
#pragma once

#include <limits>
#include <span>
#include <vector>

#include "database/section_view.h"
#include "platform/grvelk.h"
#include "preview/figure.h"

namespace corvane {

// Has the library compute a section.
void ComputeSection(Section& section);
// Makes the view of a model (database/section_view.h) and has the library compute it.
void ComputeSection(SectionModel& model, LibraryView& view);

// The place at a length from another one, in the direction of a unit vector.
ShipPoint Moved(ShipPoint point, ShipPoint direction, double length);

std::span<const Strake> StrakesOf(const Section& section);
std::span<const StrakeItem> StrakeItemsOf(const Strake& strake);
std::span<const Stiffener> StiffenersOf(const Strake& strake);
std::span<const float> PlateEndsOf(const Strake& strake);
std::span<const CompartmentOutline> CompartmentsOf(const Section& section);

// How arcs are cut into lines: these are nowhere farther from them than `off_m`. Where that needs
// too many of them, they are exact within a circle around a place and around its mirror image, and
// neither they nor the areas inside of them are in the circle where the arc is not.
struct ArcLines {
    double off_m;
    ShipPoint middle{};
    double reach_m = std::numeric_limits<double>::infinity();
};

// Exact on the sheet in the figure's window.
ArcLines ArcLinesIn(const Figure& figure);

// The parts of a strake's line that follow one another without a gap.
std::vector<std::vector<ShipPoint>> LinesOf(const Strake& strake, const ArcLines& arcs);

// The part of a strake's line between two abscissas, as LinesOf has it.
std::vector<std::vector<ShipPoint>> LinesBetween(const Strake& strake, double from, double to,
                                                 const ArcLines& arcs);

// The corners of a compartment, along the plating where two of its nodes that follow one another
// are on one strake.
std::vector<ShipPoint> CornersOf(const Section& section, const CompartmentOutline& outline,
                                 const ArcLines& arcs);

// A place on a strake, and the unit vector of the strake's direction there.
struct StrakeSpot {
    ShipPoint at, direction;
};
// False when the abscissa is on no computed line of the strake. At a knuckle it is the line that
// begins there.
bool FindSpot(const Strake& strake, double s, StrakeSpot& spot);
// The place on a computed item, at 0 to 1 of its length.
StrakeSpot SpotOn(const StrakeItem& item, double part);

}  // namespace corvane
