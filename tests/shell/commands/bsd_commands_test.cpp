// BSD > Open and BSD > Import.
#include "shell/commands/bsd_commands.h"

#include <gtest/gtest.h>

#include "bsd/basic_ship_data.h"
#include "bsd/bsd_file.h"
#include "bsd/legacy_form.h"
#include "database/model_kind.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "platform/ztvelk32.h"
#include "report/messages.h"
#include "shell/state.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/support/without_stamps.h"

namespace corvane {
namespace {

using test::CommandTest;
using test::FakeProgram;
using test::FakePrompt;
using test::FakeView;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::WriteFileBytes;

struct FileBsd : CommandTest {};
struct ImportBsd : CommandTest {};

constexpr ModelKind kSection = ModelKind::kSection;

std::wstring ShipName() {
    return shell.database.bsd.Titles(5).Trimmed();
}

// Saves data of another name into the open database, as the BSD program does.
void SaveOtherName() {
    BasicShipData bsd = shell.database.bsd;
    bsd.Titles(5).Assign(L"OTHER NAME");
    EXPECT_TRUE(SaveBsdToDatabase(shell.database.path, bsd));
}

// ---- Open --------------------------------------------------------------------------------------

TEST_F(FileBsd, ProgramIsRunOnTheDatabase) {
    MakeOpen(L"My ship.ve2", {kSection});
    Install(L"BsdEdit.exe");
    shell.debugMode = true;
    const FakeProgram program;
    ME_FileBSD_Click();
    ASSERT_EQ(FakeProgram::commandLines.size(), 1U);
    EXPECT_EQ(Narrow(FakeProgram::commandLines[0]),
              Narrow(programs) + "BsdEdit.exe /d \"" + Narrow(File(L"My ship.ve2")) + "\"");
    EXPECT_TRUE(FakeProgram::wasLocked);
    EXPECT_TRUE(RecordedReports::Happened("caption BsdEdit.exe is running..."));
    EXPECT_EQ(RecordedReports::Of("rows"), std::vector<std::string>{"1"});
    EXPECT_EQ(RecordedReports::caption, L"");
    EXPECT_EQ(RecordedReports::Of("pointer").back(), "reset");
}

TEST_F(FileBsd, ChangedDataAreReadAgain) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"BsdEdit.exe");
    const FakeProgram program(SaveOtherName);
    ME_FileBSD_Click();
    EXPECT_EQ(ShipName(), L"OTHER NAME");
    EXPECT_EQ(RecordedReports::Of("title").back(), "Corvane - ship.ve2 - OTHER NAME");
}

TEST_F(FileBsd, UntouchedDatabaseIsNotReadAgain) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"BsdEdit.exe");
    shell.database.bsd.Titles(5).Assign(L"IN MEMORY");
    const FakeProgram program;
    ME_FileBSD_Click();
    EXPECT_EQ(ShipName(), L"IN MEMORY");
}

TEST_F(FileBsd, DataThatAreStillInvalidAreReportedInTheStatusLine) {
    MakeOpen(L"ship.ve2");
    Install(L"BsdEdit.exe");
    shell.database.bsd = BasicShipData();
    const FakeProgram program;
    ME_FileBSD_Click();
    EXPECT_EQ(RecordedReports::caption, GetMessage(kMsgInputBsdFirst) + L"...");
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(FileBsd, MissingProgramIsReportedWithItsPath) {
    MakeOpen(L"ship.ve2");
    const FakeProgram program;
    ME_FileBSD_Click();
    EXPECT_TRUE(FakeProgram::commandLines.empty());
    const std::vector<std::string> offers = RecordedReports::Of("ask ok");
    ASSERT_EQ(offers.size(), 1U);
    EXPECT_NE(offers[0].find("'" + Narrow(programs) + "BsdEdit.exe' cannot be opened"),
              std::string::npos);
    EXPECT_EQ(RecordedReports::Of("pointer").back(), "reset");
}

TEST_F(FileBsd, MissingDatabaseIsReported) {
    MakeOpen(L"ship.ve2");
    Install(L"BsdEdit.exe");
    KillFile(File(L"ship.ve2"));
    const FakeProgram program;
    ME_FileBSD_Click();
    EXPECT_TRUE(FakeProgram::commandLines.empty());
    EXPECT_TRUE(OnlyWarning("ship.ve2' cannot be opened"));
}

TEST_F(FileBsd, DatabaseThatLostItsDataIsReportedOnce) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"BsdEdit.exe");
    const FakeProgram program([] {
        WriteFileBytes(shell.database.path, "CORVANE DATABASE\r\n" + test::ModelText(1, kSection));
    });
    ME_FileBSD_Click();
    EXPECT_TRUE(OnlyWarning("ship.ve2 : not a valid Corvane file"));
    EXPECT_EQ(shell.database.bsd, BasicShipData());
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 1);
}

