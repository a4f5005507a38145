#include "database/check_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "database/bulkhead_lines.h"
#include "report/messages.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr size_t kLongestShown = 40;

// ---- Words -------------------------------------------------------------------------------------
// As the utility library reads a row of numbers: companions/ztutil32/number_row.cpp.

// By character: whether it parts words.
constexpr std::array<bool, 256> kSeparators = [] {
    std::array<bool, 256> separators{};
    for (const unsigned char c : {' ', '\t', ',', ';', '\r', '\n'}) separators[c] = true;
    return separators;
}();

bool IsSeparator(char c) {
    return kSeparators[static_cast<unsigned char>(c)];
}

unsigned DigitOf(char c) {
    return static_cast<unsigned>(static_cast<unsigned char>(c)) - '0';
}

enum class Form { kNoNumber, kInteger, kReal, kPower };

struct Word {
    std::string_view text;  // empty: the line has no more words
    Form form = Form::kNoNumber;
    int64_t value = 0;  // of an integer of at most kSurelyFits characters
};
constexpr size_t kSurelyFits = 18;

const char* SkipDigits(const char* at, const char* end) {
    while (at != end && DigitOf(*at) <= 9) ++at;
    return at;
}

// What is no integer, from its first character that is no digit. `at` becomes the place up to which
// it is a number.
Form FormOfRest(const char*& at, const char* end, bool hasDigits) {
    if (*at == '.') {
        const char* const fraction = ++at;
        at = SkipDigits(at, end);
        hasDigits = hasDigits || at != fraction;
    }
    if (!hasDigits) return Form::kNoNumber;
    if (at == end || (*at != 'E' && *at != 'e' && *at != 'D' && *at != 'd')) return Form::kReal;
    ++at;
    if (at != end && (*at == '-' || *at == '+')) ++at;
    const char* const exponent = at;
    at = SkipDigits(at, end);
    return at != exponent ? Form::kPower : Form::kNoNumber;
}

// Takes the next word off a line.
Word TakeWord(std::string_view& line) {
    const char* at = line.data();
    const char* const end = at + line.size();
    while (at != end && IsSeparator(*at)) ++at;
    const char* const begin = at;
    const bool isNegative = at != end && *at == '-';
    if (isNegative || (at != end && *at == '+')) ++at;
    Word word;
    const char* const digits = at;
    uint64_t value = 0;
    for (; at != end && DigitOf(*at) <= 9; ++at) value = value * 10 + DigitOf(*at);
    if (at == end || IsSeparator(*at)) {
        if (at != digits) word.form = Form::kInteger;
    } else {
        word.form = FormOfRest(at, end, at != digits);
        if (at != end && !IsSeparator(*at)) word.form = Form::kNoNumber;
        while (at != end && !IsSeparator(*at)) ++at;
    }
    const auto whole = static_cast<int64_t>(value);
    word.value = isNegative ? -whole : whole;
    word.text = {begin, static_cast<size_t>(at - begin)};
    line = {at, static_cast<size_t>(end - at)};
    return word;
}

// ---- Numbers -----------------------------------------------------------------------------------
// Nearly all numbers of a check are read by check_rows.h alone; here are the others.

// Characters may be looked at until there.
const char* EndOfReadable(const RowCheck& row) {
    return row.lines.reader.buffer.get() + kTextBufferSize;
}

void AddForLine(RowCheck& row, CheckRule rule, std::vector<std::wstring> values) {
    values.insert(values.begin(), row.table);
    Add(row.found, rule, LineOf(row), std::move(values));
}

// The next number from this word on; the words before it, which are no numbers, are reported.
bool SearchNumber(RowCheck& row, Word& word) {
    for (;;) {
        for (; !word.text.empty(); word = TakeWord(row.line)) {
            if (word.form != Form::kNoNumber) {
                ++row.read;
                return true;
            }
            AddForLine(row, CheckRule::kNotNumber, {ShownText(word.text)});
        }
        if (!row.passesLineEnds || !AtRow(row)) break;
        const int read = row.read;
        LoadLine(row);
        row.read = read;
        word = TakeWord(row.line);
    }
    ++row.missing;
    return false;
}

// The next word of the line that is a number, of whatever form.
bool NextNumber(RowCheck& row, Word& word) {
    word = {};
    if (AtRow(row)) word = TakeWord(row.line);
    if (word.form == Form::kNoNumber) return SearchNumber(row, word);
    ++row.read;
    return true;
}

