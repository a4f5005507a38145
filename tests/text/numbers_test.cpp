#include "text/numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include "tests/support/support.h"

namespace corvane {
namespace {

using test::Narrow;

std::string General(float value) {
    return Narrow(GeneralText(value));
}
std::string General(double value) {
    return Narrow(GeneralText(value));
}

std::string DoublePrintForm(double value) {
    std::array<char, kLongestNumber> text;
    return std::string(text.data(), AppendPrintForm(text.data(), value));
}

template <class Number>
struct NumberCase {
    Number value;
    const char* text;
};

constexpr float kLargestSingle = std::numeric_limits<float>::max();
constexpr double kLargestDouble = std::numeric_limits<double>::max();

// ---- The general form --------------------------------------------------------------------------

TEST(GeneralForm, TableOfSingles) {
    const NumberCase<float> cases[] = {
        {0.0F, "0"},
        {-0.0F, "0"},
        {1.0F, "1"},
        {-1.0F, "-1"},
        {0.5F, "0.5"},
        {-0.5F, "-0.5"},
        {0.1F, "0.1"},
        {12.5F, "12.5"},
        {100.0F, "100"},
        {1234567.0F, "1234567"},
        {9999999.0F, "9999999"},
        {1e7F, "1E+07"},
        {12345678.0F, "1.234568E+07"},
        {1e38F, "1E+38"},
        {0.0001F, "0.0001"},
        {0.00012345F, "0.00012345"},
        {0.00001F, "1E-05"},
        {1.5e-5F, "1.5E-05"},
        {-1.5e-5F, "-1.5E-05"},
        {0.1234567F, "0.1234567"},
        {3.14159265F, "3.141593"},
        {0.99999999F, "1"},
        {9.9999999e-5F, "0.0001"},
        {16777216.0F, "1.677722E+07"},
        {kLargestSingle, "3.402823E+38"},
        {-kLargestSingle, "-3.402823E+38"},
        {std::numeric_limits<float>::min(), "1.175494E-38"},
        {std::numeric_limits<float>::denorm_min(), "1.401298E-45"},
    };
    for (const auto& each : cases) EXPECT_EQ(General(each.value), each.text);
}

TEST(GeneralForm, TableOfDoubles) {
    const NumberCase<double> cases[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {0.1, "0.1"},
        {1.0 / 3.0, "0.333333333333333"},
        {-2.0 / 3.0, "-0.666666666666667"},
        {123456789.0, "123456789"},
        {123456789012345.0, "123456789012345"},
        {999999999999999.0, "999999999999999"},
        {1e15, "1E+15"},
        {0.0001, "0.0001"},
        {0.00001, "1E-05"},
        {1e100, "1E+100"},
        {1.5e-100, "1.5E-100"},
        {kLargestDouble, "1.79769313486232E+308"},
        {-kLargestDouble, "-1.79769313486232E+308"},
        {0.1 + 0.2, "0.3"},
        {5e-324, "4.94065645841247E-324"},
    };
    for (const auto& each : cases) EXPECT_EQ(General(each.value), each.text);
}

TEST(GeneralForm, Integers) {
    EXPECT_EQ(GeneralText(int32_t{0}), L"0");
    EXPECT_EQ(GeneralText(int32_t{-17}), L"-17");
    EXPECT_EQ(GeneralText(std::numeric_limits<int32_t>::max()), L"2147483647");
    EXPECT_EQ(GeneralText(std::numeric_limits<int32_t>::min()), L"-2147483648");
}

TEST(GeneralForm, WhatIsNotANumberIsWrittenAsZero) {
    EXPECT_EQ(General(std::numeric_limits<float>::quiet_NaN()), "0");
    EXPECT_EQ(General(std::numeric_limits<float>::infinity()), "0");
    EXPECT_EQ(General(-std::numeric_limits<double>::infinity()), "0");
    EXPECT_EQ(PrintForm(-std::numeric_limits<float>::infinity()), " 0 ");
    EXPECT_EQ(DoublePrintForm(-std::numeric_limits<double>::quiet_NaN()), " 0 ");
}

// The same form by way of the C library's correctly rounded scientific form.
std::string NaiveGeneral(double value, int digits) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*e", digits - 1, std::fabs(value));
    std::string mantissa = text;
    const size_t mark = mantissa.find('e');
    const int exponent = std::atoi(mantissa.c_str() + mark + 1);
    mantissa.resize(mark);
    if (digits > 1) mantissa.erase(1, 1);
    while (mantissa.size() > 1 && mantissa.back() == '0') mantissa.pop_back();
    const std::string sign = value < 0 ? "-" : "";
    if (mantissa == "0") return "0";
    if (exponent < -4 || exponent >= digits) {
        if (mantissa.size() > 1) mantissa.insert(1, ".");
        std::snprintf(text, sizeof text, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
        return sign + mantissa + text;
    }
    if (exponent < 0) {
        return sign + "0." + std::string(static_cast<size_t>(-exponent - 1), '0') + mantissa;
    }
    const auto before = static_cast<size_t>(exponent) + 1;
    if (mantissa.size() <= before)
        return sign + mantissa + std::string(before - mantissa.size(), '0');
    return sign + mantissa.substr(0, before) + "." + mantissa.substr(before);
}

TEST(GeneralForm, SinglesOfEverySizeAgreeWithTheLongWayRound) {
    std::mt19937 random(20);
    for (int i = 0; i < 100000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<uint32_t>(random()));
        if (!std::isfinite(value)) continue;
        ASSERT_EQ(General(value), NaiveGeneral(static_cast<double>(value), 7)) << i;
    }
}

TEST(GeneralForm, SinglesOfShipSizeAgreeWithTheLongWayRound) {
    std::mt19937 random(21);
    std::uniform_real_distribution<double> power(-6.0, 8.0);
    for (int i = 0; i < 100000; ++i) {
        auto value = static_cast<float>(std::pow(10.0, power(random)));
        if (i % 3 == 0) value = std::round(value * 1000) / 1000;  // as a user types them
        ASSERT_EQ(General(value), NaiveGeneral(static_cast<double>(value), 7)) << i;
    }
}

// Halves in the eighth digit are where a rounding by scaling would go wrong.
TEST(GeneralForm, SinglesHalfWayBetweenTwoTextsAgreeWithTheLongWayRound) {
    for (int i = 0; i < 20000; ++i) {
        const auto value = 1000000.0F + static_cast<float>(i) * 0.0625F;
        ASSERT_EQ(General(value), NaiveGeneral(static_cast<double>(value), 7)) << i;
        ASSERT_EQ(General(value / 8), NaiveGeneral(static_cast<double>(value / 8), 7)) << i;
    }
}

TEST(GeneralForm, SinglesAroundEachPowerOfTenAgreeWithTheLongWayRound) {
    for (int power = -44; power <= 38; ++power) {
        float value = std::strtof(("1e" + std::to_string(power)).c_str(), nullptr);
        for (int i = 0; i < 20; ++i) value = std::nextafter(value, 0.0F);
        for (int i = 0; i < 40; ++i, value = std::nextafter(value, kLargestSingle)) {
            ASSERT_EQ(General(value), NaiveGeneral(static_cast<double>(value), 7)) << power;
        }
    }
}

TEST(GeneralForm, DoublesOfEverySizeAgreeWithTheLongWayRound) {
    std::mt19937_64 random(22);
    for (int i = 0; i < 50000; ++i) {
        const auto value = std::bit_cast<double>(static_cast<uint64_t>(random()));
        if (!std::isfinite(value)) continue;
        ASSERT_EQ(General(value), NaiveGeneral(value, 15)) << i;
    }
}

TEST(GeneralForm, NoTextIsLongerThanItsRoom) {
    for (const double value :
         {-1.23456789012345e-308, -0.000123456789012345, -123456789012345.6, -kLargestDouble}) {
        std::array<char, kLongestNumber> text;
        EXPECT_LE(AppendGeneral(text.data(), value) - text.data(), kLongestNumber);
        EXPECT_LE(AppendPrintForm(text.data(), value) - text.data(), kLongestNumber);
    }
}

// ---- The print form ----------------------------------------------------------------------------

TEST(PrintForm, BlankInFrontInsteadOfPlusAndBlankAtTheEnd) {
    EXPECT_EQ(PrintForm(12.5F), " 12.5 ");
    EXPECT_EQ(PrintForm(-12.5F), "-12.5 ");
    EXPECT_EQ(PrintForm(0.0F), " 0 ");
    EXPECT_EQ(PrintForm(-0.0F), " 0 ");
    EXPECT_EQ(PrintForm(1e38F), " 1E+38 ");
    EXPECT_EQ(PrintForm(-1.5e-5F), "-1.5E-05 ");
}

TEST(PrintForm, NoZeroBeforeThePoint) {
    EXPECT_EQ(PrintForm(0.5F), " .5 ");
    EXPECT_EQ(PrintForm(-0.5F), "-.5 ");
    EXPECT_EQ(PrintForm(0.001F), " .001 ");
    EXPECT_EQ(PrintForm(10.05F), " 10.05 ");
    EXPECT_EQ(DoublePrintForm(1.0 / 3.0), " .333333333333333 ");
}

TEST(PrintForm, Integers) {
    EXPECT_EQ(PrintForm(int32_t{7}), " 7 ");
    EXPECT_EQ(PrintForm(int32_t{0}), " 0 ");
    EXPECT_EQ(PrintForm(int32_t{-7}), "-7 ");
    EXPECT_EQ(PrintForm(std::numeric_limits<int32_t>::min()), "-2147483648 ");
}

// ---- Fixed decimals ----------------------------------------------------------------------------

TEST(DecimalText, TableOfForms) {
    struct Case {
        double value;
        int least;
        int most;
        const wchar_t* text;
    };
    const Case cases[] = {
        {1.23456, 1, 4, L"1.2346"},
        {2.5, 1, 4, L"2.5"},
        {3.0, 1, 4, L"3.0"},
        {0.0, 1, 4, L"0.0"},
        {0.00004, 1, 4, L"0.0"},
        {0.00006, 1, 4, L"0.0001"},
        {0.00005, 1, 4, L"0.0001"},
        {9.99996, 1, 4, L"10.0"},
        {99.99, 0, 0, L"100"},
        {0.5, 0, 0, L"1"},
        {1.5, 0, 0, L"2"},
        {2.5, 0, 0, L"3"},
        {0.4, 0, 0, L"0"},
        {-2.5, 0, 0, L"-3"},
        {-0.04, 1, 1, L"0.0"},
        {12.345, 2, 2, L"12.35"},
        {1.005, 2, 2, L"1.01"},
        {100.0, 3, 3, L"100.000"},
        {1e15, 0, 2, L"1000000000000000"},
        {-7.25, 1, 1, L"-7.3"},
        {0.1, 3, 3, L"0.100"},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(DecimalText(each.value, each.least, each.most), each.text) << each.value;
    }
}

// ---- Reading -----------------------------------------------------------------------------------

struct ReadingCase {
    const char* text;
    double value;
};

TEST(LeadingNumber, TableOfTexts) {
    const ReadingCase cases[] = {
        {"0", 0},
        {"12", 12},
        {"-12", -12},
        {"+12", 12},
        {"12.5", 12.5},
        {".5", 0.5},
        {"-.5", -0.5},
        {"5.", 5},
        {"1E3", 1000},
        {"1e3", 1000},
        {"1D3", 1000},
        {"1d3", 1000},
        {"1E+3", 1000},
        {"1E-3", 0.001},
        {"1.5D-05", 1.5e-5},
        {"  42", 42},
        {"\t42", 42},
        {"12 34", 1234},
        {"1\t2 . 5", 12.5},
        {"- 5", -5},
        {"1 E 3", 1000},
        {"1 E + 0 3", 1000},
        {"007", 7},
        {"0.1", 0.1},
        {"123456789012345678901234567890", 123456789012345678901234567890.0},
        {"0.00000000000000000000000000000000000000000001", 1e-44},
        {"1E308", 1e308},
        {"4.94065645841247E-324", 5e-324},
    };
    for (const ReadingCase& each : cases) {
        EXPECT_EQ(LeadingNumber(std::string_view(each.text)), each.value) << each.text;
        const std::wstring wide(each.text, each.text + std::string_view(each.text).size());
        EXPECT_EQ(LeadingNumber(std::wstring_view(wide)), each.value) << each.text;
    }
}

TEST(LeadingNumber, AnythingElseEndsIt) {
    const ReadingCase cases[] = {
        {"12abc", 12},
        {"12,5", 12},
        {"12.5.6", 12.5},
        {"12-5", 12},
        {"1E", 1},
        {"1E+", 1},
        {"1E-x", 1},
        {"1EE5", 1},
        {"1E5.5", 1e5},
        {"12;", 12},
        {"1\n2", 1},
        {"1\r2", 1},
        {"12&", 12},
        {"1E5E5", 1e5},
        {"1\xA0"
         "2",
         1},
        {"0x10", 0},
        {"12 mm", 12},
        {"5/3", 5},
    };
    for (const ReadingCase& each : cases) {
        EXPECT_EQ(LeadingNumber(std::string_view(each.text)), each.value) << each.text;
    }
}

TEST(LeadingNumber, NoNumberGivesZero) {
    for (const char* text : {"", " ", "abc", "-", "+", ".", "-.", "E5", ".E5", "--5", "+-5", ",5",
                             "$5", "inf", "nan", "\xB2"}) {
        EXPECT_EQ(LeadingNumber(std::string_view(text)), 0) << text;
    }
}

TEST(LeadingNumber, BeyondTheRangeIsTheLargestOrNothing) {
    EXPECT_EQ(LeadingNumber("1E309"), kLargestDouble);
    EXPECT_EQ(LeadingNumber("-1E309"), -kLargestDouble);
    EXPECT_EQ(LeadingNumber("1E999999999999"), kLargestDouble);
    EXPECT_EQ(LeadingNumber("1E-999999999999"), 0);
    EXPECT_EQ(LeadingNumber("1E-400"), 0);
    EXPECT_EQ(LeadingNumber("0E999999"), 0);
    EXPECT_EQ(LeadingNumber(std::string(400, '9')), kLargestDouble);
    EXPECT_EQ(LeadingNumber("0." + std::string(5000, '0') + "1E5001"), 1);
}

TEST(LeadingNumber, StopsAtANul) {
    EXPECT_EQ(LeadingNumber(std::string_view("1\0002", 3)), 1);
    EXPECT_EQ(LeadingNumber(std::wstring_view(L"1\0002", 3)), 1);
}

TEST(LeadingNumber, FullWidthAndOtherDigitsAreNotNumbers) {
    EXPECT_EQ(LeadingNumber(std::wstring_view(L"\uFF11")), 0);
    EXPECT_EQ(LeadingNumber(std::wstring_view(L"1\u0131")), 1);
}

// Against the C library, in the form in which a digit more or less can't matter.
TEST(LeadingNumber, RandomTextsAgreeWithTheLibrary) {
    std::mt19937 random(23);
    for (int i = 0; i < 50000; ++i) {
        std::string text = random() % 2 == 0 ? "-" : "";
        const auto digits = 1 + random() % 25;
        const auto point = random() % (digits + 1);
        for (size_t k = 0; k < digits; ++k) {
            if (k == point) text += '.';
            text += static_cast<char>('0' + random() % 10);
        }
        if (random() % 2 == 0) text += "E" + std::to_string(static_cast<int>(random() % 80) - 40);
        const double expected = std::strtod(text.c_str(), nullptr);
        ASSERT_NEAR(LeadingNumber(text), expected, std::fabs(expected) * 1e-15) << text;
    }
}

TEST(LeadingNumber, GeneralFormOfASingleReadsBackAsTheSameText) {
    std::mt19937 random(24);
    for (int i = 0; i < 100000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<uint32_t>(random()));
        if (!std::isfinite(value) || std::fabs(value) < std::numeric_limits<float>::min()) continue;
        const std::string text = General(value);
        const auto again = static_cast<float>(LeadingNumber(text));
        ASSERT_EQ(General(again), text);
    }
}

