// ListModels, ListModelsWithPositions, ModelPosition.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "database/listing.h"
#include "database/scanning.h"
#include "platform/system.h"
#include "report/messages.h"
#include "tests/database/editing_fixture.h"
#include "tests/database/sample_database.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::BlockText;
using test::DatabaseText;
using test::FiveBlocks;
using test::SampleBlock;
using test::SampleHead;

struct ListingTest : testing::Test {
    test::RecordedReports screen;
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    StructuralLines lines = FetchStructuralLines();

    void Write(std::string_view text) { test::WriteFileBytes(path, text); }

    // The only model of a database that holds this block.
    ModelEntry OnlyEntry(const SampleBlock& block) {
        Write(DatabaseText({block}));
        const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
        EXPECT_EQ(entries.size(), 1u);
        return entries.empty() ? ModelEntry() : entries.front();
    }
};

TEST_F(ListingTest, ListsNamesKindsAndPositionsInFileOrder) {
    Write(DatabaseText(FiveBlocks()));
    const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
    ASSERT_EQ(entries.size(), 5u);
    EXPECT_EQ(entries[0].name, L"Frame 10");
    EXPECT_EQ(entries[0].kind, ModelKind::kSection);
    EXPECT_EQ(entries[0].x, 12.5f);
    EXPECT_EQ(entries[1].name, L"Bulkhead 40");
    EXPECT_EQ(entries[1].kind, ModelKind::kBulkhead);
    EXPECT_EQ(entries[1].x, 40.25f);
    EXPECT_EQ(entries[2].name, L"Frame 20");
    EXPECT_EQ(entries[2].x, 0.0f);
    EXPECT_EQ(entries[3].name, L"Girder");
    EXPECT_EQ(entries[3].kind, ModelKind::kTorsion);
    EXPECT_EQ(entries[4].name, L"Aft");
    EXPECT_EQ(entries[4].x, -3.5f);
}

TEST_F(ListingTest, ListWithoutPositionsIsTheSameButForX) {
    Write(DatabaseText(FiveBlocks()));
    const std::vector<ModelEntry> names = ListModels(path);
    const std::vector<ModelEntry> full = ListModelsWithPositions(path);
    ASSERT_EQ(names.size(), full.size());
    for (size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(names[i].name, full[i].name);
        EXPECT_EQ(names[i].kind, full[i].kind);
        EXPECT_EQ(names[i].x, -1.0f);
    }
}

TEST_F(ListingTest, TorsionModelHasNoPositionAndSectionAtZeroHasOne) {
    SampleBlock block;
    block.keyword = "TORSION";
    block.position = " 55 ";
    EXPECT_EQ(OnlyEntry(block).x, -1.0f);
    EXPECT_EQ(OnlyEntry(block).kind, ModelKind::kTorsion);
    block.keyword = "SECTION";
    block.position = " 0 \t 1 ";
    EXPECT_EQ(OnlyEntry(block).x, 0.0f);
}

TEST_F(ListingTest, OfATorsionModelNoRowAfterTheNameIsRead) {
    SampleBlock torsion;
    torsion.keyword = "TORSION";
    std::string text = BlockText(torsion);
    text.resize(text.find(torsion.position));
    SampleBlock next;
    next.number = " 2 ";
    Write(SampleHead() + text + BlockText(next));
    const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].name, L"Frame 10");
    EXPECT_EQ(entries[1].x, 12.5f);
}

TEST_F(ListingTest, UnknownKeywordIsASection) {
    SampleBlock block;
    for (const char* keyword : {"Bha", " BHA", "BHA ", "SOMETHING", ""}) {
        block.keyword = keyword;
        EXPECT_EQ(OnlyEntry(block).kind, ModelKind::kSection) << keyword;
        EXPECT_EQ(OnlyEntry(block).x, 12.5f) << keyword;
    }
}

// The lines of a block from its position row to its identifier, as the writers lay them out.
std::string LinesToIdentifier(int lines, const std::string& identifier) {
    std::string text = " 12.5 \t 0 ";
    for (int i = 2; i < lines; ++i) text += "\r\n " + std::to_string(i);
    return text + "\r\n" + identifier;
}

TEST_F(ListingTest, EntriesHaveTheIdentifiersOfTheirBlocks) {
    SampleBlock section;
    section.position = LinesToIdentifier(10, " ID-1 ");
    EXPECT_EQ(OnlyEntry(section).identifier, "ID-1");
    SampleBlock bulkhead;
    bulkhead.keyword = "BHA";
    bulkhead.position = LinesToIdentifier(4, "ID-2");
    EXPECT_EQ(OnlyEntry(bulkhead).identifier, "ID-2");
    SampleBlock torsion;
    torsion.keyword = "TORSION";
    EXPECT_EQ(OnlyEntry(torsion).identifier, "");
}

