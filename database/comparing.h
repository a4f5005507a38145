// Compares two databases, or two states of one: which models were added, removed, renamed, given
// another number, changed. Both files are read once; only models whose lines are not the same byte
// for byte are looked at more closely (database/differences.h).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/differences.h"
#include "database/listing.h"

namespace corvane {

// A model of one database or of both.
struct ComparedModel {
    std::optional<ModelEntry> before;  // empty: the model was added
    std::optional<ModelEntry> now;     // empty: the model was removed
    // Of a model that both have:
    bool isRenamed = false;
    bool hasOtherNumber = false;
    bool isChanged = false;  // anything else differs
    bool HasDifference() const {
        return !before || !now || isRenamed || hasOtherNumber || isChanged;
    }
};

// The model as it is now, or was.
const ModelEntry& AnyOf(const ComparedModel& model);
// Where a listed model is in its file; one whose number is also that of others, too.
ModelPlace PlaceIn(const std::wstring& path, const ModelEntry& model);

// All models of both: those of `now` in the order of its file, then those that were removed.
//
// A model is the same in both where its identifier is, and no other model of its kind has that;
// else where its name is, and of several with one name in their order.
//
// Reports a file that is not there (3580), is no database (1083), or cannot be read (3509). False
// in these cases, and when the user cancels.
bool CompareDatabases(const std::wstring& before, const std::wstring& now,
                      std::vector<ComparedModel>& models);

}  // namespace corvane
