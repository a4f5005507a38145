// What the columns of a block's lines are called, for whoever shows single values to the user. The
// lines are those that database/section_lines.h and database/bulkhead_lines.h declare, with their
// columns in the same order; docs/section-block.md and docs/bulkhead-block.md explain them.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace corvane {

struct ColumnName {
    const wchar_t* name;
    const wchar_t* unit = L"";
    int count = 1;  // so many columns have this name, and a number after it
};

enum class LineForm {
    kNumbers,         // numbers only, with what readers accept between them
    kWords,           // of a line that is not known: what is between blanks
    kName,            // the whole line is one text
    kNameAndNumbers,  // a name of up to 40 characters or to the first tab, and numbers
};

struct LineNames {
    LineForm form = LineForm::kNumbers;
    std::span<const ColumnName> columns = {};
    size_t repeated = 0;  // so many of the last ones come again and again, to the line's end
    // Columns that a line has all of, or none: so many, from this one on.
    size_t optional = 0;
    size_t firstOptional = 0;
};

// The lines of one item of a table, or of the head.
struct ItemNames {
    const wchar_t* name = L"Row";
    bool hasOwner = false;  // the first column is the number of a panel or a bulkhead
    // The columns after it that say which item of the owner it is; empty: its place says that.
    std::span<const wchar_t* const> keys = {};
    std::span<const LineNames> lines = {};  // empty: any number of columns in one line
    bool isSingle = false;                  // there is one such item only
};

// The name of a column of a line, from 0: "Web height [mm]", "Stress 3 [MPa]"; "Column 15" of one
// that is not known.
std::wstring NameOfColumn(const LineNames& line, size_t column);

struct TableNames {
    std::string label;  // trimmed
    const ItemNames* item;
};
// What is known of the blocks of a kind.
struct BlockNames {
    const ItemNames* head;  // the lines after the name, before the first table
    // The first one is that of the owners, panels or bulkheads; empty where a kind's lines are
    // known to its own program alone.
    std::vector<TableNames> tables;
};
// For the table in database/model_kind.cpp.
BlockNames SectionNames();
BlockNames BulkheadNames();
BlockNames TorsionNames();

}  // namespace corvane
