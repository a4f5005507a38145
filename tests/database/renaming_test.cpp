// RenameModel.
#include "tests/database/block_sample.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/database/editing_fixture.h"

namespace corvane {
namespace {

using test::BlockText;
using test::DatabaseText;
using test::FiveBlocks;
using test::SampleBlock;
using test::SampleHead;

struct RenamingTest : test::EditingTest {
    bool Rename(int32_t number, const wchar_t* oldName, const std::wstring& newName) {
        return RenameModel(path, {number, oldName, newName, {}});
    }
};

// Comments between a marker and its number stay, too.
TEST_F(RenamingTest, OnlyTheLineOfTheNameChanges) {
    for (size_t renamed = 0; renamed < 5; ++renamed) {
        std::vector<SampleBlock> blocks = FiveBlocks();
        blocks[3].beforeName = "* another legend\r\n";
        Write(DatabaseText(blocks));
        const std::wstring oldName = Trim(system::WideFromAnsi(blocks[renamed].name));
        EXPECT_TRUE(Rename(static_cast<int32_t>(renamed) + 1, oldName.c_str(), L"  Hold 3 "));
        blocks[renamed].name = "Hold 3";
        EXPECT_EQ(Text(), DatabaseText(blocks)) << renamed;
    }
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
}

TEST_F(RenamingTest, OnlyTheLineOfTheNameChangesInTheBlocksOfTheWriters) {
    BulkheadArrangement arrangement = test::FullArrangement();
    const std::string sectionBlock = BlockText(section, 1);
    const std::string bulkheadBlock = BlockText(arrangement, 2);
    const std::string text = SampleHead() + sectionBlock + bulkheadBlock;
    Write(text);
    EXPECT_TRUE(Rename(1, section.name.c_str(), L"Hold 3"));
    EXPECT_TRUE(Rename(2, arrangement.name.c_str(), L"Hold 4"));
    const auto lineOf = [](const std::wstring& name) {
        return "\r\n" + system::AnsiFromWide(name) + "\r\n";
    };
    EXPECT_EQ(Text(),
              SampleHead() + test::Replaced(sectionBlock, lineOf(section.name), lineOf(L"Hold 3")) +
                  test::Replaced(bulkheadBlock, lineOf(arrangement.name), lineOf(L"Hold 4")));
}

TEST_F(RenamingTest, NumbersAboveAGapLeadToTheirModel) {
    std::vector<SampleBlock> blocks = Numbered({" 9 ", " 3 ", " 1 ", " 7 ", " 5 "});
    Write(DatabaseText(blocks));
    EXPECT_TRUE(Rename(1, L"Frame 20", L"Frame 21"));
    blocks[2].name = "Frame 21";
    EXPECT_EQ(Text(), DatabaseText(blocks));
}

TEST_F(RenamingTest, NamesThatWouldBeOtherLinesAreWrittenAsThoseOfCopies) {
    const std::wstring marker = GetMessage(kMsgModelMarker);
    const struct {
        std::wstring name;
        std::string line;
    } cases[] = {{L"* star", " * star"},
                 {marker, ' ' + lines.modelMarker},
                 {L"tab\tline\r\nend", "tab line  end"},
                 {std::wstring(1200, L'x'), std::string(1000, 'x')}};
    for (const auto& item : cases) {
        std::vector<SampleBlock> blocks = FiveBlocks();
        Write(DatabaseText(blocks));
        EXPECT_TRUE(Rename(1, L"Frame 10", item.name));
        blocks[0].name = item.line;
        EXPECT_EQ(Text(), DatabaseText(blocks)) << item.line;
    }
}

TEST_F(RenamingTest, LastLineOfTheFileWithoutAnEndIsFound) {
    std::string text = DatabaseText({SampleBlock()});
    text.resize(text.find("Frame 10") + 8);
    Write(text);
    EXPECT_TRUE(Rename(1, L"Frame 10", L"Hold 3"));
    text.replace(text.size() - 8, 8, "Hold 3\r\n");
    EXPECT_EQ(Text(), text);
}

TEST_F(RenamingTest, BackupIsKeptOnDemand) {
    const std::string text = DatabaseText(FiveBlocks());
    Write(text);
    EXPECT_TRUE(RenameModel(path, {1, L"Frame 10", L"Hold 3", {.keepBackup = true}}));
    EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), text);
}

// ---- Refusals ----------------------------------------------------------------------------------

TEST_F(RenamingTest, ModelWithAnotherNameByNowIsReportedAndStays) {
    const std::string text = DatabaseText(FiveBlocks());
    Write(text);
    EXPECT_FALSE(Rename(1, L"Frame 11", L"Hold 3"));
    ExpectRefusal(text, kMsgModelChanged, {path});
}

TEST_F(RenamingTest, NumberThatLeadsToNoModelAloneIsReported) {
    const std::vector<SampleBlock> blocks = Numbered({" 1 ", " 2 ", " 2 ", " 4 ", " 5 "});
    Write(DatabaseText(blocks));
    EXPECT_FALSE(Rename(2, L"Bulkhead 40", L"Hold 3"));
    ExpectRefusalOfNumber(DatabaseText(blocks), 2);
    EXPECT_FALSE(Rename(6, L"Frame 10", L"Hold 3"));
    ExpectRefusal(DatabaseText(blocks), kMsgModelMissing, {6, path});
}

TEST_F(RenamingTest, BlockWithoutALineForTheNameIsReportedAndStays) {
    const std::vector<SampleBlock> blocks = FiveBlocks();
    const std::string whole = BlockText(blocks[0]);
    const std::string upToLabel = whole.substr(0, whole.find("* legend"));
    for (const std::string& damaged :
         {upToLabel, upToLabel + blocks[0].body,
          test::Replaced(whole, lines.nameLabel + "\r\n", std::string("* lost\r\n"))}) {
        const std::string text = SampleHead() + damaged + BlockText(blocks[1]);
        Write(text);
        EXPECT_FALSE(Rename(1, L"Frame 10", L"Hold 3"));
        ExpectRefusal(text, kMsgNoNameLine, {1, path});
    }
}

}  // namespace
}  // namespace corvane
