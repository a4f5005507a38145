// Distance, IsSamePoint, IsPointInSegment.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/ztutil32.h"

namespace corvane {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kLargest = std::numeric_limits<float>::max();

TEST(PlaneGeometryTest, DistanceOfTwoPoints) {
    EXPECT_EQ(Distance(1, 2, 4, 6), 5);
    EXPECT_EQ(Distance(-1, -2, -4, -6), 5);
    EXPECT_EQ(Distance(3, 3, 3, 3), 0);
}

TEST(PlaneGeometryTest, DistanceOfFarPointsDoesNotOverflow) {
    EXPECT_EQ(Distance(-kLargest / 4, 0, kLargest / 4, 0), kLargest / 2);
    EXPECT_FLOAT_EQ(Distance(1e-30F, 0, 0, 1e-30F), 1.4142136e-30F);
}

TEST(PlaneGeometryTest, TrueIsMinusOne) {
    EXPECT_EQ(IsSamePoint(1, 1, 1, 1, 0), -1);
    EXPECT_EQ(IsPointInSegment(0, 0, -1, 0, 1, 0, 0), -1);
}

TEST(PlaneGeometryTest, ToleranceOfTheSamePointIsInclusive) {
    EXPECT_TRUE(IsSamePoint(0, 0, 0.25F, 0, 0.25F));
    EXPECT_TRUE(IsSamePoint(0, 0, 0, -0.25F, 0.25F));
    EXPECT_FALSE(IsSamePoint(0, 0, std::nextafter(0.25F, 1.0F), 0, 0.25F));
}

TEST(PlaneGeometryTest, ToleranceIsOfTheDistanceNotOfEachCoordinate) {
    EXPECT_TRUE(IsSamePoint(0, 0, 3, 4, 5));
    EXPECT_FALSE(IsSamePoint(0, 0, 4.9F, 4.9F, 5));
}

TEST(PlaneGeometryTest, NegativeToleranceIsNeverMet) {
    EXPECT_FALSE(IsSamePoint(1, 1, 1, 1, -0.001F));
    EXPECT_FALSE(IsPointInSegment(0, 0, -1, 0, 1, 0, -0.001F));
}

TEST(PlaneGeometryTest, PointOnASegment) {
    EXPECT_TRUE(IsPointInSegment(1, 1, 0, 0, 2, 2, 0.001F));
    EXPECT_TRUE(IsPointInSegment(0, 0, 0, 0, 2, 2, 0.001F));
    EXPECT_TRUE(IsPointInSegment(2, 2, 0, 0, 2, 2, 0.001F));
    EXPECT_FALSE(IsPointInSegment(1, 1.1F, 0, 0, 2, 2, 0.001F));
}

TEST(PlaneGeometryTest, ToleranceBesideAndBeyondTheSegmentIsInclusive) {
    EXPECT_TRUE(IsPointInSegment(1, 0.5F, 0, 0, 2, 0, 0.5F));
    EXPECT_FALSE(IsPointInSegment(1, 0.51F, 0, 0, 2, 0, 0.5F));
    EXPECT_TRUE(IsPointInSegment(2.5F, 0, 0, 0, 2, 0, 0.5F));
    EXPECT_TRUE(IsPointInSegment(-0.5F, 0, 0, 0, 2, 0, 0.5F));
    EXPECT_FALSE(IsPointInSegment(2.51F, 0, 0, 0, 2, 0, 0.5F));
    EXPECT_FALSE(IsPointInSegment(-0.51F, 0, 0, 0, 2, 0, 0.5F));
}

TEST(PlaneGeometryTest, BeyondAnEndTheToleranceIsRound) {
    EXPECT_TRUE(IsPointInSegment(2.3F, 0.3F, 0, 0, 2, 0, 0.5F));
    EXPECT_FALSE(IsPointInSegment(2.4F, 0.4F, 0, 0, 2, 0, 0.5F));
}

TEST(PlaneGeometryTest, SegmentWithoutLengthIsAPoint) {
    EXPECT_TRUE(IsPointInSegment(1, 1, 1, 1, 1, 1, 0));
    EXPECT_TRUE(IsPointInSegment(1.5F, 1, 1, 1, 1, 1, 0.5F));
    EXPECT_FALSE(IsPointInSegment(1.6F, 1, 1, 1, 1, 1, 0.5F));
}

TEST(PlaneGeometryTest, WhatIsNotANumberIsNowhere) {
    for (int place = 0; place < 5; ++place) {
        float v[5] = {0, 0, 0, 0, 1};
        v[place] = kNaN;
        EXPECT_FALSE(IsSamePoint(v[0], v[1], v[2], v[3], v[4])) << place;
    }
    for (int place = 0; place < 7; ++place) {
        float v[7] = {0, 0, -1, 0, 1, 0, 1};
        v[place] = kNaN;
        EXPECT_FALSE(IsPointInSegment(v[0], v[1], v[2], v[3], v[4], v[5], v[6])) << place;
    }
    EXPECT_TRUE(std::isnan(Distance(kNaN, 0, 0, 0)));
}

}  // namespace
}  // namespace corvane
