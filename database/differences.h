// What differs between two models of one kind, value by value: an engineer reads what was changed
// in the model since another file was made. Both blocks are read whole, one model at a time.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "database/scanning.h"

namespace corvane {

struct Difference {
    std::wstring where;   // "Panel 3 'Bottom', node 4"; of a whole model: "Head"
    std::wstring field;   // "Thickness [mm]"; of an item that only one of the models has: empty
    std::wstring before;  // empty: nothing was there
    std::wstring now;     // empty: nothing is there
    bool operator==(const Difference&) const = default;
};

// Gets one difference after the other; false: no more of them is wanted.
using OnDifference = std::function<bool(const Difference&)>;

// A model in its database.
struct ModelPlace {
    const std::wstring& path;
    BlockPlace place;
};

// Compares two models: the name, the head, and all tables, those that this program does not know,
// too. Panels, and bulkheads, are the same by their names and their order; their items, such as
// nodes, by their texts and their order (database/alignment.h). What is no difference: the model's
// number, who wrote it and when, comment lines, the order of the tables, and the form of numbers.
//
// False, and reported, when one of the two cannot be read (3580, 1083, 1011, 3509); differences may
// have come before.
bool CompareModels(const ModelPlace& before, const ModelPlace& now,
                   const OnDifference& onDifference);
// Whether the two differ in more than the name.
bool FindOtherContents(const ModelPlace& before, const ModelPlace& now, bool& differ);

}  // namespace corvane
