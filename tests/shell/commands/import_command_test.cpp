// Section > Import: models of another database are appended to the open one.
#include <gtest/gtest.h>

#include "bsd/basic_ship_data.h"
#include "database/bulkhead_block.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "legacy/exchange.h"
#include "platform/system.h"
#include "report/messages.h"
#include "shell/commands/section_commands.h"
#include "shell/open_database.h"
#include "shell/report.h"
#include "tests/companions/file_bytes.h"
#include "tests/database/sample_database.h"
#include "tests/legacy/legacy_support.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/sample_models.h"

namespace corvane {
namespace {

using namespace test;
using Names = std::vector<std::wstring>;
using Numbers = std::vector<int32_t>;
using Texts = std::vector<std::string>;

// "ship.ve2" with a section and a torsion model is open, the first is the current model.
struct ImportCommand : CommandTest {
    std::wstring legacy = File(L"old.vel");
    std::wstring other = File(L"other.ve2");
    std::wstring path;
    std::string before;

    std::string reported;  // rows of the report, as text

    ImportCommand() {
        Open({ModelKind::kSection, ModelKind::kTorsion});
        FakeView::showReport = [this](Report& report) {
            reported += Narrow(ReportAsText(report));
            return false;
        };
    }
    // Whether the report has a row of these cells.
    testing::AssertionResult HasRow(const std::string& row) const {
        if (reported.find("\r\n" + row + "\t") != std::string::npos) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << reported;
    }

