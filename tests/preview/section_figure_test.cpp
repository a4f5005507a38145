// A section as a figure: where its parts are on the sheet, how exact its arcs are, and what becomes
// of damaged data.
#include "preview/section_figure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "tests/companions/section_builder.h"
#include "tests/preview/sample_section.h"
#include "tests/preview/section_sheet.h"

namespace corvane {
namespace {

constexpr SectionColours kColours;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
// 1:100, and room for 30 m by 20 m.
constexpr double kScale = 10;

using test::GivenNode;
using test::TestSection;

Figure Sheet() {
    return MakeFigure(300, 200, kScale, {15, 10});
}

Figure FigureOf(TestSection& section) {
    section.Link();
    section.Compute();
    Figure figure = Sheet();
    AddSection(figure, section.section);
    return figure;
}

// The points of all items of a colour.
using Points = std::vector<ShipPoint>;
std::vector<Points> ItemsOf(const Figure& figure, int32_t colour) {
    std::vector<Points> found;
    for (const FigureItem& item : figure.items) {
        if (item.colour != colour) continue;
        found.emplace_back();
        for (const SheetPoint& point : PointsOf(figure, item)) {
            found.back().push_back(InShip(figure, point));
        }
    }
    return found;
}

void ExpectLine(const Points& found, const Points& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (size_t i = 0; i < found.size(); ++i) {
        EXPECT_NEAR(found[i].y, expected[i].y, 1e-6) << i;
        EXPECT_NEAR(found[i].z, expected[i].z, 1e-6) << i;
    }
}

// Twice the area is the sum of the cross products of neighbouring corners.
double AreaOf(const Points& corners) {
    double sum = 0;
    for (size_t i = 0; i < corners.size(); ++i) {
        const ShipPoint a = corners[i];
        const ShipPoint b = corners[(i + 1) % corners.size()];
        sum += a.y * b.z - b.y * a.z;
    }
    return std::abs(sum) / 2;
}

bool HasAreaOf(const std::vector<Points>& areas, double expected_m2) {
    return std::ranges::any_of(areas, [expected_m2](const Points& corners) {
        return std::abs(AreaOf(corners) - expected_m2) < 0.005;
    });
}

// An item that the library would have computed for an arc about (10, 10).
StrakeItem ArcItem(double radius, double start, double sweep) {
    StrakeItem item{};
    item.centreY = item.centreZ = 10;
    item.arcRadius = static_cast<float>(radius);
    item.startAngle = static_cast<float>(start);
    item.sweep = static_cast<float>(sweep);
    item.y1 = static_cast<float>(10 + radius * std::cos(start));
    item.z1 = static_cast<float>(10 + radius * std::sin(start));
    item.y2 = static_cast<float>(10 + radius * std::cos(start + sweep));
    item.z2 = static_cast<float>(10 + radius * std::sin(start + sweep));
    item.length = static_cast<float>(radius * std::abs(sweep));
    return item;
}

// The one line of a section that is this arc, at a scale.
Points ArcOnSheet(const StrakeItem& arc, double mmPerMetre) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(1, 0)});
    section.Link();
    section.ItemOf(1, 1) = arc;
    Figure figure = MakeFigure(1e7, 1e7, mmPerMetre, {10, 10});
    AddSection(figure, section.section);
    const std::vector<Points> lines = ItemsOf(figure, kColours.plating);
    return lines.size() == 1 ? lines[0] : Points();
}

// How far lines are from the circle about (10, 10) at most; its points are on it.
double FarthestOff(const Points& line, double radius) {
    double most = 0;
    for (size_t i = 1; i < line.size(); ++i) {
        EXPECT_NEAR(std::hypot(line[i].y - 10, line[i].z - 10), radius, 1e-5 * radius);
        const double y = (line[i - 1].y + line[i].y) / 2 - 10;
        const double z = (line[i - 1].z + line[i].z) / 2 - 10;
        most = std::max(most, radius - std::hypot(y, z));
    }
    return most;
}

