#include "database/describing.h"

#include <gtest/gtest.h>

#include "database/model_kind.h"
#include "report/messages.h"
#include "tests/database/block_sample.h"
#include "tests/database/bulkhead_sample.h"
#include "tests/database/editing_fixture.h"

namespace corvane {
namespace {

using test::BlockText;
using test::Narrow;

struct DescribingTest : test::EditingTest {
    ModelDescription description;

    bool Describe(const std::string& blocks, int32_t number) {
        Write(test::SampleHead() + blocks);
        return DescribeModel(path, number, description);
    }
};

TEST_F(DescribingTest, SectionIsCounted) {
    size_t nodes = 0;
    size_t stiffeners = 0;
    for (const Panel& panel : section.panels) {
        nodes += panel.nodes.size();
        stiffeners += panel.stiffeners.size();
    }
    ASSERT_GT(nodes, section.panels.size());
    ASSERT_GT(stiffeners, 0U);
    const auto number = [](size_t count) { return static_cast<int32_t>(count); };
    ASSERT_TRUE(Describe(BlockText(section, 1), 1));
    EXPECT_EQ(Narrow(description.contents),
              Narrow(FormatMessage(
                  kMsgSectionContents,
                  {section.breadth_m, section.depth_m, number(section.panels.size()), number(nodes),
                   number(stiffeners), number(section.compartments.size())})));
    EXPECT_TRUE(description.hasPosition);
    EXPECT_EQ(description.x_m, section.x_m);
    EXPECT_EQ(Narrow(description.identifier), section.identifier);
}

TEST_F(DescribingTest, BulkheadArrangementIsCounted) {
    BulkheadArrangement arrangement;
    arrangement.name = L"Bulkheads";
    arrangement.identifier = "{B}";
    arrangement.x_m = 40.25F;
    arrangement.bulkheads.resize(2);
    arrangement.bulkheads[0].nodes.resize(3);
    arrangement.bulkheads[1].nodes.resize(1);
    arrangement.bulkheads[1].primaryStiffeners.resize(2);
    arrangement.bulkheads[1].secondaryStiffeners.resize(5);
    arrangement.holds.resize(1);
    arrangement.holds[0].name = L"Hold";
    ASSERT_TRUE(Describe(BlockText(arrangement, 1), 1));
    EXPECT_EQ(Narrow(description.contents),
              Narrow(FormatMessage(kMsgBulkheadContents, {2, 4, 2, 5, 1})));
    EXPECT_EQ(description.x_m, 40.25F);
    EXPECT_EQ(description.identifier, L"{B}");
}

TEST_F(DescribingTest, LinesAndTablesOfATorsionModelAreCounted) {
    test::SampleBlock block;
    block.keyword = kTorsionKeyword;
    block.position = " 99 ";
    block.body =
        "------------------ HOLDS ------------------\r\n 1 \r\n* a comment\r\n 2 \r\n"
        "------------------ TOR RESULTS ------------------\r\n";
    ASSERT_TRUE(Describe(BlockText(block), 1));
    EXPECT_EQ(Narrow(description.contents), Narrow(FormatMessage(kMsgTorsionContents, {2, 5})));
    EXPECT_FALSE(description.hasPosition);
    EXPECT_EQ(description.identifier, L"");
}

TEST_F(DescribingTest, SizeIsFromTheMarkerToTheNextOne) {
    std::vector<test::SampleBlock> blocks = test::FiveBlocks();
    blocks[3].beforeMarker.clear();
    const std::string text = test::DatabaseText(blocks).substr(test::SampleHead().size());
    for (int32_t number = 1; number <= 5; ++number) {
        ASSERT_TRUE(Describe(text, number));
        EXPECT_EQ(description.size,
                  static_cast<int64_t>(BlockText(blocks[static_cast<size_t>(number) - 1]).size()));
    }
}

TEST_F(DescribingTest, StampSaysWhoWroteTheModelWhenAndWithWhat) {
    test::SampleBlock block;
    block.beforeName.clear();
    std::string text = BlockText(block);
    const std::string stamp =
        "* Program : Corvane 1.2 R7 32bit\r\n* Format version :  2.002\r\n"
        "* Written by : Yard, Oslo 20/11/2026,  17:45:00\r\n* User : ann\r\n";
    text = test::Replaced(text, std::string("* written by a test\r\n"), stamp);
    // A legend in the body may look like a stamp, but is not one.
    ASSERT_TRUE(Describe(text + "* User : body\r\n", 1));
    EXPECT_EQ(description.stamp.program, L"Corvane 1.2 R7 32bit");
    EXPECT_EQ(description.stamp.formatVersion, L"2.002");
    EXPECT_EQ(description.stamp.written, L"Yard, Oslo 20/11/2026,  17:45:00");
    EXPECT_EQ(description.stamp.user, L"ann");
}

TEST_F(DescribingTest, BlockWithoutAStampHasNone) {
    ASSERT_TRUE(Describe(BlockText(test::SampleBlock()), 1));
    EXPECT_EQ(description.stamp.program + description.stamp.written + description.stamp.user, L"");
}

TEST_F(DescribingTest, DamagedBlockGivesWhatItHas) {
    for (const std::string_view body : {" 1 ", " 1 \r\nSECTION", " 1 \r\nBHA", " 1 \r\nTORSION"}) {
        EXPECT_TRUE(Describe(lines.modelMarker + "\r\n" + std::string(body), 1)) << body;
    }
}

TEST_F(DescribingTest, MissingModelAndForeignFileAreReported) {
    EXPECT_FALSE(Describe(BlockText(test::SampleBlock()), 2));
    Write("a letter\r\n");
    EXPECT_FALSE(DescribeModel(path, 1, description));
    EXPECT_EQ(test::RecordedReports::Of("warning"),
              (std::vector<std::string>{test::ShownText(kMsgModelMissing, {2, path}),
                                        test::ShownText(kMsgNoDatabase, {path})}));
}

}  // namespace
}  // namespace corvane
