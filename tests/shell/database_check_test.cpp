// File > Check database: its report, and the repair from there.
#include "shell/database_check.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "files/file_system.h"
#include "files/history.h"
#include "report/messages.h"
#include "shell/commands/commands.h"
#include "shell/commands/file_commands.h"
#include "shell/edit_history.h"
#include "shell/open_database.h"
#include "tests/database/block_sample.h"
#include "tests/database/check_damage.h"
#include "tests/database/editing_fixture.h"
#include "tests/shell/command_support.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::FakeView;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::Replaced;
using test::WriteFileBytes;
using Cells = std::vector<std::wstring>;

// A gap in the numbers, an identifier that is there twice, an unknown line that stays.
std::string Damaged() {
    std::string text = Replaced(test::SoundDatabase(), "\r\n 4 \r\nSECTION", "\r\n 7 \r\nSECTION");
    text = Replaced(text, "\r\nID-0002\r\n", "\r\nID-0001\r\n");
    return Replaced(text, "SHIP\r\n", "");
}

// The database is open and listed, with its last model selected, and a history is kept.
struct DatabaseCheckTest : test::CommandTest {
    const test::OwnHistory history;
    std::wstring path = File(L"ship.ve2");
    std::vector<Report> shown;  // the reports, as they came

    DatabaseCheckTest() { UseHistory(); }
    ~DatabaseCheckTest() override { system::SetReadOnly(path, false); }
    DatabaseCheckTest(const DatabaseCheckTest&) = delete;
    DatabaseCheckTest& operator=(const DatabaseCheckTest&) = delete;

    void Open(const std::string& text) {
        WriteFileBytes(path, text);
        OpenFile(path);
        SelectLine(static_cast<int>(shell.database.rows.size()) - 1);
        RecordedReports::events.clear();
        Look([](Report&) { return false; });
    }
    // What the user does in each report.
    void Look(std::function<bool(Report&)> act) {
        FakeView::showReport = [this, act = std::move(act)](Report& report) {
            shown.push_back(report);
            return act(report);
        };
    }
    // Presses Repair in the report of the check, and answers the question.
    void RepairWith(bool answer) {
        Look([this, answer](Report& report) {
            if (report.isQuestion) return answer;
            EXPECT_EQ(report.action, L"&Repair...");
            EXPECT_FALSE(report.act(report));
            shown.push_back(report);
            return false;
        });
        RunCommand(ME_FileCheck);
    }
    std::string Text() const { return ReadFileBytes(path); }
    std::vector<TextVersion> Versions() const {
        std::vector<TextVersion> versions;
        EXPECT_EQ(ReadHistory(path, versions), system::kErrorNone);
        return versions;
    }
    static std::string Caption() { return Narrow(RecordedReports::caption); }
};

// ---- The report --------------------------------------------------------------------------------

TEST_F(DatabaseCheckTest, SoundDatabaseIsSaidToBeSo) {
    Open(test::SoundDatabase());
    RunCommand(ME_FileCheck);
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].title, L"Check of ship.ve2");
    EXPECT_EQ(shown[0].summary, L"Nothing is wrong with the database. Models: 4, lines: 417.");
    EXPECT_TRUE(shown[0].rows.empty());
    EXPECT_EQ(shown[0].action, L"");
    EXPECT_EQ(Caption(), "Nothing is wrong with '" + Narrow(path) + "' (models: 4, lines: 417)");
    EXPECT_EQ(Text(), test::SoundDatabase());
}

TEST_F(DatabaseCheckTest, RowsSayWhereHowSevereWhichModelAndWhat) {
    Open(Damaged());
    RunCommand(ME_FileCheck);
    ASSERT_EQ(shown.size(), 1U);
    const Report& report = shown[0];
    EXPECT_EQ(
        report.summary,
        L"Faults: 0, warnings: 2, notes: 1. Models: 4, lines: 416.\r"
        L"Changes that Repair can make without loss: 2. They are shown before they are made.");
    EXPECT_EQ(report.columns.size(), 4U);
    ASSERT_EQ(report.rows.size(), 3U);
    EXPECT_EQ(report.rows[0].cells,
              (Cells{L"Note", L"9", L"", L"The file's head has no line 'SHIP'."}));
    EXPECT_EQ(report.rows[0].severity, Severity::kNote);
    EXPECT_EQ(report.rows[1].severity, Severity::kWarning);
    EXPECT_EQ(report.rows[1].cells[1], L"372");
    EXPECT_EQ(report.rows[1].cells[2], L"7 Bare");
    EXPECT_EQ(report.rows[1].details,
              L"Number out of order: The model's number is 7; after the models before it 4 is "
              L"due.\rWhat it means: Numbers have a gap or are out of order. Each model is still "
              L"found by its number.\rWhat can be done: Repair gives all models the numbers 1, 2, "
              L"3 and so on.");
    EXPECT_EQ(Caption(), "'" + Narrow(path) + "' checked: faults: 0, warnings: 2, notes: 1");
    EXPECT_EQ(Text(), Damaged());
}

