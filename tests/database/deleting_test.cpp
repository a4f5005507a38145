// DeleteModel.
#include "files/file_system.h"
#include "tests/database/editing_fixture.h"
#include "tests/support/recorded_reports.h"

namespace corvane {
namespace {

using test::BlockText;
using test::CopiedBlockText;
using test::DatabaseText;
using test::FiveBlocks;
using test::SampleBlock;
using test::SampleHead;

struct DeletingTest : test::EditingTest {
    void ExpectRefusedNumber(std::string_view text, int32_t number) {
        EXPECT_FALSE(DeleteModel(path, number, true));
        ExpectRefusal(text, kMsgModelMissing, {number, path});
    }
};

TEST_F(DeletingTest, DeletingModelTwoOfThreeRenumbersTheThirdToTwo) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks.resize(3);
    ASSERT_NE(blocks[2].betweenMarkerAndNumber, lines.commentRule + "\r\n");
    Write(DatabaseText(blocks));
    EXPECT_TRUE(DeleteModel(path, 2, false));
    EXPECT_EQ(Text(), Copied({blocks[0]}) + CopiedBlockText(blocks[2], -1));
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
}

TEST_F(DeletingTest, EachOfFiveModelsIsRemovedAndTheOthersStay) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    for (size_t deleted = 0; deleted < blocks.size(); ++deleted) {
        std::string expected = SampleHead();
        for (size_t i = 0; i < blocks.size(); ++i) {
            expected += i == deleted ? blocks[i].beforeMarker
                                     : CopiedBlockText(blocks[i], i > deleted ? -1 : 0);
        }
        Write(DatabaseText(blocks));
        EXPECT_TRUE(DeleteModel(path, static_cast<int32_t>(deleted) + 1, false));
        EXPECT_EQ(Text(), expected) << deleted;
    }
}

TEST_F(DeletingTest, OnlyModelLeavesTheHead) {
    Write(DatabaseText({SampleBlock()}));
    EXPECT_TRUE(DeleteModel(path, 1, false));
    EXPECT_EQ(Text(), SampleHead());
}

TEST_F(DeletingTest, AllModelsOneAfterTheOtherLeaveTheHead) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[3].beforeMarker.clear();
    Write(DatabaseText(blocks));
    for (const int32_t number : {3, 1, 3, 2, 1}) EXPECT_TRUE(DeleteModel(path, number, false));
    EXPECT_EQ(Text(), SampleHead());
}

TEST_F(DeletingTest, TorsionBodyPassesUnchanged) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[3].body =
        "------------------ HOLDS ------------------\r\n 1 \t 2 \r\n"
        "------------------ TRANS BEAM ------------------\r\n* a comment\r\n\r\n"
        "------------------ TOR RESULTS ------------------\n\ttail ";
    blocks.resize(4);
    Write(DatabaseText(blocks));
    EXPECT_TRUE(DeleteModel(path, 1, false));
    EXPECT_TRUE(Text().ends_with(CopiedBlockText(blocks[3], -1) + "\r\n"));
}

// ---- Several models ----------------------------------------------------------------------------

TEST_F(DeletingTest, SeveralModelsGoInOneRewriteInAnyOrder) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    for (const std::vector<int32_t>& numbers : {std::vector<int32_t>{2, 4}, {4, 2}, {4, 2, 4}}) {
        Write(DatabaseText(blocks));
        EXPECT_TRUE(DeleteModels(path, numbers, true));
        EXPECT_EQ(Text(), Copied({blocks[0]}) + blocks[1].beforeMarker +
                              CopiedBlockText(blocks[2], -1) + blocks[3].beforeMarker +
                              CopiedBlockText(blocks[4], -2));
        EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), DatabaseText(blocks))
            << "one backup, of the text before";
    }
}

TEST_F(DeletingTest, AnyModelsGoAsIfOneAfterTheOtherFromTheEnd) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    for (int chosen = 0; chosen < 16; ++chosen) {
        std::vector<int32_t> numbers;
        Write(DatabaseText(blocks));
        for (int32_t number = 4; number >= 1; --number) {
            if ((chosen >> (number - 1) & 1) == 0) continue;
            numbers.push_back(number);
            EXPECT_TRUE(DeleteModel(path, number, false));
        }
        const std::string expected = Text();
        Write(DatabaseText(blocks));
        EXPECT_EQ(DeleteModels(path, numbers, false), !numbers.empty());
        EXPECT_EQ(Text(), expected) << chosen;
    }
}

