// Kinds of nodes and references between them: ComputeAbsNodes, ComputeNode, Absnode, RelNode.
#include <gtest/gtest.h>

#include <limits>

#include "tests/companions/section_builder.h"

namespace corvane {
namespace {

using namespace test;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kLargest = std::numeric_limits<float>::max();

void ExpectAt(const Node& node, float y, float z) {
    EXPECT_NE(node.computed, 0);
    EXPECT_NEAR(node.y, y, 1e-5);
    EXPECT_NEAR(node.z, z, 1e-5);
}

TEST(GeometryNodesTest, GivenNode) {
    TestSection section;
    section.Add({GivenNode(1, 2), GivenNode(-3, 4)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(1, 1), 1, 2);
    ExpectAt(section.NodeOf(1, 2), -3, 4);
}

TEST(GeometryNodesTest, UnknownKindIsGiven) {
    TestSection section;
    section.Add({GivenNode(1, 2), GivenNode(-3, 4)});
    section.NodeOf(1, 2).kind = 99;
    section.NodeOf(1, 2).onStrake = 77;
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(1, 2), -3, 4);
}

TEST(GeometryNodesTest, OffsetAndCoincidentNode) {
    TestSection section;
    section.Add({GivenNode(1, 2), GivenNode(5, 2)});
    section.Add({CoincidentNode({1, 2}), OffsetNode({1, 2}, -1, 3)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 5, 2);
    ExpectAt(section.NodeOf(2, 2), 4, 5);
}

TEST(GeometryNodesTest, ChainOfOffsetsAddsUp) {
    TestSection section;
    section.Add({OffsetNode({1, 2}, 1, 0), OffsetNode({2, 1}, 1, 0)});
    section.Add({OffsetNode({2, 2}, 1, 1), GivenNode(10, 10)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(1, 1), 13, 11);
}

// A bilge of radius 2 m, between bottom and side.
std::vector<Node> Bilge() {
    return {GivenNode(0, 0), RadiusNode(10, 0, 2), GivenNode(12, 2), GivenNode(12, 9)};
}

TEST(GeometryNodesTest, NodeOnStrakeByY) {
    TestSection section;
    section.Add(Bilge());
    section.Add({NodeAtY(1, 4), GivenNode(4, 5)});
    section.Add({NodeAtY(1, 11), GivenNode(11, 5)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 4, 0);
    ExpectAt(section.NodeOf(3, 1), 11, 2 - std::sqrt(3.0F));
}

TEST(GeometryNodesTest, NodeOnStrakeByZ) {
    TestSection section;
    section.Add(Bilge());
    section.Add({NodeAtZ(1, 5), GivenNode(0, 5)});
    section.Add({NodeAtZ(1, 1), GivenNode(0, 1)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 12, 5);
    ExpectAt(section.NodeOf(3, 1), 10 + std::sqrt(3.0F), 1);
}

TEST(GeometryNodesTest, GivenCoordinateIsKeptExactly) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(7, 3)});
    section.Add({NodeAtY(1, 1.1F), NodeAtZ(1, 2.3F)});
    EXPECT_EQ(section.Compute(), 0);
    EXPECT_EQ(section.NodeOf(2, 1).y, 1.1F);
    EXPECT_EQ(section.NodeOf(2, 2).z, 2.3F);
}

TEST(GeometryNodesTest, OtherCoordinateSaysWhichPointIsMeant) {
    TestSection section;
    // A closed box: every y and z between the corners is met twice.
    section.Add(
        {GivenNode(0, 0), GivenNode(6, 0), GivenNode(6, 4), GivenNode(0, 4), GivenNode(0, 0)});
    section.Add({NodeAtY(1, 3, 1), NodeAtY(1, 3, 3)});
    section.Add({NodeAtZ(1, 1, 2), NodeAtZ(1, 1, 5)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 3, 0);
    ExpectAt(section.NodeOf(2, 2), 3, 4);
    ExpectAt(section.NodeOf(3, 1), 0, 1);
    ExpectAt(section.NodeOf(3, 2), 6, 1);
}

TEST(GeometryNodesTest, OnALineOfThatVeryCoordinateTheOtherOneCounts) {
    TestSection section;
    section.Add({GivenNode(0, 5), GivenNode(6, 5), GivenNode(12, 5.0004F)});
    section.Add({NodeAtZ(1, 5, 2.5F), NodeAtZ(1, 5, -3)});
    section.Add({NodeAtZ(1, 5, 8), NodeAtZ(1, 5.0002F, 7)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 2.5F, 5);
    ExpectAt(section.NodeOf(2, 2), 0, 5);
    ExpectAt(section.NodeOf(3, 1), 8, 5);
    ExpectAt(section.NodeOf(3, 2), 7, 5.0002F);
}

TEST(GeometryNodesTest, NodeAtTheEndOfAStrakeIsOnItWithinTheTolerance) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(6, 3)});
    section.Add({NodeAtY(1, 6.0005F), NodeAtY(1, 0)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 6.0005F, 3);
    ExpectAt(section.NodeOf(2, 2), 0, 0);
}

TEST(GeometryNodesTest, PlaceOnTheLineComesBeforeOneNearTheEnd) {
    TestSection section;
    // Nearly level: within the tolerance of z = 1 for 20 cm around its place at y = 4.9.
    section.Add({GivenNode(0, 0.951F), GivenNode(5, 1.001F), GivenNode(5, -9)});
    section.Add({NodeAtZ(1, 1, 9), GivenNode(0, 7)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 5, 1);
    section.section.strakes[0].nodes[2].givenY = 9;
    section.section.strakes[0].nodes[2].givenZ = 1.5F;
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 4.9F, 1);
}

TEST(GeometryNodesTest, LineThatTouchesAnArcMeetsIt) {
    TestSection section;
    section.Add({RadiusNode(-2, 0, -2), GivenNode(2, 0)});  // a half circle up to z = 2
    section.Add({NodeAtZ(1, 2.0005F, 1), GivenNode(9, 9)});
    section.Add({NodeAtZ(1, 2, 1), GivenNode(9, 9)});
    EXPECT_EQ(section.Compute(), 0);
    EXPECT_NEAR(section.NodeOf(2, 1).y, 0, 1e-3);
    EXPECT_NEAR(section.NodeOf(3, 1).y, 0, 1e-3);
}

TEST(GeometryNodesTest, CoordinateOffTheStrake) {
    TestSection section;
    section.Add(Bilge());
    section.Add({NodeAtY(1, 12.002F), GivenNode(0, 5)});
    section.Add({NodeAtZ(1, -0.002F), GivenNode(0, 5)});
    EXPECT_EQ(section.Compute(), kCodeOffStrake);
    EXPECT_EQ(section.NodeOf(2, 1).computed, 0);
    EXPECT_EQ(section.NodeOf(3, 1).computed, 0);
    EXPECT_EQ(ComputeNode(&section.At(2), 2, section.strakes.data(), 1, kTolerance),
              kCodeOffStrake);
    EXPECT_EQ(ComputeNode(&section.At(3), 3, section.strakes.data(), 1, kTolerance),
              kCodeOffStrake);
}

TEST(GeometryNodesTest, IntersectionWithALine) {
    TestSection section;
    section.Add(Bilge());
    section.Add({LineNode(1, {4, 8, 5, 6}), GivenNode(4, 8)});           // to the bottom
    section.Add({LineNode(1, {8, 4, 10, 3}), GivenNode(8, 4)});          // to the side
    section.Add({LineNode(1, {10, 2, 10.5F, 1.5F}), GivenNode(10, 2)});  // to the bilge
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 8, 0);
    ExpectAt(section.NodeOf(3, 1), 12, 2);
    ExpectAt(section.NodeOf(4, 1), 10 + std::sqrt(2.0F), 2 - std::sqrt(2.0F));
}

TEST(GeometryNodesTest, OffsetMovesTheIntersectionAlongTheLine) {
    TestSection section;
    section.Add(Bilge());
    section.Add({LineNode(1, {4, 8, 4, 6}, 0.5F), LineNode(1, {4, 8, 4, 6}, -2)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 4, -0.5F);
    ExpectAt(section.NodeOf(2, 2), 4, 2);
}

TEST(GeometryNodesTest, OfTwoIntersectionsTheOneNearTheLinesSecondPointCounts) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(6, 0), GivenNode(6, 4), GivenNode(0, 4)});
    section.Add({LineNode(1, {3, 2, 3, 1}), LineNode(1, {3, 2, 3, 3})});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(2, 1), 3, 0);
    ExpectAt(section.NodeOf(2, 2), 3, 4);
}

