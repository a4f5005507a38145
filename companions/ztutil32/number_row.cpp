// Reading the numbers of a line. All rows of a database pass here, so the usual number, of at most
// 19 digits and a small exponent, is converted without a library call.
//
//   number = [sign] (digits ["." [digits]] | "." digits) [("E" | "D") [sign] digits]
//
// The letter may be small. A word that is not wholly a number, such as "12abc", "0x10", "nan",
// "1e", "1.2.3" or a lone sign, is skipped. What is too large becomes the largest double.
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "platform/ztutil32.h"

namespace {

// A number as it is in the text: mantissa times ten to the exponent.
struct Decimal {
    bool isNegative = false;
    bool isExact = true;    // the mantissa holds all digits
    uint64_t mantissa = 0;  // the first 19 digits that count
    int digits = 0;         // how many of them
    int64_t exponent = 0;
};

// More digits than these do not fit into the mantissa.
constexpr int kMostDigits = 19;
// An exponent of the text beyond this is cut: the number is 0 or too large all the same.
constexpr int64_t kMostExponent = 1000000000;

constexpr uint64_t kLargestExactInteger = uint64_t{1} << 53;
constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

bool IsSeparator(char character) {
    return character == ' ' || character == '\t' || character == ',' || character == ';' ||
           character == '\r' || character == '\n';
}

bool IsWordEnd(char character) {
    return character == '\0' || IsSeparator(character);
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

void AddDigit(Decimal& number, char digit, bool isFraction) {
    if (number.digits < kMostDigits) {
        number.mantissa = number.mantissa * 10 + static_cast<uint64_t>(digit - '0');
        if (number.mantissa != 0) ++number.digits;
        if (isFraction) --number.exponent;
    } else {
        number.isExact = number.isExact && digit == '0';
        if (!isFraction) ++number.exponent;
    }
}

// Reads sign, digits and point; false when there is no digit.
bool ReadMantissa(const char*& text, Decimal& number) {
    number.isNegative = *text == '-';
    if (*text == '-' || *text == '+') ++text;
    const char* const first = text;
    for (; IsDigit(*text); ++text) AddDigit(number, *text, false);
    auto count = text - first;
    if (*text == '.') {
        const char* const fraction = ++text;
        for (; IsDigit(*text); ++text) AddDigit(number, *text, true);
        count += text - fraction;
    }
    return count > 0;
}

// Reads the exponent, when there is one; false when its letter has no digits.
bool ReadExponent(const char*& text, Decimal& number) {
    if (*text != 'E' && *text != 'e' && *text != 'D' && *text != 'd') return true;
    ++text;
    const bool isNegative = *text == '-';
    if (*text == '-' || *text == '+') ++text;
    if (!IsDigit(*text)) return false;
    int64_t exponent = 0;
    for (; IsDigit(*text); ++text) {
        if (exponent < kMostExponent) exponent = exponent * 10 + (*text - '0');
    }
    number.exponent += isNegative ? -exponent : exponent;
    return true;
}

// The general case, by the standard library. A mantissa that does not hold all digits is a little
// too small; raised by half of its last place it is on the right side of any tie.
double ConvertSlowly(const Decimal& number) {
    std::string text = std::to_string(number.mantissa);
    if (!number.isExact) text += '5';
    text += 'e' + std::to_string(number.exponent - (number.isExact ? 0 : 1));
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc() && std::isfinite(value)) return value;
    // Out of range: too large, or too small.
    return number.exponent > 0 ? std::numeric_limits<double>::max() : 0.0;
}

double Magnitude(const Decimal& number) {
    if (number.mantissa == 0) return 0;
    const int64_t most = kPowersOfTen.size() - 1;
    const int64_t exponent = number.exponent;
    if (number.isExact && number.mantissa <= kLargestExactInteger && exponent >= -most &&
        exponent <= most) {
        // Mantissa and power are exact doubles, so that their product is rounded but once.
        const auto mantissa = static_cast<double>(number.mantissa);
        return exponent < 0 ? mantissa / kPowersOfTen[static_cast<size_t>(-exponent)]
                            : mantissa * kPowersOfTen[static_cast<size_t>(exponent)];
    }
    return ConvertSlowly(number);
}

// Reads one word; true when it is a number. `text` is left at the word's end.
bool ReadNumber(const char*& text, double& value) {
    Decimal number;
    if (ReadMantissa(text, number) && ReadExponent(text, number) && IsWordEnd(*text)) {
        value = number.isNegative ? -Magnitude(number) : Magnitude(number);
        return true;
    }
    while (!IsWordEnd(*text)) ++text;
    return false;
}

}  // namespace

CORVANE_EXPORT int32_t CORVANE_STDCALL GetValsC(const char* line, double* values, int32_t most) {
    if (line == nullptr || values == nullptr) return 0;
    int32_t count = 0;
    while (count < most) {
        while (IsSeparator(*line)) ++line;
        if (*line == '\0') break;
        if (ReadNumber(line, values[count])) ++count;
    }
    return count;
}
