// What copies of models do not have of their originals: found before the copies are made, and shown
// in a report when they are there, so that nothing is left out in silence.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/check.h"

namespace corvane {

struct CopyLosses {
    std::wstring source;  // the database of the originals
    std::vector<Finding> findings = {};
    int32_t models = 0;  // that lose something
};

// Adds what a copy of this model leaves out. False when the model cannot be read, which is
// reported: it cannot be copied either.
bool FindCopyLosses(CopyLosses& losses, const BlockPlace& place);

// Shows them; nothing happens without any. `command` is the menu item that has made the copies.
void ShowCopyLosses(const CopyLosses& losses, uint16_t command);

}  // namespace corvane
