// A midship section from a few numbers: double bottom with girders, round bilge, single side, deck
// from side to side.
#pragma once

#include <string>

#include "bsd/basic_ship_data.h"
#include "database/section.h"
#include "stand_ins/range.h"

namespace corvane::stand_ins {

struct MidshipParameters {  // [m]
    float breadth = 0;
    float depth = 0;
    float doubleBottom = 0;  // height
    float bilgeRadius = 0;
    float spacing = 0;  // of the stiffeners, about
    bool operator==(const MidshipParameters&) const = default;
};

// Limits of each parameter alone.
inline constexpr Range kBreadthRange{6, 70};
inline constexpr Range kDepthRange{3, 40};
inline constexpr Range kDoubleBottomRange{0.6, 10};
inline constexpr Range kBilgeRadiusRange{0.2, 10};
inline constexpr Range kSpacingRange{0.4, 1.2};

// The highest double bottom for the depth, and the largest radius for breadth and double bottom.
float MostDoubleBottom(const MidshipParameters& parameters);
float MostBilgeRadius(const MidshipParameters& parameters);

// Parameters for a new section of the ship.
MidshipParameters UsualParameters(const BasicShipData& bsd);
// The parameters from which a section was drafted; for a foreign section those that can be seen in
// it, and the usual ones for the rest.
MidshipParameters ParametersOf(const SectionModel& section, const BasicShipData& bsd);
// Whether the section's panels are those that DraftMidship makes from the parameters.
bool IsMidship(const SectionModel& section, const MidshipParameters& parameters);

// Copies the ship's data to a new section's head: type, codes, draught, spacings.
void SetHead(SectionModel& section, const BasicShipData& bsd);

// Replaces the section's panels, compartments, breadth, depth and results of the hull girder by
// those of the parameters. The result is the geometry library's code, 0 on success; after any other
// the section is as it was.
int16_t DraftMidship(SectionModel& section, const MidshipParameters& parameters);

}  // namespace corvane::stand_ins
