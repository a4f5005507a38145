// New files and new blocks.
#include "app/messages.h"
#include "bsd/bsd_file.h"
#include "database/database_file.h"
#include "util/files.h"
#include "util/numbers.h"

namespace corvane {
namespace {

// Everything before the first model marker.
void WriteFileHead(TextWriter& writer, BasicShipData& bsd) {
    const StructuralLines lines = FetchStructuralLines();
    WriteLine(writer, lines.signature);
    WriteLine(writer, lines.commentRule);
    WriteLine(writer, lines.commentRule + GetMessageBytes(kMsgHeadComment));
    WriteStampLines(writer, CurrentStamp(), kSectionFormatVersion);
    WriteLine(writer, lines.commentRule);
    WriteLine(writer, lines.headLabel);
    WriteLine(writer, lines.commentRule);
    WriteLine(writer, kBsdHeaderLine);
    WriteLine(writer, "*");
    WriteBasicShipData(writer, bsd);
}

// Writes the head to the temporary file and puts that in place.
system::ErrorNumber WriteAndReplace(const std::wstring& path, const std::wstring& temporary,
                                    BasicShipData& bsd) {
    TextWriter writer;
    if (!CreateText(writer, temporary)) return writer.error;
    WriteFileHead(writer, bsd);
    if (!CloseText(writer)) return writer.error;
    return ReplaceFile(temporary, path).error;
}

}  // namespace

void WriteBlockHead(TextWriter& writer, int32_t number, ModelKind kind, const Stamp& stamp) {
    const StructuralLines lines = FetchStructuralLines();
    const float version =
        kind == ModelKind::kBulkhead ? kBulkheadFormatVersion : kSectionFormatVersion;
    WriteLine(writer, lines.modelMarker);
    WriteLine(writer, lines.commentRule);
    WriteLine(writer, PrintForm(number));
    WriteLine(writer, KeywordOfKind(kind));
    WriteLine(writer, lines.commentRule);
    WriteLine(writer, lines.versionLabel);
    WriteLine(writer, PrintForm(version));
    WriteStampLines(writer, stamp, version);
    WriteLine(writer, lines.commentRule);
    WriteLine(writer, lines.nameLabel);
}

bool CreateDatabaseFile(const std::wstring& path, BasicShipData& bsd) {
    if (path.empty()) return false;
    if (IsReadOnlyFile(path)) {
        ReportMessage(kMsgReadOnly, {path});
        return false;
    }
    const std::wstring temporary = TempFileName();
    const system::ErrorNumber error =
        temporary.empty() ? system::kErrorPathNotFound : WriteAndReplace(path, temporary, bsd);
    if (error == system::kErrorNone) return true;
    ReportMessage(kMsgFileNotWritten, {path, system::ErrorText(error), temporary});
    return false;
}

}  // namespace corvane
