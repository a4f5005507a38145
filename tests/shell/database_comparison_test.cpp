// File > Compare with, the comparison with an earlier version, and the import from there.
#include "shell/database_comparison.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "database/listing.h"
#include "files/file_system.h"
#include "report/messages.h"
#include "shell/commands/commands.h"
#include "shell/commands/file_commands.h"
#include "shell/commands/section_commands.h"
#include "shell/comparison_box.h"
#include "shell/edit_history.h"
#include "shell/open_database.h"
#include "tests/shell/command_support.h"
#include "tests/shell/compared_ships.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::FakePrompt;
using test::FakeView;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::WriteFileBytes;

// "ship.ve2" is open and listed, "other.ve2" is what it was before, and a history is kept.
struct DatabaseComparisonTest : test::CommandTest {
    const test::OwnHistory history;
    std::wstring path = File(L"ship.ve2");
    std::wstring other = File(L"other.ve2");
    int timesShown = 0;
    std::wstring nameShown;  // of what the open database was compared with
    std::function<void(ComparisonBox& box)> act = [](ComparisonBox&) {};

    DatabaseComparisonTest() {
        UseHistory();
        WriteFileBytes(path, test::ShipNow());
        WriteFileBytes(other, test::ShipBefore());
        OpenFile(path);
        FakeView::answerYes = true;
        FakeView::showComparison = [this](Comparison& comparison) {
            ComparisonBox box{comparison};
            ++timesShown;
            nameShown = comparison.beforeName;
            ListDifferences(box);
            act(box);
        };
        RecordedReports::events.clear();
    }
    ~DatabaseComparisonTest() override { system::SetReadOnly(path, false); }
    DatabaseComparisonTest(const DatabaseComparisonTest&) = delete;
    DatabaseComparisonTest& operator=(const DatabaseComparisonTest&) = delete;

    void CompareWithOther() const {
        const FakePrompt prompt({other});
        RunCommand(ME_FileCompare);
    }
    // Imports these rows from the box.
    void ImportFromOther(const std::vector<size_t>& rows, bool isDone) {
        act = [rows, isDone](ComparisonBox& box) { EXPECT_EQ(ImportRows(box, rows), isDone); };
        CompareWithOther();
    }
    std::string Text() const { return ReadFileBytes(path); }
    static std::vector<std::string> Questions() { return RecordedReports::Of("ask"); }
};

// ---- Compare -----------------------------------------------------------------------------------

TEST_F(DatabaseComparisonTest, AsksForADatabaseAndShowsWhatDiffers) {
    act = [](ComparisonBox& box) { EXPECT_EQ(box.rows.size(), size_t{test::kComparedRows}); };
    CompareWithOther();
    EXPECT_EQ(timesShown, 1);
    ASSERT_EQ(FakePrompt::questions.size(), 1U);
    EXPECT_EQ(Narrow(FakePrompt::questions[0].caption), "Compare with");
    EXPECT_EQ(Narrow(FakePrompt::questions[0].types),
              "Corvane databases (*.ve2)|*.ve2|Older Corvane databases (*.vew)|*.vew|");
    EXPECT_EQ(nameShown, L"other.ve2");
    EXPECT_TRUE(Narrow(RecordedReports::caption).starts_with("Compared with other.ve2. Models add"))
        << Narrow(RecordedReports::caption);
    EXPECT_EQ(Text(), test::ShipNow());
    EXPECT_TRUE(Warnings().empty());
}

// As File > Check database does with a database in which nothing is wrong.
TEST_F(DatabaseComparisonTest, WithoutDifferencesTheBoxSaysSo) {
    WriteFileBytes(other, test::ShipNow());
    act = [](ComparisonBox& box) {
        EXPECT_TRUE(box.rows.empty());
        EXPECT_EQ(SummaryOf(box.comparison), L"There are no differences. Models: 13.");
    };
    CompareWithOther();
    EXPECT_EQ(timesShown, 1);
    EXPECT_EQ(Narrow(RecordedReports::caption),
              "Compared with other.ve2. There are no differences. Models: 13.");
}

