// CopyFileHead, CopyModels, CopyBlocks.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "database/copying.h"
#include "database/scanning.h"
#include "tests/database/sample_database.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::BlockText;
using test::CopiedBlockText;
using test::DatabaseText;
using test::FiveBlocks;
using test::SampleBlock;
using test::SampleHead;

struct CopyingTest : testing::Test {
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    std::wstring copy = folder.File(L"copy.ve2");
    StructuralLines lines = FetchStructuralLines();

    // What `work` writes when it reads a file of this text.
    template <class Work>
    std::string Copied(std::string_view text, Work work) {
        test::WriteFileBytes(path, text);
        TextReader from;
        TextWriter to;
        EXPECT_TRUE(OpenText(from, path));
        EXPECT_TRUE(CreateText(to, copy));
        work(from, to);
        EXPECT_EQ(from.error, system::kErrorNone);
        EXPECT_TRUE(CloseText(to));
        EXPECT_EQ(test::ReadFileBytes(path), text);
        return test::ReadFileBytes(copy);
    }

    std::string CopiedModels(std::string_view text, int32_t first, int32_t last, int32_t shift) {
        return Copied(text, [=](TextReader& from, TextWriter& to) {
            CopyModels(from, to, first, last, shift);
        });
    }
};

// ---- The head ----------------------------------------------------------------------------------

TEST_F(CopyingTest, HeadIsCopiedUnchangedUpToTheFirstMarker) {
    const std::string head = SampleHead() + "* a comment\r\nodd line\n\n\ttail \r\n";
    std::string next;
    const std::string copied =
        Copied(head + BlockText(SampleBlock()), [&](TextReader& from, TextWriter& to) {
            CopyFileHead(from, to);
            std::string_view line;
            ASSERT_TRUE(ReadLine(from, line));
            next = line;
        });
    EXPECT_EQ(copied, head);
    EXPECT_EQ(next, lines.modelMarker);
}

TEST_F(CopyingTest, FileWithoutModelsIsAllHead) {
    const auto copyHead = [](TextReader& from, TextWriter& to) { CopyFileHead(from, to); };
    EXPECT_EQ(Copied(SampleHead(), copyHead), SampleHead());
    EXPECT_EQ(Copied("no end", copyHead), "no end\r\n");
    EXPECT_EQ(Copied("", copyHead), "");
}

TEST_F(CopyingTest, FileThatBeginsWithAMarkerHasAnEmptyHead) {
    EXPECT_EQ(Copied(BlockText(SampleBlock()),
                     [](TextReader& from, TextWriter& to) { CopyFileHead(from, to); }),
              "");
}

TEST_F(CopyingTest, HeadLargerThanTheBufferIsCopied) {
    std::string head = SampleHead();
    while (head.size() < 3 * kTextBufferSize) head += "a line of the head, one of many\r\n";
    EXPECT_EQ(Copied(head + BlockText(SampleBlock()),
                     [](TextReader& from, TextWriter& to) { CopyFileHead(from, to); }),
              head);
}

// ---- Models ------------------------------------------------------------------------------------

TEST_F(CopyingTest, EveryRunOfFiveModelsWithEveryShift) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    const std::string text = DatabaseText(blocks);
    for (int32_t first = 1; first <= 5; ++first) {
        for (int32_t last = first - 1; last <= 6; ++last) {
            for (const int32_t shift : {0, 1, -1, 100, -5}) {
                const int32_t until = std::min(last, 5);
                std::string expected;
                for (int32_t number = first; number <= until; ++number) {
                    expected += CopiedBlockText(blocks[size_t(number) - 1], shift);
                }
                // The comments before a marker belong to what is copied before it, and to the
                // block when that is the first of the run.
                if (until == 3) expected += blocks[3].beforeMarker;
                if (first == 4 && until == 3) expected = blocks[3].beforeMarker;
                EXPECT_EQ(CopiedModels(text, first, last, shift), expected)
                    << first << ' ' << last << ' ' << shift;
            }
        }
        std::string expected;
        for (size_t i = size_t(first) - 1; i < 5; ++i) expected += CopiedBlockText(blocks[i], 0);
        EXPECT_EQ(CopiedModels(text, first, -1, 0), expected);
    }
}

TEST_F(CopyingTest, HeadAndAllModelsMakeTheFileAgain) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[2].betweenMarkerAndNumber = lines.commentRule + "\r\n";
    const std::string text = DatabaseText(blocks);
    EXPECT_EQ(Copied(text,
                     [](TextReader& from, TextWriter& to) {
                         CopyFileHead(from, to);
                         CopyModels(from, to, 1, -1, 0);
                     }),
              text);
}

TEST_F(CopyingTest, CommentsBetweenMarkerAndNumberBecomeOneRule) {
    SampleBlock block;
    const std::string expected = CopiedBlockText(block, 0);
    for (const char* between : {"", "*\r\n", "* a\r\n* b\r\n** c\r\n"}) {
        block.betweenMarkerAndNumber = between;
        EXPECT_EQ(CopiedModels(BlockText(block), 1, -1, 0), expected) << between;
    }
}

