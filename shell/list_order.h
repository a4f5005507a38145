// The order of the list: by a column, up or down, or the order of the file.
#pragma once

#include <optional>
#include <vector>

#include "shell/model_list.h"

namespace corvane {

struct ListOrder {
    std::optional<ListColumn> column;  // none: the order of the file
    bool isDescending = false;
    bool operator==(const ListOrder&) const = default;
};

// Sorts indexes of `rows`, which come in file order. Names are compared as people do: without
// regard to capitals, and numbers in them by their value ("Hold 9" before "Hold 10"). Rows that are
// equal keep the order of the file, up or down; those without a value in the column are the last
// ones, up or down.
void SortRows(const std::vector<ModelRow>& rows, const ListOrder& order, std::vector<int>& indexes);

// What a click on a column's head makes of the order: up, then down, then the order of the file.
ListOrder OrderAfterClick(const ListOrder& order, ListColumn column);

}  // namespace corvane
