// New databases, and the heads of new blocks.
#pragma once

#include <cstdint>
#include <string>

#include "bsd/basic_ship_data.h"
#include "database/model_kind.h"
#include "database/stamps.h"
#include "files/text_file.h"

namespace corvane {

// Writes the lines that open every block, from the marker to the name label. The line after them is
// the model's name.
void WriteBlockHead(TextWriter& writer, int32_t number, ModelKind kind, const Stamp& stamp);

// Writes a new database that holds only the ship's data; an old file of that name is replaced. An
// empty path does nothing; a read-only file is reported (message 1086) and stays. MainData(4) may
// change as in WriteBasicShipData. True when the file was written.
bool CreateDatabaseFile(const std::wstring& path, BasicShipData& bsd);

}  // namespace corvane
