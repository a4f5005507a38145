// A bulkhead in the making: an outline, and stiffeners and plates that are laid inside of it. One
// half, y to port, as all bulkheads of the sample are.
#pragma once

#include <vector>

#include "database/bulkhead.h"
#include "samples/ship_sections.h"

namespace corvane::samples {

// Corners in turn; arcs as short lines. No line along y or z crosses it more than twice.
using Outline = std::vector<Place>;

// From where to where a line across the outline lies in it; nothing where it passes by.
struct Extent {
    float from = 0;
    float to = 0;
    float Length() const { return to - from; }
};
Extent HeightsAt(const Outline& outline, float y);
Extent BreadthsAt(const Outline& outline, float z);
// Over all the outline.
Extent AllHeights(const Outline& outline);
Extent AllBreadths(const Outline& outline);

// Whole millimetres.
float Millimetres(float length);

// ---- Stiffeners --------------------------------------------------------------------------------

inline constexpr int32_t kHorizontal = 0;
inline constexpr int32_t kVertical = 1;

// A girder or web right across the outline.
void AddPrimary(Bulkhead& bulkhead, const Outline& outline, int32_t direction, float position_m);

// Stiffeners in the bulkhead's own direction, about `spacing_m` apart and right across the outline;
// the primary ones that cross them, added before, divide them into spans. The last span is
// `lightWeb_mm` high; brackets stand at the ends and at the primary ones.
struct SecondaryPlan {
    Scantlings scantlings;
    int16_t material;
    float spacing_m;
    float lightWeb_mm;
};
void AddSecondaries(Bulkhead& bulkhead, const Outline& outline, const SecondaryPlan& plan);

// ---- Plates ------------------------------------------------------------------------------------

// Bands of equal height from below, thinner from one to the next; in each strakes that end at the
// same places and at the outline.
struct StrakePlan {
    std::vector<float> seams_m;  // y
    float height_m;              // of a band, at most
    float lowest_mm;
    float highest_mm;
    int16_t material;
};
void LayStrakes(Bulkhead& bulkhead, const Outline& outline, const StrakePlan& plan);

}  // namespace corvane::samples
