// Sections for tests of the geometry, put together by hand or by chance.
#pragma once

#include <cmath>
#include <cstdint>
#include <deque>
#include <vector>

#include "platform/grvelk.h"
#include "tests/support/chance.h"

namespace corvane::test {

inline constexpr float kTolerance = 0.001F;

inline Node GivenNode(float y, float z) {
    Node node{};
    node.kind = kNodeGiven;
    node.givenY = y;
    node.givenZ = z;
    return node;
}
// The way to the next node is an arc.
inline Node RadiusNode(float y, float z, float radius) {
    Node node = GivenNode(y, z);
    node.shape = kShapeArcByRadius;
    node.radius = radius;
    return node;
}
inline Node TangentNode(float y, float z, float tangentY, float tangentZ) {
    Node node = GivenNode(y, z);
    node.shape = kShapeArcByTangent;
    node.tangentY = tangentY;
    node.tangentZ = tangentZ;
    return node;
}
inline Node OffsetNode(NodeReference base, float y, float z) {
    Node node = GivenNode(y, z);
    node.kind = kNodeOffset;
    node.relative = -1;
    node.onStrake = base.strake;
    node.onNode = base.node;
    return node;
}
inline Node CoincidentNode(NodeReference base) {
    Node node = OffsetNode(base, 0, 0);
    node.kind = kNodeCoincident;
    return node;
}
// At this y (z) on the strake; the other coordinate says which of several points is meant.
inline Node NodeAtY(int16_t strake, float y, float nearZ = 0) {
    Node node = GivenNode(y, nearZ);
    node.kind = kNodeOnStrake;
    node.inter = 1;
    node.onStrake = strake;
    return node;
}
inline Node NodeAtZ(int16_t strake, float z, float nearY = 0) {
    Node node = NodeAtY(strake, nearY, z);
    node.inter = 2;
    return node;
}
struct TwoPoints {
    float y1, z1, y2, z2;
};
inline Node LineNode(int16_t strake, TwoPoints line, float shift = 0) {
    Node node{};
    node.kind = kNodeIntersection;
    node.extensionStrake = strake;
    node.extension[0] = line.y1;
    node.extension[1] = line.z1;
    node.extension[2] = line.y2;
    node.extension[3] = line.z2;
    node.extension[4] = shift;
    return node;
}
inline Stiffener StiffenerAt(float offset, NodeReference from = {}, int16_t side = -1) {
    Stiffener stiffener{};
    stiffener.onStrake = from.strake;
    stiffener.onNode = from.node;
    stiffener.offset = offset;
    stiffener.count = 1;
    stiffener.side = side;
    return stiffener;
}

// A section that owns its arrays. Not to be copied: the records hold addresses.
struct TestSection {
    struct Parts {
        std::vector<Node> nodes;
        std::vector<StrakeItem> items;
        std::vector<Stiffener> stiffeners;
        std::vector<float> plateEnds;
    };
    std::deque<Parts> contents;
    std::vector<Strake> strakes;
    Section section{};

    TestSection() { section.tolerance = kTolerance; }
    TestSection(const TestSection&) = delete;
    TestSection& operator=(const TestSection&) = delete;

    // Returns the strake's number.
    int16_t Add(std::vector<Node> nodes, std::vector<Stiffener> stiffeners = {}) {
        const size_t items = nodes.empty() ? 0 : nodes.size() - 1;
        contents.push_back(
            {std::move(nodes), std::vector<StrakeItem>(items), std::move(stiffeners), {}});
        Link();
        return static_cast<int16_t>(contents.size());
    }
    // Sets addresses and counts again, after the contents have changed.
    void Link() {
        strakes.resize(contents.size());
        for (size_t i = 0; i < contents.size(); ++i) {
            Strake& strake = strakes[i];
            strake.number = static_cast<int16_t>(i + 1);
            LinkArray(contents[i].nodes, strake.nodes, strake.nodeCount);
            LinkArray(contents[i].items, strake.items, strake.itemCount);
            LinkArray(contents[i].stiffeners, strake.stiffeners, strake.stiffenerCount);
            LinkArray(contents[i].plateEnds, strake.plateEnds, strake.plateCount);
            if (strake.itemCount == 0) continue;
            const StrakeItem& last = contents[i].items.back();
            strake.length = last.s + last.length;
        }
        LinkArray(strakes, section.strakes, section.strakeCount);
    }

    int16_t Compute() { return QuickCompute(&section, nullptr); }
    Strake& At(int strake) { return strakes[static_cast<size_t>(strake - 1)]; }
    Node& NodeOf(int strake, int node) { return At(strake).nodes[node - 1]; }
    StrakeItem& ItemOf(int strake, int item) { return At(strake).items[item - 1]; }
    Stiffener& StiffenerOf(int strake, int stiffener) {
        return At(strake).stiffeners[stiffener - 1];
    }
    float LengthOf(int strake) { return At(strake).length; }

    template <class Element, class Pointer>
    static void LinkArray(std::vector<Element>& from, Pointer& elements, int16_t& count) {
        elements = from.data();
        count = static_cast<int16_t>(from.size());
    }
};

// The tip of the isosceles triangle over the line from `a` to `b`, `height` to its right.
inline Node TipNode(const Node& a, const Node& b, float height) {
    const double y = b.givenY - a.givenY;
    const double z = b.givenZ - a.givenZ;
    const double length = std::hypot(y, z);
    return TangentNode(a.givenY, a.givenZ,
                       static_cast<float>(a.givenY + y / 2 + height * z / length),
                       static_cast<float>(a.givenZ + z / 2 - height * y / length));
}

// A line of 2 to 8 nodes with arcs of all kinds. Its y grows all the way (its direction is never
// steeper than 67 degrees), so that it does not meet itself.
inline std::vector<Node> RandomNodes(Chance& chance) {
    std::vector<Node> nodes{GivenNode(chance.Between(-5, 5), chance.Between(0, 10))};
    const int count = 2 + chance.Below(7);
    while (static_cast<int>(nodes.size()) < count) {
        const Node& last = nodes.back();
        nodes.push_back(
            GivenNode(last.givenY + chance.Between(1, 4), last.givenZ + chance.Between(-1, 1)));
    }
    for (size_t i = 0; i + 1 < nodes.size(); ++i) {
        const Node& next = nodes[i + 1];
        const double chord =
            std::hypot(next.givenY - nodes[i].givenY, next.givenZ - nodes[i].givenZ);
        const int shape = chance.Below(3);
        const bool left = chance.Below(2) == 0;
        if (shape == kShapeArcByRadius) {
            const auto radius = static_cast<float>(chord * chance.Between(1.5, 20));
            nodes[i] = RadiusNode(nodes[i].givenY, nodes[i].givenZ, left ? radius : -radius);
        } else if (shape == kShapeArcByTangent) {
            const auto height = static_cast<float>(chord * chance.Between(0.05, 0.2));
            nodes[i] = TipNode(nodes[i], next, left ? height : -height);
        }
    }
    return nodes;
}

}  // namespace corvane::test
