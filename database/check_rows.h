// A third kind of row, beside the writer's and the reader's (database/rows.h): the declarations of
// tables run over it as over a reader, and what a line lacks, has too many, or has in a wrong form
// becomes a finding. It passes over the same lines, and over the same words of a line, as a reader.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "database/check.h"
#include "database/rows.h"
#include "database/section_lines.h"
#include "text/usual_numbers.h"

namespace corvane {

// The lines of a file, counted.
struct CountedLines {
    TextReader& reader;
    int64_t number = 0;  // of the line that was read last, from 1
    int64_t begin = 0;   // where it begins, in bytes
};
bool ReadLine(CountedLines& lines, std::string_view& line);
// The line that was read last is the next one again.
void StepBack(CountedLines& lines);

// Lines of a head that are not known are one finding.
struct UnknownLines {
    int64_t first = 0;
    int64_t count = 0;
    std::wstring text;  // of the first one
};
void NoteUnknown(UnknownLines& unknown, const CountedLines& lines, std::string_view line);

// The findings of one block, until its end.
struct BlockFindings {
    Finding model;  // with the fields that say which model it is
    std::vector<Finding> list;
    int64_t lastLine = 0;
    std::array<int64_t, static_cast<size_t>(CheckRule::kCount)> counts{};  // all, listed or not
};
void Add(BlockFindings& found, CheckRule rule, int64_t line, std::vector<std::wstring> values = {});
// Sorted by lines, with those of kFurther.
std::vector<Finding> SortedFindings(BlockFindings& found);
int64_t CountOf(const BlockFindings& found);

struct RowCheck {
    enum class Place { kRow, kHeader, kEnd };

    CountedLines& lines;
    const StructuralLines& structure;
    BlockFindings& found;
    std::string firstTable;            // the label that ends a head whatever is missing
    std::wstring table = L"the head";  // for the texts of findings
    bool skipBlankLines = false;
    bool passesLineEnds = false;
    Place place = Place::kEnd;
    std::string_view line;  // what is unread of it
    UsualNumbers numbers;   // the next ones of it, as far as they have been found
    int read = 0;           // numbers of the line that were asked for and are there
    int missing = 0;        // that are not there
    bool isCut = false;     // the item that the table ends in has been reported
    // Lines of a head are looked for: from there on the block is that of a model whose marker is
    // damaged, and is passed over.
    bool watchesHeads = true;
    bool isForeign = false;
    // The text line that was read last: a name, an identifier.
    int64_t textLine = 0;
    int64_t textBegin = 0;  // in bytes
    int64_t textEnd = 0;

    RowCheck(CountedLines& file, const StructuralLines& texts, BlockFindings& findings);
};

inline bool AtRow(const RowCheck& row) {
    return row.place == RowCheck::Place::kRow;
}
// The number of the line that is loaded.
inline int64_t LineOf(const RowCheck& row) {
    return row.lines.number;
}
void LoadLine(RowCheck& row);
int NumbersLeft(const RowCheck& row);
// Whether the line has so many more numbers.
inline bool HasNumbers(const RowCheck& row, int count) {
    return std::popcount(row.numbers.begins) >= count || NumbersLeft(row) >= count;
}
// A table's label as texts have it: without the dashes around it.
std::wstring TableName(std::string_view label);
// A line's text as findings show it: trimmed, and cut where it is long.
std::wstring ShownText(std::string_view line);

// Finds the next numbers of the usual form; false where the line goes on in another way.
bool FindNumbers(RowCheck& row);

// The text of the next number, if it has the usual form; otherwise nothing is read.
inline bool ReadUsualNumber(RowCheck& row, std::string_view& text) {
    if (row.numbers.begins == 0 && !FindNumbers(row)) return false;
    text = TakeNumber(row.numbers, row.line);
    ++row.read;
    return true;
}

// Numbers of any other form, or none.
void ReadUnusual(RowCheck& row);
void ReadUnusual(RowCheck& row, int16_t& value);
void ReadUnusual(RowCheck& row, int32_t& value);
// What a text of the usual form says.
void JudgeReal(RowCheck& row, std::string_view text);
void ReadText(RowCheck& row, std::string_view text, int16_t& value);
void ReadText(RowCheck& row, std::string_view text, int32_t& value);

// Only what has an exponent, or very many digits, can be too large for a single.
inline constexpr size_t kMostDigits = 38;

inline void ReadReal(RowCheck& row) {
    std::string_view text;
    if (!ReadUsualNumber(row, text)) return ReadUnusual(row);
    if (text.size() > kMostDigits) JudgeReal(row, text);
}

template <class Integer>
void ReadInteger(RowCheck& row, Integer& value) {
    std::string_view text;
    if (!ReadUsualNumber(row, text)) return ReadUnusual(row, value);
    if (text.size() > 1) return ReadText(row, text, value);
    value = static_cast<Integer>(text.front() - '0');
}

inline void Value(RowCheck& row, float&) {
    ReadReal(row);
}
inline void Value(RowCheck& row, int16_t& value) {
    ReadInteger(row, value);
}
inline void Value(RowCheck& row, int32_t& value) {
    ReadInteger(row, value);
}
inline void Value(RowCheck& row, General) {
    ReadReal(row);
}
inline void Value(RowCheck& row, Magnitude) {
    ReadReal(row);
}
inline void Value(RowCheck& row, Flag field) {
    ReadInteger(row, field.value);
}
inline void Value(RowCheck& row, PlusMinusFlag field) {
    ReadInteger(row, field.value);
}
void Value(RowCheck& row, PaddedName field);

void EndLine(RowCheck& row);
inline void ClosingTab(RowCheck&) {}
void ClosingRule(RowCheck& row);
inline void Abut(RowCheck&) {}
inline void CommentRule(RowCheck&) {}
void EmptyLine(RowCheck& row);
void TextLine(RowCheck& row, std::string& text);
void HeadTextLine(RowCheck& row, std::string& text);
inline void GoOnInNextLine(RowCheck&) {}
inline bool HasFields(const RowCheck& row, bool, int numbers) {
    return HasNumbers(row, numbers);
}

// Of compartments and holds (database/section_lines.h, database/bulkhead_lines.h).
void OutlineLine(RowCheck& row, Compartment& compartment);
void FillingLevelLine(RowCheck& row, Compartment& compartment);
void NoNodeLine(RowCheck& row);

}  // namespace corvane
