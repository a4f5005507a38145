// What the selection of a model does to the preview.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "database/database_file.h"
#include "tests/shell/recording_window.h"

namespace corvane {
namespace {

using test::Block;
using test::Database;
using test::DefineBsd;
using test::Happened;
using test::RecordingWindow;

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
