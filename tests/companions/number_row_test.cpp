// GetValsC, the reader of number rows.
#include "platform/ztutil32.h"

#include <gtest/gtest.h>

#include <array>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace corvane {
namespace {

std::vector<double> Values(const std::string& line, int32_t most = 400) {
    std::vector<double> values(static_cast<size_t>(most) + 1, -777.0);
    const int32_t count = GetValsC(line.c_str(), values.data(), most);
    EXPECT_EQ(values[static_cast<size_t>(most)], -777.0) << "written beyond the array";
    values.resize(static_cast<size_t>(count));
    return values;
}

using Row = std::vector<double>;

TEST(NumberRowTest, SeparatorsAreBlankTabCommaAndSemicolon) {
    EXPECT_EQ(Values("1 2\t3,4;5"), Row({1, 2, 3, 4, 5}));
    EXPECT_EQ(Values("1, 2 ;\t 3"), Row({1, 2, 3}));
}

TEST(NumberRowTest, RowInPrintFormIsRead) {
    EXPECT_EQ(Values(" 12 \t .443 \t-.5 \t 1E+38 \t"), Row({12, 0.443, -0.5, 1e38}));
}

TEST(NumberRowTest, EmptyItemsGiveNoNumber) {
    EXPECT_EQ(Values("1,,2;;\t\t3"), Row({1, 2, 3}));
}

TEST(NumberRowTest, EmptyAndBlankLinesHoldNothing) {
    EXPECT_EQ(Values(""), Row());
    EXPECT_EQ(Values(" \t,; "), Row());
}

TEST(NumberRowTest, LineEndsSeparateLikeBlanks) {
    EXPECT_EQ(Values("1\r\n2\n"), Row({1, 2}));
}

TEST(NumberRowTest, NumbersOfAllFormsAreRead) {
    struct Case {
        const char* word;
        double value;
    };
    const std::vector<Case> cases = {
        {"0", 0},
        {"7", 7},
        {"+7", 7},
        {"-7", -7},
        {"5.", 5},
        {".5", 0.5},
        {"+.5", 0.5},
        {"-.5", -0.5},
        {"00012", 12},
        {"0.00012", 1.2e-4},
        {"1e3", 1000},
        {"1E3", 1000},
        {"1E+3", 1000},
        {"1e-3", 1e-3},
        {"1d3", 1000},
        {"1D-03", 1e-3},
        {".5e1", 5},
        {"5.e1", 50},
        {"1e0003", 1000},
        {"0e999999999999", 0},
        {"123456789012345", 123456789012345},
        {"9007199254740993", 9007199254740992},
    };
    for (const Case& one : cases) EXPECT_EQ(Values(one.word), Row({one.value})) << one.word;
}

TEST(NumberRowTest, WordsThatAreNotNumbersAreSkipped) {
    for (const char* word :
         {"-",     "+",        ".",    "-.",    "+-1",   "--1",   "1e",  "1e+", "1E-",
          "e5",    "1.2.3",    "1..2", "12abc", "abc",   "abc12", "nan", "NaN", "inf",
          "-inf",  "Infinity", "0x10", "1e5x",  "1e5.5", "1-2",   "1+2", "1f",  "\xA4",
          "1\xB0", "\"1\"",    "(1)",  "1e1e1", "1'000", "1_000"}) {
        EXPECT_EQ(Values(word), Row()) << word;
        EXPECT_EQ(Values(std::string("1 ") + word + " 2"), Row({1, 2})) << word;
    }
}

TEST(NumberRowTest, ReadingStopsAtTheGivenCount) {
    EXPECT_EQ(Values("1 2 3 4", 3), Row({1, 2, 3}));
    EXPECT_EQ(Values("1 2 3", 3), Row({1, 2, 3}));
    EXPECT_EQ(Values("x 1 y 2 z", 1), Row({1}));
    EXPECT_EQ(Values("1 2", 0), Row());
}

TEST(NumberRowTest, FourHundredNumbersAreReadAndNoMore) {
    std::string line;
    for (int i = 1; i <= 500; ++i) line += std::to_string(i) + '\t';
    const Row values = Values(line);
    ASSERT_EQ(values.size(), 400U);
    EXPECT_EQ(values[399], 400);
}

TEST(NumberRowTest, MissingLineOrArrayGivesNothing) {
    double value = 0;
    EXPECT_EQ(GetValsC(nullptr, &value, 1), 0);
    EXPECT_EQ(GetValsC("1", nullptr, 1), 0);
    EXPECT_EQ(GetValsC("1", &value, -1), 0);
}

TEST(NumberRowTest, WhatIsTooLargeBecomesTheLargestNumber) {
    const double largest = std::numeric_limits<double>::max();
    for (const char* word : {"1e309", "1e400", "1D999", "1e99999999999999999999", "1.8e308"}) {
        EXPECT_EQ(Values(word), Row({largest})) << word;
        EXPECT_EQ(Values(std::string("-") + word), Row({-largest})) << word;
    }
    EXPECT_EQ(Values(std::string(400, '9')), Row({largest}));
    EXPECT_EQ(Values("1.7976931348623157e308"), Row({largest}));
}

TEST(NumberRowTest, WhatIsTooSmallBecomesZero) {
    for (const char* word : {"1e-400", "1e-99999999999999999999", "-1d-999"}) {
        const Row values = Values(word);
        ASSERT_EQ(values.size(), 1U) << word;
        EXPECT_EQ(values[0], 0) << word;
    }
    EXPECT_EQ(Values("0." + std::string(400, '0') + "1"), Row({0}));
    EXPECT_EQ(Values("0." + std::string(400, '0') + "1e401"), Row({1}));
    EXPECT_EQ(Values("1" + std::string(400, '0') + "e-400"), Row({1}));
}

TEST(NumberRowTest, DigitsBeyondTheNineteenthCountForRounding) {
    // Halfway between two doubles, and a last digit that decides.
    EXPECT_EQ(Values("9007199254740993.0000000000000000000000001"), Row({9007199254740994}));
    EXPECT_EQ(Values("9007199254740993.0000000000000000000000000"), Row({9007199254740992}));
    EXPECT_EQ(Values("3.14159265358979323846264338327950288"), Row({3.14159265358979323846}));
}

// Random numbers of `digits` digits with a point somewhere and, mostly, an exponent.
std::string RandomWord(std::mt19937_64& random, int digits, int exponents) {
    const auto below = [&random](int count) {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    };
    std::string word = below(2) != 0 ? "-" : "";
    const int point = below(digits + 1);
    for (int i = 0; i < digits; ++i) {
        if (i == point) word += '.';
        word += static_cast<char>('0' + below(10));
    }
    if (below(4) != 0) word += 'e' + std::to_string(below(2 * exponents) - exponents);
    return word;
}

TEST(NumberRowTest, RandomNumbersOfUpToFifteenDigitsAreExact) {
    std::mt19937_64 random(20);
    for (int i = 0; i < 100000; ++i) {
        const int digits = 1 + static_cast<int>(random() % 15);
        const std::string word = RandomWord(random, digits, i % 2 == 0 ? 25 : 300);
        double value = 0;
        ASSERT_EQ(GetValsC(word.c_str(), &value, 1), 1) << word;
        const double expected = std::strtod(word.c_str(), nullptr);
        if (std::isinf(expected)) {
            ASSERT_EQ(std::fabs(value), DBL_MAX) << word;
        } else {
            ASSERT_EQ(value, expected) << word;
        }
    }
}

TEST(NumberRowTest, RandomNumbersOfManyDigitsAreExactToTheLastDigit) {
    std::mt19937_64 random(21);
    for (int i = 0; i < 20000; ++i) {
        const int digits = 16 + static_cast<int>(random() % 20);
        const std::string word = RandomWord(random, digits, 250);
        double value = 0;
        ASSERT_EQ(GetValsC(word.c_str(), &value, 1), 1) << word;
        const double expected = std::strtod(word.c_str(), nullptr);
        ASSERT_GE(value, std::nextafter(expected, -DBL_MAX)) << word;
        ASSERT_LE(value, std::nextafter(expected, DBL_MAX)) << word;
    }
}

TEST(NumberRowTest, SinglesWrittenWithNineDigitsComeBack) {
    std::mt19937_64 random(22);
    for (int i = 0; i < 20000; ++i) {
        const auto single = static_cast<float>(
            std::ldexp(static_cast<double>(random() >> 40), static_cast<int>(random() % 60) - 40));
        std::array<char, 32> word;
        std::snprintf(word.data(), word.size(), "%.9g", static_cast<double>(single));
        EXPECT_EQ(static_cast<float>(Values(word.data(), 1)[0]), single) << word.data();
    }
}

}  // namespace
}  // namespace corvane
