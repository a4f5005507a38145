// Any bytes as a database file: every scan ends, agrees with the others and with a plain reading
// line by line, and a copy of all models reproduces the file but for what copying is told to
// change.
#include <algorithm>
#include <string>
#include <vector>

#include "database/copying.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "fuzz/fuzz.h"
#include "fuzz/scratch_file.h"
#include "text/numbers.h"

namespace corvane {
namespace {

using fuzz::BytesOf;
using fuzz::Check;
using fuzz::ScratchFile;
using fuzz::WriteBytesTo;

// One line of the plain reading.
struct PlainLine {
    std::string bytes;  // with its end
    std::string text;   // without
    bool Comment() const { return IsCommentLine(text); }
};

std::vector<PlainLine> PlainLines(std::string_view bytes) {
    std::vector<PlainLine> lines;
    for (size_t at = 0; at < bytes.size();) {
        const size_t feed = std::min(bytes.find('\n', at), bytes.size() - 1);
        PlainLine line;
        line.bytes = bytes.substr(at, feed + 1 - at);
        line.text = line.bytes;
        if (line.text.back() == '\n') line.text.pop_back();
        if (!line.text.empty() && line.text.back() == '\r') line.text.pop_back();
        lines.push_back(line);
        at = feed + 1;
    }
    if (!lines.empty() && lines.back().bytes.back() != '\n') {
        lines.back().bytes += lines.back().bytes.back() == '\r' ? "\n" : "\r\n";
    }
    return lines;
}

// A block of the plain reading.
struct PlainBlock {
    size_t marker = 0;  // index of its line
    size_t numberLine = 0;
    bool hasNumber = false;
    int32_t number = 0;
};

std::vector<PlainBlock> PlainBlocks(const std::vector<PlainLine>& lines,
                                    const std::string& marker) {
    std::vector<PlainBlock> blocks;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].text != marker) continue;
        PlainBlock block;
        block.marker = i;
        block.numberLine = i + 1;
        while (block.numberLine < lines.size() && lines[block.numberLine].Comment()) {
            ++block.numberLine;
        }
        block.hasNumber = block.numberLine < lines.size() && lines[block.numberLine].text != marker;
        if (block.hasNumber) block.number = LeadingInteger(lines[block.numberLine].text);
        blocks.push_back(block);
    }
    return blocks;
}

void AppendLines(std::string& text, const std::vector<PlainLine>& lines, size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) text += lines[i].bytes;
}

// What CopyFileHead and CopyModels(1, -1, 0) make of the file.
std::string PlainCopy(const std::vector<PlainLine>& lines, const std::vector<PlainBlock>& blocks,
                      const std::string& commentRule) {
    std::string text;
    AppendLines(text, lines, 0, blocks.empty() ? lines.size() : blocks[0].marker);
    const auto first = std::find_if(blocks.begin(), blocks.end(), [](const PlainBlock& block) {
        return block.hasNumber && block.number == 1;
    });
    if (first == blocks.end()) return text;
    if (first != blocks.begin()) {
        // The comments in front of the block come with it.
        size_t begin = first->marker;
        while (begin > first[-1].marker + 1 && lines[begin - 1].Comment()) --begin;
        AppendLines(text, lines, begin, first->marker);
    }
    for (auto block = first; block != blocks.end(); ++block) {
        const size_t end = block + 1 == blocks.end() ? lines.size() : block[1].marker;
        text += lines[block->marker].bytes;
        if (block->hasNumber) text += commentRule + "\r\n";
        AppendLines(text, lines, block->hasNumber ? block->numberLine : block->marker + 1, end);
    }
    return text;
}

// Every scan against the plain reading's blocks.
void CheckScans(const std::wstring& path, const std::vector<PlainBlock>& blocks) {
    IsDatabaseFile(path);
    Check(CountModels(path) == static_cast<int>(blocks.size()));
    const std::vector<ModelEntry> entries = ListModelsWithPositions(path);
    Check(entries.size() == blocks.size());
    Check(ListModels(path).size() == blocks.size());
    // A few numbers will do: a run must be quick.
    TextReader reader;
    Check(OpenText(reader, path));
    for (int32_t number = 0; number <= 4; ++number) {
        const auto block = std::find_if(
            blocks.begin(), blocks.end(),
            [number](const PlainBlock& one) { return one.hasNumber && one.number == number; });
        std::string keyword;
        SeekLine(reader, 0);
        Check(FindModel(reader, number, keyword) == (block != blocks.end()));
        if (block == blocks.end()) continue;
        const float x = ModelPosition(path, number);
        const ModelEntry& entry = entries[static_cast<size_t>(block - blocks.begin())];
        Check(entry.kind == ModelKind::kTorsion ? entry.x == -1 : entry.x == x);
    }
}

void CheckCopy(const std::wstring& path, const std::wstring& copy, const std::string& expected) {
    TextReader reader;
    TextWriter writer;
    Check(OpenText(reader, path) && CreateText(writer, copy));
    CopyFileHead(reader, writer);
    CopyModels(reader, writer, 1, -1, 0);
    Check(CloseText(writer) && reader.error == system::kErrorNone);
    Check(BytesOf(copy) == expected);
}

}  // namespace
}  // namespace corvane

CORVANE_FUZZ_TARGET(database_scan) {
    using namespace corvane;
    using namespace corvane::fuzz;
    // Longer lines are cut by the reader; the plain reading does not do that.
    if (bytes.size() > kLongestLine) return;
    static const ScratchFile file;
    static const ScratchFile copy;
    static const StructuralLines structure = FetchStructuralLines();
    // A first byte of 255 moves the rest to where the reader fills its buffer again.
    std::string text;
    if (bytes.size() > 2 && bytes[0] == '\xFF') {
        while (text.size() + 2000 < kTextBufferSize) text += std::string(999, '-') + '\n';
        text.resize(kTextBufferSize - static_cast<unsigned char>(bytes[1]) - 1, '-');
        text += '\n';
        bytes.remove_prefix(2);
    }
    text += bytes;
    WriteBytesTo(file.path, text);
    const std::vector<PlainLine> lines = PlainLines(text);
    const std::vector<PlainBlock> blocks = PlainBlocks(lines, structure.modelMarker);
    CheckScans(file.path, blocks);
    CheckCopy(file.path, copy.path, PlainCopy(lines, blocks, structure.commentRule));
}
