// The drawing of a bulkhead arrangement: one bulkhead or all of them beside each other, as a list
// of what is drawn.
#pragma once

#include <string>
#include <vector>

#include "preview/annotations.h"
#include "preview/bulkhead_layout.h"
#include "preview/figure.h"

namespace corvane {

// 0x00BBGGRR; those of a section where a section has the same.
struct BulkheadColours {
    int32_t plating = 0x00FF0000;
    int32_t plateEdge = 0x00000080;
    int32_t stiffener = 0x00008000;
    int32_t girder = 0x00004600;
    int32_t stool = 0x00E4E4E4;
    int32_t hopper = 0x00808080;
    int32_t centreLine = 0x00A0A0A0;
    int32_t text = 0x00000080;
};

// Adds the bulkheads to a figure, whose window may show any part of them at any scale: outline,
// stools, hoppers, corrugations with their profile, edges of the plates, stiffeners with a tick at
// each end of a span, girders and webs; thicknesses in mm where they have room. 20,000 lines at
// most.
void DrawBulkheads(Figure& figure, const BulkheadLayout& layout, const BulkheadColours& colours);

// Of what these bulkheads have.
std::vector<LegendLine> LegendOf(const BulkheadLayout& layout, const BulkheadColours& colours);

}  // namespace corvane
