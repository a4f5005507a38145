// ReplaceSection, ReplaceBulkheadArrangement.
#include "files/file_system.h"
#include "tests/database/bulkhead_sample.h"
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
using test::WithoutStamps;

struct ReplacingTest : test::EditingTest {
    // The blocks as an edit leaves them, the section instead of the one at `place`.
    std::string WithSectionAt(const std::vector<SampleBlock>& blocks, size_t place) {
        std::string text = SampleHead();
        for (size_t i = 0; i < blocks.size(); ++i) {
            text += i == place ? blocks[i].beforeMarker +
                                     BlockText(section, LeadingInteger(blocks[i].number))
                               : CopiedBlockText(blocks[i], 0);
        }
        return WithoutStamps(text);
    }
    void ExpectRefusedNumber(std::string_view text, int32_t number) {
        EXPECT_FALSE(ReplaceSection(path, section, number, {.keepBackup = true}));
        ExpectRefusal(text, kMsgModelMissing, {number, path});
    }
};

TEST_F(ReplacingTest, ReplacingTheOnlyModelWritesHeadNewBlockNothingElse) {
    Write(DatabaseText({SampleBlock()}));
    EXPECT_TRUE(ReplaceSection(path, section, 1));
    EXPECT_EQ(WithoutStamps(Text()), WithoutStamps(SampleHead() + BlockText(section, 1)));
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
}

TEST_F(ReplacingTest, EachOfFiveModelsIsReplacedAndTheOthersStay) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    for (size_t i = 0; i < blocks.size(); ++i) {
        Write(DatabaseText(blocks));
        EXPECT_TRUE(ReplaceSection(path, section, static_cast<int32_t>(i) + 1));
        EXPECT_EQ(WithoutStamps(Text()), WithSectionAt(blocks, i)) << i;
    }
}

TEST_F(ReplacingTest, NumberOneAboveTheCountAppends) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    std::string expected = SampleHead();
    for (const SampleBlock& block : blocks) expected += CopiedBlockText(block, 0);
    expected = WithoutStamps(expected + BlockText(section, 6));
    Write(DatabaseText(blocks));
    EXPECT_TRUE(ReplaceSection(path, section, 6));
    EXPECT_EQ(WithoutStamps(Text()), expected);

    // The last line gets the end that it lacks.
    Write(DatabaseText(blocks).substr(0, DatabaseText(blocks).size() - 2));
    EXPECT_TRUE(ReplaceSection(path, section, 6));
    EXPECT_EQ(WithoutStamps(Text()), expected);
}

TEST_F(ReplacingTest, FirstModelIsAppendedToTheHead) {
    Write(SampleHead());
    EXPECT_TRUE(ReplaceSection(path, section, 1));
    EXPECT_EQ(WithoutStamps(Text()), WithoutStamps(SampleHead() + BlockText(section, 1)));
}

TEST_F(ReplacingTest, RecordComesBackAsItWasReplaced) {
    Write(DatabaseText(FiveBlocks()));
    ASSERT_TRUE(ReplaceSection(path, section, 3));
    SectionModel read;
    ASSERT_TRUE(ReadSectionBlock(path, 3, false, read));
    EXPECT_EQ(read.identifier, section.identifier);
    EXPECT_EQ(test::BodyText(read), test::BodyText(section));
}

TEST_F(ReplacingTest, SectionWithoutIdentifierGetsOneAndKeepsIt) {
    Write(SampleHead());
    section.identifier.clear();
    ASSERT_TRUE(ReplaceSection(path, section, 1));
    const std::string identifier = section.identifier;
    EXPECT_FALSE(identifier.empty());
    ASSERT_TRUE(ReplaceSection(path, section, 1));
    EXPECT_EQ(section.identifier, identifier);
    SectionModel read;
    ASSERT_TRUE(ReadSectionBlock(path, 1, false, read));
    EXPECT_EQ(read.identifier, identifier);
}

