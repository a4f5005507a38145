// The check of one block, for database/check.cpp.
#pragma once

#include <cstdint>
#include <string>

#include "database/check_rows.h"

namespace corvane {

// What the check of the whole file needs of a block.
struct CheckedBlock {
    int64_t firstLine = 0;  // its marker's
    int64_t number = 0;     // 0: it has none from 1 on
    // Where its number is, or has to be put in; false: nobody can say.
    bool hasNumberPlace = false;
    Repair numberLine;
    // The lines of the name and of the identifier, as `was`, `begin` and `end` say; line 0: none.
    Repair nameLine;
    std::string identifier;
    // The line of the identifier is known: nothing is wrong with the lines before it.
    bool hasIdentifierLine = false;
    Repair identifierLine;
    bool hidesBlock = false;  // the marker of a block in it is damaged
};

// Checks the block whose marker has been read; the lines are then at the next marker, or at the
// end. `found` has its findings, in the order in which they were found.
void CheckBlock(CountedLines& lines, const StructuralLines& structure, BlockFindings& found,
                CheckedBlock& block);

// The same of the block before whose marker the reader is, as FindModel leaves it; its marker is
// line 1. `begin` is the marker's place; the reader is at the block's end afterwards.
void CheckBlockAt(TextReader& reader, BlockFindings& found, CheckedBlock& block, int64_t& begin);

// Whether a copy of the block is made byte by byte (database/carrying.h): read and written again it
// would lose something, and nothing is wrong with the lines of its head.
bool IsCarriedOver(const BlockFindings& found, const CheckedBlock& block);

// The tables of a section or a bulkhead arrangement: the row is after the head. Checks them to the
// end of the block.
void CheckSectionTables(RowCheck& row, int64_t firstLine);
void CheckBulkheadTables(RowCheck& row, int64_t firstLine);
void CheckTorsionTables(RowCheck& row);

}  // namespace corvane