TEST_F(CopyingTest, ReaderIsAtTheMarkerThatEndedTheRun) {
    Copied(DatabaseText(FiveBlocks()), [this](TextReader& from, TextWriter& to) {
        CopyModels(from, to, 2, 3, 0);
        std::string_view line;
        ASSERT_TRUE(ReadLine(from, line));
        EXPECT_EQ(line, lines.modelMarker);
        ASSERT_TRUE(ReadSignificantLine(from, line));
        EXPECT_EQ(line, " 4 ");
    });
}

TEST_F(CopyingTest, RunsCopiedOneAfterAnotherMakeTheWhole) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    std::string expected = SampleHead();
    for (const SampleBlock& block : blocks) expected += CopiedBlockText(block, 0);
    EXPECT_EQ(Copied(DatabaseText(blocks),
                     [](TextReader& from, TextWriter& to) {
                         CopyFileHead(from, to);
                         CopyModels(from, to, 1, 0, 0);
                         CopyModels(from, to, 1, 2, 0);
                         CopyModels(from, to, 3, 4, 0);
                         CopyModels(from, to, 5, -1, 0);
                     }),
              expected);
}

TEST_F(CopyingTest, NumberLineIsLeftAloneUnlessItIsShifted) {
    SampleBlock block;
    block.number = "1 first ;";
    EXPECT_EQ(CopiedModels(BlockText(block), 1, -1, 0), BlockText(block));
    const std::string shifted = CopiedModels(BlockText(block), 1, -1, 9);
    block.number = " 10 ";
    EXPECT_EQ(shifted, BlockText(block));
}

TEST_F(CopyingTest, ShiftedNumberStaysInItsRange) {
    SampleBlock block;
    block.number = "2147483645";
    const std::string shifted = CopiedModels(BlockText(block), 2147483645, -1, 5);
    block.number = " 2147483647 ";
    EXPECT_EQ(shifted, BlockText(block));
    block.number = "-2147483647 ";
    const std::string below = CopiedModels(BlockText(block), -2147483647, -1, -5);
    block.number = "-2147483648 ";
    EXPECT_EQ(below, BlockText(block));
}

TEST_F(CopyingTest, BlockAtTheEndWithTheLargestNumberEndsNoRun) {
    // One after the largest number is no number of a block.
    SampleBlock first;
    first.number = " 2147483647 ";
    SampleBlock second;
    second.number = "-2147483648 ";
    const std::string text = BlockText(first) + BlockText(second);
    EXPECT_EQ(CopiedModels(text, INT32_MAX, INT32_MAX, 0), text);
}

TEST_F(CopyingTest, ModelThatIsNotThereCopiesNothing) {
    const std::string text = DatabaseText(FiveBlocks());
    EXPECT_EQ(CopiedModels(text, 6, -1, 0), "");
    EXPECT_EQ(CopiedModels(text, 0, 3, 0), "");
    EXPECT_EQ(CopiedModels("", 1, -1, 0), "");
}

TEST_F(CopyingTest, BlockNumberedZeroDoesNotEndARunToTheEnd) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[3].number = " 0 ";
    blocks[4].number = "none";
    std::string expected;
    for (const SampleBlock& block : blocks) expected += CopiedBlockText(block, 0);
    EXPECT_EQ(CopiedModels(DatabaseText(blocks), 1, -1, 0), expected);
}

TEST_F(CopyingTest, LineFeedsPassThrough) {
    const std::string text = test::WithLineFeeds(DatabaseText(FiveBlocks()));
    std::string expected = text;
    // Only the comment rules are written again.
    const std::string between = "\n* first\n*\n* third\n";
    const size_t at = expected.find(between);
    expected.replace(at, between.size(), "\n" + lines.commentRule + "\r\n");
    for (size_t marker = expected.find(lines.modelMarker + "\n"); marker != std::string::npos;
         marker = expected.find(lines.modelMarker + "\n", marker + 1)) {
        const size_t end = expected.find('\n', marker + lines.modelMarker.size() + 1);
        if (expected[end - 1] != '\r') expected.insert(end, "\r");
    }
    EXPECT_EQ(Copied(text,
                     [](TextReader& from, TextWriter& to) {
                         CopyFileHead(from, to);
                         CopyModels(from, to, 1, -1, 0);
                     }),
              expected);
}

TEST_F(CopyingTest, LastLineWithoutEndGetsOne) {
    const std::string text = BlockText(SampleBlock());
    EXPECT_EQ(CopiedModels(text.substr(0, text.size() - 2), 1, -1, 0), text);
}

TEST_F(CopyingTest, BlockWithoutNumberPassesUnchanged) {
    const std::string empty = lines.modelMarker + "\r\n* only\r\n* comments\r\n";
    const std::vector<SampleBlock> blocks = FiveBlocks();
    const std::string text =
        BlockText(blocks[0]) + empty + BlockText(blocks[1]) + lines.modelMarker + "\r\n";
    const std::string expected = CopiedBlockText(blocks[0], 3) + empty +
                                 CopiedBlockText(blocks[1], 3) + lines.modelMarker + "\r\n";
    EXPECT_EQ(CopiedModels(text, 1, -1, 3), expected);
}

