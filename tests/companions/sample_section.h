// A section of 24 m by 12 m for the tests of drawing, computed by hand: the shell with its bilge
// of 2 m radius, the deck, the inner bottom 2 m above the base, and the double bottom between.
#pragma once

#include <cmath>
#include <vector>

#include "platform/grvelk.h"

namespace corvane::test {

inline constexpr float kQuarterTurn = 1.57079633F;

inline Node ComputedNode(float y, float z) {
    Node node{};
    node.y = node.givenY = y;
    node.z = node.givenZ = z;
    node.kind = kNodeGiven;
    node.computed = -1;
    return node;
}

inline StrakeItem StraightItem(float y1, float z1, float y2, float z2, float s) {
    StrakeItem item{};
    item.y1 = y1;
    item.z1 = z1;
    item.y2 = y2;
    item.z2 = z2;
    item.length = std::hypot(y2 - y1, z2 - z1);
    item.s = s;
    return item;
}

inline Stiffener StiffenerRow(float s, int16_t count, float spacing, int32_t profile) {
    Stiffener row{};
    row.s = row.offset = s;
    row.count = count;
    row.spacing = spacing;
    row.profile = profile;
    row.webHeight_mm = 400;
    row.webThickness_mm = 12;
    row.flangeBreadth_mm = profile == kProfileFlat ? 0.0F : 200.0F;
    row.flangeThickness_mm = 16;
    return row;
}

struct SampleStrake {
    std::vector<Node> nodes;
    std::vector<StrakeItem> items;
    std::vector<Stiffener> stiffeners;
    std::vector<float> plateEnds;
};

struct SampleSection {
    static constexpr float kBreadth = 24;
    static constexpr float kDepth = 12;

    std::vector<SampleStrake> contents;
    std::vector<Strake> strakes;
    std::vector<NodeReference> doubleBottom{{1, 1}, {1, 2}, {1, 3}, {3, 2}, {3, 1}};
    CompartmentOutline compartment{};
    Section section{};
    int32_t colours[kColourCount]{};
    DrawingParameters parameters{};

    SampleSection() {
        contents = {MakeShell(), MakeDeck(), MakeInnerBottom()};
        parameters.drawPlating = parameters.drawStiffeners = parameters.drawCompartments = -1;
        parameters.resolution = 200;
        parameters.margin = 0.08F;
        parameters.colours = colours;
        for (int slot = 0; slot < kColourCount; ++slot) colours[slot] = slot + 1;
        section.geometryPresent = -1;
        section.symmetryMode = 1;
        section.tolerance = 0.001F;
        section.drawingBreadth = kBreadth;
        section.drawingHeight = kDepth;
        Link();
    }
    SampleSection(const SampleSection&) = delete;
    SampleSection& operator=(const SampleSection&) = delete;

    // Sets addresses and counts anew, after the contents have changed.
    void Link() {
        strakes.assign(contents.size(), Strake{});
        for (size_t i = 0; i < contents.size(); ++i) {
            SampleStrake& from = contents[i];
            Strake& strake = strakes[i];
            strake.number = static_cast<int16_t>(i + 1);
            strake.nodes = from.nodes.data();
            strake.nodeCount = static_cast<int16_t>(from.nodes.size());
            strake.items = from.items.data();
            strake.itemCount = static_cast<int16_t>(from.items.size());
            strake.stiffeners = from.stiffeners.data();
            strake.stiffenerCount = static_cast<int16_t>(from.stiffeners.size());
            strake.plateEnds = from.plateEnds.data();
            strake.plateCount = static_cast<int16_t>(from.plateEnds.size());
            if (!from.items.empty()) strake.length = from.items.back().s + from.items.back().length;
        }
        compartment.nodes = doubleBottom.data();
        compartment.nodeCount = static_cast<int16_t>(doubleBottom.size());
        section.strakes = strakes.data();
        section.strakeCount = static_cast<int16_t>(strakes.size());
        section.compartments = &compartment;
        section.compartmentCount = 1;
    }

private:
    // From the keel outwards and up to the deck; its stiffeners stand inside, to the left.
    static SampleStrake MakeShell() {
        SampleStrake shell;
        shell.nodes = {ComputedNode(0, 0), ComputedNode(10, 0), ComputedNode(12, 2),
                       ComputedNode(12, 12)};
        StrakeItem bilge = StraightItem(10, 0, 12, 2, 10);
        bilge.shape = kShapeArcByRadius;
        bilge.radius = bilge.arcRadius = 2;
        bilge.centreY = 10;
        bilge.centreZ = 2;
        bilge.startAngle = -kQuarterTurn;
        bilge.sweep = kQuarterTurn;
        bilge.length = 2 * kQuarterTurn;
        shell.items = {StraightItem(0, 0, 10, 0, 0), bilge,
                       StraightItem(12, 2, 12, 12, 10 + bilge.length)};
        shell.plateEnds = {5, 10, 10 + bilge.length};
        Stiffener bottom = StiffenerRow(2, 4, 2, kProfileFlat);
        bottom.y = 2;
        bottom.side = -1;
        bottom.normalZ = 1;
        Stiffener side = StiffenerRow(12 + bilge.length, 3, 3, kProfileBulb);
        side.y = 12;
        side.z = 4;
        side.side = -1;
        side.normalY = -1;
        shell.stiffeners = {bottom, side};
        return shell;
    }
    static SampleStrake MakeDeck() {
        SampleStrake deck;
        deck.nodes = {ComputedNode(0, 12), ComputedNode(12, 12)};
        deck.items = {StraightItem(0, 12, 12, 12, 0)};
        Stiffener row = StiffenerRow(3, 2, 4, kProfileAngle);
        row.y = 3;
        row.z = 12;
        row.side = 1;
        row.normalZ = -1;
        deck.stiffeners = {row};
        return deck;
    }
    static SampleStrake MakeInnerBottom() {
        SampleStrake inner;
        inner.nodes = {ComputedNode(0, 2), ComputedNode(12, 2)};
        inner.items = {StraightItem(0, 2, 12, 2, 0)};
        Stiffener single = StiffenerRow(6, 1, 0, kProfileTee);
        single.y = 6;
        single.z = 2;
        single.side = 1;
        single.normalZ = -1;
        inner.stiffeners = {single};
        return inner;
    }
};

}  // namespace corvane::test
