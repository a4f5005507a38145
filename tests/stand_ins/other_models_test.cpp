// Bulkhead input and the torsion program, without their windows.
#include <gtest/gtest.h>

#include <string>

#include "database/bulkhead_block.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "stand_ins/stand_ins.h"
#include "stand_ins/torsion.h"
#include "tests/stand_ins/stand_in_fixture.h"
#include "tests/support/recorded_reports.h"

namespace corvane::stand_ins {
namespace {

using test::Narrow;
using test::RecordedReports;

constexpr int kSampleCount = 14;

struct OtherModelsTest : StandInTest {
    void Open(const StandIn& standIn, const std::wstring& rest) {
        ASSERT_TRUE(OpenForm(standIn, Line(rest), form)) << Warning();
    }
    std::string Save(const StandIn& standIn) { return Narrow(SaveForm(standIn, form, Ask)); }
    ModelEntry Entry(size_t number) const { return ListModelsWithPositions(path).at(number - 1); }
    BulkheadArrangement Arrangement(int32_t number) const {
        BulkheadArrangement arrangement;
        EXPECT_TRUE(ReadBulkheadBlock(path, number, arrangement));
        return arrangement;
    }
};

// ---- Bulkhead arrangements ---------------------------------------------------------------------

TEST_F(OtherModelsTest, NewArrangementIsAppended) {
    const std::string before = Bytes();
    Open(kBulkheadInput, L"");
    Enter(L"Name", L"Bulkhead at frame 100");
    Enter(L"Position x", L"75.9");
    EXPECT_EQ(Save(kBulkheadInput), "Saved: bulkhead 15, Bulkhead at frame 100, in my ship.ve2")
        << Warning();
    EXPECT_EQ(Bytes().substr(0, before.size()), before);
    EXPECT_EQ(Entry(15).kind, ModelKind::kBulkhead);
    EXPECT_EQ(Entry(15).x, 75.9F);
    const BulkheadArrangement arrangement = Arrangement(15);
    EXPECT_FALSE(arrangement.identifier.empty());
    ASSERT_EQ(arrangement.bulkheads.size(), 1U);
    const Bulkhead& bulkhead = arrangement.bulkheads[0];
    ASSERT_EQ(bulkhead.nodes.size(), 4U);
    EXPECT_EQ(bulkhead.nodes[2].givenY, 16.125F);
    EXPECT_EQ(bulkhead.nodes[2].givenZ, 19.6F);
    // Every 0.8 m on 16.125 m, and bands of up to 2.5 m on 19.6 m.
    EXPECT_EQ(bulkhead.secondaryStiffeners.size(), 19U);
    EXPECT_EQ(bulkhead.bands.size(), 8U);
    EXPECT_EQ(bulkhead.bands.at(8)[0].z_m, 19.6F);
    EXPECT_EQ(bulkhead.corrugation, Corrugation());
}

TEST_F(OtherModelsTest, CorrugatedBulkheadHasCorrugationsAndNoStiffeners) {
    Open(kBulkheadInput, L"");
    Enter(L"Type", L"Corrugated");
    ASSERT_NE(Save(kBulkheadInput), "") << Warning();
    const BulkheadArrangement arrangement = Arrangement(15);
    ASSERT_EQ(arrangement.bulkheads.size(), 1U);
    EXPECT_EQ(arrangement.bulkheads[0].kind, 1);
    EXPECT_EQ(arrangement.bulkheads[0].corrugation.pitch_m, 1.6F);
    EXPECT_TRUE(arrangement.bulkheads[0].secondaryStiffeners.empty());
}

TEST_F(OtherModelsTest, FurtherSaveReplacesTheNewArrangement) {
    Open(kBulkheadInput, L"");
    ASSERT_NE(Save(kBulkheadInput), "") << Warning();
    const std::string identifier = Arrangement(15).identifier;
    Enter(L"Depth", L"10");
    ASSERT_NE(Save(kBulkheadInput), "") << Warning();
    EXPECT_EQ(CountModels(path), kSampleCount + 1);
    EXPECT_EQ(Arrangement(15).identifier, identifier);
    EXPECT_EQ(Arrangement(15).bulkheads.at(0).bands.size(), 4U);
}

TEST_F(OtherModelsTest, OldArrangementIsRenamedAndMovedAndKeepsTheRest) {
    Open(kBulkheadInput, L"");
    ASSERT_NE(Save(kBulkheadInput), "") << Warning();
    const BulkheadArrangement before = Arrangement(15);
    Open(kBulkheadInput, L" 15");
    EXPECT_EQ(form.fields.size(), 2U);
    Enter(L"Name", L"Collision bulkhead");
    Enter(L"Position x", L"200");
    EXPECT_EQ(Save(kBulkheadInput), "Saved: bulkhead 15, Collision bulkhead, in my ship.ve2");
    const BulkheadArrangement after = Arrangement(15);
    EXPECT_EQ(after.x_m, 200.0F);
    EXPECT_EQ(after.identifier, before.identifier);
    EXPECT_EQ(after.bulkheads.at(0).bands, before.bulkheads.at(0).bands);
    EXPECT_EQ(after.bulkheads.at(0).secondaryStiffeners,
              before.bulkheads.at(0).secondaryStiffeners);
    EXPECT_EQ(CountModels(path), kSampleCount + 1);
}

TEST_F(OtherModelsTest, WrongDimensionsOfABulkheadAreReported) {
    const std::string before = Bytes();
    Open(kBulkheadInput, L"");
    Enter(L"Depth", L"0");
    EXPECT_EQ(Save(kBulkheadInput), "");
    EXPECT_TRUE(Warning().starts_with("Depth: '0' is not a number from 1 to 100 m.")) << Warning();
    EXPECT_EQ(Bytes(), before);
}

// ---- Torsion models ----------------------------------------------------------------------------

// The block that the file ends with, without its stamps.
std::string LastBlock(const std::string& bytes) {
    std::string block = bytes.substr(bytes.rfind("====== CORVANE MODEL ======"));
    const size_t stamps = block.find("* Program");
    return block.erase(stamps, block.find("*\r\nMODEL NAME") - stamps);
}

TEST_F(OtherModelsTest, NewTorsionModelIsAppended) {
    const std::string before = Bytes();
    Open(kTorsionModel, L"");
    EXPECT_EQ(Shown(L"Aft end"), "32.55");
    EXPECT_EQ(Shown(L"Fore end"), "195.3");
    Enter(L"Name", L"Holds 3 to 1");
    Enter(L"Aft end", L"100");
    Enter(L"Fore end", L"160");
    Enter(L"Holds", L"3");
    EXPECT_EQ(Save(kTorsionModel), "Saved: torsion 15, Holds 3 to 1, in my ship.ve2") << Warning();
    EXPECT_EQ(Bytes().substr(0, before.size()), before);
    EXPECT_EQ(LastBlock(Bytes()),
              "====== CORVANE MODEL ======\r\n*\r\n 15 \r\nTORSION\r\n*\r\nFORMAT VERSION\r\n"
              " 2.002 \r\n*\r\nMODEL NAME\r\nHolds 3 to 1\r\n 130 \t 100 \t 160 \r\n"
              "------------------ HOLDS ------------------\r\n* Hold\tAft x\tFore x\r\n"
              " 3 \t 100 \t 120 \r\n 2 \t 120 \t 140 \r\n 1 \t 140 \t 160 \r\n"
              "------------------ TRANS BEAM ------------------\r\n"
              "------------------ BEAM MODELS ------------------\r\n"
              "------------------ LONG BEAM ------------------\r\n"
              "------------------ TOR RESULTS ------------------\r\n");
    EXPECT_EQ(Entry(15).kind, ModelKind::kTorsion);
}

TEST_F(OtherModelsTest, FurtherSaveReplacesTheNewTorsionModel) {
    Open(kTorsionModel, L"");
    ASSERT_NE(Save(kTorsionModel), "") << Warning();
    Enter(L"Name", L"Again");
    Enter(L"Holds", L"2");
    ASSERT_NE(Save(kTorsionModel), "") << Warning();
    EXPECT_EQ(CountModels(path), kSampleCount + 1);
    EXPECT_EQ(Narrow(Entry(15).name), "Again");
}

TEST_F(OtherModelsTest, TorsionModelInTheMiddleIsReplacedThere) {
    const TorsionModel model{L"New 13", 10, 20, 1};
    const std::string before = Bytes();
    ASSERT_TRUE(WriteTorsionModel(path, model, 13));
    EXPECT_EQ(CountModels(path), kSampleCount);
    EXPECT_EQ(Narrow(Entry(13).name), "New 13");
    EXPECT_EQ(Narrow(Entry(14).name), "Torsion model, holds 5 to 3");
    EXPECT_EQ(LastBlock(Bytes()), LastBlock(before));
}

TEST_F(OtherModelsTest, RenamingChangesTheNameAlone) {
    std::string wanted = Bytes();
    const std::string name = "Torsion model, holds 7 to 1";
    wanted.replace(wanted.find(name), name.size(), "Whole ship");
    Open(kTorsionModel, L" 13");
    EXPECT_EQ(form.fields.size(), 1U);
    EXPECT_EQ(Shown(L"Name"), name);
    Enter(L"Name", L"  Whole ship ");
    EXPECT_EQ(Save(kTorsionModel), "Saved: torsion 13, Whole ship, in my ship.ve2") << Warning();
    EXPECT_EQ(Bytes(), wanted);
}

TEST_F(OtherModelsTest, ModelWithoutAWholeHeadIsNotRenamed) {
    std::string bytes = Bytes();
    bytes.resize(bytes.rfind("MODEL NAME"));
    test::WriteFileBytes(path, bytes);
    EXPECT_FALSE(RenameModel(path, L"x", 14));
    EXPECT_TRUE(Warning().starts_with("Model 14 of '")) << Warning();
    EXPECT_NE(Warning().find("has lost its name line"), std::string::npos);
    EXPECT_EQ(Bytes(), bytes);
}

TEST_F(OtherModelsTest, DatabaseWithoutANumberLeftIsReported) {
    std::string bytes = Bytes();
    const size_t number = bytes.rfind(" 14 \r\nTORSION");
    bytes.replace(number, 4, "2147483647");
    test::WriteFileBytes(path, bytes);
    for (const StandIn* standIn : {&kSectionInput, &kBulkheadInput, &kTorsionModel}) {
        Open(*standIn, L"");
        RecordedReports::events.clear();
        EXPECT_EQ(Save(*standIn), "");
        EXPECT_TRUE(Warning().starts_with("A model in '")) << Warning();
        EXPECT_EQ(Bytes(), bytes);
    }
}

TEST_F(OtherModelsTest, EndsInTheWrongOrderAreReported) {
    const std::string before = Bytes();
    Open(kTorsionModel, L"");
    Enter(L"Fore end", L"32.55");
    EXPECT_EQ(Save(kTorsionModel), "");
    EXPECT_TRUE(Warning().starts_with("Fore end: 32.55 m is not forward of the aft end"))
        << Warning();
    EXPECT_EQ(form.fault, 2);
    EXPECT_EQ(Bytes(), before);
}

}  // namespace
}  // namespace corvane::stand_ins
