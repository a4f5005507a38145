// What is to be drawn of a bulkhead arrangement, and where: the bulkheads' outlines, and their
// places beside each other in one plane. preview/bulkhead_figure.h draws it.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "database/bulkhead.h"
#include "preview/outline.h"

namespace corvane {

// Where the outline of a bulkhead comes from.
enum class OutlineSource { kNone, kNodes, kSection, kBreadthAndDepth };

// The ship at an arrangement: the outline of bulkheads without nodes of their own.
struct ShipOutline {
    OutlineSource source = OutlineSource::kNone;
    Outline half;              // on the positive side of the centre line
    std::wstring sectionName;  // of a section, and its position [m]
    float section_m = 0;
};

// Why there is nothing to draw.
enum class WhyNoBulkhead { kNone, kNoBulkheads, kNoOutline };

struct BulkheadRequest {
    const BulkheadArrangement& arrangement;
    // Asked at most once, and only when a bulkhead has no outline of its own.
    std::function<ShipOutline()> shipOutline;
    // The sheet that the bulkheads are to fill; it decides how many of them are in a row.
    double width_mm, height_mm;
    size_t bulkhead = 0;  // from 1; 0: all of them
};

// A bulkhead that is drawn. What it has is in its own coordinates, those of the ship; `place` is
// added to them. Where the arrangement describes one half, so do outline, stools and folds.
struct DrawnBulkhead {
    const Bulkhead* bulkhead = nullptr;
    size_t number = 0;  // from 1
    OutlineSource source = OutlineSource::kNone;
    Outline outline;
    std::vector<Outline> stools;  // areas
    // Edges of the corrugations, y of vertical ones or z of horizontal ones, in ascending order. At
    // the first, third ... the plating leaves one side, at the others it reaches the other side.
    std::vector<double> folds;
    // Half the depth of the corrugations, and the middle of their profile beside the bulkhead: z
    // below vertical ones, y beside horizontal ones. 0: no profile is drawn.
    double halfDepth_m = 0, profile_m = 0;
    ShipBox box;  // of all that, with the other half
    ShipPoint place{};
};

struct BulkheadLayout {
    WhyNoBulkhead why = WhyNoBulkhead::kNone;
    const BulkheadArrangement* arrangement = nullptr;
    ShipOutline ship;  // as far as it was asked for
    std::vector<DrawnBulkhead> bulkheads;
    // The sloping plates of the hopper tanks beside the bulkheads, in the ship's coordinates: from
    // the lowest plating that the arrangement has outwards to the tank's top.
    std::vector<std::array<ShipPoint, 2>> hoppers;
    size_t leftOutCount = 0;  // for want of an outline, or because there are too many
    double slot_m = 0;        // breadth of the place of each bulkhead, in whose middle its box is
    double foot_m = 0;        // height for the texts below its box
    size_t lineCount = 0;     // of those texts, for which there is room
    double letters = 1;       // their size, as a part of the usual one
    ShipBox extent;           // of everything, with the texts
    double mmPerMetre = 0;    // at which it fills the sheet
};

// The layout refers to the arrangement. One without bulkheads says why.
BulkheadLayout LayOutBulkheads(const BulkheadRequest& request);

// Whether stiffeners and corrugations are vertical.
bool IsVertical(const Bulkhead& bulkhead);
bool IsMirrored(const BulkheadArrangement& arrangement);

}  // namespace corvane