TEST_F(DatabaseComparisonTest, ReadOnlyFilesAreCompared) {
    system::SetReadOnly(path, true);
    system::SetReadOnly(other, true);
    CompareWithOther();
    system::SetReadOnly(other, false);
    EXPECT_EQ(timesShown, 1);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(DatabaseComparisonTest, NothingComesOfACancelledPrompt) {
    const FakePrompt prompt;
    RunCommand(ME_FileCompare);
    EXPECT_EQ(timesShown, 0);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(DatabaseComparisonTest, OpenDatabaseItselfIsRefused) {
    const FakePrompt prompt({path});
    RunCommand(ME_FileCompare);
    EXPECT_EQ(timesShown, 0);
    EXPECT_TRUE(OnlyWarning(Narrow(path)));
}

TEST_F(DatabaseComparisonTest, WhatIsNoDatabaseIsReported) {
    WriteFileBytes(other, "Ask the yard.\r\n");
    CompareWithOther();
    EXPECT_EQ(timesShown, 0);
    EXPECT_TRUE(OnlyWarning("other.ve2' is not a Corvane database"));
}

TEST_F(DatabaseComparisonTest, MissingFilesAreReported) {
    system::RemoveFile(other);
    CompareWithOther();
    EXPECT_TRUE(OnlyWarning("other.ve2"));
    RecordedReports::events.clear();
    system::RemoveFile(path);
    const FakePrompt prompt({other});
    CompareWithFile();
    EXPECT_TRUE(OnlyWarning("ship.ve2"));
    EXPECT_TRUE(FakePrompt::questions.empty()) << "nothing can be compared with";
    EXPECT_EQ(timesShown, 0);
}

TEST_F(DatabaseComparisonTest, CancelledComparisonShowsNoBox) {
    const test::SlowSystem slow;
    RecordedReports::timesShown = 0;
    RecordedReports::cancelAt = 1;
    const FakePrompt prompt({other});
    CompareWithFile();
    EXPECT_EQ(timesShown, 0);
    EXPECT_TRUE(Warnings().empty());
}

// ---- Earlier versions --------------------------------------------------------------------------

TEST_F(DatabaseComparisonTest, EarlierVersionIsNamedByItsTimeAndWhatReplacedIt) {
    SetCurrentModel(15);
    ME_SectionRemove_Click();
    const VersionChoice choice = ReadVersions();
    ASSERT_EQ(choice.versions.size(), 1U);
    act = [](ComparisonBox& box) {
        ASSERT_EQ(box.rows.size(), 1U);
        EXPECT_EQ(DifferingCells(box, 0)[0], L"Removed");
    };
    EXPECT_FALSE(CompareWithVersion(choice.versions[0]));
    EXPECT_EQ(timesShown, 1);
    EXPECT_EQ(nameShown, L"the version of " + choice.versions[0].time +
                             L", before Delete of 'Fore peak, frame 280'");
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(DatabaseComparisonTest, DeletedModelIsImportedFromAnEarlierVersion) {
    SetCurrentModel(15);
    ME_SectionRemove_Click();
    const VersionChoice choice = ReadVersions();
    act = [](ComparisonBox& box) { EXPECT_TRUE(ImportRows(box, {0})); };
    EXPECT_TRUE(CompareWithVersion(choice.versions.at(0)));
    EXPECT_EQ(ListModels(path).back().name, L"Fore peak, frame 280");
    EXPECT_NE(RecordedReports::caption.find(L"imported from 'the version of "), std::wstring::npos)
        << Narrow(RecordedReports::caption);
    EXPECT_EQ(ReadVersions().versions.size(), 2U);
}

TEST_F(DatabaseComparisonTest, VersionThatIsGoneIsReported) {
    TextVersion version;
    version.file = File(L"gone.ve2");
    EXPECT_FALSE(CompareWithVersion(version));
    EXPECT_EQ(timesShown, 0);
    EXPECT_TRUE(OnlyWarning("gone.ve2"));
}

// ---- Import ------------------------------------------------------------------------------------

TEST_F(DatabaseComparisonTest, ImportIsOneEditThatUndoTakesBack) {
    act = [](ComparisonBox& box) {
        EXPECT_TRUE(
            ImportRows(box, {test::kSectionAdded, test::kSectionRemoved, test::kTorsionRemoved}));
        // Nothing is missing any more: what was imported is found by its name.
        for (size_t row = 0; row < box.rows.size(); ++row) {
            EXPECT_NE(DifferingCells(box, row)[0], L"Removed");
        }
        EXPECT_EQ(WhyOutdated(box.comparison), L"");
    };
    CompareWithOther();
    ASSERT_EQ(Questions().size(), 1U);
    EXPECT_NE(Questions()[0].find("Models to import from other.ve2: 2."), std::string::npos)
        << Questions()[0];
    EXPECT_NE(Questions()[0].find("'ship.ve2'"), std::string::npos);
    // The list of models has them, and the last one is selected.
    ASSERT_EQ(FakeView::rows.size(), 15U);
    EXPECT_EQ(FakeView::rows[13].name, L"Hold 6, frame 91");
    EXPECT_EQ(FakeView::rows[14].name, L"Torsion model, holds 5 to 3");
    EXPECT_NE(FakeView::rows[13].identifier, "AURORABAY-0003");
    EXPECT_EQ(FakeView::selected, 14);
    EXPECT_NE(RecordedReports::caption.find(L"imported from 'other.ve2'"), std::wstring::npos)
        << Narrow(RecordedReports::caption);
    EXPECT_EQ(Narrow(CaptionNow(*FindCommand(ME_EditUndo))), "&Undo Import from other.ve2\tCtrl+Z");
    RunCommand(ME_EditUndo);
    EXPECT_EQ(Text(), test::ShipNow());
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(DatabaseComparisonTest, NoMeansNo) {
    FakeView::answerYes = false;
    ImportFromOther({test::kSectionRemoved}, false);
    EXPECT_EQ(Questions().size(), 1U);
    EXPECT_EQ(Text(), test::ShipNow());
}

TEST_F(DatabaseComparisonTest, ReadOnlyDatabaseIsRefusedBeforeTheQuestion) {
    act = [this](ComparisonBox& box) {
        system::SetReadOnly(path, true);
        EXPECT_FALSE(ImportRows(box, {test::kSectionRemoved}));
    };
    CompareWithOther();
    EXPECT_TRUE(Questions().empty());
    EXPECT_TRUE(OnlyWarning("ship.ve2"));
    EXPECT_EQ(Text(), test::ShipNow());
}

TEST_F(DatabaseComparisonTest, FileThatHasChangedIsRefusedBeforeTheQuestion) {
    act = [this](ComparisonBox& box) {
        WriteFileBytes(other, test::ShipBefore() + "\r\n");
        EXPECT_FALSE(ImportRows(box, {test::kSectionRemoved}));
    };
    CompareWithOther();
    EXPECT_TRUE(Questions().empty());
    EXPECT_TRUE(OnlyWarning("'other.ve2' has changed since it was compared"));
    EXPECT_EQ(Text(), test::ShipNow());
}

// Its number would lead to another model.
TEST_F(DatabaseComparisonTest, ModelWithoutANumberOfItsOwnIsRefusedBeforeTheQuestion) {
    std::string text = test::ShipBefore();
    test::Change(text, "\r\n 3 \r\nSECTION", "\r\n 2 \r\nSECTION");
    WriteFileBytes(other, text);
    ImportFromOther({test::kSectionRemoved}, false);
    EXPECT_TRUE(Questions().empty());
    EXPECT_TRUE(OnlyWarning("other.ve2"));
    EXPECT_EQ(Text(), test::ShipNow());
}

TEST_F(DatabaseComparisonTest, CancelledImportLeavesTheDatabaseAsItWas) {
    act = [](ComparisonBox& box) {
        const test::SlowSystem slow;
        RecordedReports::timesShown = 0;
        RecordedReports::cancelAt = 1;
        EXPECT_FALSE(ImportRows(box, {test::kSectionRemoved}));
        RecordedReports::cancelAt = 0;
    };
    CompareWithOther();
    EXPECT_EQ(Questions().size(), 1U);
    EXPECT_EQ(Text(), test::ShipNow());
}

}  // namespace
}  // namespace corvane