TEST_F(CopyingTest, BodyOfAnyLengthIsCopied) {
    // Bodies around the buffer's size, and lines longer than a reader's longest.
    for (const size_t size : {kTextBufferSize - 200, kTextBufferSize, 3 * kTextBufferSize}) {
        std::vector<SampleBlock> blocks = FiveBlocks();
        for (SampleBlock& block : blocks) {
            block.body = std::string(size / 2, 'x') + "\r\n" + std::string(size / 2, 'y') + "\r\n";
        }
        std::string expected;
        for (const SampleBlock& block : blocks) expected += CopiedBlockText(block, 1);
        EXPECT_TRUE(CopiedModels(DatabaseText(blocks), 1, -1, 1) == expected) << size;
    }
}

TEST_F(CopyingTest, ReadThatFailsOnTheWayIsTheReadersError) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    for (SampleBlock& block : blocks) {
        while (block.body.size() < kTextBufferSize) block.body += " 1 \t 2 \t 3 \r\n";
    }
    test::WriteFileBytes(path, DatabaseText(blocks));
    TextReader from;
    TextWriter to;
    ASSERT_TRUE(OpenText(from, path));
    ASSERT_TRUE(CreateText(to, copy));
    CopyFileHead(from, to);
    system::CloseFile(from.file);  // from here on nothing more can be read
    CopyModels(from, to, 1, -1, 1);
    EXPECT_TRUE(CloseText(to));
    EXPECT_NE(from.error, system::kErrorNone);
    SeekLine(from, 0);
    EXPECT_NE(from.error, system::kErrorNone);
}

// ---- Blocks as they are ------------------------------------------------------------------------

TEST_F(CopyingTest, BlocksAreCopiedUpToTheFirstOfTheNumberWhateverTheirNumbersAre) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[0].number = " 5 ";
    blocks[1].number = " 2 ";
    blocks[2].number = " 2 ";
    blocks[4].number = " 1 ";
    std::string expected;
    for (size_t i = 0; i < 4; ++i) expected += CopiedBlockText(blocks[i], 0);
    EXPECT_EQ(Copied(DatabaseText(blocks),
                     [](TextReader& from, TextWriter& to) {
                         TextWriter head;
                         std::string keyword;
                         ASSERT_TRUE(FindModel(from, 5, keyword));
                         BlockRun run;
                         run.stopBefore = 1;
                         CopyBlocks(from, to, run);
                     }),
              expected);
}

TEST_F(CopyingTest, OnlyNumbersAboveTheLimitAreShifted) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[0].number = " 9 ";
    blocks[1].number = " 2 the second ";
    blocks[3].number = " 3 ";
    std::string expected;
    for (const SampleBlock& block : blocks) {
        expected += CopiedBlockText(block, LeadingInteger(block.number) > 2 ? -1 : 0);
    }
    EXPECT_EQ(Copied(BlockText(blocks[0]) + BlockText(blocks[1]) + BlockText(blocks[2]) +
                         BlockText(blocks[3]) + BlockText(blocks[4]),
                     [](TextReader& from, TextWriter& to) {
                         BlockRun run;
                         run.shift = -1;
                         run.shiftAbove = 2;
                         CopyBlocks(from, to, run);
                     }),
              expected);
}

TEST_F(CopyingTest, FirstBlockOfADoubleNumberCanBeLeftOut) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[2].number = " 2 ";
    std::string expected = SampleHead() + CopiedBlockText(blocks[0], 0) +
                           CopiedBlockText(blocks[2], 0) + CopiedBlockText(blocks[3], -1) +
                           CopiedBlockText(blocks[4], -1);
    EXPECT_EQ(Copied(DatabaseText(blocks),
                     [](TextReader& from, TextWriter& to) {
                         CopyFileHead(from, to);
                         BlockRun before;
                         before.stopBefore = 2;
                         CopyBlocks(from, to, before);
                         SkipBlock(from);
                         BlockRun after;
                         after.shift = -1;
                         after.shiftAbove = 2;
                         CopyBlocks(from, to, after);
                     }),
              expected);
}

TEST_F(CopyingTest, CutOffFileIsCopiedAsFarAsItGoes) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks.resize(3);
    for (SampleBlock& block : blocks) {
        block.body.clear();
        block.betweenMarkerAndNumber = lines.commentRule + "\r\n";
    }
    const std::string text = DatabaseText(blocks);
    const std::string& marker = lines.modelMarker;
    for (size_t length = 0; length <= text.size(); ++length) {
        const std::string part = text.substr(0, length);
        const std::string copied = Copied(part, [](TextReader& from, TextWriter& to) {
            CopyFileHead(from, to);
            BlockRun run;
            CopyBlocks(from, to, run);
        });
        // The copy is the part, its last line ended; nothing before it has changed.
        ASSERT_EQ(copied.substr(0, length), part.substr(0, copied.size())) << length;
        ASSERT_GE(copied.size(), length);
        ASSERT_LE(copied.size(), length + 2) << marker;
    }
}

}  // namespace
}  // namespace corvane
