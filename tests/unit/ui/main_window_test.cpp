#include "ui/commands/main_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "app/state.h"
#include "database/database_file.h"
#include "tests/unit/support.h"

namespace corvane {
namespace {

using test::Narrow;
using Events = std::vector<std::string>;

constexpr int kPositionRow = 10;

// The part of the catalogue that the main window needs.
std::map<int32_t, std::string> Texts() {
    return {{kMsgPosition, "X = \xA4 m"},
            {kMsgReadingModels, "Reading \xA4"},
            {kMsgFrameDistanceFormat, "#0.000"},
            {kMsgInputBsdFirst, "BSD first"},
            {kMsgCommentRule, "*"},
            {kMsgModelMarker, "== MODEL =="},
            {kMsgFormatVersionLabel, "VERSION"},
            {kMsgNameLabel, "NAME"},
            {kMsgSignature, "DATABASE"},
            {kMsgFileHeadLabel, "HEAD"}};
}

// A window that writes down what it is told, over the events of the recording screen.
struct RecordingWindow {
    test::FakeCatalogue catalogue{Texts()};
    test::RecordingScreen screen;
    test::TemporaryFolder folder;

    static std::vector<ModelRow> rows;
    static int selected;
    static bool previewOn;
    static std::wstring database, position, frame, menu;

    static void Note(std::string event) {
        test::RecordingScreen::events.push_back(std::move(event));
    }

    RecordingWindow() {
        rows.clear();
        selected = -1;
        previewOn = false;
        database = position = frame = menu = L"untouched";
        static constexpr MainWindow window{
            .setDatabaseText = [](const std::wstring& text) { database = text; },
            .setRows =
                [](const std::vector<ModelRow>& all) {
                    rows = all;
                    Note("rows");
                },
            .selectRow = [](int index) { selected = index; },
            .selectedRow = [] { return selected; },
            .isPreviewOn = [] { return previewOn; },
            .redrawPreview = [] { Note("redraw preview"); },
            .clearPreview = [] { Note("clear preview"); },
            .setPositionText = [](const std::wstring& text) { position = text; },
            .setFrameText = [](const std::wstring& text) { frame = text; },
            .setSectionMenuCaption = [](const std::wstring& text) { menu = text; },
            .selectedRule = [] { return 0; },
            .selectRule = [](int) {},
            .showModelButtons = [](ModelKind) {},
            .setLocked = [](bool) {},
            .updateEnabling = [] { Note("enabling"); },
            .focusList = [] { Note("focus list"); },
            .close = [] { Note("close"); },
        };
        shell.mainWindow = &window;
    }

