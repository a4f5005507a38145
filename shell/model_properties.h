// What the box Properties shows of a model, so that no program has to be started to know it.
#pragma once

#include <string>

#include "database/listing.h"

namespace corvane {

// Lines "label tab value", ended by carriage returns. False when the model cannot be read, which is
// reported.
bool ReadProperties(const ModelEntry& model, std::wstring& text);

}  // namespace corvane