TEST(GeometryNodesTest, LineThatDoesNotMeetTheStrake) {
    const Node nodes[] = {
        LineNode(1, {0, 1, 5, 1.0001F}),  // beside it
        LineNode(1, {13, 0, 13, 5}),      // parallel
        LineNode(1, {3, 3, 3, 3}),        // no line at all
    };
    for (const Node& node : nodes) {
        TestSection section;
        section.Add({GivenNode(12, 2), GivenNode(12, 9)});
        section.Add({node, GivenNode(0, 5)});
        EXPECT_EQ(section.Compute(), kCodeNoIntersection) << node.extension[0];
    }
}

TEST(GeometryNodesTest, ReferenceToWhatDoesNotExist) {
    const Node nodes[] = {
        CoincidentNode({1, 3}),
        CoincidentNode({1, 0}),
        CoincidentNode({0, 0}),
        CoincidentNode({1, -1}),
        CoincidentNode({-5, 1}),
        CoincidentNode({3, 1}),
        OffsetNode({0, 1}, 1, 1),
        OffsetNode({32767, 32767}, 1, 1),
        OffsetNode({-32768, 1}, 1, 1),
        NodeAtY(0, 1),
        NodeAtZ(3, 1),
        NodeAtY(-1, 1),
        LineNode(0, {0, 0, 1, 1}),
        LineNode(9, {0, 0, 1, 1}),
    };
    for (const Node& node : nodes) {
        TestSection section;
        section.Add({GivenNode(0, 0), GivenNode(5, 5)});
        section.Add({node, GivenNode(9, 9)});
        EXPECT_EQ(ComputeAbsNodes(section.strakes.data(), 2), kCodeMissingNode);
        EXPECT_EQ(ComputeNode(&section.At(2), 2, section.strakes.data(), 1, kTolerance),
                  kCodeMissingNode);
        EXPECT_EQ(section.Compute(), kCodeMissingNode);
        EXPECT_EQ(section.NodeOf(2, 1).computed, 0);
        EXPECT_NE(section.NodeOf(2, 2).computed, 0);
    }
}