TEST_F(FileBsd, DeletedDatabaseIsReportedAndTheDataStay) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"BsdEdit.exe");
    const FakeProgram program([] { KillFile(shell.database.path); });
    ME_FileBSD_Click();
    EXPECT_TRUE(OnlyWarning("ship.ve2' has been missing"));
    EXPECT_EQ(ShipName(), L"SHIP");
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 0);
}

TEST_F(FileBsd, OverwrittenDatabaseIsReported) {
    MakeOpen(L"ship.ve2", {kSection});
    Install(L"BsdEdit.exe");
    const FakeProgram program([] { WriteFileBytes(shell.database.path, "no database"); });
    ME_FileBSD_Click();
    ASSERT_FALSE(Warnings().empty());
    EXPECT_NE(Warnings().back().find("is no longer a Corvane database"), std::string::npos);
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 0);
    EXPECT_EQ(shell.database.bsd, BasicShipData());
}

// ---- Import ------------------------------------------------------------------------------------

std::wstring GoldenBsd() {
    return test::DataPath("golden/standalone.bsd");
}

TEST_F(ImportBsd, AsksForAFileInTheBrowseDirectory) {
    MakeOpen(L"ship.ve2");
    FakeView::answerYes = true;
    const FakePrompt prompt;
    ME_FileImportBSD_Click();
    ASSERT_EQ(FakePrompt::questions.size(), 1U);
    const FakePrompt::Question& asked = FakePrompt::questions[0];
    EXPECT_EQ(asked.extension, L"bsd");
    EXPECT_EQ(asked.types, GetMessage(kMsgBsdFiles));
    EXPECT_EQ(asked.caption, L"Import");
    EXPECT_EQ(asked.proposed, L"");
    EXPECT_EQ(asked.flags, 0);
    EXPECT_EQ(asked.directory, StripTrailingBackslash(browse));
}

TEST_F(ImportBsd, ValidDataAreErasedOnlyAfterAQuestionThatNamesBothFiles) {
    MakeOpen(L"ship.ve2");
    const std::string bytes = ReadFileBytes(File(L"ship.ve2"));
    const FakePrompt prompt{GoldenBsd()};
    ME_FileImportBSD_Click();
    EXPECT_EQ(RecordedReports::Of("ask ok"),
              std::vector<std::string>{test::AdvisedText(L"You will erase the current BSD !",
                                                         kMsgReplacedDataAdvice,
                                                         {L"ship.ve2", FileNameOf(GoldenBsd())})});
    EXPECT_EQ(ShipName(), L"SHIP");
    EXPECT_EQ(ReadFileBytes(File(L"ship.ve2")), bytes);
}

TEST_F(ImportBsd, InvalidDataAreErasedWithoutAQuestion) {
    MakeOpen(L"ship.ve2");
    shell.database.bsd.MainData(9) = 0;
    const FakePrompt prompt;
    ME_FileImportBSD_Click();
    EXPECT_TRUE(RecordedReports::Of("ask ok").empty());
    EXPECT_EQ(FakePrompt::questions.size(), 1U);
}

