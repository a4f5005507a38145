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

}  // namespace

bool LoadBsdFromDatabase(const std::wstring& path, BasicShipData& bsd) {
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
        WarnOfForeignFile(path);
        return false;
    }
    const std::wstring name = read.Titles(1).Trimmed();
    read.Titles(1).Assign(name.empty() ? BsdLabel(kLabelNoName) : name);
    bsd = read;
    return true;
}

bool SaveBsdToDatabase(const std::wstring& path, BasicShipData& bsd) {
    const system::ErrorNumber readable = AwaitReadable(path);
    if (readable == system::kErrorFileNotFound || readable == system::kErrorPathNotFound) {
        return false;
    }
    if (IsReadOnlyFile(path)) {
        ShowWarning(WithAdvice(path + L" is read only!", BoxText(kMsgReadOnlyAdvice)));
        return false;
    }
    TextReader reader;
    if (OpenText(reader, path) && !FindHeader(reader) && reader.error == system::kErrorNone) {
        WarnOfForeignFile(path);
        return false;
    }
    Rewrite rewrite;
    BeginRewrite(rewrite, path);
    rewrite.keepBackup = true;
    if (reader.error == system::kErrorNone) WriteWithNewBlock(reader, rewrite.writer, bsd);
    // Some systems let nobody rename over a file that is open.
    system::CloseFile(reader.file);
    return FinishRewrite(rewrite, reader.error);
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