TEST(GeometryNodesTest, CircularReferences) {
    const std::vector<std::vector<Node>> circles[] = {
        {{GivenNode(0, 0), OffsetNode({1, 2}, 1, 1)}},       // itself
        {{CoincidentNode({1, 2}), CoincidentNode({1, 1})}},  // each other
        {{CoincidentNode({2, 1}), GivenNode(5, 5)},          // over three strakes
         {CoincidentNode({3, 2}), GivenNode(5, 6)},
         {GivenNode(7, 7), OffsetNode({1, 1}, 1, 1)}},
        {{GivenNode(0, 0), NodeAtY(1, 3)}},  // its own strake
        {{GivenNode(0, 0), LineNode(1, {0, 0, 1, 1})}},
        {{GivenNode(0, 0), NodeAtY(2, 3)}, {GivenNode(0, 5), NodeAtZ(1, 3)}},  // two strakes
        {{GivenNode(0, 0), LineNode(2, {0, 0, 1, 1})}, {GivenNode(0, 5), CoincidentNode({1, 2})}},
    };
    for (const auto& circle : circles) {
        TestSection section;
        for (const auto& nodes : circle) section.Add(nodes);
        EXPECT_EQ(ComputeAbsNodes(section.strakes.data(), section.section.strakeCount),
                  kCodeCircularReference);
        EXPECT_EQ(section.Compute(), kCodeCircularReference);
    }
}

TEST(GeometryNodesTest, StrakesMayReferToEachOtherWithoutACircle) {
    TestSection section;
    section.Add({GivenNode(0, 0), OffsetNode({2, 1}, 2, 0), GivenNode(8, 0)});
    section.Add({OffsetNode({1, 3}, -5, 1), OffsetNode({1, 2}, 1, 1)});
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(1, 2), 5, 1);
    ExpectAt(section.NodeOf(2, 2), 6, 2);
}