TEST(LeadingInteger, RoundsToTheNearestAndEvenFromTheMiddle) {
    const std::pair<const char*, int32_t> cases[] = {
        {"7", 7},    {"7.4", 7}, {"7.6", 8}, {"-7.6", -8}, {"0.5", 0},    {"1.5", 2},    {"2.5", 2},
        {"-0.5", 0}, {"", 0},    {"abc", 0}, {" 1 2", 12}, {"1E3", 1000}, {"12abc", 12}, {"-1", -1},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(LeadingInteger(std::string_view(text)), value) << text;
    }
    EXPECT_EQ(LeadingInteger(std::wstring_view(L"1020")), 1020);
}

TEST(LeadingInteger, IsClampedToItsRange) {
    EXPECT_EQ(LeadingInteger("2147483647"), 2147483647);
    EXPECT_EQ(LeadingInteger("2147483648"), 2147483647);
    EXPECT_EQ(LeadingInteger("1E300"), 2147483647);
    EXPECT_EQ(LeadingInteger("-2147483648"), std::numeric_limits<int32_t>::min());
    EXPECT_EQ(LeadingInteger("-9999999999"), std::numeric_limits<int32_t>::min());
}

TEST(ReadsAsNumber, WholeTextIsOneNumber) {
    for (const wchar_t* text : {L"0", L"12", L" 12 ", L"-12.5", L"+.5", L"5.", L"1E5", L"1D-05"}) {
        EXPECT_TRUE(ReadsAsNumber(text)) << Narrow(text);
    }
}

