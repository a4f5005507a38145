// IsDatabaseFile, CountModels, FindModel, and the line by line reading of one block.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "database/copying.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "tests/database/sample_database.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"
#include "text/text.h"

namespace corvane {
namespace {

using test::BlockText;
using test::DatabaseText;
using test::FiveBlocks;
using test::SampleBlock;
using test::SampleHead;

struct ScanningTest : testing::Test {
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    StructuralLines lines = FetchStructuralLines();

    void Write(std::string_view text) { test::WriteFileBytes(path, text); }

    // What the reader gives from its place on: one string per line, up to `most` lines.
    static std::vector<std::string> NextLines(TextReader& reader, size_t most) {
        std::vector<std::string> found;
        std::string_view line;
        while (found.size() < most && ReadLine(reader, line)) found.emplace_back(line);
        return found;
    }
};

// ---- The structural lines ----------------------------------------------------------------------

TEST_F(ScanningTest, CatalogueLinesAreFitForTheirRoles) {
    EXPECT_TRUE(IsCommentLine(lines.commentRule));
    EXPECT_FALSE(lines.modelMarker.empty());
    EXPECT_FALSE(IsCommentLine(lines.modelMarker));
    EXPECT_FALSE(IsHeaderLine(lines.modelMarker));
    EXPECT_FALSE(IsCommentLine(lines.nameLabel));
    EXPECT_FALSE(lines.nameLabel.empty());
    EXPECT_EQ(lines.signature, UpperCase(Trim(std::string_view(lines.signature))));
    EXPECT_NE(lines.modelMarker, lines.nameLabel);
    for (const std::string& text : {lines.commentRule, lines.modelMarker, lines.versionLabel,
                                    lines.nameLabel, lines.signature, lines.headLabel}) {
        EXPECT_EQ(text.find_first_of(std::string_view("\r\n\0", 3)), std::string::npos) << text;
    }
}

// ---- IsDatabaseFile ----------------------------------------------------------------------------

TEST_F(ScanningTest, SignatureOnTheFirstLineIsADatabase) {
    Write(DatabaseText(FiveBlocks()));
    EXPECT_TRUE(IsDatabaseFile(path));
}

TEST_F(ScanningTest, CommentThenSignatureInLowerCaseIsADatabase) {
    std::string lower = lines.signature;
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter + 32);
    }
    ASSERT_NE(lower, lines.signature);
    Write("* a comment\r\n" + lower + "\r\n");
    EXPECT_TRUE(IsDatabaseFile(path));
}

