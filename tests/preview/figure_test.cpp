// The list of what is drawn: scale, cutting off at the window, and what is left out.
#include "preview/figure.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace corvane {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr FigurePen kPen{FigureLayer::kPlate, 0x00FF0000, 0.5};

// 100 mm by 50 mm at 10 mm for each metre: shows y from 0 to 10 m and z from 0 to 5 m.
Figure Sheet() {
    return MakeFigure(100, 50, 10, {5, 2.5});
}

std::vector<SheetPoint> PointsOfItem(const Figure& figure, size_t item) {
    const std::span<const SheetPoint> points = PointsOf(figure, figure.items.at(item));
    return {points.begin(), points.end()};
}

TEST(FigureTest, ShipIsToScaleWithHeightsUpwards) {
    const Figure figure = Sheet();
    EXPECT_EQ(OnSheet(figure, {0, 0}), (SheetPoint{0, 50}));
    EXPECT_EQ(OnSheet(figure, {10, 5}), (SheetPoint{100, 0}));
    const ShipPoint point = InShip(figure, {25, 20});
    EXPECT_DOUBLE_EQ(point.y, 2.5);
    EXPECT_DOUBLE_EQ(point.z, 3);
    EXPECT_TRUE(IsInWindow(figure, {100, 50}));
    EXPECT_FALSE(IsInWindow(figure, {100.1, 50}));
}

TEST(FigureTest, LineInsideIsOneItem) {
    Figure figure = Sheet();
    AddLine(figure, kPen, std::vector<ShipPoint>{{1, 1}, {2, 1}, {2, 3}});
    ASSERT_EQ(figure.items.size(), 1U);
    EXPECT_EQ(figure.items[0].colour, 0x00FF0000);
    EXPECT_EQ(figure.items[0].size_mm, 0.5);
    EXPECT_EQ(PointsOfItem(figure, 0), (std::vector<SheetPoint>{{10, 40}, {20, 40}, {20, 20}}));
}

TEST(FigureTest, LineIsCutOffAtTheEdgesAndContinuesWhereItComesBack) {
    Figure figure = Sheet();
    AddLine(figure, kPen, std::vector<ShipPoint>{{8, 1}, {12, 1}, {12, 3}, {8, 3}});
    ASSERT_EQ(figure.items.size(), 2U);
    EXPECT_EQ(PointsOfItem(figure, 0), (std::vector<SheetPoint>{{80, 40}, {100, 40}}));
    EXPECT_EQ(PointsOfItem(figure, 1), (std::vector<SheetPoint>{{100, 20}, {80, 20}}));
}

TEST(FigureTest, LineAcrossTheWholeWindowIsCutOffAtBothEnds) {
    Figure figure = Sheet();
    AddLine(figure, kPen, std::vector<ShipPoint>{{-1e30, 2}, {1e30, 2}});
    ASSERT_EQ(figure.items.size(), 1U);
    const std::vector<SheetPoint> points = PointsOfItem(figure, 0);
    ASSERT_EQ(points.size(), 2U);
    EXPECT_NEAR(points[0].x, 0, 1e-9);
    EXPECT_NEAR(points[1].x, 100, 1e-9);
}

TEST(FigureTest, LinesOutsideAndWithoutNumbersAreLeftOut) {
    Figure figure = Sheet();
    AddLine(figure, kPen, std::vector<ShipPoint>{{11, 1}, {12, 1}});
    AddLine(figure, kPen, std::vector<ShipPoint>{{-1, 4}, {1, 7}});
    AddLine(figure, kPen, std::vector<ShipPoint>{{1, 1}, {kNaN, 1}});
    AddLine(figure, kPen, std::vector<ShipPoint>{{1, 1}});
    EXPECT_TRUE(figure.items.empty());
    EXPECT_TRUE(figure.points.empty());
}

TEST(FigureTest, AreaIsCutOffAtTheEdges) {
    Figure figure = Sheet();
    AddArea(figure, FigureLayer::kCompartment, 1,
            std::vector<ShipPoint>{{8, 1}, {12, 1}, {12, 2}, {8, 2}});
    ASSERT_EQ(figure.items.size(), 1U);
    EXPECT_EQ(PointsOfItem(figure, 0),
              (std::vector<SheetPoint>{{80, 40}, {100, 40}, {100, 30}, {80, 30}}));
    AddArea(figure, FigureLayer::kCompartment, 1,
            std::vector<ShipPoint>{{11, 1}, {12, 1}, {12, 2}});
    AddArea(figure, FigureLayer::kCompartment, 1,
            std::vector<ShipPoint>{{1, 1}, {2, 1}, {2, kNaN}});
    EXPECT_EQ(figure.items.size(), 1U);
}

TEST(FigureTest, TextsKeepTheirPlaceAndSide) {
    Figure figure = Sheet();
    AddText(figure, {0x0000FF00, 3, TextSide::kMiddle}, {50, 25}, L"Tank");
    AddText(figure, {0, 3}, {kNaN, 25}, L"nowhere");
    AddText(figure, {0, 3}, {50, 25}, L"");
    ASSERT_EQ(figure.items.size(), 1U);
    EXPECT_EQ(figure.items[0].shape, FigureShape::kText);
    EXPECT_EQ(figure.items[0].layer, FigureLayer::kText);
    EXPECT_EQ(figure.items[0].side, TextSide::kMiddle);
    EXPECT_EQ(figure.texts.at(figure.items[0].text), L"Tank");
}

TEST(FigureTest, WhatIsOnTheSheetIsNotCutOff) {
    Figure figure = Sheet();
    figure.window = {10, 10, 90, 40};
    AddSheetLine(figure, kPen, std::vector<SheetPoint>{{0, 45}, {100, 45}});
    AddSheetArea(figure, FigureLayer::kText, 1, std::vector<SheetPoint>{{0, 45}, {9, 45}, {9, 50}});
    ASSERT_EQ(figure.items.size(), 2U);
    EXPECT_EQ(PointsOfItem(figure, 0), (std::vector<SheetPoint>{{0, 45}, {100, 45}}));
}

}  // namespace
}  // namespace corvane
