// Undo, Redo, and what the commands and the programs of the suite leave in the history.
#include "shell/edit_history.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bsd/bsd_file.h"
#include "database/listing.h"
#include "files/file_system.h"
#include "files/settings_file.h"
#include "report/messages.h"
#include "shell/commands/bsd_commands.h"
#include "shell/commands/commands.h"
#include "shell/commands/section_commands.h"
#include "shell/exchange_boxes.h"
#include "shell/open_database.h"
#include "shell/settings.h"

#include "shell/suite_programs.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeProgram;
using test::FakePrompt;
using test::FakeView;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::WriteFileBytes;

constexpr ModelKind kSection = ModelKind::kSection;
constexpr ModelKind kBulkhead = ModelKind::kBulkhead;
constexpr ModelKind kTorsion = ModelKind::kTorsion;

void ReplaceInPlace(const std::string& from, const std::string& to) {
    std::string text = ReadFileBytes(shell.database.path);
    WriteFileBytes(shell.database.path, text.replace(text.find(from), from.size(), to));
}

// "ship.ve2" with three models is open, the user says Yes, and a history is kept.
struct EditHistoryTest : test::CommandTest {
    const test::OwnHistory history;
    std::wstring path;

    EditHistoryTest() {
        UseHistory();
        MakeOpen(L"ship.ve2", {kSection, kBulkhead, kTorsion});
        path = shell.database.path;
        RefreshMainWindow();
        RecordedReports::events.clear();
        FakeView::answerYes = true;
        FakeView::answerText = L"A copy";
    }

    std::string Text() const { return ReadFileBytes(path); }
    std::vector<TextVersion> Versions() const {
        std::vector<TextVersion> versions;
        EXPECT_EQ(ReadHistory(path, versions), system::kErrorNone);
        return versions;
    }
    static void Delete(int32_t number) {
        SetCurrentModel(number);
        ME_SectionRemove_Click();
    }
    static std::string UndoCaption() { return Narrow(CaptionNow(*FindCommand(ME_EditUndo))); }
    static std::string RedoCaption() { return Narrow(CaptionNow(*FindCommand(ME_EditRedo))); }
    // What the command did is undone and done again, to the byte.
    void ExpectUndoneAndRedone(void (*command)(), const std::string& name) {
        const std::string before = Text();
        command();
        const std::string after = Text();
        ASSERT_NE(before, after) << name;
        EXPECT_EQ(UndoCaption(), "&Undo " + name + "\tCtrl+Z");
        RunCommand(ME_EditUndo);
        EXPECT_EQ(Text(), before) << name;
        EXPECT_EQ(RedoCaption(), "&Redo " + name + "\tCtrl+Y");
        RunCommand(ME_EditRedo);
        EXPECT_EQ(Text(), after) << name;
        EXPECT_EQ(UndoCaption(), "&Undo " + name + "\tCtrl+Z");
        EXPECT_EQ(RecordedReports::Of("warning").size(), 0U) << name;
    }
    void ChooseAllOf(const std::wstring& source) const {
        FakeView::askImport = [source](ImportChoice& choice) {
            choice = {source, ListForExchange(source)};
            return true;
        };
    }
};

TEST_F(EditHistoryTest, EveryEditIsUndoneAndRedoneUnderItsName) {
    const std::wstring name = ListModels(path)[0].name;
    SetCurrentModel(1);
    ExpectUndoneAndRedone(ME_SectionCopy_Click, "Copy of '" + Narrow(name) + "'");
    SetCurrentModel(1);
    ExpectUndoneAndRedone(ME_SectionRemove_Click, "Delete of '" + Narrow(name) + "'");
    ChooseAllOf(Make(L"other.ve2", {kSection, kTorsion}));
    ExpectUndoneAndRedone(ME_SectionImport_Click, "Import from 'other.ve2'");
    const FakePrompt prompt({Make(L"third.ve2")});
    ReplaceInPlace("SHIP", "BARK");
    ExpectUndoneAndRedone(ME_FileImportBSD_Click, "Import of Basic Ship Data");
}

TEST_F(EditHistoryTest, StepsGoBackToTheFirstTextAndForthToTheLast) {
    std::vector<std::string> texts = {Text()};
    for (int i = 0; i < 3; ++i) {
        Delete(1);
        texts.push_back(Text());
    }
    for (int i = 2; i >= 0; --i) {
        RunCommand(ME_EditUndo);
        EXPECT_EQ(Text(), texts[static_cast<size_t>(i)]);
    }
    EXPECT_FALSE(IsEnabled(*FindCommand(ME_EditUndo)));
    for (int i = 1; i <= 3; ++i) {
        RunCommand(ME_EditRedo);
        EXPECT_EQ(Text(), texts[static_cast<size_t>(i)]);
    }
    EXPECT_FALSE(IsEnabled(*FindCommand(ME_EditRedo)));
    // Nothing was asked but whether to delete, and no text is there twice.
    EXPECT_EQ(RecordedReports::Of("ask").size(), 3U);
    EXPECT_EQ(Versions().size(), 3U);
}