TEST_F(ListingTest, IdentifiersOfTheWritersAreFound) {
    struct Case {
        const char* file;
        const char* identifier;
    };
    for (const Case& one :
         {Case{"golden/section_full.ve2", "ID-0001"}, {"golden/bulkhead_full.ve2", "ID-0003"}}) {
        const std::vector<ModelEntry> entries = ListModelsWithPositions(test::DataPath(one.file));
        ASSERT_EQ(entries.size(), 1u);
        EXPECT_EQ(entries[0].identifier, one.identifier);
    }
}

TEST_F(ListingTest, BlockThatEndsEarlyHasNoIdentifier) {
    SampleBlock block;
    block.position = LinesToIdentifier(9, "no identifier");
    EXPECT_EQ(OnlyEntry(block).identifier, "") << "a table comes in its place";
    block.position = "------ 5";
    EXPECT_EQ(OnlyEntry(block).identifier, "");
    std::string text = BlockText(SampleBlock());
    text.resize(text.find("------------------ BODY"));
    Write(SampleHead() + text + text);
    for (const ModelEntry& entry : ListModelsWithPositions(path)) EXPECT_EQ(entry.identifier, "");
}

TEST_F(ListingTest, PositionIsTheFirstNumberOfItsRow) {
    struct Case {
        const char* row;
        float x;
    };
    SampleBlock block;
    for (const Case& one : std::vector<Case>{{" 1.5 \t 2 ", 1.5f},
                                             {"1.5", 1.5f},
                                             {" .25 ", 0.25f},
                                             {"-.5 ", -0.5f},
                                             {"\t\t 7 ", 7.0f},
                                             {"7,8", 7.0f},
                                             {" 1.5E-05 ", 1.5e-5f},
                                             {"", 0.0f},
                                             {"no number", 0.0f},
                                             {"------ 5", 0.0f},
                                             {"   ------------------ X 5", 0.0f},
                                             {" 0.1 ", 0.1f}}) {
        block.position = one.row;
        EXPECT_EQ(OnlyEntry(block).x, one.x) << one.row;
        EXPECT_EQ(ModelPosition(path, 1), one.x) << one.row;
    }
}

TEST_F(ListingTest, PositionBeyondSinglePrecisionIsTheLargestSingle) {
    SampleBlock block;
    block.position = " 1E+300 ";
    EXPECT_EQ(OnlyEntry(block).x, std::numeric_limits<float>::max());
    block.position = "-1E+300 ";
    EXPECT_EQ(OnlyEntry(block).x, std::numeric_limits<float>::lowest());
    EXPECT_EQ(ModelPosition(path, 1), std::numeric_limits<float>::lowest());
}

TEST_F(ListingTest, CommentsMayBeBetweenAnyLinesOfTheHead) {
    std::string text;
    const std::string block = BlockText(SampleBlock());
    for (size_t at = 0; at < block.size();) {
        const size_t end = block.find('\n', at) + 1;
        text += "* comment\r\n" + block.substr(at, end - at);
        at = end;
    }
    Write(SampleHead() + text);
    const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].name, L"Frame 10");
    EXPECT_EQ(entries[0].x, 12.5f);
}

TEST_F(ListingTest, LineFeedsAloneAndAMissingLastLineEndAreRead) {
    std::string text = test::WithLineFeeds(DatabaseText(FiveBlocks()));
    text.resize(text.find("-3.5") + 4);
    Write(text);
    const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
    ASSERT_EQ(entries.size(), 5u);
    EXPECT_EQ(entries[1].name, L"Bulkhead 40");
    EXPECT_EQ(entries[4].x, -3.5f);
}

TEST_F(ListingTest, NamesAreTextsOfTheAnsiCodePage) {
    SampleBlock block;
    block.name = "Membrure \xE9\xE0 1\xB0";
    EXPECT_EQ(OnlyEntry(block).name, system::WideFromAnsi("Membrure \xE9\xE0 1\xB0"));
    block.name = "";
    EXPECT_EQ(OnlyEntry(block).name, L"");
    block.name = "   ";
    EXPECT_EQ(OnlyEntry(block).name, L"");
    block.name = lines.nameLabel;
    EXPECT_EQ(OnlyEntry(block).name, std::wstring(lines.nameLabel.begin(), lines.nameLabel.end()));
}

