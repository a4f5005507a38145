// Which line of the list shows which row, whatever the order of the list.
#include "shell/shown_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/commands/commands.h"
#include "shell/commands/view_commands.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/shown_database.h"

namespace corvane {
namespace {

using test::Block;
using test::FakeView;
using test::Narrow;
using test::RecordedReports;
using test::ShownDatabase;
using Names = std::vector<std::string>;

// Four models in the order of the file: C at 5 m, A at 30 m, torsion model T, B at 10 m.
struct FourModels : ShownDatabase {
    FourModels() {
        test::DefineBsd();
        Open("DATABASE\r\n" + Block(1, "SECTION", "C", " 5 ") + Block(2, "BHA", "A", " 30 ") +
             Block(3, "TORSION", "T", " 7 ") + Block(4, "SECTION", "B", " 10 "));
        RefreshMainWindow();
        RecordedReports::events.clear();
    }
};

Names Lines() {
    Names names;
    for (const ModelRow& row : FakeView::rows) names.push_back(Narrow(row.name));
    return names;
}

TEST(ShownListTest, MenuSortsTheListAndMarksHow) {
    const FourModels window;
    const struct {
        CommandId command;
        Names lines;
    } orders[] = {{ME_ViewSortName, {"A", "B", "C", "T"}},
                  {ME_ViewSortX, {"C", "B", "A", "T"}},
                  {ME_ViewSortNumber, {"C", "A", "T", "B"}},
                  {ME_ViewSortKind, {"A", "C", "B", "T"}},
                  {ME_ViewFileOrder, {"C", "A", "T", "B"}}};
    for (const auto& order : orders) {
        RunCommand(order.command);
        EXPECT_EQ(Lines(), order.lines) << order.command;
        for (const auto& other : orders) {
            EXPECT_EQ(FindCommand(other.command)->isChecked(), other.command == order.command);
        }
    }
    EXPECT_FALSE(RecordedReports::Happened("clear preview")) << "nothing was read again";
}

TEST(ShownListTest, DescendingTurnsTheOrderOverAndStaysForOtherColumns) {
    const FourModels window;
    RunCommand(ME_ViewSortName);
    RunCommand(ME_ViewDescending);
    EXPECT_EQ(Lines(), (Names{"T", "C", "B", "A"}));
    EXPECT_TRUE(FindCommand(ME_ViewDescending)->isChecked());
    RunCommand(ME_ViewSortX);
    EXPECT_EQ(Lines(), (Names{"A", "B", "C", "T"}));
    RunCommand(ME_ViewDescending);
    EXPECT_EQ(Lines(), (Names{"C", "B", "A", "T"}));
    EXPECT_FALSE(FindCommand(ME_ViewDescending)->isChecked());
}

TEST(ShownListTest, KeysGoFromColumnToColumnAndTurnTheOrderOver) {
    const FourModels window;
    const auto press = [](KeyCode code) {
        RunCommand(FindCommand(Key{.code = code, .shift = true, .alt = true})->id);
    };
    const ListColumn columns[] = {ListColumn::kName, ListColumn::kX, ListColumn::kNumber,
                                  ListColumn::kKind, ListColumn::kFrame};
    for (const ListColumn column : columns) {
        press(kRightKey);
        EXPECT_TRUE(IsSortedBy(column));
    }
    press(kRightKey);
    EXPECT_TRUE(IsInFileOrder());
    press(kLeftKey);
    EXPECT_TRUE(IsSortedBy(ListColumn::kFrame));
    for (int i = 0; i < 4; ++i) press(kLeftKey);
    EXPECT_EQ(Lines(), (Names{"A", "B", "C", "T"}));
    press(kDownKey);
    press(kDownKey);
    EXPECT_EQ(Lines(), (Names{"T", "C", "B", "A"}));
    press(kUpKey);
    EXPECT_EQ(Lines(), (Names{"A", "B", "C", "T"}));
    press(kLeftKey);
    EXPECT_EQ(Lines(), (Names{"C", "A", "T", "B"}));
}

TEST(ShownListTest, FileOrderIsOneStepAway) {
    const FourModels window;
    RunCommand(ME_ViewSortName);
    RunCommand(ME_ViewDescending);
    RunCommand(ME_ViewFileOrder);
    EXPECT_EQ(Lines(), (Names{"C", "A", "T", "B"}));
    EXPECT_FALSE(IsDescending());
}

TEST(ShownListTest, CurrentModelStaysSelectedWhereItComesTo) {
    const FourModels window;
    SelectLine(3);
    FakeView::selected = 3;
    ASSERT_EQ(shell.database.currentModel, 4);
    RunCommand(ME_ViewSortName);
    EXPECT_EQ(FakeView::selected, 1);
    EXPECT_EQ(shell.database.currentModel, 4);
    RunCommand(ME_ViewDescending);
    EXPECT_EQ(FakeView::selected, 2);
}

TEST(ShownListTest, SelectedLineIsTheModelThatIsShownThere) {
    const FourModels window;
    RunCommand(ME_ViewSortX);
    const int32_t numbers[] = {1, 4, 2, 3};
    for (int line = 0; line < 4; ++line) {
        SelectLine(line);
        EXPECT_EQ(shell.database.currentModel, numbers[line]);
        EXPECT_EQ(RowOfLine(line).tag, numbers[line]);
    }
}

TEST(ShownListTest, OrderOutlivesARefresh) {
    const FourModels window;
    RunCommand(ME_ViewSortName);
    SelectLine(2);
    RefreshMainWindow();
    EXPECT_EQ(Lines(), (Names{"A", "B", "C", "T"}));
    EXPECT_EQ(FakeView::selected, 2);
    EXPECT_EQ(shell.database.currentModel, 1);
}

// The window paints itself while the models are listed again: the list then asks for its lines.
TEST(ShownListTest, NoLineLeadsToARowThatHasGone) {
    FourModels window;
    static int asked;
    asked = 0;
    reportView.processPendingMessages = [] {
        ++asked;
        for (int line = 0; line < LineCount(); ++line) {
            EXPECT_NO_THROW(RowOfLine(line)) << line << " of " << shell.database.rows.size();
        }
    };
    window.Open("DATABASE\r\n" + Block(1, "SECTION", "C", " 5 "));
    RefreshMainWindow();
    AdoptDatabase(window.folder.File(L"none.ve2"), {});
    EXPECT_EQ(LineCount(), 0);
    EXPECT_GT(asked, 0);
}

TEST(ShownListTest, SortingWithoutASelectionSelectsNothing) {
    const FourModels window;
    FakeView::selected = -1;
    RunCommand(ME_ViewSortName);
    EXPECT_EQ(FakeView::selected, -1);
}

TEST(ShownListTest, SortingWithoutADatabaseShowsNothing) {
    const ShownDatabase window;
    RunCommand(ME_ViewSortName);
    EXPECT_TRUE(FakeView::rows.empty());
    EXPECT_EQ(FakeView::selected, -1);
}

// ---- The filter --------------------------------------------------------------------------------

TEST(ShownListTest, FilterLeavesItsModelsInTheirOrderAndSaysHowMany) {
    const FourModels window;
    EXPECT_EQ(FakeView::modelCount, L"4 models");
    RunCommand(ME_ViewSortName);
    FilterList(L"section");
    EXPECT_EQ(Lines(), (Names{"B", "C"}));
    EXPECT_EQ(FakeView::modelCount, L"2 of 4 models");
    FilterList(L"no such name");
    EXPECT_TRUE(Lines().empty());
    EXPECT_EQ(FakeView::modelCount, L"0 of 4 models");
    FilterList(L" ");
    EXPECT_EQ(Lines(), (Names{"A", "B", "C", "T"}));
    EXPECT_EQ(FakeView::modelCount, L"4 models");
}

TEST(ShownListTest, FilteredModelIsNotSelectedUntilItIsShownAgain) {
    const FourModels window;
    SelectLine(3);
    FakeView::selected = 3;
    ASSERT_EQ(FakeView::position, L"X = 10 m");
    FilterList(L"bhd");
    EXPECT_EQ(FakeView::selected, -1) << "not the bulkhead that is in the line";
    EXPECT_EQ(FakeView::position, L"");
    EXPECT_FALSE(IsEnabled(*FindCommand(ME_SectionInput)));
    RunCommand(ME_ViewSortName);
    EXPECT_EQ(FakeView::selected, -1);
    FilterList(L"");
    EXPECT_EQ(FakeView::selected, 1);
    EXPECT_EQ(FakeView::position, L"X = 10 m");
    EXPECT_TRUE(IsEnabled(*FindCommand(ME_SectionInput)));
}

TEST(ShownListTest, ModelThatStaysInTheFilterStaysSelectedAndIsNotReadAgain) {
    const FourModels window;
    SelectLine(3);
    FakeView::selected = 3;
    RecordedReports::events.clear();
    FilterList(L"section");
    EXPECT_EQ(FakeView::selected, 1);
    FilterList(L"section x>8");
    EXPECT_EQ(FakeView::selected, 0);
    EXPECT_FALSE(RecordedReports::Happened("clear preview"));
    EXPECT_EQ(FakeView::position, L"X = 10 m");
}

TEST(ShownListTest, AnotherModelThatIsSelectedMeanwhileIsTheCurrentOne) {
    const FourModels window;
    FilterList(L"bhd");
    ASSERT_EQ(FakeView::selected, -1);
    SelectLine(0);
    FakeView::selected = 0;
    FilterList(L"");
    EXPECT_EQ(FakeView::selected, 1);
    EXPECT_EQ(shell.database.currentModel, 2);
}

TEST(ShownListTest, FilterOutlivesARefreshAndAnotherDatabase) {
    FourModels window;
    FilterList(L"section");
    RefreshMainWindow();
    EXPECT_EQ(Lines(), (Names{"C", "B"}));
    EXPECT_EQ(FakeView::selected, 0);
    FilterList(L"bhd");
    RefreshMainWindow();
    EXPECT_EQ(FakeView::selected, -1);
    FilterList(L"");
    EXPECT_EQ(FakeView::selected, 0) << "the refresh has kept what was current";
    FilterList(L"section");
    test::WriteFileBytes(window.folder.File(L"other.ve2"), test::Database(2));
    ShowDatabase(window.folder.File(L"other.ve2"), {});
    EXPECT_EQ(Lines(), (Names{"Frame 1", "Frame 2"}));
    EXPECT_EQ(FakeView::modelCount, L"2 of 2 models");
}

TEST(ShownListTest, FilterWithoutASelectionSelectsNothing) {
    const FourModels window;
    FakeView::selected = -1;
    DeselectModel();
    FilterList(L"bhd");
    FilterList(L"");
    EXPECT_EQ(FakeView::selected, -1);
}

TEST(ShownListTest, WithoutADatabaseThereIsNoCount) {
    const ShownDatabase window;
    RefreshMainWindow();
    FilterList(L"bhd");
    EXPECT_EQ(FakeView::modelCount, L"");
    EXPECT_EQ(FakeView::selected, -1);
}

TEST(ShownListTest, OneModelIsCountedAsOne) {
    ShownDatabase window;
    window.Open(test::Database(1));
    RefreshMainWindow();
    EXPECT_EQ(FakeView::modelCount, L"1 model");
}

TEST(ShownListTest, FindGoesToTheFilter) {
    const FourModels window;
    RunCommand(ME_EditFind);
    EXPECT_TRUE(RecordedReports::Happened("focus filter"));
}

TEST(ShownListTest, TypedLettersFindTheNextNameInTheOrderOfTheList) {
    ShownDatabase window;
    window.Open("DATABASE\r\n" + Block(1, "SECTION", "Hold 2", " 5 ") +
                Block(2, "SECTION", "Peak", " 5 ") + Block(3, "SECTION", "hold 1", " 5 "));
    RefreshMainWindow();
    EXPECT_EQ(FindLine(L"h", 0), 0);
    EXPECT_EQ(FindLine(L"h", 1), 2) << "whatever the capitals";
    EXPECT_EQ(FindLine(L"HOLD 2", 1), 0) << "from the top after the last one";
    EXPECT_EQ(FindLine(L"p", 3), 1) << "after the last line is the top";
    EXPECT_EQ(FindLine(L"x", 0), -1);
    EXPECT_EQ(FindLine(L"hold 11", 0), -1);
    RunCommand(ME_ViewSortName);
    EXPECT_EQ(FindLine(L"h", 0), 0);
    EXPECT_EQ(RowOfLine(0).tag, 3);
}

}  // namespace
}  // namespace corvane
