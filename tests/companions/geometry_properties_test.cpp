// What must hold for every strake, on strakes by chance.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/companions/section_builder.h"

namespace corvane {
namespace {

using namespace test;

constexpr int kRuns = 200;
// Coordinates are singles of some 10 m.
constexpr double kRounding = 2e-5;

struct At {
    float y, z;
};

At PointOf(TestSection& section, float s) {
    At at{};
    EXPECT_EQ(SToYZ(&section.At(1), s, &at.y, &at.z, kTolerance), 0);
    return at;
}

float AbscissaOf(TestSection& section, At at, int16_t status = 0) {
    float s = -1;
    int16_t item = 0;
    EXPECT_EQ(YZToS(&section.At(1), at.y, at.z, &s, &item, kTolerance), status);
    return s;
}

// Runs `check(section, nodes, chance)` on many computed strakes.
template <class Check>
void OnManyStrakes(uint32_t seed, Check check) {
    Chance chance(seed);
    for (int run = 0; run < kRuns; ++run) {
        const std::vector<Node> nodes = RandomNodes(chance);
        TestSection section;
        section.Add(nodes);
        ASSERT_EQ(section.Compute(), 0) << run;
        check(section, nodes, chance);
        if (testing::Test::HasFailure()) FAIL() << "run " << run;
    }
}

// `change` alters each node; the changed strake has the same lengths and, by `map`, points.
template <class Change, class Map>
void ExpectMapped(uint32_t seed, Change change, Map map) {
    OnManyStrakes(seed, [&](TestSection& section, const std::vector<Node>& nodes, Chance& chance) {
        std::vector<Node> changed = nodes;
        std::for_each(changed.begin(), changed.end(), change);
        TestSection other;
        other.Add(changed);
        ASSERT_EQ(other.Compute(), 0);
        EXPECT_NEAR(other.LengthOf(1), section.LengthOf(1), kRounding);
        const float s = section.LengthOf(1) * chance.Between(0, 1);
        const At expected = map(PointOf(section, s));
        const At found = PointOf(other, std::min(s, other.LengthOf(1)));
        EXPECT_NEAR(found.y, expected.y, kRounding);
        EXPECT_NEAR(found.z, expected.z, kRounding);
    });
}

TEST(GeometryPropertiesTest, AbscissaToPointAndBack) {
    OnManyStrakes(1, [](TestSection& section, const std::vector<Node>&, Chance& chance) {
        for (int i = 0; i < 20; ++i) {
            const float s = section.LengthOf(1) * chance.Between(0, 1);
            EXPECT_NEAR(AbscissaOf(section, PointOf(section, s)), s, kRounding);
        }
    });
}

TEST(GeometryPropertiesTest, NodesLieAtTheirAbscissas) {
    OnManyStrakes(2, [](TestSection& section, const std::vector<Node>& nodes, Chance&) {
        for (const Node& node : section.contents.front().nodes) {
            const At at = PointOf(section, node.s);
            EXPECT_NEAR(at.y, node.y, kRounding);
            EXPECT_NEAR(at.z, node.z, kRounding);
            EXPECT_NEAR(AbscissaOf(section, {node.y, node.z}), node.s, kRounding);
        }
        EXPECT_EQ(section.contents.front().nodes.back().y, nodes.back().givenY);
    });
}

TEST(GeometryPropertiesTest, AbscissasAreLengthsAlongTheStrake) {
    OnManyStrakes(3, [](TestSection& section, const std::vector<Node>&, Chance&) {
        constexpr int kSteps = 4000;
        double length = 0;
        At last = PointOf(section, 0);
        for (int i = 1; i <= kSteps; ++i) {
            const At next = PointOf(section, section.LengthOf(1) * static_cast<float>(i) / kSteps);
            length += std::hypot(double{next.y} - last.y, double{next.z} - last.z);
            last = next;
        }
        // The steps cut the corners.
        EXPECT_NEAR(length, section.LengthOf(1), 5e-3);
    });
}

TEST(GeometryPropertiesTest, NearestPointIsNearest) {
    OnManyStrakes(4, [](TestSection& section, const std::vector<Node>&, Chance& chance) {
        const At from{chance.Between(-8, 30), chance.Between(-8, 18)};
        At nearest{};
        ComputePointFromYZ(&section.At(1), from.y, from.z, &nearest.y, &nearest.z, kTolerance);
        const auto distance = [from](At at) { return std::hypot(at.y - from.y, at.z - from.z); };
        constexpr int kSteps = 500;
        for (int i = 0; i <= kSteps; ++i) {
            const At at = PointOf(section, section.LengthOf(1) * static_cast<float>(i) / kSteps);
            EXPECT_GE(distance(at) + kRounding, distance(nearest));
        }
        const float s = AbscissaOf(section, from, distance(nearest) <= kTolerance ? 0 : 1);
        EXPECT_NEAR(distance(PointOf(section, s)), distance(nearest), kRounding);
    });
}

TEST(GeometryPropertiesTest, MirroredStrakeIsTheMirrorImage) {
    ExpectMapped(
        5,
        [](Node& node) {
            node.givenY = -node.givenY;
            node.tangentY = -node.tangentY;
            node.radius = -node.radius;
        },
        [](At at) { return At{-at.y, at.z}; });
}

TEST(GeometryPropertiesTest, MovingTheOriginMovesThePoints) {
    ExpectMapped(
        6,
        [](Node& node) {
            node.givenY += 2;
            node.tangentY += 2;
            node.givenZ -= 3;
            node.tangentZ -= 3;
        },
        [](At at) { return At{at.y + 2, at.z - 3}; });
}

TEST(GeometryPropertiesTest, ReversedStrakeHasTheSamePointsFromTheOtherEnd) {
    OnManyStrakes(7, [](TestSection& section, const std::vector<Node>& nodes, Chance& chance) {
        std::vector<Node> reversed;
        for (size_t i = nodes.size(); i-- > 0;) {
            Node node = nodes[i];
            // The way to the next node is described at the other end now.
            node.shape = i == 0 ? kShapeStraight : nodes[i - 1].shape;
            if (i > 0) {
                node.radius = -nodes[i - 1].radius;
                node.tangentY = nodes[i - 1].tangentY;
                node.tangentZ = nodes[i - 1].tangentZ;
            }
            reversed.push_back(node);
        }
        TestSection other;
        other.Add(reversed);
        ASSERT_EQ(other.Compute(), 0);
        EXPECT_NEAR(other.LengthOf(1), section.LengthOf(1), kRounding);
        const float s = section.LengthOf(1) * chance.Between(0, 1);
        const At at = PointOf(section, s);
        EXPECT_NEAR(AbscissaOf(other, at), section.LengthOf(1) - s, kRounding);
    });
}

TEST(GeometryPropertiesTest, ArcByTangentEqualsArcByRadius) {
    Chance chance(8);
    for (int run = 0; run < kRuns; ++run) {
        const Node from = GivenNode(chance.Between(-9, 9), chance.Between(-9, 9));
        const Node to =
            GivenNode(from.givenY + chance.Between(0.5, 4), from.givenZ + chance.Between(-4, 4));
        const float height = chance.Between(0.1, 3) * (chance.Below(2) == 0 ? 1.0F : -1.0F);
        TestSection tangent;
        tangent.Add({TipNode(from, to, height), to});
        ASSERT_EQ(tangent.Compute(), 0);
        const StrakeItem& item = tangent.ItemOf(1, 1);
        TestSection radius;
        radius.Add(
            {RadiusNode(from.givenY, from.givenZ, std::copysign(item.arcRadius, item.sweep)), to});
        ASSERT_EQ(radius.Compute(), 0);
        EXPECT_EQ(item.sweep > 0, height > 0);
        EXPECT_NEAR(radius.LengthOf(1), tangent.LengthOf(1), 1e-3);
        EXPECT_NEAR(radius.ItemOf(1, 1).centreY, item.centreY, 1e-2);
        EXPECT_NEAR(radius.ItemOf(1, 1).centreZ, item.centreZ, 1e-2);
    }
}

TEST(GeometryPropertiesTest, CentreIsEquallyFarFromTheWholeArc) {
    OnManyStrakes(9, [](TestSection& section, const std::vector<Node>&, Chance& chance) {
        for (const StrakeItem& item : section.contents.front().items) {
            if (item.arcRadius == 0) continue;
            const At at = PointOf(section, item.s + item.length * chance.Between(0.01, 0.99));
            EXPECT_NEAR(std::hypot(at.y - item.centreY, at.z - item.centreZ), item.arcRadius, 1e-4);
            EXPECT_NEAR(item.length, item.arcRadius * std::abs(item.sweep), 1e-4);
            EXPECT_NEAR(item.centreY + item.arcRadius * std::cos(item.startAngle), item.y1, 1e-4);
            EXPECT_NEAR(item.centreZ + item.arcRadius * std::sin(item.startAngle), item.z1, 1e-4);
            const float end = item.startAngle + item.sweep;
            EXPECT_NEAR(item.centreY + item.arcRadius * std::cos(end), item.y2, 1e-4);
            EXPECT_NEAR(item.centreZ + item.arcRadius * std::sin(end), item.z2, 1e-4);
        }
    });
}

TEST(GeometryPropertiesTest, NodesOnStrakesAndLinesLieOnThem) {
    OnManyStrakes(10, [](TestSection&, const std::vector<Node>& nodes, Chance& chance) {
        const float y = chance.Between(nodes.front().givenY, nodes.back().givenY);
        TestSection section;
        section.Add(nodes);
        section.Add({NodeAtY(1, y), LineNode(1, {y, -40, y, 40})});
        section.At(2).nodeCount = 1;
        section.At(2).itemCount = 0;
        EXPECT_EQ(section.Compute(), kCodeNoNodes);
        section.At(2).nodeCount = 2;
        section.Compute();
        const Node& onStrake = section.NodeOf(2, 1);
        const Node& onLine = section.NodeOf(2, 2);
        EXPECT_NE(onStrake.computed, 0);
        EXPECT_EQ(onStrake.y, y);
        AbscissaOf(section, {onStrake.y, onStrake.z});
        // The strake has one place for each y: the line finds the same.
        EXPECT_NEAR(onLine.y, y, kRounding);
        EXPECT_NEAR(onLine.z, onStrake.z, kRounding);
    });
}

TEST(GeometryPropertiesTest, NormalsStandUprightOnTheStrake) {
    OnManyStrakes(11, [](TestSection& section, const std::vector<Node>&, Chance& chance) {
        Stiffener stiffener = StiffenerAt(section.LengthOf(1) * chance.Between(0.01, 0.99));
        ASSERT_EQ(AbsStiff(section.strakes.data(), 1, 1, &stiffener), 0);
        EXPECT_NEAR(std::hypot(stiffener.normalY, stiffener.normalZ), 1, 1e-6);
        // Left of a strake whose y grows is up.
        EXPECT_GT(stiffener.normalZ, 0);
        const At before = PointOf(section, std::max(0.0F, stiffener.s - 0.001F));
        const At after = PointOf(section, std::min(section.LengthOf(1), stiffener.s + 0.001F));
        const At along{(after.y - before.y) / 0.002F, (after.z - before.z) / 0.002F};
        EXPECT_NEAR(along.y * stiffener.normalY + along.z * stiffener.normalZ, 0, 0.8);
        Stiffener back = stiffener;
        ASSERT_EQ(RelStiff(section.strakes.data(), 1, 1, &back), 0);
        EXPECT_NEAR(back.offset, stiffener.offset, kRounding);
    });
}

TEST(GeometryPropertiesTest, StepByStepEqualsAllAtOnce) {
    OnManyStrakes(12, [](TestSection& section, const std::vector<Node>& nodes, Chance&) {
        TestSection steps;
        steps.Add(nodes);
        ASSERT_EQ(ComputeAbsNodes(steps.strakes.data(), 1), 0);
        ASSERT_EQ(ComputeAbsStrake(steps.strakes.data(), 1), 0);
        for (int16_t k = 1; k < static_cast<int16_t>(nodes.size()); ++k) {
            ASSERT_EQ(ComputeStrake(steps.At(1).items, k, kTolerance), 0);
        }
        for (int k = 1; k < static_cast<int>(nodes.size()); ++k) {
            EXPECT_EQ(steps.ItemOf(1, k).length, section.ItemOf(1, k).length);
            EXPECT_EQ(steps.ItemOf(1, k).s, section.ItemOf(1, k).s);
        }
    });
}

}  // namespace
}  // namespace corvane