TEST_F(DatabaseCheckTest, CancelledCheckShowsNoReport) {
    Open(Damaged());
    const test::SlowSystem slow;
    RecordedReports::timesShown = 0;
    RecordedReports::cancelAt = 1;
    CheckOpenDatabase();
    EXPECT_EQ(RecordedReports::timesShown, 1);
    EXPECT_TRUE(shown.empty());
    EXPECT_TRUE(Warnings().empty());
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgReadingCancelled, {path}));
    EXPECT_EQ(Text(), Damaged());
}

TEST_F(DatabaseCheckTest, MissingDatabaseIsReported) {
    Open(Damaged());
    system::RemoveFile(path);
    CheckOpenDatabase();
    EXPECT_TRUE(shown.empty());
    EXPECT_EQ(Warnings().size(), 1U);
}

// ---- Repair ------------------------------------------------------------------------------------

TEST_F(DatabaseCheckTest, ChangesAreShownBeforeTheyAreMade) {
    Open(Damaged());
    RepairWith(false);
    ASSERT_EQ(shown.size(), 3U);  // the check, the changes, the check as it is afterwards
    const Report& changes = shown[1];
    EXPECT_EQ(changes.title, L"Repair of ship.ve2");
    EXPECT_EQ(changes.action, L"&Repair");
    EXPECT_TRUE(changes.summary.starts_with(L"Changes to be made: 2. "));
    ASSERT_EQ(changes.rows.size(), 2U);
    EXPECT_EQ(changes.rows[0].cells, (Cells{L"Number of a model", L"372", L"Bare", L"7", L"4"}));
    EXPECT_EQ(changes.rows[0].details, L"Was: 7\rBecomes: 4");
    EXPECT_EQ(changes.rows[1].cells[0], L"Identifier of a model");
    EXPECT_EQ(changes.rows[1].cells[1], L"400");
    EXPECT_EQ(changes.rows[1].cells[3], L"ID-0001");
    EXPECT_NE(changes.rows[1].cells[4], L"ID-0001");
    EXPECT_EQ(Text(), Damaged());
    EXPECT_TRUE(Versions().empty());
    EXPECT_EQ(shown[2].rows.size(), 3U);
}

