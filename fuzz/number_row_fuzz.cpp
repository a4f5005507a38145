// Any line as a row of numbers, and any text as a leading number.
#include <cmath>
#include <cstdlib>
#include <string>

#include "fuzz/fuzz.h"
#include "text/numbers.h"

namespace {

using namespace corvane;

void Require(bool condition) {
    if (!condition) std::abort();
}

// Whether the digits of a text are a single 1. The singles below a power of ten can lie farther
// apart than texts of 7 digits, so that the single nearest to the power has another text.
bool IsPowerOfTen(std::string_view text) {
    const std::string_view digits = text.substr(0, text.find('E'));
    return digits.find_first_of("23456789") == std::string_view::npos &&
           digits.find('1') == digits.rfind('1');
}

// The text of a single reads back as a single of the same text.
void CheckGeneralForm(double number) {
    if (std::fabs(number) > 3.4e38) return;
    const auto value = static_cast<float>(number);
    char text[kLongestNumber];
    const std::string_view written(text, static_cast<size_t>(AppendGeneral(text, value) - text));
    const double read = LeadingNumber(written);
    Require(std::isfinite(read));
    char again[kLongestNumber];
    const char* end = AppendGeneral(again, static_cast<float>(read));
    // Below the smallest normal single there are fewer digits than the text has.
    if (std::fabs(value) < 1.2e-38F || IsPowerOfTen(written)) return;
    Require(written == std::string_view(again, static_cast<size_t>(end - again)));
}

void CheckTexts(std::string_view bytes) {
    const double number = LeadingNumber(bytes);
    Require(std::isfinite(number));
    Require(LeadingNumber(std::wstring(bytes.begin(), bytes.end())) == number);
    const int32_t integer = LeadingInteger(bytes);
    if (std::fabs(number) < 2e9) Require(std::fabs(number - integer) <= 0.5);
    CheckGeneralForm(number);
    char text[kLongestNumber];
    const char* end = AppendPrintForm(text, number);
    Require(end - text <= kLongestNumber && end[-1] == ' ');
    DecimalText(number, 1, 4);
}

}  // namespace

CORVANE_FUZZ_TARGET(number_row) {
    static ValueRow row;
    // An earlier line's values must not show through.
    row.values.elements.fill(1e300);
    const int count = ParseValues(bytes, row);
    Require(count == row.count && count >= 0 && count <= 400);
    for (int i = 1; i <= count; ++i) {
        Require(std::isfinite(row.values(i)));
        CheckGeneralForm(row.values(i));
    }
    for (int i = count + 1; i <= 400; ++i) Require(row.values(i) == 0);
    CheckTexts(bytes);
}
