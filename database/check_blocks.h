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

// The tables of a section or a bulkhead arrangement: the row is after the head. Checks them to the
// end of the block.
void CheckSectionTables(RowCheck& row, int64_t firstLine);
void CheckBulkheadTables(RowCheck& row, int64_t firstLine);
void CheckTorsionTables(RowCheck& row);

}  // namespace corvane
