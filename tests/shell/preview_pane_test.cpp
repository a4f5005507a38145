// What the selection of a model does to the preview.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "bsd/bsd_file.h"
#include "database/editing.h"
#include "database/listing.h"
#include "preview/section_geometry.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/kept_picture.h"
#include "tests/shell/sample_models.h"
#include "tests/shell/shown_database.h"

namespace corvane {
namespace {

using test::Block;
using test::Database;
using test::DefineBsd;
using test::FakeView;
using test::KeptPicture;
using test::RecordedReports;
using test::ShownDatabase;

int timesTraced;

void ShipOfOnePanel() {
    DefineBsd();
    Panel panel;
    panel.nodes.resize(2);
    shell.preview.section.panels.assign(1, panel);
}

// The drawing library, which only counts its drawings.
struct CountingLibrary {
    test::FakeFunction<decltype(QuickCompute)> quickCompute{
        QuickCompute, [](Section*, DrawingParameters*) { return int16_t{0}; }};
    test::FakeFunction<decltype(ScaleWindow)> scaleWindow{
        ScaleWindow, [](WindowHandle, DeviceHandle, float, float, float, float, int16_t) {}};
    test::FakeFunction<decltype(TraceSection)> traceSection{
        TraceSection, [](DeviceHandle, Section*, DrawingParameters*) { ++timesTraced; }};
    Picture picture;

    CountingLibrary() {
        timesTraced = 0;
        picture.width = picture.height = 1000;
        picture.clear = [](Picture&) {};
        picture.setFont = [](Picture&, float) {};
        picture.systemColour = [](int) { return int32_t{0}; };
    }
};

// A copy of the sample ship, with the preview on.
struct ShownSample {
    FakeView view;
    test::TemporaryFolder folder;
    std::vector<ModelRow> rows;

