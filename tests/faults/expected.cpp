#include "tests/faults/expected.h"

#include <vector>

#include "bsd/bsd_file.h"
#include "bsd/bsd_records.h"
#include "database/scanning.h"
#include "tests/database/block_sample.h"
#include "text/numbers.h"

namespace corvane::faults {
namespace {

// Of a database whose blocks have the numbers 1, 2, 3 ...
struct Parts {
    std::string head;
    std::vector<std::string> blocks;  // from the marker on
};

std::string MarkerLine() {
    return FetchStructuralLines().modelMarker + "\r\n";
}

Parts Split(const std::string& text) {
    const std::string marker = MarkerLine();
    size_t begin = text.find(marker);
    Parts parts{text.substr(0, begin), {}};
    while (begin < text.size()) {
        const size_t end = text.find(marker, begin + 1);
        parts.blocks.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return parts;
}

std::string Joined(const Parts& parts) {
    std::string text = parts.head;
    for (const std::string& block : parts.blocks) text += block;
    return text;
}

std::string& BlockOf(Parts& parts, int32_t number) {
    return parts.blocks.at(static_cast<size_t>(number) - 1);
}

int32_t NextNumber(const Parts& parts) {
    return static_cast<int32_t>(parts.blocks.size()) + 1;
}

// Comment lines at the end of a block are in front of the next marker, and stay there whatever
// becomes of the block.
std::string ClosingComments(const std::string& block) {
    size_t begin = block.size();
    while (begin > 1) {
        const size_t line = block.rfind('\n', begin - 2) + 1;
        if (block[line] != '*') break;
        begin = line;
    }
    return block.substr(begin);
}

// A block with another number; between its marker and its number is one comment rule.
std::string Renumbered(const std::string& block, int32_t from, int32_t to) {
    const std::string before = MarkerLine() + FetchStructuralLines().commentRule + "\r\n";
    return test::Replaced(block, before + PrintForm(from) + "\r\n",
                          before + PrintForm(to) + "\r\n");
}

}  // namespace

std::string WithBlock(const std::string& text, int32_t number, const MakeBlock& block) {
    Parts parts = Split(text);
    std::string& place = BlockOf(parts, number);
    const std::string fresh = block(number);
    std::string after = number + 1 < NextNumber(parts) ? ClosingComments(place) : "";
    // The new block brings its own, unless they are others.
    const std::string own = ClosingComments(fresh);
    if (after.starts_with(own)) after.erase(0, own.size());
    place = fresh + after;
    return Joined(parts);
}

std::string WithNewBlock(const std::string& text, const MakeBlock& block) {
    return text + block(NextNumber(Split(text)));
}

std::string WithCopy(const std::string& text, int32_t number) {
    Parts parts = Split(text);
    return text + Renumbered(BlockOf(parts, number), number, NextNumber(parts));
}

std::string WithoutBlock(const std::string& text, int32_t number) {
    Parts parts = Split(text);
    const bool isLast = number + 1 == NextNumber(parts);
    BlockOf(parts, number) = isLast ? "" : ClosingComments(BlockOf(parts, number));
    for (int32_t later = number + 1; later < NextNumber(parts); ++later) {
        BlockOf(parts, later) = Renumbered(BlockOf(parts, later), later, later - 1);
    }
    return Joined(parts);
}

std::string WithName(const std::string& text, int32_t number, const std::wstring& oldName,
                     const std::wstring& newName) {
    const auto lineOf = [](const std::wstring& name) {
        return "\r\n" + system::AnsiFromWide(name) + "\r\n";
    };
    Parts parts = Split(text);
    std::string& block = BlockOf(parts, number);
    block = test::Replaced(block, lineOf(oldName), lineOf(newName));
    return Joined(parts);
}

std::string WithShipData(const std::string& text, BasicShipData bsd) {
    Parts parts = Split(text);
    const std::string header = std::string(kBsdHeaderLine) + "\r\n";
    parts.head.resize(parts.head.find(header));
    parts.head += header + "*\r\n" +
                  test::WrittenText([&](TextWriter& writer) { WriteBasicShipData(writer, bsd); });
    return Joined(parts);
}

}  // namespace corvane::faults
