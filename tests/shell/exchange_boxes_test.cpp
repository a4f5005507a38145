// What the boxes of the exchange list, preview and report.
#include "shell/exchange_boxes.h"

#include <gtest/gtest.h>

#include <utility>

#include "bsd/labels.h"
#include "platform/system.h"
#include "platform/ztvelk32.h"
#include "report/messages.h"
#include "shell/open_database.h"
#include "shell/preview_pane.h"
#include "tests/database/sample_database.h"
#include "tests/legacy/legacy_support.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/sample_models.h"

namespace corvane {
namespace {

using namespace test;
using Texts = std::vector<std::wstring>;
using Events = std::vector<std::string>;

struct ExchangeBoxes : CommandTest {
    std::wstring legacy = File(L"ship.vel");
    std::wstring database = File(L"other.ve2");

    ExchangeBoxes() {
        shell.database.path = L"C:\\before.ve2";
        shell.database.bsd.Titles(5).Assign(L"BEFORE");
        shell.database.currentModel = 7;
    }
    static Texts TextsOf(const std::vector<ExchangeItem>& items) {
        Texts texts;
        for (const ExchangeItem& item : items) texts.push_back(item.text);
        return texts;
    }
    // Nothing is shown of what can't be read but this message, and the state stays.
    static void ExpectUnlisted(const std::wstring& path, const std::string& warning) {
        RecordedReports::events.clear();
        EXPECT_TRUE(ListForExchange(path).empty());
        EXPECT_EQ(Warnings(), Events{warning});
        ExpectStateUntouched();
    }
    static void ExpectStateUntouched() {
        EXPECT_EQ(shell.database.path, L"C:\\before.ve2");
        EXPECT_EQ(shell.database.bsd.Titles(5).Trimmed(), L"BEFORE");
        EXPECT_EQ(shell.database.currentModel, 7);
    }
};

// ---- Lists -------------------------------------------------------------------------------------

TEST_F(ExchangeBoxes, LegacyDatabaseIsListedByItsSections) {
    WriteLegacyDatabase(legacy, {L"Frame 10", L"\u00C9tambot"});
    const std::vector<ExchangeItem> items = ListForExchange(legacy);
    EXPECT_EQ(TextsOf(items), (Texts{L"Frame 10", L"\u00C9tambot"}));
    EXPECT_EQ(items.at(0).number, 1);
    EXPECT_EQ(items.at(1).number, 2);
    EXPECT_EQ(items.at(1).kind, ModelKind::kSection);
    EXPECT_TRUE(Warnings().empty());
    ExpectStateUntouched();
}

TEST_F(ExchangeBoxes, ExtensionInUpperCaseIsALegacyDatabase) {
    WriteLegacyDatabase(File(L"SHIP.VEL"), {L"Frame 10"});
    EXPECT_EQ(TextsOf(ListForExchange(File(L"SHIP.VEL"))), Texts{L"Frame 10"});
}

TEST_F(ExchangeBoxes, ModelDatabaseIsListedByItsModelsAndTheirKinds) {
    for (const wchar_t* name : {L"other.ve2", L"other.vew", L"OTHER.VEW"}) {
        WriteFileBytes(File(name), DatabaseText(FiveBlocks()));
        const std::vector<ExchangeItem> items = ListForExchange(File(name));
        EXPECT_EQ(TextsOf(items), (Texts{L"Frame 10", L"Bulkhead 40 (bulkhead)", L"Frame 20",
                                         L"Girder (torsion)", L"Aft"}));
        EXPECT_EQ(items.at(3).number, 4);
        EXPECT_EQ(items.at(3).kind, ModelKind::kTorsion);
    }
    EXPECT_TRUE(Warnings().empty());
    ExpectStateUntouched();
}

TEST_F(ExchangeBoxes, ModelsHaveTheNumbersOfTheirBlocks) {
    std::vector<SampleBlock> blocks(2);
    blocks[0].number = " 7 ";
    blocks[1].number = " 3 ";
    WriteFileBytes(database, DatabaseText(blocks));
    const std::vector<ExchangeItem> items = ListForExchange(database);
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].number, 7);
    EXPECT_EQ(items[1].number, 3);
}

