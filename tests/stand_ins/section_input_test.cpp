// Section input without its window: sections are appended and replaced.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/creating.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "database/section_view.h"
#include "stand_ins/midship.h"
#include "stand_ins/stand_ins.h"
#include "tests/stand_ins/stand_in_fixture.h"

namespace corvane::stand_ins {
namespace {

using test::Narrow;
using test::RecordedReports;

constexpr int kSampleCount = 14;

struct SectionInputTest : StandInTest {
    void Open(const std::wstring& rest) {
        ASSERT_TRUE(OpenForm(kSectionInput, Line(rest), form)) << Warning();
    }
    std::string Save() { return Narrow(SaveForm(kSectionInput, form, Ask)); }
    SectionModel Saved(int32_t number) const {
        SectionModel section;
        EXPECT_TRUE(ReadSectionBlock(path, number, false, section));
        return section;
    }
    // A section that this stand-in made, as model 15.
    void MakeOne() {
        Open(L"");
        ASSERT_EQ(Save(), "Saved: section 15, Midship section, in my ship.ve2") << Warning();
    }
};

TEST_F(SectionInputTest, NewSectionIsProposedForTheShip) {
    Open(L"");
    EXPECT_EQ(Shown(L"Name"), "Midship section");
    EXPECT_EQ(Shown(L"Position x"), "108.5");
    EXPECT_EQ(Shown(L"Breadth"), "32.25");
    EXPECT_EQ(Shown(L"Depth"), "19.6");
    EXPECT_EQ(Shown(L"Double bottom height"), "1.6");
    EXPECT_EQ(Shown(L"Bilge radius"), "1.3");
    EXPECT_EQ(Shown(L"Stiffener spacing"), "0.8");
}

TEST_F(SectionInputTest, NewSectionIsAppendedAndTheRestOfTheFileStays) {
    const std::string before = Bytes();
    MakeOne();
    EXPECT_EQ(Bytes().substr(0, before.size()), before);
    EXPECT_EQ(CountModels(path), kSampleCount + 1);
    EXPECT_EQ(ModelPosition(path, 15), 108.5F);
    const SectionModel section = Saved(15);
    EXPECT_EQ(Narrow(section.name), "Midship section");
    EXPECT_FALSE(section.identifier.empty());
    EXPECT_EQ(section.shipType, 1);
    EXPECT_EQ(section.draught_m, 14.0F);
    EXPECT_EQ(section.frameSpacing_m, 0.8F);
    EXPECT_TRUE(IsMidship(section, {32.25F, 19.6F, 1.6F, 1.3F, 0.8F}));
}

TEST_F(SectionInputTest, SavedSectionComputesAsItWasRead) {
    MakeOne();
    SectionModel section = Saved(15);
    LibraryView view;
    MakeLibraryView(section, view);
    DrawingParameters parameters{};
    EXPECT_EQ(QuickCompute(&view.section, &parameters), 0);
}

TEST_F(SectionInputTest, FurtherSaveReplacesTheNewSection) {
    MakeOne();
    const std::string identifier = Saved(15).identifier;
    EXPECT_EQ(form.request.model, 15);
    EXPECT_EQ(Fact(L"Model"), "15, Midship section");
    Enter(L"Depth", L"21");
    Enter(L"Name", L"Deeper");
    EXPECT_EQ(Save(), "Saved: section 15, Deeper, in my ship.ve2") << Warning();
    EXPECT_EQ(CountModels(path), kSampleCount + 1);
    EXPECT_EQ(Saved(15).identifier, identifier);
    EXPECT_EQ(Saved(15).depth_m, 21.0F);
}

TEST_F(SectionInputTest, OldSectionIsReplacedAndKeepsItsIdentifier) {
    MakeOne();
    const SectionModel before = Saved(15);
    Open(L" 15");
    EXPECT_EQ(Shown(L"Double bottom height"), "1.6");
    EXPECT_EQ(Shown(L"Bilge radius"), "1.3");
    EXPECT_EQ(Shown(L"Stiffener spacing"), "0.8");
    Enter(L"Stiffener spacing", L"0.7");
    Enter(L"Position x", L"100");
    EXPECT_NE(Save(), "") << Warning();
    EXPECT_TRUE(asked.empty()) << "the section is the stand-in's own";
    const SectionModel after = Saved(15);
    EXPECT_EQ(after.identifier, before.identifier);
    EXPECT_EQ(after.x_m, 100.0F);
    EXPECT_TRUE(IsMidship(after, {32.25F, 19.6F, 1.6F, 1.3F, 0.7F}));
    EXPECT_EQ(CountModels(path), kSampleCount + 1);
}

TEST_F(SectionInputTest, NameAndPositionAloneKeepAForeignSectionsPanels) {
    const SectionModel before = Saved(5);
    Open(L" 5");
    Enter(L"Name", L"Renamed");
    Enter(L"Position x", L"110.25");
    EXPECT_EQ(Save(), "Saved: section 5, Renamed, in my ship.ve2") << Warning();
    EXPECT_TRUE(asked.empty());
    const SectionModel after = Saved(5);
    EXPECT_EQ(after.x_m, 110.25F);
    EXPECT_EQ(after.panels.size(), before.panels.size());
    EXPECT_EQ(after.identifier, before.identifier);
    EXPECT_EQ(after.compartments.size(), before.compartments.size());
    EXPECT_EQ(CountModels(path), kSampleCount);
}

TEST_F(SectionInputTest, ForeignSectionIsReplacedOnlyAfterYes) {
    const std::string before = Bytes();
    Open(L" 5");
    Enter(L"Depth", L"20");
    EXPECT_EQ(Save(), "");
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_NE(asked[0].find("'Midship section, hold 4' was not made by"), std::string::npos);
    EXPECT_EQ(Bytes(), before);

    answerYes = true;
    EXPECT_NE(Save(), "") << Warning();
    EXPECT_EQ(Saved(5).depth_m, 20.0F);
    EXPECT_EQ(Saved(5).compartments.size(), 2U);
}

struct Refusal {
    const wchar_t* label;
    const wchar_t* value;
    const char* report;
};

TEST_F(SectionInputTest, DimensionsOutOfRangeAreReportedAndNothingIsWritten) {
    const std::string before = Bytes();
    for (const Refusal& refusal : std::vector<Refusal>{
             {L"Name", L" ", "Name: the field is empty."},
             {L"Position x", L"-51", "Position x: '-51' is not a number from -50 to 1000 m."},
             {L"Breadth", L"5.9", "Breadth: '5.9' is not a number from 6 to 70 m."},
             {L"Depth", L"41", "Depth: '41' is not a number from 3 to 40 m."},
             {L"Double bottom height", L"0.5",
              "Double bottom height: '0.5' is not a number from 0.6 to 10 m."},
             {L"Double bottom height", L"6.6",
              "Double bottom height: 6.6 m is more than a third of the depth, 6.533 m."},
             {L"Bilge radius", L"0", "Bilge radius: '0' is not a number from 0.2 to 10 m."},
             {L"Bilge radius", L"1.7",
              "Bilge radius: 1.7 m is more than the double bottom height or a quarter of "
              "the breadth allows, 1.6 m."},
             {L"Stiffener spacing", L"1.3",
              "Stiffener spacing: '1.3' is not a number from 0.4 to 1.2 m."},
             {L"Stiffener spacing", L"0,8",
              "Stiffener spacing: '0,8' is not a number from 0.4 to 1.2 m."},
         }) {
        Open(L"");
        RecordedReports::events.clear();
        Enter(refusal.label, refusal.value);
        EXPECT_EQ(Save(), "");
        EXPECT_TRUE(Warning().starts_with(refusal.report)) << Warning();
        EXPECT_EQ(&form.fields.at(static_cast<size_t>(form.fault)), &FieldOf(refusal.label));
        EXPECT_EQ(Bytes(), before);
    }
}

TEST_F(SectionInputTest, ShipWithoutDimensionsGetsUsualOnes) {
    BasicShipData bsd = NewBasicShipData(L"NEW");
    ASSERT_TRUE(CreateDatabaseFile(path, bsd));
    Open(L"");
    EXPECT_EQ(Shown(L"Breadth"), "20");
    EXPECT_EQ(Save(), "Saved: section 1, Midship section, in my ship.ve2") << Warning();
}

TEST_F(SectionInputTest, SectionThatWasRemovedMeanwhileIsReported) {
    Open(L" 5");
    BasicShipData bsd = NewBasicShipData(L"NEW");
    ASSERT_TRUE(CreateDatabaseFile(path, bsd));
    RecordedReports::events.clear();
    EXPECT_EQ(Save(), "");
    EXPECT_TRUE(Warning().starts_with("Another program has changed")) << Warning();
}

}  // namespace
}  // namespace corvane::stand_ins
