#include "database/scanning.h"

#include <algorithm>

#include "files/read_fault.h"
#include "report/reporters.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

// From a place before the marker at `marker` to the comment lines directly in front of it.
void SeekBeforeMarker(TextReader& reader, int64_t from, int64_t marker) {
    SeekLine(reader, from);
    std::string_view line;
    int64_t place = from;
    while (ReadSignificantLine(reader, line) && LinePosition(reader) <= marker) {
        place = LinePosition(reader);
    }
    SeekLine(reader, place);
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
    const bool isDatabase = ReadSignificantLine(reader, line) &&
                            UpperCase(Trim(line)) == Trim(std::string_view(signature));
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
        std::string_view line;
        ReadLine(reader, line);
        if (ReadBlockLine(reader, marker, line) && LeadingInteger(line) == number) {
            // A block that has lost its keyword is still the one of its number.
            if (!ReadBlockLine(reader, marker, line)) line = {};
            if (keyword.empty() || keyword == line) {
                keyword = line;
                SeekBeforeMarker(reader, from, place);
                return true;
            }
        }
        from = LinePosition(reader);
    }
    return false;
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

bool RequireDatabaseFile(const std::wstring& path) {
    TextReader reader;
    return RequireDatabaseText(reader, path);
}

BlockNumbers ReadBlockNumbers(TextReader& reader) {
    const std::string marker = GetMessageBytes(kMsgModelMarker);
    BlockNumbers blocks;
    int64_t highest = 0;
    SeekLine(reader, 0);
    while (FindLine(reader, marker)) {
        std::string_view line;
        ReadLine(reader, line);
        const bool hasNumber = ReadBlockLine(reader, marker, line);
        blocks.numbers.push_back(hasNumber ? LeadingInteger(line) : 0);
        highest = std::max<int64_t>(highest, blocks.numbers.back());
    }
    const int64_t next = std::max(static_cast<int64_t>(blocks.numbers.size()), highest) + 1;
    if (next <= INT32_MAX) blocks.next = static_cast<int32_t>(next);
    return blocks;
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
