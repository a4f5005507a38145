#include "text/array.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace corvane {
namespace {

TEST(Array, IndexesRunFromFirstToLast) {
    Array<int16_t, 0, 40> zones;
    EXPECT_EQ(zones.kCount, 41);
    for (int i = 0; i <= 40; ++i) zones(i) = static_cast<int16_t>(i * 2);
    EXPECT_EQ(zones.elements.front(), 0);
    EXPECT_EQ(zones.elements.back(), 80);
    EXPECT_EQ(zones(7), 14);
}

TEST(Array, ElementsBeginAsZero) {
    const Array<float, 1, 30> values;
    for (int i = 1; i <= 30; ++i) EXPECT_EQ(values(i), 0.0F);
}

TEST(Array, EqualWhenAllElementsAre) {
    Array<int, 1, 3> a;
    Array<int, 1, 3> b;
    EXPECT_EQ(a, b);
    b(3) = 1;
    EXPECT_NE(a, b);
}

TEST(Array, HasNoMoreRoomThanItsElements) {
    EXPECT_EQ(sizeof(Array<float, 1, 30>), 30 * sizeof(float));
    EXPECT_EQ(sizeof(Table<float, 2, 10>), 20 * sizeof(float));
}

TEST(ArrayDeathTest, IndexBelowFirstIsAsserted) {
    Array<int, 1, 3> values;
    EXPECT_DEATH(values(0) = 1, "index >= first");
}

TEST(ArrayDeathTest, IndexAboveLastIsAsserted) {
    const Array<int, 1, 3> values;
    EXPECT_DEATH(static_cast<void>(values(4)), "index <= last");
}

TEST(Table, FirstIndexRunsFastest) {
    Table<int, 2, 3> table;
    int next = 0;
    for (int j = 1; j <= 3; ++j) {
        for (int i = 1; i <= 2; ++i) table(i, j) = ++next;
    }
    const std::array<int, 6> inMemory{1, 2, 3, 4, 5, 6};
    EXPECT_EQ(table.elements, inMemory);
    EXPECT_EQ(table(2, 1), 2);
    EXPECT_EQ(table(1, 2), 3);
}

TEST(TableDeathTest, EachIndexIsAsserted) {
    Table<int, 2, 3> table;
    EXPECT_DEATH(table(0, 1) = 1, "i >= 1");
    EXPECT_DEATH(table(3, 1) = 1, "i <= firstIndexes");
    EXPECT_DEATH(table(1, 0) = 1, "j >= 1");
    EXPECT_DEATH(table(1, 4) = 1, "j <= secondIndexes");
}

TEST(FixedText, NewOneIsAllBlanks) {
    const FixedText<4> text;
    EXPECT_EQ(text.Whole(), L"    ");
    EXPECT_EQ(text.Trimmed(), L"");
}

TEST(FixedText, ShortTextIsPaddedWithBlanks) {
    FixedText<6> text;
    text.Assign(L"Bow");
    EXPECT_EQ(text.Whole(), L"Bow   ");
    EXPECT_EQ(text.Trimmed(), L"Bow");
}

TEST(FixedText, LongTextIsCut) {
    FixedText<3> text;
    text.Assign(L"Forecastle");
    EXPECT_EQ(text.Whole(), L"For");
}

TEST(FixedText, AssigningAShorterTextLeavesNothingOfTheOldOne) {
    FixedText<5> text;
    text.Assign(L"12345");
    text.Assign(L"x");
    EXPECT_EQ(text.Whole(), L"x    ");
}

TEST(FixedText, TrimmedKeepsInnerBlanks) {
    FixedText<9> text;
    text.Assign(L"  A  B");
    EXPECT_EQ(text.Trimmed(), L"A  B");
}

}  // namespace
}  // namespace corvane
