// number_rows_tool FILE: writes every row of numbers of a file to standard output, each number in
// general form, a blank between them. benchmarks/compare_numbers measures it.
#include <array>
#include <cstdio>

#include "database/rows.h"
#include "platform/system.h"

namespace {

using namespace corvane;

// Room for the longest row.
using RowText = std::array<char, 400 * (kLongestNumber + 1)>;

size_t RowInGeneralForm(const ValueRow& row, RowText& text) {
    char* to = text.data();
    for (int i = 1; i <= row.count; ++i) {
        if (i > 1) *to++ = ' ';
        to = AppendGeneral(to, ClampToSingle(row.values(i)));
    }
    *to++ = '\n';
    return static_cast<size_t>(to - text.data());
}

}  // namespace

int main(int count, char** arguments) {
    TextReader reader;
    if (count != 2 || !OpenText(reader, system::WideFromAnsi(arguments[1]))) {
        std::fputs("usage: number_rows_tool FILE\n", stderr);
        return 1;
    }
    static ValueRow row;
    static RowText text;
    std::string_view line;
    while (ReadLine(reader, line)) {
        ParseValues(line, row);
        std::fwrite(text.data(), 1, RowInGeneralForm(row, text), stdout);
    }
    return std::fflush(stdout) == 0 ? 0 : 1;
}
