// The drawing of bulkheads: every line where the record has it, its mirror image, and what damaged
// data leave of it.
#include "preview/bulkhead_figure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "preview/figure_text.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/preview/bulkhead_support.h"

namespace corvane {
namespace {

using test::ArrangementOf;
using test::CorrugatedBulkhead;
using test::HalfBulkhead;
using test::LayOut;

constexpr BulkheadColours kColours;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

using Line = std::vector<ShipPoint>;

struct Drawing {
    BulkheadLayout layout;
    Figure figure;
};

Drawing Draw(const BulkheadArrangement& arrangement) {
    Drawing drawing{LayOut(arrangement), {}};
    drawing.figure = test::MakeBulkheadFigure(drawing.layout, test::kSheetWidth_mm,
                                              test::kSheetHeight_mm, kColours);
    return drawing;
}

// The lines or areas of a colour, in the coordinates of the first bulkhead.
std::vector<Line> Of(const Drawing& drawing, int32_t colour,
                     FigureShape shape = FigureShape::kLine) {
    std::vector<Line> lines;
    const ShipPoint& place = drawing.layout.bulkheads.at(0).place;
    for (const FigureItem& item : drawing.figure.items) {
        if (item.colour != colour || item.shape != shape) continue;
        Line& line = lines.emplace_back();
        for (const SheetPoint& point : PointsOf(drawing.figure, item)) {
            const ShipPoint at = InShip(drawing.figure, point);
            line.push_back({at.y - place.y, at.z - place.z});
        }
    }
    return lines;
}

bool IsAt(const ShipPoint& a, const ShipPoint& b) {
    return std::abs(a.y - b.y) < 1e-5 && std::abs(a.z - b.z) < 1e-5;
}

bool Has(const std::vector<Line>& lines, ShipPoint from, ShipPoint to) {
    return std::ranges::any_of(lines, [&](const Line& line) {
        return line.size() == 2 && ((IsAt(line[0], from) && IsAt(line[1], to)) ||
                                    (IsAt(line[0], to) && IsAt(line[1], from)));
    });
}

bool HasBothSides(const std::vector<Line>& lines, ShipPoint from, ShipPoint to) {
    return Has(lines, from, to) && Has(lines, {-from.y, from.z}, {-to.y, to.z});
}

bool HasText(const Drawing& drawing, const std::wstring& text) {
    return std::ranges::find(drawing.figure.texts, text) != drawing.figure.texts.end();
}

PrimaryStiffener Girder(float z) {
    PrimaryStiffener stiffener;
    stiffener.position_m = z;
    return stiffener;
}

PrimaryStiffener Web(float y) {
    PrimaryStiffener stiffener = Girder(y);
    stiffener.direction = 1;
    return stiffener;
}

SecondaryStiffener StiffenerAt(float position, float lower = 0, float upper = 0) {
    SecondaryStiffener stiffener;
    stiffener.position_m = position;
    stiffener.lowerExtremity_m = lower;
    stiffener.upperExtremity_m = upper;
    return stiffener;
}

PrimaryStiffener Between(PrimaryStiffener stiffener, float lower, float upper) {
    stiffener.hasExtremities = true;
    stiffener.lowerExtremity_m = lower;
    stiffener.upperExtremity_m = upper;
    return stiffener;
}

// ---- Outline -----------------------------------------------------------------------------------

TEST(BulkheadFigure, OutlineHasNoLineWhereTheOtherHalfContinues) {
    const BulkheadArrangement arrangement = ArrangementOf({HalfBulkhead()});
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> lines = Of(drawing, kColours.plating);
    ASSERT_EQ(lines.size(), 2U);
    for (const Line& line : lines) {
        ASSERT_EQ(line.size(), 4U);
        EXPECT_NEAR(line.front().y, 0, 1e-6);
        EXPECT_NEAR(line.back().y, 0, 1e-6);
        EXPECT_NEAR(std::abs(line[1].y), 10, 1e-6);
    }
    EXPECT_NEAR(lines[0][1].y, -lines[1][1].y, 1e-6);
}

TEST(BulkheadFigure, OutlineOfAWholeBulkheadIsClosed) {
    BulkheadArrangement arrangement = ArrangementOf({HalfBulkhead()});
    arrangement.symmetric = 0;
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> lines = Of(drawing, kColours.plating);
    ASSERT_EQ(lines.size(), 1U);
    ASSERT_EQ(lines[0].size(), 5U);
    EXPECT_TRUE(IsAt(lines[0].front(), lines[0].back()));
}

TEST(BulkheadFigure, OutlineAwayFromTheCentreLineIsClosedOnBothSides) {
    Bulkhead tank = HalfBulkhead();
    for (Node& node : tank.nodes) node.givenY = node.givenY / 2 + 5;
    const BulkheadArrangement arrangement = ArrangementOf({tank});
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> lines = Of(drawing, kColours.plating);
    ASSERT_EQ(lines.size(), 2U);
    for (const Line& line : lines) EXPECT_TRUE(IsAt(line.front(), line.back()));
}

// ---- Stiffeners --------------------------------------------------------------------------------

TEST(BulkheadFigure, GirdersAndWebsGoAcrossTheOutlineOrBetweenTheirExtremities) {
    Bulkhead bulkhead = HalfBulkhead();
    bulkhead.primaryStiffeners = {Girder(5), Web(4), Between(Girder(7), 1, 8),
                                  Between(Web(6), 3, 9)};
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> lines = Of(drawing, kColours.girder);
    EXPECT_EQ(lines.size(), 8U);
    EXPECT_TRUE(HasBothSides(lines, {0, 5}, {10, 5}));
    EXPECT_TRUE(HasBothSides(lines, {4, 2}, {4, 12}));
    EXPECT_TRUE(HasBothSides(lines, {1, 7}, {8, 7}));
    EXPECT_TRUE(HasBothSides(lines, {6, 3}, {6, 9}));
}

TEST(BulkheadFigure, NothingGoesBeyondTheOutline) {
    Bulkhead bulkhead = HalfBulkhead();
    bulkhead.primaryStiffeners = {Between(Girder(5), -300, 300), Girder(40), Web(12)};
    bulkhead.secondaryStiffeners = {StiffenerAt(3, 1, 90), StiffenerAt(11, 2, 12)};
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> girders = Of(drawing, kColours.girder);
    EXPECT_EQ(girders.size(), 2U);
    EXPECT_TRUE(HasBothSides(girders, {0, 5}, {10, 5}));
    EXPECT_TRUE(HasBothSides(Of(drawing, kColours.stiffener), {3, 2}, {3, 12}));
}

// The ticks of the stiffener at y = 3 m: z of the middle of each.
std::vector<double> TicksOf(const Drawing& drawing, double y) {
    std::vector<double> ticks;
    for (const Line& line : Of(drawing, kColours.stiffener)) {
        if (line.size() != 2 || std::abs((line[0].y + line[1].y) / 2 - y) > 1e-5) continue;
        if (std::abs(line[0].y - line[1].y) < 1e-5) continue;
        ticks.push_back((line[0].z + line[1].z) / 2);
    }
    std::ranges::sort(ticks);
    return ticks;
}

TEST(BulkheadFigure, SpansEndAtTheExtremitiesAndAtTheGirdersThatCrossThem) {
    Bulkhead bulkhead = HalfBulkhead();
    // The girder at 9 m ends before the stiffener; a web crosses no vertical stiffener.
    bulkhead.primaryStiffeners = {Girder(5), Between(Girder(9), 0, 2), Between(Girder(8), 2, 6),
                                  Web(7)};
    bulkhead.secondaryStiffeners = {StiffenerAt(3, 2.5F, 11)};
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const Drawing drawing = Draw(arrangement);
    EXPECT_TRUE(HasBothSides(Of(drawing, kColours.stiffener), {3, 2.5}, {3, 11}));
    for (const double y : {3.0, -3.0}) {
        const std::vector<double> ticks = TicksOf(drawing, y);
        ASSERT_EQ(ticks.size(), 4U) << y;
        EXPECT_NEAR(ticks[0], 2.5, 1e-5);
        EXPECT_NEAR(ticks[1], 5, 1e-5);
        EXPECT_NEAR(ticks[2], 8, 1e-5);
        EXPECT_NEAR(ticks[3], 11, 1e-5);
    }
}

TEST(BulkheadFigure, HorizontalStiffenersHaveTheirSpansBetweenWebs) {
    Bulkhead bulkhead = HalfBulkhead();
    bulkhead.stiffening = 0;
    bulkhead.primaryStiffeners = {Web(4), Girder(5)};
    bulkhead.secondaryStiffeners = {StiffenerAt(6, 1, 9)};
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> lines = Of(drawing, kColours.stiffener);
    EXPECT_TRUE(HasBothSides(lines, {1, 6}, {9, 6}));
    EXPECT_EQ(lines.size(), 2 * (1 + 3U));
    EXPECT_EQ(TicksOf(drawing, 4).size(), 1U);
}

TEST(BulkheadFigure, SampleShipsStiffenersAreWhereItsRecordHasThem) {
    const BulkheadArrangement arrangement = test::SampleArrangement(test::kFirstArrangement);
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> lines = Of(drawing, kColours.stiffener);
    for (const SecondaryStiffener& stiffener : arrangement.bulkheads[0].secondaryStiffeners) {
        const double y = stiffener.position_m;
        // The extremities are rounded to a millimetre, so that they may be beyond the outline.
        const auto isIt = [&](const Line& line) {
            return line.size() == 2 && std::abs(line[0].y - y) < 1e-5 &&
                   std::abs(line[1].y - y) < 1e-5 &&
                   std::abs(line[0].z - stiffener.lowerExtremity_m) < 0.01 &&
                   std::abs(line[1].z - stiffener.upperExtremity_m) < 0.01;
        };
        EXPECT_TRUE(std::ranges::any_of(lines, isIt)) << y;
        // Each span but the last has a girder at its upper end; the spans are counted in the file.
        EXPECT_EQ(TicksOf(drawing, y).size(), static_cast<size_t>(stiffener.spanCount) + 1) << y;
    }
}

// ---- Plates ------------------------------------------------------------------------------------

TEST(BulkheadFigure, PlatesHaveTheirEdgesAndThicknesses) {
    Bulkhead bulkhead = HalfBulkhead();
    bulkhead.bands[1] = {{6, 4, 15, 1}, {6, 10, 14.5F, 1}};
    bulkhead.bands[2] = {{12, 10, 12, 1}};
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> lines = Of(drawing, kColours.plateEdge);
    EXPECT_TRUE(HasBothSides(lines, {0, 6}, {4, 6}));
    EXPECT_TRUE(HasBothSides(lines, {4, 6}, {10, 6}));
    EXPECT_TRUE(HasBothSides(lines, {4, 2}, {4, 6}));
    EXPECT_EQ(lines.size(), 6U) << "the top and the side are the outline's";
    EXPECT_TRUE(HasText(drawing, L"15"));
    EXPECT_TRUE(HasText(drawing, L"14.5"));
    EXPECT_TRUE(HasText(drawing, L"12"));
}

TEST(BulkheadFigure, ThicknessIsOnNoStiffener) {
    Bulkhead bulkhead = HalfBulkhead();
    bulkhead.bands[1] = {{12, 10, 15, 1}};
    bulkhead.primaryStiffeners = {Girder(7)};
    for (const float y : {1.0F, 2.0F, 4.0F, 5.0F, 6.0F, 8.0F, 9.0F}) {
        bulkhead.secondaryStiffeners.push_back(StiffenerAt(y));
    }
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> places = Of(drawing, kColours.text, FigureShape::kText);
    // In the middle of a gap beside the middle of the plate, which is 10 m broad and high.
    ASSERT_GE(places.size(), 1U);
    EXPECT_NEAR(places[0][0].y, 4.5, 1e-5);
    EXPECT_NEAR(places[0][0].z, (2 + 7) / 2.0, 1e-5);
}

TEST(BulkheadFigure, ThicknessWithoutRoomIsLeftOut) {
    Bulkhead bulkhead = HalfBulkhead();
    bulkhead.bands[1] = {{12, 10, 15, 1}};
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const BulkheadLayout layout = LayOutBulkheads({arrangement, {}, 2, 2, 0});
    const Figure tiny = test::MakeBulkheadFigure(layout, 2, 2, kColours);
    EXPECT_TRUE(tiny.texts.empty());
    bulkhead.bands[1] = {{12, 10, 0, 1}};
    const BulkheadArrangement unknown = ArrangementOf({bulkhead});
    EXPECT_FALSE(HasText(Draw(unknown), L"0"));
}

TEST(BulkheadFigure, PlatesOfTheSampleAreInsideItsOutline) {
    for (int32_t i = test::kFirstArrangement; i <= test::kLastArrangement; ++i) {
        const BulkheadArrangement arrangement = test::SampleArrangement(i);
        const Drawing drawing = Draw(arrangement);
        const DrawnBulkhead& first = drawing.layout.bulkheads[0];
        for (const BulkheadStrake& strake : arrangement.bulkheads[0].bands.begin()->second) {
            const std::optional<Extent> across = AcrossAtHeight(first.outline, strake.z_m);
            ASSERT_TRUE(across.has_value());
            const bool isLast = &strake == &arrangement.bulkheads[0].bands.begin()->second.back();
            const double right = isLast ? across->to : strake.y_m;
            const bool isThere =
                std::ranges::any_of(Of(drawing, kColours.plateEdge), [&](const Line& line) {
                    return line.size() == 2 && IsAt(line[1], {right, strake.z_m});
                });
            EXPECT_TRUE(isThere) << i << " " << right;
        }
    }
}

// ---- Corrugations ------------------------------------------------------------------------------

TEST(BulkheadFigure, CorrugationsHaveTheirFoldsAndAProfileToScale) {
    const BulkheadArrangement arrangement =
        ArrangementOf({CorrugatedBulkhead({0.5F, 6, 3, 1.5F, 0, 0})});
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> lines = Of(drawing, kColours.plating);
    for (const double y : {0.5, 3.5, 6.5, 9.5}) {
        EXPECT_TRUE(HasBothSides(lines, {y, 2}, {y, 12})) << y;
    }
    const double middle = drawing.layout.bulkheads[0].profile_m;
    const std::vector<ShipPoint> expected = {{0, -0.75},  {0.5, -0.75}, {3.5, 0.75},
                                             {6.5, 0.75}, {9.5, -0.75}, {10, -0.75}};
    const auto isProfile = [&](const Line& line) {
        return line.size() == expected.size() &&
               std::ranges::equal(line, expected, [&](const ShipPoint& a, const ShipPoint& b) {
                   return IsAt(a, {b.y, middle + b.z});
               });
    };
    EXPECT_TRUE(std::ranges::any_of(lines, isProfile));
    EXPECT_TRUE(HasText(drawing, L"Corrugations: S1 6, a 3, d 1.5 m"));
}

TEST(BulkheadFigure, HorizontalCorrugationsHaveOneProfileBesideThem) {
    Bulkhead bulkhead = CorrugatedBulkhead({4, 6, 3, 1.5F, 0, 0});
    bulkhead.stiffening = 0;
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> lines = Of(drawing, kColours.plating);
    EXPECT_TRUE(HasBothSides(lines, {0, 4}, {10, 4}));
    EXPECT_TRUE(HasBothSides(lines, {0, 7}, {10, 7}));
    const auto isBeside = [](const Line& line) { return std::abs(line.front().y) > 10.1; };
    ASSERT_EQ(std::ranges::count_if(lines, isBeside), 1);
    const Line& profile = *std::ranges::find_if(lines, isBeside);
    EXPECT_NEAR(profile.front().z, 2, 1e-5);
    EXPECT_NEAR(profile.back().z, 12, 1e-5);
}

// ---- Stools, hoppers and texts -----------------------------------------------------------------

TEST(BulkheadFigure, StoolsAreAreasWithALineAtTheirEnd) {
    Bulkhead bulkhead = HalfBulkhead();
    bulkhead.stools(1) = {-1, 3.5F};
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> areas = Of(drawing, kColours.stool, FigureShape::kArea);
    ASSERT_EQ(areas.size(), 2U);
    for (const Line& area : areas) {
        EXPECT_NEAR(BoxOf(area).bottom, 2, 1e-5);
        EXPECT_NEAR(BoxOf(area).top, 3.5, 1e-5);
        EXPECT_NEAR(BoxOf(area).right - BoxOf(area).left, 10, 1e-5);
    }
    EXPECT_TRUE(HasBothSides(Of(drawing, kColours.hopper), {0, 3.5}, {10, 3.5}));
}

TEST(BulkheadFigure, HopperIsADashedLine) {
    BulkheadArrangement arrangement = ArrangementOf({HalfBulkhead()});
    arrangement.aftHopper = {3, 6};
    const Drawing drawing = Draw(arrangement);
    const std::vector<Line> dashes = Of(drawing, kColours.hopper);
    ASSERT_EQ(dashes.size(), 2 * 24U);
    double length = 0;
    for (const Line& dash : dashes) {
        length += std::hypot(dash[1].y - dash[0].y, dash[1].z - dash[0].z);
        for (const ShipPoint& end : dash) {
            EXPECT_NEAR(end.z - 2, (std::abs(end.y) - 7) * 4 / 3, 1e-5);
        }
    }
    // From (7, 2) to (10, 6) are 5 m; 24 dashes of two steps and 23 gaps of one.
    EXPECT_NEAR(length / 2, 5 * 48.0 / 71, 1e-5);
}

TEST(BulkheadFigure, NameAndOriginOfTheOutlineAreBelow) {
    Bulkhead unnamed = HalfBulkhead();
    unnamed.name.clear();
    const BulkheadArrangement arrangement = ArrangementOf({HalfBulkhead(), unnamed});
    const Drawing drawing = Draw(arrangement);
    EXPECT_TRUE(HasText(drawing, L"Bulkhead"));
    EXPECT_TRUE(HasText(drawing, L"Bulkhead 2"));
    EXPECT_TRUE(HasText(drawing, L"Outline: the bulkhead's own nodes"));
    Bulkhead bare = HalfBulkhead();
    bare.nodes.clear();
    const BulkheadArrangement withoutNodes = ArrangementOf({bare});
    const auto textsWith = [&](const ShipOutline& ship) {
        const BulkheadLayout layout = LayOut(withoutNodes, 0, [&] { return ship; });
        return test::MakeBulkheadFigure(layout, 277, 180, kColours).texts;
    };
    const Outline half = HalfOutline(20, 15);
    EXPECT_EQ(textsWith({OutlineSource::kSection, half, L"Midship", 104.5F}).back(),
              L"Outline: section Midship, x = 104.5 m");
    EXPECT_EQ(textsWith({OutlineSource::kBreadthAndDepth, half, L"", 0}).back(),
              L"Outline: the ship's breadth and depth");
}

TEST(BulkheadFigure, SaysHowManyBulkheadsAreNotDrawn) {
    Bulkhead bare = HalfBulkhead();
    bare.nodes.clear();
    const BulkheadArrangement arrangement = ArrangementOf({HalfBulkhead(), bare, bare});
    EXPECT_TRUE(HasText(Draw(arrangement), L"2 more are not shown"));
}

TEST(BulkheadFigure, TextsAreBesideEachOther) {
    for (int32_t i = test::kFirstArrangement; i <= test::kLastArrangement; ++i) {
        const BulkheadArrangement arrangement = test::SampleArrangement(i);
        const Drawing drawing = Draw(arrangement);
        std::vector<SheetArea> areas;
        for (const FigureItem& item : drawing.figure.items) {
            if (item.shape != FigureShape::kText) continue;
            const SheetPoint& at = PointsOf(drawing.figure, item).front();
            // Texts in the drawing are all centred; a letter is about half as wide as high.
            const double half =
                0.25 * item.size_mm * static_cast<double>(drawing.figure.texts[item.text].size());
            const SheetArea area{at.x - half, at.y - item.size_mm / 2, at.x + half,
                                 at.y + item.size_mm / 2};
            EXPECT_TRUE(IsInWindow(drawing.figure, {area.left, area.top}));
            EXPECT_TRUE(IsInWindow(drawing.figure, {area.right, area.bottom}));
            for (const SheetArea& other : areas) {
                EXPECT_TRUE(area.right <= other.left || other.right <= area.left ||
                            area.bottom <= other.top || other.bottom <= area.top)
                    << test::Narrow(drawing.figure.texts[item.text]);
            }
            areas.push_back(area);
        }
        EXPECT_GT(areas.size(), 2U);
    }
}

TEST(BulkheadFigure, LegendHasWhatIsThere) {
    const BulkheadArrangement plain = ArrangementOf({HalfBulkhead()});
    EXPECT_EQ(LegendOf(LayOut(plain), kColours).size(), 1U);
    EXPECT_TRUE(LegendOf(BulkheadLayout{}, kColours).empty());
    const BulkheadArrangement corrugated = test::SampleArrangement(test::kCorrugatedArrangement);
    const std::vector<LegendLine> legend = LegendOf(LayOut(corrugated), kColours);
    EXPECT_EQ(legend.size(), 7U);
    for (const LegendLine& line : legend) EXPECT_FALSE(line.text.empty());
    EXPECT_EQ(legend[0].pen.colour, kColours.plating);
    EXPECT_EQ(legend[5].shape, FigureShape::kArea);
}

// ---- Views and damaged data --------------------------------------------------------------------

void ExpectSound(const Figure& figure) {
    // A line that is cut off at the window is two or more items.
    EXPECT_LE(figure.items.size(), 3 * 20000U);
    for (const FigureItem& item : figure.items) {
        for (const SheetPoint& point : PointsOf(figure, item)) {
            ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
            ASSERT_TRUE(IsInWindow(figure, point));
        }
        if (item.shape != FigureShape::kText) continue;
        const double half = TextWidth(figure.texts[item.text], item.size_mm) / 2;
        const double middle = PointsOf(figure, item).front().x;
        if (item.side != TextSide::kMiddle) continue;
        ASSERT_GE(middle - half, -1e-9);
        ASSERT_LE(middle + half, figure.width_mm + 1e-9);
    }
}

TEST(BulkheadFigure, NothingIsOutsideOfTheSheet) {
    for (int32_t i = test::kFirstArrangement; i <= test::kLastArrangement; ++i) {
        const BulkheadArrangement arrangement = test::SampleArrangement(i);
        const Drawing drawing = Draw(arrangement);
        EXPECT_GT(drawing.figure.items.size(), 100U);
        ExpectSound(drawing.figure);
    }
}

TEST(BulkheadFigure, EveryScaleShowsAPart) {
    const BulkheadArrangement arrangement = test::SampleArrangement(test::kCorrugatedArrangement);
    const BulkheadLayout layout = LayOut(arrangement);
    const DrawnBulkhead& drawn = layout.bulkheads[0];
    const ShipPoint corner{drawn.place.y + drawn.outline[1].y, drawn.place.z + drawn.outline[1].z};
    for (const double factor : {1e-6, 0.01, 10.0, 1e6}) {
        Figure figure = MakeFigure(277, 180, layout.mmPerMetre * factor, corner);
        DrawBulkheads(figure, layout, kColours);
        EXPECT_FALSE(figure.items.empty()) << factor;
        ExpectSound(figure);
    }
}

TEST(BulkheadFigure, WithoutBulkheadsTheFigureIsEmpty) {
    const BulkheadArrangement arrangement = ArrangementOf({});
    EXPECT_TRUE(test::MakeBulkheadFigure(LayOut(arrangement), 277, 180, kColours).items.empty());
    EXPECT_TRUE(test::MakeBulkheadFigure({}, 277, 180, kColours).items.empty());
}

TEST(BulkheadFigure, RandomArrangementsAreDrawnAsFarAsTheyCanBe) {
    size_t itemCount = 0;
    for (uint32_t seed = 1; seed <= 300; ++seed) {
        const BulkheadArrangement arrangement = test::RandomArrangement(seed);
        const BulkheadLayout layout = LayOut(arrangement, 0, [] {
            return ShipOutline{OutlineSource::kBreadthAndDepth, HalfOutline(30, 20), L"", 0};
        });
        const Figure figure = test::MakeBulkheadFigure(layout, 277, 180, kColours);
        ExpectSound(figure);
        itemCount += figure.items.size();
    }
    EXPECT_GT(itemCount, 3000U);
}

TEST(BulkheadFigure, NumbersThatAreNoneAreLeftOut) {
    for (const float bad : {kNaN, 1e30F, -1e30F, std::numeric_limits<float>::infinity()}) {
        Bulkhead bulkhead = CorrugatedBulkhead({bad, bad, bad, bad, 0, 0});
        bulkhead.primaryStiffeners = {Girder(bad), Web(bad), Between(Girder(5), bad, bad)};
        bulkhead.secondaryStiffeners = {StiffenerAt(bad), StiffenerAt(3, bad, bad)};
        bulkhead.bands[1] = {{bad, 3, 10, 1}, {5, bad, 10, 1}, {6, 10, bad, 1}};
        bulkhead.stools(1) = {-1, bad};
        BulkheadArrangement arrangement = ArrangementOf({bulkhead});
        arrangement.aftHopper = {bad, bad};
        const Drawing drawing = Draw(arrangement);
        ExpectSound(drawing.figure);
        // What is left: a girder and a stiffener across the outline, and the edge of a plate.
        EXPECT_EQ(Of(drawing, kColours.girder).size(), 2U);
        EXPECT_TRUE(HasBothSides(Of(drawing, kColours.stiffener), {3, 2}, {3, 12}));
        EXPECT_TRUE(HasBothSides(Of(drawing, kColours.plateEdge), {0, 6}, {10, 6}));
    }
}

TEST(BulkheadFigure, ThereAreTwentyThousandLinesAtMost) {
    Bulkhead bulkhead = HalfBulkhead();
    for (int i = 0; i < 30000; ++i) {
        bulkhead.secondaryStiffeners.push_back(StiffenerAt(static_cast<float>(i % 900) * 0.01F));
    }
    const BulkheadArrangement arrangement = ArrangementOf({bulkhead});
    const Figure figure = Draw(arrangement).figure;
    size_t lines = 0;
    for (const FigureItem& item : figure.items) lines += item.shape == FigureShape::kLine ? 1 : 0;
    EXPECT_LE(lines, 20000U);
    EXPECT_GT(lines, 19000U);
}

}  // namespace
}  // namespace corvane
