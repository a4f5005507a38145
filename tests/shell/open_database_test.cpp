#include "shell/open_database.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/preview_pane.h"
#include "shell/rule_set.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/shown_database.h"
#include "text/text.h"

namespace corvane {
namespace {

using test::Block;
using test::Database;
using test::DefineBsd;
using test::FakeView;
using test::Narrow;
using test::RecordedReports;
using test::ShownDatabase;
using Events = std::vector<std::string>;

// Frames 0 to 100 with a spacing of 1 m, from x = 0 on.
void GiveFrames() {
    shell.database.bsd.FrameZoneCount = 1;
    shell.database.bsd.FrameNumbers(0) = 0;
    shell.database.bsd.FrameNumbers(1) = 100;
    shell.database.bsd.ZoneSpacing(1) = 1;
}

Events Ids() {
    Events ids;
    for (const ModelRow& row : FakeView::rows) ids.push_back(Narrow(row.id));
    return ids;
}

// ---- The list ----------------------------------------------------------------------------------

TEST(OpenDatabaseTest, TwelveModelsHaveIdsWithABlankBeforeSingleDigits) {
    ShownDatabase window;
    window.Open(Database(12));
    RefreshMainWindow();
    EXPECT_EQ(Ids(),
              (Events{" 1", " 2", " 3", " 4", " 5", " 6", " 7", " 8", " 9", "10", "11", "12"}));
}

TEST(OpenDatabaseTest, RowsOfEveryKindShowNameTypeIconAndTag) {
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

TEST(OpenDatabaseTest, TorsionModelHasAnEmptyPositionAndASectionAtZeroHasNot) {
    ShownDatabase window;
    window.Open("DATABASE\r\n" + Block(1, "TORSION", "Girder", " 7 ") +
                Block(2, "SECTION", "Aft", " 0 "));
    const std::vector<ModelRow> rows = FillModelList(shell.database.path);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].x, L"");
    EXPECT_EQ(rows[1].x, L"0.000");
}

TEST(OpenDatabaseTest, PositionsHaveThreeDecimals) {
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

TEST(OpenDatabaseTest, StatusTellsThePathWhileTheListIsFilledAndIsThenCleared) {
    ShownDatabase window;
    window.Open(Database(1));
    FillModelList(shell.database.path);
    EXPECT_EQ(RecordedReports::Of("caption"),
              (Events{"Reading " + Narrow(shell.database.path) + "...", ""}));
}

TEST(OpenDatabaseTest, ListOfAFileThatIsMissingIsEmpty) {
    ShownDatabase window;
    EXPECT_TRUE(FillModelList(window.folder.File(L"none.ve2")).empty());
}

TEST(OpenDatabaseTest, BlockThatIsCutOffStillListsTheModelsBefore) {
    ShownDatabase window;
    window.Open(Database(2) + "== MODEL ==\r\n*\r\n 3 \r\n");
    RefreshMainWindow();
    ASSERT_GE(FakeView::rows.size(), 2U);
    EXPECT_EQ(FakeView::rows[1].name, L"Frame 2");
}

// ---- Refresh -----------------------------------------------------------------------------------

TEST(OpenDatabaseTest, WithoutADatabaseEverythingIsEmpty) {
    ShownDatabase window;
    RefreshMainWindow();
    EXPECT_EQ(FakeView::database, L"No database selected");
    EXPECT_TRUE(FakeView::rows.empty());
    EXPECT_EQ(FakeView::position, L"");
    EXPECT_EQ(FakeView::frame, L"");
    EXPECT_EQ(shell.database.currentModel, 0);
    EXPECT_TRUE(RecordedReports::Happened("clear preview"));
    EXPECT_TRUE(RecordedReports::Happened("title Corvane"));
    EXPECT_FALSE(RecordedReports::Happened("focus list"));
}

TEST(OpenDatabaseTest, FirstModelIsSelectedWhenNoneWasCurrent) {
    ShownDatabase window;
    window.Open(Database(3));
    RefreshMainWindow();
    EXPECT_EQ(shell.database.currentModel, 1);
    EXPECT_EQ(FakeView::selected, 0);
    EXPECT_EQ(FakeView::position, L"X = 10 m");
    EXPECT_TRUE(RecordedReports::Happened("focus list"));
}

TEST(OpenDatabaseTest, CurrentModelStaysSelected) {
    ShownDatabase window;
    window.Open(Database(3));
    shell.database.currentModel = 3;
    RefreshMainWindow();
    EXPECT_EQ(FakeView::selected, 2);
    EXPECT_EQ(FakeView::position, L"X = 30 m");
}

TEST(OpenDatabaseTest, AfterDeleteOfTheLastRowNothingIsSelectedAndTheNumberStays) {
    ShownDatabase window;
    window.Open(Database(2));
    shell.database.currentModel = 3;
    RefreshMainWindow();
    EXPECT_EQ(shell.database.currentModel, 3);
    EXPECT_EQ(FakeView::selected, -1);
    EXPECT_EQ(FakeView::position, L"");
    EXPECT_EQ(FakeView::frame, L"");
    EXPECT_EQ(FakeView::menu, L"&Section");
    EXPECT_FALSE(RecordedReports::Happened("focus list"));
}

TEST(OpenDatabaseTest, DatabaseWithoutModelsClearsThePreview) {
    ShownDatabase window;
    window.Open("DATABASE\r\n");
    RefreshMainWindow();
    EXPECT_TRUE(RecordedReports::Happened("clear preview"));
    EXPECT_EQ(FakeView::selected, -1);
    EXPECT_EQ(FakeView::database, shell.database.path);
}

TEST(OpenDatabaseTest, StatusAsksForTheBsdWhenItIsNotValid) {
    ShownDatabase window;
    window.Open(Database(1));
    RefreshMainWindow();
    EXPECT_EQ(RecordedReports::caption, L"BSD first...");
    DefineBsd();
    RefreshMainWindow();
    EXPECT_EQ(RecordedReports::caption, L"");
}

TEST(OpenDatabaseTest, RefreshEndsWithEnablingStatusFocusAndPointerInThisOrder) {
    ShownDatabase window;
    window.Open(Database(1));
    RefreshMainWindow();
    const Events& events = RecordedReports::events;
    const auto last = std::find(events.begin(), events.end(), "title Corvane - ship.ve2 - ");
    ASSERT_NE(last, events.end());
    EXPECT_EQ(Events(last + 1, events.end()),
              (Events{"enabling", "colour text", "colour text", "caption BSD first...", "pending",
                      "focus list", "pointer reset"}));
}

TEST(OpenDatabaseTest, RefreshTakesTheFaultsColourOffTheStatusLine) {
    ShownDatabase window;
    FlagStatusFailed(L"fault");
    RefreshMainWindow();
    const Events& events = RecordedReports::events;
    const auto red = std::find(events.begin(), events.end(), "colour red");
    EXPECT_NE(std::find(red, events.end(), "colour text"), events.end());
}

// ---- Caption -----------------------------------------------------------------------------------

TEST(OpenDatabaseTest, CaptionIsTitleFileAndShip) {
    ShownDatabase window;
    window.Open(Database(1));
    shell.title = L"Corvane JBP";
    shell.database.bsd.Titles(5).Assign(L"  AURORA  ");
    EXPECT_EQ(MainWindowCaption(), L"Corvane JBP - ship.ve2 - AURORA");
}

TEST(OpenDatabaseTest, CaptionStoresTheShipsNameBackTrimmed) {
    ShownDatabase window;
    window.Open(Database(1));
    shell.database.bsd.Titles(5).Assign(L"  AURORA  ");
    RefreshMainWindow();
    EXPECT_EQ(shell.database.bsd.Titles(5).Whole().substr(0, 8), L"AURORA  ");
    EXPECT_TRUE(RecordedReports::Happened("title Corvane - ship.ve2 - AURORA"));
}

TEST(OpenDatabaseTest, CaptionWithoutADatabaseIsTheTitle) {
    const ShownDatabase window;
    shell.title = L"Corvane MIL";
    shell.database.bsd.Titles(5).Assign(L"OLD");
    EXPECT_EQ(MainWindowCaption(), L"Corvane MIL");
}

// ---- Selection ---------------------------------------------------------------------------------

TEST(OpenDatabaseTest, SelectedModelBecomesTheCurrentOne) {
    ShownDatabase window;
    window.Open(Database(3));
    RefreshMainWindow();
    SelectRow(1);
    EXPECT_EQ(shell.database.currentModel, 2);
    EXPECT_EQ(FakeView::position, L"X = 20 m");
}

TEST(OpenDatabaseTest, SectionMenuFollowsTheKindOfTheSelectedModel) {
    ShownDatabase window;
    window.Open("DATABASE\r\n" + Block(1, "SECTION", "S", " 1 ") + Block(2, "BHA", "B", " 2 ") +
                Block(3, "TORSION", "T", " 3 "));
    RefreshMainWindow();
    EXPECT_EQ(FakeView::menu, L"&Section");
    SelectRow(1);
    EXPECT_EQ(FakeView::menu, L"Bul&khead");
    SelectRow(2);
    EXPECT_EQ(FakeView::menu, L"&Torsion");
    DeselectModel();
    EXPECT_EQ(FakeView::menu, L"&Section");
    EXPECT_EQ(shell.database.currentModel, 3);
}

TEST(OpenDatabaseTest, ModelWithoutAPositionShowsTheFrameOfTheValueRead) {
    ShownDatabase window;
    GiveFrames();
    window.Open("DATABASE\r\n" + Block(1, "TORSION", "Girder", " 7 "));
    RefreshMainWindow();
    EXPECT_EQ(FakeView::rows[0].x, L"");
    EXPECT_EQ(FakeView::position, L"X = 7 m");
    EXPECT_EQ(FakeView::frame, L"Frame : 7");
}

TEST(OpenDatabaseTest, SelectionAfterTheFileIsGoneSaysSoAndShowsNoPosition) {
    for (const bool isPreviewOn : {true, false}) {
        ShownDatabase window;
        FakeView::previewOn = isPreviewOn;
        window.Open(Database(1));
        RefreshMainWindow();
        RecordedReports::events.clear();
        shell.database.path = window.folder.File(L"gone.ve2");
        SelectRow(0);
        EXPECT_EQ(FakeView::position, L"");
        EXPECT_EQ(FakeView::frame, L"");
        EXPECT_EQ(RecordedReports::Of("warning"),
                  Events{Narrow(SubstituteArguments(
                      ExpandLineBreaks(GetMessage(kMsgDatabaseMissing)), {shell.database.path}))});
    }
}

// ---- Numbers that are not the place in the list ------------------------------------------------

std::string FiveModels(const char* const (&numbers)[5]) {
    std::string text = "DATABASE\r\n";
    for (int i = 0; i < 5; ++i) {
        std::string block = Block(i + 1, "SECTION", std::string(1, static_cast<char>('A' + i)),
                                  ' ' + std::to_string(10 * (i + 1)) + ' ');
        const std::string number = "\r\n " + std::to_string(i + 1) + " \r\n";
        const size_t at = block.find(number);
        EXPECT_NE(at, std::string::npos);
        text += block.replace(at, number.size(), std::string("\r\n") + numbers[i] + "\r\n");
    }
    return text;
}

TEST(OpenDatabaseTest, RowsCarryTheNumbersOfTheirBlocks) {
    ShownDatabase window;
    window.Open(FiveModels({" 1 ", " 3 ", " 2 ", " 40 ", " 5 "}));
    RefreshMainWindow();
    EXPECT_EQ(Ids(), (Events{" 1", " 3", " 2", "40", " 5"}));
    const int32_t numbers[] = {1, 3, 2, 40, 5};
    const char* const positions[] = {"X = 10 m", "X = 20 m", "X = 30 m", "X = 40 m", "X = 50 m"};
    for (int row = 0; row < 5; ++row) {
        SelectRow(row);
        EXPECT_EQ(shell.database.currentModel, numbers[row]);
        EXPECT_EQ(Narrow(FakeView::position), positions[row]);
        RefreshMainWindow();
        EXPECT_EQ(FakeView::selected, row);
    }
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST(OpenDatabaseTest, FirstModelIsSelectedWhateverItsNumberIs) {
    ShownDatabase window;
    window.Open(FiveModels({" 7 ", " 8 ", " 9 ", " 10 ", " 11 "}));
    shell.database.currentModel = 0;
    RefreshMainWindow();
    EXPECT_EQ(shell.database.currentModel, 7);
    EXPECT_EQ(FakeView::selected, 0);
}

TEST(OpenDatabaseTest, RowWithoutANumberOfItsOwnShowsItsOwnPositionAndNoPicture) {
    ShownDatabase window;
    window.Open(FiveModels({" 1 ", " 2 ", " 2 ", "none", "-1 "}));
    RefreshMainWindow();
    const char* const positions[] = {"X = 10 m", "X = 20 m", "X = 30 m", "X = 40 m", "X = 50 m"};
    for (int row = 1; row < 5; ++row) {
        SelectRow(row);
        EXPECT_EQ(Narrow(FakeView::position), positions[row]);
        EXPECT_FALSE(shell.preview.isShown);
    }
    SelectRow(2);
    RefreshMainWindow();
    EXPECT_EQ(FakeView::selected, 2) << "not the other model of that number";
}

TEST(OpenDatabaseTest, AllModelsOfAFileHaveRows) {
    ShownDatabase window;
    window.Open(Database(40'000));
    EXPECT_EQ(FillModelList(shell.database.path).size(), 40'000U);
}

// ---- Frame label -------------------------------------------------------------------------------

TEST(OpenDatabaseTest, BsdWithoutFramesSaysSo) {
    const ShownDatabase window;
    EXPECT_EQ(FrameText(12.0F), L"No frame in BSD");
}

TEST(OpenDatabaseTest, FrameWithinAMillimetreIsTheFrame) {
    const ShownDatabase window;
    GiveFrames();
    EXPECT_EQ(FrameText(12.0F), L"Frame : 12");
    EXPECT_EQ(FrameText(12.0009F), L"Frame : 12");
}

TEST(OpenDatabaseTest, FrameFartherAwayIsTheCloserFrameWithItsDistance) {
    const ShownDatabase window;
    GiveFrames();
    EXPECT_EQ(FrameText(12.25F), L"Closer Frame : 12 (0.250 m)");
    EXPECT_EQ(FrameText(11.75F), L"Closer Frame : 12 (0.250 m)");
    EXPECT_EQ(FrameText(103.0F), L"Closer Frame : 100 (3.000 m)");
}

TEST(OpenDatabaseTest, DistanceTakesTheFormatOfTheCatalogue) {
    const ShownDatabase window;
    GiveFrames();
    test::FakeCatalogue::texts[kMsgFrameDistanceFormat] = "0.0##";
    EXPECT_EQ(FrameText(12.25F), L"Closer Frame : 12 (0.25 m)");
    test::FakeCatalogue::texts[kMsgFrameDistanceFormat] = "0";
    EXPECT_EQ(FrameText(103.0F), L"Closer Frame : 100 (3 m)");
}

TEST(OpenDatabaseTest, NegativeFramesAreFoundToo) {
    const ShownDatabase window;
    GiveFrames();
    shell.database.bsd.FrameNumbers(0) = -5;
    EXPECT_EQ(FrameText(-5.0F), L"Frame : -5");
}

TEST(OpenDatabaseTest, ButtonsFollowTheKindOfTheSelectedModel) {
    ShownDatabase window;
    window.Open("DATABASE\r\n" + Block(1, "SECTION", "S", " 1 ") + Block(2, "BHA", "B", " 2 ") +
                Block(3, "TORSION", "T", " 3 "));
    RefreshMainWindow();
    SelectRow(1);
    SelectRow(2);
    DeselectModel();
    EXPECT_EQ(RecordedReports::Of("buttons"),
              (Events{"Section", "Bulkhead", "Torsion", "Section"}));
}

// ---- The rule set ------------------------------------------------------------------------------

TEST(OpenDatabaseTest, RuleSetAtTheStartComesFromTheSwitches) {
    const ShownDatabase window;
    EXPECT_EQ(CurrentRuleSet(), RuleSet::kQuor);
    shell.milMode = true;
    EXPECT_EQ(CurrentRuleSet(), RuleSet::kMil);
    shell.jbpMode = true;
    EXPECT_EQ(CurrentRuleSet(), RuleSet::kCsr) << "/JBP goes before /mil";
}

TEST(OpenDatabaseTest, RuleSetSetsItsFlagAndClearsTheOther) {
    const ShownDatabase window;
    const struct {
        RuleSet ruleSet;
        bool jbp, mil;
    } cases[] = {{RuleSet::kCsr, true, false},
                 {RuleSet::kMil, false, true},
                 {RuleSet::kCsr, true, false},
                 {RuleSet::kQuor, false, false},
                 {RuleSet::kMil, false, true}};
    for (const auto& example : cases) {
        RuleSetChosen(example.ruleSet);
        EXPECT_EQ(shell.jbpMode, example.jbp);
        EXPECT_EQ(shell.milMode, example.mil);
        EXPECT_EQ(CurrentRuleSet(), example.ruleSet);
    }
}

TEST(OpenDatabaseTest, QuorAfterCsrRemovesTheSuffixFromTheTitle) {
    const ShownDatabase window;
    RuleSetChosen(RuleSet::kCsr);
    EXPECT_EQ(shell.title, L"Corvane JBP");
    RuleSetChosen(RuleSet::kQuor);
    EXPECT_EQ(shell.title, L"Corvane");
    EXPECT_EQ(RecordedReports::Of("title"), (Events{"Corvane JBP", "Corvane"}));
}

TEST(OpenDatabaseTest, RuleSetReplacesEverySuffixOfTheTitle) {
    const ShownDatabase window;
    const struct {
        const wchar_t* before;
        RuleSet ruleSet;
        const wchar_t* after;
    } cases[] = {{L"Corvane JBP MIL", RuleSet::kCsr, L"Corvane JBP"},
                 {L"Corvane JBP MIL", RuleSet::kQuor, L"Corvane"},
                 {L"Corvane MIL JBP JBP", RuleSet::kMil, L"Corvane MIL"},
                 {L"Corvane JBP beta", RuleSet::kMil, L"Corvane JBP beta MIL"},
                 {L"Corvane", RuleSet::kQuor, L"Corvane"}};
    for (const auto& example : cases) {
        shell.title = example.before;
        RuleSetChosen(example.ruleSet);
        EXPECT_EQ(Narrow(shell.title), Narrow(example.after)) << Narrow(example.before);
    }
}

TEST(OpenDatabaseTest, RuleSetRedrawsTheRuleButtonAndTheCaption) {
    ShownDatabase window;
    window.Open(Database(1));
    shell.database.bsd.Titles(5).Assign(L"AURORA");
    RuleSetChosen(RuleSet::kMil);
    EXPECT_EQ(RecordedReports::events,
              (Events{"redraw rule button", "title Corvane MIL - ship.ve2 - AURORA"}));
}

// ---- The lock ----------------------------------------------------------------------------------

TEST(OpenDatabaseTest, LockReachesTheWindow) {
    const ShownDatabase window;
    LockShell(true);
    LockShell(false);
    EXPECT_EQ(RecordedReports::events, (Events{"lock", "unlock"}));
}

TEST(OpenDatabaseTest, CommandThatIsMissingTellsSo) {
    const ShownDatabase window;
    NotImp();
    EXPECT_EQ(RecordedReports::Of("plain"), Events{"not implemented"});
}

// ---- Enabling ----------------------------------------------------------------------------------

TEST(OpenDatabaseTest, CommandsAreEnabledByTheState) {
    const ShownDatabase window;
    Command command{};
    const auto enabled = [&](EnabledWhen when, bool rowSelected) {
        command.enabledWhen = when;
        FakeView::selected = rowSelected ? 0 : -1;
        return IsEnabled(command);
    };
    EXPECT_TRUE(enabled(EnabledWhen::kAlways, false));
    EXPECT_FALSE(enabled(EnabledWhen::kDatabaseOpen, true));
    EXPECT_FALSE(enabled(EnabledWhen::kBsdDefined, true));
    EXPECT_FALSE(enabled(EnabledWhen::kModelSelected, false));
    EXPECT_TRUE(enabled(EnabledWhen::kModelSelected, true));
    shell.database.path = L"C:\\ship.ve2";
    EXPECT_TRUE(enabled(EnabledWhen::kDatabaseOpen, false));
    EXPECT_FALSE(enabled(EnabledWhen::kBsdDefined, false));
    DefineBsd();
    EXPECT_TRUE(enabled(EnabledWhen::kBsdDefined, false));
}

TEST(OpenDatabaseTest, BsdMenuOpensWithADatabaseAndCreateMenuWithItsBsd) {
    const ShownDatabase window;
    EXPECT_TRUE(IsMenuEnabled(Menu::kFile));
    EXPECT_TRUE(IsMenuEnabled(Menu::kSection));
    EXPECT_TRUE(IsMenuEnabled(Menu::kHelp));
    EXPECT_FALSE(IsMenuEnabled(Menu::kBsd));
    EXPECT_FALSE(IsMenuEnabled(Menu::kCreate));
    shell.database.path = L"C:\\ship.ve2";
    EXPECT_TRUE(IsMenuEnabled(Menu::kBsd));
    EXPECT_FALSE(IsMenuEnabled(Menu::kCreate));
    DefineBsd();
    EXPECT_TRUE(IsMenuEnabled(Menu::kCreate));
}

}  // namespace
}  // namespace corvane