TEST(SectionFigureTest, PlatingIsOneLineOfAStrakeThroughItsNodes) {
    TestSection section;
    section.Add({GivenNode(0, 1), GivenNode(10, 1), GivenNode(10, 11)});
    const Figure figure = FigureOf(section);
    const std::vector<Points> plating = ItemsOf(figure, kColours.plating);
    ASSERT_EQ(plating.size(), 1U);
    ExpectLine(plating[0], {{0, 1}, {10, 1}, {10, 11}});
    EXPECT_EQ(figure.items[0].layer, FigureLayer::kPlate);
    EXPECT_EQ(PointsOf(figure, figure.items[0])[2], (SheetPoint{100, 90}));
}

TEST(SectionFigureTest, LineHasAGapWhereAnItemIsNotComputed) {
    TestSection section;
    // The library refuses an arc whose radius is less than half of its chord.
    section.Add({GivenNode(0, 1), test::RadiusNode(2, 1, 0.5F), GivenNode(8, 1), GivenNode(9, 1)});
    const std::vector<Points> plating = ItemsOf(FigureOf(section), kColours.plating);
    ASSERT_EQ(plating.size(), 2U);
    ExpectLine(plating[0], {{0, 1}, {2, 1}});
    ExpectLine(plating[1], {{8, 1}, {9, 1}});
}

TEST(SectionFigureTest, PlateEndsAreTicksAcrossTheStrake) {
    TestSection section;
    section.Add({GivenNode(2, 1), GivenNode(10, 1)});
    section.contents[0].plateEnds = {3, 100};
    const std::vector<Points> ticks = ItemsOf(FigureOf(section), kColours.plateEnd);
    // 1.6 mm of the sheet are 0.16 m; the plate that ends beyond the strake has no tick.
    ASSERT_EQ(ticks.size(), 1U);
    ExpectLine(ticks[0], {{5, 0.92}, {5, 1.08}});
}

TEST(SectionFigureTest, StiffenersAreToScaleWithTheirFlanges) {
    TestSection section;
    Stiffener row = test::StiffenerAt(1);
    row.profile = kProfileAngle;
    row.count = 3;
    row.spacing = 2;
    row.webHeight_mm = 400;
    row.flangeBreadth_mm = 150;
    Stiffener tee = test::StiffenerAt(9);
    tee.profile = kProfileTee;
    tee.webHeight_mm = 500;
    tee.flangeBreadth_mm = 200;
    section.Add({GivenNode(0, 1), GivenNode(10, 1)}, {row, tee});
    std::vector<Points> lines = ItemsOf(FigureOf(section), kColours.stiffener);
    ASSERT_EQ(lines.size(), 5U);
    ExpectLine(lines[0], {{1, 1}, {1, 1.4}, {1.15, 1.4}});
    ExpectLine(lines[2], {{5, 1}, {5, 1.4}, {5.15, 1.4}});
    ExpectLine(lines[3], {{9, 1}, {9, 1.5}});
    ExpectLine(lines[4], {{8.9, 1.5}, {9.1, 1.5}});

    section.contents[0].stiffeners[0].mirrored = -1;
    section.contents[0].stiffeners[0].side = 1;
    lines = ItemsOf(FigureOf(section), kColours.stiffener);
    ASSERT_EQ(lines.size(), 5U);
    ExpectLine(lines[0], {{1, 1}, {1, 0.6}, {0.85, 0.6}});
}

TEST(SectionFigureTest, StiffenersOfARowEndWithTheStrake) {
    TestSection section;
    Stiffener row = test::StiffenerAt(1);
    row.count = 30;
    row.spacing = 2;
    row.webHeight_mm = 200;
    section.Add({GivenNode(0, 1), GivenNode(10, 1)}, {row});
    EXPECT_EQ(ItemsOf(FigureOf(section), kColours.stiffener).size(), 5U);
}

