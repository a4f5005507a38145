// What a database's models are: names, kinds and positions.
#include <algorithm>
#include <limits>

#include "database/database_file.h"
#include "report/messages.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

enum class Detail { kNames, kPositions };

// A position outside of the single-precision range becomes the largest single.
float FirstValue(std::string_view line, ValueRow& row) {
    ParseValues(line, row);
    constexpr double kLargest = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(row.values(1), -kLargest, kLargest));
}

// What the listings hold on to from block to block.
struct Listing {
    std::string modelMarker = GetMessageBytes(kMsgModelMarker);
    std::string nameLabel = GetMessageBytes(kMsgNameLabel);
    ValueRow row;
};

// From behind a marker over the number to the keyword.
bool ReadKeyword(TextReader& reader, const Listing& listing, ModelEntry& entry,
                 std::string_view& keyword) {
    if (!ReadBlockLine(reader, listing.modelMarker, keyword)) return false;
    entry.number = LeadingInteger(keyword);
    return ReadBlockLine(reader, listing.modelMarker, keyword);
}

// From behind the keyword to the line behind the name label.
bool PassNameLabel(TextReader& reader, const Listing& listing) {
    std::string_view line;
    while (ReadBlockLine(reader, listing.modelMarker, line)) {
        if (line == listing.nameLabel) return true;
    }
    return false;
}

// The position row is the block's next line; 0 when there is none.
float ReadPosition(TextReader& reader, Listing& listing) {
    std::string_view line;
    if (!ReadBlockLine(reader, listing.modelMarker, line) || IsHeaderLine(line)) return 0;
    return FirstValue(line, listing.row);
}

// Reads from behind a marker as far as the block has what is wanted of it.
void ReadEntry(TextReader& reader, Listing& listing, Detail detail, ModelEntry& entry) {
    if (detail == Detail::kPositions) entry.x = 0;
    std::string_view line;
    if (!ReadKeyword(reader, listing, entry, line)) return;
    entry.kind = KindOfKeyword(line);
    const bool hasPosition = detail == Detail::kPositions && FactsOf(entry.kind).hasPosition;
    if (!hasPosition) entry.x = -1;
    if (!PassNameLabel(reader, listing)) return;
    if (!ReadBlockLine(reader, listing.modelMarker, line)) return;
    entry.name = system::WideFromAnsi(Trim(line));
    if (hasPosition) entry.x = ReadPosition(reader, listing);
}

std::vector<ModelEntry> ListEntries(const std::wstring& path, Detail detail) {
    std::vector<ModelEntry> entries;
    TextReader reader;
    if (!OpenText(reader, path)) return entries;
    Listing listing;
    std::string_view line;
    while (FindLine(reader, listing.modelMarker)) {
        ReadLine(reader, line);
        ReadEntry(reader, listing, detail, entries.emplace_back());
    }
    return entries;
}

}  // namespace

std::vector<ModelEntry> ListModels(const std::wstring& path) {
    return ListEntries(path, Detail::kNames);
}

std::vector<ModelEntry> ListModelsWithPositions(const std::wstring& path) {
    return ListEntries(path, Detail::kPositions);
}

float ModelPosition(const std::wstring& path, int32_t number) {
    TextReader reader;
    std::string keyword;
    if (!OpenText(reader, path) || !FindModel(reader, number, keyword)) return -1;
    Listing listing;
    ModelEntry entry;
    std::string_view line;
    FindLine(reader, listing.modelMarker);
    ReadLine(reader, line);
    if (!ReadKeyword(reader, listing, entry, line) || !PassNameLabel(reader, listing)) return 0;
    if (!ReadBlockLine(reader, listing.modelMarker, line)) return 0;  // the name
    return ReadPosition(reader, listing);
}

}  // namespace corvane
