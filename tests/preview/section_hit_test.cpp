// What is under the pointer: against a search that knows no formula, at 10,000 places of each
// section of the sample ship, and by hand where the search would say nothing.
#include "preview/section_hit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <vector>

#include "preview/section_geometry.h"
#include "preview/stiffener_lines.h"
#include "tests/companions/section_builder.h"
#include "tests/preview/sample_section.h"
#include "tests/support/chance.h"

namespace corvane {
namespace {

constexpr double kReach_m = 0.4;

// A curve over 0 to 1, and what it is a part of. No point of it is farther from its middle than its
// reach.
struct Curve {
    SectionHit of;
    std::function<ShipPoint(double)> at;
    double reach_m = 0;
};

double Far(ShipPoint a, ShipPoint b) {
    return std::hypot(a.y - b.y, a.z - b.z);
}

ShipPoint OnLine(ShipPoint a, ShipPoint b, double t) {
    return {a.y * (1 - t) + b.y * t, a.z * (1 - t) + b.z * t};
}

ShipPoint OnItem(const StrakeItem& item, double t) {
    if (!(item.arcRadius > 0)) return OnLine({item.y1, item.z1}, {item.y2, item.z2}, t);
    const double angle = item.startAngle + t * item.sweep;
    return {item.centreY + item.arcRadius * std::cos(angle),
            item.centreZ + item.arcRadius * std::sin(angle)};
}

std::vector<Curve> CurvesOf(const Section& section) {
    std::vector<Curve> curves;
    for (int i = 0; i < section.strakeCount; ++i) {
        for (int k = 0; k < section.strakes[i].itemCount; ++k) {
            const StrakeItem item = section.strakes[i].items[k];
            if (!(item.length > 0)) continue;
            curves.push_back({{.kind = HitKind::kPlating, .strake = i + 1},
                              [item](double t) { return OnItem(item, t); }});
        }
    }
    WalkStiffeners(section, {}, [&](const StiffenerPlace& place, std::span<const ShipPoint> line) {
        for (size_t i = 1; i < line.size(); ++i) {
            SectionHit hit{.kind = HitKind::kStiffener, .strake = place.strake};
            hit.row = place.row;
            hit.inRow = place.inRow;
            curves.push_back(
                {hit, [a = line[i - 1], b = line[i]](double t) { return OnLine(a, b, t); }});
        }
    });
    for (Curve& curve : curves) {
        for (int i = 0; i <= 64; ++i) {
            const double distance = Far(curve.at(i / 64.0), curve.at(0.5));
            curve.reach_m = std::max(curve.reach_m, distance * 1.1);
        }
    }
    return curves;
}

// The least distance to a curve: tried at many places, then closer and closer around the best one.
double Search(const Curve& curve, ShipPoint point) {
    constexpr int kPlaces = 12;
    double best = 0;
    for (int i = 1; i <= kPlaces; ++i) {
        const double t = static_cast<double>(i) / kPlaces;
        if (Far(curve.at(t), point) < Far(curve.at(best), point)) best = t;
    }
    for (double step = 1.0 / kPlaces; step > 1e-9; step /= 2) {
        for (const double t : {best - step, best + step}) {
            const double held = std::clamp(t, 0.0, 1.0);
            if (Far(curve.at(held), point) < Far(curve.at(best), point)) best = held;
        }
    }
    return Far(curve.at(best), point);
}

// How often the outline goes around a point.
bool IsAround(const std::vector<ShipPoint>& corners, ShipPoint point) {
    double turned = 0;
    for (size_t i = 0; i < corners.size(); ++i) {
        const ShipPoint a = corners[i];
        const ShipPoint b = corners[(i + 1) % corners.size()];
        const double from = std::atan2(a.z - point.z, a.y - point.y);
        const double to = std::atan2(b.z - point.z, b.y - point.y);
        turned += std::remainder(to - from, 2 * std::numbers::pi);
    }
    return std::abs(turned) > std::numbers::pi;
}

bool IsSameThing(const SectionHit& one, const SectionHit& other) {
    return one.kind == other.kind && one.strake == other.strake && one.row == other.row &&
           one.inRow == other.inRow;
}

// The hit at a point of the side that is described must be what the search finds.
void ExpectFound(const Section& section, const std::vector<Curve>& curves, ShipPoint point) {
    const SectionHit hit = FindHit(section, point, kReach_m);
    double nearest = std::numeric_limits<double>::infinity();
    double ofHit = std::numeric_limits<double>::infinity();
    for (const Curve& curve : curves) {
        // Too far off to be nearer than what was hit.
        const double limit = hit.strake > 0 ? hit.distance_m : kReach_m;
        if (Far(curve.at(0.5), point) - curve.reach_m > limit + 0.01) continue;
        const double distance = Search(curve, point);
        nearest = std::min(nearest, distance);
        if (IsSameThing(curve.of, hit)) ofHit = std::min(ofHit, distance);
    }
    constexpr double kExact_m = 2e-4;  // single precision of centres and angles
    if (hit.kind == HitKind::kPlating || hit.kind == HitKind::kStiffener) {
        EXPECT_NEAR(hit.distance_m, nearest, kExact_m);
        EXPECT_NEAR(ofHit, nearest, kExact_m) << "it is the thing that is nearest";
        EXPECT_NEAR(Far(hit.at, point), hit.distance_m, 1e-9);
    } else {
        EXPECT_GT(nearest, kReach_m - kExact_m);
    }
}

using Outlines = std::vector<std::vector<ShipPoint>>;

Outlines OutlinesOf(const Section& section) {
    Outlines outlines;
    for (int i = 0; i < section.compartmentCount; ++i) {
        outlines.push_back(CornersOf(section, section.compartments[i], {1e-3}));
    }
    return outlines;
}

void ExpectCompartment(const Section& section, const Outlines& outlines, ShipPoint point) {
    const SectionHit hit = FindHit(section, point, kReach_m);
    if (hit.kind == HitKind::kPlating || hit.kind == HitKind::kStiffener) return;
    int around = 0;
    bool isHitAround = false;
    for (size_t i = 0; i < outlines.size(); ++i) {
        if (!IsAround(outlines[i], point)) continue;
        ++around;
        isHitAround |= hit.compartment == static_cast<int>(i) + 1;
    }
    EXPECT_EQ(hit.kind == HitKind::kCompartment, around > 0);
    EXPECT_EQ(isHitAround, around > 0);
}

struct SampleHits : testing::TestWithParam<int> {};

TEST_P(SampleHits, TenThousandPlacesAreWhatASearchFinds) {
    const test::SampleSection sample(GetParam());
    const Section& section = sample.view.section;
    const std::vector<Curve> curves = CurvesOf(section);
    const Outlines outlines = OutlinesOf(section);
    ASSERT_GT(curves.size(), 20U);
    ASSERT_FALSE(outlines.empty());
    test::Chance chance(static_cast<uint32_t>(GetParam()));
    constexpr int kPlaces = 10'000;
    for (int i = 0; i < kPlaces && !testing::Test::HasFailure(); ++i) {
        const ShipPoint point{chance.Between(-2, 18), chance.Between(-2, 24)};
        ExpectCompartment(section, outlines, point);
        ExpectFound(section, curves, point);
    }
}

INSTANTIATE_TEST_SUITE_P(Sections, SampleHits, testing::Range(1, 10));

using test::GivenNode;

// A deck of 20 m at a height of 10 m with a row of three tees below it, at 2, 4 and 6 m; a tank of
// 4 m by 2 m around the first strake's left part, with a smaller one in it.
struct HandMade : testing::Test {
    test::TestSection made;
    std::vector<NodeReference> tankNodes{{2, 1}, {2, 2}, {2, 3}, {2, 4}};
    std::vector<NodeReference> innerNodes{{3, 1}, {3, 2}, {3, 3}, {3, 4}};
    std::vector<CompartmentOutline> outlines;

