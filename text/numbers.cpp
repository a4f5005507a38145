#include "text/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "platform/ztutil32.h"

namespace corvane {
namespace {

constexpr int kSingleDigits = 7;
constexpr int kDoubleDigits = 15;

// A number as significant decimal digits: 0.d1 d2 d3 ... times 10 to the power exponent + 1, so
// that `exponent` is the power of the first digit. No trailing zeros; zero has no digits.
struct DecimalDigits {
    bool negative = false;
    std::array<char, 24> digits;
    int count = 0;
    int exponent = 0;
};

void DropTrailingZeros(DecimalDigits& number) {
    while (number.count > 0 && number.digits[number.count - 1] == '0') --number.count;
    if (number.count == 0) {
        number.exponent = 0;
        number.negative = false;
    }
}

// The value correctly rounded to `digits` significant digits.
DecimalDigits ExactDigits(double value, int digits) {
    DecimalDigits number;
    if (!std::isfinite(value) || value == 0) return number;
    number.negative = value < 0;
    std::array<char, 40> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                   std::chars_format::scientific, digits - 1)
                         .ptr;
    const char* mark = std::find(text.data(), end, 'e');
    for (const char* p = text.data(); p != mark; ++p) {
        if (*p != '.') number.digits[number.count++] = *p;
    }
    const char* exponent = mark[1] == '+' ? mark + 2 : mark + 1;
    std::from_chars(exponent, end, number.exponent);
    DropTrailingZeros(number);
    return number;
}

// Powers of ten that a double holds exactly.
constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// As ExactDigits for a single and 7 digits, and much faster for the values that ship models hold.
// In double precision the scaled value is off by less than 1e-8; where that could turn the
// rounding the exact way decides.
DecimalDigits SingleDigits(float value) {
    const double magnitude = std::fabs(static_cast<double>(value));
    if (!(magnitude >= 1e-5 && magnitude < 1e7)) return ExactDigits(value, kSingleDigits);
    int exponent = 6;
    while (magnitude < (exponent >= 0 ? kPowersOfTen[exponent] : 1 / kPowersOfTen[-exponent])) {
        --exponent;
    }
    const double scaled = magnitude * kPowersOfTen[kSingleDigits - 1 - exponent];
    auto whole = static_cast<uint32_t>(scaled);
    const double rest = scaled - whole;
    if (std::fabs(rest - 0.5) < 1e-6 || scaled < 1e6 || scaled >= 9999999) {
        return ExactDigits(value, kSingleDigits);
    }
    if (rest > 0.5) ++whole;
    DecimalDigits number;
    number.negative = value < 0;
    number.exponent = exponent;
    number.count = kSingleDigits;
    for (int i = kSingleDigits - 1; i >= 0; --i, whole /= 10) {
        number.digits[i] = static_cast<char>('0' + whole % 10);
    }
    DropTrailingZeros(number);
    return number;
}

char* Append(char* to, std::string_view text) {
    std::memcpy(to, text.data(), text.size());
    return to + text.size();
}

char* AppendExponentForm(char* to, const DecimalDigits& number) {
    *to++ = number.digits[0];
    if (number.count > 1) {
        *to++ = '.';
        to = Append(to, {&number.digits[1], static_cast<size_t>(number.count - 1)});
    }
    *to++ = 'E';
    *to++ = number.exponent < 0 ? '-' : '+';
    const int power = std::abs(number.exponent);
    if (power < 10) *to++ = '0';
    return std::to_chars(to, to + 4, power).ptr;
}

// With the point in its place. The zero in front of the point is the general form's, not the print
// form's.
char* AppendPointForm(char* to, const DecimalDigits& number, bool zeroBeforePoint) {
    const int before = number.exponent + 1;  // digits before the point
    if (before <= 0) {
        if (zeroBeforePoint) *to++ = '0';
        *to++ = '.';
        for (int i = before; i < 0; ++i) *to++ = '0';
        return Append(to, {number.digits.data(), static_cast<size_t>(number.count)});
    }
    for (int i = 0; i < before; ++i) *to++ = i < number.count ? number.digits[i] : '0';
    if (number.count > before) {
        *to++ = '.';
        to = Append(to, {&number.digits[before], static_cast<size_t>(number.count - before)});
    }
    return to;
}

char* AppendMagnitude(char* to, const DecimalDigits& number, int digits, bool zeroBeforePoint) {
    if (number.count == 0) {
        *to++ = '0';
        return to;
    }
    if (number.exponent < -4 || number.exponent >= digits) return AppendExponentForm(to, number);
    return AppendPointForm(to, number, zeroBeforePoint);
}

char* AppendGeneralDigits(char* to, const DecimalDigits& number, int digits) {
    if (number.negative) *to++ = '-';
    return AppendMagnitude(to, number, digits, true);
}

char* AppendPrintDigits(char* to, const DecimalDigits& number, int digits) {
    *to++ = number.negative ? '-' : ' ';
    to = AppendMagnitude(to, number, digits, false);
    *to++ = ' ';
    return to;
}

template <class Number>
std::wstring WideGeneral(Number value) {
    std::array<char, kLongestNumber> text;
    return std::wstring(text.data(), AppendGeneral(text.data(), value));
}

// Rounds to `places` digits after the point, half away from zero.
void RoundToPlaces(DecimalDigits& number, int places) {
    const int kept = number.exponent + 1 + places;
    if (kept >= number.count) return;
    const bool up = kept >= 0 && number.digits[kept] >= '5';
    number.count = std::max(kept, 0);
    if (up) {
        int i = number.count - 1;
        while (i >= 0 && number.digits[i] == '9') --i;
        if (i >= 0) {
            ++number.digits[i];
            number.count = i + 1;
        } else {
            number.digits[0] = '1';
            number.count = 1;
            ++number.exponent;
        }
    }
    DropTrailingZeros(number);
}

// ---- Reading -----------------------------------------------------------------------------------

// The digits, point and exponent of a text that is being read.
struct NumberScan {
    bool negative = false;
    uint64_t mantissa = 0;  // the first 19 significant digits
    int dropped = 0;        // digits before the point that the mantissa has no room for
    int afterPoint = 0;     // digits of the mantissa after the point
    bool anyDigit = false;
    int exponent = 0;  // written after E or D, clamped to +-99999
};

double ValueOf(const NumberScan& scan) {
    const int power = scan.exponent + scan.dropped - scan.afterPoint;
    double value = 0;
    if (scan.mantissa < (1ull << 53) && std::abs(power) <= 22) {
        // Both factors are exact, so the result is the correctly rounded one.
        value = static_cast<double>(scan.mantissa);
        value = power < 0 ? value / kPowersOfTen[-power] : value * kPowersOfTen[power];
    } else if (scan.mantissa != 0) {
        std::array<char, 40> text;
        char* end = std::to_chars(text.data(), text.data() + 24, scan.mantissa).ptr;
        *end++ = 'e';
        end = std::to_chars(end, text.data() + text.size(), power).ptr;
        if (std::from_chars(text.data(), end, value).ec == std::errc::result_out_of_range) {
            value = power > 0 ? std::numeric_limits<double>::max() : 0;
        }
    }
    return scan.negative ? -value : value;
}

void TakeDigit(NumberScan& scan, int digit, bool behindPoint) {
    scan.anyDigit = true;
    if (scan.mantissa < 1000000000000000000ull) {
        scan.mantissa = scan.mantissa * 10 + static_cast<uint64_t>(digit);
        if (behindPoint) ++scan.afterPoint;
    } else if (!behindPoint) {
        ++scan.dropped;
    }
}

// Where the text continues at `at`, blanks and tabs skipped.
template <class Text>
size_t PassBlanks(Text text, size_t at) {
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) ++at;
    return at;
}

