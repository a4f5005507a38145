// What the boxes of the exchange say before OK.
#include "shell/exchange_notes.h"

#include <gtest/gtest.h>

#include "bsd/basic_ship_data.h"
#include "database/editing.h"
#include "database/listing.h"
#include "platform/system.h"
#include "shell/exchange_boxes.h"
#include "shell/state.h"
#include "tests/legacy/legacy_support.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"

namespace corvane {
namespace {

using namespace test;

SectionModel SectionWith(size_t openings, size_t pillars) {
    SectionModel section;
    section.name = L"Frame 10";
    section.x_m = 7.5F;
    section.breadth_m = section.depth_m = section.draught_m = 10;
    section.panels.push_back(PanelOfNodes(10, 0, 1));
    section.panels[0].openings.resize(openings);
    section.panels[0].pillars.resize(pillars);
    return section;
}

BasicShipData ShipNamed(const std::wstring& name) {
    BasicShipData bsd = NewBasicShipData(name);
    bsd.Titles(1).Assign(name);
    for (const int item : {1, 2, 3, 9}) bsd.MainData(item) = 20;
    return bsd;
}

TEST(ExchangeNotes, RoomIsSaidWithTheFullestTable) {
    const FakeView view;
    EXPECT_EQ(Narrow(RoomNote(SectionWith(6, 5))),
              "A DOS database has room for all of it; fullest: pillars 5 of 8.");
    EXPECT_EQ(Narrow(RoomNote(SectionWith(12, 8))),
              "A DOS database has room for all of it; fullest: openings 12 of 12.");
}

TEST(ExchangeNotes, WhatHasNoRoomIsSaidWithCountsAndLimits) {
    const FakeView view;
    EXPECT_EQ(Narrow(RoomNote(SectionWith(13, 9))),
              "More than a DOS database can hold: openings 13 of 12, pillars 9 of 8. The rest "
              "would be left out.");
}

// What the note says before is what the export loses.
TEST(ExchangeNotes, RoomAgreesWithTheConversion) {
    const RecordedReports screen;
    for (const int nodes : {58, 59, 60, 99, 101}) {
        SectionModel section = SectionWith(0, 0);
        section.panels[0] = PanelOfNodes(nodes, 0, 1);
        const std::wstring note = RoomNote(section);
        RecordedReports::events.clear();
        RecordOf(section);
        EXPECT_EQ(note.find(L"More than") != std::wstring::npos,
                  !RecordedReports::Of("lost").empty())
            << nodes << Narrow(note);
    }
}

struct ExchangeNotesOfFiles : CommandTest {};

TEST_F(ExchangeNotesOfFiles, OfSeveralSectionsThoseAreCountedThatHaveNoRoom) {
    MakeOpen(L"ship.ve2");
    std::wstring path = shell.database.path;
    for (const size_t openings : {3U, 14U, 12U, 15U}) {
        SectionModel section = SectionWith(openings, 0);
        section.name += L"-" + std::to_wstring(openings);
        ASSERT_TRUE(AppendSection(path, section, {}));
    }
    std::vector<ModelEntry> models = ListModels(path);
    EXPECT_EQ(Narrow(RoomNote(path, models)),
              "2 of 4 sections have more than a DOS database can hold, and the rest would be left "
              "out. 'Frame 10-14': openings 14 of 12.");
    models.resize(1);
    EXPECT_EQ(Narrow(RoomNote(path, models)), "A DOS database has room for all of the 1 sections.");
    EXPECT_TRUE(Warnings().empty());
}

TEST(ExchangeNotes, AnotherShipIsNamedWithWhatDiffers) {
    const FakeView view;
    const BasicShipData open = ShipNamed(L"Aurora");
    EXPECT_EQ(ShipNote(open, open), L"");
    BasicShipData other = ShipNamed(L"Borealis");
    other.MainData(2) = 32.25F;
    EXPECT_EQ(Narrow(ShipNote(other, open)),
              "Another ship than that of the open database: name 'Borealis' instead of 'Aurora', "
              "breadth '32.25' instead of '20'.");
    other = ShipNamed(L"AURORA");
    EXPECT_EQ(ShipNote(other, open), L"") << "capitals are no other name";
    other.FrameZoneCount = 1;
    other.FrameNumbers(1) = 10;
    other.ZoneSpacing(1) = 0.8F;
    BasicShipData frames = other;
    frames.ZoneSpacing(1) = 0.7F;
    EXPECT_EQ(Narrow(ShipNote(other, frames)),
              "Another ship than that of the open database: frames.");
    EXPECT_EQ(ShipNote(BasicShipData(), open), L"") << "what is not known is no difference";
}

TEST_F(ExchangeNotesOfFiles, ShipOfTheChosenFileIsCompared) {
    MakeOpen(L"ship.ve2");
    for (const int item : {1, 2, 3, 9}) shell.database.bsd.MainData(item) = 20;
    const std::wstring other = DataPath("../samples/aurora_bay.ve2");
    EXPECT_NE(ListOfFile(other).ship.find(L"name 'Aurora Bay' instead of"), std::wstring::npos)
        << Narrow(ListOfFile(other).ship);
    EXPECT_NE(ListOfFile(DataPath("../samples/aurora_bay.vel")).ship, L"");
    WriteFileBytes(File(L"broken.vel"), "no legacy database");
    RecordedReports::events.clear();
    EXPECT_EQ(ShipNoteOfFile(File(L"broken.vel")), L"");
    EXPECT_TRUE(Warnings().empty()) << "the listing reports it";
}

TEST(ExchangeNotes, ModelIsSaidWithKindAndPosition) {
    const FakeView view;
    EXPECT_EQ(Narrow(ModelNote(ModelKind::kSection, 12.5F)), "Section at x = 12.5 m");
    EXPECT_EQ(Narrow(ModelNote(ModelKind::kTorsion, -1)), "Torsion");
}

TEST(ExchangeNotes, ValuesOfTheShipThatAreSavedOtherwiseAreNamed) {
    const FakeView view;
    const BasicShipData read = ShipNamed(L"Aurora");
    BasicShipData saved = read;
    Losses losses;
    NoteSavedShip(read, saved, losses);
    EXPECT_TRUE(losses.empty());
    saved.MainData(4) = 20;
    saved.ReductionFactor = 0.85F;
    NoteSavedShip(read, saved, losses);
    ASSERT_EQ(losses.size(), read.MainData(4) == 20 ? 1U : 2U);
    EXPECT_NE(losses.back().find(L"Reduction factor: "), std::wstring::npos);
    EXPECT_NE(losses.back().find(L"became 0.85 when it was saved"), std::wstring::npos);
}

}  // namespace
}  // namespace corvane
