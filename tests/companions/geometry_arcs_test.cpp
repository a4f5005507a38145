// ComputeStrake: straight lines and arcs, in closed form.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/companions/section_builder.h"

namespace corvane {
namespace {

using test::kTolerance;

constexpr float kPi = 3.14159265F;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kLargest = std::numeric_limits<float>::max();

StrakeItem Straight(float y1, float z1, float y2, float z2) {
    StrakeItem item{};
    item.y1 = y1;
    item.z1 = z1;
    item.y2 = y2;
    item.z2 = z2;
    return item;
}

StrakeItem ByRadius(StrakeItem item, float radius) {
    item.shape = kShapeArcByRadius;
    item.radius = radius;
    return item;
}

StrakeItem ByTangent(StrakeItem item, float y, float z) {
    item.shape = kShapeArcByTangent;
    item.tangentY = y;
    item.tangentZ = z;
    return item;
}

TEST(GeometryArcsTest, StraightLine) {
    StrakeItem item = Straight(1, 2, 4, 6);
    EXPECT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    EXPECT_EQ(item.length, 5);
    EXPECT_EQ(item.s, 0);
    EXPECT_EQ(item.arcRadius, 0);
    EXPECT_EQ(item.sweep, 0);
}

// A bilge of radius 2 m: from the bottom's end (10, 0) up to the side at (12, 2).
TEST(GeometryArcsTest, QuarterCircleTurningLeft) {
    StrakeItem item = ByRadius(Straight(10, 0, 12, 2), 2);
    ASSERT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    EXPECT_FLOAT_EQ(item.length, kPi);
    EXPECT_NEAR(item.centreY, 10, 1e-6);
    EXPECT_NEAR(item.centreZ, 2, 1e-6);
    EXPECT_FLOAT_EQ(item.arcRadius, 2);
    EXPECT_FLOAT_EQ(item.startAngle, -kPi / 2);
    EXPECT_FLOAT_EQ(item.sweep, kPi / 2);
}

TEST(GeometryArcsTest, QuarterCircleTurningRight) {
    StrakeItem item = ByRadius(Straight(-10, 0, -12, 2), -2);
    ASSERT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    EXPECT_FLOAT_EQ(item.length, kPi);
    EXPECT_NEAR(item.centreY, -10, 1e-6);
    EXPECT_NEAR(item.centreZ, 2, 1e-6);
    EXPECT_FLOAT_EQ(item.startAngle, -kPi / 2);
    EXPECT_FLOAT_EQ(item.sweep, -kPi / 2);
}

TEST(GeometryArcsTest, ArcByTangentEqualsArcByRadius) {
    StrakeItem radius = ByRadius(Straight(10, 0, 12, 2), 2);
    StrakeItem tangent = ByTangent(Straight(10, 0, 12, 2), 12, 0);
    ASSERT_EQ(ComputeStrake(&radius, 1, kTolerance), 0);
    ASSERT_EQ(ComputeStrake(&tangent, 1, kTolerance), 0);
    EXPECT_FLOAT_EQ(tangent.length, radius.length);
    EXPECT_FLOAT_EQ(tangent.arcRadius, 2);
    EXPECT_NEAR(tangent.centreY, radius.centreY, 1e-6);
    EXPECT_NEAR(tangent.centreZ, radius.centreZ, 1e-6);
    EXPECT_FLOAT_EQ(tangent.startAngle, radius.startAngle);
    EXPECT_FLOAT_EQ(tangent.sweep, radius.sweep);
}

TEST(GeometryArcsTest, ArcByTangentTurnsToTheSideAwayFromThePoint) {
    StrakeItem item = ByTangent(Straight(0, 0, 2, 2), 0, 2);
    ASSERT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    EXPECT_FLOAT_EQ(item.sweep, -kPi / 2);
    EXPECT_NEAR(item.centreY, 2, 1e-6);
    EXPECT_NEAR(item.centreZ, 0, 1e-6);
}

TEST(GeometryArcsTest, HalfCircle) {
    StrakeItem item = ByRadius(Straight(0, 0, 0, 4), 2);
    ASSERT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    EXPECT_FLOAT_EQ(item.length, 2 * kPi);
    EXPECT_NEAR(item.centreY, 0, 1e-6);
    EXPECT_NEAR(item.centreZ, 2, 1e-6);
    EXPECT_FLOAT_EQ(item.sweep, kPi);
}

TEST(GeometryArcsTest, RadiusWithinTheToleranceOfHalfTheDistanceMakesHalfACircle) {
    StrakeItem item = ByRadius(Straight(0, 0, 0, 4), 1.9995F);
    ASSERT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    EXPECT_FLOAT_EQ(item.length, 2 * kPi);
}

// A sixth of a circle: the chord is as long as the radius.
TEST(GeometryArcsTest, ChordAsLongAsTheRadius) {
    StrakeItem item = ByRadius(Straight(0, 0, 3, 0), 3);
    ASSERT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    EXPECT_FLOAT_EQ(item.length, kPi);
    EXPECT_NEAR(item.centreY, 1.5, 1e-6);
    EXPECT_NEAR(item.centreZ, 1.5 * std::sqrt(3.0), 1e-6);
}

TEST(GeometryArcsTest, VeryLargeRadiusIsNearlyStraight) {
    StrakeItem item = ByRadius(Straight(0, 0, 10, 0), 1e9F);
    ASSERT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    EXPECT_FLOAT_EQ(item.length, 10);
}

TEST(GeometryArcsTest, UnknownShapeIsStraight) {
    StrakeItem item = ByRadius(Straight(0, 0, 3, 4), 9);
    item.shape = 77;
    ASSERT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    EXPECT_EQ(item.length, 5);
}

TEST(GeometryArcsTest, AbscissaGoesOnFromTheItemBefore) {
    StrakeItem items[3] = {Straight(0, 0, 3, 0), ByRadius(Straight(3, 0, 5, 2), 2),
                           Straight(5, 2, 5, 6)};
    for (int16_t k = 1; k <= 3; ++k) ASSERT_EQ(ComputeStrake(items, k, kTolerance), 0);
    EXPECT_FLOAT_EQ(items[1].s, 3);
    EXPECT_FLOAT_EQ(items[2].s, 3 + kPi);
}

TEST(GeometryArcsTest, EarlierResultsAreForgotten) {
    StrakeItem item = ByRadius(Straight(0, 0, 2, 2), 2);
    ASSERT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    item.shape = kShapeStraight;
    ASSERT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
    EXPECT_EQ(item.arcRadius, 0);
    EXPECT_EQ(item.sweep, 0);
    EXPECT_EQ(item.centreY, 0);
}

struct BadItem {
    const char* what;
    StrakeItem item;
    int16_t code;
};

const BadItem kBadItems[] = {
    {"coincident", Straight(1, 1, 1, 1), kCodeCoincidentNodes},
    {"just coincident", Straight(1, 1, 1, 1.0009F), kCodeCoincidentNodes},
    {"coincident ends of an arc", ByRadius(Straight(1, 1, 1, 1), 3), kCodeCoincidentNodes},
    {"small radius", ByRadius(Straight(0, 0, 0, 4), 1.99F), kCodeRadiusTooSmall},
    {"small radius, right", ByRadius(Straight(0, 0, 0, 4), -1.99F), kCodeRadiusTooSmall},
    {"no radius", ByRadius(Straight(0, 0, 0, 4), 0), kCodeRadiusTooSmall},
    {"tangent in the middle", ByTangent(Straight(0, 0, 4, 0), 2, 0), kCodeBadTangent},
    {"tangent at an end", ByTangent(Straight(0, 0, 4, 0), 0, 0), kCodeBadTangent},
    {"tangent beyond an end", ByTangent(Straight(0, 0, 4, 0), 9, 0.0005F), kCodeBadTangent},
    {"unequal tangents", ByTangent(Straight(0, 0, 4, 0), 2.1F, 1), kCodeTangentLengths},
    {"y1 NaN", Straight(kNaN, 0, 4, 0), kCodeBadNumber},
    {"z1 infinite", Straight(0, kInfinity, 4, 0), kCodeBadNumber},
    {"y2 infinite", Straight(0, 0, -kInfinity, 0), kCodeBadNumber},
    {"z2 NaN", Straight(0, 0, 4, kNaN), kCodeBadNumber},
    {"radius NaN", ByRadius(Straight(0, 0, 0, 4), kNaN), kCodeBadNumber},
    {"radius infinite", ByRadius(Straight(0, 0, 0, 4), kInfinity), kCodeBadNumber},
    {"tangent NaN", ByTangent(Straight(0, 0, 4, 0), 2, kNaN), kCodeBadNumber},
    {"length too large", Straight(-kLargest, 0, kLargest, 0), kCodeBadNumber},
};

TEST(GeometryArcsTest, BadItemsGetTheirCodeAndNoLength) {
    for (const BadItem& bad : kBadItems) {
        StrakeItem item = bad.item;
        item.length = 9;
        EXPECT_EQ(ComputeStrake(&item, 1, kTolerance), bad.code) << bad.what;
        EXPECT_EQ(item.length, 0) << bad.what;
    }
}

TEST(GeometryArcsTest, NumbersThatTheShapeDoesNotUseMayBeAnything) {
    StrakeItem item = Straight(0, 0, 3, 4);
    item.radius = kNaN;
    item.tangentY = kInfinity;
    EXPECT_EQ(ComputeStrake(&item, 1, kTolerance), 0);
}

TEST(GeometryArcsTest, WithoutATolerancePointsCoincideOnlyWhenTheyAreEqual) {
    for (const float tolerance : {0.0F, -1.0F, kNaN}) {
        StrakeItem near = Straight(1, 1, 1, std::nextafter(1.0F, 2.0F));
        EXPECT_EQ(ComputeStrake(&near, 1, tolerance), 0);
        EXPECT_GT(near.length, 0);
        StrakeItem same = Straight(1, 1, 1, 1);
        EXPECT_EQ(ComputeStrake(&same, 1, tolerance), kCodeCoincidentNodes);
    }
}

TEST(GeometryArcsTest, NoListOrNoItem) {
    StrakeItem item = Straight(0, 0, 3, 4);
    EXPECT_EQ(ComputeStrake(nullptr, 1, kTolerance), kCodeNoNodes);
    EXPECT_EQ(ComputeStrake(&item, 0, kTolerance), kCodeNoNodes);
    EXPECT_EQ(ComputeStrake(&item, -1, kTolerance), kCodeNoNodes);
}

}  // namespace
}  // namespace corvane