TEST_F(DeletingTest, CommentsBetweenTheLastModelsStayWhenTheseGo) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    ASSERT_NE(blocks[3].beforeMarker, "");
    Write(DatabaseText(blocks));
    EXPECT_TRUE(DeleteModels(path, {4, 5}, false));
    EXPECT_EQ(Text(), Copied({blocks[0], blocks[1], blocks[2]}) + blocks[3].beforeMarker +
                          blocks[4].beforeMarker);
}

TEST_F(DeletingTest, NumbersOutOfOrderStayDifferentWhenSeveralModelsGo) {
    const std::vector<SampleBlock> blocks = Numbered({" 5 ", " 3 ", " 1 ", " 4 ", " 2 "});
    Write(DatabaseText(blocks));
    EXPECT_TRUE(DeleteModels(path, {1, 3}, false));
    EXPECT_EQ(Text(), Copied({blocks[0]}) + blocks[1].beforeMarker + blocks[2].beforeMarker +
                          CopiedBlockText(blocks[3], -2) + CopiedBlockText(blocks[4], -1));
    Write(DatabaseText(blocks));
    EXPECT_TRUE(DeleteModels(path, {1, 2}, false)) << "after them 4 alone would become a second 3";
    EXPECT_EQ(Text(), SampleHead() + CopiedBlockText(blocks[0], -2) +
                          CopiedBlockText(blocks[1], -2) + blocks[2].beforeMarker +
                          CopiedBlockText(blocks[3], -2) + blocks[4].beforeMarker);
}

TEST_F(DeletingTest, AllOfSeveralModelsStayWhereOneCannotGo) {
    const std::string text = DatabaseText(Numbered({" 1 ", " 2 ", " 2 ", " 4 ", " 5 "}));
    Write(text);
    EXPECT_FALSE(DeleteModels(path, {1, 2, 5}, true));
    ExpectRefusalOfNumber(text, 2);
    EXPECT_FALSE(DeleteModels(path, {1, 0}, true));
    EXPECT_FALSE(DeleteModels(path, {}, true));
    EXPECT_EQ(Text(), text);
}

// ---- Numbers -----------------------------------------------------------------------------------

TEST_F(DeletingTest, NumberThatNoBlockHasIsReportedAndNothingWritten) {
    const std::string text = DatabaseText(FiveBlocks());
    Write(text);
    for (const int32_t number : {6, 1000, INT32_MAX}) ExpectRefusedNumber(text, number);
    Write(SampleHead());
    ExpectRefusedNumber(SampleHead(), 1);
}

TEST_F(DeletingTest, NumberBelowOneDoesNothing) {
    const std::string text = DatabaseText(Numbered({" 1 ", " 0 ", "-1 ", "none", " 5 "}));
    Write(text);
    for (const int32_t number : {0, -1, INT32_MIN}) EXPECT_FALSE(DeleteModel(path, number, true));
    EXPECT_TRUE(test::RecordedReports::events.empty());
    EXPECT_EQ(Text(), text);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
}

TEST_F(DeletingTest, DoubleNumberIsRefusedAndItsNeighboursAreNot) {
    std::vector<SampleBlock> blocks = Numbered({" 1 ", " 2 ", " 2 ", " 2 ", " 3 "});
    blocks[3].beforeMarker.clear();
    Write(DatabaseText(blocks));
    EXPECT_FALSE(DeleteModel(path, 2, true));
    ExpectRefusalOfNumber(DatabaseText(blocks), 2);
    EXPECT_TRUE(DeleteModel(path, 3, false));
    EXPECT_EQ(Text(), Copied({blocks[0], blocks[1], blocks[2], blocks[3]}));
}

