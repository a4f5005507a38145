#include "database/copying.h"

#include <algorithm>

#include "database/scanning.h"
#include "report/messages.h"
#include "text/numbers.h"

namespace corvane {
namespace {

// The lines between a marker and the block's body.
struct NumberLine {
    bool found = false;  // false: the block ends before it has a number
    int32_t number = 0;
    int64_t begin = 0;
    int64_t end = 0;
};

// The reader is after a marker.
NumberLine ReadNumberLine(TextReader& reader, std::string_view marker) {
    NumberLine result;
    std::string_view line;
    do {
        result.begin = LinePosition(reader);
        if (!ReadLine(reader, line)) return result;
    } while (IsCommentLine(line));
    result.found = line != marker;
    result.number = LeadingInteger(line);
    result.end = LinePosition(reader);
    return result;
}

int32_t Shifted(int32_t number, const BlockRun& run) {
    if (number <= run.shiftAbove) return number;
    const int64_t shifted = number + run.shift;
    return static_cast<int32_t>(std::clamp<int64_t>(shifted, INT32_MIN, INT32_MAX));
}

// Copies to the marker of the run's block `index`; false at the end of the file.
bool CopyToBlock(TextReader& from, TextWriter& to, std::string_view marker, const BlockRun& run,
                 size_t index) {
    if (run.known == nullptr) return CopyToLine(from, marker, to);
    const std::vector<int64_t>& offsets = run.known->offsets;
    const bool isThere = run.first + index < offsets.size();
    CopySpan(from, isThere ? offsets[run.first + index] : -1, to);
    return isThere;
}

// Whether the run's block `index`, whose marker is at `place`, is the known one.
bool IsAsKnown(const BlockRun& run, size_t index, int64_t place, const NumberLine& numberLine) {
    if (run.known == nullptr) return true;
    const int32_t number = numberLine.found ? numberLine.number : 0;
    return run.known->offsets[run.first + index] == place &&
           run.known->numbers[run.first + index] == number;
}

}  // namespace

void CopyFileHead(TextReader& from, TextWriter& to) {
    CopyToLine(from, GetMessageBytes(kMsgModelMarker), to);
}

void CopyModels(TextReader& from, TextWriter& to, int32_t first, int32_t last, int32_t shift) {
    std::string keyword;
    if (!FindModel(from, first, keyword)) return;
    BlockRun run;
    if (last != -1) run.stopBefore = int64_t{last} + 1;
    run.shift = shift;
    CopyBlocks(from, to, run);
}

bool CopyBlocks(TextReader& from, TextWriter& to, const BlockRun& run) {
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    const std::string commentRule = GetMessageBytes(kMsgCommentRule);
    for (size_t blocks = 0; CopyToBlock(from, to, marker, run, blocks); ++blocks) {
        const int64_t markerPlace = LinePosition(from);
        std::string_view line;
        const bool hasMarker = ReadLine(from, line) && line == marker;
        const int64_t behindMarker = LinePosition(from);
        const NumberLine numberLine = ReadNumberLine(from, marker);
        SeekLine(from, markerPlace);
        if (!hasMarker || !IsAsKnown(run, blocks, markerPlace, numberLine)) {
            if (from.error == system::kErrorNone) from.error = system::kErrorFileChanged;
            return false;
        }
        if (blocks == run.mostBlocks || (numberLine.found && numberLine.number == run.stopBefore)) {
            return true;
        }
        CopySpan(from, behindMarker, to);
        if (!numberLine.found) continue;

        WriteLine(to, commentRule);
        const int32_t number = Shifted(numberLine.number, run);
        const bool renumbered = number != numberLine.number;
        if (renumbered) WriteLine(to, PrintForm(number));
        SeekLine(from, renumbered ? numberLine.end : numberLine.begin);
    }
    return false;
}

void SkipBlock(TextReader& reader) {
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    std::string_view line;
    if (!FindLine(reader, marker)) return;
    ReadLine(reader, line);
    int64_t behindBlock = LinePosition(reader);
    while (ReadBlockLine(reader, marker, line)) behindBlock = LinePosition(reader);
    if (FindLine(reader, marker)) SeekLine(reader, behindBlock);
}

}  // namespace corvane