TEST_F(EditHistoryTest, WindowShowsTheTextThatIsBack) {
    Delete(1);
    EXPECT_EQ(FakeView::rows.size(), 2U);
    RunCommand(ME_EditUndo);
    EXPECT_EQ(FakeView::rows.size(), 3U);
    EXPECT_EQ(RecordedReports::caption.substr(0, 8), L"Undone: ");
    EXPECT_EQ(ReadFileBytes(File(L"ship.bak")).size(), ReadFileBytes(Versions()[0].file).size());
}

TEST_F(EditHistoryTest, NewEditLeavesNothingToRedo) {
    Delete(1);
    Delete(1);
    RunCommand(ME_EditUndo);
    EXPECT_TRUE(IsEnabled(*FindCommand(ME_EditRedo)));
    Delete(2);
    EXPECT_FALSE(IsEnabled(*FindCommand(ME_EditRedo)));
    EXPECT_EQ(RedoCaption(), "&Redo\tCtrl+Y");
    // What could be redone is a version still.
    EXPECT_EQ(Versions().size(), 3U);
}

TEST_F(EditHistoryTest, VersionSaysWhatWasDoneByWhomAndHowManyModelsItHas) {
    Delete(1);
    ASSERT_EQ(Versions().size(), 1U);
    EXPECT_EQ(Versions()[0].models, 3);
    EXPECT_FALSE(Versions()[0].user.empty());
    EXPECT_EQ(ListModels(Versions()[0].file).size(), 3U);
}

TEST_F(EditHistoryTest, NameInTheCaptionKeepsItsAmpersand) {
    ChooseAllOf(Make(L"B&C.ve2", {kSection}));
    ME_SectionImport_Click();
    EXPECT_EQ(UndoCaption(), "&Undo Import from 'B&&C.ve2'\tCtrl+Z");
}

// ---- Changes of others -------------------------------------------------------------------------

TEST_F(EditHistoryTest, FileThatOthersHaveChangedSinceIsAskedAboutWithBothTimes) {
    Delete(1);
    ReplaceInPlace("SHIP", "BARK!");
    const std::string theirs = Text();
    system::FileStamp now;
    ASSERT_EQ(system::GetFileStamp(path, now), system::kErrorNone);
    RecordedReports::events.clear();
    FakeView::answerYes = false;
    RunCommand(ME_EditUndo);
    const std::vector<std::string> asked = RecordedReports::Of("ask irreversible");
    ASSERT_EQ(asked.size(), 1U);
    for (const int64_t modified : {now.modified, Versions()[0].now.modified}) {
        EXPECT_NE(asked[0].find(Narrow(TimeText(system::LocalTimeOf(modified)))), std::string::npos)
            << asked[0];
    }
    EXPECT_EQ(Text(), theirs);
    FakeView::answerYes = true;
    RunCommand(ME_EditUndo);
    EXPECT_EQ(ListModels(path).size(), 3U);
    RunCommand(ME_EditRedo);
    EXPECT_EQ(Text(), theirs);
}

TEST_F(EditHistoryTest, VersionThatOthersHaveChangedIsAskedAbout) {
    Delete(1);
    const std::string before = Text();
    WriteFileBytes(Versions()[0].file, "by hand");
    FakeView::answerYes = false;
    RecordedReports::events.clear();
    RunCommand(ME_EditUndo);
    EXPECT_EQ(RecordedReports::Of("ask irreversible").size(), 1U);
    EXPECT_EQ(Text(), before);
}

TEST_F(EditHistoryTest, DatabaseThatWasRenamedCanBeUndone) {
    const std::string before = Text();
    Delete(1);
    const std::wstring renamed = File(L"renamed.ve2");
    ASSERT_EQ(system::RenameToNewName(path, renamed), system::kErrorNone);
    LoadDatabase(renamed);
    RefreshMainWindow();
    RunCommand(ME_EditUndo);
    EXPECT_EQ(ReadFileBytes(renamed), before);
}

TEST_F(EditHistoryTest, ReadOnlyDatabaseStaysAsItIs) {
    Delete(1);
    const std::string before = Text();
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    RecordedReports::events.clear();
    RunCommand(ME_EditUndo);
    EXPECT_EQ(Text(), before);
    EXPECT_TRUE(OnlyWarning(Narrow(path)));
}

// ---- Earlier versions --------------------------------------------------------------------------

