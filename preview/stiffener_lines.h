// The stiffeners of a computed section as lines: of each one its web and its flange.
//
// What only damaged data ask for is limited: 2,000 stiffeners in a row, 20,000 in a section.
#pragma once

#include <functional>
#include <span>

#include "platform/grvelk.h"
#include "preview/figure.h"

namespace corvane {

// Which stiffener of the section it is.
struct StiffenerPlace {
    int strake;  // from 1
    int row;     // of the strake, from 1
    int inRow;   // from 1
    double s;    // [m] its abscissa on the strake
};

// A profile that is smaller is drawn in this size [m].
struct LeastProfile {
    double web = 0;
    double flange = 0;  // on one side of the web
};

// Calls `use` with each line of each stiffener, one side of the ship, until one of a row is beyond
// the strake's end: the web, with the flange that is on one side of it, or the web and then the
// flange that is on both. Rows that were not computed have no lines.
void WalkStiffeners(
    const Section& section, const LeastProfile& least,
    const std::function<void(const StiffenerPlace&, std::span<const ShipPoint>)>& use);

}  // namespace corvane
