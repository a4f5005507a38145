#include "database/listing.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "database/model_kind.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/read_fault.h"
#include "report/reporters.h"
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

// From a marker over the number to the keyword; the marker has been read.
bool ReadKeyword(TextReader& reader, const Listing& listing, ModelEntry& entry,
                 std::string_view& keyword) {
    if (!ReadBlockLine(reader, listing.modelMarker, keyword)) return false;
    entry.number = LeadingInteger(keyword);
    return ReadBlockLine(reader, listing.modelMarker, keyword);
}

// From the keyword, which has been read, to the line after the name label.
bool SkipToName(TextReader& reader, const Listing& listing) {
    std::string_view line;
    while (ReadBlockLine(reader, listing.modelMarker, line)) {
        if (line == listing.nameLabel) return true;
    }
    return false;
}

// Reads the position row, the block's next line. False, and `x` unchanged, if the block lacks it.
bool ReadPosition(TextReader& reader, Listing& listing, float& x) {
    std::string_view line;
    if (!ReadBlockLine(reader, listing.modelMarker, line) || IsHeaderLine(line)) return false;
    x = FirstValue(line, listing.row);
    return true;
}

// The identifier is so many lines after the position row; empty where a table begins before it.
std::string ReadIdentifier(TextReader& reader, const Listing& listing, int lines) {
    std::string_view line;
    for (int i = 0; i < lines; ++i) {
        if (!ReadBlockLine(reader, listing.modelMarker, line) || IsHeaderLine(line)) return {};
    }
    return std::string(Trim(line));
}

// Reads from a marker, which has been read, as far as the block has what is wanted of it.
void ReadEntry(TextReader& reader, Listing& listing, Detail detail, ModelEntry& entry) {
    if (detail == Detail::kPositions) entry.x = 0;
    std::string_view line;
    if (!ReadKeyword(reader, listing, entry, line)) return;
    entry.kind = KindOfKeyword(line);
    const bool hasPosition = detail == Detail::kPositions && FactsOf(entry.kind).hasPosition;
    if (!hasPosition) entry.x = -1;
    if (!SkipToName(reader, listing)) return;
    if (!ReadBlockLine(reader, listing.modelMarker, line)) return;
    entry.name = system::WideFromAnsi(Trim(line));
    if (!hasPosition || !ReadPosition(reader, listing, entry.x)) return;
    entry.identifier = ReadIdentifier(reader, listing, FactsOf(entry.kind).identifierLine - 1);
}

void FindOwnNumbers(std::vector<ModelEntry>& entries) {
    std::unordered_map<int32_t, int> blocks;
    blocks.reserve(entries.size());
    for (const ModelEntry& entry : entries) ++blocks[entry.number];
    for (ModelEntry& entry : entries) {
        entry.hasOwnNumber = entry.number >= 1 && blocks[entry.number] == 1;
    }
}

bool IsMissing(const TextReader& reader) {
    return reader.error == system::kErrorFileNotFound || reader.error == system::kErrorPathNotFound;
}

void ReportListFault(const TextReader& reader, const std::wstring& path, bool isHalf) {
    if (reader.error == system::kErrorNone || IsMissing(reader)) return;
    const MessageNumber message = isHalf ? kMsgListIsHalf : kMsgFileNotRead;
    ReportMessage(message, {path, system::ErrorText(reader.error)});
}

void ReadEntries(TextReader& reader, Detail detail, const system::FileStamp& stamp,
                 std::vector<ModelEntry>& entries) {
    Listing listing;
    std::string_view line;
    while (FindLine(reader, listing.modelMarker)) {
        ModelEntry& entry = entries.emplace_back();
        entry.offset = LinePosition(reader);
        entry.stamp = stamp;
        ReadLine(reader, line);
        ReadEntry(reader, listing, detail, entry);
    }
}

// Reads the whole list. False when another program has changed the file meanwhile.
bool ReadListOnce(TextReader& reader, const std::wstring& path, Detail detail,
                  std::vector<ModelEntry>& entries) {
    entries.clear();
    if (!OpenText(reader, path)) return true;
    system::FileStamp before;
    system::FileStamp after;
    system::GetFileStamp(reader.file, before);
    Progress progress(before.size);
    reader.progress = &progress;
    ReadEntries(reader, detail, before, entries);
    reader.progress = nullptr;
    return system::GetFileStamp(path, after) == system::kErrorNone && before == after;
}