// The whole number nearest to what the word says, within the limits.
int64_t RoundedNumber(RowCheck& row, const Word& word, int64_t largest) {
    int64_t value = word.value;
    if (word.form != Form::kInteger || word.text.size() > kSurelyFits) {
        const double real = LeadingNumber(word.text);
        const double limit = static_cast<double>(largest) + 2;
        const double whole = std::nearbyint(std::clamp(real, -limit, limit));
        value = static_cast<int64_t>(whole);
        if (std::fabs(real) < limit && whole != real) {
            AddForLine(row, CheckRule::kNotWhole, {ShownText(word.text)});
        }
    }
    const int64_t held = std::clamp(value, -largest - 1, largest);
    if (held != value) AddForLine(row, CheckRule::kNumberTooLarge, {ShownText(word.text)});
    return held;
}

template <class Integer>
void ReadWord(RowCheck& row, const Word& word, Integer& value) {
    constexpr int64_t kLargest = std::numeric_limits<Integer>::max();
    const bool isUsual = word.form == Form::kInteger && word.text.size() <= kSurelyFits &&
                         word.value <= kLargest && word.value >= -kLargest - 1;
    value = static_cast<Integer>(isUsual ? word.value : RoundedNumber(row, word, kLargest));
}

// Most of them are short, and without a point.
template <class Integer>
void ReadUsualText(RowCheck& row, std::string_view text, Integer& value) {
    int32_t number = 0;
    const bool isNegative = text.front() == '-';
    const std::string_view digits = text.substr(isNegative ? 1 : 0);
    const auto take = [&](char c) {
        number = number * 10 + static_cast<int32_t>(DigitOf(c));
        return DigitOf(c) <= 9;
    };
    if (digits.size() <= std::numeric_limits<Integer>::digits10 &&
        std::ranges::all_of(digits, take)) {
        value = static_cast<Integer>(isNegative ? -number : number);
    } else {
        ReadWord(row, TakeWord(text), value);
    }
}

template <class Integer>
void ReadNextInteger(RowCheck& row, Integer& value) {
    Word word;
    if (NextNumber(row, word)) ReadWord(row, word, value);
}

// ---- Lines -------------------------------------------------------------------------------------

bool IsHeader(std::string_view line) {
    const size_t first = line.find_first_not_of(' ');
    return first != std::string_view::npos && line[first] == '-' && IsHeaderLine(line);
}

// A character beyond ASCII may be one.
bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 128;
}

// Whether a line was the marker before it was damaged: it has the marker's first or last
// characters, or differs from it in blanks and in the case of letters alone.
bool IsDamagedMarker(std::string_view line, const std::string& marker) {
    constexpr size_t kPart = 8;
    line = Trim(line);
    if (line.size() < kPart || marker.size() < 2 * kPart) return false;
    const std::string_view whole = marker;
    const auto isLike = [](char a, char b) { return a == b || (IsLetter(a) && IsLetter(b)); };
    return (line.front() == whole.front() && line.starts_with(whole.substr(0, kPart))) ||
           (line.back() == whole.back() && line.ends_with(whole.substr(whole.size() - kPart))) ||
           (std::ranges::equal(line, whole, isLike) && UpperCase(line) == UpperCase(whole));
}

// Looks for lines that only the head of a block has.
bool IsOfAnotherHead(RowCheck& row) {
    const StructuralLines& structure = row.structure;
    if (row.line == structure.nameLabel || row.line == structure.versionLabel) {
        Add(row.found, CheckRule::kHeadInside, LineOf(row), {ShownText(row.line)});
        return true;
    }
    if (!IsDamagedMarker(row.line, structure.modelMarker)) return false;
    Add(row.found, CheckRule::kMarkerDamaged, LineOf(row), {ShownText(row.line)});
    return true;
}

// The next line of the block that is not a comment; false, and the marker unread, at its end.
bool NextBlockLine(RowCheck& row) {
    for (;;) {
        if (!ReadLine(row.lines, row.line)) return false;
        if (row.line == row.structure.modelMarker) {
            StepBack(row.lines);
            return false;
        }
        if (row.isForeign || IsCommentLine(row.line)) continue;
        constexpr int64_t kLineEnd = 2;
        const auto size = static_cast<int64_t>(row.line.size()) + kLineEnd;
        if (LinePosition(row.lines.reader) - row.lines.begin > size) {
            Add(row.found, CheckRule::kLineTooLong, LineOf(row), {std::to_wstring(kLongestLine)});
        }
        return true;
    }
}

