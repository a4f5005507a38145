// Copies of models that have more than this program reads: tables that it does not know, columns of
// a newer layout, rows that belong to nothing. Read and written again they would lose it, so their
// blocks are carried over.
#pragma once

#include <cstdint>
#include <string>

#include "database/editing.h"
#include "files/text_file.h"

namespace corvane {

enum class Carried {
    kNotNeeded,  // nothing was written: the model is read and written again as any other
    kDone,
    kFailed  // reported: the source cannot be read to its end
};

// Writes a copy of the block byte by byte, with a new number, a new identifier and, where it is not
// null, this name, provided that the block has something that the reader passes over, and that
// nothing is wrong with its head. FindLossesOfCopy (database/check.h) says what is lost otherwise.
Carried CarryBlock(TextWriter& writer, const ModelSource& source, const std::wstring* newName,
                   int32_t newNumber);

}  // namespace corvane