TEST_F(ListingTest, NumbersThatAreDoubleOrNotDenseAreListedAsTheyAre) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks[0].number = " 7 ";
    blocks[1].number = " 7 ";
    blocks[2].number = "-2 ";
    blocks[3].number = "none";
    blocks[4].number = "5 aft";
    Write(DatabaseText(blocks) + lines.modelMarker + "\r\n");
    const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
    ASSERT_EQ(entries.size(), 6u);
    EXPECT_EQ(entries[1].name, L"Bulkhead 40");
    const int32_t numbers[] = {7, 7, -2, 0, 5, 0};
    const bool own[] = {false, false, false, false, true, false};
    const std::string text = test::ReadFileBytes(path);
    for (size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(entries[i].number, numbers[i]) << i;
        EXPECT_EQ(entries[i].hasOwnNumber, own[i]) << i;
        const auto offset = static_cast<size_t>(entries[i].offset);
        EXPECT_EQ(text.compare(offset, lines.modelMarker.size(), lines.modelMarker), 0) << i;
        EXPECT_TRUE(i == 0 || entries[i].offset > entries[i - 1].offset);
    }
    EXPECT_EQ(ModelPosition(path, 7), 12.5f);
    EXPECT_EQ(ModelPosition(path, -2), 0.0f);
    EXPECT_EQ(ModelPosition(path, 1), -1.0f);
}

TEST_F(ListingTest, AsManyModelsAreListedAsTheFileHas) {
    constexpr int32_t kMany = 100'000;
    std::string text = SampleHead();
    SampleBlock block;
    block.body.clear();
    for (int32_t number = 1; number <= kMany; ++number) {
        block.number = PrintForm(number);
        text += BlockText(block);
    }
    Write(text);
    const std::vector<ModelEntry> entries = ListModels(path);
    ASSERT_EQ(entries.size(), static_cast<size_t>(kMany));
    EXPECT_EQ(entries.back().number, kMany);
    EXPECT_TRUE(entries.back().hasOwnNumber);
}

// ---- Damaged files -----------------------------------------------------------------------------

TEST_F(ListingTest, DamagedBlockKeepsItsEntryAndTheNextOneIsWhole) {
    // The first block loses its lines from the end of its head on, one after the other.
    const std::string block = BlockText(SampleBlock());
    const size_t body = block.find("------------------ BODY");
    SampleBlock next;
    next.number = " 2 ";
    next.keyword = "BHA";
    next.name = "Whole";
    for (size_t end = block.find('\n') + 1; end <= body; end = block.find('\n', end) + 1) {
        Write(SampleHead() + block.substr(0, end) + BlockText(next));
        const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
        ASSERT_EQ(entries.size(), 2u) << end;
        EXPECT_EQ(entries[0].kind, ModelKind::kSection);
        EXPECT_EQ(entries[0].name.empty(), end <= block.find("Frame 10")) << end;
        EXPECT_EQ(entries[0].x, end <= block.find("12.5") ? 0.0f : 12.5f) << end;
        EXPECT_EQ(entries[1].name, L"Whole");
        EXPECT_EQ(entries[1].kind, ModelKind::kBulkhead);
        EXPECT_EQ(entries[1].x, 12.5f);
        EXPECT_EQ(ListModels(path).size(), 2u);
        EXPECT_EQ(CountModels(path), 2);
    }
}

TEST_F(ListingTest, EmptyBlocksInARowEachHaveAnEntry) {
    Write(SampleHead() +
          test::JoinLines({lines.modelMarker, lines.modelMarker, "* c", lines.modelMarker}));
    EXPECT_EQ(ListModels(path).size(), 3u);
    EXPECT_EQ(CountModels(path), 3);
}

TEST_F(ListingTest, ModelNamedLikeTheMarkerCountsAsANewBlock) {
    SampleBlock block;
    block.name = lines.modelMarker;
    Write(DatabaseText({block}));
    const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].name, L"");
    EXPECT_EQ(CountModels(path), 2);
    // With a blank it is a name like any other.
    block.name = lines.modelMarker + " ";
    EXPECT_EQ(OnlyEntry(block).name,
              std::wstring(lines.modelMarker.begin(), lines.modelMarker.end()));
    EXPECT_EQ(CountModels(path), 1);
}