TEST_F(ReplacingTest, BulkheadArrangementIsReplacedAndAppended) {
    BulkheadArrangement arrangement = test::FullArrangement();
    const std::vector<SampleBlock> blocks = FiveBlocks();
    Write(DatabaseText(blocks));
    EXPECT_TRUE(ReplaceBulkheadArrangement(path, arrangement, 2));
    const std::string expected = Copied({blocks[0]}) + BlockText(arrangement, 2) +
                                 CopiedBlockText(blocks[2], 0) + CopiedBlockText(blocks[3], 0) +
                                 CopiedBlockText(blocks[4], 0);
    EXPECT_EQ(WithoutStamps(Text()), WithoutStamps(expected));
    EXPECT_TRUE(ReplaceBulkheadArrangement(path, arrangement, 6));
    EXPECT_EQ(WithoutStamps(Text()), WithoutStamps(expected + BlockText(arrangement, 6)));
    const std::string text = Text();
    EXPECT_FALSE(ReplaceBulkheadArrangement(path, arrangement, 8));
    ExpectRefusal(text, kMsgModelMissing, {8, path});
}

TEST_F(ReplacingTest, BulkheadArrangementPutBackTenTimesAddsNothing) {
    for (const bool bare : {false, true}) {
        BulkheadArrangement arrangement = bare ? BulkheadArrangement() : test::FullArrangement();
        SampleBlock next;
        next.number = " 2 ";
        next.beforeMarker = "*\r\n* a note\r\n";
        const std::string text = SampleHead() + BlockText(arrangement, 1) + BlockText(next);
        Write(text);
        for (int i = 0; i < 10; ++i) {
            BulkheadArrangement read;
            ASSERT_TRUE(ReadBulkheadBlock(path, 1, read));
            ASSERT_TRUE(ReplaceBulkheadArrangement(path, read, 1));
        }
        EXPECT_EQ(WithoutStamps(Text()), WithoutStamps(text)) << bare;
    }
}

// ---- Numbers -----------------------------------------------------------------------------------

TEST_F(ReplacingTest, NumberThatNoBlockHasIsReportedAndNothingWritten) {
    const std::string text = DatabaseText(FiveBlocks());
    Write(text);
    for (const int32_t number : {7, 0, -1, INT32_MAX, INT32_MIN}) ExpectRefusedNumber(text, number);
}

TEST_F(ReplacingTest, DoubleNumberAndNumberOfADamagedBlockAreRefused) {
    for (const auto& [numbers, number] :
         {std::pair(std::vector<const char*>{" 1 ", " 2 ", " 2 ", " 2 ", " 5 "}, 2),
          std::pair(std::vector<const char*>{" 1 ", "none", " 3 ", " 4 ", " 5 "}, 0),
          std::pair(std::vector<const char*>{" 1 ", "-4 ", " 3 ", " 4 ", " 5 "}, -4)}) {
        Write(DatabaseText(Numbered(numbers)));
        EXPECT_FALSE(ReplaceSection(path, section, number, {.keepBackup = true}));
        ExpectRefusalOfNumber(DatabaseText(Numbered(numbers)), number);
    }
}

TEST_F(ReplacingTest, NumbersInAnyOrderAreFound) {
    const std::vector<SampleBlock> blocks = Numbered({" 9 ", "-4 ", " 2147483647 ", " 3 ", " 1 "});
    const int32_t numbers[] = {9, -4, INT32_MAX, 3, 1};
    for (size_t i = 0; i < blocks.size(); ++i) {
        if (numbers[i] < 1) continue;
        Write(DatabaseText(blocks));
        EXPECT_TRUE(ReplaceSection(path, section, numbers[i]));
        EXPECT_EQ(WithoutStamps(Text()), WithSectionAt(blocks, i)) << i;
    }
}