    void Open(std::initializer_list<ModelKind> kinds) {
        MakeOpen(L"ship.ve2", kinds);
        path = shell.database.path;
        before = ReadFileBytes(path);
    }
    // What the user selects: rows of the file's list, from 1; all of them when none is given.
    static void Choose(const std::wstring& source, Numbers rows = {}) {
        ImportChoice choice{source, ListForExchange(source)};
        if (!rows.empty()) {
            std::vector<ExchangeItem> selected;
            for (const int32_t row : rows) {
                selected.push_back(choice.items.at(static_cast<size_t>(row - 1)));
            }
            choice.items = selected;
        }
        FakeView::askImport = [choice](ImportChoice& asked) {
            asked = choice;
            return true;
        };
    }
    static void Import(const std::wstring& source, const Numbers& rows = {}) {
        Choose(source, rows);
        RecordedReports::events.clear();
        ME_SectionImport_Click();
    }
    static Names ModelNames(const std::wstring& file) {
        Names names;
        for (const ModelEntry& model : ListModels(file)) names.push_back(model.name);
        return names;
    }
    static Numbers ModelNumbers(const std::wstring& file) {
        Numbers numbers;
        for (const ModelEntry& model : ListModels(file)) numbers.push_back(model.number);
        return numbers;
    }
    Names ModelNames() const { return ModelNames(path); }
    // The lines of the last model after its number.
    static std::string LastBody(const std::wstring& file, const std::string& keyword) {
        const std::string bytes = ReadFileBytes(file);
        return bytes.substr(bytes.rfind("\r\n" + keyword + "\r\n"));
    }
    void ExpectUntouched() const {
        EXPECT_EQ(ReadFileBytes(path), before);
        EXPECT_FALSE(FileExists(File(L"ship.bak")));
        EXPECT_EQ(shell.database.path, path);
        EXPECT_EQ(shell.database.currentModel, 1);
        EXPECT_TRUE(RecordedReports::Of("rows").empty());
    }
};

// ---- What is appended --------------------------------------------------------------------------

TEST_F(ImportCommand, SectionsOfALegacyDatabaseAreAppendedAndTheLastBecomesCurrent) {
    WriteLegacyDatabase(legacy, {L"Frame 30", L"Frame 40"});
    Import(legacy);
    EXPECT_EQ(ModelNames(), (Names{L"Frame 10", L"Frame 10", L"Frame 30", L"Frame 40"}));
    EXPECT_EQ(ModelNumbers(path), (Numbers{1, 2, 3, 4}));
    EXPECT_EQ(shell.database.currentModel, 4);
    EXPECT_EQ(RecordedReports::Of("rows"), Texts{"4"});
    EXPECT_EQ(Narrow(RecordedReports::caption),
              "2 sections were imported from '" + Narrow(legacy) + "'");
    EXPECT_TRUE(reported.empty()) << "all went over as it was";
    EXPECT_TRUE(Warnings().empty());
    EXPECT_EQ(RecordedReports::events.back(), "pointer reset");
}

TEST_F(ImportCommand, OnlyWhatIsSelectedIsAppended) {
    WriteLegacyDatabase(legacy, {L"Frame 30", L"Frame 40", L"Frame 50"});
    Import(legacy, {1, 3});
    EXPECT_EQ(ModelNames(), (Names{L"Frame 10", L"Frame 10", L"Frame 30", L"Frame 50"}));
}

TEST_F(ImportCommand, ModelsOfAllKindsAreAppendedFromAModelDatabase) {
    WriteFileBytes(other, DatabaseText(FiveBlocks()));
    Import(other);
    EXPECT_TRUE(Warnings().empty());
    const std::vector<ModelEntry> models = ListModels(path);
    const std::vector<ModelEntry> source = ListModels(other);
    ASSERT_EQ(models.size(), 7u);
    for (size_t i = 0; i < source.size(); ++i) {
        EXPECT_EQ(models[i + 2].name, source[i].name);
        EXPECT_EQ(models[i + 2].kind, source[i].kind);
        EXPECT_EQ(models[i + 2].number, static_cast<int32_t>(i) + 3);
    }
    EXPECT_EQ(shell.database.currentModel, 7);
    EXPECT_EQ(ReadFileBytes(other), DatabaseText(FiveBlocks()));
}

TEST_F(ImportCommand, TorsionModelIsCopiedLineByLine) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[3].body = "------------------ BODY ------------------\r\n* any\r\n 1,2 \t x\r\n";
    WriteFileBytes(other, DatabaseText(blocks));
    Import(other, {4});
    blocks[3].number = " 3 ";
    EXPECT_EQ(ReadFileBytes(path), before + BlockText(blocks[3]));
}

TEST_F(ImportCommand, TorsionModelIsAppendedAfterALastLineWithoutAnEnd) {
    WriteFileBytes(path, before + "* the end");
    WriteFileBytes(other, DatabaseText(FiveBlocks()));
    Import(other, {4});
    EXPECT_EQ(ModelNumbers(path), (Numbers{1, 2, 3}));
    EXPECT_EQ(ModelNames().back(), L"Girder");
}

TEST_F(ImportCommand, SectionsAndArrangementsGetNewIdentifiers) {
    const std::wstring sample = SamplePath();
    Import(sample, {1, kSectionCount + 1});
    SectionModel section;
    SectionModel imported;
    ASSERT_TRUE(ReadSectionBlock(sample, 1, false, section));
    ASSERT_TRUE(ReadSectionBlock(path, 3, false, imported));
    EXPECT_FALSE(imported.identifier.empty());
    EXPECT_NE(imported.identifier, section.identifier);
    section.identifier = imported.identifier;
    EXPECT_EQ(ExactText(imported), ExactText(section));
    BulkheadArrangement arrangement;
    BulkheadArrangement importedToo;
    ASSERT_TRUE(ReadBulkheadBlock(sample, kSectionCount + 1, arrangement));
    ASSERT_TRUE(ReadBulkheadBlock(path, 4, importedToo));
    EXPECT_FALSE(importedToo.identifier.empty());
    EXPECT_NE(importedToo.identifier, arrangement.identifier);
    EXPECT_EQ(importedToo.name, arrangement.name);
}

TEST_F(ImportCommand, SampleShipIsImportedWholeIntoAnEmptyDatabase) {
    Open({});
    const std::wstring sample = SamplePath();
    Import(sample);
    EXPECT_TRUE(Warnings().empty());
    EXPECT_EQ(ModelNames(), ModelNames(sample));
    EXPECT_EQ(LastBody(path, "TORSION"), LastBody(sample, "TORSION"));
}

TEST_F(ImportCommand, AllOfFiveHundredSectionsCanBeImported) {
    WriteLegacyDatabase(legacy, {L"Frame 30"});
    RepeatSection(legacy, 500);
    Import(legacy);
    EXPECT_EQ(ModelNames().size(), 502u);
    EXPECT_EQ(ModelNames().back(), L"Frame 30");
    EXPECT_EQ(Narrow(ListForExchange(legacy).at(20).text), "No. 21: Frame 30");
    EXPECT_TRUE(Warnings().empty());
    EXPECT_TRUE(reported.empty());
}

TEST_F(ImportCommand, SectionWhoseListedNameAnsiLacksIsImportedUnderItsOwn) {
    WriteLegacyDatabase(legacy, {L"Frame 30"});
    std::string bytes = ReadFileBytes(legacy);
    bytes[kLegacyEmptySize] = '\xB0';  // a shade of the OEM code page
    SetLegacyChecksum(bytes, kLegacyEmptySize, bytes.size());
    WriteFileBytes(legacy, bytes);
    EXPECT_EQ(ListForExchange(legacy).at(0).text, L"?rame 30");
    Import(legacy);
    EXPECT_EQ(ModelNames().back(), L"Frame 30");
}

TEST_F(ImportCommand, CallsFollowTheListingAndOneImportEach) {
    const FakeLegacyLibrary library;
    FakeLegacyLibrary::listCount = 3;
    WriteFileBytes(legacy, "any");
    Choose(legacy, {1, 3});
    FakeLegacyLibrary::calls.clear();
    ME_SectionImport_Click();
    EXPECT_EQ(FakeLegacyLibrary::calls,
              (Texts{"getvelksections old.vel", "importvelkmainsec old.vel 1",
                     "importsectiongeometry old.vel 1", "importvelkcompload old.vel 1",
                     "getvelksections old.vel", "importvelkmainsec old.vel 3",
                     "importsectiongeometry old.vel 3", "importvelkcompload old.vel 3",
                     "getvelksections old.vel", "getvelksections old.vel"}))
        << "after each empty section, and at the end, the list says whether all was read";
}

TEST_F(ImportCommand, BackupHoldsTheDatabaseAsItWasBeforeTheFirstModel) {
    WriteFileBytes(other, DatabaseText(FiveBlocks()));
    for (const Numbers& rows : {Numbers{1, 2, 4}, Numbers{2, 1}, Numbers{4, 1}}) {
        WriteFileBytes(path, before);
        Import(other, rows);
        EXPECT_EQ(ReadFileBytes(File(L"ship.bak")), before);
    }
}

// ---- The box -----------------------------------------------------------------------------------

TEST_F(ImportCommand, CancelChangesNothing) {
    ME_SectionImport_Click();
    EXPECT_TRUE(RecordedReports::events.empty());
    ExpectUntouched();
    EXPECT_EQ(shell.settings.BrowseDirectory, browse);
}

TEST_F(ImportCommand, NothingSelectedChangesNothing) {
    WriteLegacyDatabase(legacy, {});
    Import(legacy);
    EXPECT_TRUE(Warnings().empty());
    ExpectUntouched();
}

TEST_F(ImportCommand, FolderOfTheFileBecomesTheBrowseDirectory) {
    WriteLegacyDatabase(legacy, {L"Frame 30"});
    Import(legacy);
    EXPECT_EQ(shell.settings.BrowseDirectory, folder.path);
}

TEST_F(ImportCommand, ListTakesClicksWhileTheBoxIsUp) {
    bool suppressed = true;
    FakeView::askImport = [&suppressed](ImportChoice&) {
        suppressed = shell.suppressListEvents;
        return false;
    };
    ME_SectionImport_Click();
    EXPECT_FALSE(suppressed);
}

// ---- What fails --------------------------------------------------------------------------------

TEST_F(ImportCommand, MissingDatabaseIsReportedBeforeTheBox) {
    system::RemoveFile(path);
    FakeView::askImport = [](ImportChoice&) {
        ADD_FAILURE() << "the box was shown";
        return false;
    };
    ME_SectionImport_Click();
    EXPECT_EQ(Warnings(), Texts{test::AdvisedText(1020, {path}, kMsgFileAdvice)});
}

TEST_F(ImportCommand, OpenDatabaseItselfIsRefused) {
    Import(path);
    EXPECT_EQ(Warnings(), Texts{WarningText(3535, {path})});
    ExpectUntouched();
}

std::string NumberNotOwn(int32_t number, const std::wstring& path) {
    return WarningText(3522, {number, path, GetMessage(kMsgModelMarker)});
}

TEST_F(ImportCommand, ModelsThatShareANumberAreReportedAndTheRestGoesOn) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[2].number = " 2 ";
    WriteFileBytes(other, DatabaseText(blocks));
    Import(other);
    EXPECT_EQ(Warnings(), (Texts{NumberNotOwn(2, other), NumberNotOwn(2, other)}));
    EXPECT_TRUE(HasRow("Frame 10\tSection\tWent over\t"));
    EXPECT_TRUE(HasRow("Bulkhead 40 (bulkhead)\tBulkhead\tLeft out\tIt could not be read."));
    EXPECT_TRUE(HasRow("Frame 20\tSection\tLeft out\tIt could not be read."));
    EXPECT_EQ(Narrow(RecordedReports::caption),
              "2 sections and 1 torsion model were imported from '" + Narrow(other) +
                  "'; 1 section and 1 bulkhead arrangement were left out");
    EXPECT_NE(reported.find("All done. 2 sections and 1 torsion model were imported"),
              std::string::npos);
    EXPECT_EQ(ModelNames(), (Names{L"Frame 10", L"Frame 10", L"Frame 10", L"Girder", L"Aft"}));
}