void NoteTextLine(RowCheck& row) {
    row.textLine = LineOf(row);
    row.textBegin = row.lines.begin;
    row.textEnd = LinePosition(row.lines.reader);
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; };
    if (std::ranges::any_of(row.line, isControl)) AddForLine(row, CheckRule::kControlCharacter, {});
}

}  // namespace

bool ReadLine(CountedLines& lines, std::string_view& line) {
    lines.begin = LinePosition(lines.reader);
    if (!ReadLine(lines.reader, line)) return false;
    ++lines.number;
    return true;
}

void StepBack(CountedLines& lines) {
    SeekLine(lines.reader, lines.begin);
    --lines.number;
}

void NoteUnknown(UnknownLines& unknown, const CountedLines& lines, std::string_view line) {
    if (++unknown.count > 1) return;
    unknown.first = lines.number;
    unknown.text = ShownText(line);
}

void Add(BlockFindings& found, CheckRule rule, int64_t line, std::vector<std::wstring> values) {
    found.lastLine = std::max(found.lastLine, line);
    if (++found.counts[static_cast<size_t>(rule)] > kMostOfARule) return;
    Finding& finding = found.list.emplace_back();
    finding.rule = rule;
    finding.line = line;
    finding.values = std::move(values);
}

std::vector<Finding> SortedFindings(BlockFindings& found) {
    std::ranges::stable_sort(found.list, {}, &Finding::line);
    for (size_t rule = 0; rule < found.counts.size(); ++rule) {
        const int64_t further = found.counts[rule] - kMostOfARule;
        if (further <= 0) continue;
        Finding& finding = found.list.emplace_back();
        finding.rule = CheckRule::kFurther;
        finding.line = found.lastLine;
        finding.values = {std::to_wstring(further), FactsOf(static_cast<CheckRule>(rule)).title};
    }
    for (Finding& finding : found.list) {
        finding.isInModel = true;
        finding.block = found.model.block;
        finding.number = found.model.number;
        finding.name = found.model.name;
        finding.kind = found.model.kind;
    }
    return std::move(found.list);
}

int64_t CountOf(const BlockFindings& found) {
    int64_t count = 0;
    for (const int64_t each : found.counts) count += each;
    return count;
}

RowCheck::RowCheck(CountedLines& file, const StructuralLines& texts, BlockFindings& findings)
    : lines(file),
      structure(texts),
      found(findings),
      firstTable(Trim(GetMessageBytes(kMsgPanelTable))) {}

void LoadLine(RowCheck& row) {
    row.read = row.missing = 0;
    row.numbers = {};
    row.isCut = false;
    do {
        if (!NextBlockLine(row)) {
            row.line = {};
            row.place = RowCheck::Place::kEnd;
            return;
        }
        if (row.watchesHeads && IsOfAnotherHead(row)) row.isForeign = true;
    } while (row.isForeign || (row.skipBlankLines && IsBlank(row.line)));
    row.place = IsHeader(row.line) ? RowCheck::Place::kHeader : RowCheck::Place::kRow;
}

int NumbersLeft(const RowCheck& row) {
    if (!AtRow(row)) return 0;
    int count = std::popcount(row.numbers.begins);
    if (row.numbers.areAll) return count;
    std::string_view line = row.line;
    for (UsualNumbers numbers = row.numbers; numbers.begins != 0;) TakeNumber(numbers, line);
    for (Word word; !(word = TakeWord(line)).text.empty();) {
        if (word.form != Form::kNoNumber) ++count;
    }
    return count;
}

std::wstring TableName(std::string_view label) {
    const size_t first = label.find_first_not_of("- ");
    if (first == std::string_view::npos) return system::WideFromAnsi(Trim(label));
    const size_t last = label.find_last_not_of("- ");
    return ShownText(label.substr(first, last - first + 1));
}

