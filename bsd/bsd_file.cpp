#include "bsd/bsd_file.h"

#include "bsd/bsd_records.h"
#include "bsd/labels.h"
#include "files/file_system.h"
#include "files/read_fault.h"
#include "files/rewrite.h"
#include "files/text_file.h"
#include "report/reporters.h"
#include "text/numbers.h"

namespace corvane {
namespace {

void WarnOfForeignFile(const std::wstring& path) {
    ShowWarning(WithAdvice(path + L" : not a valid Corvane file", BoxText(kMsgForeignFileAdvice)));
}

// Goes to the header line of the block, which is before the first model. False when there is none.
bool FindHeader(TextReader& reader) {
    const std::string modelMarker = GetMessageBytes(kMsgModelMarker);
    int64_t position = LinePosition(reader);
    std::string_view line;
    while (ReadLine(reader, line) && line != modelMarker) {
        if (line == kBsdHeaderLine) {
            SeekLine(reader, position);
            return true;
        }
        position = LinePosition(reader);
    }
    return false;
}

// Passes over the comment lines that follow.
void SkipCommentLines(TextReader& reader) {
    std::string_view line;
    int64_t position = LinePosition(reader);
    while (ReadLine(reader, line) && IsCommentLine(line)) position = LinePosition(reader);
    SeekLine(reader, position);
}

// From the header line to the first record, over the comment lines before it.
void GoToRecords(TextReader& reader) {
    std::string_view header;
    ReadLine(reader, header);
    SkipCommentLines(reader);
}

// From the block's header line, goes to what is kept of the text after the header: the line that
// opens the next block or the first model, or the block's last line when there is none. No text
// among the records opens a block, whatever it holds.
void SkipOldBlock(TextReader& reader) {
    const std::string modelMarker = GetMessageBytes(kMsgModelMarker);
    const int64_t header = LinePosition(reader);
    BasicShipData old;
    GoToRecords(reader);
    ReadBasicShipData(reader, old);
    const int64_t recordsEnd = LinePosition(reader);

    SeekLine(reader, header);
    std::string_view line;
    ReadLine(reader, line);
    int64_t position = LinePosition(reader);
    int64_t next = position;
    while (ReadLine(reader, line)) {
        position = next;
        if (position >= recordsEnd && (line == modelMarker || IsHeaderLine(line))) break;
        next = LinePosition(reader);
    }
    SeekLine(reader, position);
}

// Writes the database's text with the new block. The reader is at the old block's header line.
void WriteWithNewBlock(TextReader& reader, TextWriter& writer, BasicShipData& bsd) {
    const int64_t header = LinePosition(reader);
    SeekLine(reader, 0);
    CopySpan(reader, header, writer);
    WriteLine(writer, kBsdHeaderLine);
    WriteLine(writer, "*");
    WriteBasicShipData(writer, bsd);
    SkipOldBlock(reader);
    CopySpan(reader, -1, writer);
}

// Opens the database and goes to its block. False, and reported, when the block cannot be saved
// there; a file that is not there is reported only if it was there before.
bool RequireOldBlock(Rewrite& rewrite, const std::wstring& path, bool wasThere) {
    TextReader& reader = rewrite.reader;
    OpenOldText(rewrite, path);
    if (reader.error == system::kErrorFileNotFound || reader.error == system::kErrorPathNotFound) {
        if (wasThere) ReportMessage(kMsgDatabaseMissing, {path});
        return false;
    }
    if (IsReadOnlyFile(path)) {
        ShowWarning(WithAdvice(path + L" is read only!", BoxText(kMsgReadOnlyAdvice)));
        return false;
    }
    const bool hasBlock = reader.error == system::kErrorNone && FindHeader(reader);
    if (reader.error != system::kErrorNone) {
        ReportTextNotWritten(path, reader.error);
    } else if (!hasBlock) {
        WarnOfForeignFile(path);
    }
    return hasBlock && reader.error == system::kErrorNone;
}

RewriteEnd ReplaceBlock(Rewrite& rewrite, const std::wstring& path, BasicShipData& bsd) {
    BeginRewrite(rewrite, path);
    WriteWithNewBlock(rewrite.reader, rewrite.writer, bsd);
    return FinishRewrite(rewrite);
}

}  // namespace

bool LoadBsdFromDatabase(const std::wstring& path, BasicShipData& bsd, NoBlock noBlock) {
    TextReader reader;
    const bool isOpen = OpenText(reader, path);
    if (reader.error == system::kErrorFileNotFound || reader.error == system::kErrorPathNotFound) {
        return false;
    }
    BasicShipData read = bsd;
    const bool hasBlock = isOpen && FindHeader(reader);
    if (hasBlock) {
        GoToRecords(reader);
        ReadBasicShipData(reader, read);
    }
    if (ReportReadFault(reader, path)) return false;
    if (!hasBlock) {
        if (noBlock == NoBlock::kWarns) WarnOfForeignFile(path);
        return false;
    }
    const std::wstring name = read.Titles(1).Trimmed();
    read.Titles(1).Assign(name.empty() ? BsdLabel(kLabelNoName) : name);
    bsd = read;
    return true;
}

bool SaveBsdToDatabase(const std::wstring& path, BasicShipData& bsd) {
    bool wasThere = false;
    return RepeatUntilUnchanged(path, [&] {
        Rewrite rewrite;
        rewrite.keepBackup = true;
        if (!RequireOldBlock(rewrite, path, wasThere)) return RewriteEnd::kFailed;
        wasThere = true;
        return ReplaceBlock(rewrite, path, bsd);
    });
}

bool ImportBsdFile(const std::wstring& path, BasicShipData& bsd) {
    TextReader reader;
    if (!FileExists(path)) return false;
    BasicShipData imported;
    const int numberCount = OpenText(reader, path) ? ReadBasicShipData(reader, imported) : 0;
    if (ReportReadFault(reader, path)) return false;
    const double version = LeadingNumber(imported.FormatVersion.Whole());
    if (numberCount == 0 && !(version >= 1 && version <= 5)) {
        WarnOfForeignFile(path);
        return false;
    }
    bsd = imported;
    return true;
}

}  // namespace corvane
