// What is switched on over a section: where it is on the sheet, what it says, and what becomes of
// data that no picture can have.
#include "preview/annotations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "preview/figure_text.h"
#include "preview/section_geometry.h"
#include "tests/companions/section_builder.h"

namespace corvane {
namespace {

using test::GivenNode;

// A deck of 20 m at a height of 10 m, and a side from its end down; 10 mm for each metre.
struct AnnotationsTest : testing::Test {
    test::TestSection made;
    AnnotationTexts texts;
    PictureOptions options;

    AnnotationsTest() {
        made.Add({GivenNode(0, 10), GivenNode(20, 10)});
        made.Add({GivenNode(20, 10), GivenNode(20, 0)});
        made.Compute();
        made.Link();
        texts.panelNames = {L"Deck", L"Side"};
        texts.plates = {{1, 0, 8, 12.5F}, {1, 8, 20, 16}, {2, 0, 10, 12.5F}};
        texts.plate = L"Plate";
        texts.stiffener = L"Stiffener";
        texts.plateEnd = L"Plate end";
        texts.compartment = L"Compartment";
    }
    ~AnnotationsTest() override = default;

    Figure Made(double scale = 10, ShipPoint centre = {10, 5}) const {
        Figure figure = MakeFigure(300, 200, scale, centre);
        AddAnnotations(figure, made.section, texts, options);
        return figure;
    }
};

std::multiset<std::wstring> TextsOf(const Figure& figure) {
    return {figure.texts.begin(), figure.texts.end()};
}

// The place of a text that is there once.
SheetPoint PlaceOf(const Figure& figure, const std::wstring& text) {
    for (const FigureItem& item : figure.items) {
        if (item.shape == FigureShape::kText && figure.texts[item.text] == text) {
            return PointsOf(figure, item).front();
        }
    }
    ADD_FAILURE() << "not there";
    return {};
}

void ExpectOnSheet(const Figure& figure) {
    for (const SheetPoint& point : figure.points) {
        EXPECT_TRUE(point.x >= 0 && point.x <= figure.width_mm) << point.x;
        EXPECT_TRUE(point.y >= 0 && point.y <= figure.height_mm) << point.y;
    }
}

TEST_F(AnnotationsTest, NothingIsThereUnlessItIsSwitchedOn) {
    EXPECT_TRUE(Made().items.empty());
}

TEST_F(AnnotationsTest, RoundLengthsAreOneTwoAndFive) {
    EXPECT_DOUBLE_EQ(RoundLength(7.5), 5);
    EXPECT_DOUBLE_EQ(RoundLength(4.9), 2);
    EXPECT_DOUBLE_EQ(RoundLength(1.9), 1);
    EXPECT_DOUBLE_EQ(RoundLength(0.02), 0.02);
    EXPECT_DOUBLE_EQ(RoundLength(1000), 1000);
    EXPECT_EQ(RoundLength(0), 0);
    EXPECT_EQ(RoundLength(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(RoundLength(std::numeric_limits<double>::infinity()), 0);
}

TEST_F(AnnotationsTest, ScaleBarIsAsLongAsItSays) {
    options.hasScaleBar = true;
    const Figure figure = Made();
    EXPECT_EQ(TextsOf(figure), (std::multiset<std::wstring>{L"5 m"}));
    const auto bar = std::ranges::find_if(figure.items, [&](const FigureItem& item) {
        const std::span<const SheetPoint> points = PointsOf(figure, item);
        return item.shape == FigureShape::kLine && points[0].y == points[1].y;
    });
    ASSERT_NE(bar, figure.items.end());
    const std::span<const SheetPoint> points = PointsOf(figure, *bar);
    EXPECT_DOUBLE_EQ(points[1].x - points[0].x, 50) << "5 m at 10 mm for each metre";
    ExpectOnSheet(figure);
}

TEST_F(AnnotationsTest, ScaleBarFollowsTheZoom) {
    options.hasScaleBar = true;
    EXPECT_EQ(TextsOf(Made(100)).count(L"0.5 m"), 1U);
    EXPECT_EQ(TextsOf(Made(0.1)).count(L"500 m"), 1U);
    EXPECT_EQ(TextsOf(Made(1e6)).size(), 1U);
}

TEST_F(AnnotationsTest, TicksOfTheAxesAreWhereTheirNumbersSay) {
    options.hasAxes = true;
    const Figure figure = Made();
    const std::multiset<std::wstring> numbers = TextsOf(figure);
    EXPECT_EQ(numbers.count(L"2"), 2U) << "on both axes";
    EXPECT_EQ(numbers.count(L"24"), 1U);
    EXPECT_DOUBLE_EQ(PlaceOf(figure, L"24").x, OnSheet(figure, {24, 0}).x);
    EXPECT_TRUE(std::ranges::any_of(figure.items, [&](const FigureItem& item) {
        return item.shape == FigureShape::kText && figure.texts[item.text] == L"12" &&
               PointsOf(figure, item).front().y == OnSheet(figure, {0, 12}).y;
    })) << "12 m up";
    ExpectOnSheet(figure);
}

TEST_F(AnnotationsTest, AxesHaveNotMoreNumbersAtAnyZoom) {
    options.hasAxes = true;
    for (const double scale : {1e-3, 1.0, 1e3, 1e6}) {
        const Figure figure = Made(scale, {10, 10});
        EXPECT_GE(figure.texts.size(), 4U) << scale;
        EXPECT_LE(figure.texts.size(), 60U) << scale;
        ExpectOnSheet(figure);
    }
}

TEST_F(AnnotationsTest, NamesAndNumbersAreBesideTheirStrakes) {
    options.hasPanelNames = true;
    const Figure named = Made();
    EXPECT_EQ(TextsOf(named), (std::multiset<std::wstring>{L"Deck", L"Side"}));
    EXPECT_DOUBLE_EQ(PlaceOf(named, L"Deck").x, OnSheet(named, {10, 10}).x);
    EXPECT_LT(PlaceOf(named, L"Deck").y, OnSheet(named, {10, 10}).y) << "above a flat strake";
    EXPECT_GT(PlaceOf(named, L"Side").x, OnSheet(named, {20, 5}).x) << "right of a steep one";
    options.hasNumbers = true;
    EXPECT_EQ(TextsOf(Made()),
              (std::multiset<std::wstring>{L"1 Deck", L"2 Side", L"1", L"2", L"1", L"2"}));
}

TEST_F(AnnotationsTest, NamesOutsideOfTheWindowAreLeftOut) {
    options.hasPanelNames = true;
    EXPECT_EQ(TextsOf(Made(1000, {10, 10})), (std::multiset<std::wstring>{L"Deck"}));
}

TEST_F(AnnotationsTest, PlatesOfOneThicknessHaveOneColourAndALineOfTheKey) {
    options.hasThickness = true;
    const Figure figure = Made();
    EXPECT_EQ(TextsOf(figure), (std::multiset<std::wstring>{L"12.5 mm", L"16 mm"}));
    std::vector<int32_t> colours;
    for (const FigureItem& item : figure.items) {
        if (item.layer == FigureLayer::kPlate) colours.push_back(item.colour);
    }
    ASSERT_EQ(colours.size(), 3U);
    EXPECT_EQ(colours[0], colours[2]);
    EXPECT_NE(colours[0], colours[1]);
    const std::span<const SheetPoint> second = PointsOf(figure, figure.items[1]);
    EXPECT_DOUBLE_EQ(second.front().x, OnSheet(figure, {8, 10}).x) << "from where a plate begins";
    EXPECT_DOUBLE_EQ(second.back().x, OnSheet(figure, {20, 10}).x);
}

TEST_F(AnnotationsTest, BothSidesHaveTheirThickness) {
    options.hasThickness = true;
    made.section.symmetryMode = 1;
    const Figure figure = Made(5, {0, 5});
    EXPECT_EQ(std::ranges::count(figure.items, FigureLayer::kPlate, &FigureItem::layer), 6);
}

TEST_F(AnnotationsTest, ManyThicknessesBecomeTwelveClasses) {
    options.hasThickness = true;
    texts.plates.clear();
    for (int i = 0; i < 100; ++i) {
        texts.plates.push_back({1, i * 0.2, (i + 1) * 0.2, 8 + static_cast<float>(i) / 10});
    }
    texts.plates.push_back({1, 0, 1, std::numeric_limits<float>::quiet_NaN()});
    texts.plates.push_back({7, 0, 1, 10});
    const Figure figure = Made();
    EXPECT_EQ(figure.texts.size(), 12U);
    EXPECT_EQ(figure.texts.back(), L"17.9 mm") << "the thickest one is the last class";
    std::set<int32_t> colours;
    for (const FigureItem& item : figure.items) {
        if (item.layer == FigureLayer::kPlate) colours.insert(item.colour);
    }
    EXPECT_EQ(colours.size(), 12U);
}

TEST_F(AnnotationsTest, LegendNamesFourThings) {
    options.hasLegend = true;
    const Figure figure = Made();
    EXPECT_EQ(TextsOf(figure),
              (std::multiset<std::wstring>{L"Plate", L"Stiffener", L"Plate end", L"Compartment"}));
    ExpectOnSheet(figure);
}

// The areas of the texts, as wide as the letters that they are measured with.
std::vector<SheetArea> AreasOfTexts(const Figure& figure) {
    std::vector<SheetArea> areas;
    for (const FigureItem& item : figure.items) {
        if (item.shape != FigureShape::kText) continue;
        const SheetPoint at = PointsOf(figure, item).front();
        const double width = TextWidth(figure.texts[item.text], item.size_mm);
        double left = at.x;
        if (item.side == TextSide::kMiddle) left -= width / 2;
        if (item.side == TextSide::kLeft) left -= width;
        areas.push_back({left, at.y - item.size_mm / 2, left + width, at.y + item.size_mm / 2});
    }
    return areas;
}

TEST_F(AnnotationsTest, NoNumberCoversAnotherOne) {
    options.hasNumbers = true;
    std::vector<Node> nodes;
    for (int i = 0; i < 5000; ++i) nodes.push_back(GivenNode(static_cast<float>(i) * 0.004F, 5));
    made.Add(nodes);
    made.Compute();
    made.Link();
    const std::vector<SheetArea> areas = AreasOfTexts(Made());
    EXPECT_GT(areas.size(), 40U);
    EXPECT_LT(areas.size(), 300U);
    for (size_t i = 0; i < areas.size(); ++i) {
        for (size_t j = 0; j < i; ++j) {
            const bool isApart = areas[i].left > areas[j].right || areas[j].left > areas[i].right ||
                                 areas[i].top > areas[j].bottom || areas[j].top > areas[i].bottom;
            EXPECT_TRUE(isApart) << i << ' ' << j;
        }
    }
    EXPECT_GT(AreasOfTexts(Made(1000, {10, 5})).size(), 40U) << "zoomed, those there have room";
}

TEST_F(AnnotationsTest, NamesGoToTheOtherSideOfTheirStrakesBeforeTheyAreLeftOut) {
    options.hasPanelNames = true;
    made.Add({GivenNode(0, 9.9F), GivenNode(20, 9.9F)});
    made.Add({GivenNode(0, 9.95F), GivenNode(20, 9.95F)});
    made.Compute();
    made.Link();
    texts.panelNames = {L"Deck", L"Side", L"Beam", L"Web"};
    const Figure figure = Made();
    EXPECT_EQ(TextsOf(figure), (std::multiset<std::wstring>{L"Beam", L"Deck", L"Side"}));
    EXPECT_GT(PlaceOf(figure, L"Beam").y, OnSheet(figure, {10, 9.9}).y) << "below";
}

TEST_F(AnnotationsTest, DamagedSectionsAddNothingOutside) {
    options = {true, true, true, true, true, true};
    made.NodeOf(1, 1).y = std::numeric_limits<float>::quiet_NaN();
    made.ItemOf(1, 1).y2 = 1e30F;
    texts.plates[0].to_m = std::numeric_limits<double>::infinity();
    ExpectOnSheet(Made());
    ExpectOnSheet(Made(1e9));
    const Section empty{};
    Figure figure = MakeFigure(300, 200, 10, {0, 0});
    AddAnnotations(figure, empty, {}, options);
    ExpectOnSheet(figure);
}

TEST_F(AnnotationsTest, LinesBetweenTwoAbscissasFollowTheStrake) {
    test::TestSection bent;
    bent.Add({GivenNode(0, 0), GivenNode(4, 0), GivenNode(4, 3)});
    bent.Compute();
    bent.Link();
    const auto lines = LinesBetween(bent.At(1), 1, 6, {0.01});
    ASSERT_EQ(lines.size(), 1U);
    ASSERT_EQ(lines[0].size(), 3U);
    EXPECT_DOUBLE_EQ(lines[0][0].y, 1);
    EXPECT_DOUBLE_EQ(lines[0][1].y, 4);
    EXPECT_DOUBLE_EQ(lines[0][2].z, 2);
    EXPECT_TRUE(LinesBetween(bent.At(1), 7, 9, {0.01}).empty());
    EXPECT_TRUE(LinesBetween(bent.At(1), 3, 3, {0.01}).empty());
}

}  // namespace
}  // namespace corvane