TEST(ReadsAsNumber, OtherTextsAreNotNumbers) {
    for (const wchar_t* text : {L"", L" ", L"abc", L"12abc", L"1 2", L"1\t2", L"-", L".", L"1E",
                                L"E5", L"1,5", L"12.5.6", L"Res #12", L"- 5", L"0x10"}) {
        EXPECT_FALSE(ReadsAsNumber(text)) << Narrow(text);
    }
}

TEST(IsNearZero, ComparesStrictly) {
    EXPECT_TRUE(IsNearZero(0));
    EXPECT_TRUE(IsNearZero(0.0009999));
    EXPECT_TRUE(IsNearZero(-0.0009999));
    EXPECT_FALSE(IsNearZero(0.001));
    EXPECT_FALSE(IsNearZero(-0.001));
    EXPECT_FALSE(IsNearZero(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(IsNearZero(0.05, 0.1));
    EXPECT_FALSE(IsNearZero(0.1, 0.1));
}

// ---- Rows of numbers ---------------------------------------------------------------------------

TEST(ParseValues, FindsTheNumbersOfALine) {
    ValueRow row;
    EXPECT_EQ(ParseValues(" 1 -2.5,3E2;4D-1\t.5 ", row), 5);
    EXPECT_EQ(row.count, 5);
    EXPECT_EQ(row.values(1), 1);
    EXPECT_EQ(row.values(2), -2.5);
    EXPECT_EQ(row.values(3), 300);
    EXPECT_EQ(row.values(4), 0.4);
    EXPECT_EQ(row.values(5), 0.5);
}

TEST(ParseValues, NothingOfAnEarlierLineSurvives) {
    ValueRow row;
    EXPECT_EQ(ParseValues("1 2 3 4 5", row), 5);
    EXPECT_EQ(ParseValues("7", row), 1);
    EXPECT_EQ(row.values(1), 7);
    for (int i = 2; i <= 400; ++i) EXPECT_EQ(row.values(i), 0) << i;
    EXPECT_EQ(ParseValues("", row), 0);
    EXPECT_EQ(row.values(1), 0);
}

TEST(ParseValues, NeverMoreThanFourHundred) {
    ValueRow row;
    for (const int written : {399, 400, 401, 1000}) {
        std::string line;
        for (int i = 1; i <= written; ++i) line += std::to_string(i) + ' ';
        const int expected = std::min(written, 400);
        EXPECT_EQ(ParseValues(line, row), expected);
        EXPECT_EQ(row.values(expected), expected);
    }
}

TEST(ParseValues, LineNeedsNoNulAfterIt) {
    ValueRow row;
    const std::string text = "12 345";
    EXPECT_EQ(ParseValues(std::string_view(text).substr(0, 4), row), 2);
    EXPECT_EQ(row.values(2), 3);
}

}  // namespace
}  // namespace corvane
