// Texts that are shortened to the room that they have.
#include "preview/figure_text.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(FigureText, LetterIsALittleMoreThanHalfAsWideAsHigh) {
    EXPECT_DOUBLE_EQ(TextWidth(L"Tank", 2), 4 * 2 * 0.55);
}

TEST(FigureText, TextThatFitsIsWhole) {
    EXPECT_EQ(FittingText(L"Midship", 2, 7 * 2 * 0.55), L"Midship");
}

TEST(FigureText, LongTextIsItsBeginningWithThreePoints) {
    // Room for six letters, three of them the points.
    EXPECT_EQ(FittingText(L"Midship", 2, 6.5 * 2 * 0.55), L"Mid...");
    EXPECT_EQ(FittingText(L"Midship", 2, 4 * 2 * 0.55 + 0.01), L"M...");
}

TEST(FigureText, WithoutRoomForALetterThereIsNone) {
    EXPECT_EQ(FittingText(L"Midship", 2, 3 * 2 * 0.55), L"");
    EXPECT_EQ(FittingText(L"Midship", 2, -1), L"");
}

TEST(FigureText, NoHalfOfACharacterIsLeft) {
    EXPECT_EQ(FittingText(L"M\xD83D\xDEA2ship", 1, 5.5 * 0.55), L"M...");
}

}  // namespace
}  // namespace corvane