TEST(GeometryNodesTest, WhatIsOutsideOfACircleIsComputed) {
    TestSection section;
    section.Add({CoincidentNode({1, 2}), CoincidentNode({1, 1}), GivenNode(1, 1),
                 OffsetNode({1, 3}, 2, 0)});
    EXPECT_EQ(section.Compute(), kCodeCircularReference);
    ExpectAt(section.NodeOf(1, 4), 3, 1);
    EXPECT_FLOAT_EQ(section.ItemOf(1, 3).length, 2);
}

TEST(GeometryNodesTest, LongChainNeedsNoDeepStackAndLittleTime) {
    TestSection section;
    std::vector<Node> nodes;
    for (int16_t i = 1; i < 32767; ++i) {
        nodes.push_back(OffsetNode({1, static_cast<int16_t>(i + 1)}, 1, 0));
    }
    nodes.push_back(GivenNode(0, 0));
    section.Add(nodes);
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(1, 1), 32766, 0);
    section.NodeOf(1, 32767) = CoincidentNode({1, 1});
    EXPECT_EQ(ComputeAbsNodes(section.strakes.data(), 1), kCodeCircularReference);
}

TEST(GeometryNodesTest, LongChainOfStrakes) {
    TestSection section;
    for (int i = 1; i < 5000; ++i) {
        section.Add({NodeAtY(static_cast<int16_t>(i + 1), 1), GivenNode(1, static_cast<float>(i))});
    }
    section.Add({GivenNode(0, 0), GivenNode(2, 0)});
    EXPECT_EQ(ComputeAbsNodes(section.strakes.data(), section.section.strakeCount), 0);
    EXPECT_EQ(section.Compute(), 0);
    ExpectAt(section.NodeOf(1, 1), 1, 0);
}

TEST(GeometryNodesTest, CoordinatesThatAreNotNumbers) {
    Node line = LineNode(1, {4, 8, 4, 6});
    line.extension[4] = kNaN;
    const Node nodes[] = {
        GivenNode(kNaN, 0),
        GivenNode(0, std::numeric_limits<float>::infinity()),
        OffsetNode({1, 1}, kNaN, 0),
        NodeAtY(1, kNaN),
        NodeAtZ(1, 1, kNaN),
        LineNode(1, {kNaN, 0, 1, 1}),
        line,
    };
    for (const Node& node : nodes) {
        TestSection section;
        section.Add({GivenNode(0, 0), GivenNode(5, 5)});
        section.Add({node, GivenNode(9, 9)});
        EXPECT_EQ(ComputeAbsNodes(section.strakes.data(), 2), 0);
        EXPECT_EQ(section.NodeOf(2, 1).computed, 0);
        ComputeAbsStrake(section.strakes.data(), 2);
        EXPECT_EQ(section.Compute(), kCodeBadNumber);
        EXPECT_EQ(ComputeNode(&section.At(2), 2, section.strakes.data(), 1, kTolerance),
                  kCodeBadNumber);
        EXPECT_EQ(section.NodeOf(2, 1).y, 0);
    }
}

TEST(GeometryNodesTest, SumThatIsTooLargeIsNoNumber) {
    TestSection section;
    section.Add({GivenNode(kLargest, 0), OffsetNode({1, 1}, kLargest, 0)});
    EXPECT_EQ(section.Compute(), kCodeBadNumber);
    EXPECT_EQ(section.NodeOf(1, 2).computed, 0);
}

TEST(GeometryNodesTest, NodeOnAStrakeWithoutALine) {
    TestSection section;
    section.Add({GivenNode(1, 1)});
    section.Add({NodeAtY(1, 1), GivenNode(5, 5)});
    EXPECT_EQ(section.Compute(), kCodeNoNodes);
    EXPECT_EQ(ComputeNode(&section.At(2), 2, section.strakes.data(), 1, kTolerance), kCodeNoNodes);
}

