#include "bsd/frames.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace corvane {
namespace {

struct Zone {
    int lastFrame;
    float spacing_m;
};

BasicShipData ShipWithFrames(int firstFrame, float zeroX, std::initializer_list<Zone> zones) {
    BasicShipData bsd;
    bsd.FrameNumbers(0) = static_cast<int16_t>(firstFrame);
    bsd.FrameZeroX = zeroX;
    for (const Zone& zone : zones) {
        ++bsd.FrameZoneCount;
        bsd.FrameNumbers(bsd.FrameZoneCount) = static_cast<int16_t>(zone.lastFrame);
        bsd.ZoneSpacing(bsd.FrameZoneCount) = zone.spacing_m;
    }
    return bsd;
}

// Frames -5 to 20 in zones that end at 0, 10 and 20.
BasicShipData ThreeZones() {
    return ShipWithFrames(-5, 1.5f, {{0, 0.5f}, {10, 0.75f}, {20, 1.0f}});
}

void ExpectNearest(const BasicShipData& bsd, double x, int frame, double distance) {
    const NearestFrameResult nearest = NearestFrame(bsd, x);
    EXPECT_TRUE(nearest.found) << x;
    EXPECT_EQ(nearest.frame, frame) << x;
    EXPECT_NEAR(nearest.distance, distance, 1e-12) << x;
}

TEST(Frames, FrameZeroIsAtItsAbscissa) {
    EXPECT_EQ(FrameX(ThreeZones(), 0), 1.5);
}

TEST(Frames, AbscissaeGrowByTheSpacingOfTheZoneThatHoldsTheFrame) {
    const BasicShipData bsd = ThreeZones();
    EXPECT_EQ(FrameX(bsd, 1), 2.25);
    EXPECT_EQ(FrameX(bsd, 10), 9);
    EXPECT_EQ(FrameX(bsd, 11), 10) << "frame 10 is the last of its zone";
    EXPECT_EQ(FrameX(bsd, 20), 19);
}

TEST(Frames, NegativeFramesAreBelowFrameZero) {
    const BasicShipData bsd = ThreeZones();
    EXPECT_EQ(FrameX(bsd, -1), 1.0);
    EXPECT_EQ(FrameX(bsd, -5), -1.0);
    for (int frame = -5; frame < 0; ++frame) EXPECT_LT(FrameX(bsd, frame), 1.5);
}

TEST(Frames, NegativeFramesInSeveralZones) {
    const BasicShipData bsd = ShipWithFrames(-4, 0, {{-2, 2.0f}, {3, 1.0f}});
    EXPECT_EQ(FrameX(bsd, -1), -1);
    EXPECT_EQ(FrameX(bsd, -2), -2);
    EXPECT_EQ(FrameX(bsd, -3), -4);
    EXPECT_EQ(FrameX(bsd, -4), -6);
    ExpectNearest(bsd, -100, -4, 94);
}

TEST(Frames, FramesOutsideOfAllZonesAddNothing) {
    const BasicShipData bsd = ShipWithFrames(5, 3, {{10, 1.0f}});
    EXPECT_EQ(FrameX(bsd, 5), 3);
    EXPECT_EQ(FrameX(bsd, 6), 4);
    EXPECT_EQ(FrameX(bsd, 10), 8);
    EXPECT_EQ(FrameX(bsd, 12), 8);
    ExpectNearest(bsd, 0, 5, 3);
}

TEST(Frames, SumIsOfDoublePrecision) {
    const BasicShipData bsd = ShipWithFrames(0, 0, {{1000, 0.7f}});
    EXPECT_NEAR(FrameX(bsd, 1000), 1000.0 * 0.7f, 1e-9);
}

TEST(Frames, NearestFrameAndDistance) {
    const BasicShipData bsd = ThreeZones();
    ExpectNearest(bsd, 1.5, 0, 0);
    ExpectNearest(bsd, 2.0, 1, 0.25);
    ExpectNearest(bsd, 9.25, 10, 0.25);
    ExpectNearest(bsd, -0.9, -5, 0.1);
    ExpectNearest(bsd, -50, -5, 49);
    ExpectNearest(bsd, 50, 20, 31);
}

TEST(Frames, LowerFrameWinsATie) {
    const BasicShipData bsd = ThreeZones();
    ExpectNearest(bsd, 10.5, 11, 0.5);
    ExpectNearest(bsd, 1.25, -1, 0.25);
    ExpectNearest(bsd, -0.75, -5, 0.25);
    ExpectNearest(ShipWithFrames(-3, 2, {{4, 0.0f}}), 1, -3, 1);
}

TEST(Frames, ShipWithoutZonesHasNoFrames) {
    BasicShipData bsd = ThreeZones();
    for (const int count : {0, -1, -32768}) {
        bsd.FrameZoneCount = static_cast<int16_t>(count);
        const NearestFrameResult nearest = NearestFrame(bsd, 5);
        EXPECT_FALSE(nearest.found) << count;
        EXPECT_EQ(nearest.frame, 0);
        EXPECT_EQ(nearest.distance, 0);
        EXPECT_EQ(FrameX(bsd, 5), 1.5);
    }
}

TEST(Frames, ZoneCountIsClampedToForty) {
    BasicShipData bsd;
    for (int i = 1; i <= 40; ++i) {
        bsd.FrameNumbers(i) = static_cast<int16_t>(i);
        bsd.ZoneSpacing(i) = 1;
    }
    for (const int count : {40, 41, 32767}) {
        bsd.FrameZoneCount = static_cast<int16_t>(count);
        ExpectNearest(bsd, 39.9, 40, 0.1);
        ExpectNearest(bsd, 100, 40, 60);
    }
}

TEST(Frames, FramesThatRunBackwardsDoNotCount) {
    const BasicShipData bsd = ShipWithFrames(10, 0, {{5, 1.0f}});
    EXPECT_FALSE(NearestFrame(bsd, 0).found);
}

TEST(Frames, FirstOfTwoZonesThatHoldAFrameGivesItsSpacing) {
    const BasicShipData bsd = ShipWithFrames(0, 0, {{10, 1.0f}, {5, 2.0f}, {10, 3.0f}});
    EXPECT_EQ(FrameX(bsd, 10), 10);
}

TEST(Frames, AbscissaThatIsNotANumberHasNoFrame) {
    EXPECT_FALSE(NearestFrame(ThreeZones(), std::nan("")).found);
    EXPECT_FALSE(NearestFrame(ThreeZones(), std::numeric_limits<double>::infinity()).found);
}

TEST(Frames, WholeRangeOfFrameNumbersIsWalked) {
    const BasicShipData bsd = ShipWithFrames(-32768, 0, {{32767, 1.0f}});
    ExpectNearest(bsd, -40000, -32768, 7232);
    ExpectNearest(bsd, 40000, 32767, 7233);
}

}  // namespace
}  // namespace corvane
