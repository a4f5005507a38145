// The lines of a block as the items of its tables, of any kind of model: text for text, with
// everything that the file has, known or not. Comment lines and the form of numbers are no part of
// them: " .80 " is "0.8".
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/column_names.h"
#include "database/model_kind.h"
#include "files/text_file.h"

namespace corvane {

// The lines of one item, such as a node or a compartment.
struct BlockItem {
    int32_t owner = 0;  // number of its panel or bulkhead; 0 where its rows have none
    std::string text;   // ANSI; a tab between columns, a line feed between lines
};

struct ItemTable {
    std::string label;  // trimmed; empty: the lines before the first table
    const ItemNames* names = nullptr;
    bool isOwners = false;  // the items are the panels or bulkheads that others belong to
    std::vector<BlockItem> items;
};

// The tables in the order of the file; one that comes twice is one table. The first one is the
// head.
struct BlockItems {
    std::string name;  // ANSI, trimmed
    std::vector<ItemTable> tables;
};

// Reads the block before whose marker the reader is, as FindModel leaves it. A read that fails ends
// it like the end of the file; the reader's `error` says why.
BlockItems ReadBlockItems(TextReader& reader, ModelKind kind);

// A column of an item as the user reads it.
struct NamedValue {
    std::wstring name;   // database/column_names.h
    std::wstring value;  // empty: the line ends before it
};
// All columns of an item; `other` is the item that it is compared with: where one of them lacks a
// column of the other, it is there without a value.
std::vector<NamedValue> ValuesOf(const ItemNames& names, const BlockItem& item,
                                 const BlockItem& other);

// The first columns of an item, which say which one it is, with the names of the keys: "stiffener
// 3, span 2". Empty where there are no keys.
std::wstring KeyText(const ItemNames& names, const BlockItem& item);
// The same as bytes of the file, to compare.
std::string_view KeyColumns(const ItemNames& names, const BlockItem& item);
// The name that an item begins with; empty where it does not.
std::wstring NameOfItem(const ItemNames& names, const BlockItem& item);

}  // namespace corvane
