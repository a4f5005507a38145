// The rows of a model block, for the writer and the reader alike. The lines of a table are declared
// once, as a procedure over a Row, which is a RowWriter or a RowReader:
//
//     template <class Row>
//     void ItemLines(Row& row, Plate& plate) {
//         Values(row, General{plate.end_m}, plate.thickness_mm, plate.material);
//         EndLine(row);
//     }
//
// A writer writes the fields, a tab between them; a reader reads them, and a field that its line
// does not have keeps its value. So every procedure here exists twice, for a RowWriter and for a
// RowReader, and a table is declared once. No failure is reported here: the file's `error` keeps
// it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "database/scanning.h"
#include "files/text_file.h"
#include "text/array.h"
#include "text/numbers.h"

namespace corvane {

// Rows of a table, items of a panel, nodes of a compartment: counted with 16 bits.
inline constexpr int kMostItems = INT16_MAX;
int16_t ClampToCount(size_t count);
// A number of a file as an integer: rounded to the nearest, clamped to the range of the type.
int16_t ClampToInt16(double value);
int32_t ClampToInt32(double value);
// Clamped to the range of singles.
float ClampToSingle(double value);

// ---- Fields ------------------------------------------------------------------------------------
// How a field is written (text/numbers.h). A float, int16_t or int32_t by itself is in print form.

struct General {  // in general form, as text
    float& value;
};
struct Magnitude {  // in general form, without its sign
    float& value;
};
struct Flag {  // -1 true, 0 false
    int16_t& value;
};
struct PaddedName {  // padded with blanks to 40 characters, cut when it is longer
    std::wstring& text;
};
inline constexpr size_t kNameWidth = 40;
struct PlusMinusFlag {  // 1 true, -1 false
    int16_t& value;
};

// ---- Writing -----------------------------------------------------------------------------------

// One block that is being written. A row collects in `text` and goes to the writer at its end, so
// that a field costs no call of the writer.
struct RowWriter {
    TextWriter& writer;
    StructuralLines lines = FetchStructuralLines();
    bool separate = false;        // a tab comes before the next field
    size_t used = 0;              // of `text`
    std::array<char, 4096> text;  // a longer row goes to the writer in pieces

    explicit RowWriter(TextWriter& file) : writer(file) {}
};

void Value(RowWriter& row, float value);
void Value(RowWriter& row, int16_t value);
void Value(RowWriter& row, int32_t value);
void Value(RowWriter& row, General field);
void Value(RowWriter& row, Magnitude field);
void Value(RowWriter& row, Flag field);
void Value(RowWriter& row, PaddedName field);
void Value(RowWriter& row, PlusMinusFlag field);

// The line's end, CR LF. The next field is the first of its line.
void EndLine(RowWriter& row);
// A tab at the end of a line.
void ClosingTab(RowWriter& row);
// A comment rule at the end of a line.
void ClosingRule(RowWriter& row);
// Nothing between the field before and the next one.
void Abut(RowWriter& row);
// Whole lines; between rows only.
void CommentRule(RowWriter& row);
void EmptyLine(RowWriter& row);
// A whole line of text in a table. Characters that would make another kind of line of it are
// replaced: control characters by blanks, the first dash of a header line by "_"; a blank comes
// before a comment and before the model marker. At most 1,000 characters are written. A
// std::wstring is converted to the ANSI code page; a std::string is ANSI already.
void TextLine(RowWriter& row, const std::wstring& text);
// A text of the block's head, which is data even if it begins with dashes; only the label of the
// first table is not.
void HeadTextLine(RowWriter& row, const std::wstring& text);
void HeadTextLine(RowWriter& row, const std::string& text);
// The line's end in the middle of an item, for numbers that a reader reads over line ends.
inline void GoOnInNextLine(RowWriter& row) {
    EndLine(row);
}
// Whether fields that not every row has are there.
inline bool HasFields(RowWriter&, bool present, int) {
    return present;
}

// ---- Reading -----------------------------------------------------------------------------------

// The lines of one block, table by table. A reader is at a line of data, or at the header line or
// the end of the block that follows the last one; comment lines are skipped. The numbers of a line
// are parsed when the first of them is asked for, so that a line that nobody reads costs nothing.
struct RowReader {
    enum class Place { kRow, kHeader, kEnd };

    TextReader& reader;
    std::string modelMarker;  // of the next block, which ends this one
    bool skipBlankLines = false;
    bool passesLineEnds = false;  // where a line has no more numbers, the next line's come
    Place place = Place::kEnd;
    std::string_view line;  // what is left of it, as long as it is text
    bool parsed = false;    // `row` has the line's numbers
    int next = 1;           // index in `row` of the next field
    ValueRow row;

    explicit RowReader(TextReader& file);
};

inline bool AtRow(const RowReader& row) {
    return row.place == RowReader::Place::kRow;
}
// Blanks and tabs only.
bool IsBlank(std::string_view line);
// Goes to the next line whatever it is.
void LoadLine(RowReader& row);

// The next number of the line, or of the next lines where the reader passes line ends; false, and
// `value` untouched, when it has no more.
bool ReadNumber(RowReader& row, double& value);
// Of this line alone.
int NumbersLeft(RowReader& row);

void Value(RowReader& row, float& value);
void Value(RowReader& row, int16_t& value);
void Value(RowReader& row, int32_t& value);
void Value(RowReader& row, General field);
void Value(RowReader& row, Magnitude field);
void Value(RowReader& row, Flag field);
void Value(RowReader& row, PaddedName field);
void Value(RowReader& row, PlusMinusFlag field);

// Goes to the next line unless this one is not a line of data: a table never swallows the header
// line after it.
void EndLine(RowReader& row);
// What only a writer has.
inline void ClosingTab(RowReader&) {}
inline void ClosingRule(RowReader&) {}
inline void Abut(RowReader&) {}
inline void CommentRule(RowReader&) {}
// Skips blank lines, however many there are.
void EmptyLine(RowReader& row);
void TextLine(RowReader& row, std::wstring& text);
void HeadTextLine(RowReader& row, std::wstring& text);
void HeadTextLine(RowReader& row, std::string& text);
inline void GoOnInNextLine(RowReader&) {}
inline bool HasFields(RowReader& row, bool, int numbers) {
    return NumbersLeft(row) >= numbers;
}

// ---- Both --------------------------------------------------------------------------------------

// A list has as many columns as elements.
template <class Row, class T, int first, int last>
void Value(Row& row, Array<T, first, last>& array) {
    for (T& element : array.elements) Value(row, element);
}
template <class Row, int first, int last>
void GeneralValues(Row& row, Array<float, first, last>& array) {
    for (float& element : array.elements) Value(row, General{element});
}

// Several columns, in this order.
template <class Row, class... Fields>
void Values(Row& row, Fields&&... fields) {
    (Value(row, fields), ...);
}

}  // namespace corvane
