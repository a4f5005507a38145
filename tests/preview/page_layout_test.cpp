// A page: the model true to scale, the title block at its foot, the table beside it.
#include "preview/page_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "preview/figure_text.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

constexpr int32_t kInk = 0x00123456;
constexpr FigurePen kPen{FigureLayer::kPlate, kInk, 0.5};

// A4 across, with margins of 10 mm, and a model of 30 m by 20 m around (0, 10) m.
PageContents Contents() {
    PageContents contents{};
    contents.width_mm = 297;
    contents.height_mm = 210;
    contents.margins = {10, 10, 10, 10};
    contents.title = {L"Aurora Bay", L"aurora_bay.ve2", L"Midship section", L"108.500 m",
                      L"141",        L"2 March 2026",   L"Corvane 1.0"};
    contents.extent = {-15, 0, 15, 20};
    contents.draw = [](Figure& figure) {
        AddLine(figure, kPen, std::vector<ShipPoint>{{-15, 0}, {15, 0}, {15, 20}});
    };
    return contents;
}

std::vector<SheetPoint> InkOf(const Figure& figure) {
    std::vector<SheetPoint> points;
    for (const FigureItem& item : figure.items) {
        if (item.colour != kInk) continue;
        for (const SheetPoint& point : PointsOf(figure, item)) points.push_back(point);
    }
    return points;
}

// What a text is at, and how high; nothing when the page does not have it.
const FigureItem* TextItem(const Figure& figure, const std::wstring& text) {
    const auto item = std::ranges::find_if(figure.items, [&](const FigureItem& candidate) {
        return candidate.shape == FigureShape::kText && figure.texts[candidate.text] == text;
    });
    return item == figure.items.end() ? nullptr : &*item;
}

bool Has(const Page& page, const std::wstring& text) {
    return TextItem(page.figure, text) != nullptr;
}

void ExpectOnSheet(const Page& page, const PageContents& contents) {
    const SheetArea sheet{contents.margins.left, contents.margins.top,
                          contents.width_mm - contents.margins.right,
                          contents.height_mm - contents.margins.bottom};
    for (const FigureItem& item : page.figure.items) {
        for (const SheetPoint& point : PointsOf(page.figure, item)) {
            EXPECT_GE(point.x, sheet.left - 1e-9);
            EXPECT_LE(point.x, sheet.right + 1e-9);
            EXPECT_GE(point.y, sheet.top - 1e-9);
            EXPECT_LE(point.y, sheet.bottom + 1e-9);
        }
    }
}

TEST(PageLayout, MetreAtOneToFiftyIsTwentyMillimetres) {
    PageContents contents = Contents();
    contents.extent = {0, 0, 1, 2};
    contents.scale = 50;
    contents.draw = [](Figure& figure) {
        AddLine(figure, kPen, std::vector<ShipPoint>{{0, 0}, {1, 0}, {1, 2}});
    };
    const Page page = MakePage(contents);
    const std::vector<SheetPoint> ink = InkOf(page.figure);
    ASSERT_EQ(ink.size(), 3U);
    EXPECT_NEAR(ink[1].x - ink[0].x, 20, 1e-9);
    EXPECT_NEAR(ink[1].y - ink[2].y, 40, 1e-9) << "upwards";
    EXPECT_FALSE(page.isCutOff);
    EXPECT_TRUE(Has(page, L"1:50"));
}

TEST(PageLayout, EveryScaleIsTrueOnPaper) {
    for (const int scale : kPageScales) {
        PageContents contents = Contents();
        contents.scale = scale;
        contents.draw = [](Figure& figure) {
            AddLine(figure, kPen, std::vector<ShipPoint>{{-0.5, 10}, {0.5, 10}});
        };
        const Page page = MakePage(contents);
        const std::vector<SheetPoint> ink = InkOf(page.figure);
        ASSERT_EQ(ink.size(), 2U) << scale;
        EXPECT_NEAR(ink[1].x - ink[0].x, 1000.0 / scale, 1e-9) << scale;
        EXPECT_EQ(page.scale, scale);
        EXPECT_TRUE(Has(page, L"1:" + std::to_wstring(scale)));
    }
}

