#include "database/rows.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/system.h"
#include "report/messages.h"
#include "text/text.h"

namespace corvane {
namespace {

// The longest name of a model or a compartment that is written.
constexpr size_t kLongestName = 1000;

// ---- Writing -----------------------------------------------------------------------------------

void WriteOutRow(RowWriter& row) {
    WriteText(row.writer, {row.text.data(), row.used});
    row.used = 0;
}

// Where the next field goes, its tab written; there is room for any number and a line end.
char* NextField(RowWriter& row) {
    constexpr size_t kRoom = kLongestNumber + kNameWidth;
    if (row.used + kRoom > row.text.size()) WriteOutRow(row);
    if (row.separate) row.text[row.used++] = '\t';
    row.separate = true;
    return row.text.data() + row.used;
}

void EndField(RowWriter& row, const char* end) {
    row.used = static_cast<size_t>(end - row.text.data());
}

// The text as it can be in a line and be read back: trimmed, no control characters, neither a
// comment nor the model marker.
std::string LineText(std::string_view bytes, std::string_view modelMarker) {
    std::string text(bytes.substr(0, kLongestName));
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    text = Trim(std::string_view(text));
    if (IsCommentLine(text) || text == modelMarker) text.insert(text.begin(), ' ');
    return text;
}

// The same, for a line of a table: no header line either.
std::string TableText(const std::wstring& text, std::string_view modelMarker) {
    std::string line = LineText(system::AnsiFromWide(text), modelMarker);
    if (IsHeaderLine(line)) line.front() = '_';
    return line;
}

bool IsFirstTableLabel(std::string_view line) {
    const std::string label = GetMessageBytes(kMsgPanelTable);
    return Trim(line) == Trim(std::string_view(label));
}

// ---- Reading -----------------------------------------------------------------------------------

void ParseLine(RowReader& row) {
    if (row.parsed) return;
    row.parsed = true;
    row.next = 1;
    row.row.count = 0;
    if (AtRow(row)) ParseValues(row.line, row.row);
}

}  // namespace

int16_t ClampToCount(size_t count) {
    return static_cast<int16_t>(std::min<size_t>(count, kMostItems));
}

int16_t ClampToInt16(double value) {
    return static_cast<int16_t>(std::clamp<int32_t>(ClampToInt32(value), INT16_MIN, INT16_MAX));
}

int32_t ClampToInt32(double value) {
    const double held = std::clamp<double>(value, INT32_MIN, INT32_MAX);
    const auto whole = static_cast<int32_t>(held);
    return whole == held ? whole : static_cast<int32_t>(std::nearbyint(held));
}

float ClampToSingle(double value) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

void Value(RowWriter& row, float value) {
    EndField(row, AppendPrintForm(NextField(row), value));
}

void Value(RowWriter& row, int16_t value) {
    Value(row, int32_t{value});
}

void Value(RowWriter& row, int32_t value) {
    EndField(row, AppendPrintForm(NextField(row), value));
}

void Value(RowWriter& row, General field) {
    EndField(row, AppendGeneral(NextField(row), field.value));
}

void Value(RowWriter& row, Magnitude field) {
    EndField(row, AppendGeneral(NextField(row), std::fabs(field.value)));
}

void Value(RowWriter& row, Flag field) {
    Value(row, int32_t{field.value != 0 ? -1 : 0});
}

void Value(RowWriter& row, PaddedName field) {
    const std::string text = TableText(field.text, row.lines.modelMarker).substr(0, kNameWidth);
    char* to = NextField(row);
    std::fill_n(std::copy(text.begin(), text.end(), to), kNameWidth - text.size(), ' ');
    EndField(row, to + kNameWidth);
}

void Value(RowWriter& row, PlusMinusFlag field) {
    Value(row, int32_t{field.value != 0 ? 1 : -1});
}

void EndLine(RowWriter& row) {
    Abut(row);
    char* to = NextField(row);
    *to++ = '\r';
    *to++ = '\n';
    EndField(row, to);
    WriteOutRow(row);
    row.separate = false;
}

void ClosingTab(RowWriter& row) {
    char* to = NextField(row);
    EndField(row, to);
}

void ClosingRule(RowWriter& row) {
    WriteOutRow(row);
    WriteText(row.writer, row.lines.commentRule);
}

void Abut(RowWriter& row) {
    row.separate = false;
}

void CommentRule(RowWriter& row) {
    WriteLine(row.writer, row.lines.commentRule);
}

void EmptyLine(RowWriter& row) {
    WriteLine(row.writer, "");
}

void TextLine(RowWriter& row, const std::wstring& text) {
    WriteLine(row.writer, TableText(text, row.lines.modelMarker));
}

void HeadTextLine(RowWriter& row, const std::wstring& text) {
    HeadTextLine(row, system::AnsiFromWide(text));
}

void HeadTextLine(RowWriter& row, const std::string& text) {
    std::string line = LineText(text, row.lines.modelMarker);
    if (IsFirstTableLabel(line)) line.front() = '_';
    WriteLine(row.writer, line);
}

RowReader::RowReader(TextReader& file)
    : reader(file), modelMarker(GetMessageBytes(kMsgModelMarker)) {}

bool IsBlank(std::string_view line) {
    return std::ranges::all_of(line, [](char c) { return c == ' ' || c == '\t'; });
}

void LoadLine(RowReader& row) {
    row.parsed = false;
    do {
        if (!ReadBlockLine(row.reader, row.modelMarker, row.line)) {
            row.line = {};
            row.place = RowReader::Place::kEnd;
            return;
        }
    } while (row.skipBlankLines && IsBlank(row.line));
    row.place = IsHeaderLine(row.line) ? RowReader::Place::kHeader : RowReader::Place::kRow;
}

bool ReadNumber(RowReader& row, double& value) {
    ParseLine(row);
    while (row.passesLineEnds && row.next > row.row.count && AtRow(row)) {
        LoadLine(row);
        ParseLine(row);
    }
    if (row.next > row.row.count) return false;
    value = row.row.values(row.next++);
    return true;
}

int NumbersLeft(RowReader& row) {
    ParseLine(row);
    return row.row.count - row.next + 1;
}

void Value(RowReader& row, float& value) {
    double number = 0;
    if (ReadNumber(row, number)) value = ClampToSingle(number);
}

void Value(RowReader& row, int16_t& value) {
    double number = 0;
    if (ReadNumber(row, number)) value = ClampToInt16(number);
}

void Value(RowReader& row, int32_t& value) {
    double number = 0;
    if (ReadNumber(row, number)) value = ClampToInt32(number);
}

void Value(RowReader& row, General field) {
    Value(row, field.value);
}

void Value(RowReader& row, Magnitude field) {
    Value(row, field.value);
}

void Value(RowReader& row, Flag field) {
    double number = 0;
    if (ReadNumber(row, number)) field.value = static_cast<int16_t>(number != 0 ? -1 : 0);
}

void Value(RowReader& row, PlusMinusFlag field) {
    double number = 0;
    if (ReadNumber(row, number)) field.value = static_cast<int16_t>(number > 0 ? -1 : 0);
}

// The name ends at the first tab, or where its columns do.
void Value(RowReader& row, PaddedName field) {
    if (!AtRow(row)) return;
    const size_t width = std::min({row.line.find('\t'), kNameWidth, row.line.size()});
    field.text = system::WideFromAnsi(Trim(row.line.substr(0, width)));
    row.line.remove_prefix(width);
}

void EndLine(RowReader& row) {
    if (AtRow(row)) LoadLine(row);
}

void EmptyLine(RowReader& row) {
    while (AtRow(row) && IsBlank(row.line)) LoadLine(row);
}

void TextLine(RowReader& row, std::wstring& text) {
    if (!AtRow(row)) return;
    text = system::WideFromAnsi(Trim(row.line));
    LoadLine(row);
}

void HeadTextLine(RowReader& row, std::wstring& text) {
    std::string bytes;
    HeadTextLine(row, bytes);
    text = system::WideFromAnsi(bytes);
}

void HeadTextLine(RowReader& row, std::string& text) {
    if (row.place == RowReader::Place::kEnd || IsFirstTableLabel(row.line)) return;
    text = Trim(row.line);
    LoadLine(row);
}

}  // namespace corvane
