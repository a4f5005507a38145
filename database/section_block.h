// SECTION blocks of the model database, read and written as a whole (docs/section-block.md).
// database/editing.h puts a written block into a file.
#pragma once

#include <string>

#include "database/model_kind.h"
#include "database/scanning.h"
#include "database/section.h"
#include "files/text_file.h"

namespace corvane {

// Writes the whole block, head and all, at the writer's position, with this model number. A record
// without an identifier gets a new one and keeps it.
void WriteSectionBlock(TextWriter& writer, SectionModel& section, int32_t number);

// Reads the model at a place. Reports a file that is not there (message 3580), that is not a
// database (1083), a number that no block has (1011), a read that fails (3509), and a bulkhead
// arrangement unless `allowBulkhead`; a torsion model gives false in silence. False in all these
// cases; the record is untouched then. A table that is missing stays empty. What rows say counts
// more than what counts say, and a row that belongs to no panel is left out; a damaged block gives
// what could be read, and true.
bool ReadSectionBlock(const std::wstring& path, const BlockPlace& place, bool allowBulkhead,
                      SectionModel& section);

// ---- The same, of open files -------------------------------------------------------------------

// The block's lines after the name label.
void WriteSectionBody(TextWriter& writer, SectionModel& section);
// Reads the block before whose marker the reader is, as FindModel leaves it, into a new record. Of
// a bulkhead arrangement the head, the bulkheads' names, their nodes and the holds are read.
void ReadSectionLines(TextReader& reader, ModelKind kind, SectionModel& section);

}  // namespace corvane