TEST(PageLayout, ModelIsInTheMiddleOfItsPart) {
    PageContents contents = Contents();
    contents.scale = 200;
    const Page page = MakePage(contents);
    const SheetArea& window = page.figure.window;
    const std::vector<SheetPoint> ink = InkOf(page.figure);
    ASSERT_EQ(ink.size(), 3U);
    EXPECT_NEAR((ink[0].x + ink[1].x) / 2, (window.left + window.right) / 2, 1e-9);
    EXPECT_NEAR((ink[1].y + ink[2].y) / 2, (window.top + window.bottom) / 2, 1e-9);
    // 30 m at 1:200 are 150 mm of the 277 mm between the margins.
    EXPECT_NEAR(ink[1].x - ink[0].x, 150, 1e-9);
}

TEST(PageLayout, FitIsTheLargestWholeScaleThatShowsEverything) {
    const PageContents contents = Contents();
    const Page page = MakePage(contents);
    EXPECT_EQ(page.scale, std::floor(page.scale));
    EXPECT_FALSE(page.isCutOff);
    const SheetArea& window = page.figure.window;
    const double height = window.bottom - window.top;
    EXPECT_LE(20000 / page.scale, height);
    EXPECT_GT(20000 / (page.scale - 1), height) << "one step larger it has no room";
    EXPECT_TRUE(Has(page, L"1:" + std::to_wstring(std::lround(page.scale))));
    EXPECT_EQ(InkOf(page.figure).size(), 3U);
    ExpectOnSheet(page, contents);
}

TEST(PageLayout, ModelThatIsLargerThanThePageIsCutOffAndThePageSaysSo) {
    PageContents contents = Contents();
    contents.scale = 50;
    const Page page = MakePage(contents);
    EXPECT_TRUE(page.isCutOff);
    const FigureItem* remark = TextItem(page.figure, L"Cut off at the page's edge");
    ASSERT_NE(remark, nullptr);
    const double top = PointsOf(page.figure, *remark).front().y - remark->size_mm / 2;
    EXPECT_GT(top, page.figure.window.bottom) << "below the model";
    // 30 m at 1:50 are 600 mm: nothing of it is beyond the window.
    for (const SheetPoint& point : InkOf(page.figure)) {
        EXPECT_TRUE(IsInWindow(page.figure, point));
    }
    ExpectOnSheet(page, contents);
    contents.scale = 200;
    EXPECT_FALSE(Has(MakePage(contents), L"Cut off at the page's edge"));
}

TEST(PageLayout, TitleBlockHasEverythingBelowTheModel) {
    const PageContents contents = Contents();
    const Page page = MakePage(contents);
    for (const wchar_t* text : {L"Ship", L"Aurora Bay", L"Database", L"aurora_bay.ve2", L"Model",
                                L"Midship section", L"X", L"108.500 m", L"Frame", L"141", L"Scale",
                                L"Date", L"2 March 2026", L"Program", L"Corvane 1.0"}) {
        const FigureItem* item = TextItem(page.figure, text);
        ASSERT_NE(item, nullptr) << test::Narrow(text);
        EXPECT_GT(PointsOf(page.figure, *item).front().y, page.figure.window.bottom);
    }
}

TEST(PageLayout, TextsThatAreTooLongForTheirFieldAreShortened) {
    PageContents contents = Contents();
    contents.title.ship = std::wstring(300, L'W');
    const Page page = MakePage(contents);
    const auto shortened = std::ranges::find_if(
        page.figure.texts, [](const std::wstring& text) { return text.starts_with(L"WW"); });
    ASSERT_NE(shortened, page.figure.texts.end());
    EXPECT_TRUE(shortened->ends_with(L"W..."));
    // Three tenths of the 277 mm between the margins, without the padding at both sides.
    EXPECT_LE(TextWidth(*shortened, 3), 0.3 * 277 - 2);
    EXPECT_GT(TextWidth(*shortened + L"W", 3), 0.3 * 277 - 2);
}

