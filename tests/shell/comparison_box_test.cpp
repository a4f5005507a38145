// What the box of a comparison lists, shows, draws and copies, without a window.
#include "shell/comparison_box.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "database/listing.h"
#include "platform/system.h"
#include "report/messages.h"
#include "shell/state.h"
#include "tests/shell/compared_ships.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/kept_picture.h"

namespace corvane {
namespace {

using test::FakeView;
using test::KeptPicture;
using test::Narrow;
using test::RecordedReports;
using test::WriteFileBytes;
using Cells = std::vector<std::wstring>;

// What is drawn in a colour.
struct Drawn {
    int items = 0;
    ShipBox extent;
    double widest_mm = 0;
};

struct ComparisonBoxTest : testing::Test {
    FakeView view;
    test::TemporaryFolder folder;
    Comparison comparison;
    ComparisonBox box{comparison};

    ComparisonBoxTest() {
        comparison.before = folder.File(L"other.ve2");
        comparison.beforeName = L"other.ve2";
        comparison.now = folder.File(L"ship.ve2");
        WriteFileBytes(comparison.before, test::ShipBefore());
        WriteFileBytes(comparison.now, test::ShipNow());
        Compare();
    }
    void Compare() {
        EXPECT_TRUE(CompareFiles(comparison));
        ListDifferences(box);
        RecordedReports::events.clear();
    }
    Figure Draw() {
        KeptPicture kept;
        DrawComparison(box.picture, kept.picture);
        return kept.drawn;
    }
    static bool HasPoint(const Figure& figure, int32_t colour, ShipPoint wanted) {
        return std::ranges::any_of(figure.items, [&](const FigureItem& item) {
            return item.colour == colour &&
                   std::ranges::any_of(PointsOf(figure, item), [&](const SheetPoint& point) {
                       const ShipPoint at = InShip(figure, point);
                       return std::hypot(at.y - wanted.y, at.z - wanted.z) < 0.001;
                   });
        });
    }
    static Drawn In(const Figure& figure, int32_t colour) {
        Drawn found;
        for (const FigureItem& item : figure.items) {
            if (item.colour != colour) continue;
            ++found.items;
            found.widest_mm = std::max(found.widest_mm, item.size_mm);
            for (const SheetPoint& point : PointsOf(figure, item)) {
                const ShipPoint at = InShip(figure, point);
                found.extent = Union(found.extent, {at.y, at.z, at.y, at.z});
            }
        }
        return found;
    }
};

// ---- Lists -------------------------------------------------------------------------------------

TEST_F(ComparisonBoxTest, RowsAreTheShipAndTheModelsThatDiffer) {
    ASSERT_EQ(box.rows.size(), size_t{test::kComparedRows});
    EXPECT_EQ(DifferingCells(box, test::kShipChanged),
              (Cells{L"Changed", L"", L"Basic Ship Data", L"", L""}));
    EXPECT_EQ(DifferingCells(box, test::kSectionChanged),
              (Cells{L"Changed", L" 1", L"Engine room, frame 30", L"Section", L"20.700"}));
    EXPECT_EQ(DifferingCells(box, test::kSectionRenamed),
              (Cells{L"Renamed", L" 5", L"Midship section", L"Section", L"108.500"}));
    EXPECT_EQ(DifferingCells(box, test::kBulkheadRenamed)[3], L"Bulkhead");
    EXPECT_EQ(DifferingCells(box, test::kSectionAdded),
              (Cells{L"Added", L"15", L"Fore peak, frame 280", L"Section", L"208.700"}));
    EXPECT_EQ(DifferingCells(box, test::kSectionRemoved),
              (Cells{L"Removed", L" 3", L"Hold 6, frame 91", L"Section", L"68.700"}));
    EXPECT_EQ(DifferingCells(box, test::kTorsionRemoved)[4], L"") << "it has no position";
    EXPECT_EQ(DifferingColumns().size(), DifferingCells(box, 0).size());
}

TEST_F(ComparisonBoxTest, ValuesAreThoseOfTheShownRow) {
    ShowRow(box, test::kSectionChanged);
    ASSERT_EQ(box.values.size(), 1U);
    EXPECT_EQ(ValueCells(box, 0),
              (Cells{L"Panel 5 'Sheer strake', node 2", L"z [m]", L"19.6", L"21.6"}));
    EXPECT_EQ(ValueColumns().size(), 4U);
    ShowRow(box, test::kShipChanged);
    ASSERT_EQ(box.values.size(), 1U);
    EXPECT_EQ(ValueCells(box, 0)[2], L"Aurora Bay");
    ShowRow(box, test::kSectionAdded);
    EXPECT_TRUE(box.values.empty());
    ShowRow(box, box.rows.size());
    EXPECT_TRUE(box.values.empty());
    EXPECT_EQ(box.picture.why, L"");
}

TEST_F(ComparisonBoxTest, FileThatHasChangedShowsThatInsteadOfAnotherModel) {
    WriteFileBytes(comparison.now, test::ShipBefore() + "\r\n");
    ShowRow(box, test::kSectionChanged);
    EXPECT_TRUE(box.values.empty());
    EXPECT_EQ(box.picture.why, WhyOutdated(comparison));
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST_F(ComparisonBoxTest, SelectedRowsAreCopiedWithTheirTitles) {
    CopyDiffering(box, {test::kSectionChanged, test::kTorsionRemoved});
    EXPECT_EQ(Narrow(FakeView::copied).substr(0, 27), "Comparison with other.ve2\r\n");
    EXPECT_TRUE(
        FakeView::copied.ends_with(L"\r\n\r\nChange\tId\tModel\tType\tX\r\n"
                                   L"Changed\t 1\tEngine room, frame 30\tSection\t20.700\r\n"
                                   L"Removed\t14\tTorsion model, holds 5 to 3\tTorsion\t\r\n"));
    ShowRow(box, test::kSectionChanged);
    CopyValues(box, {0});
    EXPECT_TRUE(
        FakeView::copied.ends_with(L"\r\n\r\nWhere\tValue\tBefore\tNow\r\n"
                                   L"Panel 5 'Sheer strake', node 2\tz [m]\t19.6\t21.6\r\n"));
    FakeView::copied = L"as it was";
    CopyValues(box, {});
    EXPECT_EQ(FakeView::copied, L"as it was");
}

TEST_F(ComparisonBoxTest, WholeComparisonIsCopied) {
    Report report;
    ASSERT_TRUE(ReportOf(comparison, report));
    CopyComparison(comparison);
    EXPECT_EQ(FakeView::copied, ReportAsText(report));
}

// ---- Picture -----------------------------------------------------------------------------------

TEST_F(ComparisonBoxTest, SectionIsDrawnOverWhatItWasAndBothFit) {
    ShowRow(box, test::kSectionChanged);
    EXPECT_EQ(box.picture.label, GetMessage(kMsgBothSections));
    const Figure figure = Draw();
    const Drawn before = In(figure, kBeforeColour);
    const Drawn now = In(figure, kNowColour);
    EXPECT_GT(before.items, 50);
    EXPECT_EQ(before.items, now.items);
    EXPECT_GT(before.widest_mm, now.widest_mm + 0.3);
    // The corner of the deck, which was moved.
    constexpr ShipPoint kCornerBefore{14.8, 19.6};
    constexpr ShipPoint kCornerNow{14.8, 21.6};
    EXPECT_TRUE(HasPoint(figure, kBeforeColour, kCornerBefore));
    EXPECT_FALSE(HasPoint(figure, kBeforeColour, kCornerNow));
    EXPECT_FALSE(HasPoint(figure, kNowColour, kCornerBefore));
    EXPECT_TRUE(HasPoint(figure, kNowColour, kCornerNow));
    // That of now is on top of the other one, and all of both is in the picture.
    EXPECT_EQ(figure.items.front().colour, kBeforeColour);
    EXPECT_EQ(figure.items.back().colour, kNowColour);
    const double top = std::max(before.extent.top, now.extent.top);
    const double above = OnSheet(figure, {0, top}).y;
    EXPECT_GT(above, 0);
    EXPECT_LT(above, 20);
    EXPECT_TRUE(std::ranges::none_of(figure.items, [](const FigureItem& item) {
        return item.layer == FigureLayer::kCompartment;
    }));
}

TEST_F(ComparisonBoxTest, SectionOfOneDatabaseIsDrawnInItsColour) {
    ShowRow(box, test::kSectionAdded);
    EXPECT_EQ(box.picture.label, GetMessage(kMsgSectionNow));
    EXPECT_EQ(In(Draw(), kBeforeColour).items, 0);
    EXPECT_GT(In(Draw(), kNowColour).items, 50);
    ShowRow(box, test::kSectionRemoved);
    EXPECT_EQ(box.picture.label, GetMessage(kMsgSectionBefore));
    EXPECT_GT(In(Draw(), kBeforeColour).items, 50);
    EXPECT_EQ(In(Draw(), kNowColour).items, 0);
}

TEST_F(ComparisonBoxTest, BulkheadsAreDrawnAsTheyAreNow) {
    ShowRow(box, test::kBulkheadRenamed);
    EXPECT_TRUE(box.picture.pane.areBulkheadsShown);
    EXPECT_EQ(box.picture.pane.bulkheads.name, L"Collision bulkhead");
    EXPECT_EQ(box.picture.label, GetMessage(kMsgArrangementNow));
    EXPECT_GT(Draw().items.size(), 10U);
    EXPECT_TRUE(ShowNextComparedBulkhead(box.picture));
    EXPECT_EQ(box.picture.label, BulkheadText(box.picture.pane));
}

TEST_F(ComparisonBoxTest, BulkheadsThatAreGoneAreDrawnAsTheyWere) {
    std::vector<std::string> parts = test::PartsOf(test::ShipNow());
    parts.erase(parts.begin() + 9);  // the first arrangement
    std::string text;
    for (const std::string& part : parts) text += part;
    WriteFileBytes(comparison.now, text);
    Compare();
    const auto removed = static_cast<size_t>(test::kSectionRemoved + 1);
    ASSERT_EQ(DifferingCells(box, removed)[3], L"Bulkhead");
    ShowRow(box, removed);
    EXPECT_EQ(box.picture.label, GetMessage(kMsgArrangementBefore));
    EXPECT_EQ(box.picture.path, comparison.before);
    EXPECT_GT(Draw().items.size(), 10U);
}

TEST_F(ComparisonBoxTest, WhatHasNoPictureSaysWhy) {
    ShowRow(box, test::kShipChanged);
    EXPECT_EQ(box.picture.why, GetMessage(kMsgShipHasNoPicture));
    ShowRow(box, test::kTorsionRemoved);
    EXPECT_EQ(box.picture.why, GetMessage(kMsgTorsionLayout));
    EXPECT_EQ(box.picture.label, L"");
    EXPECT_FALSE(HasPicture(box.picture.pane));
    EXPECT_EQ(Draw().items.size(), 0U);
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

// A picture without a size, as that of a window that is not laid out yet, is left as it is.
TEST_F(ComparisonBoxTest, PictureWithoutASizeIsNotDrawn) {
    ShowRow(box, test::kSectionChanged);
    KeptPicture kept;
    kept.picture.width = kept.picture.height = 0;
    DrawComparison(box.picture, kept.picture);
    EXPECT_TRUE(kept.drawn.items.empty());
}

// ---- Import ------------------------------------------------------------------------------------

TEST_F(ComparisonBoxTest, OnlyModelsOfTheOtherDatabaseCanBeImported) {
    EXPECT_FALSE(MayImport(box, {}));
    EXPECT_FALSE(MayImport(box, {test::kShipChanged}));
    EXPECT_FALSE(MayImport(box, {test::kSectionAdded}));
    EXPECT_TRUE(MayImport(box, {test::kSectionAdded, test::kSectionRemoved}));
    EXPECT_TRUE(MayImport(box, {test::kSectionChanged}));
    shell.database.isReadOnly = true;
    EXPECT_FALSE(MayImport(box, {test::kSectionChanged}));
}

}  // namespace
}  // namespace corvane