template <class Text>
bool IsDigitAt(Text text, size_t at) {
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

// Reads "E+05" at `at`; an E without digits belongs to no number.
template <class Text>
size_t ScanExponent(Text text, size_t at, NumberScan& scan) {
    if (at >= text.size() || !scan.anyDigit) return at;
    const auto letter = text[at];
    if (letter != 'E' && letter != 'e' && letter != 'D' && letter != 'd') return at;
    size_t next = PassBlanks(text, at + 1);
    bool negative = false;
    if (next < text.size() && (text[next] == '+' || text[next] == '-')) {
        negative = text[next] == '-';
        next = PassBlanks(text, next + 1);
    }
    if (!IsDigitAt(text, next)) return at;
    for (; IsDigitAt(text, next); next = PassBlanks(text, next + 1)) {
        scan.exponent = std::min(scan.exponent * 10 + static_cast<int>(text[next] - '0'), 99999);
    }
    if (negative) scan.exponent = -scan.exponent;
    return next;
}

// Reads the number at the start of the text and returns where the text continues.
template <class Text>
size_t ScanNumber(Text text, NumberScan& scan) {
    size_t at = PassBlanks(text, 0);
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
        scan.negative = text[at] == '-';
        at = PassBlanks(text, at + 1);
    }
    bool behindPoint = false;
    for (;; at = PassBlanks(text, at + 1)) {
        if (IsDigitAt(text, at)) {
            TakeDigit(scan, static_cast<int>(text[at] - '0'), behindPoint);
        } else if (at < text.size() && text[at] == '.' && !behindPoint) {
            behindPoint = true;
        } else {
            break;
        }
    }
    return ScanExponent(text, at, scan);
}