TEST(PageLayout, TableIsAtTheRightSide) {
    PageContents contents = Contents();
    contents.table = {{L"Area", L"3.441 m2"}, {L"Neutral axis", L"8.350 m"}};
    const Page page = MakePage(contents);
    for (const PageTableLine& line : contents.table) {
        for (const std::wstring& text : {line.label, line.value}) {
            const FigureItem* item = TextItem(page.figure, text);
            ASSERT_NE(item, nullptr) << test::Narrow(text);
            EXPECT_GT(PointsOf(page.figure, *item).front().x, page.figure.window.right);
        }
    }
    EXPECT_EQ(page.hiddenLines, 0U);
    EXPECT_LT(page.figure.window.right, MakePage(Contents()).figure.window.right);
    ExpectOnSheet(page, contents);
}

TEST(PageLayout, TableThatIsTooLongSaysHowMuchIsMissing) {
    PageContents contents = Contents();
    for (int i = 0; i < 500; ++i) contents.table.push_back({std::to_wstring(i), L"value"});
    const Page page = MakePage(contents);
    EXPECT_GT(page.hiddenLines, 400U);
    EXPECT_TRUE(Has(page, std::to_wstring(page.hiddenLines) + L" more are not shown"));
    EXPECT_TRUE(Has(page, std::to_wstring(499 - page.hiddenLines)));
    EXPECT_FALSE(Has(page, std::to_wstring(500 - page.hiddenLines)));
    ExpectOnSheet(page, contents);
}

TEST(PageLayout, LongLineOfTheTableIsShortened) {
    PageContents contents = Contents();
    contents.table = {{std::wstring(100, L'L'), std::wstring(100, L'V')}};
    const Page page = MakePage(contents);
    double width = 0;
    for (const std::wstring& text : page.figure.texts) {
        if (text.starts_with(L"LL") || text.starts_with(L"VV")) width += TextWidth(text, 2.4);
    }
    EXPECT_LE(width, 70);
    EXPECT_GT(width, 50);
}

TEST(PageLayout, WithoutAnExtentThereIsTheTitleBlockAlone) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    for (const ShipBox& extent :
         {ShipBox{}, ShipBox{0, 0, kNaN, 1}, ShipBox{0, 0, 1e30, 1}, ShipBox{-1e30, 0, 1, 1}}) {
        PageContents contents = Contents();
        contents.extent = extent;
        const Page page = MakePage(contents);
        EXPECT_EQ(page.scale, 0);
        EXPECT_TRUE(InkOf(page.figure).empty());
        EXPECT_TRUE(Has(page, L"Aurora Bay"));
    }
}

TEST(PageLayout, ExtentWithoutBreadthIsShownAtFullSize) {
    PageContents contents = Contents();
    contents.extent = {2, 3, 2, 3};
    EXPECT_EQ(MakePage(contents).scale, 1);
    contents.extent = {2, 3, 2, 13};
    EXPECT_GT(MakePage(contents).scale, 10000 / 210.0);
}

TEST(PageLayout, SmallAndEmptyPagesAreNoFault) {
    PageContents contents = Contents();
    contents.width_mm = 40;
    contents.height_mm = 30;
    contents.margins = {2, 2, 2, 2};
    contents.table = {{L"Area", L"3.441 m2"}};
    const Page small = MakePage(contents);
    EXPECT_GT(small.scale, 0);
    ExpectOnSheet(small, contents);
    for (const double size : {0.0, 15.0, -3.0}) {
        contents = Contents();
        contents.width_mm = size;
        EXPECT_TRUE(MakePage(contents).figure.items.empty()) << size;
    }
}

}  // namespace
}  // namespace corvane