TEST_F(ScanningTest, FormsOfTheSignatureLine) {
    struct Case {
        std::string text;
        bool accepted;
    };
    const std::string& signature = lines.signature;
    const std::vector<Case> cases = {
        {signature, true},                       // no line end
        {signature + "\n", true},                // LF
        {"  " + signature + "   \r\n", true},    // blanks around it
        {"*\n*\n*\n" + signature + "\n", true},  // comments before it
        {"\t" + signature + "\r\n", false},      // a tab is no blank
        {"\r\n" + signature + "\r\n", false},    // an empty line is significant
        {signature + "X\r\n", false},            // longer
        {signature.substr(1) + "\r\n", false},   // shorter
        {"X\r\n" + signature + "\r\n", false},   // not the first
        {"* " + signature + "\r\n", false},      // only as a comment
        {"", false},
        {"*", false},
        {"\r\n", false},
        {std::string(200'000, '\0'), false},
        {std::string(200'000, 'x'), false},
        {std::string("\xFF\xFE") + signature, false},
    };
    for (const Case& one : cases) {
        Write(one.text);
        EXPECT_EQ(IsDatabaseFile(path), one.accepted) << one.text.substr(0, 60);
    }
}

TEST_F(ScanningTest, FileThatCannotBeReadIsNotADatabase) {
    EXPECT_FALSE(IsDatabaseFile(L""));
    EXPECT_FALSE(IsDatabaseFile(folder.File(L"missing.ve2")));
    EXPECT_FALSE(IsDatabaseFile(folder.path));
    EXPECT_FALSE(IsDatabaseFile(folder.File(L"no folder\\ship.ve2")));
}

// ---- CountModels -------------------------------------------------------------------------------

TEST_F(ScanningTest, CountsTheMarkers) {
    Write(DatabaseText(FiveBlocks()));
    EXPECT_EQ(CountModels(path), 5);
    Write(SampleHead());
    EXPECT_EQ(CountModels(path), 0);
}

TEST_F(ScanningTest, CountsInAFileWithLineFeedsAndWithoutLastLineEnd) {
    const std::string text = DatabaseText(FiveBlocks());
    Write(test::WithLineFeeds(text));
    EXPECT_EQ(CountModels(path), 5);
    Write(text + lines.modelMarker);
    EXPECT_EQ(CountModels(path), 6);
    Write(text + lines.modelMarker + "\r");
    EXPECT_EQ(CountModels(path), 6);
}

TEST_F(ScanningTest, LineThatEqualsTheMarkerOnlyPartlyIsNotAMarker) {
    const std::string& marker = lines.modelMarker;
    Write(SampleHead() + test::JoinLines({marker + " ", " " + marker, marker + marker,
                                          marker.substr(1), marker.substr(0, marker.size() - 1),
                                          "*" + marker, marker + "\t", marker + "\r"}));
    EXPECT_EQ(CountModels(path), 0);
    EXPECT_TRUE(ListModels(path).empty());
}

TEST_F(ScanningTest, MarkerOnTheFirstLineCounts) {
    Write(lines.modelMarker + "\r\n" + lines.modelMarker + "\n" + lines.modelMarker);
    EXPECT_EQ(CountModels(path), 3);
}

TEST_F(ScanningTest, MarkersAreFoundWhereverTheBufferEnds) {
    // A line of every length moves the marker over the place where the buffer is filled again.
    const std::string tail = lines.modelMarker + "\r\n 1 \r\nBHA\r\n";
    const size_t reach = lines.modelMarker.size() + 8;
    for (size_t length = kTextBufferSize - reach; length < kTextBufferSize + 8; ++length) {
        std::string filler;
        while (filler.size() + 100 < length) filler += std::string(98, 'x') + "\r\n";
        filler += std::string(length - filler.size() - 2, 'y') + "\r\n";
        Write(filler + tail);
        ASSERT_EQ(CountModels(path), 1) << length;
    }
}

TEST_F(ScanningTest, FileThatCannotBeReadHasNoModels) {
    EXPECT_EQ(CountModels(L""), 0);
    EXPECT_EQ(CountModels(folder.File(L"missing.ve2")), 0);
    EXPECT_EQ(CountModels(folder.path), 0);
}

// ---- FindModel ---------------------------------------------------------------------------------

TEST_F(ScanningTest, FindsEveryModelAndItsKeyword) {
    Write(DatabaseText(FiveBlocks()));
    const std::vector<std::string> keywords = {"SECTION", "BHA", "SECTION", "TORSION", "SECTION"};
    for (int32_t number = 1; number <= 5; ++number) {
        TextReader reader;
        ASSERT_TRUE(OpenText(reader, path));
        std::string keyword;
        ASSERT_TRUE(FindModel(reader, number, keyword)) << number;
        EXPECT_EQ(keyword, keywords[static_cast<size_t>(number) - 1]);
    }
}

TEST_F(ScanningTest, FoundModelBeginsWithTheCommentsBeforeItsMarker) {
    Write(DatabaseText(FiveBlocks()));
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, path));
    std::string keyword;
    ASSERT_TRUE(FindModel(reader, 4, keyword));
    const std::vector<std::string> expected = {"* before the fourth", "* two lines",
                                               lines.modelMarker};
    EXPECT_EQ(NextLines(reader, 3), expected);
}

TEST_F(ScanningTest, FoundModelWithoutCommentsBeginsWithItsMarker) {
    Write(test::WithLineFeeds(DatabaseText(FiveBlocks())));
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, path));
    std::string keyword;
    ASSERT_TRUE(FindModel(reader, 3, keyword));
    const std::vector<std::string> expected = {lines.modelMarker, "* first"};
    EXPECT_EQ(NextLines(reader, 2), expected);
}

