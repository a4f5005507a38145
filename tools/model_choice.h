// Which models of a database the user means.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "database/listing.h"

namespace corvane {

// The models that the operands name, in the order of the file, each once: by its number, or by its
// name when exactly one model has that. A number counts before a name. False, and reported, when an
// operand leads to no model, or not to one alone.
bool RequireModels(const std::wstring& path, const std::vector<ModelEntry>& models,
                   std::span<const std::wstring> operands, std::vector<ModelEntry>& chosen);
// All sections of a DOS database; those beyond the library's list as far as it can be asked for
// them. Reported when there may be more, and when it cannot be read; false then.
bool RequireLegacySections(const std::wstring& path, std::vector<ModelEntry>& sections);
// All of them. False, and reported, when one of them has no number of its own.
bool RequireAllModels(const std::wstring& path, const std::vector<ModelEntry>& models);

}  // namespace corvane
