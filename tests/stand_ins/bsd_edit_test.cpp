// The editor of the Basic Ship Data, without its window.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bsd/bsd_file.h"
#include "bsd/labels.h"
#include "database/creating.h"
#include "database/scanning.h"
#include "stand_ins/stand_ins.h"
#include "tests/stand_ins/stand_in_fixture.h"

namespace corvane::stand_ins {
namespace {

using test::Narrow;
using test::RecordedReports;

struct BsdEditTest : StandInTest {
    void Open(const std::wstring& line) {
        ASSERT_TRUE(OpenForm(kBsdEditor, line, form)) << Warning();
    }
    BasicShipData Saved() const {
        BasicShipData bsd;
        EXPECT_TRUE(LoadBsdFromDatabase(path, bsd));
        return bsd;
    }
    void ExpectRefusal(const wchar_t* label, const wchar_t* value, const char* report) {
        RecordedReports::events.clear();
        const std::string before = Bytes();
        const std::wstring old = FieldOf(label).value;
        Enter(label, value);
        EXPECT_EQ(SaveForm(kBsdEditor, form, Ask), L"");
        EXPECT_TRUE(Warning().starts_with(report)) << Warning();
        EXPECT_EQ(&form.fields.at(static_cast<size_t>(form.fault)), &FieldOf(label));
        EXPECT_EQ(Bytes(), before);
        Enter(label, old);
    }
};

TEST_F(BsdEditTest, ShowsTheShip) {
    Open(Line());
    EXPECT_EQ(Shown(L"Display name"), "Aurora Bay");
    EXPECT_EQ(Shown(L"Ship name"), "AURORA BAY");
    EXPECT_EQ(Shown(L"Ship type"), Narrow(ShipTypeName(1, false)));
    EXPECT_EQ(FieldOf(L"Ship type").choices.size(), 21U);
    EXPECT_EQ(Shown(L"Length"), "217");
    EXPECT_EQ(Shown(L"Breadth"), "32.25");
    EXPECT_EQ(Shown(L"Depth"), "19.6");
    EXPECT_EQ(Shown(L"Draught"), "14");
    EXPECT_EQ(Shown(L"Block coefficient"), "0.86");
    EXPECT_EQ(Shown(L"First frame"), "-6");
    EXPECT_EQ(Shown(L"x of frame 0"), "0");
    EXPECT_EQ(Shown(L"Frame zones"), "12  0.6\r\n46  0.75\r\n254  0.8\r\n292  0.6\r\n");
}

TEST_F(BsdEditTest, SavingWithoutAChangeKeepsTheShip) {
    const std::string before = Bytes();
    Open(Line());
    EXPECT_EQ(Narrow(SaveForm(kBsdEditor, form, Ask)), "Saved: Basic Ship Data, in my ship.ve2");
    EXPECT_EQ(Bytes(), before);
}

TEST_F(BsdEditTest, EveryFieldIsSavedAndAllElseStays) {
    BasicShipData wanted = Saved();
    Open(Line());
    Enter(L"Display name", L" Côte d'Émeraude ");
    Enter(L"Ship name", L"EMERAUDE");
    Enter(L"Ship type", ShipTypeName(7, false));
    Enter(L"Length", L"180.5");
    Enter(L"Breadth", L"30");
    Enter(L"Depth", L"16.25");
    Enter(L"Draught", L"11");
    Enter(L"Speed", L"15");
    Enter(L"Block coefficient", L"0.8");
    Enter(L"First frame", L"-4");
    Enter(L"x of frame 0", L"0.5");
    Enter(L"Frame zones", L"\r\n  10 \t 0.65  \r\n\r\n200 0.7");
    ASSERT_NE(SaveForm(kBsdEditor, form, Ask), L"") << Warning();

    wanted.Titles(1).Assign(L"Côte d'Émeraude");
    wanted.Titles(5).Assign(L"EMERAUDE");
    wanted.TypeCodes(1) = 7;
    wanted.MainData(1) = 180.5F;
    wanted.MainData(2) = 30;
    for (const int height : {3, 4, 5}) wanted.MainData(height) = 16.25F;
    wanted.MainData(6) = 11;
    wanted.MainData(8) = 15;
    wanted.MainData(9) = 0.8F;
    wanted.FrameZoneCount = 2;
    wanted.FrameNumbers = {};
    wanted.ZoneSpacing = {};
    wanted.FrameNumbers(0) = -4;
    wanted.FrameNumbers(1) = 10;
    wanted.FrameNumbers(2) = 200;
    wanted.FrameZeroX = 0.5F;
    wanted.ZoneSpacing(1) = 0.65F;
    wanted.ZoneSpacing(2) = 0.7F;
    EXPECT_TRUE(Saved() == wanted);
    EXPECT_EQ(CountModels(path), 14);
}

TEST_F(BsdEditTest, NewShipIsDefinedAfterwards) {
    BasicShipData fresh = NewBasicShipData(L"NEW");
    ASSERT_TRUE(CreateDatabaseFile(path, fresh));
    Open(Line());
    EXPECT_EQ(SaveForm(kBsdEditor, form, Ask), L"") << "its dimensions are still 0";
    EXPECT_TRUE(Warning().starts_with("Length: '0' is not a number from 1 to 1000 m")) << Warning();
    Enter(L"Length", L"100");
    Enter(L"Breadth", L"18");
    Enter(L"Depth", L"9");
    Enter(L"Block coefficient", L"0.7");
    ASSERT_NE(SaveForm(kBsdEditor, form, Ask), L"");
    EXPECT_TRUE(IsBsdDefined(Saved()));
    EXPECT_EQ(Saved().MainData(4), 9.0F);
}

TEST_F(BsdEditTest, HeightThatIsNotTheDepthStays) {
    BasicShipData bsd = Saved();
    bsd.MainData(4) = 25;
    ASSERT_TRUE(SaveBsdToDatabase(path, bsd));
    Open(Line());
    Enter(L"Depth", L"18");
    ASSERT_NE(SaveForm(kBsdEditor, form, Ask), L"");
    EXPECT_EQ(Saved().MainData(3), 18.0F);
    EXPECT_EQ(Saved().MainData(4), 25.0F);
    EXPECT_EQ(Saved().MainData(5), 18.0F);
}

TEST_F(BsdEditTest, RuleSetMilHasItsOwnTypesAndKeepsTheOldOne) {
    Open(L"/mil " + Line());
    ASSERT_EQ(FieldOf(L"Ship type").choices.size(), 3U);
    EXPECT_EQ(Shown(L"Ship type"), Narrow(ShipTypeName(1, false)));
    ASSERT_NE(SaveForm(kBsdEditor, form, Ask), L"");
    EXPECT_EQ(Saved().ShipType(), 1);
    Enter(L"Ship type", L"MIL Auxiliary Ship");
    ASSERT_NE(SaveForm(kBsdEditor, form, Ask), L"");
    EXPECT_EQ(Saved().ShipType(), 19);
}

TEST_F(BsdEditTest, UnknownTypeStays) {
    BasicShipData bsd = Saved();
    bsd.TypeCodes(1) = 40;
    ASSERT_TRUE(SaveBsdToDatabase(path, bsd));
    Open(Line());
    EXPECT_EQ(Shown(L"Ship type"), Narrow(BsdLabel(kLabelUnknownType)));
    ASSERT_NE(SaveForm(kBsdEditor, form, Ask), L"");
    EXPECT_EQ(Saved().ShipType(), 40);
}

TEST_F(BsdEditTest, WrongValuesAreReportedAndNothingIsWritten) {
    Open(Line());
    ExpectRefusal(L"Length", L"0", "Length: '0' is not a number from 1 to 1000 m");
    ExpectRefusal(L"Breadth", L"-32", "Breadth: '-32' is not a number");
    ExpectRefusal(L"Depth", L"", "Depth: '' is not a number");
    ExpectRefusal(L"Depth", L"19,6", "Depth: '19,6' is not a number");
    ExpectRefusal(L"Block coefficient", L"1.2", "Block coefficient: '1.2' is not");
    ExpectRefusal(L"First frame", L"1.5", "First frame: '1.5' is not a whole number");
    ExpectRefusal(L"Display name", L"Ωmega", "Display name: the database cannot hold");
}

TEST_F(BsdEditTest, WrongFrameZonesAreReportedWithTheirLine) {
    Open(Line());
    ExpectRefusal(L"Frame zones", L"12", "Frame zones: this line is not a zone.\r\r'12'");
    ExpectRefusal(L"Frame zones", L"12 0.6 0.7", "Frame zones: this line is not a zone.");
    ExpectRefusal(L"Frame zones", L"12 x", "Frame zones: this line is not a zone.");
    ExpectRefusal(L"Frame zones", L"12.5 0.6", "Frame zones: this line is not a zone.");
    ExpectRefusal(L"Frame zones", L"-6 0.6", "Frame zones: the last frame of this zone is not");
    ExpectRefusal(L"Frame zones", L"12 0.6\r\n12 0.7", "Frame zones: the last frame of this zone");
    ExpectRefusal(L"Frame zones", L"40000 0.6", "Frame zones: the last frame of this zone");
    ExpectRefusal(L"Frame zones", L"12 0", "Frame zones: the spacing is not above 0");
    ExpectRefusal(L"Frame zones", L"12 10.5", "Frame zones: the spacing is not above 0");
    std::wstring many;
    for (int i = 1; i <= 41; ++i) many += std::to_wstring(i) + L" 0.6\r\n";
    ExpectRefusal(L"Frame zones", many.c_str(), "Frame zones: there are more than 40 zones.");
}

TEST_F(BsdEditTest, FortyZonesAndNoZoneAreSaved) {
    Open(Line());
    std::wstring forty;
    for (int i = 1; i <= 40; ++i) forty += std::to_wstring(i) + L" 0.6\r\n";
    Enter(L"Frame zones", forty);
    ASSERT_NE(SaveForm(kBsdEditor, form, Ask), L"") << Warning();
    EXPECT_EQ(Saved().FrameZoneCount, 40);
    EXPECT_EQ(Saved().FrameNumbers(40), 40);
    Enter(L"Frame zones", L"  \r\n");
    ASSERT_NE(SaveForm(kBsdEditor, form, Ask), L"") << Warning();
    EXPECT_EQ(Saved().FrameZoneCount, 0);
    EXPECT_EQ(Saved().FrameNumbers(1), 0);
}

TEST_F(BsdEditTest, DatabaseWithoutTheBlockIsReported) {
    test::WriteFileBytes(path, "CORVANE DATABASE\r\n*\r\n");
    EXPECT_FALSE(OpenForm(kBsdEditor, Line(), form));
    EXPECT_EQ(Warning(),
              test::AdvisedText(path + L" : not a valid Corvane file", kMsgForeignFileAdvice));
}

TEST_F(BsdEditTest, ModelNumberIsIgnored) {
    Open(Line(L" 99"));
    EXPECT_EQ(Fact(L"Model"), "(none)");
}

}  // namespace
}  // namespace corvane::stand_ins