TEST_F(ImportCommand, DamagedModelInTheMiddleIsReportedAndTheRestGoesOn) {
    for (const int damaged : {0, 2, 4}) {
        WriteFileBytes(path, before);
        std::vector<SampleBlock> blocks = FiveBlocks();
        blocks[static_cast<size_t>(damaged)].number = "broken";
        WriteFileBytes(other, DatabaseText(blocks));
        Import(other);
        EXPECT_EQ(Warnings(), Texts{NumberNotOwn(0, other)});
        EXPECT_NE(reported.find("Left out\tIt could not be read."), std::string::npos);
        EXPECT_EQ(ModelNumbers(path), (Numbers{1, 2, 3, 4, 5, 6}));
    }
}

TEST_F(ImportCommand, DamagedFirstModelStillLeavesABackupOfWhatWasThere) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[0].number = "broken";
    WriteFileBytes(other, DatabaseText(blocks));
    Import(other, {1, 2, 3});
    EXPECT_EQ(ReadFileBytes(File(L"ship.bak")), before);
}

TEST_F(ImportCommand, SourceThatChangedSinceItWasListedGivesNothing) {
    WriteFileBytes(other, DatabaseText(FiveBlocks()));
    WriteLegacyDatabase(legacy, {L"Frame 30", L"Frame 40"});
    Choose(other, {1, 3});
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[2].name = "Put there meanwhile";
    WriteFileBytes(other, DatabaseText(blocks));
    ME_SectionImport_Click();
    EXPECT_EQ(Warnings(), Texts{WarningText(3523, {other})});
    ExpectUntouched();
    RecordedReports::events.clear();
    Choose(legacy);
    WriteLegacyDatabase(legacy, {L"Frame 30"});
    ME_SectionImport_Click();
    EXPECT_EQ(Warnings(), Texts{WarningText(3523, {legacy})});
    ExpectUntouched();
}