TEST_F(ReplacingTest, ModelIsAppendedAfterTheHighestNumberOfAFileWithGaps) {
    const std::vector<SampleBlock> blocks = Numbered({" 1 ", " 90 ", " 3 ", " 4 ", " 5 "});
    const std::string text = DatabaseText(blocks);
    Write(text);
    ExpectRefusedNumber(text, 6);
    EXPECT_EQ(NextModelNumber(path), 91);
    EXPECT_TRUE(ReplaceSection(path, section, 91));
    EXPECT_EQ(WithoutStamps(Text()),
              WithoutStamps(WithSectionAt(blocks, 5) + BlockText(section, 91)));
}

TEST_F(ReplacingTest, NextNumberIsAboveTheCountAndAboveAllNumbers) {
    EXPECT_EQ(NextModelNumber(path), 0);  // no file
    const auto next = [this](std::initializer_list<const char*> numbers) {
        Write(DatabaseText(Numbered(numbers)));
        return NextModelNumber(path);
    };
    EXPECT_EQ(next({" 1 ", " 2 ", " 3 ", " 4 ", " 5 "}), 6);
    EXPECT_EQ(next({" 1 ", " 1 ", " 1 ", " 1 ", " 1 "}), 6);
    EXPECT_EQ(next({"-9 ", "none", " 0 ", "* lost", ""}), 6);
    EXPECT_EQ(next({" 7 ", " 2 ", " 3 ", " 4 ", " 5 "}), 8);
    EXPECT_EQ(next({" 1 ", " 2147483646 ", " 3 ", " 4 ", " 5 "}), INT32_MAX);
    EXPECT_EQ(next({" 1 ", " 2 ", " 99999999999999 ", " 4 ", " 5 "}), 0);
    Write(SampleHead());
    EXPECT_EQ(NextModelNumber(path), 1);
}

TEST_F(ReplacingTest, DamagedBlocksPassUnchanged) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    const std::string damaged = lines.modelMarker + "\r\n" +                   // nothing
                                lines.modelMarker + "\r\n* no number\r\n" +    // nor here
                                lines.modelMarker + "\r\n*\r\nno number\r\n";  // counts as 0
    const std::string copied = lines.modelMarker + "\r\n" + lines.modelMarker +
                               "\r\n* no number\r\n" + lines.modelMarker + "\r\n" +
                               lines.commentRule + "\r\nno number\r\n";
    Write(SampleHead() + BlockText(blocks[0]) + damaged + BlockText(blocks[1]) + damaged);
    EXPECT_TRUE(ReplaceSection(path, section, 2));
    EXPECT_EQ(WithoutStamps(Text()),
              WithoutStamps(Copied({blocks[0]}) + copied + BlockText(section, 2) + copied));
    Write(SampleHead() + damaged + BlockText(blocks[0]) + damaged);
    EXPECT_TRUE(ReplaceSection(path, section, 1));
    EXPECT_EQ(WithoutStamps(Text()),
              WithoutStamps(SampleHead() + copied + BlockText(section, 1) + copied));
}

// ---- Comments before markers -------------------------------------------------------------------

struct ClosingRuleTest : ReplacingTest {
    void SetUp() override {
        // The rows of brackets end with a comment rule.
        section.panels.resize(1);
        section.panels[0].brackets.resize(2);
        section.panels[0].openings.clear();
        section.panels[0].pillars.clear();
        for (StiffenerDetail& detail : section.panels[0].stiffenerDetails) {
            for (Span& span : detail.spans) span.fatigue.present = false;
        }
        ASSERT_TRUE(BlockText(section, 1).ends_with("\r\n" + lines.commentRule + "\r\n"));
    }
    std::string AfterTenTimesReadAndReplaced(std::string_view text) {
        Write(text);
        for (int i = 0; i < 10; ++i) {
            SectionModel read;
            EXPECT_TRUE(ReadSectionBlock(path, 1, false, read));
            EXPECT_TRUE(ReplaceSection(path, read, 1));
        }
        return WithoutStamps(Text());
    }
};