    ShownSample() {
        shell.database.path = folder.File(L"ship.ve2");
        test::WriteFileBytes(shell.database.path, test::ReadFileBytes(test::SamplePath()));
        LoadBsdFromDatabase(shell.database.path, shell.database.bsd);
        FakeView::previewOn = true;
        rows = FillModelList(shell.database.path);
        RecordedReports::events.clear();
    }
};

TEST(PreviewPane, SelectedSectionIsReadForThePreview) {
    const ShownSample sample;
    ShowInPreview(sample.rows[1]);
    EXPECT_TRUE(shell.preview.isShown);
    EXPECT_EQ(shell.preview.section.name, sample.rows[1].name);
    EXPECT_TRUE(RecordedReports::Happened("redraw preview"));
    EXPECT_FALSE(RecordedReports::Happened("clear preview"));
    EXPECT_TRUE(RecordedReports::Happened("pointer reset"));
    const float x = ModelPosition(shell.database.path, 2);
    EXPECT_EQ(FakeView::position, FormatMessage(kMsgPosition, {x}));
}

TEST(PreviewPane, SectionWithoutPlatingClearsThePictureAndSaysWhy) {
    const ShownSample sample;
    ShowInPreview(sample.rows[0]);
    std::wstring path = shell.database.path;
    SectionModel bare;
    bare.name = L"Bare";
    bare.x_m = 12;
    bare.panels.resize(2);
    bare.panels[0].nodes.resize(1);
    ASSERT_TRUE(ReplaceSection(path, bare, 2));
    RecordedReports::events.clear();
    ShowInPreview(FillModelList(path).at(1));
    EXPECT_FALSE(shell.preview.isShown);
    EXPECT_TRUE(RecordedReports::Happened("clear preview"));
    EXPECT_FALSE(RecordedReports::Happened("redraw preview"));
    EXPECT_EQ(FakeView::whyNoPicture, L"This section has no plating to draw.");
    EXPECT_EQ(FakeView::position, FormatMessage(kMsgPosition, {12.0F}));
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST(PreviewPane, SectionOfAShipWithoutDataClearsThePictureAndSaysWhy) {
    const ShownSample sample;
    for (const int item : {1, 2, 3, 9}) {
        const float value = std::exchange(shell.database.bsd.MainData(item), 0.0F);
        RecordedReports::events.clear();
        ShowInPreview(sample.rows[0]);
        EXPECT_FALSE(shell.preview.isShown) << item;
        EXPECT_TRUE(RecordedReports::Happened("clear preview")) << item;
        EXPECT_EQ(FakeView::whyNoPicture, GetMessage(kMsgNoShipData)) << item;
        shell.database.bsd.MainData(item) = value;
    }
    ShowInPreview(sample.rows[0]);
    EXPECT_TRUE(shell.preview.isShown) << "as soon as the data are there";
}

TEST(PreviewPane, WithoutThePreviewOnlyThePositionIsRead) {
    ShownDatabase window;
    window.Open(Database(2));
    const std::vector<ModelRow> rows = FillModelList(shell.database.path);
    ShowInPreview(rows[1]);
    EXPECT_FALSE(shell.preview.isShown);
    EXPECT_TRUE(shell.preview.section.name.empty());
    EXPECT_TRUE(RecordedReports::Happened("clear preview"));
    EXPECT_FALSE(RecordedReports::Happened("redraw preview"));
    EXPECT_EQ(FakeView::whyNoPicture, L"") << "the user does not want one";
    EXPECT_EQ(FakeView::position, L"X = 20 m");
}

TEST(PreviewPane, BulkheadsWithoutARowAndTorsionModelsClearThePreviewWithoutABoxAndSayWhy) {
    const std::pair<const char*, int32_t> kinds[] = {{"BHA", kMsgNoBulkheads},
                                                     {"TORSION", kMsgTorsionLayout}};
    for (const auto& [keyword, why] : kinds) {
        ShownDatabase window;
        window.Open("DATABASE\r\n" + Block(1, "SECTION", "Midship", " 100 ") +
                    Block(2, keyword, "Other", " 30 "));
        FakeView::previewOn = true;
        const std::vector<ModelRow> rows = FillModelList(shell.database.path);
        ShowInPreview(rows[0]);
        RecordedReports::events.clear();
        ShowInPreview(rows[1]);
        EXPECT_FALSE(shell.preview.isShown) << keyword;
        EXPECT_FALSE(shell.preview.areBulkheadsShown) << keyword;
        EXPECT_TRUE(RecordedReports::Happened("clear preview"));
        EXPECT_TRUE(RecordedReports::Of("warning").empty());
        EXPECT_EQ(FakeView::whyNoPicture, GetMessage(why));
        EXPECT_EQ(shell.preview.section.name, L"Midship") << "no section is read";
        const float x = ModelPosition(shell.database.path, 2);
        EXPECT_EQ(FakeView::position, FormatMessage(kMsgPosition, {x}));
    }
}

TEST(PreviewPane, BulkheadArrangementIsDrawn) {
    const ShownSample sample;
    const auto row = std::ranges::find(sample.rows, ModelKind::kBulkhead, &ModelRow::kind);
    ASSERT_NE(row, sample.rows.end());
    ShowInPreview(*row);
    EXPECT_TRUE(shell.preview.areBulkheadsShown);
    EXPECT_FALSE(shell.preview.isShown);
    EXPECT_TRUE(RecordedReports::Happened("redraw preview"));
    KeptPicture kept;
    DrawPreview(kept.picture);
    EXPECT_EQ(kept.clearedCount, 1);
    EXPECT_GT(kept.drawn.items.size(), 20U);
    EXPECT_TRUE(kept.Says(shell.preview.bulkheads.bulkheads[0].name));
    const double fitted = kept.picture.scaleWidth;
    ZoomView(kept.picture, 2, 0.5, 0.5);
    DrawPreview(kept.picture);
    EXPECT_DOUBLE_EQ(kept.picture.scaleWidth, fitted / 2);
    ShowInPreview(sample.rows[0]);
    EXPECT_FALSE(shell.preview.areBulkheadsShown);
    EXPECT_TRUE(shell.preview.isShown);
}

// The least distance [mm] of the plating that is drawn from a place on the sheet.
double PlatingFrom(const Figure& figure, SheetPoint place) {
    double least = 1e9;
    for (const FigureItem& item : figure.items) {
        if (item.layer != FigureLayer::kPlate || item.count < 2) continue;
        const std::span<const SheetPoint> points = PointsOf(figure, item);
        for (size_t i = 1; i < points.size(); ++i) {
            const double x = points[i].x - points[i - 1].x;
            const double y = points[i].y - points[i - 1].y;
            const double aheadX = place.x - points[i - 1].x;
            const double aheadY = place.y - points[i - 1].y;
            const double square = x * x + y * y;
            const double t =
                square > 0 ? std::clamp((aheadX * x + aheadY * y) / square, 0.0, 1.0) : 0;
            least = std::min(least, std::hypot(aheadX - t * x, aheadY - t * y));
        }
    }
    return least;
}

bool IsAllAroundTheSheet(const Figure& figure) {
    return std::ranges::all_of(figure.points, [&](const SheetPoint& point) {
        return std::abs(point.x - figure.width_mm / 2) < figure.width_mm &&
               std::abs(point.y - figure.height_mm / 2) < figure.height_mm;
    });
}

// Zooms a million times to a place of the shown section and back, as the wheel does: the place
// stays where the pointer is, plating is there, and it is hit there and not beside it.
void ExpectPlatingAtAMillionTimes(ShipPoint place) {
    constexpr int kSteps = 76;
    constexpr double kPixel_mm = 25.4 / 96;
    KeptPicture kept;
    DrawPreview(kept.picture);
    const Picture first = kept.picture;
    const auto partX = [&] { return (place.y - kept.picture.scaleLeft) / kept.picture.scaleWidth; };
    const auto partY = [&] { return (place.z - kept.picture.scaleTop) / kept.picture.scaleHeight; };
    const double x = partX();
    const double y = partY();
    for (int i = 0; i < kSteps; ++i) {
        ZoomView(kept.picture, 1.2, x, y);
        DrawPreview(kept.picture);
        ASSERT_NEAR((partX() - x) * WidthOf_mm(kept.picture), 0, kPixel_mm / 100) << i;
        ASSERT_NEAR((partY() - y) * HeightOf_mm(kept.picture), 0, kPixel_mm / 100) << i;
    }
    EXPECT_GT(ZoomOf(kept.picture), 1e6);
    EXPECT_LT(PlatingFrom(kept.drawn, OnSheet(kept.drawn, place)), kPixel_mm);
    EXPECT_TRUE(IsAllAroundTheSheet(kept.drawn));
    LibraryView view;
    ComputeSection(shell.preview.section, view);
    const double reach_m = 5 * kPixel_mm / kept.drawn.mmPerMetre;
    const SectionHit hit = FindHit(view.section, place, reach_m);
    EXPECT_EQ(hit.kind, HitKind::kPlating);
    EXPECT_LT(hit.distance_m, reach_m / 5);
    // One of two directions at a right angle leads away from the plating.
    const auto isBeside = [&](double right, double up) {
        const ShipPoint at{place.y + right * reach_m, place.z + up * reach_m};
        return FindHit(view.section, at, reach_m).kind != HitKind::kPlating;
    };
    EXPECT_TRUE(isBeside(10, 7) || isBeside(-7, 10));
    for (int i = 0; i < kSteps; ++i) {
        ZoomView(kept.picture, 1 / 1.2, x, y);
        DrawPreview(kept.picture);
    }
    EXPECT_TRUE(kept.picture.view.isFitted);
    EXPECT_EQ(kept.picture.scaleLeft, first.scaleLeft);
    EXPECT_EQ(kept.picture.scaleWidth, first.scaleWidth);
}

TEST(PreviewPane, SectionIsRightAMillionTimesLargerAndBack) {
    const ShownSample sample;
    ShowInPreview(sample.rows[0]);
    ASSERT_TRUE(shell.preview.isShown);
    LibraryView view;
    ComputeSection(shell.preview.section, view);
    int lines = 0;
    int arcs = 0;
    for (const Strake& strake : StrakesOf(view.section)) {
        for (const StrakeItem& item : StrakeItemsOf(strake)) {
            if (!(item.length > 0)) continue;
            int& count = item.arcRadius > 0 ? arcs : lines;
            if (++count > 3) continue;
            SCOPED_TRACE(item.arcRadius > 0 ? "arc" : "line");
            for (const double part : {0.0, 0.37, 0.9}) {
                ExpectPlatingAtAMillionTimes(SpotOn(item, part).at);
            }
        }
    }
    EXPECT_GT(lines, 0);
    EXPECT_GT(arcs, 0);
}

TEST(PreviewPane, NextBulkheadGoesThroughThemAndBackToAll) {
    const ShownSample sample;
    const auto row = std::ranges::find(sample.rows, ModelKind::kBulkhead, &ModelRow::kind);
    ASSERT_NE(row, sample.rows.end());
    ShowInPreview(*row);
    const size_t count = shell.preview.bulkheads.bulkheads.size();
    ASSERT_GE(count, 1U);
    for (size_t i = 1; i <= count; ++i) {
        RecordedReports::events.clear();
        ShowNextBulkhead();
        EXPECT_EQ(shell.preview.bulkhead, i);
        EXPECT_TRUE(RecordedReports::Happened("redraw preview"));
    }
    ShowNextBulkhead();
    EXPECT_EQ(shell.preview.bulkhead, 0U);
    ShowInPreview(sample.rows[0]);
    ShowNextBulkhead();
    EXPECT_EQ(shell.preview.bulkhead, 0U) << "a section has none";
}

TEST(PreviewPane, LegendAndScaleBarAreOnBulkheads) {
    const ShownSample sample;
    const auto row = std::ranges::find(sample.rows, ModelKind::kBulkhead, &ModelRow::kind);
    ASSERT_NE(row, sample.rows.end());
    ShowInPreview(*row);
    KeptPicture kept;
    DrawPreview(kept.picture);
    const size_t plain = kept.drawn.texts.size();
    shell.preview.options.hasLegend = true;
    DrawPreview(kept.picture);
    EXPECT_GT(kept.drawn.texts.size(), plain + 2);
    shell.preview.options = {};
    shell.preview.options.hasScaleBar = true;
    DrawPreview(kept.picture);
    EXPECT_EQ(kept.drawn.texts.size(), plain + 1);
}

TEST(PreviewPane, SwitchesAndSizeStayWhenAnotherDatabaseIsOpened) {
    const ShownSample sample;
    ShowInPreview(sample.rows[0]);
    shell.preview.options.hasAxes = true;
    shell.preview.isLarge = true;
    LoadDatabase(shell.database.path);
    EXPECT_FALSE(HasPicture(shell.preview));
    EXPECT_TRUE(shell.preview.section.name.empty());
    EXPECT_TRUE(shell.preview.options.hasAxes);
    EXPECT_TRUE(shell.preview.isLarge);
}

TEST(PreviewPane, SectionThatCannotBeReadClearsThePreview) {
    ShownDatabase window;
    window.Open(Database(1));
    FakeView::previewOn = true;
    ModelRow row = FillModelList(shell.database.path).at(0);
    ShowInPreview(row);
    row.tag = 7;
    ShowInPreview(row);
    EXPECT_FALSE(shell.preview.isShown);
    EXPECT_TRUE(RecordedReports::Happened("clear preview"));
    EXPECT_EQ(FakeView::whyNoPicture, L"") << "a box has said it";
}

TEST(PreviewPane, DeselectingClearsThePreview) {
    const ShownSample sample;
    ShowInPreview(sample.rows[0]);
    ASSERT_TRUE(shell.preview.isShown);
    ClearPreviewPane();
    EXPECT_EQ(FakeView::whyNoPicture, L"");
    EXPECT_FALSE(shell.preview.isShown);
    EXPECT_TRUE(RecordedReports::Happened("clear preview"));
}

TEST(PreviewPane, RepaintDrawsFromMemoryNotFromTheFile) {
    const ShownSample sample;
    CountingLibrary library;
    ShowInPreview(sample.rows[0]);
    test::WriteFileBytes(shell.database.path, "no database any more");
    RecordedReports::events.clear();
    DrawPreview(library.picture);
    DrawPreview(library.picture);
    EXPECT_EQ(timesTraced, 2);
    EXPECT_TRUE(RecordedReports::events.empty()) << "nothing is read, nothing reported";
}

TEST(PreviewPane, NothingIsDrawnWhenNoSectionIsShown) {
    ShownDatabase window;
    CountingLibrary library;
    ShipOfOnePanel();
    DrawPreview(library.picture);
    EXPECT_EQ(timesTraced, 0);
    shell.preview.isShown = true;
    DrawPreview(library.picture);
    EXPECT_EQ(timesTraced, 1);
}

TEST(PreviewPane, UndefinedBsdLeavesThePictureAlone) {
    ShownDatabase window;
    CountingLibrary library;
    library.picture.clear = [](Picture&) { ADD_FAILURE() << "cleared"; };
    ShipOfOnePanel();
    shell.preview.isShown = true;
    shell.database.bsd.MainData(9) = 0;
    DrawPreview(library.picture);
    EXPECT_EQ(timesTraced, 0);
}

}  // namespace
}  // namespace corvane