template <class Text>
double LeadingNumberOf(Text text) {
    NumberScan scan;
    ScanNumber(text, scan);
    return ValueOf(scan);
}

int32_t NearestInteger(double value) {
    constexpr double kLeast = std::numeric_limits<int32_t>::min();
    constexpr double kMost = std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(std::clamp(std::nearbyint(value), kLeast, kMost));
}

}  // namespace

char* AppendGeneral(char* to, float value) {
    return AppendGeneralDigits(to, SingleDigits(value), kSingleDigits);
}

char* AppendGeneral(char* to, double value) {
    return AppendGeneralDigits(to, ExactDigits(value, kDoubleDigits), kDoubleDigits);
}

char* AppendGeneral(char* to, int32_t value) {
    return std::to_chars(to, to + kLongestNumber, value).ptr;
}

char* AppendPrintForm(char* to, float value) {
    return AppendPrintDigits(to, SingleDigits(value), kSingleDigits);
}

char* AppendPrintForm(char* to, double value) {
    return AppendPrintDigits(to, ExactDigits(value, kDoubleDigits), kDoubleDigits);
}

char* AppendPrintForm(char* to, int32_t value) {
    if (value >= 0) *to++ = ' ';
    to = AppendGeneral(to, value);
    *to++ = ' ';
    return to;
}

std::wstring GeneralText(float value) {
    return WideGeneral(value);
}
std::wstring GeneralText(double value) {
    return WideGeneral(value);
}
std::wstring GeneralText(int32_t value) {
    return WideGeneral(value);
}

std::string PrintForm(float value) {
    std::array<char, kLongestNumber> text;
    return std::string(text.data(), AppendPrintForm(text.data(), value));
}

std::string PrintForm(int32_t value) {
    std::array<char, kLongestNumber> text;
    return std::string(text.data(), AppendPrintForm(text.data(), value));
}

std::wstring DecimalText(double value, int least, int most) {
    DecimalDigits number = ExactDigits(value, kDoubleDigits);
    RoundToPlaces(number, most);
    const auto digitAt = [&number](int power) {
        const int place = number.exponent - power;
        return place >= 0 && place < number.count ? static_cast<wchar_t>(number.digits[place])
                                                  : L'0';
    };
    std::wstring text(number.negative ? L"-" : L"");
    for (int power = std::max(number.exponent, 0); power >= 0; --power) text += digitAt(power);
    const int written = std::max(number.count - 1 - number.exponent, least);
    if (written > 0) text += L'.';
    for (int place = 1; place <= written; ++place) text += digitAt(-place);
    return text;
}

double LeadingNumber(std::string_view text) {
    return LeadingNumberOf(text);
}
double LeadingNumber(std::wstring_view text) {
    return LeadingNumberOf(text);
}
int32_t LeadingInteger(std::string_view text) {
    return NearestInteger(LeadingNumber(text));
}
int32_t LeadingInteger(std::wstring_view text) {
    return NearestInteger(LeadingNumber(text));
}

bool ReadsAsNumber(std::wstring_view text) {
    const size_t begin = text.find_first_not_of(L' ');
    if (begin == std::wstring_view::npos) return false;
    text = text.substr(begin, text.find_last_not_of(L' ') - begin + 1);
    if (text.find_first_of(L" \t") != std::wstring_view::npos) return false;
    NumberScan scan;
    return ScanNumber(text, scan) == text.size() && scan.anyDigit;
}

bool IsNearZero(double x, double eps) {
    return std::fabs(x) < eps;
}

int ParseValues(std::string_view line, ValueRow& row) {
    row.scratch = line;
    const int32_t found =
        GetValsC(row.scratch.c_str(), row.values.elements.data(), row.values.kCount);
    row.count = std::clamp(found, 0, row.values.kCount);
    std::fill(row.values.elements.begin() + row.count, row.values.elements.end(), 0.0);
    return row.count;
}

}  // namespace corvane