TEST_F(DeletingTest, OnlyLargerNumbersAfterTheModelAreLowered) {
    const std::vector<SampleBlock> blocks = Numbered({" 9 ", " 3 ", " 1 ", " 2147483647 ", "-7 "});
    Write(DatabaseText(blocks));
    EXPECT_TRUE(DeleteModel(path, 3, false));
    EXPECT_EQ(Text(), Copied({blocks[0], blocks[2]}) + CopiedBlockText(blocks[3], -1) +
                          CopiedBlockText(blocks[4], 0));
}

TEST_F(DeletingTest, NumbersBeforeTheModelAreLoweredWhereTwoModelsWouldHaveOneNumber) {
    const std::vector<SampleBlock> blocks = Numbered({" 1 ", " 3 ", " 2 ", " 4 ", " 5 "});
    Write(DatabaseText(blocks));
    EXPECT_TRUE(DeleteModel(path, 2, false));
    EXPECT_EQ(Text(), Copied({blocks[0]}) + CopiedBlockText(blocks[1], -1) +
                          blocks[2].beforeMarker + CopiedBlockText(blocks[3], -1) +
                          CopiedBlockText(blocks[4], -1));
}

TEST_F(DeletingTest, DamagedBlocksPassUnchanged) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    const std::string damaged =
        lines.modelMarker + "\r\n" + lines.modelMarker + "\r\n* no number\r\n";
    Write(SampleHead() + BlockText(blocks[0]) + damaged + BlockText(blocks[1]) + damaged +
          BlockText(blocks[4]) + damaged);
    EXPECT_TRUE(DeleteModel(path, 2, false));
    EXPECT_EQ(Text(),
              Copied({blocks[0]}) + damaged + damaged + CopiedBlockText(blocks[4], -1) + damaged);
}

TEST_F(DeletingTest, BlockThatHasOnlyANumberCanBeDeleted) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    Write(SampleHead() + BlockText(blocks[0]) + lines.modelMarker + "\r\n*\r\n 2" + "\r\n" +
          BlockText(blocks[2]));
    EXPECT_TRUE(DeleteModel(path, 2, false));
    EXPECT_EQ(Text(), Copied({blocks[0]}) + CopiedBlockText(blocks[2], -1));
    Write(SampleHead() + BlockText(blocks[0]) + lines.modelMarker + "\r\n 2");
    EXPECT_TRUE(DeleteModel(path, 2, false));
    EXPECT_EQ(Text(), Copied({blocks[0]}));
}

// ---- Refusals and messages ---------------------------------------------------------------------

TEST_F(DeletingTest, ReadOnlyFileIsReportedAndNoOtherAskedFor) {
    const std::string text = DatabaseText(FiveBlocks());
    Write(text);
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    EXPECT_FALSE(DeleteModel(path, 1, true));
    ExpectRefusal(text, kMsgReadOnly, {path});
    EXPECT_TRUE(IsReadOnlyFile(path));
}

TEST_F(DeletingTest, FileThatIsNotADatabaseIsReportedAndStays) {
    Write("a letter\r\n");
    EXPECT_FALSE(DeleteModel(path, 1, true));
    ExpectRefusal("a letter\r\n", kMsgNoDatabase, {path});
}

TEST_F(DeletingTest, FileThatIsNotThereIsReported) {
    EXPECT_FALSE(DeleteModel(path, 1, true));
    EXPECT_EQ(test::RecordedReports::Of("warning"),
              std::vector<std::string>{test::Narrow(FormatMessage(kMsgFileMissing, {path}))});
    EXPECT_TRUE(test::FilesIn(folder.path).empty());
}

TEST_F(DeletingTest, EmptyPathDoesNothing) {
    EXPECT_FALSE(DeleteModel(L"", 1, true));
    EXPECT_TRUE(test::RecordedReports::events.empty());
}

TEST_F(DeletingTest, StatusLabelShowsTheDeletingAndIsClearedAfterIt) {
    Write(DatabaseText(FiveBlocks()));
    EXPECT_TRUE(DeleteModel(path, 2, false));
    const std::string deleting = test::Narrow(FormatMessage(kMsgDeletingModel, {path})) + "...";
    EXPECT_EQ(Captions(), (std::vector<std::string>{deleting, ""}));
}

}  // namespace
}  // namespace corvane
