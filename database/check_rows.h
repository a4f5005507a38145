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
// A table's label as texts have it: without the dashes around it.
std::wstring TableName(std::string_view label);
// A line's text as findings show it: trimmed, and cut where it is long.
std::wstring ShownText(std::string_view line);

void Value(RowCheck& row, float& value);
void Value(RowCheck& row, int16_t& value);
void Value(RowCheck& row, int32_t& value);
void Value(RowCheck& row, General field);
void Value(RowCheck& row, Magnitude field);
void Value(RowCheck& row, Flag field);
void Value(RowCheck& row, PaddedName field);
void Value(RowCheck& row, PlusMinusFlag field);

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
    return NumbersLeft(row) >= numbers;
}

// Of compartments and holds (database/section_lines.h, database/bulkhead_lines.h).
void OutlineLine(RowCheck& row, Compartment& compartment);
void FillingLevelLine(RowCheck& row, Compartment& compartment);
void NoNodeLine(RowCheck& row);

}  // namespace corvane