TEST_F(ScanningTest, CommentsBeforeTheReadersPositionDoNotBelongToTheModel) {
    SampleBlock block;
    block.beforeMarker = "* one\r\n* two\r\n";
    Write(BlockText(block));
    TextReader reader;
    std::string_view line;
    ASSERT_TRUE(OpenText(reader, path));
    ASSERT_TRUE(ReadLine(reader, line));
    std::string keyword;
    ASSERT_TRUE(FindModel(reader, 1, keyword));
    const std::vector<std::string> expected = {"* two", lines.modelMarker};
    EXPECT_EQ(NextLines(reader, 2), expected);
}

TEST_F(ScanningTest, CommentAfterTheKeywordOfABlockThatEndsThereBelongsToTheNextOne) {
    Write(lines.modelMarker + "\r\n 1 \r\nBHA\r\n* c\r\n" + lines.modelMarker +
          "\r\n 2 \r\nBHA\r\n");
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, path));
    std::string keyword;
    ASSERT_TRUE(FindModel(reader, 2, keyword));
    const std::vector<std::string> expected = {"* c", lines.modelMarker, " 2 "};
    EXPECT_EQ(NextLines(reader, 3), expected);
}

TEST_F(ScanningTest, ModelIsFoundFromTheReadersPositionOn) {
    Write(DatabaseText(FiveBlocks()));
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, path));
    std::string keyword;
    ASSERT_TRUE(FindModel(reader, 3, keyword));
    keyword.clear();
    EXPECT_TRUE(FindModel(reader, 3, keyword));
    keyword.clear();
    EXPECT_FALSE(FindModel(reader, 2, keyword));
    std::string_view line;
    EXPECT_FALSE(ReadLine(reader, line));
}

TEST_F(ScanningTest, NumberAboveTheCountIsNotFoundWithoutAMessage) {
    const test::RecordedReports screen;
    Write(DatabaseText(FiveBlocks()));
    for (const int32_t number : {6, 0, -1, INT32_MAX, INT32_MIN}) {
        TextReader reader;
        ASSERT_TRUE(OpenText(reader, path));
        std::string keyword;
        EXPECT_FALSE(FindModel(reader, number, keyword)) << number;
        EXPECT_TRUE(keyword.empty());
    }
    EXPECT_TRUE(test::RecordedReports::events.empty());
}

TEST_F(ScanningTest, WantedKeywordMustBeTheBlocks) {
    Write(DatabaseText(FiveBlocks()));
    struct Case {
        int32_t number;
        std::string keyword;
        bool found;
    };
    for (const Case& one : std::vector<Case>{{2, "BHA", true},
                                             {2, "SECTION", false},
                                             {2, "bha", false},
                                             {2, "BHA ", false},
                                             {4, "TORSION", true},
                                             {1, "SECTION", true},
                                             {1, "BHA", false}}) {
        TextReader reader;
        ASSERT_TRUE(OpenText(reader, path));
        std::string keyword = one.keyword;
        EXPECT_EQ(FindModel(reader, one.number, keyword), one.found) << one.keyword;
        EXPECT_EQ(keyword, one.keyword);
    }
}

TEST_F(ScanningTest, OfTwoBlocksWithOneNumberTheFirstThatFitsIsFound) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[1].number = " 1 ";
    Write(DatabaseText(blocks));
    std::string keyword;
    {
        TextReader reader;
        ASSERT_TRUE(OpenText(reader, path));
        ASSERT_TRUE(FindModel(reader, 1, keyword));
        EXPECT_EQ(keyword, "SECTION");
    }
    keyword = "BHA";
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, path));
    EXPECT_TRUE(FindModel(reader, 1, keyword));
}

