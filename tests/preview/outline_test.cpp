// Outlines: from the nodes of a strake, from a section seen from the side, and what is across them.
#include "preview/outline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "database/section_block.h"
#include "database/section_view.h"
#include "preview/section_geometry.h"
#include "tests/companions/section_builder.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::GivenNode;
using test::RadiusNode;
using test::TestSection;

void ExpectCorners(const Outline& outline, const std::vector<ShipPoint>& expected) {
    ASSERT_EQ(outline.size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(outline[i].y, expected[i].y, 1e-5) << i;
        EXPECT_NEAR(outline[i].z, expected[i].z, 1e-5) << i;
    }
}

TEST(Outline, LineOfAStrakeGoesThroughItsNodes) {
    TestSection section;
    section.Add({GivenNode(0, 1), GivenNode(5, 1), GivenNode(6, 3)});
    ComputeSection(section.section);
    ExpectCorners(LineOf(section.At(1)), {{0, 1}, {5, 1}, {6, 3}});
}

TEST(Outline, ArcIsOnItsCircle) {
    TestSection section;
    section.Add({RadiusNode(8, 0, 2), GivenNode(10, 2)});
    ComputeSection(section.section);
    const Outline line = LineOf(section.At(1));
    // A quarter of a circle about (8, 2): lines that are 0.5 mm off it are 89 mm long.
    EXPECT_GE(line.size(), std::numbers::pi / 0.089);
    for (const ShipPoint& point : line) {
        EXPECT_NEAR(std::hypot(point.y - 8, point.z - 2), 2, 1e-4);
    }
    for (size_t i = 1; i < line.size(); ++i) {
        const double y = (line[i - 1].y + line[i].y) / 2;
        const double z = (line[i - 1].z + line[i].z) / 2;
        EXPECT_NEAR(std::hypot(y - 8, z - 2), 2, 0.0006) << "in the middle of each line";
    }
}

TEST(Outline, NodesThatHaveNoPlaceAreLeftOut) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(1e30F, 0), GivenNode(5, 0),
                 GivenNode(std::numeric_limits<float>::quiet_NaN(), 1), GivenNode(5, 4),
                 GivenNode(6, 4)});
    section.Add({test::CoincidentNode({9, 9}), GivenNode(1, 1)});
    ComputeSection(section.section);
    ExpectCorners(LineOf(section.At(1)), {{0, 0}, {5, 0}, {5, 4}, {6, 4}});
    EXPECT_TRUE(LineOf(section.At(2)).empty()) << "one corner is no line";
}

TEST(Outline, SectionIsSeenFromTheSide) {
    TestSection section;
    // Bottom, side and deck, and inside of them what cannot be seen; a coaming on the deck.
    section.Add({GivenNode(0, 0), GivenNode(10, 0), GivenNode(10, 8), GivenNode(4, 8)});
    section.Add({GivenNode(0, 2), GivenNode(10, 2)});
    section.Add({GivenNode(4, 6), GivenNode(4, 9)});
    ComputeSection(section.section);
    const Outline half = HalfOutline(section.section);
    EXPECT_EQ(AcrossAtHeight(half, 1)->to, 10);
    EXPECT_EQ(AcrossAtHeight(half, 7.99)->to, 10);
    EXPECT_EQ(AcrossAtHeight(half, 8.01)->to, 4);
    EXPECT_EQ(AcrossAtHeight(half, 8.99)->to, 4);
    const ShipBox box = BoxOf(half);
    EXPECT_EQ(box.left, 0);
    EXPECT_EQ(box.right, 10);
    EXPECT_EQ(box.bottom, 0);
    EXPECT_EQ(box.top, 9);
}

TEST(Outline, SideThatStandsOutIsSquareBelow) {
    TestSection section;
    section.Add(
        {GivenNode(0, 0), GivenNode(4, 0), GivenNode(4, 3), GivenNode(10, 3), GivenNode(10, 8)});
    ComputeSection(section.section);
    const Outline half = HalfOutline(section.section);
    EXPECT_EQ(AcrossAtHeight(half, 2.99)->to, 4);
    EXPECT_EQ(AcrossAtHeight(half, 3.01)->to, 10);
}

