// Operations that the user cancels: at every time at which one is shown, and nothing has changed.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "bsd/bsd_file.h"
#include "database/comparing.h"
#include "database/listing.h"
#include "files/progress.h"
#include "files/rewrite.h"
#include "tests/database/editing_fixture.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::RecordedReports;
using Events = std::vector<std::string>;

// A database of several buffers.
struct CancellingTest : test::EditingTest {
    std::string before;

    CancellingTest() {
        std::vector<test::SampleBlock> blocks = test::FiveBlocks();
        for (int i = 0; i < 20'000; ++i) blocks[1].body += " 1 \t 2.5 \t-3.25 \t\r\n";
        blocks[4].body = blocks[1].body;
        before = test::DatabaseText(blocks);
        Write(before);
    }

    // Cancels an edit at each of the times at which it is shown, and then lets it be.
    void ExpectCancelledEverywhere(const std::function<bool()>& edit) {
        const test::SlowSystem system;
        for (int time = 1;; ++time) {
            RecordedReports::events.clear();
            RecordedReports::timesShown = 0;
            RecordedReports::cancelAt = time;
            const bool isDone = edit();
            if (RecordedReports::timesShown < time) {
                EXPECT_TRUE(isDone);
                EXPECT_NE(Text(), before);
                EXPECT_GT(time, 4) << "it is shown for every buffer of both passes";
                return;
            }
            ASSERT_FALSE(isDone) << time;
            ASSERT_EQ(Text(), before) << time;
            ASSERT_EQ(test::FilesIn(folder.path).size(), 1U) << time;
            ASSERT_EQ(RecordedReports::Of("warning"), Events{}) << time;
            ASSERT_EQ(RecordedReports::caption, FormatMessage(kMsgCancelled, {path})) << time;
            ASSERT_EQ(RecordedReports::timesShown, time) << "nothing is shown afterwards";
        }
    }
};

TEST_F(CancellingTest, ADeletion) {
    ExpectCancelledEverywhere([&] { return DeleteModel(path, 3, true); });
    EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), before);
}

TEST_F(CancellingTest, ACopyOfASection) {
    ExpectCancelledEverywhere(
        [&] { return CopyModel(path, {1, ModelKind::kSection, L"New", {true, nullptr}}) != 0; });
}

TEST_F(CancellingTest, ACopyOfATorsionModel) {
    ExpectCancelledEverywhere(
        [&] { return CopyModel(path, {4, ModelKind::kTorsion, L"", {false, nullptr}}) != 0; });
}

TEST_F(CancellingTest, AReplacedSection) {
    ExpectCancelledEverywhere([&] { return ReplaceSection(path, section, 3, {true, nullptr}); });
}

TEST_F(CancellingTest, AnAppendedSection) {
    ExpectCancelledEverywhere([&] { return AppendSection(path, section, {false, nullptr}); });
}

TEST_F(CancellingTest, AModelOfAnotherDatabase) {
    const std::wstring source = test::DataPath("golden/models.ve2");
    ExpectCancelledEverywhere([&] {
        return AppendModel(path, {source, 1}, ModelKind::kSection, {}) == AppendResult::kAppended;
    });
}

TEST_F(CancellingTest, SavedShipData) {
    BasicShipData bsd;
    bsd.MainData(1) = 180;
    ExpectCancelledEverywhere([&] { return SaveBsdToDatabase(path, bsd); });
}

// The backup is then a copy, which takes long, too.
TEST_F(CancellingTest, ADeletionWhoseBackupIsACopy) {
    const test::NoLinks volume;
    const test::SlowSystem system;
    const std::wstring backup = folder.File(L"ship.bak");
    for (int time = 1;; ++time) {
        test::WriteFileBytes(backup, "an older backup");
        RecordedReports::timesShown = 0;
        RecordedReports::cancelAt = time;
        const bool isDone = DeleteModel(path, 3, true);
        if (RecordedReports::timesShown < time) {
            EXPECT_TRUE(isDone);
            EXPECT_EQ(test::ReadFileBytes(backup), before);
            EXPECT_GT(time, 6) << "it is shown for every buffer of the backup, too";
            return;
        }
        ASSERT_FALSE(isDone) << time;
        ASSERT_EQ(Text(), before) << time;
        ASSERT_EQ(test::ReadFileBytes(backup), "an older backup") << time;
        ASSERT_EQ(test::FilesIn(folder.path).size(), 2U) << time;
        ASSERT_EQ(RecordedReports::Of("warning"), Events{}) << time;
        ASSERT_EQ(RecordedReports::caption, FormatMessage(kMsgCancelled, {path})) << time;
    }
}

