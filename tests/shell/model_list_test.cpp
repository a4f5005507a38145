#include "shell/model_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report/reporters.h"
#include "shell/open_database.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/shown_database.h"

namespace corvane {
namespace {

using test::Block;
using test::Database;
using test::FakeView;
using test::Narrow;
using test::RecordedReports;
using test::ShownDatabase;
using Events = std::vector<std::string>;

Events Ids() {
    Events ids;
    for (const ModelRow& row : FakeView::rows) ids.push_back(Narrow(row.id));
    return ids;
}

TEST(ModelList, TwelveModelsHaveIdsWithABlankBeforeSingleDigits) {
    ShownDatabase window;
    window.Open(Database(12));
    RefreshMainWindow();
    EXPECT_EQ(Ids(),
              (Events{" 1", " 2", " 3", " 4", " 5", " 6", " 7", " 8", " 9", "10", "11", "12"}));
}

TEST(ModelList, RowsOfEveryKindShowNameTypeIconAndTag) {
    ShownDatabase window;
    window.Open("DATABASE\r\n" + Block(1, "SECTION", "  Midship  ", " 100.5\t 1 ") +
                Block(2, "BHA", "Fore", " 20 ") + Block(3, "TORSION", "Girder", " 7 ") +
                Block(4, "OTHER", "Odd", " 1 "));
    const std::vector<ModelRow> rows = FillModelList(shell.database.path);
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0].name, L"Midship");
    EXPECT_EQ(rows[0].x, L"100.500");
    EXPECT_EQ(rows[0].type, L"Section");
    EXPECT_EQ(rows[0].icon, 1);
    EXPECT_EQ(rows[0].tag, 1);
    EXPECT_EQ(rows[1].type, L"Bulkhead");
    EXPECT_EQ(rows[1].icon, 2);
    EXPECT_EQ(rows[2].type, L"Torsion");
    EXPECT_EQ(rows[2].icon, 3);
    EXPECT_EQ(rows[3].type, L"Section");
    EXPECT_EQ(rows[3].tag, 4);
}

TEST(ModelList, TorsionModelHasAnEmptyPositionAndASectionAtZeroHasNot) {
    ShownDatabase window;
    window.Open("DATABASE\r\n" + Block(1, "TORSION", "Girder", " 7 ") +
                Block(2, "SECTION", "Aft", " 0 "));
    const std::vector<ModelRow> rows = FillModelList(shell.database.path);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].x, L"");
    EXPECT_EQ(rows[1].x, L"0.000");
}

TEST(ModelList, PositionsHaveThreeDecimals) {
    struct {
        const char* row;
        const wchar_t* shown;
    } const cases[] = {{" .0004 ", L"0.000"},      {" .0006 ", L"0.001"}, {" 12 ", L"12.000"},
                       {" 187.25 ", L"187.250"},   {"-.5 ", L""},         {"-0 ", L"0.000"},
                       {" 1000.125 ", L"1000.125"}};
    for (const auto& item : cases) {
        ShownDatabase window;
        window.Open("DATABASE\r\n" + Block(1, "SECTION", "S", item.row));
        const std::vector<ModelRow> rows = FillModelList(shell.database.path);
        ASSERT_EQ(rows.size(), 1U);
        EXPECT_EQ(Narrow(rows[0].x), Narrow(item.shown)) << item.row;
    }
}

TEST(ModelList, ColumnFrameShowsTheNearestFrameOfTheShip) {
    ShownDatabase window;
    window.Open("DATABASE\r\n" + Block(1, "SECTION", "Between", " 12.6 ") +
                Block(2, "TORSION", "Girder", " 7 ") + Block(3, "SECTION", "Aft", " 0 "));
    const auto frames = [] {
        Events texts;
        for (const ModelRow& row : FakeView::rows) {
            texts.push_back(Narrow(ModelColumns().back().text(row)));
        }
        return texts;
    };
    RefreshMainWindow();
    EXPECT_EQ(frames(), (Events{"", "", ""})) << "a ship without frames";
    shell.database.bsd.FrameZoneCount = 1;
    shell.database.bsd.FrameNumbers(0) = -3;
    shell.database.bsd.FrameNumbers(1) = 100;
    shell.database.bsd.ZoneSpacing(1) = 1;
    RefreshMainWindow();
    EXPECT_EQ(frames(), (Events{"13", "", "0"}));
}

TEST(ModelList, ColumnsAreInOrder) {
    Events titles;
    for (const ModelColumn& column : ModelColumns()) titles.push_back(Narrow(column.title));
    EXPECT_EQ(titles, (Events{"Name", "X", "Id", "Type", "Frame"}));
}

TEST(ModelList, StatusShowsThePathWhileTheListIsFilledAndIsThenCleared) {
    ShownDatabase window;
    window.Open(Database(1));
    FillModelList(shell.database.path);
    EXPECT_EQ(RecordedReports::Of("caption"),
              (Events{"Reading " + Narrow(shell.database.path) + "...", ""}));
}

TEST(ModelList, ListOfAFileThatIsMissingIsEmpty) {
    ShownDatabase window;
    EXPECT_TRUE(FillModelList(window.folder.File(L"none.ve2")).empty());
}

TEST(ModelList, BlockThatIsCutOffStillListsTheModelsBefore) {
    ShownDatabase window;
    window.Open(Database(2) + "== MODEL ==\r\n*\r\n 3 \r\n");
    RefreshMainWindow();
    ASSERT_GE(FakeView::rows.size(), 2U);
    EXPECT_EQ(FakeView::rows[1].name, L"Frame 2");
}

}  // namespace
}  // namespace corvane
