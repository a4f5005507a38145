// Bulkhead arrangements for tests of their drawing.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "database/bulkhead_block.h"
#include "preview/bulkhead_figure.h"
#include "preview/bulkhead_layout.h"
#include "tests/companions/section_builder.h"
#include "tests/support/support.h"

namespace corvane::test {

constexpr int32_t kFirstArrangement = 10;  // numbers of the sample ship's arrangements
constexpr int32_t kCorrugatedArrangement = 11;
constexpr int32_t kLastArrangement = 12;

inline BulkheadArrangement SampleArrangement(int32_t number) {
    BulkheadArrangement arrangement;
    EXPECT_TRUE(ReadBulkheadBlock(DataPath("../samples/aurora_bay.ve2"), number, arrangement));
    return arrangement;
}

// A vertically stiffened bulkhead of one half, from the centre line to y = 10 m and from z = 2 m to
// z = 12 m.
inline Bulkhead HalfBulkhead() {
    Bulkhead bulkhead;
    bulkhead.name = L"Bulkhead";
    bulkhead.stiffening = 1;
    bulkhead.nodes = {GivenNode(0, 2), GivenNode(10, 2), GivenNode(10, 12), GivenNode(0, 12)};
    return bulkhead;
}

inline BulkheadArrangement ArrangementOf(std::vector<Bulkhead> bulkheads) {
    BulkheadArrangement arrangement;
    arrangement.symmetric = -1;
    arrangement.bulkheads = std::move(bulkheads);
    return arrangement;
}

// A corrugated one of the same size.
inline Bulkhead CorrugatedBulkhead(Corrugation corrugation) {
    Bulkhead bulkhead = HalfBulkhead();
    bulkhead.kind = 1;
    bulkhead.corrugation = corrugation;
    return bulkhead;
}

constexpr double kSheetWidth_mm = 277;
constexpr double kSheetHeight_mm = 180;

inline BulkheadLayout LayOut(const BulkheadArrangement& arrangement, size_t bulkhead = 0,
                             std::function<ShipOutline()> ship = {}) {
    return LayOutBulkheads(
        {arrangement, std::move(ship), kSheetWidth_mm, kSheetHeight_mm, bulkhead});
}

// All of them, on a sheet of the size for which they were laid out; without items where there are
// no bulkheads.
inline Figure MakeBulkheadFigure(const BulkheadLayout& layout, double width_mm, double height_mm,
                                 const BulkheadColours& colours) {
    const ShipBox& extent = layout.extent;
    const bool isEmpty = layout.bulkheads.empty();
    Figure figure =
        MakeFigure(width_mm, height_mm, isEmpty ? 1 : layout.mmPerMetre,
                   {(extent.left + extent.right) / 2, (extent.bottom + extent.top) / 2});
    DrawBulkheads(figure, layout, colours);
    return figure;
}

}  // namespace corvane::test