TEST_F(CancellingTest, ACopyThatReplacesAFile) {
    const test::SlowSystem system;
    const std::wstring target = folder.File(L"copy.ve2");
    test::WriteFileBytes(target, "an older file");
    for (int time = 1;; ++time) {
        RecordedReports::timesShown = 0;
        RecordedReports::cancelAt = time;
        const bool isDone = ReplaceByCopy(path, target, TargetKind::kAny).Done();
        if (RecordedReports::timesShown < time) {
            EXPECT_TRUE(isDone);
            EXPECT_EQ(test::ReadFileBytes(target), before);
            EXPECT_GT(time, 6);
            return;
        }
        ASSERT_FALSE(isDone) << time;
        ASSERT_EQ(test::ReadFileBytes(target), "an older file") << time;
        ASSERT_EQ(test::FilesIn(folder.path).size(), 2U) << time;
        ASSERT_EQ(RecordedReports::Of("warning"), Events{}) << time;
        ASSERT_EQ(RecordedReports::caption, FormatMessage(kMsgCancelled, {target})) << time;
    }
}

// Shown for every buffer of both lists, and for every model that is looked at more closely.
TEST_F(CancellingTest, AComparison) {
    const std::wstring other = folder.File(L"before.ve2");
    std::string text = before;
    for (size_t at = 0; (at = text.find("2.5 \t-3.25", at)) != std::string::npos; ++at) {
        text.replace(at, 3, "3.5");
    }
    ASSERT_NE(text, before);
    test::WriteFileBytes(other, text);
    const test::SlowSystem system;
    for (int time = 1;; ++time) {
        RecordedReports::events.clear();
        RecordedReports::timesShown = 0;
        RecordedReports::cancelAt = time;
        std::vector<ComparedModel> models;
        const bool isDone = CompareDatabases(other, path, models);
        ASSERT_EQ(RecordedReports::Of("warning"), Events{}) << time;
        if (RecordedReports::timesShown < time) {
            EXPECT_TRUE(isDone);
            EXPECT_EQ(std::ranges::count_if(models, &ComparedModel::isChanged), 2);
            EXPECT_GT(time, 9);
            return;
        }
        ASSERT_FALSE(isDone) << time;
        const std::wstring& shown = RecordedReports::caption;
        ASSERT_TRUE(shown == FormatMessage(kMsgReadingCancelled, {path}) ||
                    shown == FormatMessage(kMsgReadingCancelled, {other}))
            << time;
    }
}

TEST_F(CancellingTest, AListHasAllModelsOrNone) {
    const test::SlowSystem system;
    for (int time = 1;; ++time) {
        RecordedReports::timesShown = 0;
        RecordedReports::cancelAt = time;
        std::vector<ModelEntry> models(1);
        const bool isWhole = ListModelsWithPositions(path, models);
        ASSERT_EQ(models.size(), isWhole ? 5U : 0U) << time;
        ASSERT_EQ(RecordedReports::Of("warning"), Events{});
        if (isWhole) {
            EXPECT_GT(time, 2);
            return;
        }
        ASSERT_EQ(RecordedReports::caption, FormatMessage(kMsgReadingCancelled, {path}));
    }
}

// ---- What is shown -----------------------------------------------------------------------------

TEST_F(CancellingTest, WhatTakesLessThanHalfASecondIsNotShown) {
    RecordedReports::cancelAt = 1;
    EXPECT_EQ(ListModels(path).size(), 5U);
    EXPECT_TRUE(DeleteModel(path, 1, false));
    EXPECT_EQ(RecordedReports::timesShown, 0);
}

TEST_F(CancellingTest, ThePerCentGrowAndTheBoxGoesAtTheEnd) {
    const test::SlowSystem system;
    static std::vector<int> shown;
    shown.clear();
    reportView.showProgress = [](int percent) {
        shown.push_back(percent);
        return false;
    };
    EXPECT_TRUE(DeleteModel(path, 1, false));
    ASSERT_GT(shown.size(), 5U);
    EXPECT_EQ(shown.back(), kNoProgress);
    shown.pop_back();
    EXPECT_TRUE(std::ranges::is_sorted(shown));
    EXPECT_LT(shown.front(), 30);
    EXPECT_GT(shown.back(), 90);
    EXPECT_LT(shown.back(), 100);
}

TEST_F(CancellingTest, ABoxTakesTheProgressAway) {
    static std::vector<int> shown;
    shown.clear();
    reportView.showProgress = [](int percent) {
        shown.push_back(percent);
        return false;
    };
    ReportMessage(kMsgNoDatabase, {path});
    EXPECT_EQ(shown, std::vector<int>{kNoProgress});
}

}  // namespace
}  // namespace corvane