TEST_F(ExchangeBoxes, ItemsHaveThePositionsOfTheirModels) {
    const std::vector<ExchangeItem> items = ListForExchange(DataPath("../samples/aurora_bay.ve2"));
    ASSERT_EQ(items.size(), std::size(kSampleModels));
    for (size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].x_m, kSampleModels[i].x_m) << i;
    }
    std::vector<SampleBlock> blocks(3);
    blocks[1].number = " 3 ";
    blocks[2].number = " 3 ";
    WriteFileBytes(database, DatabaseText(blocks));
    const std::vector<ExchangeItem> doubled = ListForExchange(database);
    EXPECT_GE(doubled.at(0).x_m, 0);
    EXPECT_EQ(doubled.at(1).x_m, -1) << "its number leads to another model, too";
}

TEST_F(ExchangeBoxes, OpenDatabaseIsNotListedAndSaysSo) {
    WriteFileBytes(database, DatabaseText(FiveBlocks()));
    shell.database.path = database;
    const ExchangeList list = ListOfFile(database);
    EXPECT_TRUE(list.items.empty());
    EXPECT_EQ(list.hint, L"This is the open database. Choose another file.");
    EXPECT_TRUE(Warnings().empty());
    shell.database.path = File(L"before.ve2");
    EXPECT_EQ(ListOfFile(database).items.size(), 5u);
    EXPECT_EQ(ListOfFile(database).hint, L"");
}

