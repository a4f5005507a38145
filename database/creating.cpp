#include "database/creating.h"

#include "bsd/bsd_file.h"
#include "bsd/bsd_records.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/rewrite.h"
#include "files/text_file.h"
#include "report/reporters.h"
#include "text/numbers.h"

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

}  // namespace

void WriteBlockHead(TextWriter& writer, int32_t number, ModelKind kind, const Stamp& stamp) {
    const StructuralLines lines = FetchStructuralLines();
    const KindFacts& facts = FactsOf(kind);
    WriteLine(writer, lines.modelMarker);
    WriteLine(writer, lines.commentRule);
    WriteLine(writer, PrintForm(number));
    WriteLine(writer, facts.keyword);
    WriteLine(writer, lines.commentRule);
    WriteLine(writer, lines.versionLabel);
    WriteLine(writer, PrintForm(facts.formatVersion));
    WriteStampLines(writer, stamp, facts.formatVersion);
    WriteLine(writer, lines.commentRule);
    WriteLine(writer, lines.nameLabel);
}

bool CreateDatabaseFile(const std::wstring& path, BasicShipData& bsd) {
    if (path.empty()) return false;
    if (IsReadOnlyFile(path)) {
        ReportMessage(kMsgReadOnly, {path});
        return false;
    }
    return RepeatUntilUnchanged(path, [&] {
        Rewrite rewrite;
        BeginRewrite(rewrite, path);
        WriteFileHead(rewrite.writer, bsd);
        return FinishRewrite(rewrite);
    });
}

}  // namespace corvane