TEST_F(ClosingRuleTest, ReplacingTenTimesAddsNothing) {
    for (const char* comments : {"", "* a note\r\n", "*\r\n* a note\r\n*\r\n", "*\r\n", "**\r\n"}) {
        SampleBlock next;
        next.number = " 2 ";
        next.beforeMarker = comments;
        const std::string text = SampleHead() + BlockText(section, 1) + BlockText(next);
        EXPECT_EQ(AfterTenTimesReadAndReplaced(text), WithoutStamps(text)) << comments;
    }
}

TEST_F(ClosingRuleTest, CommentsOfTheNextBlockSurviveAChangeOfTheTables) {
    SampleBlock next;
    next.number = " 2 ";
    next.beforeMarker = "*\r\n* a note\r\n*\r\n";
    SectionModel bare = section;
    bare.panels.clear();
    // Without brackets, with them, without again.
    Write(SampleHead() + BlockText(bare, 1) + BlockText(next));
    EXPECT_TRUE(ReplaceSection(path, section, 1));
    EXPECT_TRUE(Text().ends_with(BlockText(next)));
    EXPECT_TRUE(ReplaceSection(path, bare, 1));
    EXPECT_TRUE(Text().ends_with(BlockText(next)));
    EXPECT_EQ(AfterTenTimesReadAndReplaced(Text()), WithoutStamps(Text()));
}

TEST_F(ReplacingTest, CommentsBeforeTheNextMarkerStay) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[1].beforeMarker = "*\r\n* a note on the second\r\n*\r\n*\r\n";
    Write(DatabaseText(blocks));
    EXPECT_TRUE(ReplaceSection(path, section, 1));
    EXPECT_EQ(WithoutStamps(Text()), WithSectionAt(blocks, 0));
}

// ---- Refusals and messages ---------------------------------------------------------------------

TEST_F(ReplacingTest, StatusLabelShowsTheWritingAndIsClearedAfterIt) {
    Write(DatabaseText(FiveBlocks()));
    EXPECT_TRUE(ReplaceSection(path, section, 1));
    const std::string writing = test::Narrow(FormatMessage(kMsgWritingDatabase, {path})) + "...";
    EXPECT_EQ(Captions(), (std::vector<std::string>{writing, ""}));
}

TEST_F(ReplacingTest, EmptyPathDoesNothing) {
    std::wstring empty;
    EXPECT_FALSE(ReplaceSection(empty, section, 1, {.keepBackup = true}));
    EXPECT_TRUE(test::RecordedReports::events.empty());
}

TEST_F(ReplacingTest, FileThatIsNotThereIsReported) {
    for (std::wstring missing : {folder.File(L"none.ve2"), folder.File(L"no folder\\none.ve2")}) {
        test::RecordedReports::events.clear();
        EXPECT_FALSE(ReplaceSection(missing, section, 1, {.keepBackup = true}));
        EXPECT_EQ(
            test::RecordedReports::Of("warning"),
            std::vector<std::string>{test::Narrow(FormatMessage(kMsgFileMissing, {missing}))});
    }
    EXPECT_TRUE(test::FilesIn(folder.path).empty());
}

TEST_F(ReplacingTest, FileThatIsNotADatabaseIsReportedAndStays) {
    for (const char* text : {"", "* only comments\r\n", "a letter\r\n", "\r\n", "\xFF\xFE"}) {
        Write(text);
        EXPECT_FALSE(ReplaceSection(path, section, 1, {.keepBackup = true}));
        ExpectRefusal(text, kMsgNoDatabase, {path});
    }
}

TEST_F(ReplacingTest, FolderIsReportedAndStays) {
    ASSERT_EQ(system::MakeDirectory(path), system::kErrorNone);
    EXPECT_FALSE(ReplaceSection(path, section, 1, {.keepBackup = true}));
    EXPECT_EQ(test::RecordedReports::Of("warning").size(), 1U);
    EXPECT_TRUE(IsDirectory(path));
}

}  // namespace
}  // namespace corvane