TEST_F(ExchangeBoxes, DatabasesWithoutModelsGiveAnEmptyListInSilence) {
    WriteLegacyDatabase(legacy, {});
    WriteFileBytes(database, SampleHead());
    EXPECT_TRUE(ListForExchange(legacy).empty());
    EXPECT_TRUE(ListForExchange(database).empty());
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(ExchangeBoxes, SectionsBeyondTheTwentiethAreListedWithTheirNumbers) {
    Texts names;
    for (int i = 1; i <= 21; ++i) names.push_back(L"Frame " + std::to_wstring(i));
    WriteLegacyDatabase(legacy, names);
    names[20] = L"No. 21: Frame 21";
    EXPECT_EQ(TextsOf(ListForExchange(legacy)), names);
    EXPECT_EQ(ListOfFile(legacy).items.at(20).number, 21);
    EXPECT_TRUE(Warnings().empty());
    PreviewPane pane;
    BasicShipData bsd;
    ASSERT_TRUE(ReadForExchange(legacy, ListForExchange(legacy).at(20), pane, bsd));
    EXPECT_EQ(pane.section.name, L"Frame 21");
}

TEST_F(ExchangeBoxes, LibraryThatGivesAnySectionListsTwentyAndSaysSo) {
    WriteLegacyDatabase(legacy, Texts(20, L"Frame"));
    const FakeFunction any(importvelkmainsec, [](const char*, int16_t, LegacyMainSection* record) {
        record->x_m = 1;
        return int16_t{0};
    });
    EXPECT_EQ(ListOfFile(legacy).items.size(), 20u);
    EXPECT_EQ(Warnings(), std::vector<std::string>{WarningText(3598, {legacy, 20})});
}

TEST_F(ExchangeBoxes, WhatCannotBeListedIsReported) {
    ExpectUnlisted(legacy, WarningText(1020, {legacy}));
    ExpectUnlisted(database, WarningText(1020, {database}));
    WriteFileBytes(legacy, "no legacy database");
    ExpectUnlisted(legacy, UnreadText(legacy, kLegacyForeign));
    WriteFileBytes(database, "no database");
    ExpectUnlisted(database, WarningText(1083, {database}));
    WriteFileBytes(database, "");
    ExpectUnlisted(database, WarningText(1083, {database}));
    const std::wstring folderName = File(L"work.vel");
    system::MakeDirectory(folderName);
    ExpectUnlisted(folderName, WarningText(1020, {folderName}));
    system::RemoveEmptyDirectory(folderName);
}

TEST_F(ExchangeBoxes, DamagedLegacyDatabaseIsReportedWithItsStatus) {
    WriteLegacyDatabase(legacy, {L"Frame 10"});
    const std::string bytes = ReadFileBytes(legacy);
    for (const size_t size : {bytes.size() - 1, size_t{1300}, size_t{40}, size_t{9}}) {
        WriteFileBytes(legacy, bytes.substr(0, size));
        ExpectUnlisted(legacy, UnreadText(legacy, kLegacyDamaged));
    }
}

TEST_F(ExchangeBoxes, DatabaseCutAnywhereIsListedAsFarAsItGoes) {
    const std::string bytes = DatabaseText(FiveBlocks());
    const size_t signature = FetchStructuralLines().signature.size();
    size_t listed = 0;
    for (size_t size = 0; size < bytes.size(); size += 7) {
        WriteFileBytes(database, bytes.substr(0, size));
        RecordedReports::events.clear();
        const size_t before = std::exchange(listed, ListForExchange(database).size());
        EXPECT_GE(listed, before);
        EXPECT_EQ(Warnings().size(), size < signature ? 1u : 0u) << size;
    }
    EXPECT_EQ(listed, 5u);
    ExpectStateUntouched();
}

// ---- Preview -----------------------------------------------------------------------------------

TEST_F(ExchangeBoxes, LegacySectionIsReadWithItsShipData) {
    WriteLegacyDatabase(legacy, {L"Frame 10", L"Frame 20"});
    PreviewPane pane;
    BasicShipData bsd;
    ASSERT_TRUE(ReadForExchange(legacy, {L"Frame 20", 2}, pane, bsd));
    EXPECT_EQ(pane.section.name, L"Frame 20");
    EXPECT_EQ(pane.section.panels.size(), 1u);
    EXPECT_EQ(bsd.Titles(1).Trimmed(), L"\u00C9toile");
    EXPECT_TRUE(RecordedReports::caption.empty());
    ExpectStateUntouched();
}

TEST_F(ExchangeBoxes, LegacyPreviewFollowsTheDescribedConversation) {
    const FakeLegacyLibrary library;
    WriteFileBytes(legacy, "any");
    PreviewPane pane;
    BasicShipData bsd;
    EXPECT_TRUE(ReadForExchange(legacy, {L"Frame 30", 3}, pane, bsd));
    EXPECT_EQ(FakeLegacyLibrary::calls,
              (Events{"importvelkmainsec ship.vel 3", "importsectiongeometry ship.vel 3",
                      "importvelkcompload ship.vel 3", "importvelknavi ship.vel"}));
}

TEST_F(ExchangeBoxes, LegacyShipDataThatCannotBeReadAreReported) {
    const FakeLegacyLibrary library;
    FakeLegacyLibrary::naviStatus = 3;
    WriteFileBytes(legacy, "any");
    PreviewPane pane;
    BasicShipData bsd;
    EXPECT_FALSE(ReadForExchange(legacy, {L"Frame 10", 1}, pane, bsd));
    EXPECT_EQ(Warnings(), Events{UnreadText(legacy, 3)});
}

TEST_F(ExchangeBoxes, SectionOfADatabaseIsReadWithItsShipData) {
    const std::wstring path = DataPath("../samples/aurora_bay.ve2");
    PreviewPane pane;
    BasicShipData bsd;
    ASSERT_TRUE(ReadForExchange(path, ListForExchange(path).at(1), pane, bsd));
    EXPECT_FALSE(pane.section.panels.empty());
    EXPECT_TRUE(IsBsdDefined(bsd));
    EXPECT_TRUE(Warnings().empty());
    ExpectStateUntouched();
}

TEST_F(ExchangeBoxes, BulkheadsOfADatabaseAreReadWithTheirShipData) {
    const std::wstring path = DataPath("../samples/aurora_bay.ve2");
    const std::vector<ExchangeItem> items = ListForExchange(path);
    PreviewPane pane;
    BasicShipData bsd;
    ASSERT_TRUE(ReadForExchange(path, items.at(kSectionCount), pane, bsd));
    EXPECT_EQ(pane.bulkheads.name, kSampleModels[kSectionCount].name);
    EXPECT_FALSE(pane.bulkheads.bulkheads.empty());
    EXPECT_TRUE(IsBsdDefined(bsd));
    EXPECT_TRUE(Warnings().empty());
    ExpectStateUntouched();
}

TEST_F(ExchangeBoxes, TorsionModelsHaveNoPreview) {
    WriteFileBytes(database, DatabaseText(FiveBlocks()));
    PreviewPane pane;
    BasicShipData bsd;
    EXPECT_FALSE(ReadForExchange(database, ListForExchange(database).at(3), pane, bsd));
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(ExchangeBoxes, SectionWithoutShipDataIsDrawnWithNone) {
    SampleBlock block;
    const StructuralLines lines = FetchStructuralLines();
    WriteFileBytes(database, lines.signature + "\r\n" + BlockText(block));
    PreviewPane pane;
    BasicShipData bsd = NewBasicShipData(L"OTHER");
    EXPECT_TRUE(ReadForExchange(database, {L"Frame 10", 1}, pane, bsd));
    EXPECT_EQ(Warnings().size(), 1u);
    EXPECT_FALSE(IsBsdDefined(bsd));
    EXPECT_EQ(bsd.Titles(5).Trimmed(), L"") << "no other ship's data";
}

TEST_F(ExchangeBoxes, SectionThatIsGoneIsReported) {
    WriteLegacyDatabase(legacy, {L"Frame 10"});
    WriteFileBytes(database, DatabaseText(FiveBlocks()));
    PreviewPane pane;
    BasicShipData bsd;
    EXPECT_FALSE(ReadForExchange(database, {L"Frame 60", 6}, pane, bsd));
    EXPECT_EQ(Warnings(), Events{WarningText(1011, {6, database})});
    RecordedReports::events.clear();
    system::RemoveFile(legacy);
    EXPECT_FALSE(ReadForExchange(legacy, {L"Frame 10", 1}, pane, bsd));
    EXPECT_EQ(Warnings(), Events{WarningText(1020, {legacy})});
}

TEST_F(ExchangeBoxes, SectionThatSharesItsNumberIsReported) {
    std::vector<SampleBlock> blocks(3);
    blocks[1].number = " 3 ";
    blocks[2].number = " 3 ";
    WriteFileBytes(database, DatabaseText(blocks));
    PreviewPane pane;
    BasicShipData bsd;
    EXPECT_FALSE(ReadForExchange(database, {L"Frame 10", 3}, pane, bsd));
    EXPECT_EQ(Warnings(), Events{WarningText(3522, {3, database, GetMessage(kMsgModelMarker)})});
}

// ---- Service text ------------------------------------------------------------------------------

TEST_F(ExchangeBoxes, ServiceTextIsTheShipsNameAndType) {
    BasicShipData bsd;
    bsd.Titles(1).Assign(L"  Aurora Bay ");
    bsd.TypeCodes(1) = 5;
    EXPECT_EQ(ServiceText(bsd), L"Aurora Bay (" + ShipTypeName(5, false) + L")");
    shell.milMode = true;
    EXPECT_EQ(ServiceText(bsd), L"Aurora Bay (MIL Combat Ship)");
}

}  // namespace
}  // namespace corvane
