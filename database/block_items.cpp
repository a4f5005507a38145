#include "database/block_items.h"

#include <algorithm>
#include <array>

#include "database/rows.h"
#include "database/tables.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kSeparators = " \t,;";

// ---- Columns -----------------------------------------------------------------------------------

bool IsPlainInteger(std::string_view word) {
    constexpr size_t kSurelyExact = 15;
    const bool hasSign = word.size() > 1 && word.front() == '-';
    const std::string_view digits = word.substr(hasSign ? 1 : 0);
    return digits.size() <= kSurelyExact && (digits.front() != '0' || word == "0") &&
           digits.find_first_not_of("0123456789") == std::string_view::npos;
}

// A number in general form, so that all forms of one number are the same; a word as it is.
void AddWord(std::string& text, std::string_view word) {
    if (IsPlainInteger(word) || !ReadsAsNumber(system::WideFromAnsi(word))) {
        text += word;
        return;
    }
    std::array<char, kLongestNumber> number;
    text.append(number.data(), AppendGeneral(number.data(), LeadingNumber(word)));
}

// The words of a line, a tab between them.
void AddWords(std::string& text, std::string_view line, std::string_view separators) {
    bool isFirst = true;
    for (size_t begin = line.find_first_not_of(separators); begin != std::string_view::npos;) {
        const size_t end = std::min(line.find_first_of(separators, begin), line.size());
        if (!isFirst) text += '\t';
        isFirst = false;
        AddWord(text, line.substr(begin, end - begin));
        begin = line.find_first_not_of(separators, end);
    }
}

void AddNameAndNumbers(std::string& text, std::string_view line) {
    const size_t end = std::min({line.find('\t'), kNameWidth, line.size()});
    text += Trim(line.substr(0, end));
    text += '\t';
    AddWords(text, line.substr(end), kSeparators);
}

void AddLine(std::string& text, LineForm form, std::string_view line) {
    switch (form) {
        case LineForm::kNumbers:
            AddWords(text, line, kSeparators);
            break;
        case LineForm::kWords:
            AddWords(text, line, kBlanks);
            break;
        case LineForm::kName:
            text += Trim(line);
            break;
        case LineForm::kNameAndNumbers:
            AddNameAndNumbers(text, line);
            break;
    }
}

// ---- Reading -----------------------------------------------------------------------------------

// The number that the text begins with leaves it, with the tab after it.
int32_t TakeOwner(std::string& text) {
    const size_t end = std::min(text.find_first_of("\t\n"), text.size());
    const int32_t owner = LeadingInteger(std::string_view(text).substr(0, end));
    text.erase(0, end < text.size() && text[end] == '\t' ? end + 1 : end);
    return owner;
}

bool IsEmpty(const BlockItem& item) {
    return item.owner == 0 && item.text.find_first_not_of('\n') == std::string::npos;
}

std::string_view WithoutClosingRule(std::string_view line, std::string_view rule) {
    return line.size() > rule.size() && line.ends_with(rule)
               ? line.substr(0, line.size() - rule.size())
               : line;
}

struct ItemReader {
    RowReader row;
    std::string closingRule = FetchStructuralLines().commentRule;
};

// Only after numbers a rule is no part of the line: a name may end like one.
void ReadItemLine(ItemReader& reader, LineForm form, BlockItem& item) {
    AddLine(item.text, form,
            form == LineForm::kNumbers ? WithoutClosingRule(reader.row.line, reader.closingRule)
                                       : reader.row.line);
    LoadLine(reader.row);
}

BlockItem ReadItem(ItemReader& reader, const ItemNames& names) {
    BlockItem item;
    const bool isKnown = !names.lines.empty();
    const size_t lines = isKnown ? names.lines.size() : 1;
    for (size_t i = 0; i < lines && AtRow(reader.row); ++i) {
        if (i != 0) item.text += '\n';
        const LineForm form = isKnown ? names.lines[i].form : LineForm::kWords;
        if (form != LineForm::kName) EmptyLine(reader.row);
        if (AtRow(reader.row)) ReadItemLine(reader, form, item);
    }
    if (names.hasOwner) item.owner = TakeOwner(item.text);
    return item;
}

// To the next label, or the block's end.
void ReadItems(ItemReader& reader, ItemTable& table) {
    while (AtRow(reader.row)) {
        BlockItem item = ReadItem(reader, *table.names);
        if (!IsEmpty(item)) table.items.push_back(std::move(item));
    }
}