TEST_F(EditHistoryTest, VersionsAreListedTheNewestFirstWithWhatIsKnownOfThem) {
    const std::string name = Narrow(ListModels(path)[0].name);
    Delete(1);
    Delete(1);
    RunCommand(ME_EditUndo);
    std::vector<std::string> rows;
    FakeView::askVersion = [&rows](VersionChoice& choice) {
        for (const TextVersion& version : choice.versions) {
            std::string row;
            for (const VersionColumn& column : VersionColumns()) {
                if (column.title == std::wstring_view(L"Time")) continue;
                row += Narrow(column.text(version)) + "|";
            }
            rows.push_back(row);
        }
        return false;
    };
    const std::string before = Text();
    RunCommand(ME_FileVersions);
    ASSERT_EQ(rows.size(), 2U);
    const std::string user = Narrow(Versions()[0].user);
    EXPECT_EQ(rows[0].substr(0, rows[0].rfind('|', rows[0].size() - 2)),
              "Undo: Delete of '" + Narrow(ListModels(path)[0].name) + "'|" + user + "|1");
    EXPECT_EQ(rows[1].substr(0, rows[1].rfind('|', rows[1].size() - 2)),
              "Delete of '" + name + "'|" + user + "|3");
    EXPECT_TRUE(rows[1].ends_with(" KB|"));
    EXPECT_EQ(Text(), before);
}

TEST_F(EditHistoryTest, VersionIsRestoredAsAnEditThatCanBeUndone) {
    const std::string first = Text();
    Delete(1);
    Delete(1);
    const std::string last = Text();
    std::wstring time;
    FakeView::askVersion = [&time](VersionChoice& choice) {
        choice.chosen = 1;
        time = choice.versions.at(1).time;
        return true;
    };
    RunCommand(ME_FileVersions);
    EXPECT_EQ(Text(), first);
    EXPECT_EQ(UndoCaption(), "&Undo Restore of the version of " + Narrow(time) + "\tCtrl+Z");
    RunCommand(ME_EditUndo);
    EXPECT_EQ(Text(), last);
    RunCommand(ME_EditRedo);
    EXPECT_EQ(Text(), first);
}

TEST_F(EditHistoryTest, VersionIsSavedAsAnotherFile) {
    const std::string first = Text();
    Delete(1);
    const std::wstring copy = File(L"copy.ve2");
    const FakePrompt prompt({copy, path});
    const VersionChoice choice = ReadVersions();
    SaveVersionAs(choice.path, choice.versions.at(0));
    EXPECT_EQ(ReadFileBytes(copy), first);
    EXPECT_FALSE(IsSameFile(copy, choice.versions[0].file));
    EXPECT_EQ(FakePrompt::questions[0].proposed.substr(0, 5), L"ship ");
    SaveVersionAs(choice.path, choice.versions.at(0));
    EXPECT_TRUE(OnlyWarning(Narrow(path)));
}

TEST_F(EditHistoryTest, DatabaseThatSaveAsReplacesIsKeptAsAVersionOfThatFile) {
    const std::wstring other = Make(L"other.ve2", {kTorsion});
    const std::string replaced = ReadFileBytes(other);
    const FakePrompt prompt{other};
    RunCommand(ME_FileSaveAs);
    EXPECT_EQ(ReadFileBytes(other), Text());
    EXPECT_EQ(UndoCaption(), "&Undo Replacement by 'ship.ve2'\tCtrl+Z");
    RunCommand(ME_EditUndo);
    EXPECT_EQ(ReadFileBytes(other), replaced);
    EXPECT_TRUE(Versions().empty()) << "the copied database has no version of it";
}

TEST_F(EditHistoryTest, DatabaseThatANewOneReplacesIsKept) {
    const std::wstring other = Make(L"other.ve2", {kTorsion});
    const std::string replaced = ReadFileBytes(other);
    const FakePrompt prompt{other};
    RunCommand(ME_FileNew);
    EXPECT_TRUE(shell.database.rows.empty());
    EXPECT_EQ(UndoCaption(), "&Undo Replacement by a new database\tCtrl+Z");
    RunCommand(ME_EditUndo);
    EXPECT_EQ(ReadFileBytes(other), replaced);
    EXPECT_EQ(shell.database.rows.size(), 1U);
}

TEST_F(EditHistoryTest, NumberOfModelsOfATextThatWasNotListedIsNotKnown) {
    test::Append(path, test::ModelText(4, kTorsion));
    Delete(1);
    ASSERT_EQ(Versions().size(), 1U);
    EXPECT_EQ(Versions()[0].models, -1);
    EXPECT_EQ(VersionColumns()[3].text(Versions()[0]), L"");
}

// ---- No history --------------------------------------------------------------------------------