    // Makes a database the open one.
    void Open(const std::string& bytes) {
        shell.settings.DatabasePath = folder.File(L"ship.ve2");
        test::WriteFileBytes(shell.settings.DatabasePath, bytes);
    }
};

std::vector<ModelRow> RecordingWindow::rows;
int RecordingWindow::selected;
bool RecordingWindow::previewOn;
std::wstring RecordingWindow::database, RecordingWindow::position, RecordingWindow::frame,
    RecordingWindow::menu;

std::string Block(int number, const std::string& keyword, const std::string& name,
                  const std::string& positionRow) {
    return "== MODEL ==\r\n*\r\n " + std::to_string(number) + " \r\n" + keyword +
           "\r\n*\r\nVERSION\r\n 2.002 \r\n*\r\nNAME\r\n" + name + "\r\n" + positionRow + "\r\n";
}

std::string Database(int sections) {
    std::string bytes = "DATABASE\r\n";
    for (int i = 1; i <= sections; ++i) {
        bytes +=
            Block(i, "SECTION", "Frame " + std::to_string(i), std::to_string(i * kPositionRow));
    }
    return bytes;
}

void DefineBsd() {
    for (const int item : {1, 2, 3, 9}) shell.bsd.MainData(item) = 10;
}

// Frames 0 to 100 with a spacing of 1 m, from x = 0 on.
void GiveFrames() {
    shell.bsd.FrameZoneCount = 1;
    shell.bsd.FrameNumbers(0) = 0;
    shell.bsd.FrameNumbers(1) = 100;
    shell.bsd.ZoneSpacing(1) = 1;
}

bool Happened(const std::string& event) {
    const Events& events = test::RecordingScreen::events;
    return std::find(events.begin(), events.end(), event) != events.end();
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
    EXPECT_FALSE(enabled(EnabledWhen::kNotYet, true));
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

// ---- The preview -------------------------------------------------------------------------------

int timesTraced;

void ShipOfOnePanel() {
    DefineBsd();
    Panel panel;
    panel.nodes.resize(2);
    shell.previewSection.panels.assign(1, panel);
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

TEST(MainWindow, SelectedSectionIsReadForThePreview) {
    RecordingWindow window;
    window.Open(Database(2));
    window.previewOn = true;
    const std::vector<ModelRow> rows = FillModelList(shell.settings.DatabasePath);
    SelectModel(rows[1]);
    EXPECT_TRUE(shell.previewShown);
    EXPECT_EQ(shell.previewSection.name, L"Frame 2");
    EXPECT_TRUE(Happened("redraw preview"));
    EXPECT_FALSE(Happened("clear preview"));
    EXPECT_TRUE(Happened("pointer reset"));
    EXPECT_EQ(window.position, L"X = 20 m");
}

TEST(MainWindow, WithoutThePreviewOnlyThePositionIsRead) {
    RecordingWindow window;
    window.Open(Database(2));
    const std::vector<ModelRow> rows = FillModelList(shell.settings.DatabasePath);
    SelectModel(rows[1]);
    EXPECT_FALSE(shell.previewShown);
    EXPECT_TRUE(shell.previewSection.name.empty());
    EXPECT_TRUE(Happened("clear preview"));
    EXPECT_FALSE(Happened("redraw preview"));
    EXPECT_EQ(window.position, L"X = 20 m");
}

TEST(MainWindow, BulkheadAndTorsionModelClearThePreviewWithoutABox) {
    for (const char* keyword : {"BHA", "TORSION"}) {
        RecordingWindow window;
        window.Open("DATABASE\r\n" + Block(1, "SECTION", "Midship", " 100 ") +
                    Block(2, keyword, "Other", " 30 "));
        window.previewOn = true;
        const std::vector<ModelRow> rows = FillModelList(shell.settings.DatabasePath);
        SelectModel(rows[0]);
        test::RecordingScreen::events.clear();
        SelectModel(rows[1]);
        EXPECT_FALSE(shell.previewShown) << keyword;
        EXPECT_TRUE(Happened("clear preview"));
        EXPECT_TRUE(test::RecordingScreen::Of("warning").empty());
        EXPECT_EQ(shell.previewSection.name, L"Midship") << "no section is read";
        const float x = ModelPosition(shell.settings.DatabasePath, 2);
        EXPECT_EQ(window.position, FormatMessage(kMsgPosition, {x}));
    }
}

TEST(MainWindow, SectionThatCannotBeReadClearsThePreview) {
    RecordingWindow window;
    window.Open(Database(1));
    window.previewOn = true;
    ModelRow row = FillModelList(shell.settings.DatabasePath).at(0);
    SelectModel(row);
    row.tag = 7;
    SelectModel(row);
    EXPECT_FALSE(shell.previewShown);
    EXPECT_TRUE(Happened("clear preview"));
}

TEST(MainWindow, DeselectingClearsThePreview) {
    RecordingWindow window;
    window.Open(Database(1));
    window.previewOn = true;
    SelectModel(FillModelList(shell.settings.DatabasePath).at(0));
    DeselectModel();
    EXPECT_FALSE(shell.previewShown);
    EXPECT_TRUE(Happened("clear preview"));
}

TEST(MainWindow, RepaintDrawsFromMemoryNotFromTheFile) {
    RecordingWindow window;
    CountingLibrary library;
    window.Open(Database(1));
    window.previewOn = true;
    SelectModel(FillModelList(shell.settings.DatabasePath).at(0));
    ShipOfOnePanel();
    test::WriteFileBytes(shell.settings.DatabasePath, "no database any more");
    test::RecordingScreen::events.clear();
    DrawPreview(library.picture);
    DrawPreview(library.picture);
    EXPECT_EQ(timesTraced, 2);
    EXPECT_TRUE(test::RecordingScreen::events.empty()) << "nothing is read, nothing reported";
}

TEST(MainWindow, NothingIsDrawnWhenNoSectionIsShown) {
    RecordingWindow window;
    CountingLibrary library;
    ShipOfOnePanel();
    DrawPreview(library.picture);
    EXPECT_EQ(timesTraced, 0);
    shell.previewShown = true;
    DrawPreview(library.picture);
    EXPECT_EQ(timesTraced, 1);
}

TEST(MainWindow, UndefinedBsdLeavesThePictureAlone) {
    RecordingWindow window;
    CountingLibrary library;
    library.picture.clear = [](Picture&) { ADD_FAILURE() << "cleared"; };
    ShipOfOnePanel();
    shell.previewShown = true;
    shell.bsd.MainData(9) = 0;
    DrawPreview(library.picture);
    EXPECT_EQ(timesTraced, 0);
}

}  // namespace
}  // namespace corvane
