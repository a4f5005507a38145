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

enum class Detail { kNames, kPositions, kDigests };

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

// From a marker, which has been read, to the line after the name; false where the block ends
// before it.
bool ReadToName(TextReader& reader, const Listing& listing, ModelEntry& entry) {
    std::string_view line;
    if (!ReadKeyword(reader, listing, entry, line)) return false;
    entry.kind = KindOfKeyword(line);
    if (!FactsOf(entry.kind).hasPosition) entry.x = -1;
    if (!SkipToName(reader, listing)) return false;
    if (!ReadBlockLine(reader, listing.modelMarker, line)) return false;
    entry.name = system::WideFromAnsi(Trim(line));
    return true;
}

// What of the lines after the name belongs to a list.
void ReadAfterName(TextReader& reader, Listing& listing, ModelEntry& entry) {
    const KindFacts& facts = FactsOf(entry.kind);
    if (!facts.hasPosition || !ReadPosition(reader, listing, entry.x)) return;
    entry.identifier = ReadIdentifier(reader, listing, facts.identifierLine - 1);
}

// Reads from a marker, which has been read, as far as the block has what is wanted of it.
void ReadEntry(TextReader& reader, Listing& listing, Detail detail, ModelEntry& entry) {
    entry.x = detail == Detail::kNames ? -1.0F : 0.0F;
    if (ReadToName(reader, listing, entry) && detail != Detail::kNames) {
        ReadAfterName(reader, listing, entry);
    }
}

// The same, and the digest of the lines after the name; of all lines where it has none.
DigestValue ReadDigestedEntry(TextReader& reader, Listing& listing, ModelEntry& entry) {
    Digest digest;
    int64_t begin = LinePosition(reader);
    entry.x = 0;
    if (ReadToName(reader, listing, entry)) {
        begin = LinePosition(reader);
        ReadAfterName(reader, listing, entry);
    }
    SeekLine(reader, begin);
    FindLine(reader, listing.modelMarker, digest);
    return ValueOf(digest);
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
    ReportMessage(message, {path, SystemError{reader.error}});
}

void ReadEntries(TextReader& reader, Detail detail, const system::FileStamp& stamp,
                 DigestedList& list) {
    Listing listing;
    std::string_view line;
    while (FindLine(reader, listing.modelMarker)) {
        ModelEntry& entry = list.models.emplace_back();
        entry.offset = LinePosition(reader);
        entry.stamp = stamp;
        ReadLine(reader, line);
        if (detail == Detail::kDigests) {
            list.digests.push_back(ReadDigestedEntry(reader, listing, entry));
        } else {
            ReadEntry(reader, listing, detail, entry);
        }
    }
}

// Reads the whole list. False when another program has changed the file meanwhile.
bool ReadListOnce(TextReader& reader, const std::wstring& path, Detail detail, DigestedList& list) {
    list = {};
    if (!OpenText(reader, path)) return true;
    system::FileStamp before;
    system::FileStamp after;
    system::GetFileStamp(reader.file, before);
    Progress progress(before.size);
    reader.progress = &progress;
    ReadEntries(reader, detail, before, list);
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

bool ListEntries(const std::wstring& path, Detail detail, DigestedList& list) {
    constexpr int kMostAttempts = 3;
    list = {};
    if (path.empty()) return true;
    bool isWhole = !IsBeingWritten(path);
    for (int attempt = 1;; ++attempt) {
        TextReader reader;
        const bool isUnchanged = ReadListOnce(reader, path, detail, list);
        if (reader.error == system::kErrorCancelled) {
            ReportReadFault(reader, path);
            list = {};
            return false;
        }
        if (!isUnchanged && attempt < kMostAttempts) continue;
        isWhole = isWhole && isUnchanged;
        ReportListFault(reader, path, !list.models.empty());
        if (!isWhole && reader.error == system::kErrorNone) {
            ReportMessage(kMsgBeingWritten, {path, HoldersOf(path)});
        }
        break;
    }
    FindOwnNumbers(list.models);
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
    DigestedList list;
    const bool isListed = ListEntries(path, Detail::kNames, list);
    models = std::move(list.models);
    return isListed;
}

bool ListModelsWithPositions(const std::wstring& path, std::vector<ModelEntry>& models) {
    DigestedList list;
    const bool isListed = ListEntries(path, Detail::kPositions, list);
    models = std::move(list.models);
    return isListed;
}

bool ListModelsWithDigests(const std::wstring& path, DigestedList& list) {
    return ListEntries(path, Detail::kDigests, list);
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
    if (ReadToName(reader, listing, entry)) ReadPosition(reader, listing, position);
    if (ReportReadFault(reader, path)) return false;
    x = position;
    return true;
}

}  // namespace corvane
