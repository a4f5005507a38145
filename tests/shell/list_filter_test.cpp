#include "shell/list_filter.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

#include "tests/support/support.h"

namespace corvane {
namespace {

using test::Narrow;

ModelRow Row(const wchar_t* name, ModelKind kind, float x_m, int frame) {
    ModelRow row;
    row.name = name;
    row.kind = kind;
    row.x_m = x_m;
    if (x_m < 0) return row;
    row.x = std::to_wstring(x_m);
    row.frame = frame;
    return row;
}

// Which of these models a filter leaves, by their letters.
std::string Left(const wchar_t* text) {
    const std::vector<ModelRow> rows = {
        Row(L"A Midship section, hold 4", ModelKind::kSection, 108.5F, 141),
        Row(L"B Hold 3, Frame 181", ModelKind::kSection, 140.7F, 181),
        Row(L"C Collision bulkhead, frame 254", ModelKind::kBulkhead, 199.1F, 254),
        Row(L"D Torsion model", ModelKind::kTorsion, -1, 0),
        Row(L"E \u00C9TRAVE x > 5", ModelKind::kSection, 0, -3)};
    std::vector<int> indexes(rows.size());
    std::iota(indexes.begin(), indexes.end(), 0);
    FilterRows(rows, ReadFilter(text), indexes);
    std::string letters;
    for (const int index : indexes) letters += Narrow(rows[static_cast<size_t>(index)].name)[0];
    return letters;
}

TEST(ListFilterTest, WordsOfTheNameMustAllBeThere) {
    const struct {
        const wchar_t* text;
        const char* left;
    } cases[] = {{L"", "ABCDE"},        {L"  \t ", "ABCDE"}, {L"hold", "AB"},
                 {L"HOLD 3", "B"},      {L"3 hold", "B"},    {L"frame", "BC"},
                 {L"\u00E9trave", "E"}, {L"keel", ""},       {L"hold keel", ""}};
    for (const auto& item : cases) EXPECT_EQ(Left(item.text), item.left) << Narrow(item.text);
}

TEST(ListFilterTest, KindWordsLeaveTheModelsOfTheKind) {
    EXPECT_EQ(Left(L"bhd"), "C");
    EXPECT_EQ(Left(L"Bulkhead"), "C");
    EXPECT_EQ(Left(L"torsion"), "D");
    EXPECT_EQ(Left(L"section"), "ABE");
    EXPECT_EQ(Left(L"section hold"), "AB");
    EXPECT_EQ(Left(L"section torsion"), "") << "no model is both";
    EXPECT_EQ(Left(L"\"section\""), "A") << "in quotes it is a word of the name";
    EXPECT_EQ(Left(L"sect"), "A") << "and so is a part of it";
}

TEST(ListFilterTest, FrameLeavesTheModelsThatAreNearestToIt) {
    EXPECT_EQ(Left(L"fr 181"), "B");
    EXPECT_EQ(Left(L"FR181"), "B");
    EXPECT_EQ(Left(L"fr -3"), "E");
    EXPECT_EQ(Left(L"fr 0"), "") << "a model without a position is at no frame";
    EXPECT_EQ(Left(L"fr 99999999999"), "");
    EXPECT_EQ(Left(L"fr"), "BC") << "letters of the name";
    EXPECT_EQ(Left(L"fr 1.5"), "");
    EXPECT_EQ(Left(L"frame 254"), "C") << "words of the name";
}

TEST(ListFilterTest, PositionsAreCompared) {
    EXPECT_EQ(Left(L"x>100"), "ABC");
    EXPECT_EQ(Left(L"X > 140"), "BC");
    EXPECT_EQ(Left(L"x<140.7"), "AE");
    EXPECT_EQ(Left(L"x<=140.7"), "ABE");
    EXPECT_EQ(Left(L"x>=140.7"), "BC") << "as it is shown, not as a float is kept";
    EXPECT_EQ(Left(L"x=140.7"), "B");
    EXPECT_EQ(Left(L"x=0"), "E");
    EXPECT_EQ(Left(L"x>100 x<150"), "AB");
    EXPECT_EQ(Left(L"x>-5"), "ABCE") << "none without a position";
    EXPECT_EQ(Left(L"x>1e2 section"), "AB");
}

TEST(ListFilterTest, WhatIsNoFilterIsTextOfTheName) {
    EXPECT_EQ(Left(L"x >"), "E");
    EXPECT_EQ(Left(L"x>"), "") << "there is a blank in the name";
    EXPECT_EQ(Left(L"x>5m"), "");
    EXPECT_EQ(Left(L"x>1,5"), "");
    EXPECT_EQ(Left(L"\"x > 5\""), "E");
    EXPECT_EQ(Left(L"\"x > 5"), "E") << "the quote is still open";
    EXPECT_EQ(Left(L"\""), "ABCDE");
    EXPECT_EQ(Left(L"\"\""), "ABCDE");
    EXPECT_EQ(Left(L"hold \"\" 3"), "B");
    EXPECT_EQ(Left(L"*"), "");
    EXPECT_EQ(Left(L"\\"), "");
}

}  // namespace
}  // namespace corvane
