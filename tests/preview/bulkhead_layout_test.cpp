// Which bulkheads of an arrangement are drawn, with what outline, and where.
#include "preview/bulkhead_layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/preview/bulkhead_support.h"

namespace corvane {
namespace {

using test::ArrangementOf;
using test::CorrugatedBulkhead;
using test::HalfBulkhead;
using test::LayOut;

ShipOutline ShipOf(double breadth, double depth) {
    return {OutlineSource::kBreadthAndDepth, HalfOutline(breadth, depth), L"", 0};
}

ShipBox Moved(const DrawnBulkhead& drawn) {
    return {drawn.box.left + drawn.place.y, drawn.box.bottom + drawn.place.z,
            drawn.box.right + drawn.place.y, drawn.box.top + drawn.place.z};
}

bool AreApart(const ShipBox& a, const ShipBox& b) {
    return a.right <= b.left || b.right <= a.left || a.top <= b.bottom || b.top <= a.bottom;
}

// Everything is in the extent, nothing on something else, and the sheet is filled.
void ExpectOrder(const BulkheadLayout& layout) {
    const ShipBox& extent = layout.extent;
    for (const DrawnBulkhead& drawn : layout.bulkheads) {
        ShipBox place = Moved(drawn);
        place.bottom -= layout.foot_m;
        EXPECT_GE(place.left, extent.left - 1e-9);
        EXPECT_LE(place.right, extent.right + 1e-9);
        EXPECT_GE(place.bottom, extent.bottom - 1e-9);
        EXPECT_LE(place.top, extent.top + 1e-9);
        for (const DrawnBulkhead& other : layout.bulkheads) {
            EXPECT_TRUE(&other == &drawn || AreApart(place, Moved(other))) << drawn.number;
        }
    }
    const double width = (extent.right - extent.left) * layout.mmPerMetre;
    const double height = (extent.top - extent.bottom) * layout.mmPerMetre;
    EXPECT_LE(width, test::kSheetWidth_mm);
    EXPECT_LE(height, test::kSheetHeight_mm);
    EXPECT_TRUE(width > 0.9 * test::kSheetWidth_mm || height > 0.9 * test::kSheetHeight_mm);
}

TEST(BulkheadLayout, SampleShipsBulkheadsHaveTheirOwnOutlinesAndPlaces) {
    for (int32_t i = test::kFirstArrangement; i <= test::kLastArrangement; ++i) {
        const BulkheadArrangement arrangement = test::SampleArrangement(i);
        const BulkheadLayout layout = LayOut(arrangement, 0, [] {
            ADD_FAILURE() << "the ship's outline is not needed";
            return ShipOutline{};
        });
        EXPECT_EQ(layout.why, WhyNoBulkhead::kNone);
        ASSERT_EQ(layout.bulkheads.size(), arrangement.bulkheads.size());
        for (const DrawnBulkhead& drawn : layout.bulkheads) {
            EXPECT_EQ(drawn.source, OutlineSource::kNodes);
        }
        ExpectOrder(layout);
    }
}

TEST(BulkheadLayout, NodesMayReferToAnotherBulkhead) {
    const BulkheadArrangement arrangement = test::SampleArrangement(test::kCorrugatedArrangement);
    const BulkheadLayout layout = LayOut(arrangement);
    ASSERT_GE(layout.bulkheads.size(), 3U);
    const Outline& aft = layout.bulkheads[1].outline;
    const Outline& fore = layout.bulkheads[2].outline;
    ASSERT_EQ(aft.size(), 4U);
    ASSERT_EQ(fore.size(), 4U);
    for (size_t i = 0; i < aft.size(); ++i) {
        EXPECT_EQ(aft[i].y, fore[i].y);
        EXPECT_EQ(aft[i].z, fore[i].z);
    }
    EXPECT_NEAR(aft[2].y, 13.6851, 1e-4);
}

TEST(BulkheadLayout, WithoutNodesTheShipIsAskedOnce) {
    Bulkhead bare = HalfBulkhead();
    bare.nodes.clear();
    int count = 0;
    const auto ship = [&] {
        ++count;
        return ShipOf(20, 15);
    };
    const BulkheadArrangement arrangement = ArrangementOf({bare, HalfBulkhead(), bare});
    const BulkheadLayout layout = LayOut(arrangement, 0, ship);
    EXPECT_EQ(count, 1);
    ASSERT_EQ(layout.bulkheads.size(), 3U);
    EXPECT_EQ(layout.bulkheads[0].source, OutlineSource::kBreadthAndDepth);
    EXPECT_EQ(layout.bulkheads[1].source, OutlineSource::kNodes);
    EXPECT_EQ(layout.bulkheads[0].box.left, -10);
    EXPECT_EQ(layout.bulkheads[0].box.top, 15);
    ExpectOrder(layout);
    LayOut(arrangement, 2, ship);
    EXPECT_EQ(count, 1) << "the one that is shown has its own";
}

TEST(BulkheadLayout, NodesThatEncloseNothingAreNoOutline) {
    for (const std::vector<Node>& nodes :
         {std::vector<Node>{test::GivenNode(0, 1), test::GivenNode(5, 1), test::GivenNode(9, 1)},
          std::vector<Node>{test::GivenNode(1e30F, 1), test::GivenNode(5, 1e30F)},
          std::vector<Node>{test::CoincidentNode({1, 1}), test::CoincidentNode({7, 7})}}) {
        Bulkhead bulkhead = HalfBulkhead();
        bulkhead.nodes = nodes;
        const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
        const BulkheadLayout layout = LayOut(arrangement, 0, [] { return ShipOf(20, 15); });
        ASSERT_EQ(layout.bulkheads.size(), 1U);
        EXPECT_EQ(layout.bulkheads[0].source, OutlineSource::kBreadthAndDepth);
    }
}

TEST(BulkheadLayout, WhereNothingCanBeDrawnItSaysWhy) {
    const BulkheadArrangement none = ArrangementOf({});
    EXPECT_EQ(LayOut(none).why, WhyNoBulkhead::kNoBulkheads);
    const BulkheadArrangement one = ArrangementOf({HalfBulkhead()});
    EXPECT_EQ(LayOut(one, 2).why, WhyNoBulkhead::kNoBulkheads);
    Bulkhead bare = HalfBulkhead();
    bare.nodes.clear();
    const BulkheadArrangement noOutline = ArrangementOf({bare});
    EXPECT_EQ(LayOut(noOutline).why, WhyNoBulkhead::kNoOutline);
    EXPECT_EQ(LayOut(noOutline, 0, [] { return ShipOutline{}; }).why, WhyNoBulkhead::kNoOutline);
}

TEST(BulkheadLayout, OneOfSeveralFillsTheSheet) {
    const BulkheadArrangement arrangement = test::SampleArrangement(test::kCorrugatedArrangement);
    const BulkheadLayout layout = LayOut(arrangement, 5);
    ASSERT_EQ(layout.bulkheads.size(), 1U);
    EXPECT_EQ(layout.bulkheads[0].number, 5U);
    EXPECT_EQ(layout.bulkheads[0].bulkhead, &arrangement.bulkheads[4]);
    EXPECT_GT(layout.mmPerMetre, LayOut(arrangement).mmPerMetre);
    ExpectOrder(layout);
}

TEST(BulkheadLayout, WholeShipIsDescribedWhereTheArrangementIsNotSymmetric) {
    Bulkhead bare = HalfBulkhead();
    bare.nodes.clear();
    BulkheadArrangement arrangement = ArrangementOf({bare, HalfBulkhead()});
    arrangement.symmetric = 0;
    const BulkheadLayout layout = LayOut(arrangement, 0, [] { return ShipOf(20, 15); });
    ASSERT_EQ(layout.bulkheads.size(), 2U);
    EXPECT_EQ(BoxOf(layout.bulkheads[0].outline).left, -10);
    EXPECT_EQ(layout.bulkheads[1].box.left, 0) << "and nothing is added to what is described";
}

TEST(BulkheadLayout, HundredBulkheadsAtMostAndTheRestIsCounted) {
    const BulkheadArrangement arrangement =
        ArrangementOf(std::vector<Bulkhead>(130, HalfBulkhead()));
    const BulkheadLayout layout = LayOut(arrangement);
    EXPECT_EQ(layout.bulkheads.size(), 100U);
    EXPECT_EQ(layout.leftOutCount, 30U);
    ExpectOrder(layout);
}

TEST(BulkheadLayout, BulkheadWithoutOutlineIsCountedAsLeftOut) {
    Bulkhead bare = HalfBulkhead();
    bare.nodes.clear();
    const BulkheadArrangement arrangement = ArrangementOf({HalfBulkhead(), bare});
    const BulkheadLayout layout = LayOut(arrangement);
    EXPECT_EQ(layout.bulkheads.size(), 1U);
    EXPECT_EQ(layout.leftOutCount, 1U);
}

// ---- Corrugations ------------------------------------------------------------------------------

std::vector<double> FoldsOf(const Bulkhead& bulkhead, int32_t symmetric = -1) {
    BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    arrangement.symmetric = symmetric;
    const BulkheadLayout layout = LayOut(arrangement);
    return layout.bulkheads.empty() ? std::vector<double>{} : layout.bulkheads[0].folds;
}

void ExpectNear(const std::vector<double>& values, const std::vector<double>& expected) {
    ASSERT_EQ(values.size(), expected.size());
    for (size_t i = 0; i < values.size(); ++i) EXPECT_NEAR(values[i], expected[i], 1e-5) << i;
}

TEST(BulkheadLayout, CorrugationIsAWebAndAFlange) {
    // From 0.5 m on: webs of 3 - 1.8 = 1.2 m, flanges of 1.8 m, up to the side at 10 m.
    ExpectNear(FoldsOf(CorrugatedBulkhead({0.5F, 3, 1.8F, 1, 0, 0})),
               {0.5, 1.7, 3.5, 4.7, 6.5, 7.7});
}

TEST(BulkheadLayout, HorizontalCorrugationsBeginAtAHeight) {
    Bulkhead bulkhead = CorrugatedBulkhead({2.5F, 4, 2, 1, 0, 0});
    bulkhead.stiffening = 0;
    ExpectNear(FoldsOf(bulkhead), {2.5, 4.5, 6.5, 8.5});
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const BulkheadLayout layout = LayOut(arrangement);
    EXPECT_GT(layout.bulkheads[0].profile_m, 10) << "their profile is beside the bulkhead";
    EXPECT_EQ(layout.bulkheads[0].halfDepth_m, 0.5);
    EXPECT_GE(layout.bulkheads[0].box.right, layout.bulkheads[0].profile_m + 0.5);
    EXPECT_EQ(layout.bulkheads[0].box.bottom, 2);
}

TEST(BulkheadLayout, ProfileOfVerticalCorrugationsIsBelow) {
    const BulkheadArrangement arrangement =
        ArrangementOf({CorrugatedBulkhead({0.5F, 3, 1.8F, 1, 0, 0})});
    const BulkheadLayout layout = LayOut(arrangement);
    const DrawnBulkhead& drawn = layout.bulkheads[0];
    EXPECT_LT(drawn.profile_m + 0.5, 2);
    EXPECT_LT(drawn.box.bottom, drawn.profile_m - 0.5);
    EXPECT_EQ(drawn.box.right, 10);
    ExpectOrder(layout);
}

TEST(BulkheadLayout, CorrugationsOfDamagedDataAreLimited) {
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(FoldsOf(CorrugatedBulkhead({0, 0.001F, 0, 1, 0, 0})).size(), 2000U);
    EXPECT_TRUE(FoldsOf(CorrugatedBulkhead({0, 0, 0, 1, 0, 0})).empty());
    EXPECT_TRUE(FoldsOf(CorrugatedBulkhead({0, -2, 0, 1, 0, 0})).empty());
    EXPECT_TRUE(FoldsOf(CorrugatedBulkhead({0, kNaN, 1, 1, 0, 0})).empty());
    EXPECT_TRUE(FoldsOf(CorrugatedBulkhead({kNaN, 2, 1, 1, 0, 0})).empty());
    EXPECT_TRUE(FoldsOf(CorrugatedBulkhead({1e30F, 2, 1, 1, 0, 0})).empty());
    // A flange that is broader than the pitch leaves no web.
    ExpectNear(FoldsOf(CorrugatedBulkhead({1, 8, 50, 1, 0, 0})), {1, 1, 9, 9});
    // One that began far away goes on at the bulkhead.
    EXPECT_NEAR(FoldsOf(CorrugatedBulkhead({-9000, 3, 1, 1, 0, 0})).at(0), 0, 1e-3);
    Bulkhead plane = CorrugatedBulkhead({0, 2, 1, 1, 0, 0});
    plane.kind = 0;
    EXPECT_TRUE(FoldsOf(plane).empty());
}

TEST(BulkheadLayout, DepthThatIsNoneHasNoProfile) {
    for (const float depth : {0.0F, 50.0F, std::numeric_limits<float>::quiet_NaN()}) {
        const BulkheadArrangement arrangement =
            ArrangementOf({CorrugatedBulkhead({0, 3, 1.8F, depth, 0, 0})});
        const BulkheadLayout layout = LayOut(arrangement);
        EXPECT_EQ(layout.bulkheads[0].halfDepth_m, 0) << depth;
        EXPECT_EQ(layout.bulkheads[0].box.bottom, 2) << depth;
    }
}

// ---- Stools and hoppers ------------------------------------------------------------------------

TEST(BulkheadLayout, StoolIsThePartOfTheOutlineBeyondItsEnd) {
    Bulkhead bulkhead = HalfBulkhead();
    bulkhead.stools(1) = {-1, 3.5F};
    bulkhead.stools(2) = {-1, 11};
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const BulkheadLayout layout = LayOut(arrangement);
    const std::vector<Outline>& stools = layout.bulkheads[0].stools;
    ASSERT_EQ(stools.size(), 2U);
    EXPECT_EQ(BoxOf(stools[0]).bottom, 2);
    EXPECT_EQ(BoxOf(stools[0]).top, 3.5);
    EXPECT_EQ(BoxOf(stools[1]).bottom, 11);
    EXPECT_EQ(BoxOf(stools[1]).top, 12);
}

TEST(BulkheadLayout, StoolIsAlsoWhatOtherBulkheadsHaveBeyondItsEnd) {
    const BulkheadArrangement arrangement = test::SampleArrangement(test::kCorrugatedArrangement);
    const BulkheadLayout layout = LayOut(arrangement);
    const DrawnBulkhead& corrugated = layout.bulkheads[0];
    // Both sides of the lower stool and the upper one, but not the topside tank.
    ASSERT_EQ(corrugated.stools.size(), 3U);
    EXPECT_NEAR(BoxOf(corrugated.stools[0]).top, 4.5, 1e-4);
    EXPECT_NEAR(BoxOf(corrugated.stools[2]).bottom, 16.9, 1e-4);
    EXPECT_TRUE(layout.bulkheads[1].stools.empty());
}

TEST(BulkheadLayout, StoolsThatAreNotThereHaveNoArea) {
    Bulkhead bulkhead = HalfBulkhead();
    bulkhead.stools(1) = {0, 3.5F};
    bulkhead.stools(2) = {-1, std::numeric_limits<float>::quiet_NaN()};
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    EXPECT_TRUE(LayOut(arrangement).bulkheads[0].stools.empty());
}

TEST(BulkheadLayout, HopperIsFromTheLowestPlatingToTheSide) {
    BulkheadArrangement arrangement = ArrangementOf({HalfBulkhead()});
    arrangement.aftHopper = {3, 6};
    arrangement.foreHopper = {4, 7};
    const BulkheadLayout layout = LayOut(arrangement);
    ASSERT_EQ(layout.hoppers.size(), 2U);
    EXPECT_NEAR(layout.hoppers[0][0].y, 10 - 3, 1e-6);
    EXPECT_NEAR(layout.hoppers[0][0].z, 2, 1e-6);
    EXPECT_NEAR(layout.hoppers[0][1].y, 10, 1e-6);
    EXPECT_NEAR(layout.hoppers[0][1].z, 6, 1e-6);
    EXPECT_NEAR(layout.hoppers[1][0].y, 6, 1e-6);
}

TEST(BulkheadLayout, EqualHoppersAreDrawnOnceAndImpossibleOnesNotAtAll) {
    BulkheadArrangement arrangement = ArrangementOf({HalfBulkhead()});
    arrangement.aftHopper = arrangement.foreHopper = {3, 6};
    EXPECT_EQ(LayOut(arrangement).hoppers.size(), 1U);
    for (const Hopper& hopper : {Hopper{0, 0}, Hopper{3, 1}, Hopper{11, 6}, Hopper{1e30F, 6},
                                 Hopper{3, std::numeric_limits<float>::quiet_NaN()}}) {
        arrangement.aftHopper = arrangement.foreHopper = hopper;
        EXPECT_TRUE(LayOut(arrangement).hoppers.empty()) << hopper.breadth_m;
    }
}

// ---- Small sheets ------------------------------------------------------------------------------

TEST(BulkheadLayout, SmallSheetsHaveFewerTextsAndThenSmallerOnes) {
    const BulkheadArrangement arrangement = ArrangementOf({HalfBulkhead()});
    const BulkheadLayout large = LayOut(arrangement);
    EXPECT_EQ(large.lineCount, 2U);
    EXPECT_EQ(large.letters, 1);
    const BulkheadLayout small = LayOutBulkheads({arrangement, {}, 25, 25, 0});
    EXPECT_EQ(small.lineCount, 1U);
    EXPECT_EQ(small.letters, 1);
    const BulkheadLayout tiny = LayOutBulkheads({arrangement, {}, 10, 10, 0});
    EXPECT_EQ(tiny.lineCount, 1U);
    EXPECT_LT(tiny.letters, 1);
}

TEST(BulkheadLayout, SheetWithoutASizeHasALayoutAllTheSame) {
    const BulkheadArrangement arrangement = ArrangementOf({HalfBulkhead()});
    const BulkheadLayout layout = LayOutBulkheads({arrangement, {}, 0, -5, 0});
    EXPECT_GT(layout.mmPerMetre, 0);
    EXPECT_TRUE(std::isfinite(layout.foot_m));
}

}  // namespace
}  // namespace corvane
