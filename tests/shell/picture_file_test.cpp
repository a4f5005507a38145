// The picture that the preview shows, as files and on the clipboard.
#include "shell/picture_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "bsd/bsd_file.h"
#include "files/file_system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/open_database.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"

namespace corvane {
namespace {

using test::FakePrompt;
using test::FakeView;
using test::ReadFileBytes;
using test::WriteFileBytes;

// The sample ship, its first section in the preview.
struct PictureCommands : test::CommandTest {
    std::wstring database = File(L"ship.ve2");

    PictureCommands() {
        FakeView::previewOn = true;
        WriteFileBytes(database, ReadFileBytes(test::DataPath("../samples/aurora_bay.ve2")));
        BasicShipData bsd;
        LoadBsdFromDatabase(database, bsd);
        ShowDatabase(database, bsd);
    }
    // Exports to a file of this name, and gives its path.
    std::wstring Export(std::wstring_view name) const {
        const FakePrompt prompt{File(name)};
        RunCommand(ME_FileExportPicture);
        return File(name);
    }
};

TEST_F(PictureCommands, PictureIsTheSectionOnASheet) {
    const Figure figure = PictureShown();
    EXPECT_EQ(figure.width_mm, 297);
    EXPECT_EQ(figure.height_mm, 210);
    const auto has = [&figure](FigureLayer layer) {
        return std::ranges::find(figure.items, layer, &FigureItem::layer) != figure.items.end();
    };
    EXPECT_TRUE(has(FigureLayer::kPlate));
    EXPECT_TRUE(has(FigureLayer::kStiffener));
    EXPECT_TRUE(has(FigureLayer::kCompartment));
}

TEST_F(PictureCommands, TableIsBesideTheSectionWhenItIsSwitchedOnAndSomethingIsMarked) {
    const Figure plain = PictureShown();
    RunCommand(ME_ViewTable);
    EXPECT_TRUE(FindCommand(ME_ViewTable)->isChecked());
    EXPECT_EQ(PictureShown().points, plain.points) << "nothing is marked";
    const Panel& panel = shell.preview.section.panels.at(0);
    shell.preview.places = {{{panel.nodes.at(0).y, panel.nodes.at(0).z}, 0.5}};
    const Figure figure = PictureShown();
    EXPECT_EQ(figure.width_mm, 297);
    EXPECT_LT(figure.mmPerMetre, plain.mmPerMetre + 1e-9);
    EXPECT_GT(figure.items.size(), plain.items.size() + 5);
    EXPECT_NE(std::ranges::find(figure.texts, L"Panel"), figure.texts.end());
    for (const SheetPoint& point : figure.points) EXPECT_LE(point.x, 287);
    RunCommand(ME_EditCopyPicture);
    EXPECT_EQ(FakeView::copiedPicture.points, figure.points);
    const std::string svg = ReadFileBytes(Export(L"table.svg"));
    EXPECT_NE(svg.find(">Panel<"), std::string::npos);
    RunCommand(ME_ViewTable);
    EXPECT_EQ(PictureShown().points, plain.points);
}

TEST_F(PictureCommands, WhatIsSwitchedOnGoesWithThePicture) {
    const Figure plain = PictureShown();
    for (const uint16_t command : {ME_ViewScaleBar, ME_ViewAxes, ME_ViewLegend, ME_ViewNames,
                                   ME_ViewNumbers, ME_ViewThickness}) {
        RunCommand(command);
        EXPECT_GT(PictureShown().items.size(), plain.items.size()) << command;
        RunCommand(command);
        EXPECT_EQ(PictureShown().points, plain.points) << command;
    }
    RunCommand(ME_ViewLegend);
    RunCommand(ME_ViewScaleBar);
    ShowInPreview(*std::ranges::find(shell.database.rows, ModelKind::kBulkhead, &ModelRow::kind));
    const std::vector<std::wstring> texts = PictureShown().texts;
    EXPECT_NE(std::ranges::find(texts, L"Outline of the plating"), texts.end());
    EXPECT_NE(std::ranges::find_if(texts, [](const auto& text) { return text.ends_with(L" m"); }),
              texts.end());
}

TEST_F(PictureCommands, BulkheadsAreOnASheetWithItsMargins) {
    const auto row = std::ranges::find(shell.database.rows, ModelKind::kBulkhead, &ModelRow::kind);
    ASSERT_NE(row, shell.database.rows.end());
    ShowInPreview(*row);
    const Figure figure = PictureShown();
    EXPECT_EQ(figure.width_mm, 297);
    EXPECT_GT(figure.items.size(), 50U);
    for (const SheetPoint& point : figure.points) {
        EXPECT_TRUE(point.x >= 9.9 && point.x <= 287.1) << point.x;
    }
}

TEST_F(PictureCommands, ExportAsksForANameAndSaysWhatItHasWritten) {
    const std::wstring path = Export(L"a.svg");
    const FakePrompt::Question& asked = FakePrompt::questions.at(0);
    EXPECT_EQ(asked.proposed, L"Engineroomframe30.emf");
    EXPECT_EQ(asked.extension, L"emf");
    EXPECT_EQ(asked.types, GetMessage(kMsgPictureFiles));
    EXPECT_EQ(asked.caption, L"Export picture");
    EXPECT_EQ(asked.flags, -1);
    EXPECT_EQ(test::RecordedReports::caption, L"Picture written to '" + path + L"'");
}

TEST_F(PictureCommands, ExtensionSaysTheKind) {
    EXPECT_TRUE(ReadFileBytes(Export(L"a.SVG")).starts_with("<?xml"));
    EXPECT_TRUE(ReadFileBytes(Export(L"a.dxf")).starts_with("999\r\n"));
    const std::string count = std::to_string(PictureShown().items.size());
    EXPECT_EQ(ReadFileBytes(Export(L"a.emf")), "metafile " + count);
    EXPECT_EQ(ReadFileBytes(Export(L"a.png")), "png " + count);
    EXPECT_TRUE(Warnings().empty());
    Export(L"a.jpg");
    EXPECT_TRUE(OnlyWarning("ends in .emf, .svg, .png or .dxf"));
    EXPECT_FALSE(FileExists(File(L"a.jpg")));
}

TEST_F(PictureCommands, FileThatCannotBeWrittenStays) {
    WriteFileBytes(File(L"a.svg"), "old");
    WriteFileBytes(File(L"a.png"), "old");
    {
        const test::NoTemporaryFolder none;
        Export(L"a.svg");
    }
    EXPECT_TRUE(OnlyWarning("a.svg"));
    EXPECT_EQ(ReadFileBytes(File(L"a.svg")), "old");

    test::RecordedReports::events.clear();
    FakeView::pictureError = system::kErrorAccessDenied;
    Export(L"a.png");
    EXPECT_TRUE(OnlyWarning("a.png"));
    EXPECT_EQ(ReadFileBytes(File(L"a.png")), "old");
    EXPECT_EQ(test::RecordedReports::caption.find(L"Picture written"), std::wstring::npos);
}

TEST_F(PictureCommands, OpenDatabaseIsNeverReplaced) {
    const std::string before = ReadFileBytes(database);
    Export(L"ship.ve2");
    EXPECT_EQ(Warnings().size(), 1U);
    EXPECT_EQ(ReadFileBytes(database), before);
}

TEST_F(PictureCommands, CopyPutsThePictureOnTheClipboardAndSaysSo) {
    RunCommand(ME_EditCopyPicture);
    EXPECT_EQ(FakeView::copiedPicture.points, PictureShown().points);
    EXPECT_EQ(test::RecordedReports::caption,
              L"On the clipboard: the picture of 'Engine room, frame 30'");
    shell.view.copyPicture = [](const Figure&) { return false; };
    RunCommand(ME_EditCopyPicture);
    EXPECT_TRUE(OnlyWarning("another program is using the clipboard"));
}

TEST_F(PictureCommands, CommandsAreGreyWithoutAPictureAndSayWhy) {
    const Command& command = *FindCommand(ME_FileExportPicture);
    EXPECT_TRUE(IsEnabled(command));
    EXPECT_EQ(WhyDisabled(command), L"");
    FakeView::previewOn = false;
    ShowSelectedLineAgain();
    EXPECT_FALSE(IsEnabled(command));
    EXPECT_FALSE(IsEnabled(*FindCommand(ME_EditCopyPicture)));
    EXPECT_EQ(WhyDisabled(command), GetMessage(kMsgNoPictureShown));
    EXPECT_TRUE(PictureShown().items.empty());
}

}  // namespace
}  // namespace corvane
