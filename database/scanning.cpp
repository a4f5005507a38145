#include "database/scanning.h"

#include <algorithm>

#include "files/read_fault.h"
#include "report/reporters.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

// Looks for the comment lines directly before the marker at `marker`, from a place before it that
// need not be where a line begins. Where a line before them is seen, the reader goes to them.
bool SeekComments(TextReader& reader, int64_t from, int64_t marker) {
    SeekLine(reader, from);
    std::string_view line;
    ReadLine(reader, line);  // may be half a line
    int64_t place = -1;
    while (LinePosition(reader) < marker && ReadLine(reader, line)) {
        if (!IsCommentLine(line)) place = LinePosition(reader);
    }
    if (place >= 0) SeekLine(reader, place);
    return place >= 0;
}

// From the marker at `marker` to the comment lines directly before it, which are not before `from`,
// where a line begins.
void SeekBeforeMarker(TextReader& reader, int64_t from, int64_t marker) {
    constexpr int64_t kUsualComments = 1024;
    for (int64_t back = kUsualComments; marker - back > from; back *= 2) {
        if (SeekComments(reader, marker - back, marker)) return;
    }
    SeekLine(reader, from);
    std::string_view line;
    int64_t place = from;
    while (ReadSignificantLine(reader, line) && LinePosition(reader) <= marker) {
        place = LinePosition(reader);
    }
    SeekLine(reader, place);
}

// Reads the head of the block whose marker is the next line. Whether it is the block of this number
// and, when `keyword` is not empty, this keyword; `keyword` is then the block's.
bool ReadsAsBlock(TextReader& reader, std::string_view marker, int32_t number,
                  std::string& keyword) {
    std::string_view line;
    if (!ReadLine(reader, line) || line != marker || !ReadBlockLine(reader, marker, line) ||
        LeadingInteger(line) != number) {
        return false;
    }
    // A block that has lost its keyword is still the one of its number.
    if (!ReadBlockLine(reader, marker, line)) line = {};
    if (!keyword.empty() && keyword != line) return false;
    keyword = line;
    return true;
}

}  // namespace

StructuralLines FetchStructuralLines() {
    StructuralLines lines;
    lines.commentRule = GetMessageBytes(kMsgCommentRule);
    lines.modelMarker = GetMessageBytes(kMsgModelMarker);
    lines.versionLabel = GetMessageBytes(kMsgFormatVersionLabel);
    lines.nameLabel = GetMessageBytes(kMsgNameLabel);
    lines.signature = GetMessageBytes(kMsgSignature);
    lines.headLabel = GetMessageBytes(kMsgFileHeadLabel);
    return lines;
}

bool IsDatabaseFile(const std::wstring& path) {
    TextReader reader;
    return OpenText(reader, path) && IsDatabase(reader);
}

bool IsDatabase(TextReader& reader) {
    SeekLine(reader, 0);
    std::string_view line;
    const std::string signature = GetMessageBytes(kMsgSignature);
    reader.readSize = kSmallRead;
    const bool isDatabase = ReadSignificantLine(reader, line) &&
                            UpperCase(Trim(line)) == Trim(std::string_view(signature));
    reader.readSize = kTextBufferSize;
    SeekLine(reader, 0);
    return isDatabase;
}

bool ReadBlockLine(TextReader& reader, std::string_view modelMarker, std::string_view& line) {
    const int64_t place = LinePosition(reader);
    if (!ReadSignificantLine(reader, line)) return false;
    if (line != modelMarker) return true;
    SeekLine(reader, place);
    return false;
}

bool FindModel(TextReader& reader, int32_t number, std::string& keyword) {
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    int64_t from = LinePosition(reader);
    while (FindLine(reader, marker)) {
        const int64_t place = LinePosition(reader);
        if (ReadsAsBlock(reader, marker, number, keyword)) {
            SeekBeforeMarker(reader, from, place);
            return true;
        }
        from = LinePosition(reader);
    }
    return false;
}