TEST(GeometryNodesTest, ComputeNodeSetsUpTheItemThatEndsThere) {
    TestSection section;
    section.Add({RadiusNode(0, 0, 3), OffsetNode({1, 1}, 2, 2), OffsetNode({1, 2}, 4, 0)});
    ASSERT_EQ(ComputeAbsNodes(section.strakes.data(), 1), 0);
    ASSERT_EQ(ComputeAbsStrake(section.strakes.data(), 1), 0);
    EXPECT_EQ(ComputeNode(&section.At(1), 1, section.strakes.data(), 2, kTolerance), 0);
    EXPECT_EQ(section.ItemOf(1, 1).y2, 2);
    EXPECT_EQ(section.ItemOf(1, 1).radius, 3);
    EXPECT_EQ(section.ItemOf(1, 2).y1, 0);
    EXPECT_EQ(ComputeNode(&section.At(1), 1, section.strakes.data(), 3, kTolerance), 0);
    EXPECT_EQ(section.ItemOf(1, 2).y1, 2);
    EXPECT_EQ(section.ItemOf(1, 2).y2, 6);
}

TEST(GeometryNodesTest, NodeThatIsNotPreparedIsNotWalkedFrom) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(1, 1)});
    section.Add({CoincidentNode({1, 1}), GivenNode(1, 1)});
    EXPECT_EQ(ComputeNode(&section.At(2), 2, section.strakes.data(), 1, kTolerance),
              kCodeMissingNode);
}

TEST(GeometryNodesTest, AbsoluteNodes) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(5, 5)});
    section.Add({CoincidentNode({1, 1}), OffsetNode({1, 1}, 1, 1), NodeAtY(1, 3),
                 LineNode(1, {0, 0, 1, 1}), GivenNode(1, 1)});
    Strake* strakes = section.strakes.data();
    EXPECT_EQ(Absnode(strakes, 2, 1, 1), 1);
    EXPECT_EQ(Absnode(strakes, 2, 2, 5), 1);
    for (int16_t node = 1; node <= 4; ++node) EXPECT_EQ(Absnode(strakes, 2, 2, node), 0) << node;
    EXPECT_EQ(Absnode(strakes, 2, 2, 6), 0);
    EXPECT_EQ(Absnode(strakes, 2, 2, 0), 0);
    EXPECT_EQ(Absnode(strakes, 2, 3, 1), 0);
    EXPECT_EQ(Absnode(strakes, 2, 0, 1), 0);
    EXPECT_EQ(Absnode(nullptr, 2, 1, 1), 0);
    EXPECT_EQ(Absnode(strakes, -1, 1, 1), 0);
}

TEST(GeometryNodesTest, NodeOnWhichAStrakeBegins) {
    struct {
        Node first;
        NodeReference base;
        int16_t code;
    } const rows[] = {
        {GivenNode(0, 0), {0, 0}, 0},
        {CoincidentNode({1, 2}), {1, 2}, 0},
        {OffsetNode({1, 1}, 3, 3), {1, 1}, 0},
        {NodeAtY(1, 3), {0, 0}, 0},
        {LineNode(1, {0, 0, 1, 1}), {0, 0}, 0},
        {CoincidentNode({1, 3}), {0, 0}, kCodeMissingNode},
        {CoincidentNode({4, 1}), {0, 0}, kCodeMissingNode},
    };
    for (const auto& row : rows) {
        TestSection section;
        section.Add({GivenNode(0, 0), GivenNode(5, 5)});
        section.Add({row.first, GivenNode(9, 9)});
        NodeReference base{9, 9};
        EXPECT_EQ(RelNode(section.strakes.data(), 2, 2, &base.strake, &base.node), row.code);
        EXPECT_EQ(base, row.base);
    }
}

TEST(GeometryNodesTest, NoStrakeToBegin) {
    TestSection section;
    section.Add({});
    NodeReference base{9, 9};
    Strake* strakes = section.strakes.data();
    EXPECT_EQ(RelNode(strakes, 1, 1, &base.strake, &base.node), kCodeNoNodes);
    EXPECT_EQ(base, NodeReference{});
    EXPECT_EQ(RelNode(strakes, 1, 2, &base.strake, &base.node), kCodeMissingNode);
    EXPECT_EQ(RelNode(strakes, 1, 0, &base.strake, &base.node), kCodeMissingNode);
    EXPECT_EQ(RelNode(nullptr, 1, 1, &base.strake, &base.node), kCodeMissingNode);
    EXPECT_EQ(RelNode(strakes, 1, 1, nullptr, nullptr), kCodeNoNodes);
}

}  // namespace
}  // namespace corvane
