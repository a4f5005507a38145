// How much of a database is read for one model of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "files/text_file.h"
#include "shell/commands/section_commands.h"
#include "shell/exchange_boxes.h"
#include "shell/open_database.h"
#include "shell/preview_pane.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/database/editing_fixture.h"
#include "tests/database/sample_database.h"
#include "tests/database/section_sample.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/support/chance.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::CountedReads;
using test::FakeView;
using test::RecordedReports;

constexpr int64_t kAllowance = 64 * 1024;

// A database of some megabytes with sections, bulkhead arrangements and torsion models, open and
// shown.
struct ReadingTest : testing::Test {
    FakeView view;
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    std::string text = test::SampleHead();

    ReadingTest() {
        for (int32_t number = 1; number <= 150; ++number) text += Block(number);
        test::WriteFileBytes(path, text);
        shell.database.path = path;
        FakeView::previewOn = true;
        RefreshMainWindow();
    }

    static std::string Block(int32_t number) {
        const auto seed = static_cast<uint32_t>(number);
        if (number % 3 == 1) {
            SectionModel section = test::RandomSection(seed);
            return test::BlockText(section, number);
        }
        if (number % 3 == 2) {
            BulkheadArrangement arrangement = test::RandomArrangement(seed);
            return test::BlockText(arrangement, number);
        }
        test::SampleBlock torsion;
        torsion.number = PrintForm(number);
        torsion.keyword = "TORSION";
        torsion.name = "Girder " + std::to_string(number);
        for (int i = 0; i < 2000; ++i) torsion.body += " 1 \t 2.5 \t-3.25 \t\r\n";
        torsion.beforeMarker = "* before it\r\n";
        return test::BlockText(torsion);
    }

    // The sections around a previewed arrangement, which give its bulkheads their outline: at most
    // eight, one after the other until one has plating.
    int64_t MostForOutline(size_t row) const {
        if (!FakeView::previewOn || shell.database.rows[row].kind != ModelKind::kBulkhead) return 0;
        int64_t largest = 0;
        for (size_t i = 0; i < shell.database.rows.size(); ++i) {
            if (shell.database.rows[i].kind == ModelKind::kSection) {
                largest = std::max(largest, Most(i));
            }
        }
        return 8 * largest;
    }

    // What may be read for the model of a row.
    int64_t Most(size_t row) const {
        const auto& rows = shell.database.rows;
        const auto size = static_cast<int64_t>(text.size());
        return (row + 1 < rows.size() ? rows[row + 1].offset : size) - rows[row].offset +
               kAllowance;
    }
};

TEST_F(ReadingTest, AClickReadsLittleMoreThanTheModelsBlock) {
    const size_t count = shell.database.rows.size();
    ASSERT_EQ(count, 150U);
    ASSERT_GT(text.size(), size_t{2'000'000});
    test::Chance chance(7);
    for (int click = 0; click < 1000; ++click) {
        const size_t row = chance.Below(count);
        FakeView::previewOn = click % 4 != 0;
        const CountedReads reads;
        SelectLine(static_cast<int>(row));
        ASSERT_LE(reads.Bytes(), Most(row) + MostForOutline(row)) << row;
        ASSERT_GT(reads.Bytes(), 0) << row;
        ASSERT_NE(FakeView::position, L"") << row;
        const ModelRow& shown = shell.database.rows[row];
        if (FakeView::previewOn && shown.kind == ModelKind::kSection) {
            ASSERT_EQ(shell.preview.section.name, shown.name);
        }
    }
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST_F(ReadingTest, WhatACommandRequiresOfTheCurrentModelIsReadFromItsBlockAlone) {
    for (size_t row = 0; row < shell.database.rows.size(); row += 7) {
        SelectLine(static_cast<int>(row));
        ModelEntry model;
        const CountedReads reads;
        ASSERT_TRUE(RequireCurrentModel(model));
        EXPECT_TRUE(RequireUnchanged(model));
        EXPECT_LE(reads.Bytes(), 2 * Most(row)) << row;
        const ModelRow& shown = shell.database.rows[row];
        EXPECT_EQ(model.name, shown.name);
        EXPECT_EQ(model.kind, shown.kind);
        EXPECT_EQ(model.number, shown.tag);
        EXPECT_EQ(model.offset, shown.offset);
        EXPECT_TRUE(model.hasOwnNumber);
    }
}

TEST_F(ReadingTest, AModelOfAnImportBoxIsReadFromItsBlockAlone) {
    const std::vector<ExchangeItem> items = ListForExchange(path);
    for (size_t row = 0; row < items.size(); row += 30) {
        PreviewPane pane;
        BasicShipData bsd;
        const CountedReads reads;
        ASSERT_TRUE(ReadForExchange(path, items[row], pane, bsd));
        // Its head, the block, and the ship's data at the file's beginning.
        EXPECT_LE(reads.Bytes(), 2 * Most(row) + static_cast<int64_t>(kTextBufferSize)) << row;
        EXPECT_EQ(pane.section.name, items[row].text);
    }
}

TEST_F(ReadingTest, AFileThatHasChangedIsSearched) {
    // The first model goes, and all others have other offsets.
    const std::string first = Block(1);
    const std::string changed =
        test::SampleHead() + text.substr(test::SampleHead().size() + first.size());
    test::WriteFileBytes(path, changed);
    SelectLine(99);
    EXPECT_EQ(shell.preview.section.name, shell.database.rows[99].name);
    ModelEntry model;
    ASSERT_TRUE(RequireCurrentModel(model));
    EXPECT_EQ(model.name, shell.database.rows[99].name);
    EXPECT_NE(model.offset, shell.database.rows[99].offset);
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
    SelectLine(0);
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U) << "the model is gone";
}

TEST_F(ReadingTest, ANumberThatAnotherModelHasGotMeanwhileIsRefused) {
    SelectLine(3);
    test::Append(path, Block(4));
    ModelEntry model;
    EXPECT_FALSE(RequireCurrentModel(model));
    EXPECT_EQ(RecordedReports::Of("warning"),
              std::vector<std::string>{
                  test::ShownText(kMsgNumberNotOwn, {4, path, GetMessage(kMsgModelMarker)})});
}

}  // namespace
}  // namespace corvane
