// New, Open, Save As.
#include "shell/commands/file_commands.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "bsd/basic_ship_data.h"
#include "bsd/bsd_file.h"
#include "database/model_kind.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/state.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/support/without_stamps.h"
#include "text/text.h"

namespace corvane {
namespace {

using test::Before;
using test::CommandTest;
using test::FakePrompt;
using test::FakeView;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::WriteFileBytes;

struct FileNew : CommandTest {};
struct FileOpen : CommandTest {};
struct FileSaveAs : CommandTest {};

std::wstring ShipName() {
    return shell.database.bsd.Titles(5).Trimmed();
}

// ---- All ---------------------------------------------------------------------------------------

TEST_F(CommandTest, CancelledPromptOfAFileChangesNothing) {
    for (void (*command)() : {ME_FileNew_Click, ME_FileOpen_Click, ME_FileSaveAs_Click}) {
        MakeOpen(L"old.ve2", {ModelKind::kSection});
        for (const wchar_t* answer : {L"", L"Cancel"}) {
            RecordedReports::events.clear();
            const Before before;
            const FakePrompt prompt{answer};
            command();
            EXPECT_EQ(FakePrompt::questions.size(), 1U);
            EXPECT_TRUE(before.IsUnchanged());
            EXPECT_TRUE(Warnings().empty());
        }
    }
}

// ---- New ---------------------------------------------------------------------------------------

TEST_F(FileNew, AsksForANameToSaveUnderInTheBrowseDirectory) {
    const FakePrompt prompt;
    const std::wstring current = system::CurrentDirectory();
    ME_FileNew_Click();
    ASSERT_EQ(FakePrompt::questions.size(), 1U);
    const FakePrompt::Question& asked = FakePrompt::questions[0];
    EXPECT_EQ(asked.extension, L"ve2");
    EXPECT_EQ(asked.types, GetMessage(kMsgDatabaseFiles));
    EXPECT_EQ(asked.caption, L"New database");
    EXPECT_EQ(asked.proposed, L"");
    EXPECT_EQ(asked.flags, -1);
    EXPECT_EQ(asked.directory, StripTrailingBackslash(browse));
    EXPECT_EQ(system::CurrentDirectory(), current);
}

TEST_F(FileNew, FileIsTheGoldenOneButForItsStamps) {
    const FakePrompt prompt{File(L"Emeraude Bay.ve2")};
    ME_FileNew_Click();
    EXPECT_EQ(test::WithoutStamps(ReadFileBytes(File(L"Emeraude Bay.ve2"))),
              test::WithoutStamps(ReadFileBytes(test::DataPath("golden/new_database.ve2"))));
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(FileNew, NameLongerThanEightGivesItsFirstEightInUpperCase) {
    struct {
        const wchar_t* file;
        const wchar_t* shipName;
    } const cases[] = {{L"emeraude bay.ve2", L"EMERAUDE"},
                       {L"été.ve2", L"ÉTÉ"},
                       {L"ab.cd.ve2", L"AB.CD"},
                       {L"12345678.ve2", L"12345678"},
                       {L"noextension", L"NOEXTENS"}};
    for (const auto& [file, shipName] : cases) {
        const FakePrompt prompt{File(file)};
        ME_FileNew_Click();
        EXPECT_EQ(Narrow(ShipName()), Narrow(shipName));
        BasicShipData written;
        EXPECT_TRUE(LoadBsdFromDatabase(File(file), written));
        EXPECT_EQ(Narrow(written.Titles(5).Trimmed()), Narrow(shipName));
    }
}

TEST_F(FileNew, NewFileIsTheOpenDatabaseWithNewData) {
    MakeOpen(L"old.ve2", {ModelKind::kSection, ModelKind::kSection});
    shell.database.currentModel = 2;
    shell.preview.isShown = true;
    shell.preview.section.x_m = 12;
    const FakePrompt prompt{browse + L"fresh.ve2"};
    ME_FileNew_Click();
    EXPECT_EQ(shell.database.path, browse + L"fresh.ve2");
    EXPECT_EQ(FakeView::database, browse + L"fresh.ve2");
    EXPECT_EQ(shell.database.bsd, NewBasicShipData(L"FRESH"));
    EXPECT_FALSE(IsBsdDefined(shell.database.bsd));
    EXPECT_EQ(shell.database.currentModel, 1);
    EXPECT_FALSE(shell.preview.isShown);
    EXPECT_EQ(shell.preview.section.x_m, 0);
    EXPECT_TRUE(RecordedReports::Happened("clear preview"));
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 0);
    EXPECT_EQ(FakeView::selected, -1);
    EXPECT_EQ(FakeView::position, L"");
    EXPECT_EQ(FakeView::frame, L"");
    EXPECT_EQ(Narrow(RecordedReports::caption), Narrow(GetMessage(kMsgInputBsdFirst)) + "...");
}

TEST_F(FileNew, BrowseDirectoryBecomesThatOfTheFile) {
    const FakePrompt prompt{File(L"new.ve2")};
    ME_FileNew_Click();
    EXPECT_EQ(shell.settings.BrowseDirectory, folder.path);
}

TEST_F(FileNew, NameWithoutAFolderLiesWhereThePromptStarted) {
    const FakePrompt prompt{L"new.ve2"};
    ME_FileNew_Click();
    EXPECT_EQ(shell.database.path, browse + L"new.ve2");
    EXPECT_TRUE(FileExists(browse + L"new.ve2"));
}

TEST_F(FileNew, ExistingFileIsReplaced) {
    const std::wstring path = Make(L"old.ve2", {ModelKind::kSection, ModelKind::kTorsion});
    const FakePrompt prompt{path};
    ME_FileNew_Click();
    EXPECT_EQ(CountModels(path), 0);
    EXPECT_EQ(shell.database.path, path);
    EXPECT_EQ(test::FilesIn(folder.path),
              (std::vector<std::wstring>{L"Velk data", L"browse", L"old.ve2", L"work"}));
}

TEST_F(FileNew, OpenDatabaseIsNotReplacedHoweverItIsSpelled) {
    MakeOpen(L"ship.ve2", {ModelKind::kSection});
    const std::string bytes = ReadFileBytes(File(L"ship.ve2"));
    std::wstring slashes = File(L"ship.ve2");
    std::replace(slashes.begin(), slashes.end(), L'\\', L'/');
    for (const std::wstring& name : {File(L"ship.ve2"), work + L"..\\ship.ve2", slashes}) {
        RecordedReports::events.clear();
        const FakePrompt prompt{name};
        ME_FileNew_Click();
        EXPECT_TRUE(OnlyWarning("ship.ve2' is the open database itself.")) << Narrow(name);
        EXPECT_EQ(ReadFileBytes(File(L"ship.ve2")), bytes);
    }
}

// A program that makes the file while the new one is being written.
TEST_F(FileNew, FileThatIsMadeMeanwhileStays) {
    static std::wstring path;
    path = File(L"new.ve2");
    const FakePrompt prompt{path};
    const test::FakeFunction generator(LoginName, [](char* buffer, int32_t) {
        *buffer = '\0';
        WriteFileBytes(path, "made by others");
    });
    ME_FileNew_Click();
    EXPECT_EQ(ReadFileBytes(path), "made by others");
    EXPECT_TRUE(OnlyWarning(Narrow(GetMessage(kMsgMadeMeanwhile))));
    EXPECT_FALSE(IsDatabaseOpen());
}

// ---- Open --------------------------------------------------------------------------------------

TEST_F(FileOpen, AsksForAnExistingFileInTheWorkDirectory) {
    MakeOpen(L"ship.ve2");
    const std::wstring current = system::CurrentDirectory();
    const FakePrompt prompt;
    ME_FileOpen_Click();
    ASSERT_EQ(FakePrompt::questions.size(), 1U);
    const FakePrompt::Question& asked = FakePrompt::questions[0];
    EXPECT_EQ(asked.extension, L"ve2");
    EXPECT_EQ(Narrow(asked.types),
              "Corvane databases (*.ve2;*.vew)|*.ve2;*.vew|Velk Dos databases (*.vel)|*.vel|");
    EXPECT_EQ(asked.caption, L"Open database");
    EXPECT_EQ(asked.proposed, L"ship.ve2");
    EXPECT_EQ(asked.flags, 0);
    EXPECT_EQ(asked.directory, StripTrailingBackslash(work));
    EXPECT_EQ(system::CurrentDirectory(), current);
}

TEST_F(FileOpen, ListEventsAreSuppressedWhileThePromptIsUp) {
    const FakePrompt prompt;
    ME_FileOpen_Click();
    EXPECT_TRUE(FakePrompt::questions.at(0).suppressListEvents);
    EXPECT_FALSE(shell.suppressListEvents);
}

TEST_F(FileOpen, DatabaseIsShownWithItsFirstModel) {
    MakeOpen(L"old.ve2", {ModelKind::kSection});
    shell.database.currentModel = 7;
    shell.database.bsd = BasicShipData();
    const FakePrompt prompt{Make(L"other.ve2", {ModelKind::kTorsion, ModelKind::kBulkhead})};
    ME_FileOpen_Click();
    EXPECT_EQ(shell.database.path, File(L"other.ve2"));
    EXPECT_EQ(shell.settings.BrowseDirectory, folder.path);
    EXPECT_EQ(shell.database.currentModel, 1);
    EXPECT_EQ(ShipName(), L"SHIP");
    EXPECT_TRUE(IsBsdDefined(shell.database.bsd));
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 2);
    EXPECT_EQ(FakeView::selected, 0);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(FileOpen, DatabaseWithoutDataOpensWithAFreshRecord) {
    MakeOpen(L"old.ve2", {ModelKind::kSection});
    WriteFileBytes(File(L"bare.ve2"), "CORVANE DATABASE\r\n");
    const FakePrompt prompt{File(L"bare.ve2")};
    ME_FileOpen_Click();
    EXPECT_EQ(shell.database.path, File(L"bare.ve2"));
    EXPECT_EQ(shell.database.bsd, BasicShipData());
    EXPECT_TRUE(OnlyWarning(" : not a valid Corvane file"));
}

TEST_F(FileOpen, DataWithoutASignatureAreEnough) {
    const std::string bytes = ReadFileBytes(Make(L"whole.ve2"));
    WriteFileBytes(File(L"head.ve2"), bytes.substr(bytes.find("\r\n") + 2));
    const FakePrompt prompt{File(L"head.ve2")};
    ME_FileOpen_Click();
    EXPECT_EQ(shell.database.path, File(L"head.ve2"));
    EXPECT_EQ(ShipName(), L"SHIP");
}

TEST_F(FileOpen, FileThatIsNotADatabaseIsRefused) {
    MakeOpen(L"old.ve2", {ModelKind::kSection});
    const std::string contents[] = {"", "x", "some text\r\n", std::string(300000, '\0'),
                                    std::string(300000, '-')};
    for (const wchar_t* name : {L"no.ve2", L"no.vew", L"no.txt", L"no"}) {
        for (const std::string& bytes : contents) {
            RecordedReports::events.clear();
            WriteFileBytes(File(name), bytes);
            const Before before;
            FakePrompt prompt{File(name), File(L"copy.ve2")};
            ME_FileOpen_Click();
            EXPECT_TRUE(OnlyWarning(Narrow(File(name)) + " : not a valid Corvane file"));
            EXPECT_TRUE(RecordedReports::Of("ask").empty());
            EXPECT_EQ(shell.database.path, before.databasePath);
            EXPECT_EQ(shell.database.bsd, before.bsd);
            EXPECT_EQ(ReadFileBytes(File(name)), bytes);
            EXPECT_FALSE(FileExists(File(L"copy.ve2")));
        }
    }
}

TEST_F(FileOpen, FileOfShipDataAloneIsRefusedWithTheCommandThatImportsIt) {
    MakeOpen(L"old.ve2", {ModelKind::kSection});
    const std::string bytes = ReadFileBytes(test::DataPath("golden/standalone.bsd"));
    WriteFileBytes(File(L"Ship.BSD"), bytes);
    const Before before;
    FakePrompt prompt{File(L"Ship.BSD")};
    ME_FileOpen_Click();
    EXPECT_TRUE(OnlyWarning(Narrow(BoxText(kMsgShipDataAlone, {File(L"Ship.BSD")}))));
    EXPECT_EQ(shell.database.path, before.databasePath);
    EXPECT_EQ(ReadFileBytes(File(L"Ship.BSD")), bytes);
}

TEST_F(FileOpen, MissingFileAndFolderAreReported) {
    MakeOpen(L"old.ve2");
    struct {
        std::wstring path;
        const char* message;
    } const cases[] = {{File(L"none.ve2"), "none.ve2' cannot be opened"},
                       {L"Q:\\ship.ve2", "Q:\\ship.ve2' cannot be opened"},
                       {work, "is a folder"},
                       {File(L"\u03A9.ve2"), "?.ve2' cannot be used"},
                       {folder.path + std::wstring(390 - folder.path.size(), L'a'), "too long"}};
    for (const auto& [path, message] : cases) {
        RecordedReports::events.clear();
        const Before before;
        const FakePrompt prompt{path};
        ME_FileOpen_Click();
        EXPECT_TRUE(OnlyWarning(message));
        EXPECT_TRUE(before.IsUnchanged());
    }
}

TEST_F(FileOpen, LegacyDatabaseIsConverted) {
    MakeOpen(L"old.ve2");
    WriteFileBytes(File(L"ship.VEL"), ReadFileBytes(test::DataPath("../samples/aurora_bay.vel")));
    const FakePrompt prompt{File(L"ship.VEL")};
    ME_FileOpen_Click();
    EXPECT_EQ(Narrow(shell.database.path), Narrow(LowerCase(work + L"ship.ve2")));
    EXPECT_EQ(shell.database.bsd.Titles(5).Trimmed(), L"SHIP");
    EXPECT_TRUE(Warnings().empty());
}

// ---- Open: the copy of a file with the older extension -----------------------------------------

std::string CopyQuestion() {
    return test::AdvisedText(L"This file has an old Velk extension. Do you want to make a copy ?",
                             kMsgOldExtensionAdvice);
}

TEST_F(FileOpen, NoOpensTheOldFileInPlace) {
    const std::wstring path = Make(L"ship.vew", {ModelKind::kSection});
    const FakePrompt prompt{path};
    ME_FileOpen_Click();
    EXPECT_EQ(RecordedReports::Of("ask"), std::vector<std::string>{CopyQuestion()});
    EXPECT_EQ(FakePrompt::questions.size(), 1U);
    EXPECT_EQ(shell.database.path, path);
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 1);
}

TEST_F(FileOpen, UpperCaseExtensionOffersTheCopyToo) {
    const FakePrompt prompt{Make(L"SHIP.VEW")};
    ME_FileOpen_Click();
    EXPECT_EQ(RecordedReports::Of("ask"), std::vector<std::string>{CopyQuestion()});
}

TEST_F(FileOpen, YesOpensTheCopy) {
    FakeView::answerYes = true;
    const std::wstring path = Make(L"ship.vew", {ModelKind::kSection});
    const std::string bytes = ReadFileBytes(path);
    const FakePrompt prompt{path, browse + L"copy.ve2"};
    ME_FileOpen_Click();
    ASSERT_EQ(FakePrompt::questions.size(), 2U);
    const FakePrompt::Question& asked = FakePrompt::questions[1];
    EXPECT_EQ(asked.proposed, L"ship.ve2");
    EXPECT_EQ(asked.extension, L"ve2");
    EXPECT_EQ(asked.types, GetMessage(kMsgDatabaseFiles));
    EXPECT_EQ(asked.caption, L"Save database as");
    EXPECT_EQ(asked.flags, -1);
    EXPECT_EQ(asked.directory, StripTrailingBackslash(work));
    EXPECT_EQ(shell.database.path, browse + L"copy.ve2");
    EXPECT_EQ(shell.settings.BrowseDirectory, browse);
    EXPECT_EQ(ReadFileBytes(browse + L"copy.ve2"), bytes);
    EXPECT_EQ(ReadFileBytes(path), bytes);
    EXPECT_EQ(ShipName(), L"SHIP");
}

TEST_F(FileOpen, CancelledCopyLeavesTheOpenDatabase) {
    MakeOpen(L"old.ve2");
    FakeView::answerYes = true;
    const FakePrompt prompt{Make(L"ship.vew")};
    const Before before;
    ME_FileOpen_Click();
    EXPECT_EQ(FakePrompt::questions.size(), 2U);
    EXPECT_EQ(shell.database.path, before.databasePath);
    EXPECT_EQ(shell.database.bsd, before.bsd);
    EXPECT_TRUE(RecordedReports::Of("rows").empty());
}

TEST_F(FileOpen, CopyThatCannotBeMadeLeavesTheOpenDatabase) {
    MakeOpen(L"old.ve2");
    FakeView::answerYes = true;
    const FakePrompt prompt{Make(L"ship.vew"), File(L"none\\copy.ve2")};
    ME_FileOpen_Click();
    EXPECT_TRUE(OnlyWarning("none\\copy.ve2' cannot be created"));
    EXPECT_EQ(shell.database.path, File(L"old.ve2"));
}

TEST_F(FileOpen, CopyOntoItselfOpensTheFile) {
    FakeView::answerYes = true;
    const std::wstring path = Make(L"ship.vew", {ModelKind::kSection});
    const std::string bytes = ReadFileBytes(path);
    const FakePrompt prompt{path, path};
    ME_FileOpen_Click();
    EXPECT_EQ(shell.database.path, path);
    EXPECT_EQ(ReadFileBytes(path), bytes);
}

TEST_F(FileOpen, CopyNamedStarHasItsFoldersName) {
    FakeView::answerYes = true;
    for (const wchar_t* name : {L"work\\star.vew", L"work\\STAR.VEW"}) {
        const std::wstring path = Make(name, {ModelKind::kSection});
        const std::string bytes = ReadFileBytes(path);
        const FakePrompt prompt{path, File(L"copy.ve2")};
        ME_FileOpen_Click();
        // The field has 30 characters.
        const std::wstring expected = CleanFileName(work).substr(0, 30);
        EXPECT_EQ(Narrow(ShipName()), Narrow(expected));
        BasicShipData saved;
        EXPECT_TRUE(LoadBsdFromDatabase(File(L"copy.ve2"), saved));
        EXPECT_EQ(saved, shell.database.bsd);
        EXPECT_EQ(CountModels(File(L"copy.ve2")), 1);
        EXPECT_EQ(ReadFileBytes(path), bytes) << "the old file stays";
    }
}

TEST_F(FileOpen, OldFileNamedStarKeepsItsNameWithoutACopy) {
    const FakePrompt prompt{Make(L"star.vew")};
    ME_FileOpen_Click();
    EXPECT_EQ(ShipName(), L"SHIP");
}

// ---- Save As -----------------------------------------------------------------------------------

TEST_F(FileSaveAs, ProposesTheBaseNameInTheBrowseDirectory) {
    MakeOpen(L"ship.vew");
    const FakePrompt prompt;
    ME_FileSaveAs_Click();
    ASSERT_EQ(FakePrompt::questions.size(), 1U);
    const FakePrompt::Question& asked = FakePrompt::questions[0];
    EXPECT_EQ(asked.proposed, L"ship.ve2");
    EXPECT_EQ(asked.extension, L"ve2");
    EXPECT_EQ(asked.types, GetMessage(kMsgDatabaseFiles));
    EXPECT_EQ(asked.caption, L"Save database as");
    EXPECT_EQ(asked.flags, -1);
    EXPECT_EQ(asked.directory, StripTrailingBackslash(browse));
}

TEST_F(FileSaveAs, CopyIsTheSameToTheByteAndBecomesTheOpenDatabase) {
    MakeOpen(L"ship.ve2", {ModelKind::kSection, ModelKind::kTorsion});
    test::Append(File(L"ship.ve2"), "stray bytes \xFF without a line end");
    const std::string bytes = ReadFileBytes(File(L"ship.ve2"));
    shell.database.currentModel = 2;
    const BasicShipData bsd = shell.database.bsd;
    const FakePrompt prompt{work + L"copy.ve2"};
    ME_FileSaveAs_Click();
    EXPECT_EQ(ReadFileBytes(work + L"copy.ve2"), bytes);
    EXPECT_EQ(ReadFileBytes(File(L"ship.ve2")), bytes);
    EXPECT_EQ(shell.database.path, work + L"copy.ve2");
    EXPECT_EQ(shell.settings.BrowseDirectory, work);
    EXPECT_EQ(FakeView::database, work + L"copy.ve2");
    EXPECT_EQ(shell.database.currentModel, 2);
    EXPECT_EQ(FakeView::selected, 1);
    EXPECT_EQ(shell.database.bsd, bsd);
}

TEST_F(FileSaveAs, ExistingFileIsReplaced) {
    MakeOpen(L"ship.ve2", {ModelKind::kSection});
    const FakePrompt prompt{Make(L"other.ve2")};
    ME_FileSaveAs_Click();
    EXPECT_EQ(ReadFileBytes(File(L"other.ve2")), ReadFileBytes(File(L"ship.ve2")));
}

TEST_F(FileSaveAs, OpenDatabaseItselfIsNotHarmed) {
    MakeOpen(L"ship.ve2", {ModelKind::kSection});
    const std::string bytes = ReadFileBytes(File(L"ship.ve2"));
    const FakePrompt prompt{File(L"work\\..\\ship.ve2")};
    ME_FileSaveAs_Click();
    EXPECT_EQ(ReadFileBytes(File(L"ship.ve2")), bytes);
    EXPECT_EQ(shell.database.path, File(L"ship.ve2"));
    EXPECT_EQ(static_cast<int>(FakeView::rows.size()), 1);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(FileSaveAs, ReadOnlyDatabaseGivesAWritableCopy) {
    MakeOpen(L"ship.ve2", {ModelKind::kSection});
    ASSERT_EQ(system::SetReadOnly(File(L"ship.ve2"), true), system::kErrorNone);
    const FakePrompt prompt{File(L"copy.ve2")};
    ME_FileSaveAs_Click();
    EXPECT_EQ(shell.database.path, File(L"copy.ve2"));
    EXPECT_FALSE(IsReadOnlyFile(File(L"copy.ve2")));
}

TEST_F(FileSaveAs, MissingDatabaseIsReported) {
    shell.database.path = File(L"gone.ve2");
    const FakePrompt prompt{File(L"copy.ve2")};
    ME_FileSaveAs_Click();
    EXPECT_TRUE(OnlyWarning("gone.ve2' cannot be opened"));
    EXPECT_TRUE(FakePrompt::questions.empty());
}

TEST_F(FileSaveAs, NothingHappensWithoutADatabase) {
    const FakePrompt prompt{File(L"copy.ve2")};
    ME_FileSaveAs_Click();
    EXPECT_TRUE(FakePrompt::questions.empty());
    EXPECT_TRUE(RecordedReports::events.empty());
}

// ---- The status line ---------------------------------------------------------------------------

TEST_F(FileSaveAs, NextCommandClearsARedLineAndALineOfSuccess) {
    MakeOpen(L"ship.ve2");
    const FakePrompt prompt;
    ReportNote(kMsgSavedAsLegacy, {L"old.vel"});
    RunCommand(ME_FileSaveAs);
    EXPECT_EQ(RecordedReports::caption, L"");
    ReportStatus(kMsgReadingModels, {L"ship.ve2"});
    ReportSilent(L"fault");
    EXPECT_EQ(RecordedReports::events.back(), "colour red");
    RecordedReports::events.clear();
    RunCommand(ME_FileSaveAs);
    EXPECT_EQ(RecordedReports::caption, L"");
    EXPECT_TRUE(RecordedReports::Happened("colour text"));
}

}  // namespace
}  // namespace corvane
