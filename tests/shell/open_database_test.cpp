#include "shell/open_database.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report/reporters.h"
#include "shell/preview_pane.h"
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
    EXPECT_EQ(RecordedReports::caption, GetMessage(kMsgNoDatabaseOpen));
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
    SelectLine(1);
    EXPECT_EQ(shell.database.currentModel, 2);
    EXPECT_EQ(FakeView::position, L"X = 20 m");
}

TEST(OpenDatabaseTest, SectionMenuFollowsTheKindOfTheSelectedModel) {
    ShownDatabase window;
    window.Open("DATABASE\r\n" + Block(1, "SECTION", "S", " 1 ") + Block(2, "BHA", "B", " 2 ") +
                Block(3, "TORSION", "T", " 3 "));
    RefreshMainWindow();
    EXPECT_EQ(FakeView::menu, L"&Section");
    SelectLine(1);
    EXPECT_EQ(FakeView::menu, L"Bul&khead");
    SelectLine(2);
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
        SelectLine(0);
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
    Events ids;
    for (const ModelRow& row : FakeView::rows) ids.push_back(Narrow(row.id));
    EXPECT_EQ(ids, (Events{" 1", " 3", " 2", "40", " 5"}));
    const int32_t numbers[] = {1, 3, 2, 40, 5};
    const char* const positions[] = {"X = 10 m", "X = 20 m", "X = 30 m", "X = 40 m", "X = 50 m"};
    for (int row = 0; row < 5; ++row) {
        SelectLine(row);
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

TEST(OpenDatabaseTest, RowWithoutItsOwnNumberShowsItsPositionAndNoPicture) {
    ShownDatabase window;
    window.Open(FiveModels({" 1 ", " 2 ", " 2 ", "none", "-1 "}));
    RefreshMainWindow();
    const char* const positions[] = {"X = 10 m", "X = 20 m", "X = 30 m", "X = 40 m", "X = 50 m"};
    for (int row = 1; row < 5; ++row) {
        SelectLine(row);
        EXPECT_EQ(Narrow(FakeView::position), positions[row]);
        EXPECT_FALSE(shell.preview.isShown);
    }
    SelectLine(2);
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

TEST(OpenDatabaseTest, FrameFartherAwayIsTheCloserFrameWithItsDistanceAndSide) {
    const ShownDatabase window;
    GiveFrames();
    EXPECT_EQ(FrameText(12.25F), L"Closer Frame : 12 (0.250 m), forward of it");
    EXPECT_EQ(FrameText(11.75F), L"Closer Frame : 12 (0.250 m), aft of it");
    EXPECT_EQ(FrameText(103.0F), L"Closer Frame : 100 (3.000 m), forward of it");
    EXPECT_EQ(FrameText(-2.0F), L"Closer Frame : 0 (2.000 m), aft of it");
}

TEST(OpenDatabaseTest, DistanceTakesTheFormatOfTheCatalogue) {
    const ShownDatabase window;
    GiveFrames();
    test::FakeCatalogue::texts[kMsgFrameDistanceFormat] = "0.0##";
    EXPECT_EQ(FrameText(12.25F), L"Closer Frame : 12 (0.25 m), forward of it");
    test::FakeCatalogue::texts[kMsgFrameDistanceFormat] = "0";
    EXPECT_EQ(FrameText(103.0F), L"Closer Frame : 100 (3 m), forward of it");
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
    SelectLine(1);
    SelectLine(2);
    DeselectModel();
    EXPECT_EQ(RecordedReports::Of("buttons"),
              (Events{"Section", "Bulkhead", "Torsion", "Section"}));
}

}  // namespace
}  // namespace corvane
