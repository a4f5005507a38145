#include "shell/window_contents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/shell/recording_window.h"

namespace corvane {
namespace {

using test::Block;
using test::Database;
using test::DefineBsd;
using test::Happened;
using test::Narrow;
using test::RecordingWindow;
using Events = std::vector<std::string>;

// Frames 0 to 100 with a spacing of 1 m, from x = 0 on.
void GiveFrames() {
    shell.bsd.FrameZoneCount = 1;
    shell.bsd.FrameNumbers(0) = 0;
    shell.bsd.FrameNumbers(1) = 100;
    shell.bsd.ZoneSpacing(1) = 1;
}

Events Ids() {
    Events ids;
    for (const ModelRow& row : RecordingWindow::rows) ids.push_back(Narrow(row.id));
    return ids;
}

// ---- The list ----------------------------------------------------------------------------------

TEST(MainWindow, TwelveModelsHaveIdsWithABlankBeforeSingleDigits) {
    RecordingWindow window;
    window.Open(Database(12));
    RefreshMainWindow();
    EXPECT_EQ(Ids(),
              (Events{" 1", " 2", " 3", " 4", " 5", " 6", " 7", " 8", " 9", "10", "11", "12"}));
}

TEST(MainWindow, RowsOfEveryKindShowNameTypeIconAndTag) {
    RecordingWindow window;
    window.Open("DATABASE\r\n" + Block(1, "SECTION", "  Midship  ", " 100.5\t 1 ") +
                Block(2, "BHA", "Fore", " 20 ") + Block(3, "TORSION", "Girder", " 7 ") +
                Block(4, "OTHER", "Odd", " 1 "));
    const std::vector<ModelRow> rows = FillModelList(shell.settings.DatabasePath);
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

TEST(MainWindow, TorsionModelHasAnEmptyPositionAndASectionAtZeroHasNot) {
    RecordingWindow window;
    window.Open("DATABASE\r\n" + Block(1, "TORSION", "Girder", " 7 ") +
                Block(2, "SECTION", "Aft", " 0 "));
    const std::vector<ModelRow> rows = FillModelList(shell.settings.DatabasePath);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].x, L"");
    EXPECT_EQ(rows[1].x, L"0.000");
}

TEST(MainWindow, PositionsHaveThreeDecimals) {
    struct {
        const char* row;
        const wchar_t* shown;
    } const cases[] = {{" .0004 ", L"0.000"},      {" .0006 ", L"0.001"}, {" 12 ", L"12.000"},
                       {" 187.25 ", L"187.250"},   {"-.5 ", L""},         {"-0 ", L"0.000"},
                       {" 1000.125 ", L"1000.125"}};
    for (const auto& item : cases) {
        RecordingWindow window;
        window.Open("DATABASE\r\n" + Block(1, "SECTION", "S", item.row));
        const std::vector<ModelRow> rows = FillModelList(shell.settings.DatabasePath);
        ASSERT_EQ(rows.size(), 1U);
        EXPECT_EQ(Narrow(rows[0].x), Narrow(item.shown)) << item.row;
    }
}

TEST(MainWindow, StatusTellsThePathWhileTheListIsFilledAndIsThenCleared) {
    RecordingWindow window;
    window.Open(Database(1));
    FillModelList(shell.settings.DatabasePath);
    EXPECT_EQ(test::RecordingScreen::Of("caption"),
              (Events{"Reading " + Narrow(shell.settings.DatabasePath) + "...", ""}));
}

TEST(MainWindow, ListOfAFileThatIsMissingIsEmpty) {
    RecordingWindow window;
    EXPECT_TRUE(FillModelList(window.folder.File(L"none.ve2")).empty());
}

TEST(MainWindow, BlockThatIsCutOffStillListsTheModelsBefore) {
    RecordingWindow window;
    window.Open(Database(2) + "== MODEL ==\r\n*\r\n 3 \r\n");
    RefreshMainWindow();
    ASSERT_GE(RecordingWindow::rows.size(), 2U);
    EXPECT_EQ(RecordingWindow::rows[1].name, L"Frame 2");
}

// ---- Refresh -----------------------------------------------------------------------------------

TEST(MainWindow, WithoutADatabaseEverythingIsEmpty) {
    RecordingWindow window;
    RefreshMainWindow();
    EXPECT_EQ(RecordingWindow::database, L"No database selected");
    EXPECT_TRUE(RecordingWindow::rows.empty());
    EXPECT_EQ(RecordingWindow::position, L"");
    EXPECT_EQ(RecordingWindow::frame, L"");
    EXPECT_EQ(shell.currentModel, 0);
    EXPECT_TRUE(Happened("clear preview"));
    EXPECT_TRUE(Happened("title Corvane"));
    EXPECT_FALSE(Happened("focus list"));
}

TEST(MainWindow, RefreshWithoutAWindowDoesNothing) {
    const test::RecordingScreen screen;
    RefreshMainWindow();
    EXPECT_TRUE(test::RecordingScreen::events.empty());
}

TEST(MainWindow, FirstModelIsSelectedWhenNoneWasCurrent) {
    RecordingWindow window;
    window.Open(Database(3));
    RefreshMainWindow();
    EXPECT_EQ(shell.currentModel, 1);
    EXPECT_EQ(RecordingWindow::selected, 0);
    EXPECT_EQ(RecordingWindow::position, L"X = 10 m");
    EXPECT_TRUE(Happened("focus list"));
}

TEST(MainWindow, CurrentModelStaysSelected) {
    RecordingWindow window;
    window.Open(Database(3));
    shell.currentModel = 3;
    RefreshMainWindow();
    EXPECT_EQ(RecordingWindow::selected, 2);
    EXPECT_EQ(RecordingWindow::position, L"X = 30 m");
}

TEST(MainWindow, AfterDeleteOfTheLastRowNothingIsSelectedAndTheNumberStays) {
    RecordingWindow window;
    window.Open(Database(2));
    shell.currentModel = 3;
    RefreshMainWindow();
    EXPECT_EQ(shell.currentModel, 3);
    EXPECT_EQ(RecordingWindow::selected, -1);
    EXPECT_EQ(RecordingWindow::position, L"");
    EXPECT_EQ(RecordingWindow::frame, L"");
    EXPECT_EQ(RecordingWindow::menu, L"&Section");
    EXPECT_FALSE(Happened("focus list"));
}

TEST(MainWindow, DatabaseWithoutModelsClearsThePreview) {
    RecordingWindow window;
    window.Open("DATABASE\r\n");
    RefreshMainWindow();
    EXPECT_TRUE(Happened("clear preview"));
    EXPECT_EQ(RecordingWindow::selected, -1);
    EXPECT_EQ(RecordingWindow::database, shell.settings.DatabasePath);
}

TEST(MainWindow, StatusAsksForTheBsdWhenItIsNotValid) {
    RecordingWindow window;
    window.Open(Database(1));
    RefreshMainWindow();
    EXPECT_EQ(test::RecordingScreen::caption, L"BSD first...");
    DefineBsd();
    RefreshMainWindow();
    EXPECT_EQ(test::RecordingScreen::caption, L"");
}

TEST(MainWindow, RefreshEndsWithEnablingStatusFocusAndPointerInThisOrder) {
    RecordingWindow window;
    window.Open(Database(1));
    RefreshMainWindow();
    const Events& events = test::RecordingScreen::events;
    const auto last = std::find(events.begin(), events.end(), "title Corvane - ship.ve2 - ");
    ASSERT_NE(last, events.end());
    EXPECT_EQ(Events(last + 1, events.end()),
              (Events{"enabling", "colour text", "colour text", "caption BSD first...", "pending",
                      "focus list", "pointer reset"}));
}

TEST(MainWindow, RefreshTakesTheFaultsColourOffTheStatusLine) {
    RecordingWindow window;
    FlagStatusFailed(L"fault");
    RefreshMainWindow();
    const Events& events = test::RecordingScreen::events;
    const auto red = std::find(events.begin(), events.end(), "colour red");
    EXPECT_NE(std::find(red, events.end(), "colour text"), events.end());
}

// ---- Caption -----------------------------------------------------------------------------------

TEST(MainWindow, CaptionIsTitleFileAndShip) {
    RecordingWindow window;
    window.Open(Database(1));
    shell.title = L"Corvane JBP";
    shell.bsd.Titles(5).Assign(L"  AURORA  ");
    EXPECT_EQ(MainWindowCaption(), L"Corvane JBP - ship.ve2 - AURORA");
}

TEST(MainWindow, CaptionStoresTheShipsNameBackTrimmed) {
    RecordingWindow window;
    window.Open(Database(1));
    shell.bsd.Titles(5).Assign(L"  AURORA  ");
    RefreshMainWindow();
    EXPECT_EQ(shell.bsd.Titles(5).Whole().substr(0, 8), L"AURORA  ");
    EXPECT_TRUE(Happened("title Corvane - ship.ve2 - AURORA"));
}

TEST(MainWindow, CaptionWithoutADatabaseIsTheTitle) {
    const RecordingWindow window;
    shell.title = L"Corvane MIL";
    shell.bsd.Titles(5).Assign(L"OLD");
    EXPECT_EQ(MainWindowCaption(), L"Corvane MIL");
}

// ---- Selection ---------------------------------------------------------------------------------

TEST(MainWindow, SelectedModelBecomesTheCurrentOne) {
    RecordingWindow window;
    window.Open(Database(3));
    RefreshMainWindow();
    SelectModel(RecordingWindow::rows[1]);
    EXPECT_EQ(shell.currentModel, 2);
    EXPECT_EQ(RecordingWindow::position, L"X = 20 m");
}

TEST(MainWindow, SectionMenuFollowsTheKindOfTheSelectedModel) {
    RecordingWindow window;
    window.Open("DATABASE\r\n" + Block(1, "SECTION", "S", " 1 ") + Block(2, "BHA", "B", " 2 ") +
                Block(3, "TORSION", "T", " 3 "));
    RefreshMainWindow();
    EXPECT_EQ(RecordingWindow::menu, L"&Section");
    SelectModel(RecordingWindow::rows[1]);
    EXPECT_EQ(RecordingWindow::menu, L"Bul&khead");
    SelectModel(RecordingWindow::rows[2]);
    EXPECT_EQ(RecordingWindow::menu, L"&Torsion");
    DeselectModel();
    EXPECT_EQ(RecordingWindow::menu, L"&Section");
    EXPECT_EQ(shell.currentModel, 3);
}

TEST(MainWindow, ModelWithoutAPositionShowsTheFrameOfTheValueRead) {
    RecordingWindow window;
    GiveFrames();
    window.Open("DATABASE\r\n" + Block(1, "TORSION", "Girder", " 7 "));
    RefreshMainWindow();
    EXPECT_EQ(RecordingWindow::rows[0].x, L"");
    EXPECT_EQ(RecordingWindow::position, L"X = 7 m");
    EXPECT_EQ(RecordingWindow::frame, L"Frame : 7");
}

TEST(MainWindow, SelectionAfterTheFileIsGoneShowsNoPosition) {
    RecordingWindow window;
    window.Open(Database(1));
    RefreshMainWindow();
    shell.settings.DatabasePath = window.folder.File(L"gone.ve2");
    SelectModel(RecordingWindow::rows[0]);
    EXPECT_EQ(RecordingWindow::position, L"X = -1 m");
}

// ---- Frame label -------------------------------------------------------------------------------

TEST(MainWindow, BsdWithoutFramesSaysSo) {
    const RecordingWindow window;
    EXPECT_EQ(FrameText(12.0F), L"No frame in BSD");
}

TEST(MainWindow, FrameWithinAMillimetreIsTheFrame) {
    const RecordingWindow window;
    GiveFrames();
    EXPECT_EQ(FrameText(12.0F), L"Frame : 12");
    EXPECT_EQ(FrameText(12.0009F), L"Frame : 12");
}

TEST(MainWindow, FrameFartherAwayIsTheCloserFrameWithItsDistance) {
    const RecordingWindow window;
    GiveFrames();
    EXPECT_EQ(FrameText(12.25F), L"Closer Frame : 12 (0.250 m)");
    EXPECT_EQ(FrameText(11.75F), L"Closer Frame : 12 (0.250 m)");
    EXPECT_EQ(FrameText(103.0F), L"Closer Frame : 100 (3.000 m)");
}

TEST(MainWindow, DistanceTakesTheFormatOfTheCatalogue) {
    const RecordingWindow window;
    GiveFrames();
    test::FakeCatalogue::texts[kMsgFrameDistanceFormat] = "0.0##";
    EXPECT_EQ(FrameText(12.25F), L"Closer Frame : 12 (0.25 m)");
    test::FakeCatalogue::texts[kMsgFrameDistanceFormat] = "0";
    EXPECT_EQ(FrameText(103.0F), L"Closer Frame : 100 (3 m)");
}

TEST(MainWindow, NegativeFramesAreFoundToo) {
    const RecordingWindow window;
    GiveFrames();
    shell.bsd.FrameNumbers(0) = -5;
    EXPECT_EQ(FrameText(-5.0F), L"Frame : -5");
}

TEST(MainWindow, ButtonsFollowTheKindOfTheSelectedModel) {
    RecordingWindow window;
    window.Open("DATABASE\r\n" + Block(1, "SECTION", "S", " 1 ") + Block(2, "BHA", "B", " 2 ") +
                Block(3, "TORSION", "T", " 3 "));
    RefreshMainWindow();
    SelectModel(RecordingWindow::rows[1]);
    SelectModel(RecordingWindow::rows[2]);
    DeselectModel();
    EXPECT_EQ(test::RecordingScreen::Of("buttons"),
              (Events{"Section", "Bulkhead", "Torsion", "Section"}));
}

// ---- The rule set ------------------------------------------------------------------------------

TEST(MainWindow, RuleSetAtTheStartComesFromTheSwitches) {
    const RecordingWindow window;
    EXPECT_EQ(CurrentRuleSet(), RuleSet::kQuor);
    shell.milMode = true;
    EXPECT_EQ(CurrentRuleSet(), RuleSet::kMil);
    shell.jbpMode = true;
    EXPECT_EQ(CurrentRuleSet(), RuleSet::kCsr) << "/JBP goes before /mil";
}

TEST(MainWindow, RuleSetSetsItsFlagAndClearsTheOther) {
    const RecordingWindow window;
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

TEST(MainWindow, QuorAfterCsrRemovesTheSuffixFromTheTitle) {
    const RecordingWindow window;
    RuleSetChosen(RuleSet::kCsr);
    EXPECT_EQ(shell.title, L"Corvane JBP");
    RuleSetChosen(RuleSet::kQuor);
    EXPECT_EQ(shell.title, L"Corvane");
    EXPECT_EQ(test::RecordingScreen::Of("title"), (Events{"Corvane JBP", "Corvane"}));
}

TEST(MainWindow, RuleSetReplacesEverySuffixOfTheTitle) {
    const RecordingWindow window;
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

TEST(MainWindow, RuleSetRedrawsTheRuleButtonAndTheCaption) {
    RecordingWindow window;
    window.Open(Database(1));
    shell.bsd.Titles(5).Assign(L"AURORA");
    RuleSetChosen(RuleSet::kMil);
    EXPECT_EQ(test::RecordingScreen::events,
              (Events{"redraw rule button", "title Corvane MIL - ship.ve2 - AURORA"}));
}

// ---- The lock ----------------------------------------------------------------------------------

TEST(MainWindow, LockReachesTheWindow) {
    const RecordingWindow window;
    LockShell(true);
    LockShell(false);
    EXPECT_EQ(test::RecordingScreen::events, (Events{"lock", "unlock"}));
}

TEST(MainWindow, LockWithoutAWindowDoesNothing) {
    const test::RecordingScreen screen;
    LockShell(true);
    LockShell(false);
    EXPECT_TRUE(test::RecordingScreen::events.empty());
}

TEST(MainWindow, CommandThatIsMissingTellsSo) {
    const RecordingWindow window;
    NotImp();
    EXPECT_EQ(test::RecordingScreen::Of("plain"), Events{"not implemented"});
}

// ---- Enabling ----------------------------------------------------------------------------------

TEST(MainWindow, CommandsAreEnabledByTheState) {
    const RecordingWindow window;
    Command command{};
    const auto enabled = [&](EnabledWhen when, bool rowSelected) {
        command.enabledWhen = when;
        return IsEnabled(command, rowSelected);
    };
    EXPECT_TRUE(enabled(EnabledWhen::kAlways, false));
    EXPECT_FALSE(enabled(EnabledWhen::kDatabaseOpen, true));
    EXPECT_FALSE(enabled(EnabledWhen::kBsdDefined, true));
    EXPECT_FALSE(enabled(EnabledWhen::kModelSelected, false));
    EXPECT_TRUE(enabled(EnabledWhen::kModelSelected, true));
    shell.settings.DatabasePath = L"C:\\ship.ve2";
    EXPECT_TRUE(enabled(EnabledWhen::kDatabaseOpen, false));
    EXPECT_FALSE(enabled(EnabledWhen::kBsdDefined, false));
    DefineBsd();
    EXPECT_TRUE(enabled(EnabledWhen::kBsdDefined, false));
}

TEST(MainWindow, BsdMenuOpensWithADatabaseAndCreateMenuWithItsBsd) {
    const RecordingWindow window;
    EXPECT_TRUE(IsMenuEnabled(Menu::kFile));
    EXPECT_TRUE(IsMenuEnabled(Menu::kSection));
    EXPECT_TRUE(IsMenuEnabled(Menu::kHelp));
    EXPECT_FALSE(IsMenuEnabled(Menu::kBsd));
    EXPECT_FALSE(IsMenuEnabled(Menu::kCreate));
    shell.settings.DatabasePath = L"C:\\ship.ve2";
    EXPECT_TRUE(IsMenuEnabled(Menu::kBsd));
    EXPECT_FALSE(IsMenuEnabled(Menu::kCreate));
    DefineBsd();
    EXPECT_TRUE(IsMenuEnabled(Menu::kCreate));
}

}  // namespace
}  // namespace corvane