TEST_F(ImportBsd, DatabaseIsTheGoldenOneButForItsStamps) {
    WriteFileBytes(File(L"Emeraude Bay.ve2"),
                   ReadFileBytes(test::DataPath("golden/new_database.ve2")));
    shell.database.path = File(L"Emeraude Bay.ve2");
    const FakePrompt prompt{GoldenBsd()};
    ME_FileImportBSD_Click();
    EXPECT_EQ(ReadFileBytes(File(L"Emeraude Bay.ve2")),
              ReadFileBytes(test::DataPath("golden/imported_bsd.ve2")));
    BasicShipData read;
    EXPECT_TRUE(LoadBsdFromDatabase(File(L"Emeraude Bay.ve2"), read));
    EXPECT_EQ(read, shell.database.bsd);
    EXPECT_EQ(ShipName(), L"EMERAUDE");
    EXPECT_EQ(RecordedReports::Of("title").back(), "Corvane - Emeraude Bay.ve2 - EMERAUDE");
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(ImportBsd, OtherExtensionsAreDatabases) {
    FakeView::answerYes = true;
    for (const wchar_t* name : {L"source.ve2", L"source.VEW", L"source.txt", L"source"}) {
        MakeOpen(L"ship.ve2", {kSection});
        const std::wstring source = Make(name);
        BasicShipData bsd;
        ASSERT_TRUE(ImportBsdFile(GoldenBsd(), bsd));
        ASSERT_TRUE(SaveBsdToDatabase(source, bsd));
        const FakePrompt prompt{source};
        ME_FileImportBSD_Click();
        EXPECT_EQ(ShipName(), L"EMERAUDE") << Narrow(name);
        BasicShipData saved;
        EXPECT_TRUE(LoadBsdFromDatabase(File(L"ship.ve2"), saved));
        EXPECT_EQ(saved, shell.database.bsd);
        EXPECT_EQ(CountModels(File(L"ship.ve2")), 1);
        EXPECT_TRUE(Warnings().empty());
    }
}

TEST_F(ImportBsd, UpperCaseExtensionIsAStandaloneFile) {
    MakeOpen(L"ship.ve2");
    FakeView::answerYes = true;
    WriteFileBytes(File(L"SHIP.BSD"), ReadFileBytes(GoldenBsd()));
    const FakePrompt prompt{File(L"SHIP.BSD")};
    ME_FileImportBSD_Click();
    EXPECT_EQ(ShipName(), L"EMERAUDE");
    EXPECT_EQ(shell.settings.BrowseDirectory, folder.path);
}

TEST_F(ImportBsd, NothingOfTheErasedDataIsLeft) {
    MakeOpen(L"ship.ve2");
    FakeView::answerYes = true;
    shell.database.bsd.ExtraData(1) = 77;
    shell.database.bsd.Block12(3) = 88;
    // Layout version 3 has no extra data.
    std::string bytes = ReadFileBytes(GoldenBsd());
    bytes[0] = '3';
    WriteFileBytes(File(L"old.bsd"), bytes);
    const FakePrompt prompt{File(L"old.bsd")};
    ME_FileImportBSD_Click();
    EXPECT_EQ(shell.database.bsd.ExtraData(1), 0);
    EXPECT_EQ(shell.database.bsd.Block12(3), 0);
}

TEST_F(ImportBsd, LegacyDatabaseIsReadByItsLibrary) {
    MakeOpen(L"ship.ve2", {kSection});
    FakeView::answerYes = true;
    WriteFileBytes(File(L"old.VEL"), "legacy");
    const test::FakeFunction fake(
        importvelknavi, [](const char* path, LegacyBsd* bsd, int16_t* status) {
            EXPECT_NE(std::string_view(path).find("old.VEL"), std::string_view::npos);
            ToLegacyForm(NewBasicShipData(L"LEGACY"), *bsd);
            *status = 0;
        });
    const FakePrompt prompt{File(L"old.VEL")};
    ME_FileImportBSD_Click();
    EXPECT_EQ(ShipName(), L"LEGACY");
    BasicShipData saved;
    EXPECT_TRUE(LoadBsdFromDatabase(File(L"ship.ve2"), saved));
    EXPECT_EQ(saved.Titles(5).Trimmed(), L"LEGACY");
    EXPECT_EQ(CountModels(File(L"ship.ve2")), 1);
    EXPECT_TRUE(Warnings().empty());
}

// Imports from a file that gives nothing: one message, and nothing has changed.
struct BadSource : CommandTest {
    void ExpectRefused(const std::wstring& source, std::string_view message) {
        FakeView::answerYes = true;
        RecordedReports::events.clear();
        const std::string bytes = ReadFileBytes(shell.database.path);
        const BasicShipData bsd = shell.database.bsd;
        const FakePrompt prompt{source};
        ME_FileImportBSD_Click();
        EXPECT_TRUE(OnlyWarning(message));
        EXPECT_EQ(shell.database.bsd, bsd);
        EXPECT_EQ(ReadFileBytes(shell.database.path), bytes);
        EXPECT_TRUE(RecordedReports::Of("rows").empty());
    }
};

TEST_F(BadSource, WithoutAnythingOfUseIsRefused) {
    MakeOpen(L"ship.ve2", {kSection});
    for (const wchar_t* name : {L"a.bsd", L"a.ve2", L"a.vew", L"a.txt"}) {
        for (const char* bytes : {"", "no data at all\r\n", "CORVANE DATABASE\r\n"}) {
            WriteFileBytes(File(name), bytes);
            ExpectRefused(File(name), Narrow(File(name)) + " : not a valid Corvane file");
        }
    }
}

TEST_F(BadSource, ThatIsMissingIsRefused) {
    MakeOpen(L"ship.ve2");
    ExpectRefused(File(L"none.bsd"), "none.bsd' cannot be opened");
    ExpectRefused(L"Q:\\none.bsd", "none.bsd' cannot be opened");
    ExpectRefused(work, "is a folder");
    ExpectRefused(File(L"\u03A9.bsd"), "cannot be used");
}

TEST_F(BadSource, ThatIsADamagedLegacyDatabaseIsRefused) {
    MakeOpen(L"ship.ve2");
    WriteFileBytes(File(L"old.vel"), "no legacy database");
    ExpectRefused(File(L"old.vel"), "old.vel' could not be read.");
}

TEST_F(BadSource, ThatIsTheOpenDatabaseIsRefused) {
    MakeOpen(L"ship.ve2", {kSection});
    ExpectRefused(File(L"ship.ve2"), "ship.ve2' is the open database itself");
    ExpectRefused(File(L"work\\..\\ship.ve2"), "ship.ve2' is the open database itself");
}

TEST_F(ImportBsd, ReadOnlyDatabaseIsRefusedBeforeAnythingIsAsked) {
    MakeOpen(L"ship.ve2");
    ASSERT_EQ(system::SetReadOnly(File(L"ship.ve2"), true), system::kErrorNone);
    const FakePrompt prompt{GoldenBsd()};
    ME_FileImportBSD_Click();
    EXPECT_TRUE(
        OnlyWarning(test::AdvisedText(kMsgReadOnly, {File(L"ship.ve2")}, kMsgReadOnlyAdvice)));
    EXPECT_TRUE(FakePrompt::questions.empty());
    EXPECT_TRUE(RecordedReports::Of("ask").empty());
    EXPECT_EQ(ShipName(), L"SHIP");
}

TEST_F(ImportBsd, BadSourceIsReportedBeforeTheQuestion) {
    MakeOpen(L"ship.ve2");
    WriteFileBytes(File(L"a.bsd"), "no data");
    const FakePrompt prompt{File(L"a.bsd")};
    ME_FileImportBSD_Click();
    EXPECT_EQ(Warnings().size(), 1U);
    EXPECT_TRUE(RecordedReports::Of("ask").empty());
}

TEST_F(ImportBsd, SuccessIsNamedInTheStatusLine) {
    MakeOpen(L"ship.ve2");
    FakeView::answerYes = true;
    const std::wstring source = Make(L"other.ve2");
    const FakePrompt prompt{source};
    ME_FileImportBSD_Click();
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgDataImported, {source}));
}

