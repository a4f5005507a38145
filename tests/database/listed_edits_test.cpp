// Edits that know from a list what the blocks of the file are: the file is then read once.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/database/editing_fixture.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::RecordedReports;

struct ListedEdits : test::EditingTest {
    std::string before;

    ListedEdits() {
        std::vector<test::SampleBlock> blocks = test::FiveBlocks();
        for (int i = 0; i < 20'000; ++i) blocks[1].body += " 1 \t 2.5 \t-3.25 \t\r\n";
        blocks[4].body = blocks[1].body;
        before = test::DatabaseText(blocks);
        Write(before);
    }

    BlockNumbers List() const {
        TextReader reader;
        EXPECT_TRUE(OpenText(reader, path));
        BlockNumbers blocks = ReadBlockNumbers(reader);
        EXPECT_EQ(system::GetFileStamp(path, blocks.stamp), system::kErrorNone);
        return blocks;
    }
    // The text after a deletion with this list; the file is then as it was before.
    std::string Deleted(int32_t number, const BlockNumbers* listed) {
        EXPECT_TRUE(DeleteModels(path, {number}, false, listed)) << number;
        std::string text = Text();
        Write(before);
        return text;
    }
    std::string Copied(int32_t number, ModelKind kind, const BlockNumbers* listed) {
        EXPECT_EQ(CopyModel(path, {number, kind, L"Copy", {true, nullptr, listed}}), 6);
        std::string text = Text();
        Write(before);
        return text;
    }
};

TEST_F(ListedEdits, DeletionIsTheSame) {
    for (int32_t number = 1; number <= 5; ++number) {
        const std::string expected = Deleted(number, nullptr);
        const BlockNumbers listed = List();
        EXPECT_EQ(Deleted(number, &listed), expected) << number;
    }
}

TEST_F(ListedEdits, CopyIsTheSame) {
    const std::string expected = Copied(4, ModelKind::kTorsion, nullptr);
    const BlockNumbers listed = List();
    EXPECT_EQ(Copied(4, ModelKind::kTorsion, &listed), expected);
}

TEST_F(ListedEdits, FileIsReadOnce) {
    const auto size = static_cast<int64_t>(before.size());
    const BlockNumbers listed = List();
    const test::CountedReads once;
    EXPECT_TRUE(DeleteModels(path, {3}, false, &listed));
    EXPECT_LT(once.Bytes(), size + size / 5);
    Write(before);
    const test::CountedReads twice;
    EXPECT_TRUE(DeleteModel(path, 3, false));
    EXPECT_GT(twice.Bytes(), size + size / 2);
}

TEST_F(ListedEdits, OldListDoesNotCount) {
    const BlockNumbers old = List();
    before = test::DatabaseText(Numbered({"1", "3", "2", "4", "5"}));
    Write(before);
    EXPECT_EQ(Deleted(2, &old), Deleted(2, nullptr));
}

// With the stamp of the file, but not with its blocks.
TEST_F(ListedEdits, WrongListIsNoticedAndTheFileIsReadInstead) {
    const std::string expected = Deleted(2, nullptr);
    const std::function<void(BlockNumbers & blocks)> errors[] = {
        [](BlockNumbers& blocks) { blocks.offsets[3] += 1; },
        [](BlockNumbers& blocks) { blocks.offsets[0] -= 1; },
        [](BlockNumbers& blocks) { blocks.offsets[4] = 1 << 30; },
        [](BlockNumbers& blocks) { blocks.numbers[3] = 7; },
        [](BlockNumbers& blocks) { std::swap(blocks.numbers[0], blocks.numbers[4]); },
        [](BlockNumbers& blocks) { blocks.numbers[4] = 0; },
        // The deleted one is another.
        [](BlockNumbers& blocks) { std::swap(blocks.numbers[1], blocks.numbers[2]); },
        [](BlockNumbers& blocks) { std::swap(blocks.offsets[1], blocks.offsets[2]); },
    };
    for (const auto& makeWrong : errors) {
        SCOPED_TRACE("error " + std::to_string(&makeWrong - &errors[0]));
        BlockNumbers listed = List();
        makeWrong(listed);
        EXPECT_TRUE(Deleted(2, &listed) == expected);
        EXPECT_EQ(RecordedReports::Of("warning"), std::vector<std::string>{});
    }
}

}  // namespace
}  // namespace corvane
