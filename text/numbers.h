// Numbers and their texts. Everything here is independent of the user's regional settings: the
// decimal symbol is "." and digits are not grouped.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/array.h"

namespace corvane {

// Room for any number that AppendGeneral or AppendPrintForm writes.
inline constexpr int kLongestNumber = 32;

// The general form: the shortest text of at most 7 significant digits (15 for a double); with an
// exponent (1E+38, 1.5E-05: sign and at least two digits) where the decimal exponent is below -4
// or not below the number of digits. Both write at `to` and return the end of the text; at most
// kLongestNumber characters. A value that is not a number or infinite is written as "0": the files
// have no text for it.
char* AppendGeneral(char* to, float value);
char* AppendGeneral(char* to, double value);
char* AppendGeneral(char* to, int32_t value);

// The print form of numeric output: the general form without the zero before the point, with a
// blank in front instead of a plus sign, and a blank at the end.
char* AppendPrintForm(char* to, float value);
char* AppendPrintForm(char* to, double value);
char* AppendPrintForm(char* to, int32_t value);

std::wstring GeneralText(float value);
std::wstring GeneralText(double value);
std::wstring GeneralText(int32_t value);
std::string PrintForm(float value);
std::string PrintForm(int32_t value);

// With exactly `least` to `most` digits after the point, at least one before it, rounded half away
// from zero: DecimalText(1.23456, 1, 4) is "1.2346", the form "#0.0###".
std::wstring DecimalText(double value, int least, int most);

// The number at the start of a text: blanks and tabs are ignored anywhere in it; sign, digits, one
// ".", an exponent with E or D; anything else ends it. 0 when there is no number. A number beyond
// the range of double gives the largest one.
double LeadingNumber(std::string_view text);
double LeadingNumber(std::wstring_view text);
// The same, as an integer: rounded to the nearest, clamped to the range of 32 bits.
int32_t LeadingInteger(std::string_view text);
int32_t LeadingInteger(std::wstring_view text);

// Whether the whole text, blanks at both ends aside, is one number.
bool ReadsAsNumber(std::wstring_view text);

bool IsNearZero(double x, double eps = 0.001);

// ---- Rows of numbers ---------------------------------------------------------------------------

// The numbers of a line. The record is meant to be used again for line after line: its scratch text
// keeps its memory.
struct ValueRow {
    Array<double, 1, 400> values;
    int count = 0;
    std::string scratch;
};

// Reads up to 400 numbers of a line (ANSI) through the utility library, and returns how many there
// are. All values after the count are 0, so none of an earlier line survives.
int ParseValues(std::string_view line, ValueRow& row);

}  // namespace corvane
