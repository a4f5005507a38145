// BHA blocks of the model database, read and written as a whole (docs/bulkhead-block.md).
// database/editing.h puts a written block into a file.
#pragma once

#include <string>

#include "database/bulkhead.h"
#include "database/scanning.h"
#include "files/text_file.h"

namespace corvane {

// Writes the whole block, head and all, at the writer's position, with this model number. A record
// without an identifier gets a new one and keeps it.
void WriteBulkheadBlock(TextWriter& writer, BulkheadArrangement& arrangement, int32_t number);

// Reads the model at a place. Reports a file that is not there (message 3580), that is not a
// database (1083), a number that no block of this kind has ("Can not find BHA ..."), and a read
// that fails (3509). False in all these cases: x_m is -1 then, the rest of the record untouched. A
// table that is missing stays empty. What rows say counts more than what counts say, and a row that
// belongs to no bulkhead is left out; a damaged block gives what could be read, and true.
bool ReadBulkheadBlock(const std::wstring& path, const BlockPlace& place,
                       BulkheadArrangement& arrangement);

// ---- The same, of open files -------------------------------------------------------------------

// The block's lines after the name label.
void WriteBulkheadBody(TextWriter& writer, BulkheadArrangement& arrangement);
// Reads the block before whose marker the reader is, as FindModel leaves it, into a new record.
void ReadBulkheadLines(TextReader& reader, BulkheadArrangement& arrangement);

}  // namespace corvane
