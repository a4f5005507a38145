#include "database/carrying.h"

#include "database/check_blocks.h"
#include "database/rows.h"
#include "database/tables.h"
#include "files/read_fault.h"
#include "text/numbers.h"

namespace corvane {
namespace {

// Copies to the line, which is then skipped.
void CopyToOwnLine(TextReader& reader, TextWriter& writer, const Repair& line) {
    CopySpan(reader, line.begin, writer);
    SeekLine(reader, line.end);
}

}  // namespace

Carried CarryBlock(TextWriter& writer, const ModelSource& source, const std::wstring* newName,
                   int32_t newNumber) {
    TextReader reader;
    std::string keyword;
    if (!OpenText(reader, source.path) || !FindBlock(reader, source.place, keyword)) {
        return Carried::kNotNeeded;  // whoever reads the model reports it
    }
    BlockFindings found;
    CheckedBlock block;
    int64_t begin = 0;
    CheckBlockAt(reader, found, block, begin);
    if (!IsCarriedOver(found, block)) return Carried::kNotNeeded;

    const int64_t end = LinePosition(reader);
    SeekLine(reader, begin);
    CopyToOwnLine(reader, writer, block.numberLine);
    WriteLine(writer, PrintForm(newNumber));
    if (newName != nullptr) {
        CopyToOwnLine(reader, writer, block.nameLine);
        RowWriter row(writer);
        HeadTextLine(row, *newName);
    }
    CopyToOwnLine(reader, writer, block.identifierLine);
    WriteLine(writer, NewIdentifier());
    CopySpan(reader, end, writer);
    return ReportReadFault(reader, source.path) ? Carried::kFailed : Carried::kDone;
}

}  // namespace corvane