// Lines before the first table that are not known are items of their own.
void ReadHead(ItemReader& reader, const ItemNames& names, std::vector<ItemTable>& tables) {
    static constexpr ItemNames kLines{L"Line"};
    ItemTable& head = tables.emplace_back();
    head.names = &names;
    if (!names.lines.empty()) head.items.push_back(ReadItem(reader, names));
    ItemTable& more = tables.emplace_back();
    more.names = &kLines;
    ReadItems(reader, more);
}

// The table of a label; a new one where it comes for the first time.
ItemTable& TableOf(std::vector<ItemTable>& tables, const std::string& label,
                   const BlockNames& names) {
    static constexpr ItemNames kRows;
    const auto known = std::ranges::find(tables, label, &ItemTable::label);
    if (known != tables.end()) return *known;
    const auto named = std::ranges::find(names.tables, label, &TableNames::label);
    ItemTable& table = tables.emplace_back();
    table.label = label;
    table.names = named == names.tables.end() ? &kRows : named->item;
    table.isOwners = !names.tables.empty() && named == names.tables.begin();
    return table;
}

// ---- Values ------------------------------------------------------------------------------------

std::vector<std::string_view> SplitAt(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const size_t end = std::min(text.find(separator), text.size());
        parts.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

std::vector<std::string_view> ColumnsOf(const LineNames& names, std::string_view line) {
    std::vector<std::string_view> columns = SplitAt(line, '\t');
    const bool lacksOptional =
        names.optional > 0 && columns.size() + names.optional == names.columns.size();
    if (lacksOptional) {
        columns.insert(columns.begin() + static_cast<ptrdiff_t>(names.firstOptional),
                       names.optional, std::string_view());
    }
    return columns;
}

const LineNames& NamesOfLine(const ItemNames& names, size_t line) {
    static constexpr LineNames kAny;
    return line < names.lines.size() ? names.lines[line] : kAny;
}

}  // namespace

BlockItems ReadBlockItems(TextReader& file, ModelKind kind) {
    BlockItems block;
    ItemReader reader{RowReader(file)};
    const BlockNames names = FactsOf(kind).names();
    double version = 0;
    ReadBlockHead(reader.row, version);
    HeadTextLine(reader.row, block.name);
    ReadHead(reader, *names.head, block.tables);
    while (reader.row.place == RowReader::Place::kHeader) {
        ItemTable& table = TableOf(block.tables, std::string(Trim(reader.row.line)), names);
        const auto& lines = table.names->lines;
        const bool hasNames = !lines.empty() && lines.front().form == LineForm::kName;
        reader.row.skipBlankLines = !hasNames;
        LoadLine(reader.row);
        ReadItems(reader, table);
    }
    return block;
}

std::vector<NamedValue> ValuesOf(const ItemNames& names, const BlockItem& item,
                                 const BlockItem& other) {
    std::vector<NamedValue> values;
    const std::vector<std::string_view> lines = SplitAt(item.text, '\n');
    const std::vector<std::string_view> others = SplitAt(other.text, '\n');
    for (size_t i = 0; i < std::max(lines.size(), others.size()); ++i) {
        const LineNames& line = NamesOfLine(names, i);
        std::vector<std::string_view> columns;
        if (i < lines.size()) columns = ColumnsOf(line, lines[i]);
        const size_t most = i < others.size()
                                ? std::max(columns.size(), ColumnsOf(line, others[i]).size())
                                : columns.size();
        columns.resize(most);
        for (size_t k = 0; k < most; ++k) {
            values.push_back({NameOfColumn(line, k), system::WideFromAnsi(columns[k])});
        }
    }
    return values;
}

std::string_view KeyColumns(const ItemNames& names, const BlockItem& item) {
    const std::string_view text = item.text;
    size_t end = 0;
    for (size_t i = 0; i < names.keys.size() && end < text.size(); ++i) {
        end = std::min(text.find_first_of("\t\n", end + (i == 0 ? 0 : 1)), text.size());
    }
    return text.substr(0, end);
}

std::wstring KeyText(const ItemNames& names, const BlockItem& item) {
    const std::vector<std::string_view> columns = SplitAt(KeyColumns(names, item), '\t');
    std::wstring text;
    for (size_t i = 0; i < columns.size(); ++i) {
        if (i != 0) text += L", ";
        text += names.keys[i] + (L' ' + system::WideFromAnsi(columns[i]));
    }
    return text;
}

std::wstring NameOfItem(const ItemNames& names, const BlockItem& item) {
    if (names.lines.empty() || names.lines.front().form == LineForm::kNumbers) return {};
    const std::string_view text = item.text;
    return system::WideFromAnsi(text.substr(0, text.find_first_of("\t\n")));
}

}  // namespace corvane
