// The filter of the list: which models the words that the user types leave in it.
//
//   hold               names that have the word, whatever the capitals
//   "frame 121"        names that have all that is between the quotes
//   bhd, bulkhead, torsion, section
//                      models of the kind
//   fr 121             models whose nearest frame this is
//   x>100, x>=, x<, x<=, x=
//                      models at such a position [m], as the list shows it
//
// Several of them, with blanks between, must all be true. There are no errors: a word that is
// nothing else is one of the name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/model_list.h"

namespace corvane {

// How a position is compared with `x_m`.
struct PositionLimit {
    std::wstring comparison;  // ">", ">=", "<", "<=" or "="
    double x_m = 0;
    bool operator==(const PositionLimit&) const = default;
};

// All of it must be true of a model; an empty one is, of every model.
struct ListFilter {
    std::vector<std::wstring> words;  // in lower case
    std::vector<ModelKind> kinds;
    std::vector<int> frames;
    std::vector<PositionLimit> limits;
    bool operator==(const ListFilter&) const = default;
};

ListFilter ReadFilter(std::wstring_view text);

// Leaves of the indexes of `rows` those of the models that the filter is true of, in their order.
void FilterRows(const std::vector<ModelRow>& rows, const ListFilter& filter,
                std::vector<int>& indexes);

}  // namespace corvane