    HandMade() {
        Stiffener row = test::StiffenerAt(2, {}, 1);
        row.count = 3;
        row.spacing = 2;
        row.profile = kProfileTee;
        row.webHeight_mm = 500;
        row.flangeBreadth_mm = 200;
        made.Add({GivenNode(0, 10), GivenNode(20, 10)}, {row});
        made.Add(
            {GivenNode(1, 1), GivenNode(5, 1), GivenNode(5, 3), GivenNode(1, 3), GivenNode(1, 1)});
        made.Add({GivenNode(2, 1.5F), GivenNode(4, 1.5F), GivenNode(4, 2.5F), GivenNode(2, 2.5F),
                  GivenNode(2, 1.5F)});
        for (const std::vector<NodeReference>* nodes : {&tankNodes, &innerNodes}) {
            CompartmentOutline outline{};
            outline.nodeCount = static_cast<int16_t>(nodes->size());
            outline.nodes = nodes->data();
            outlines.push_back(outline);
        }
        made.section.geometryPresent = -1;
        made.section.compartments = outlines.data();
        made.section.compartmentCount = 2;
        made.Compute();
        made.Link();
    }
    ~HandMade() override = default;

    SectionHit At(double y, double z, double reach_m = 0.2) const {
        return FindHit(made.section, {y, z}, reach_m);
    }
};

TEST_F(HandMade, PlatingWithinReachIsHitWithItsAbscissa) {
    const SectionHit hit = At(15, 10.1);
    EXPECT_EQ(hit.kind, HitKind::kPlating);
    EXPECT_EQ(hit.strake, 1);
    EXPECT_NEAR(hit.s, 15, 1e-6);
    EXPECT_NEAR(hit.distance_m, 0.1, 1e-6);
    EXPECT_NEAR(hit.at.z, 10, 1e-6);
    EXPECT_EQ(At(15, 10.3).kind, HitKind::kNothing);
    EXPECT_EQ(At(15, 10.3, 0.4).kind, HitKind::kPlating);
    EXPECT_EQ(At(20.1, 10).strake, 1) << "its end";
    EXPECT_NEAR(At(20.1, 10).s, 20, 1e-6);
}

TEST_F(HandMade, StiffenersOfARowHaveTheirNumbers) {
    for (int i = 1; i <= 3; ++i) {
        const SectionHit hit = At(2 * i + 0.05, 9.75);
        EXPECT_EQ(hit.kind, HitKind::kStiffener);
        EXPECT_EQ(hit.strake, 1);
        EXPECT_EQ(hit.row, 1);
        EXPECT_EQ(hit.inRow, i);
        EXPECT_NEAR(hit.s, 2 * i, 1e-6);
        EXPECT_NEAR(hit.distance_m, 0.05, 1e-5);
    }
    const SectionHit flange = At(2.09, 9.51);
    EXPECT_EQ(flange.kind, HitKind::kStiffener);
    EXPECT_NEAR(flange.distance_m, 0.01, 1e-5) << "the flange, not the web";
    EXPECT_EQ(At(2, 10).kind, HitKind::kPlating) << "at its foot it is the plating";
    EXPECT_EQ(At(8, 9.75).kind, HitKind::kNothing) << "there is no fourth";
}

TEST_F(HandMade, CompartmentIsTheSmallestAroundThePlace) {
    const SectionHit outer = At(1.5, 2);
    EXPECT_EQ(outer.kind, HitKind::kCompartment);
    EXPECT_EQ(outer.compartment, 1);
    EXPECT_NEAR(outer.area_m2, 8, 1e-5);
    const SectionHit inner = At(3, 2);
    EXPECT_EQ(inner.compartment, 2);
    EXPECT_NEAR(inner.area_m2, 2, 1e-5);
    EXPECT_EQ(At(6, 2).kind, HitKind::kNothing);
}

TEST_F(HandMade, MirrorImageCountsInSymmetryModeOneAlone) {
    EXPECT_EQ(At(-3, 2).kind, HitKind::kNothing);
    made.section.symmetryMode = 1;
    const SectionHit tank = At(-3, 2);
    EXPECT_EQ(tank.compartment, 2);
    EXPECT_TRUE(tank.isMirrored);
    EXPECT_FALSE(At(3, 2).isMirrored);
    const SectionHit deck = At(-15, 10.1);
    EXPECT_EQ(deck.kind, HitKind::kPlating);
    EXPECT_TRUE(deck.isMirrored);
    EXPECT_NEAR(deck.s, 15, 1e-6);
    EXPECT_NEAR(deck.at.y, -15, 1e-6);
    EXPECT_TRUE(At(-4, 9.75).isMirrored);
    EXPECT_EQ(At(-4, 9.75).inRow, 2);
}

TEST_F(HandMade, ArcOf359DegreesIsHitAllAround) {
    StrakeItem& item = made.ItemOf(1, 1);
    constexpr double kSweep = 359 * std::numbers::pi / 180;
    item.centreY = 10;
    item.centreZ = 10;
    item.arcRadius = 3;
    item.startAngle = 0;
    item.sweep = static_cast<float>(kSweep);
    item.length = static_cast<float>(3 * kSweep);
    item.y1 = 13;
    item.z1 = 10;
    item.y2 = static_cast<float>(10 + 3 * std::cos(kSweep));
    item.z2 = static_cast<float>(10 + 3 * std::sin(kSweep));
    for (const double angle : {0.5, 2.0, 4.0, 6.0}) {
        const SectionHit hit = At(10 + 3.1 * std::cos(angle), 10 + 3.1 * std::sin(angle));
        EXPECT_EQ(hit.kind, HitKind::kPlating) << angle;
        EXPECT_NEAR(hit.distance_m, 0.1, 1e-5);
        EXPECT_NEAR(hit.s, 3 * angle, 1e-4);
    }
    item.sweep = -item.sweep;
    EXPECT_NEAR(At(10 + 3.1 * std::cos(-2.0), 10 + 3.1 * std::sin(-2.0)).s, 6, 1e-4);
}

TEST_F(HandMade, WhatIsNotANumberHitsNothing) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(At(nan, 10).kind, HitKind::kNothing);
    EXPECT_EQ(At(10, std::numeric_limits<double>::infinity()).kind, HitKind::kNothing);
    EXPECT_EQ(At(15, 10, nan).kind, HitKind::kNothing);
    made.ItemOf(1, 1).z1 = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(At(15, 10).kind, HitKind::kNothing);
    made.ItemOf(2, 1).y1 = 1e30F;
    EXPECT_EQ(At(1, 2, 0.1).kind, HitKind::kPlating) << "the other sides of the tank";
}

TEST_F(HandMade, EmptySectionHitsNothing) {
    const Section empty{};
    EXPECT_EQ(FindHit(empty, {0, 0}, 1).kind, HitKind::kNothing);
}

}  // namespace
}  // namespace corvane
