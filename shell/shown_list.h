// What LI_Sections shows of the open database: which of its rows, and in which order. A line is a
// place in the list, 0 the topmost; a row is an index into OpenDatabase::rows. This module alone
// knows which row a line shows: the view speaks of lines, everybody else asks here.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/list_order.h"

namespace corvane {

// Widths that the user gave to columns [pixels at 96 dots per inch].
using ColumnWidths = std::array<std::optional<int>, kColumnCount>;

struct ShownList {
    ListOrder order;
    std::wstring filter;  // as the user typed it (shell/list_filter.h)
    ColumnWidths widths;
    std::vector<int> rows;  // of each line, from the top
};

// Makes the lines from the rows of the open database as they are now.
void ArrangeLines();
// No lines, before the rows change: what a line showed may be gone.
void ForgetLines();

int LineCount();
// The row that a line shows; the line must be there.
const ModelRow& RowOfLine(int line);
// The line that shows the row of this index; -1 when none does.
int LineOfRow(size_t row);

// The indexes of the rows of all selected lines, in the order of the file.
std::vector<size_t> SelectedRows();

// The next line, from `first` on, and after the last one from the top, whose name begins with a
// text, whatever the capitals; -1 when there is none.
int FindLine(std::wstring_view text, int first);

// Another order and another filter for the lines, which have them at the next ArrangeLines.
void SetListOrder(const ListOrder& order);
void SetListFilter(const std::wstring& text);
void SetColumnWidths(const ColumnWidths& widths);

// How many models are shown, how many there are, and how many are selected, when more than one is:
// "9 of 14 models, 2 selected"; empty without a database.
std::wstring ModelCountText();

}  // namespace corvane