TEST_F(BadSource, GoodOneIsRefusedForADatabaseWithoutABlock) {
    WriteFileBytes(File(L"bare.ve2"), "CORVANE DATABASE\r\n");
    shell.database.path = File(L"bare.ve2");
    ExpectRefused(GoldenBsd(), "bare.ve2 : not a valid Corvane file");
}

TEST_F(ImportBsd, MissingDatabaseIsReported) {
    MakeOpen(L"ship.ve2");
    KillFile(File(L"ship.ve2"));
    FakeView::answerYes = true;
    const FakePrompt prompt{GoldenBsd()};
    ME_FileImportBSD_Click();
    EXPECT_TRUE(OnlyWarning("ship.ve2' cannot be opened"));
    EXPECT_TRUE(FakePrompt::questions.empty());
}

TEST_F(ImportBsd, CancelChangesNothing) {
    MakeOpen(L"ship.ve2");
    FakeView::answerYes = true;
    const std::string bytes = ReadFileBytes(File(L"ship.ve2"));
    const FakePrompt prompt;
    ME_FileImportBSD_Click();
    EXPECT_EQ(ReadFileBytes(File(L"ship.ve2")), bytes);
    EXPECT_EQ(shell.settings.BrowseDirectory, browse);
    EXPECT_TRUE(RecordedReports::Of("rows").empty());
}

}  // namespace
}  // namespace corvane