bool FindBlockAtPlace(TextReader& reader, const BlockPlace& place, std::string& keyword) {
    system::FileStamp now;
    if (place.offset < 0 || system::GetFileStamp(reader.file, now) != system::kErrorNone ||
        now != place.stamp) {
        return false;
    }
    reader.readSize = kSmallRead;
    SeekLine(reader, place.offset);
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    if (ReadsAsBlock(reader, marker, place.number, keyword)) {
        SeekBeforeMarker(reader, 0, place.offset);
        return true;
    }
    reader.readSize = kTextBufferSize;
    return false;
}

bool FindBlock(TextReader& reader, const BlockPlace& place, std::string& keyword) {
    if (FindBlockAtPlace(reader, place, keyword)) return true;
    SeekLine(reader, 0);
    return FindModel(reader, place.number, keyword);
}

int CountModels(const std::wstring& path) {
    TextReader reader;
    if (!OpenText(reader, path)) return 0;
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    std::string_view line;
    int count = 0;
    for (; FindLine(reader, marker); ++count) ReadLine(reader, line);
    return count;
}

bool RequireDatabaseText(TextReader& reader, const std::wstring& path) {
    if (OpenText(reader, path) && IsDatabase(reader)) return true;
    if (reader.error == system::kErrorFileNotFound || reader.error == system::kErrorPathNotFound) {
        ReportMessage(kMsgDatabaseMissing, {path});
    } else if (!ReportReadFault(reader, path)) {
        ReportMessage(kMsgNoDatabase, {path});
    }
    return false;
}

bool RequireBlock(TextReader& reader, const std::wstring& path, const BlockPlace& place,
                  std::string& keyword) {
    if (FindBlock(reader, place, keyword)) return true;
    if (!ReportReadFault(reader, path)) ReportMessage(kMsgModelMissing, {place.number, path});
    return false;
}

bool RequireDatabaseFile(const std::wstring& path) {
    TextReader reader;
    return RequireDatabaseText(reader, path);
}

BlockNumbers ReadBlockNumbers(TextReader& reader) {
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    BlockNumbers blocks;
    SeekLine(reader, 0);
    while (FindLine(reader, marker)) {
        blocks.offsets.push_back(LinePosition(reader));
        std::string_view line;
        ReadLine(reader, line);
        const bool hasNumber = ReadBlockLine(reader, marker, line);
        blocks.numbers.push_back(hasNumber ? LeadingInteger(line) : 0);
    }
    return blocks;
}

int32_t NextNumber(const BlockNumbers& blocks) {
    auto highest = static_cast<int64_t>(blocks.numbers.size());
    for (const int32_t number : blocks.numbers) highest = std::max<int64_t>(highest, number);
    return highest < INT32_MAX ? static_cast<int32_t>(highest + 1) : 0;
}

size_t IndexOf(const BlockNumbers& blocks, int32_t number) {
    const auto found = std::ranges::find(blocks.numbers, number);
    return static_cast<size_t>(found - blocks.numbers.begin());
}

BlockPlace PlaceOf(const BlockNumbers& blocks, int32_t number, const system::FileStamp& stamp) {
    const size_t index = IndexOf(blocks, number);
    if (index == blocks.numbers.size()) return number;
    return {number, blocks.offsets[index], stamp};
}

bool RequireOneBlock(const BlockNumbers& blocks, int32_t number, const std::wstring& path) {
    const auto count = std::ranges::count(blocks.numbers, number);
    if (count == 0) {
        ReportMessage(kMsgModelMissing, {number, path});
    } else if (count > 1 || number < 1) {
        ReportNumberNotOwn(number, path);
    } else {
        return true;
    }
    return false;
}

void ReportNumberNotOwn(int32_t number, const std::wstring& path) {
    ReportMessage(kMsgNumberNotOwn, {number, path, GetMessage(kMsgModelMarker)});
}

void ReportNoNumberLeft(const std::wstring& path) {
    ReportMessage(kMsgNoModelNumberLeft, {path, GetMessage(kMsgModelMarker)});
}

}  // namespace corvane