// Whether another program has the file open for writing, even after a second.
bool IsBeingWritten(const std::wstring& path) {
    system::File file;
    const system::ErrorNumber error = OpenPatiently(path, file);
    system::CloseFile(file);
    return error == system::kErrorSharingViolation || error == system::kErrorLockViolation;
}

bool ListEntries(const std::wstring& path, Detail detail, std::vector<ModelEntry>& entries) {
    constexpr int kMostAttempts = 3;
    entries.clear();
    if (path.empty()) return true;
    bool isWhole = !IsBeingWritten(path);
    for (int attempt = 1;; ++attempt) {
        TextReader reader;
        const bool isUnchanged = ReadListOnce(reader, path, detail, entries);
        if (reader.error == system::kErrorCancelled) {
            ReportReadFault(reader, path);
            entries.clear();
            return false;
        }
        if (!isUnchanged && attempt < kMostAttempts) continue;
        isWhole = isWhole && isUnchanged;
        ReportListFault(reader, path, !entries.empty());
        if (!isWhole && reader.error == system::kErrorNone) {
            ReportMessage(kMsgBeingWritten, {path, HoldersOf(path)});
        }
        break;
    }
    FindOwnNumbers(entries);
    return true;
}

}  // namespace

BlockPlace PlaceOf(const ModelEntry& model) {
    if (!model.hasOwnNumber) return model.number;
    return {model.number, model.offset, model.stamp};
}

std::vector<ModelEntry> ListModels(const std::wstring& path) {
    std::vector<ModelEntry> models;
    ListModels(path, models);
    return models;
}

std::vector<ModelEntry> ListModelsWithPositions(const std::wstring& path) {
    std::vector<ModelEntry> models;
    ListModelsWithPositions(path, models);
    return models;
}

bool ListModels(const std::wstring& path, std::vector<ModelEntry>& models) {
    return ListEntries(path, Detail::kNames, models);
}

bool ListModelsWithPositions(const std::wstring& path, std::vector<ModelEntry>& models) {
    return ListEntries(path, Detail::kPositions, models);
}

bool ReadModelAt(const std::wstring& path, const BlockPlace& place, ModelEntry& model) {
    TextReader reader;
    std::string keyword;
    if (!OpenText(reader, path) || !FindBlockAtPlace(reader, place, keyword)) return false;
    Listing listing;
    ModelEntry read;
    read.offset = place.offset;
    read.stamp = place.stamp;
    read.hasOwnNumber = true;
    FindLine(reader, listing.modelMarker);
    std::string_view line;
    ReadLine(reader, line);
    ReadEntry(reader, listing, Detail::kNames, read);
    if (reader.error != system::kErrorNone) return false;
    model = std::move(read);
    return true;
}

float ModelPosition(const std::wstring& path, const BlockPlace& place) {
    float x = -1;
    ReadModelPosition(path, place, x);
    return x;
}

bool ReadModelPosition(const std::wstring& path, const BlockPlace& place, float& x) {
    if (path.empty()) return false;
    TextReader reader;
    std::string keyword;
    if (!OpenText(reader, path) || !FindBlock(reader, place, keyword)) {
        if (IsMissing(reader)) {
            ReportMessage(kMsgDatabaseMissing, {path});
        } else {
            ReportReadFault(reader, path);
        }
        return false;
    }
    Listing listing;
    ModelEntry entry;
    std::string_view line;
    FindLine(reader, listing.modelMarker);
    ReadLine(reader, line);
    float position = 0;
    if (ReadKeyword(reader, listing, entry, line) && SkipToName(reader, listing) &&
        ReadBlockLine(reader, listing.modelMarker, line)) {  // the name
        ReadPosition(reader, listing, position);
    }
    if (ReportReadFault(reader, path)) return false;
    x = position;
    return true;
}

}  // namespace corvane
