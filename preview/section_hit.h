// What of a computed section is at a place of its plane: the nearest plating or stiffener within
// reach, else the compartment around it. In symmetry mode 1 the mirror image counts, too.
#pragma once

#include "platform/grvelk.h"
#include "preview/figure.h"

namespace corvane {

enum class HitKind { kNothing, kPlating, kStiffener, kCompartment };

struct SectionHit {
    HitKind kind = HitKind::kNothing;
    // Of plating and stiffeners.
    int strake = 0;         // from 1
    double s = 0;           // [m] abscissa on the strake; of a stiffener, of its foot
    ShipPoint at{};         // the nearest place on it, on the side of the ship that was pointed at
    double distance_m = 0;  // from there
    // Of a stiffener: its row on the strake, and its number in the row, from 1.
    int row = 0;
    int inRow = 0;
    // Of a compartment.
    int compartment = 0;      // from 1
    double area_m2 = 0;       // inside its outline
    bool isMirrored = false;  // it is on the side of the mirror image
};

// Of plating and a stiffener that are equally near it is the plating, of two strakes the first one,
// of compartments inside one another the smallest. Places and coordinates that are not numbers hit
// nothing.
SectionHit FindHit(const Section& section, ShipPoint point, double reach_m);

}  // namespace corvane
