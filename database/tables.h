// What sections and bulkhead arrangements have in common beyond single lines (database/rows.h):
// legends, tables that a label line opens, items of panels or bulkheads. An owner is a panel or a
// bulkhead; owners are numbered from 1, and each row of an item begins with its owner's number.
//
// A reader accepts tables in any order and rows of owners that do not exist; a writer writes them
// in the order of the layout. Neither reports anything: a damaged block gives what could be read.
#pragma once

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/rows.h"
#include "report/message_numbers.h"

namespace corvane {

// ---- Writing -----------------------------------------------------------------------------------

// A comment rule and the text after it. `text` is in the ANSI code page.
void Legend(RowWriter& row, std::string_view text);
void Legends(RowWriter& row, std::initializer_list<MessageNumber> legends);
// Legend of a table whose first column is a padded name.
void NameLegend(RowWriter& row, std::string_view otherColumns);

// The comment rule, the label and the legends.
void OpenTable(RowWriter& row, MessageNumber label, std::initializer_list<MessageNumber> legends);
// The table before the compartments: a number that the layout fixes, whatever they have.
void WriteCompartmentSize(RowWriter& row);
// Label and legends of the compartments.
void CompartmentLegends(RowWriter& row);

// A new unique identifier, from the utility library.
std::string NewIdentifier();

// Whether any owner has an item in this list: a table without rows is left out.
template <class Owner, class Item>
bool HasItems(const std::vector<Owner>& owners, std::vector<Item> Owner::* items) {
    return std::ranges::any_of(owners,
                               [items](const Owner& owner) { return !(owner.*items).empty(); });
}

// Calls action(owner's number, item) for every item of every owner, in their order.
template <class Owner, class Item, class Action>
void ForEachItem(std::vector<Owner>& owners, std::vector<Item> Owner::* items, Action action) {
    int16_t number = 0;
    for (Owner& owner : owners) {
        ++number;
        for (Item& item : owner.*items) action(number, item);
    }
}

// A table's rows.
template <class Owner, class Item>
void WriteItems(RowWriter& row, std::vector<Owner>& owners, std::vector<Item> Owner::* items) {
    ForEachItem(owners, items, [&row](int16_t number, Item& item) {
        Value(row, number);
        ItemLines(row, item);
    });
}

// ---- Reading -----------------------------------------------------------------------------------

// From the block's marker to the line after the name label, which is then loaded; to the first
// table, when the block has lost its name label. `formatVersion` stays when the block has none.
void ReadBlockHead(RowReader& row, double& formatVersion);

// Adds an item while there is room for its number.
template <class Item>
void Keep(std::vector<Item>& items, Item item) {
    if (items.size() < kMostItems) items.push_back(std::move(item));
}

// The index, from 0, of the item whose number, from 1, comes next in the row; the size of the list
// when there is no such item.
size_t ReadIndex(RowReader& row, size_t size);

// Rows of owners that do not exist are left out.
template <class Owner, class Item>
void ReadItems(RowReader& row, std::vector<Owner>& owners, std::vector<Item> Owner::* items) {
    while (AtRow(row)) {
        const size_t owner = ReadIndex(row, owners.size());
        Item item;
        ItemLines(row, item);
        if (owner < owners.size()) Keep(owners[owner].*items, std::move(item));
    }
}

// One table that a reader knows.
struct BlockTable {
    std::string label;                     // its label line, compared trimmed
    std::function<void(RowReader&)> read;  // called at its first row, reads to the next header line
    bool hasEmptyRows = false;             // an empty line can be a name
};

// Reads the tables of a block, from the line that is loaded to the block's end. A table is known by
// its label and ends at the next header line; tables may be missing, in any order, or unknown.
// `tables` has them in an order in which each finds what its rows belong to: where the file has
// another order, `reset` removes what was read, and they are read again in this one.
void ReadTables(RowReader& row, const std::vector<BlockTable>& tables,
                const std::function<void()>& reset);

// The names of compartments or holds, and the lines after each.
template <class Compartment>
void ReadCompartments(RowReader& row, std::vector<Compartment>& compartments,
                      void (*lines)(RowReader&, Compartment&)) {
    while (AtRow(row)) {
        Compartment compartment;
        TextLine(row, compartment.name);
        // A nameless compartment still has its lines; blank lines alone are not a compartment.
        if (compartment.name.empty() && (!AtRow(row) || IsBlank(row.line))) continue;
        lines(row, compartment);
        Keep(compartments, std::move(compartment));
    }
}

}  // namespace corvane
