// Forms of output: columns for people, CSV (RFC 4180, lines end with a line feed) and JSON.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane {

using TextRow = std::vector<std::wstring>;

// Rows as columns, two blanks between them; `alignsRight` has a value for each column. The last
// column is not filled up.
std::wstring AlignedText(const std::vector<TextRow>& rows, const std::vector<bool>& alignsRight);

// A row as a line. A field with a comma, a quote, a line end or a blank at an edge is quoted.
std::wstring CsvLine(const TextRow& row);

// A text as a JSON string, with its quotes; control characters are escaped.
std::wstring JsonText(std::wstring_view text);
// A number that JSON can have: 0 for what is not a number.
std::wstring JsonNumber(float value);

// What controls a terminal becomes "?".
std::wstring Printable(std::wstring_view text);

}  // namespace corvane