TEST_F(ImportCommand, SourceThatWasDamagedSinceItWasListedGivesNothing) {
    WriteLegacyDatabase(legacy, {L"Frame 30"});
    const std::string bytes = ReadFileBytes(legacy);
    Choose(legacy);
    for (size_t size = 0; size < bytes.size(); size += 1709) {
        WriteFileBytes(legacy, bytes.substr(0, size));
        RecordedReports::events.clear();
        ME_SectionImport_Click();
        EXPECT_EQ(Warnings().size(), 2u) << size;
        EXPECT_EQ(Warnings().at(0),
                  UnreadText(legacy, size == 0 ? kLegacyForeign : kLegacyDamaged));
        ExpectUntouched();
    }
    system::RemoveFile(legacy);
    RecordedReports::events.clear();
    ME_SectionImport_Click();
    EXPECT_EQ(Warnings().at(0), WarningText(1020, {legacy}));
    ExpectUntouched();
}

TEST_F(ImportCommand, SourceCutAnywhereGivesWhatItHasAndNothingElseIsTouched) {
    const std::string text = DatabaseText(FiveBlocks());
    for (size_t size = SampleHead().size(); size < text.size(); size += 61) {
        WriteFileBytes(path, before);
        WriteFileBytes(other, text.substr(0, size));
        Import(other);
        const std::string after = ReadFileBytes(path);
        EXPECT_EQ(after.substr(0, before.size()), before);
        EXPECT_LE(CountModels(path), 7);
        EXPECT_EQ(ReadFileBytes(other), text.substr(0, size));
    }
}

