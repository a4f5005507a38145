// Models by their rows: a row of a list names the model that stood there when the list was filled,
// and another program may have changed the file since.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/database_file.h"

namespace corvane {

// The model in row `row`, from 1, of a database's list. False when there is none of that number in
// that place, which is reported (1011, 3522).
bool FindInRow(const std::vector<ModelEntry>& models, int32_t row, const std::wstring& path,
               ModelEntry& model);

// The current model as the file has it now. False, and reported, when the open database is missing,
// or has none in that row.
bool ReadCurrentModel(ModelEntry& model);

// Whether the current model is still the one that the user was asked about; reported when not.
bool IsUnchanged(const ModelEntry& asked);

// Another file, to which the user took a read-only database, becomes the open one.
void OpenInstead(const std::wstring& path);

}  // namespace corvane