TEST_F(ScanningTest, NumberLineIsReadWithWhatFollowsTheNumber) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[0].number = "1 the first";
    blocks[1].number = "\t2";
    blocks[2].number = "+3";
    blocks[3].number = "4.0E0";
    blocks[4].number = "0005 ;";
    Write(DatabaseText(blocks));
    for (int32_t number = 1; number <= 5; ++number) {
        TextReader reader;
        ASSERT_TRUE(OpenText(reader, path));
        std::string keyword;
        EXPECT_TRUE(FindModel(reader, number, keyword)) << number;
    }
}

TEST_F(ScanningTest, DamagedBlockDoesNotHideTheOneAfterIt) {
    // Of the second block only the first `kept` lines are left.
    const std::string& marker = lines.modelMarker;
    const std::vector<std::string> head = {marker, " 2 ", "BHA", lines.nameLabel};
    for (size_t kept = 1; kept <= head.size(); ++kept) {
        std::vector<SampleBlock> blocks = FiveBlocks();
        std::string text = SampleHead() + BlockText(blocks[0]);
        for (size_t i = 0; i < kept; ++i) text += head[i] + "\r\n";
        text += BlockText(blocks[2]);
        Write(text);
        TextReader reader;
        ASSERT_TRUE(OpenText(reader, path));
        std::string keyword;
        ASSERT_TRUE(FindModel(reader, 3, keyword)) << kept;
        EXPECT_EQ(NextLines(reader, 1).front(), marker);
        EXPECT_EQ(CountModels(path), 3);
    }
}

TEST_F(ScanningTest, BlockThatLostItsKeywordIsFoundByNumberAlone) {
    Write(lines.modelMarker + "\r\n 7 \r\n" + lines.modelMarker + "\r\n 8 ");
    for (const int32_t number : {7, 8}) {
        for (const char* wanted : {"", "SECTION"}) {
            TextReader reader;
            ASSERT_TRUE(OpenText(reader, path));
            std::string keyword = wanted;
            EXPECT_EQ(FindModel(reader, number, keyword), keyword.empty()) << number;
        }
    }
}

TEST_F(ScanningTest, CommentsBeforeAMarkerAreFoundHoweverManyAndLongTheyAre) {
    for (const size_t length : {1u, 100u, 900u, 70'000u}) {
        for (const int count : {1, 2, 30}) {
            std::vector<SampleBlock> blocks = FiveBlocks();
            for (int i = 0; i < count; ++i) {
                blocks[3].beforeMarker += '*' + std::string(length, 'c') + "\r\n";
            }
            Write(DatabaseText(blocks));
            TextReader reader;
            ASSERT_TRUE(OpenText(reader, path));
            std::string keyword;
            ASSERT_TRUE(FindModel(reader, 4, keyword));
            EXPECT_EQ(NextLines(reader, 1).front(), "* before the fourth")
                << length << ' ' << count;
        }
    }
}

// ---- FindBlock ---------------------------------------------------------------------------------

TEST_F(ScanningTest, BlockIsFoundWhereAListFoundIt) {
    Write(DatabaseText(FiveBlocks()));
    for (const ModelEntry& model : ListModels(path)) {
        TextReader searched;
        TextReader reader;
        ASSERT_TRUE(OpenText(searched, path) && OpenText(reader, path));
        std::string keyword;
        std::string found;
        ASSERT_TRUE(FindModel(searched, model.number, keyword));
        ASSERT_TRUE(FindBlockAtPlace(reader, PlaceOf(model), found));
        EXPECT_EQ(found, keyword);
        EXPECT_EQ(LinePosition(reader), LinePosition(searched)) << model.number;
        found = "OTHER";
        EXPECT_FALSE(FindBlockAtPlace(reader, PlaceOf(model), found));
        EXPECT_EQ(found, "OTHER");
    }
}

TEST_F(ScanningTest, BlockThatIsNotAtItsPlaceIsSearched) {
    Write(DatabaseText(FiveBlocks()));
    const std::vector<ModelEntry> models = ListModels(path);
    const BlockPlace right = PlaceOf(models[2]);
    std::vector<BlockPlace> places(6, right);
    places[0].offset = -1;
    places[1].offset = models[1].offset;  // another model
    places[2].offset += 1;                // no marker
    places[3].offset = 1'000'000;         // beyond the end
    places[4].stamp.modified += 1;
    places[5].stamp.identity.file += 1;
    for (const BlockPlace& place : places) {
        TextReader reader;
        ASSERT_TRUE(OpenText(reader, path));
        std::string keyword;
        EXPECT_FALSE(FindBlockAtPlace(reader, place, keyword)) << place.offset;
        ASSERT_TRUE(FindBlock(reader, place, keyword)) << place.offset;
        EXPECT_EQ(LinePosition(reader), right.offset);
        EXPECT_EQ(keyword, "SECTION");
    }
}

TEST_F(ScanningTest, NumberOfTwoBlocksHasNoPlace) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[4].number = " 3 ";
    Write(DatabaseText(blocks));
    const std::vector<ModelEntry> models = ListModels(path);
    EXPECT_EQ(PlaceOf(models[2]).offset, -1);
    EXPECT_EQ(PlaceOf(models[4]).offset, -1);
    EXPECT_EQ(PlaceOf(models[3]).offset, models[3].offset);
    ModelEntry model;
    EXPECT_FALSE(ReadModelAt(path, PlaceOf(models[4]), model));
    ASSERT_TRUE(ReadModelAt(path, PlaceOf(models[3]), model));
    EXPECT_EQ(model, models[3]);
}