TEST(SectionFigureTest, SmallStiffenersCanBeSeen) {
    TestSection section;
    Stiffener bulb = test::StiffenerAt(1);
    bulb.profile = kProfileBulb;
    bulb.webHeight_mm = 20;
    section.Add({GivenNode(0, 1), GivenNode(10, 1)}, {bulb});
    const std::vector<Points> lines = ItemsOf(FigureOf(section), kColours.stiffener);
    ASSERT_EQ(lines.size(), 1U);
    // 1 mm and 0.5 mm on the sheet.
    ExpectLine(lines[0], {{1, 1}, {1, 1.1}, {1.05, 1.1}});
}

TEST(SectionFigureTest, MirrorImageIsDrawnInSymmetryModeOne) {
    TestSection section;
    section.Add({GivenNode(0, 1), GivenNode(10, 1)}, {test::StiffenerAt(4)});
    section.contents[0].plateEnds = {3};
    section.section.symmetryMode = 1;
    section.Link();
    section.Compute();
    Figure figure = MakeFigure(300, 200, kScale, {0, 10});
    AddSection(figure, section.section);
    const std::vector<Points> plating = ItemsOf(figure, kColours.plating);
    ASSERT_EQ(plating.size(), 2U);
    ExpectLine(plating[1], {{0, 1}, {-10, 1}});
    EXPECT_EQ(ItemsOf(figure, kColours.plateEnd).size(), 2U);
    EXPECT_EQ(ItemsOf(figure, kColours.stiffener).size(), 2U);
    ShipBox extent{};
    ASSERT_TRUE(ExtentOf(section.section, extent));
    EXPECT_EQ(extent.left, -10);
    EXPECT_EQ(extent.right, 10);
}

TEST(SectionFigureTest, CompartmentsFollowTheArcsOfTheirPlating) {
    TestSection section;
    // A quarter of a circle of 4 m about (0, 0), and its two radii.
    section.Add({test::RadiusNode(4, 0, 4), GivenNode(0, 4)});
    section.Add({GivenNode(0, 4), GivenNode(0, 0), GivenNode(4, 0)});
    const std::vector<NodeReference> nodes{{1, 1}, {1, 2}, {2, 1}, {2, 2}, {2, 3}};
    const CompartmentOutline outline{static_cast<int16_t>(nodes.size()), {}, nodes.data()};
    section.section.compartments = &outline;
    section.section.compartmentCount = 1;
    const Figure figure = FigureOf(section);
    const std::vector<Points> areas = ItemsOf(figure, kColours.compartment);
    ASSERT_EQ(areas.size(), 1U);
    EXPECT_NEAR(AreaOf(areas[0]), 4 * std::numbers::pi, 0.004);
    EXPECT_EQ(figure.items[0].shape, FigureShape::kArea) << "below everything else";
    EXPECT_EQ(figure.items[0].layer, FigureLayer::kCompartment);
}

TEST(SectionFigureTest, CentreLineIsDashedAndALittleHigherThanTheSection) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(0, 10), GivenNode(5, 10)});
    const Figure figure = FigureOf(section);
    const std::vector<Points> dashes = ItemsOf(figure, kColours.centreLine);
    // 104 mm of the sheet, cut off at its edge: 102 mm. 17 times 5.8 mm, a dash, a dot and
    // two gaps, and one more dash.
    ASSERT_EQ(dashes.size(), 35U);
    ExpectLine(dashes[0], {{0, 0}, {0, 0.3}});
    ExpectLine(dashes[1], {{0, 0.4}, {0, 0.48}});
    EXPECT_NEAR(dashes.back()[1].z, 10.16, 1e-6);
}

TEST(SectionFigureTest, CentreLineOfAVeryHighSheetHasNoMoreDashes) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(0, 1000)});
    section.Link();
    section.Compute();
    const Figure figure = test::MakeSectionFigure(section.section, {1e7, 1e7, 10});
    EXPECT_LT(ItemsOf(figure, kColours.centreLine).size(), 2000U);
}

