// RenumberModels.
#include "database/renumbering.h"

#include "tests/database/editing_fixture.h"

namespace corvane {
namespace {

using test::CopiedBlockText;
using test::DatabaseText;
using test::FiveBlocks;
using test::SampleBlock;
using test::SampleHead;

struct RenumberingTest : test::EditingTest {
    std::vector<int32_t> before;
    // The five blocks as an edit leaves them, numbered from 1.
    static std::string InOrder() {
        std::string text = SampleHead();
        for (const SampleBlock& block : Numbered({" 1 ", " 2 ", " 3 ", " 4 ", " 5 "})) {
            text += CopiedBlockText(block, 0);
        }
        return text;
    }
};

TEST_F(RenumberingTest, BlocksGetTheNumbersOfTheirPlaces) {
    const std::string old = DatabaseText(Numbered({" 9 ", " 3 ", " 3 ", "-7 ", " 5 "}));
    Write(old);
    EXPECT_TRUE(RenumberModels(path, before));
    EXPECT_EQ(before, (std::vector<int32_t>{9, 3, 3, -7, 5}));
    EXPECT_EQ(Text(), InOrder());
    EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), old);
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
}

TEST_F(RenumberingTest, AZeroIsANumber) {
    Write(DatabaseText(Numbered({" 0 ", " 0 ", " 3 ", " 4 ", " 5 "})));
    EXPECT_TRUE(RenumberModels(path, before));
    EXPECT_EQ(Text(), InOrder());
}

TEST_F(RenumberingTest, NumbersInOrderLeaveTheFileUntouched) {
    const std::string text = DatabaseText(FiveBlocks());
    Write(text);
    EXPECT_TRUE(RenumberModels(path, before));
    EXPECT_EQ(before, (std::vector<int32_t>{1, 2, 3, 4, 5}));
    EXPECT_EQ(Text(), text);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
}

// The keyword would be taken for the number line, and be lost.
TEST_F(RenumberingTest, ABlockWithoutANumberLineIsRefused) {
    std::string text = DatabaseText(FiveBlocks());
    const size_t number = text.find("\r\n 3 \r\n");
    ASSERT_NE(number, std::string::npos);
    text.erase(number, 5);
    Write(text);
    EXPECT_FALSE(RenumberModels(path, before));
    ExpectRefusalOfNumber(text, 0);
}

TEST_F(RenumberingTest, FilesThatAreNotDatabasesAreRefused) {
    Write("no database\r\n");
    EXPECT_FALSE(RenumberModels(path, before));
    ExpectRefusal("no database\r\n", kMsgNoDatabase, {path});
}

TEST_F(RenumberingTest, AReadOnlyFileIsRefused) {
    const std::string text = DatabaseText(Numbered({" 9 ", " 3 ", " 1 ", " 7 ", " 5 "}));
    Write(text);
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    EXPECT_FALSE(RenumberModels(path, before));
    ExpectRefusal(text, kMsgReadOnly, {path});
}

}  // namespace
}  // namespace corvane