TEST_F(EditHistoryTest, EditWithoutHistoryIsMadeAndTheStatusLineSaysSo) {
    WriteFileBytes(history.folder.File(L"Corvane"), "not a folder");
    Delete(1);
    EXPECT_EQ(ListModels(path).size(), 2U);
    EXPECT_EQ(RecordedReports::Of("warning").size(), 0U);
    EXPECT_NE(RecordedReports::caption.find(L"there is no history of it"), std::wstring::npos)
        << Narrow(RecordedReports::caption);
    EXPECT_FALSE(IsEnabled(*FindCommand(ME_EditUndo)));
}

TEST_F(EditHistoryTest, LimitsAreThoseOfTheSettingsFile) {
    const test::FreshSettingsFile settings;
    UseHistory();
    EXPECT_EQ(shell.history.limits.versions, 50);
    EXPECT_EQ(shell.history.limits.bytes, int64_t{1} << 30);
    WriteIniText("Corvane history", "Versions", "2", SettingsFile());
    WriteIniText("Corvane history", "Megabytes", "5", SettingsFile());
    UseHistory();
    EXPECT_EQ(shell.history.limits.bytes, int64_t{5} << 20);
    for (int i = 0; i < 3; ++i) Delete(1);
    EXPECT_EQ(Versions().size(), 2U);
}

// ---- Programs of the suite ---------------------------------------------------------------------

struct HistoryOfRuns : EditHistoryTest {
    HistoryOfRuns() {
        Install(L"BsdEdit.exe");
        shell.settings.DataDirectory = programs;
    }
};

TEST_F(HistoryOfRuns, WhatAProgramWroteInPlaceIsUndone) {
    const std::string before = Text();
    const FakeProgram program([] { ReplaceInPlace("SHIP", "BARK"); });
    ME_FileBSD_Click();
    const std::string after = Text();
    EXPECT_NE(after, before);
    EXPECT_EQ(UndoCaption(), "&Undo Changes by BsdEdit (Basic Ship Data)\tCtrl+Z");
    RecordedReports::events.clear();
    RunCommand(ME_EditUndo);
    EXPECT_EQ(Text(), before);
    RunCommand(ME_EditRedo);
    EXPECT_EQ(Text(), after);
    // The end of the run was noted, so that there is nothing to ask.
    EXPECT_EQ(RecordedReports::Of("ask").size(), 0U);
}

TEST_F(HistoryOfRuns, RunsThatChangeNothingAreNoStepsAndKeepOneCopy) {
    const FakeProgram program;
    ME_FileBSD_Click();
    ASSERT_EQ(Versions().size(), 1U);
    const std::wstring file = Versions()[0].file;
    ME_FileBSD_Click();
    ASSERT_EQ(Versions().size(), 1U);
    EXPECT_EQ(Versions()[0].file, file);
    EXPECT_FALSE(IsSameFile(file, path));
    EXPECT_FALSE(IsEnabled(*FindCommand(ME_EditUndo)));
}

TEST_F(HistoryOfRuns, BackupThatIsOpenedGetsAFileOfItsOwnBeforeAProgramWritesIntoIt) {
    shell.settings.IntegerSetting = 1;
    Delete(1);
    const std::wstring backup = File(L"ship.bak");
    const std::wstring version = Versions()[0].file;
    ASSERT_TRUE(IsSameFile(backup, version));
    const std::string before = ReadFileBytes(backup);
    LoadDatabase(backup);
    const FakeProgram program([] { ReplaceInPlace("SHIP", "BARK"); });
    ME_FileBSD_Click();
    EXPECT_NE(ReadFileBytes(backup), before);
    EXPECT_EQ(ReadFileBytes(version), before);
    EXPECT_EQ(RecordedReports::Of("warning").size(), 0U);
}

TEST_F(HistoryOfRuns, VersionThatWasPutBackIsNotWrittenIntoByAProgram) {
    Delete(1);
    const std::string after = Text();
    RunCommand(ME_EditUndo);
    const FakeProgram program([] { ReplaceInPlace("SHIP", "BARK"); });
    ME_FileBSD_Click();
    RunCommand(ME_EditUndo);
    EXPECT_EQ(ListModels(path).size(), 3U);
    EXPECT_EQ(Text().find("BARK"), std::string::npos);
    for (const TextVersion& version : Versions()) EXPECT_FALSE(version.isChanged);
}

TEST_F(HistoryOfRuns, ProgramRunsWithoutAHistoryAndTheStatusLineSaysSo) {
    WriteFileBytes(history.folder.File(L"Corvane"), "not a folder");
    const FakeProgram program([] { ReplaceInPlace("SHIP", "BARK"); });
    ME_FileBSD_Click();
    EXPECT_EQ(FakeProgram::commandLines.size(), 1U);
    EXPECT_NE(RecordedReports::caption.find(L"there is no history of it"), std::wstring::npos);
}

}  // namespace
}  // namespace corvane