TEST_F(DatabaseCheckTest, RepairIsOneEditThatUndoTakesBack) {
    Open(Damaged());
    RepairWith(true);
    const std::string repaired = Text();
    EXPECT_NE(repaired, Damaged());
    ASSERT_EQ(Versions().size(), 1U);
    EXPECT_EQ(Versions()[0].what, L"Repair of the database");
    EXPECT_EQ(Narrow(CaptionNow(*FindCommand(ME_EditUndo))),
              "&Undo Repair of the database\tCtrl+Z");
    RunCommand(ME_EditUndo);
    EXPECT_EQ(Text(), Damaged());
    RunCommand(ME_EditRedo);
    EXPECT_EQ(Text(), repaired);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(DatabaseCheckTest, AfterRepairTheReportIsAsTheFileIsNow) {
    Open(Damaged());
    RepairWith(true);
    ASSERT_EQ(shown.size(), 3U);
    const Report& after = shown[2];
    EXPECT_EQ(after.summary, L"Faults: 0, warnings: 0, notes: 1. Models: 4, lines: 416.");
    ASSERT_EQ(after.rows.size(), 1U);
    EXPECT_EQ(after.rows[0].cells[3], L"The file's head has no line 'SHIP'.");
    EXPECT_EQ(after.action, L"");
    EXPECT_EQ(Caption(), "2 changes made in '" + Narrow(path) + "'");
}

// The selected model gets both another number and another identifier.
TEST_F(DatabaseCheckTest, ListIsReadAgainAndTheSameModelStaysSelected) {
    Open(Damaged());
    const std::wstring name = shell.database.rows[3].name;
    ASSERT_EQ(shell.database.currentModel, 7);
    RepairWith(true);
    EXPECT_EQ(shell.database.rows[3].tag, 4);
    EXPECT_EQ(shell.database.currentModel, 4);
    EXPECT_EQ(FakeView::selected, 3);
    EXPECT_EQ(FakeView::rows.at(3).name, name);
}

TEST_F(DatabaseCheckTest, ReadOnlyDatabaseIsCheckedAndRefusedBeforeTheQuestion) {
    Open(Damaged());
    system::SetReadOnly(path, true);
    RepairWith(true);
    EXPECT_EQ(shown.size(), 2U);  // no changes are shown
    EXPECT_EQ(shown[1].rows.size(), 3U);
    EXPECT_TRUE(OnlyWarning("is read-only and cannot be changed"));
    EXPECT_EQ(Text(), Damaged());
}

TEST_F(DatabaseCheckTest, DatabaseThatHasChangedSinceTheCheckIsRefused) {
    Open(Damaged());
    const std::string other = Replaced(Damaged(), "CORVANE", "CORVANE ");
    Look([&](Report& report) {
        if (report.isQuestion) return true;
        WriteFileBytes(path, other);
        return report.act(report);
    });
    RunCommand(ME_FileCheck);
    EXPECT_EQ(shown.size(), 1U);
    EXPECT_EQ(Warnings(), std::vector<std::string>{test::ShownText(kMsgChangedSinceCheck, {path})});
    EXPECT_EQ(Text(), other);
}

TEST_F(DatabaseCheckTest, DatabaseThatChangesDuringTheQuestionIsRefused) {
    Open(Damaged());
    const std::string other = Replaced(Damaged(), "CORVANE", "CORVANE ");
    Look([&](Report& report) {
        if (!report.isQuestion) return report.act(report);
        WriteFileBytes(path, other);
        return true;
    });
    RunCommand(ME_FileCheck);
    EXPECT_EQ(Warnings(), std::vector<std::string>{test::ShownText(kMsgChangedSinceCheck, {path})});
    EXPECT_EQ(Text(), other);
    EXPECT_TRUE(Versions().empty());
}

TEST_F(DatabaseCheckTest, LeftOverFileIsNamedAndDeleted) {
    Open(test::SoundDatabase());
    const std::wstring leftOver = File(L"Cor1A2B.tmp");
    WriteFileBytes(leftOver, Text().substr(0, 300));
    RepairWith(true);
    ASSERT_EQ(shown.size(), 3U);
    ASSERT_EQ(shown[1].rows.size(), 1U);
    EXPECT_EQ(shown[1].rows[0].cells,
              (Cells{L"File that was left over", L"", L"", L"Cor1A2B.tmp", L"deleted"}));
    EXPECT_EQ(shown[1].rows[0].details, L"Was: " + leftOver + L"\rBecomes: deleted");
    EXPECT_NE(shown[1].summary.find(L"does not bring a deleted file back"), std::wstring::npos);
    EXPECT_FALSE(FileExists(leftOver));
    EXPECT_EQ(Text(), test::SoundDatabase());
    EXPECT_TRUE(shown[2].rows.empty());
}

TEST_F(DatabaseCheckTest, CheckAfterTheRepairThatIsCancelledLeavesNothingToRepair) {
    Open(Damaged());
    std::optional<test::SlowSystem> slow;
    Look([&](Report& report) {
        if (report.isQuestion) {
            slow.emplace();
            reportView.showProgress = [](int) {
                return RecordedReports::caption.starts_with(L"Checking ");
            };
            return true;
        }
        EXPECT_FALSE(report.act(report));
        EXPECT_EQ(report.summary,
                  L"Changes made: 2. The check that follows did not end: choose File > Check "
                  L"database again.");
        EXPECT_TRUE(report.rows.empty());
        EXPECT_EQ(report.action, L"");
        return false;
    });
    RunCommand(ME_FileCheck);
    EXPECT_EQ(shown.size(), 2U);
    EXPECT_NE(Text(), Damaged());
}

}  // namespace
}  // namespace corvane
