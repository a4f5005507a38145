// Copies of models that have more than this program reads: nothing of them is lost.
#include "database/carrying.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "database/listing.h"
#include "tests/database/check_damage.h"
#include "tests/database/editing_fixture.h"

namespace corvane {
namespace {

using test::Replaced;

struct CarryingTest : test::EditingTest {
    std::string sound = test::SoundDatabase();
    std::string marker = lines.modelMarker + "\r\n";

    // The text of a block, from 1, from its marker on.
    std::string Block(const std::string& text, int block) const {
        size_t begin = 0;
        for (int i = 0; i < block; ++i) begin = text.find(marker, begin == 0 ? 0 : begin + 1);
        const size_t next = text.find(marker, begin + 1);
        return text.substr(begin, next == std::string::npos ? next : next - begin);
    }
    std::string IdentifierOf(int block) const {
        return ListModelsWithPositions(path).at(static_cast<size_t>(block) - 1).identifier;
    }
    static std::string WithNewTable(const std::string& text) {
        return Replaced(text, "------------------ OPENINGS",
                        "------------------ COATINGS ------------------\r\n 1 \t .25 \r\n"
                        "------------------ OPENINGS");
    }
};

TEST_F(CarryingTest, CopyOfASectionKeepsAnUnknownTable) {
    const std::string text = WithNewTable(sound);
    Write(text);
    EXPECT_EQ(CopyModel(path, {1, ModelKind::kSection, L" New name ", {}}), 5);
    EXPECT_EQ(Text().substr(0, text.size()), text);
    std::string expected = Replaced(Block(text, 1), "\r\n 1 \r\nSECTION", "\r\n 5 \r\nSECTION");
    expected = Replaced(expected, "\r\nFrame 100\r\n", "\r\nNew name\r\n");
    expected = Replaced(expected, "\r\nID-0001\r\n", "\r\n" + IdentifierOf(5) + "\r\n");
    EXPECT_EQ(Block(Text(), 5), expected);
    EXPECT_NE(IdentifierOf(5), "ID-0001");
    EXPECT_NE(IdentifierOf(5), "");
}

TEST_F(CarryingTest, CopyOfABulkheadArrangementKeepsANewerLayout) {
    const std::string text = Replaced(sound, "\r\n .443 \r\n", "\r\n .5 \r\n");
    Write(text);
    EXPECT_EQ(CopyModel(path, {2, ModelKind::kBulkhead, L"New", {}}), 5);
    EXPECT_NE(Block(Text(), 5).find("\r\n .5 \r\n"), std::string::npos);
    EXPECT_EQ(Block(Text(), 5).size(), Block(text, 2).size() -
                                           std::string("Bulkheads of hold 3ID-0003").size() +
                                           std::string("New").size() + IdentifierOf(5).size());
}

TEST_F(CarryingTest, ModelOfAnotherDatabaseKeepsAnUnknownTable) {
    const std::wstring other = folder.File(L"other.ve2");
    test::WriteFileBytes(other, WithNewTable(sound));
    Write(sound);
    EXPECT_EQ(AppendModel(path, {other, 1}, ModelKind::kSection, {}), AppendResult::kAppended);
    std::string expected =
        Replaced(Block(WithNewTable(sound), 1), "\r\n 1 \r\nSECTION", "\r\n 5 \r\nSECTION");
    expected = Replaced(expected, "\r\nID-0001\r\n", "\r\n" + IdentifierOf(5) + "\r\n");
    EXPECT_EQ(Block(Text(), 5), expected);
}

TEST_F(CarryingTest, ModelThatIsKnownWhollyIsReadAndWrittenAgain) {
    Write(sound);
    EXPECT_EQ(CopyModel(path, {1, ModelKind::kSection, L"New", {}}), 5);
    EXPECT_NE(Block(Text(), 5).find("Written by"), std::string::npos);  // a stamp of today
}

TEST_F(CarryingTest, RowsThatBelongToNothingAreKept) {
    const std::string text = Replaced(sound, " 2 \t9.125", " 3 \t9.125");
    Write(text);
    EXPECT_EQ(CopyModel(path, {1, ModelKind::kSection, L"New", {}}), 5);
    EXPECT_NE(Block(Text(), 5).find(" 3 \t9.125"), std::string::npos);
}

TEST_F(CarryingTest, ModelThatIsHiddenInAnotherIsNotCopied) {
    const std::string damaged = Replaced(sound, marker + "*\r\n 2 ", "*\r\n 2 ");
    Write(damaged);
    EXPECT_EQ(CopyModel(path, {1, ModelKind::kSection, L"New", {}}), 5);
    EXPECT_EQ(Text().find("BHA", damaged.size()), std::string::npos);
}

// Nobody can say which line is the name and which the identifier; what is lost can be named.
TEST_F(CarryingTest, ModelWithADamagedHeadIsNotCarried) {
    Write(Replaced(WithNewTable(sound), "\r\n 20.5 \t 25.125 \r\n", "\r\n"));
    EXPECT_EQ(CopyModel(path, {1, ModelKind::kSection, L"New", {}}), 5);
    EXPECT_EQ(Block(Text(), 5).find("COATINGS"), std::string::npos);
    std::vector<Finding> losses;
    EXPECT_TRUE(FindLossesOfCopy(path, 1, losses));
    EXPECT_TRUE(std::ranges::count(losses, CheckRule::kTableUnknown, &Finding::rule) == 1);
}

}  // namespace
}  // namespace corvane