TEST(SectionFigureTest, ArcsAreExactInTheShipAndOnTheSheet) {
    for (const double degrees : {10.0, 90.0, 180.0, 270.0, 359.0, -359.0}) {
        const StrakeItem arc = ArcItem(5, 0.3, degrees * std::numbers::pi / 180);
        // Half a millimetre of the ship.
        Points line = ArcOnSheet(arc, 1);
        ASSERT_GT(line.size(), 2U) << degrees;
        EXPECT_LE(FarthestOff(line, 5), 0.0005 + 1e-6) << degrees;
        EXPECT_GE(FarthestOff(line, 5), 0.0003) << "not more lines than needed";
        // 0.05 mm of a sheet in the scale 1:2.
        line = ArcOnSheet(arc, 500);
        EXPECT_LE(FarthestOff(line, 5), 0.0001 + 1e-6) << degrees;
        EXPECT_NEAR(line.front().y, arc.y1, 1e-6);
        EXPECT_NEAR(line.back().y, arc.y2, 1e-6);
        EXPECT_NEAR(line.back().z, arc.z2, 1e-6);
        // The middle of the arc tells that it does not go the other way round.
        const double middle = 0.3 + degrees * std::numbers::pi / 360;
        const double nearest =
            std::ranges::min(line, {},
                             [middle](ShipPoint point) {
                                 return std::hypot(point.y - 10 - 5 * std::cos(middle),
                                                   point.z - 10 - 5 * std::sin(middle));
                             })
                .y -
            10 - 5 * std::cos(middle);
        EXPECT_LT(std::abs(nearest), 0.2) << degrees;
    }
}