TEST(Outline, SlopingSideIsExactBetweenTheHeightsOfItsCorners) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(6, 0), GivenNode(10, 8), GivenNode(0, 8)});
    section.Add({GivenNode(0, 4), GivenNode(3, 4)});
    ComputeSection(section.section);
    ExpectCorners(HalfOutline(section.section), {{0, 0}, {6, 0}, {8, 4}, {10, 8}, {0, 8}});
}

TEST(Outline, SectionOnTheOtherSideIsTurnedOver) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(-6, 0), GivenNode(-6, 8)});
    ComputeSection(section.section);
    ExpectCorners(HalfOutline(section.section), {{0, 0}, {6, 0}, {6, 8}, {0, 8}});
}

TEST(Outline, SectionWithoutPlatingHasNone) {
    TestSection section;
    ComputeSection(section.section);
    EXPECT_TRUE(HalfOutline(section.section).empty());
    section.Add({GivenNode(1e30F, 0), GivenNode(0, 1e30F)});
    ComputeSection(section.section);
    EXPECT_TRUE(HalfOutline(section.section).empty());
}

TEST(Outline, MidshipSectionOfTheSampleIsAsBroadAsTheShip) {
    SectionModel model;
    ASSERT_TRUE(ReadSectionBlock(test::DataPath("../samples/aurora_bay.ve2"), 5, false, model));
    LibraryView view;
    MakeLibraryView(model, view);
    ComputeSection(view.section);
    const Outline half = HalfOutline(view.section);
    EXPECT_NEAR(AcrossAtHeight(half, 10)->to, 32.25 / 2, 0.01);
    EXPECT_NEAR(BoxOf(half).bottom, 0, 1e-6);
    EXPECT_LT(AcrossAtHeight(half, 0.1)->to, 32.25 / 2 - 0.5) << "the bilge";
    EXPECT_LT(AcrossAtHeight(half, BoxOf(half).top - 0.1)->to, 9) << "the hatch";
}

TEST(Outline, BreadthAndDepthAreARectangle) {
    ExpectCorners(HalfOutline(30, 16), {{0, 0}, {15, 0}, {15, 16}, {0, 16}});
    EXPECT_TRUE(HalfOutline(0, 16).empty());
    EXPECT_TRUE(HalfOutline(30, -1).empty());
    EXPECT_TRUE(HalfOutline(std::nan(""), 16).empty());
    EXPECT_TRUE(HalfOutline(30, 1e30).empty());
}

TEST(Outline, BothHalvesMeetAtTheCentreLine) {
    ExpectCorners(BothHalves({{0, 0}, {15, 0}, {15, 16}, {0, 16}}),
                  {{0, 0}, {15, 0}, {15, 16}, {0, 16}, {-15, 16}, {-15, 0}, {0, 0}});
}

TEST(Outline, PartsAreCutAtTheHeight) {
    const Outline box{{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    ExpectCorners(PartBelow(box, 1), {{0, 0}, {4, 0}, {4, 1}, {0, 1}});
    ExpectCorners(PartAbove(box, 1), {{4, 1}, {4, 4}, {0, 4}, {0, 1}});
    EXPECT_FALSE(HasArea(PartBelow(box, 0)));
    EXPECT_TRUE(PartAbove(box, 5).empty());
}

TEST(Outline, LinesAcrossGoFromTheFirstToTheLastMeeting) {
    const Outline arch{{0, 0}, {1, 0}, {1, 3}, {3, 3}, {3, 0}, {4, 0}, {4, 4}, {0, 4}};
    EXPECT_EQ(AcrossAtHeight(arch, 1)->from, 0);
    EXPECT_EQ(AcrossAtHeight(arch, 1)->to, 4);
    EXPECT_EQ(AcrossAtBreadth(arch, 2)->from, 3);
    EXPECT_EQ(AcrossAtBreadth(arch, 2)->to, 4);
    EXPECT_EQ(AcrossAtHeight(arch, 0)->to, 4) << "along its own side";
    EXPECT_FALSE(AcrossAtHeight(arch, 4.1).has_value());
    EXPECT_FALSE(AcrossAtBreadth(arch, -1).has_value());
    EXPECT_FALSE(AcrossAtBreadth(arch, std::nan("")).has_value());
}

}  // namespace
}  // namespace corvane