std::wstring ShownText(std::string_view line) {
    std::string text(Trim(line).substr(0, kLongestShown));
    const bool isCut = Trim(line).size() > kLongestShown;
    std::ranges::replace_if(text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return system::WideFromAnsi(text) + (isCut ? L"..." : L"");
}

bool FindNumbers(RowCheck& row) {
    if (!AtRow(row) || row.numbers.areAll) return false;
    FindUsualNumbers(row.line, EndOfReadable(row), row.numbers);
    return row.numbers.begins != 0;
}

void ReadUnusual(RowCheck& row) {
    Word word;
    if (!NextNumber(row, word)) return;
    if (word.form == Form::kPower || word.text.size() > kMostDigits) JudgeReal(row, word.text);
}

void ReadUnusual(RowCheck& row, int16_t& value) {
    ReadNextInteger(row, value);
}

void ReadUnusual(RowCheck& row, int32_t& value) {
    ReadNextInteger(row, value);
}

void JudgeReal(RowCheck& row, std::string_view text) {
    if (std::fabs(LeadingNumber(text)) <= std::numeric_limits<float>::max()) return;
    AddForLine(row, CheckRule::kNumberTooLarge, {ShownText(text)});
}

void ReadText(RowCheck& row, std::string_view text, int16_t& value) {
    ReadUsualText(row, text, value);
}

void ReadText(RowCheck& row, std::string_view text, int32_t& value) {
    ReadUsualText(row, text, value);
}

void Value(RowCheck& row, PaddedName) {
    if (!AtRow(row)) return;
    const size_t width = std::min({row.line.find('\t'), kNameWidth, row.line.size()});
    NoteTextLine(row);
    row.line.remove_prefix(width);
    row.numbers = {};
}

void EndLine(RowCheck& row) {
    if (!AtRow(row)) {
        if (row.missing > 0 && !row.isCut && !row.isForeign) {
            AddForLine(row, CheckRule::kItemCut, {});
        }
        row.isCut = true;
        row.read = row.missing = 0;
        return;
    }
    const bool isAtEnd = row.numbers.begins == 0 && !FindNumbers(row) && row.numbers.areAll;
    if (isAtEnd && row.missing == 0) return LoadLine(row);
    const int wanted = row.read + row.missing;
    const bool passesLineEnds = std::exchange(row.passesLineEnds, false);
    Word word;
    while (NextNumber(row, word)) continue;
    row.passesLineEnds = passesLineEnds;
    const int missing = row.missing - 1;  // the last call found none
    if (missing > 0 || row.read > wanted) {
        AddForLine(row, missing > 0 ? CheckRule::kRowShort : CheckRule::kRowLong,
                   {std::to_wstring(row.read), std::to_wstring(wanted)});
    }
    LoadLine(row);
}

void ClosingRule(RowCheck& row) {
    if (Trim(row.line) != Trim(std::string_view(row.structure.commentRule))) return;
    row.line = {};
    row.numbers = {};
}

void EmptyLine(RowCheck& row) {
    while (AtRow(row) && IsBlank(row.line)) LoadLine(row);
}

void TextLine(RowCheck& row, std::string& text) {
    if (!AtRow(row)) return;
    text = Trim(row.line);
    NoteTextLine(row);
    LoadLine(row);
}

void HeadTextLine(RowCheck& row, std::string& text) {
    if (row.place == RowCheck::Place::kEnd || Trim(row.line) == row.firstTable) return;
    text = Trim(row.line);
    NoteTextLine(row);
    LoadLine(row);
}

void OutlineLine(RowCheck& row, Compartment& compartment) {
    bool isClosed = false;
    while (!isClosed && compartment.outline.size() <= kMostOutlineNodes && HasNumbers(row, 2)) {
        NodeReference node{};
        Value(row, node);
        isClosed = node.node == 0;
        if (!isClosed) compartment.outline.push_back(node);
    }
    if (AtRow(row) && !isClosed) AddForLine(row, CheckRule::kOutlineOpen, {});
    EndLine(row);
}

void FillingLevelLine(RowCheck& row, Compartment&) {
    int32_t count = 0;
    int32_t levels = 0;
    Value(row, count);
    const int64_t line = LineOf(row);
    for (; HasNumbers(row, 3); ++levels) {
        float value = 0;
        Values(row, value, value, value);
    }
    if (AtRow(row) && levels != count) {
        Add(row.found, CheckRule::kCountDiffers, line,
            {L"filling levels", std::to_wstring(count), std::to_wstring(levels)});
    }
    EndLine(row);
}

void NoNodeLine(RowCheck& row) {
    if (!AtRow(row)) return;
    if (Trim(row.line) != kNoNodeList) {
        AddForLine(row, CheckRule::kNodeListLine, {ShownText(row.line)});
    }
    LoadLine(row);
}

}  // namespace corvane
