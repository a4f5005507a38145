// What the user cancels: the open database, its list and all files stay as they were.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "database/listing.h"
#include "files/file_system.h"
#include "shell/commands/file_commands.h"
#include "shell/commands/section_commands.h"
#include "shell/exchange_boxes.h"
#include "shell/legacy_conversion.h"
#include "shell/model_exchange.h"
#include "shell/open_database.h"
#include "tests/database/sample_database.h"
#include "tests/legacy/legacy_support.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using namespace test;

// "ship.ve2" with two sections is open and shown.
struct LongOperations : CommandTest {
    std::wstring path;
    std::string before;

    LongOperations() {
        MakeOpen(L"ship.ve2", {ModelKind::kSection, ModelKind::kSection});
        path = shell.database.path;
        before = ReadFileBytes(path);
        RefreshMainWindow();
        SelectLine(1);
    }

    // From now on everything takes long, and the user cancels at the time `time` at which something
    // is shown.
    static void CancelAt(int time) {
        RecordedReports::events.clear();
        RecordedReports::timesShown = 0;
        RecordedReports::cancelAt = time;
    }
    void ExpectUntouched() const {
        EXPECT_EQ(shell.database.path, path);
        EXPECT_EQ(shell.database.rows.size(), 2U);
        EXPECT_EQ(shell.database.currentModel, 2);
        EXPECT_EQ(ReadFileBytes(path), before);
        EXPECT_EQ(Warnings(), std::vector<std::string>{});
    }
};

TEST_F(LongOperations, OpeningAnotherDatabaseThatIsCancelledOpensNothing) {
    const std::wstring other = File(L"other.ve2");
    WriteFileBytes(other, DatabaseText(FiveBlocks()));
    const SlowSystem system;
    CancelAt(1);
    OpenFile(other);
    ExpectUntouched();
    EXPECT_EQ(RecordedReports::Of("rows"), std::vector<std::string>{});
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgReadingCancelled, {other}));
    EXPECT_EQ(RecordedReports::events.back(), "pointer reset");
    CancelAt(0);
    OpenFile(other);
    EXPECT_EQ(shell.database.path, other);
    EXPECT_EQ(shell.database.rows.size(), 5U);
}

TEST_F(LongOperations, ARefreshThatIsCancelledKeepsTheList) {
    Append(path, ModelText(3, ModelKind::kSection));
    before = ReadFileBytes(path);
    const SlowSystem system;
    CancelAt(1);
    RefreshMainWindow();
    ExpectUntouched();
    EXPECT_EQ(FakeView::rows.size(), 2U);
    EXPECT_EQ(FakeView::selected, 1);
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgReadingCancelled, {path}));
}

TEST_F(LongOperations, ADatabaseThatWasNeverListedIsNotOpen) {
    LoadDatabase(path);
    const SlowSystem system;
    CancelAt(1);
    RefreshMainWindow();
    EXPECT_FALSE(IsDatabaseOpen());
    EXPECT_TRUE(FakeView::rows.empty());
    EXPECT_EQ(FakeView::database, L"No database selected");
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgReadingCancelled, {path}));
}

TEST_F(LongOperations, ADeletionThatIsCancelledChangesNothing) {
    const SlowSystem system;
    FakeView::answerYes = true;
    shell.settings.IntegerSetting = 1;
    CancelAt(1);
    ME_SectionRemove_Click();
    ExpectUntouched();
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgCancelled, {path}));
    EXPECT_EQ(RecordedReports::Of("rows"), std::vector<std::string>{});
}

TEST_F(LongOperations, AnImportThatIsCancelledAtItsBeginningAppendsNothing) {
    const std::wstring other = File(L"other.ve2");
    WriteFileBytes(other, DatabaseText(FiveBlocks()));
    const ImportChoice choice{other, ListForExchange(other)};
    FakeView::askImport = [choice](ImportChoice& asked) {
        asked = choice;
        return true;
    };
    const SlowSystem system;
    for (int time = 1; time <= 6; ++time) {
        CancelAt(time);
        ME_SectionImport_Click();
        ASSERT_EQ(RecordedReports::timesShown, time);
        EXPECT_EQ(Warnings(), std::vector<std::string>{});
        EXPECT_EQ(ReadFileBytes(path), before) << time;
    }
}

TEST_F(LongOperations, AnExportOfAllSectionsThatIsCancelledMakesNoFile) {
    const std::wstring target = File(L"all.vel");
    const SlowSystem system;
    for (int time = 1;; ++time) {
        CancelAt(time);
        ExchangeReport report;
        const bool isDone = SaveAsLegacyDatabase(target, report);
        if (isDone) {
            EXPECT_GT(time, 3);
            break;
        }
        ASSERT_EQ(RecordedReports::timesShown, time);
        EXPECT_EQ(Warnings(), std::vector<std::string>{}) << time;
        EXPECT_FALSE(FileExists(target)) << time;
        ExpectUntouched();
    }
}

TEST_F(LongOperations, AnExportOfSeveralSectionsThatIsCancelledLeavesTheFileAsItWas) {
    const std::wstring target = File(L"some.vel");
    ASSERT_TRUE(MakeLegacyDatabase(target));
    const std::string old = ReadFileBytes(target);
    std::vector<ModelEntry> sections = ListModels(path);
    std::erase_if(sections,
                  [](const ModelEntry& model) { return model.kind != ModelKind::kSection; });
    ASSERT_GT(sections.size(), 1U);
    ExportChoice choice;
    choice.path = target;
    const SlowSystem system;
    for (int time = 1;; ++time) {
        CancelAt(time);
        if (ExportModels(sections, choice)) {
            EXPECT_GT(time, 2);
            break;
        }
        ASSERT_EQ(RecordedReports::timesShown, time);
        EXPECT_EQ(ReadFileBytes(target), old) << time;
        EXPECT_EQ(ReadFileBytes(path), before) << time;
        EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgCancelled, {target})) << time;
    }
    EXPECT_NE(ReadFileBytes(target), old);
}

TEST_F(LongOperations, AConversionThatIsCancelledMakesNoFile) {
    const std::wstring legacy = File(L"old.vel");
    WriteLegacyDatabase(legacy, {L"Frame 30", L"Frame 40"});
    shell.settings.WorkDirectory = work;
    const SlowSystem system;
    CancelAt(1);
    OpenLegacyDatabase(legacy);
    ExpectUntouched();
    EXPECT_TRUE(FilesIn(work).empty());
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgReadingCancelled, {legacy}));
}

}  // namespace
}  // namespace corvane
