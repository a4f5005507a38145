// The rows of a block as the layout has them: code letters, held as data apart from the code under
// test. S: single, I: integer of 16 bits, L: of 32 bits, F: real as text, B: flag, T: a padded name
// as the first column of a row, elsewhere a real as text.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace corvane::test {

// The values of a record's fields, in the order of the columns; without the fixed ones and a name.
using Columns = std::vector<double>;

template <class Record>
struct CodedLine {
    std::string codes;  // or, with no `columns`, the line itself
    std::function<Columns(const Record&)> columns;
    std::map<size_t, std::string> fixed;  // values that the test needs, by column from 1
    std::string end;                      // what follows the last column
    size_t abutsFrom;                     // columns from this one on have no tab before them

    CodedLine(std::string letters, std::function<Columns(const Record&)> fields,
              std::map<size_t, std::string> given = std::map<size_t, std::string>(),
              std::string lineEnd = std::string(), size_t abutting = SIZE_MAX)
        : codes(std::move(letters)),
          columns(std::move(fields)),
          fixed(std::move(given)),
          end(std::move(lineEnd)),
          abutsFrom(abutting) {}
};

enum class Filling {
    kDistinct,  // every column has another value
    kTooLarge   // integers have a value that their type cannot hold
};

// What a reader is given, and what a writer makes of that.
struct CodedText {
    std::string given;
    std::string expected;
    std::vector<Columns> values;  // by line
};

inline std::string PadName(std::string name) {
    name.resize(40, ' ');
    return name;
}

inline std::string PrintInteger(int64_t value) {
    return (value < 0 ? "" : " ") + std::to_string(value) + ' ';
}

// One column: text that is read, text that is written.
inline std::pair<std::string, std::string> ColumnOf(char code, int number, Filling filling) {
    const bool tooLarge = filling == Filling::kTooLarge;
    const std::string whole = std::to_string(number);
    switch (code) {
        case 'S':
            return {' ' + whole + ".5 ", ' ' + whole + ".5 "};
        case 'I':
            if (tooLarge) return {" 100000 ", " 32767 "};
            return {PrintInteger(10000 + number), PrintInteger(10000 + number)};
        case 'L':
            if (tooLarge) return {" 3000000000 ", " 2147483647 "};
            return {PrintInteger(1000000 + number), PrintInteger(1000000 + number)};
        case 'B':
            return {tooLarge ? " 7 " : "-1 ", "-1 "};
        default:
            return {whole + ".25", whole + ".25"};
    }
}

template <class Record>
CodedText TextOf(const std::vector<CodedLine<Record>>& lines, Filling filling) {
    CodedText text;
    int number = 0;
    for (const CodedLine<Record>& line : lines) {
        Columns& values = text.values.emplace_back();
        if (!line.columns) {
            text.given += line.codes + "\r\n";
            text.expected += line.codes + "\r\n";
            continue;
        }
        for (size_t i = 1; i <= line.codes.size(); ++i) {
            const char code = line.codes[i - 1];
            std::pair<std::string, std::string> column = ColumnOf(code, ++number, filling);
            if (const auto fixed = line.fixed.find(i); fixed != line.fixed.end()) {
                column = {fixed->second, fixed->second};
            } else if (code == 'T' && i == 1) {
                column.first = column.second = PadName("Name " + std::to_string(number));
            } else {
                values.push_back(std::stod(column.first));
            }
            const char* tab = i == 1 || i >= line.abutsFrom ? "" : "\t";
            text.given += tab + column.first;
            text.expected += tab + column.second;
        }
        text.given += line.end + "\r\n";
        text.expected += line.end + "\r\n";
    }
    return text;
}

// Lines that are neither comments nor labels.
inline std::string DataLines(const std::string& text) {
    std::string data;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = text.find('\n', begin) + 1;
        const std::string line = text.substr(begin, end - begin);
        if (line.front() != '*' && !line.starts_with("------")) data += line;
        begin = end;
    }
    return data;
}

}  // namespace corvane::test