TEST_F(ScanningTest, FindsTheLastModelOfManyBuffers) {
    std::string text = SampleHead();
    SampleBlock block;
    for (int i = 0; i < 2000; ++i) block.body += " 1 \t 2.5 \t-3.25 \t\r\n";
    for (int32_t number = 1; number <= 40; ++number) {
        block.number = PrintForm(number);
        block.beforeMarker = "* comment " + std::to_string(number) + "\r\n";
        text += BlockText(block);
    }
    Write(text);
    for (int32_t number = 1; number <= 40; ++number) {
        TextReader reader;
        ASSERT_TRUE(OpenText(reader, path));
        std::string keyword;
        ASSERT_TRUE(FindModel(reader, number, keyword));
        ASSERT_EQ(NextLines(reader, 1).front(), "* comment " + std::to_string(number));
    }
}

// ---- ReadBlockLine, SkipBlock ------------------------------------------------------------------

TEST_F(ScanningTest, BlockLinesEndAtTheNextMarkerWhichStaysUnread) {
    Write("a\r\n* comment\r\nb\r\n* before\r\n" + lines.modelMarker + "\r\nc\r\n");
    TextReader reader;
    std::string_view line;
    ASSERT_TRUE(OpenText(reader, path));
    ASSERT_TRUE(ReadBlockLine(reader, lines.modelMarker, line));
    EXPECT_EQ(line, "a");
    ASSERT_TRUE(ReadBlockLine(reader, lines.modelMarker, line));
    EXPECT_EQ(line, "b");
    EXPECT_FALSE(ReadBlockLine(reader, lines.modelMarker, line));
    EXPECT_FALSE(ReadBlockLine(reader, lines.modelMarker, line));
    const std::vector<std::string> expected = {"* before", lines.modelMarker, "c"};
    EXPECT_EQ(NextLines(reader, 9), expected);
    EXPECT_FALSE(ReadBlockLine(reader, lines.modelMarker, line));
}

TEST_F(ScanningTest, SkippedBlockLeavesTheCommentsOfTheNextOne) {
    Write(DatabaseText(FiveBlocks()));
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, path));
    std::string keyword;
    ASSERT_TRUE(FindModel(reader, 3, keyword));
    SkipBlock(reader);
    EXPECT_EQ(NextLines(reader, 1).front(), "* before the fourth");
}

TEST_F(ScanningTest, SkippedLastBlockLeavesNothing) {
    Write(DatabaseText(FiveBlocks()) + "* last comment\r\n");
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, path));
    std::string keyword;
    ASSERT_TRUE(FindModel(reader, 5, keyword));
    SkipBlock(reader);
    EXPECT_TRUE(NextLines(reader, 1).empty());
    SkipBlock(reader);
    EXPECT_TRUE(NextLines(reader, 1).empty());
}

}  // namespace
}  // namespace corvane