TEST(SectionFigureTest, ArcHasAtMostAThousandLines) {
    EXPECT_GT(ArcOnSheet(ArcItem(5, 0, 3), 30'000).size(), 900U);
    EXPECT_LE(ArcOnSheet(ArcItem(5, 0, 3), 100'000).size(), 1001U);
    EXPECT_LE(ArcOnSheet(ArcItem(1e30, 0, 3), 1e-26).size(), 1001U);
}

// The parts of an arc, and of its mirror image, that a sheet of 300 mm by 200 mm shows around a
// place of it, at 10 km of paper for each metre.
std::vector<Points> PartsOnSheet(const StrakeItem& arc, ShipPoint middle) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(1, 0)});
    section.Link();
    section.ItemOf(1, 1) = arc;
    section.section.symmetryMode = 1;
    Figure figure = MakeFigure(300, 200, 1e7, middle);
    AddSection(figure, section.section);
    return ItemsOf(figure, kColours.plating);
}

TEST(SectionFigureTest, ArcIsExactWhereTheSheetShowsItAMillionTimesLarger) {
    for (const double degrees : {80.0, 180.0, -180.0, 270.0, 359.0}) {
        const StrakeItem arc = ArcItem(5, 0.3, degrees * std::numbers::pi / 180);
        for (const double part : {0.001, 0.37, 0.5, 0.8}) {
            const ShipPoint at = SpotOn(arc, part).at;
            for (const double side : {1.0, -1.0}) {
                const std::vector<Points> parts = PartsOnSheet(arc, {side * at.y, at.z});
                ASSERT_EQ(parts.size(), 1U) << degrees << ' ' << part;
                EXPECT_LT(parts[0].size(), 100U);
                for (size_t i = 1; i < parts[0].size(); ++i) {
                    const double y = (parts[0][i - 1].y + parts[0][i].y) / 2;
                    const double z = (parts[0][i - 1].z + parts[0][i].z) / 2;
                    // 0.05 mm of the sheet.
                    EXPECT_NEAR(std::hypot(side * y - 10, z - 10), std::hypot(at.y - 10, at.z - 10),
                                6e-9);
                }
                const ShipPoint chord{parts[0].back().y - parts[0].front().y,
                                      parts[0].back().z - parts[0].front().z};
                EXPECT_GT(std::hypot(chord.y, chord.z) * 1e7, 190) << "from edge to edge";
            }
        }
    }
}

TEST(SectionFigureTest, NearlyStraightArcIsAsExactAsALine) {
    TestSection section;
    section.Add({test::RadiusNode(0, 1, 1e6F), GivenNode(10, 1)});
    const std::vector<Points> plating = ItemsOf(FigureOf(section), kColours.plating);
    ASSERT_EQ(plating.size(), 1U);
    for (const ShipPoint& point : plating[0]) EXPECT_NEAR(point.z, 1, 1e-4);
}

TEST(SectionFigureTest, ExtentHoldsArcsAndStiffeners) {
    TestSection section;
    Stiffener stiffener = test::StiffenerAt(1, {}, 1);
    stiffener.webHeight_mm = 300;
    section.Add({GivenNode(2, 1), GivenNode(10, 1)}, {stiffener});
    section.Add({test::RadiusNode(10, 1, 3), GivenNode(10, 7)});
    section.Link();
    section.Compute();
    ShipBox extent{};
    ASSERT_TRUE(ExtentOf(section.section, extent));
    EXPECT_NEAR(extent.left, 2, 1e-6);
    EXPECT_NEAR(extent.bottom, 0.7, 1e-6);
    EXPECT_NEAR(extent.right, 13, 0.0005);
    EXPECT_NEAR(extent.top, 7, 1e-6);
}

TEST(SectionFigureTest, SheetShowsAllOfTheSectionInsideItsMargins) {
    TestSection section;
    section.Add({GivenNode(0, 0), GivenNode(20, 0), GivenNode(20, 5)});
    section.Link();
    section.Compute();
    // 280 mm for 20 m.
    const Figure figure = test::MakeSectionFigure(section.section, {300, 200, 10});
    EXPECT_DOUBLE_EQ(figure.mmPerMetre, 14);
    EXPECT_NEAR(OnSheet(figure, {0, 0}).x, 10, 1e-9);
    EXPECT_NEAR(OnSheet(figure, {20, 2.5}).x, 290, 1e-9);
    EXPECT_NEAR(OnSheet(figure, {20, 2.5}).y, 100, 1e-9);
}

TEST(SectionFigureTest, EmptyAndDegenerateSectionsGiveASheet) {
    TestSection empty;
    empty.Link();
    ShipBox extent{};
    EXPECT_FALSE(ExtentOf(empty.section, extent));
    EXPECT_TRUE(test::MakeSectionFigure(empty.section, {300, 200, 10}).items.empty());

    TestSection flat;
    flat.Add({GivenNode(0, 3), GivenNode(10, 3)});
    flat.Link();
    flat.Compute();
    EXPECT_DOUBLE_EQ(test::MakeSectionFigure(flat.section, {300, 200, 10}).mmPerMetre, 28);
    // Margins that leave no room.
    EXPECT_DOUBLE_EQ(test::MakeSectionFigure(flat.section, {300, 200, 400}).mmPerMetre, 10);
}

TEST(SectionFigureTest, FarPlacesAndThoseThatAreNoneAreLeftOut) {
    TestSection section;
    Stiffener stiffener = test::StiffenerAt(1);
    stiffener.webHeight_mm = static_cast<float>(kNaN);
    section.Add({GivenNode(0, 1), GivenNode(10, 1), GivenNode(1e30F, 1)}, {stiffener});
    section.Add({GivenNode(0, 2), GivenNode(10, 2)});
    section.Link();
    section.Compute();
    section.ItemOf(2, 1).y2 = static_cast<float>(kNaN);
    Figure figure = Sheet();
    AddSection(figure, section.section);
    const std::vector<Points> plating = ItemsOf(figure, kColours.plating);
    ASSERT_EQ(plating.size(), 1U);
    ExpectLine(plating[0], {{0, 1}, {10, 1}, {30, 1}});
    for (const SheetPoint& point : figure.points) EXPECT_TRUE(IsInWindow(figure, point));
    // The sheet that shows all of it has a scale.
    figure = test::MakeSectionFigure(section.section, {300, 200, 10});
    EXPECT_GT(figure.mmPerMetre, 0);
    EXPECT_FALSE(figure.items.empty());
}

TEST(SectionFigureTest, StiffenersAreLimitedInARowAndInASection) {
    TestSection section;
    Stiffener row = test::StiffenerAt(0);
    row.count = 32767;
    row.spacing = 0.0001F;
    section.Add({GivenNode(0, 1), GivenNode(10, 1)}, {row});
    EXPECT_EQ(ItemsOf(FigureOf(section), kColours.stiffener).size(), 2000U);
    section.contents[0].stiffeners.resize(30, row);
    EXPECT_EQ(ItemsOf(FigureOf(section), kColours.stiffener).size(), 20000U);
}

TEST(SectionFigureTest, SampleHasEveryPartOfItsSections) {
    for (int32_t number = 1; number <= 9; ++number) {
        test::SampleSection sample(number);
        const Section& section = sample.view.section;
        const Figure figure = test::MakeSectionFigure(section, {297, 210, 10});
        size_t plates = 0;
        size_t stiffeners = 0;
        for (const Panel& panel : sample.model.panels) {
            plates += panel.plates.size();
            for (const Stiffener& row : panel.stiffeners) {
                stiffeners += static_cast<size_t>(row.count) * (row.profile == kProfileTee ? 2 : 1);
            }
        }
        EXPECT_EQ(ItemsOf(figure, kColours.plating).size(), sample.model.panels.size()) << number;
        EXPECT_EQ(ItemsOf(figure, kColours.plateEnd).size(), plates) << number;
        EXPECT_EQ(ItemsOf(figure, kColours.stiffener).size(), stiffeners) << number;
        EXPECT_EQ(ItemsOf(figure, kColours.compartment).size(), sample.model.compartments.size());
        for (const SheetPoint& point : figure.points) {
            EXPECT_TRUE(point.x > 8 && point.x < 289 && point.y > 5 && point.y < 205);
        }
    }
}

TEST(SectionFigureTest, SampleTanksHaveTheirAreasAlongTheBilge) {
    // The areas are those of docs/sample-ship.md.
    const test::SampleSection engineRoom(1);
    const Figure first = test::MakeSectionFigure(engineRoom.view.section, {297, 210, 10});
    EXPECT_TRUE(HasAreaOf(ItemsOf(first, kColours.compartment), 2.77));
    const test::SampleSection hold7(2);
    const Figure second = test::MakeSectionFigure(hold7.view.section, {297, 210, 10});
    EXPECT_TRUE(HasAreaOf(ItemsOf(second, kColours.compartment), 43.97));
}

// Nothing but lines of one colour, in the places of the section's own, and wider by as much.
TEST(SectionLines, AreThePlatingThePlateEndsAndTheStiffenersInOneColour) {
    const test::SampleSection sample(5);
    Figure section = Sheet();
    AddSection(section, sample.view.section);
    Figure lines = Sheet();
    constexpr int32_t kColour = 0x00123456;
    AddSectionLines(lines, sample.view.section, {kColour, 1});
    std::vector<FigureItem> expected;
    for (const FigureItem& item : section.items) {
        if (item.layer == FigureLayer::kPlate || item.layer == FigureLayer::kStiffener) {
            expected.push_back(item);
        }
    }
    ASSERT_EQ(lines.items.size(), expected.size());
    ASSERT_GT(expected.size(), 100U);
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(lines.items[i].shape, FigureShape::kLine);
        EXPECT_EQ(lines.items[i].layer, expected[i].layer);
        EXPECT_EQ(lines.items[i].colour, kColour);
        EXPECT_DOUBLE_EQ(lines.items[i].size_mm, expected[i].size_mm + 1);
        EXPECT_TRUE(
            std::ranges::equal(PointsOf(lines, lines.items[i]), PointsOf(section, expected[i])));
    }
}

}  // namespace
}  // namespace corvane
