// Places of stiffeners: AbsStiff, RelStiff.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/companions/section_builder.h"

namespace corvane {
namespace {

using namespace test;

constexpr float kPi = 3.14159265F;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr int16_t kLeft = -1;
constexpr int16_t kRight = 1;

// Bottom of 10 m, bilge of radius 2 m, side of 6 m; a bulkhead on the bottom at y = 4.
struct Hull : TestSection {
    Hull() {
        Add({GivenNode(0, 0), RadiusNode(10, 0, 2), GivenNode(12, 2), GivenNode(12, 8)});
        Add({GivenNode(4, 0), GivenNode(4, 8)});
        EXPECT_EQ(Compute(), 0);
    }
    int16_t Place(int16_t strake, Stiffener& stiffener) {
        return AbsStiff(strakes.data(), section.strakeCount, strake, &stiffener);
    }
};

struct Row {
    Stiffener stiffener;
    float s, y, z, normalY, normalZ;
};

TEST(GeometryStiffenersTest, PlacesAndNormals) {
    Hull hull;
    const float root = std::sqrt(0.5F);
    const Row rows[] = {
        {StiffenerAt(2.5F, {}, kLeft), 2.5F, 2.5F, 0, 0, 1},
        {StiffenerAt(2.5F, {}, kRight), 2.5F, 2.5F, 0, 0, -1},
        {StiffenerAt(0, {}, kLeft), 0, 0, 0, 0, 1},
        {StiffenerAt(1, {1, 3}, kLeft), 11 + kPi, 12, 3, -1, 0},
        {StiffenerAt(-0.5F, {1, 2}, kLeft), 9.5F, 9.5F, 0, 0, 1},
        {StiffenerAt(-1, {1, 4}, kRight), 15 + kPi, 12, 7, 1, 0},
        // Half way round the bilge the normal points to its centre, or away from it.
        {StiffenerAt(kPi / 2, {1, 2}, kLeft), 10 + kPi / 2, 10 + 2 * root, 2 - 2 * root, -root,
         root},
        {StiffenerAt(kPi / 2, {1, 2}, kRight), 10 + kPi / 2, 10 + 2 * root, 2 - 2 * root, root,
         -root},
        // From a node of another strake that is on this one.
        {StiffenerAt(0.6F, {2, 1}, kLeft), 4.6F, 4.6F, 0, 0, 1},
    };
    for (const Row& row : rows) {
        Stiffener stiffener = row.stiffener;
        EXPECT_EQ(hull.Place(1, stiffener), 0);
        EXPECT_NEAR(stiffener.s, row.s, 1e-5);
        EXPECT_NEAR(stiffener.y, row.y, 1e-5) << row.s;
        EXPECT_NEAR(stiffener.z, row.z, 1e-5) << row.s;
        EXPECT_NEAR(stiffener.normalY, row.normalY, 1e-5) << row.s;
        EXPECT_NEAR(stiffener.normalZ, row.normalZ, 1e-5) << row.s;
    }
}

TEST(GeometryStiffenersTest, NodeOfAnotherStrakeMeansTheNearestPoint) {
    Hull hull;
    Stiffener stiffener = StiffenerAt(1, {2, 2});  // (4, 8): nearest on the bottom is 8 m below
    EXPECT_EQ(hull.Place(1, stiffener), 0);
    // The side is as far away: the first of both counts.
    EXPECT_FLOAT_EQ(stiffener.s, 5);
}

TEST(GeometryStiffenersTest, OffsetFollowsFromTheAbscissa) {
    Hull hull;
    for (const NodeReference from :
         {NodeReference{0, 0}, NodeReference{1, 1}, NodeReference{1, 3}, NodeReference{2, 1}}) {
        Stiffener stiffener = StiffenerAt(-0.75F, from);
        stiffener.offset = from.strake == 1 && from.node == 3 ? -0.75F : 0.75F;
        const float offset = stiffener.offset;
        ASSERT_EQ(hull.Place(1, stiffener), 0);
        stiffener.offset = 99;
        EXPECT_EQ(RelStiff(hull.strakes.data(), 2, 1, &stiffener), 0);
        EXPECT_NEAR(stiffener.offset, offset, 1e-5);
    }
}

TEST(GeometryStiffenersTest, OutsideOfTheStrakeTheEndIsGiven) {
    Hull hull;
    Stiffener stiffener = StiffenerAt(-0.002F);
    EXPECT_EQ(hull.Place(1, stiffener), 1);
    EXPECT_EQ(stiffener.y, 0);
    EXPECT_EQ(stiffener.s, 0);
    stiffener = StiffenerAt(0.002F, {1, 4});
    EXPECT_EQ(hull.Place(1, stiffener), 1);
    EXPECT_EQ(stiffener.z, 8);
    EXPECT_FLOAT_EQ(stiffener.s, hull.LengthOf(1));
    stiffener = StiffenerAt(0.0005F, {1, 4});
    EXPECT_EQ(hull.Place(1, stiffener), 0);
    stiffener.s = 99;
    EXPECT_EQ(RelStiff(hull.strakes.data(), 2, 1, &stiffener), 1);
    EXPECT_FLOAT_EQ(stiffener.offset, 99 - hull.LengthOf(1));
}

TEST(GeometryStiffenersTest, CodesLeaveTheStiffenerAsItIs) {
    Hull hull;
    hull.Add({GivenNode(kNaN, 0), GivenNode(3, 3)});
    hull.Compute();
    struct {
        int16_t strake;
        Stiffener stiffener;
        int16_t code;
    } const rows[] = {
        {1, StiffenerAt(1, {1, 5}), kCodeMissingNode},
        {1, StiffenerAt(1, {1, 0}), kCodeMissingNode},
        {1, StiffenerAt(1, {0, 1}), kCodeMissingNode},
        {1, StiffenerAt(1, {4, 1}), kCodeMissingNode},
        {1, StiffenerAt(1, {-1, -1}), kCodeMissingNode},
        {1, StiffenerAt(1, {3, 1}), kCodeMissingNode},  // could not be computed
        {0, StiffenerAt(1), kCodeMissingNode},
        {4, StiffenerAt(1), kCodeMissingNode},
        {3, StiffenerAt(1), kCodeNoNodes},
        {1, StiffenerAt(kNaN), kCodeBadNumber},
        {1, StiffenerAt(std::numeric_limits<float>::infinity()), kCodeBadNumber},
    };
    for (const auto& row : rows) {
        Stiffener stiffener = row.stiffener;
        stiffener.y = 77;
        stiffener.s = stiffener.offset;
        EXPECT_EQ(AbsStiff(hull.strakes.data(), 3, row.strake, &stiffener), row.code);
        EXPECT_EQ(stiffener.y, 77);
        EXPECT_EQ(RelStiff(hull.strakes.data(), 3, row.strake, &stiffener), row.code);
    }
    EXPECT_EQ(AbsStiff(hull.strakes.data(), 3, 1, nullptr), kCodeMissingNode);
    EXPECT_EQ(RelStiff(hull.strakes.data(), 3, 1, nullptr), kCodeMissingNode);
    Stiffener stiffener = StiffenerAt(1);
    EXPECT_EQ(AbsStiff(nullptr, 3, 1, &stiffener), kCodeMissingNode);
    EXPECT_EQ(AbsStiff(hull.strakes.data(), -1, 1, &stiffener), kCodeMissingNode);
}

TEST(GeometryStiffenersTest, QuickComputePlacesAll) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(10, 0)}, {StiffenerAt(1), StiffenerAt(-3, {1, 2})});
    EXPECT_EQ(section.Compute(), 0);
    EXPECT_FLOAT_EQ(section.StiffenerOf(1, 1).y, 1);
    EXPECT_FLOAT_EQ(section.StiffenerOf(1, 2).y, 7);
    section.StiffenerOf(1, 1).onStrake = 9;
    EXPECT_EQ(section.Compute(), kCodeMissingNode);
    EXPECT_FLOAT_EQ(section.StiffenerOf(1, 2).y, 7);
    section.StiffenerOf(1, 1) = StiffenerAt(11);
    EXPECT_EQ(section.Compute(), 0);
}

}  // namespace
}  // namespace corvane