TEST_F(ListingTest, PositionOfABlockWithoutPositionRowIsZero) {
    const std::string block = BlockText(SampleBlock());
    for (const char* cut : {"SECTION", "Frame 10", " 12.5"}) {
        Write(SampleHead() + block.substr(0, block.find(cut)));
        EXPECT_EQ(ModelPosition(path, 1), 0.0f) << cut;
    }
}

TEST_F(ListingTest, PositionOfAMissingModelIsMinusOne) {
    Write(DatabaseText(FiveBlocks()));
    EXPECT_EQ(ModelPosition(path, 1), 12.5f);
    EXPECT_EQ(ModelPosition(path, 2), 40.25f);
    EXPECT_EQ(ModelPosition(path, 4), 99.0f);
    EXPECT_EQ(ModelPosition(path, 6), -1.0f);
    EXPECT_EQ(ModelPosition(path, 0), -1.0f);
    EXPECT_EQ(ModelPosition(folder.File(L"missing.ve2"), 1), -1.0f);
    EXPECT_EQ(ModelPosition(L"", 1), -1.0f);
}

TEST_F(ListingTest, FileThatCannotBeReadHasAnEmptyList) {
    EXPECT_TRUE(ListModels(L"").empty());
    EXPECT_TRUE(ListModelsWithPositions(folder.File(L"missing.ve2")).empty());
    Write("");
    EXPECT_TRUE(ListModelsWithPositions(path).empty());
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
    EXPECT_TRUE(ListModels(folder.path).empty());
    EXPECT_EQ(test::RecordedReports::Of("warning").size(), 1u);
}

TEST_F(ListingTest, ReadThatFailsIsReported) {
    float x = 5;
    EXPECT_TRUE(ListModelsWithPositions(test::kUnreadableFile).empty());
    EXPECT_FALSE(ReadModelPosition(test::kUnreadableFile, 1, x));
    EXPECT_EQ(test::RecordedReports::Of("warning").size(), 2u);
    EXPECT_EQ(x, 5);
}

TEST_F(ListingTest, PositionInAFileThatIsGoneIsReported) {
    float x = 5;
    EXPECT_FALSE(ReadModelPosition(path, 1, x));
    EXPECT_EQ(test::RecordedReports::Of("warning"),
              std::vector{test::ShownText(kMsgDatabaseMissing, {path})});
    EXPECT_EQ(x, 5);
}

TEST_F(ListingTest, BinaryFileIsReadWithoutHarm) {
    std::string bytes;
    uint32_t state = 12345;
    for (int i = 0; i < 600'000; ++i) {
        state = state * 1664525u + 1013904223u;
        bytes += static_cast<char>(state >> 24);
        if (i % 50'000 == 0) bytes += "\n" + lines.modelMarker + "\n";
    }
    Write(bytes);
    EXPECT_FALSE(IsDatabaseFile(path));
    EXPECT_EQ(CountModels(path), 12);
    EXPECT_EQ(ListModelsWithPositions(path).size(), 12u);
    EXPECT_EQ(test::ReadFileBytes(path), bytes);
}

TEST_F(ListingTest, VeryLongLinesAreReadWithoutHarm) {
    SampleBlock block;
    block.name = std::string(600'000, 'n');
    block.position = " 2.5 " + std::string(600'000, ' ') + "9";
    SampleBlock next;
    next.number = " 2 ";
    Write(DatabaseText({block, next}));
    const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].name.size(), kLongestLine);
    EXPECT_EQ(entries[0].x, 2.5f);
    EXPECT_EQ(entries[1].name, L"Frame 10");
    EXPECT_EQ(ModelPosition(path, 2), 12.5f);
}

TEST_F(ListingTest, FileCutOffAtAnyByteIsReadAsFarAsItGoes) {
    std::vector<SampleBlock> blocks = FiveBlocks();
    blocks.resize(3);
    for (SampleBlock& block : blocks) block.body.clear();
    const std::string text = DatabaseText(blocks);
    size_t before = 0;
    for (size_t length = 0; length <= text.size(); ++length) {
        const std::string part = text.substr(0, length);
        Write(part);
        const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
        ASSERT_GE(entries.size(), before) << length;
        ASSERT_EQ(entries.size(), static_cast<size_t>(CountModels(path))) << length;
        ASSERT_EQ(entries.size(), ListModels(path).size()) << length;
        before = entries.size();
        ASSERT_EQ(IsDatabaseFile(path), length >= lines.signature.size()) << length;
        ModelPosition(path, 3);
        ASSERT_EQ(test::ReadFileBytes(path), part);
    }
    EXPECT_EQ(before, 3u);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1u);
}

}  // namespace
}  // namespace corvane
