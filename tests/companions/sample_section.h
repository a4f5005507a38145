// A section of 24 m by 12 m for the tests of drawing: the shell with its bilge of 2 m radius, the
// deck, the inner bottom 2 m above the base, and the double bottom between.
#pragma once

#include <vector>

#include "tests/companions/section_builder.h"

namespace corvane::test {

inline Stiffener ProfileRow(Stiffener row, int16_t count, float spacing, int32_t profile) {
    row.count = count;
    row.spacing = spacing;
    row.profile = profile;
    row.webHeight_mm = 400;
    row.webThickness_mm = 12;
    row.flangeBreadth_mm = profile == kProfileFlat ? 0.0F : 200.0F;
    row.flangeThickness_mm = 16;
    return row;
}

struct SampleSection : TestSection {
    static constexpr float kBreadth = 24;
    static constexpr float kDepth = 12;

    std::vector<NodeReference> doubleBottom{{1, 1}, {1, 2}, {1, 3}, {3, 2}, {3, 1}};
    CompartmentOutline compartment{};
    int32_t colours[kColourCount]{};
    DrawingParameters parameters{};

    SampleSection() {
        // From the keel outwards and up to the deck; its stiffeners are inside, to the left.
        Add({GivenNode(0, 0), RadiusNode(10, 0, 2), GivenNode(12, 2), GivenNode(12, 12)},
            {ProfileRow(StiffenerAt(2), 4, 2, kProfileFlat),
             ProfileRow(StiffenerAt(2, {1, 3}), 3, 3, kProfileBulb)});
        Add({GivenNode(0, 12), GivenNode(12, 12)},
            {ProfileRow(StiffenerAt(3, {}, 1), 2, 4, kProfileAngle)});
        Add({GivenNode(0, 2), GivenNode(12, 2)},
            {ProfileRow(StiffenerAt(6, {}, 1), 1, 0, kProfileTee)});
        Compute();
        contents[0].plateEnds = {5, 10, NodeOf(1, 3).s};
        parameters.drawPlating = parameters.drawStiffeners = parameters.drawCompartments = -1;
        parameters.resolution = 200;
        parameters.margin = 0.08F;
        parameters.colours = colours;
        for (int slot = 0; slot < kColourCount; ++slot) colours[slot] = slot + 1;
        section.geometryPresent = -1;
        section.symmetryMode = 1;
        section.drawingBreadth = kBreadth;
        section.drawingHeight = kDepth;
        section.compartments = &compartment;
        section.compartmentCount = 1;
        Link();
    }
    void Link() {
        TestSection::Link();
        LinkArray(doubleBottom, compartment.nodes, compartment.nodeCount);
    }
};

}  // namespace corvane::test