TEST_F(ImportCommand, OpenFileThatIsNotADatabaseIsReportedOnce) {
    WriteFileBytes(path, "no database");
    before = "no database";
    WriteFileBytes(other, DatabaseText(FiveBlocks()));
    Import(other);
    EXPECT_EQ(Warnings(), Texts{WarningText(1083, {path})});
    ExpectUntouched();
}

TEST_F(ImportCommand, DatabaseWithoutValidShipDataTakesModels) {
    before = FetchStructuralLines().signature + "\r\n" + ModelText(1, ModelKind::kSection);
    WriteFileBytes(path, before);
    shell.database.bsd = BasicShipData();
    WriteLegacyDatabase(legacy, {L"Frame 30"});
    Import(legacy);
    EXPECT_EQ(ModelNames(), (Names{L"Frame 10", L"Frame 30"}));
    EXPECT_TRUE(Warnings().empty());
    EXPECT_EQ(RecordedReports::Of("caption").back(), Narrow(GetMessage(1066)) + "...");
}

TEST_F(ImportCommand, DatabaseWhoseNumbersAreUsedUpIsReportedOnce) {
    SampleBlock block;
    block.number = " 2147483647 ";
    before = SampleHead() + BlockText(block);
    WriteFileBytes(path, before);
    WriteFileBytes(other, DatabaseText(FiveBlocks()));
    for (const int row : {1, 2, 4}) {
        Import(other, {row, 5});
        EXPECT_EQ(Warnings(), Texts{WarningText(3510, {path, GetMessage(3002)})});
        ExpectUntouched();
    }
}

TEST_F(ImportCommand, ModelBeyondSixteenBitsIsAppendedAndBecomesTheCurrentOne) {
    before = SampleHead();
    for (int i = 1; i <= 32767; ++i) before += ModelText(i, ModelKind::kTorsion);
    WriteFileBytes(path, before);
    WriteLegacyDatabase(legacy, {L"Frame 30"});
    Import(legacy);
    EXPECT_EQ(CountModels(path), 32768);
    EXPECT_EQ(shell.database.currentModel, 32768);
    EXPECT_TRUE(Warnings().empty());
}

// ---- Read-only database ------------------------------------------------------------------------

TEST_F(ImportCommand, ReadOnlyDatabaseIsCopiedToAnotherFileWhichBecomesTheOpenOne) {
    const std::wstring target = File(L"writable.ve2");
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    WriteLegacyDatabase(legacy, {L"Frame 30", L"Frame 40"});
    const FakePrompt prompt{target};
    Import(legacy);
    EXPECT_EQ(Warnings(), Texts{AdvisedText(1086, {path}, kMsgCopyAskedNext)});
    EXPECT_EQ(FakePrompt::questions.size(), 1u);
    EXPECT_EQ(shell.database.path, target);
    EXPECT_EQ(shell.database.currentModel, 4);
    EXPECT_EQ(ModelNames(target).size(), 4u);
    EXPECT_EQ(ReadFileBytes(path), before);
    EXPECT_EQ(ReadFileBytes(File(L"writable.bak")), before);
}

TEST_F(ImportCommand, ReadOnlyDatabaseAndNoOtherFileIsAskedAboutOnce) {
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    WriteLegacyDatabase(legacy, {L"Frame 30", L"Frame 40"});
    const FakePrompt prompt;
    Import(legacy);
    EXPECT_EQ(FakePrompt::questions.size(), 1u);
    EXPECT_EQ(RecordedReports::events.back(), "pointer reset");
    ExpectUntouched();
}

}  // namespace
}  // namespace corvane
