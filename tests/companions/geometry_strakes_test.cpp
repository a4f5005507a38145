// Abscissas and points of strakes: YZToS, SToYZ, ComputePointFromYZ, ComputeAbsStrake.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/companions/section_builder.h"

namespace corvane {
namespace {

using test::GivenNode;
using test::kTolerance;
using test::RadiusNode;
using test::TestSection;

constexpr float kPi = 3.14159265F;
constexpr float kRoot = 0.70710678F;  // sine and cosine of 45 degrees
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// Bottom of 10 m, a bilge of radius 2 m, a side of 6 m, the sheer strake leaning in.
struct Shell : TestSection {
    Shell() {
        Add({GivenNode(0, 0), RadiusNode(10, 0, 2), GivenNode(12, 2), GivenNode(12, 8),
             GivenNode(11, 10)});
        EXPECT_EQ(Compute(), 0);
    }
    const float side = 10 + kPi;   // abscissa where the side begins
    const float sheer = side + 6;  // abscissa where the sheer strake begins
    const float end = sheer + std::sqrt(5.0F);
};

struct Pair {
    float s, y, z;
};

TEST(GeometryStrakesTest, LengthAndAbscissasOfTheNodes) {
    Shell shell;
    EXPECT_FLOAT_EQ(shell.LengthOf(1), shell.end);
    const float expected[] = {0, 10, shell.side, shell.sheer, shell.end};
    for (int node = 1; node <= 5; ++node) {
        EXPECT_FLOAT_EQ(shell.NodeOf(1, node).s, expected[node - 1]) << node;
    }
}

TEST(GeometryStrakesTest, PointsAndAbscissasOfTheShell) {
    Shell shell;
    const Pair pairs[] = {
        {0, 0, 0},
        {2.5F, 2.5F, 0},
        {10, 10, 0},
        {10 + kPi / 2, 10 + 2 * kRoot, 2 - 2 * kRoot},
        {10 + kPi / 3, 11, 2 - std::sqrt(3.0F)},
        {shell.side, 12, 2},
        {shell.side + 1.5F, 12, 3.5F},
        {shell.sheer + std::sqrt(5.0F) / 2, 11.5F, 9},
        {shell.end, 11, 10},
    };
    for (const Pair& pair : pairs) {
        float y = -1;
        float z = -1;
        EXPECT_EQ(SToYZ(&shell.At(1), pair.s, &y, &z, kTolerance), 0);
        EXPECT_NEAR(y, pair.y, 1e-5) << pair.s;
        EXPECT_NEAR(z, pair.z, 1e-5) << pair.s;
        float s = -1;
        int16_t item = -1;
        EXPECT_EQ(YZToS(&shell.At(1), pair.y, pair.z, &s, &item, kTolerance), 0);
        EXPECT_NEAR(s, pair.s, 1e-5);
    }
}

TEST(GeometryStrakesTest, FlagNamesTheItem) {
    Shell shell;
    const TestSection::Parts& parts = shell.contents.front();
    for (int16_t item = 1; item <= 4; ++item) {
        const StrakeItem& record = parts.items[static_cast<size_t>(item - 1)];
        float y = 0;
        float z = 0;
        float s = 0;
        int16_t flag = 0;
        SToYZ(&shell.At(1), record.s + record.length / 2, &y, &z, kTolerance);
        EXPECT_EQ(YZToS(&shell.At(1), y, z, &s, &flag, kTolerance), 0);
        EXPECT_EQ(flag, item);
    }
}

TEST(GeometryStrakesTest, PointBesideTheStrakeGivesTheNearest) {
    Shell shell;
    float s = 0;
    float y = 0;
    float z = 0;
    int16_t item = 0;
    // Inside of the bilge, on the ray at 45 degrees.
    EXPECT_EQ(YZToS(&shell.At(1), 10 + kRoot, 2 - kRoot, &s, &item, kTolerance), 1);
    EXPECT_FLOAT_EQ(s, 10 + kPi / 2);
    EXPECT_EQ(item, 2);
    EXPECT_EQ(ComputePointFromYZ(&shell.At(1), 10 + kRoot, 2 - kRoot, &y, &z, kTolerance), 1);
    EXPECT_NEAR(y, 10 + 2 * kRoot, 1e-5);
    EXPECT_NEAR(z, 2 - 2 * kRoot, 1e-5);
    // Before the start and beyond the end.
    EXPECT_EQ(YZToS(&shell.At(1), -3, 1, &s, &item, kTolerance), 1);
    EXPECT_EQ(s, 0);
    EXPECT_EQ(YZToS(&shell.At(1), 10, 13, &s, &item, kTolerance), 1);
    EXPECT_FLOAT_EQ(s, shell.end);
}

TEST(GeometryStrakesTest, ToleranceOfAPointIsInclusive) {
    Shell shell;
    float s = 0;
    int16_t item = 0;
    EXPECT_EQ(YZToS(&shell.At(1), 5, -0.25F, &s, &item, 0.25F), 0);
    EXPECT_EQ(YZToS(&shell.At(1), 5, -0.2501F, &s, &item, 0.25F), 1);
    float y = 0;
    float z = 0;
    EXPECT_EQ(ComputePointFromYZ(&shell.At(1), 5, -0.25F, &y, &z, 0.25F), 0);
    EXPECT_EQ(ComputePointFromYZ(&shell.At(1), 5, -0.2501F, &y, &z, 0.25F), 1);
    EXPECT_EQ(YZToS(&shell.At(1), 5, 0, &s, &item, -1), 0);
    EXPECT_EQ(YZToS(&shell.At(1), 5, 0.5F, &s, &item, kNaN), 1);
}

TEST(GeometryStrakesTest, CentreOfAnArcIsEquallyFarFromAllOfIt) {
    TestSection section;
    section.Add({RadiusNode(10, 0, 2), GivenNode(12, 2)});
    ASSERT_EQ(section.Compute(), 0);
    float s = -1;
    int16_t item = 0;
    EXPECT_EQ(YZToS(&section.At(1), 10, 2, &s, &item, kTolerance), 1);
    EXPECT_GE(s, 0);
    EXPECT_LE(s, kPi);
}

TEST(GeometryStrakesTest, BeyondTheCentreOfAnArcAnEndIsNearest) {
    TestSection section;
    section.Add({RadiusNode(10, 0, 2), GivenNode(12, 2)});
    ASSERT_EQ(section.Compute(), 0);
    float s = -1;
    int16_t item = 0;
    YZToS(&section.At(1), 8, 3, &s, &item, kTolerance);
    EXPECT_EQ(s, 0);
    YZToS(&section.At(1), 9, 4, &s, &item, kTolerance);
    EXPECT_FLOAT_EQ(s, kPi);
}

TEST(GeometryStrakesTest, AbscissaBeyondAnEndGivesTheEnd) {
    Shell shell;
    float y = 0;
    float z = 0;
    EXPECT_EQ(SToYZ(&shell.At(1), -0.5F, &y, &z, kTolerance), 1);
    EXPECT_EQ(y, 0);
    EXPECT_EQ(z, 0);
    EXPECT_EQ(SToYZ(&shell.At(1), 99, &y, &z, kTolerance), 1);
    EXPECT_EQ(y, 11);
    EXPECT_EQ(z, 10);
    EXPECT_EQ(SToYZ(&shell.At(1), shell.end + 0.0005F, &y, &z, kTolerance), 0);
    EXPECT_EQ(SToYZ(&shell.At(1), -0.0005F, &y, &z, kTolerance), 0);
    EXPECT_EQ(SToYZ(&shell.At(1), -kInfinity, &y, &z, kTolerance), 1);
    EXPECT_EQ(y, 0);
    EXPECT_EQ(SToYZ(&shell.At(1), kInfinity, &y, &z, kTolerance), 1);
    EXPECT_EQ(z, 10);
}

TEST(GeometryStrakesTest, LengthItselfIsOnTheStrakeWithoutATolerance) {
    Shell shell;
    float y = 0;
    float z = 0;
    EXPECT_EQ(SToYZ(&shell.At(1), shell.LengthOf(1), &y, &z, 0), 0);
    EXPECT_EQ(SToYZ(&shell.At(1), 0, &y, &z, 0), 0);
}

TEST(GeometryStrakesTest, ArcOfVeryLargeRadiusIsAsExactAsALine) {
    for (const float radius : {1e4F, 1e7F, 1e12F, -1e30F}) {
        TestSection section;
        section.Add({RadiusNode(0, 5, radius), GivenNode(8, 5)});
        ASSERT_EQ(section.Compute(), 0) << radius;
        float y = 0;
        float z = 0;
        float s = 0;
        int16_t item = 0;
        EXPECT_EQ(SToYZ(&section.At(1), 3, &y, &z, kTolerance), 0);
        EXPECT_NEAR(y, 3, 1e-5) << radius;
        EXPECT_NEAR(z, 5, 0.001) << radius;
        EXPECT_EQ(YZToS(&section.At(1), y, z, &s, &item, 1e-5F), 0) << radius;
        EXPECT_NEAR(s, 3, 1e-5) << radius;
    }
}

TEST(GeometryStrakesTest, ItemThatFailedIsLeftOutAndTheRestServes) {
    TestSection section;
    section.Add({GivenNode(0, 0), RadiusNode(4, 0, 1), GivenNode(8, 0), GivenNode(8, 3)});
    EXPECT_EQ(section.Compute(), kCodeRadiusTooSmall);
    EXPECT_FLOAT_EQ(section.LengthOf(1), 7);
    float s = 0;
    int16_t item = 0;
    EXPECT_EQ(YZToS(&section.At(1), 8, 1, &s, &item, kTolerance), 0);
    EXPECT_FLOAT_EQ(s, 5);
    EXPECT_EQ(item, 3);
    EXPECT_EQ(YZToS(&section.At(1), 6, 0, &s, &item, kTolerance), 1);
}

TEST(GeometryStrakesTest, NodeThatFailedLeavesTheAbscissasInOrder) {
    TestSection section;
    section.Add(
        {GivenNode(0, 0), GivenNode(4, 0), GivenNode(kNaN, 0), GivenNode(8, 0), GivenNode(8, 3)});
    EXPECT_EQ(section.Compute(), kCodeBadNumber);
    EXPECT_FLOAT_EQ(section.NodeOf(1, 4).s, 4);
    EXPECT_FLOAT_EQ(section.NodeOf(1, 5).s, 7);
    EXPECT_FLOAT_EQ(section.LengthOf(1), 7);
}

TEST(GeometryStrakesTest, AbsStrakeSetsUpItemsOfComputedNodesOnly) {
    TestSection section;
    section.Add(
        {RadiusNode(0, 0, 5), GivenNode(3, 0), test::CoincidentNode({1, 1}), GivenNode(9, 9)});
    ASSERT_EQ(ComputeAbsNodes(section.strakes.data(), 1), 0);
    for (StrakeItem& item : section.contents.front().items) item.length = 7;
    EXPECT_EQ(ComputeAbsStrake(section.strakes.data(), 1), 0);
    EXPECT_EQ(section.ItemOf(1, 1).y2, 3);
    EXPECT_EQ(section.ItemOf(1, 1).shape, kShapeArcByRadius);
    EXPECT_EQ(section.ItemOf(1, 1).radius, 5);
    for (int item = 1; item <= 3; ++item) EXPECT_EQ(section.ItemOf(1, item).length, 0) << item;
    EXPECT_EQ(section.ItemOf(1, 3).y2, 0);
}

TEST(GeometryStrakesTest, StrakeOfFewerThanTwoNodes) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(3, 0)});
    section.Add({GivenNode(0, 0)});
    section.Add({});
    EXPECT_EQ(ComputeAbsNodes(section.strakes.data(), 3), 0);
    EXPECT_EQ(ComputeAbsStrake(section.strakes.data(), 1), 0);
    EXPECT_EQ(ComputeAbsStrake(section.strakes.data(), 2), kCodeNoNodes);
    EXPECT_EQ(ComputeAbsStrake(section.strakes.data(), 3), kCodeNoNodes);
    EXPECT_EQ(section.Compute(), kCodeNoNodes);
    EXPECT_EQ(section.LengthOf(1), 3);
    EXPECT_EQ(section.LengthOf(2), 0);
}

}  // namespace
}  // namespace corvane
