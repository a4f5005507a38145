#include "stand_ins/torsion.h"

#include <cmath>

#include "database/copying.h"
#include "database/creating.h"
#include "database/scanning.h"
#include "files/rewrite.h"
#include "report/reporters.h"
#include "text/numbers.h"

namespace corvane::stand_ins {
namespace {

float WholeMillimetres(float length) {
    return std::round(length * 1000) / 1000;
}

void WriteHolds(TextWriter& writer, const TorsionModel& model) {
    const float length = (model.fore_m - model.aft_m) / static_cast<float>(model.holdCount);
    WriteLine(writer, "------------------ HOLDS ------------------");
    WriteLine(writer, "* Hold\tAft x\tFore x");
    for (int32_t i = 0; i < model.holdCount; ++i) {
        const float aft = WholeMillimetres(model.aft_m + static_cast<float>(i) * length);
        const float fore = WholeMillimetres(model.aft_m + static_cast<float>(i + 1) * length);
        WriteLine(writer,
                  PrintForm(model.holdCount - i) + "\t" + PrintForm(aft) + "\t" + PrintForm(fore));
    }
}

void WriteBlock(TextWriter& writer, const TorsionModel& model, int32_t number) {
    WriteBlockHead(writer, number, ModelKind::kTorsion, CurrentStamp());
    WriteLine(writer, system::AnsiFromWide(model.name));
    const float middle = WholeMillimetres((model.aft_m + model.fore_m) / 2);
    WriteLine(writer,
              PrintForm(middle) + "\t" + PrintForm(model.aft_m) + "\t" + PrintForm(model.fore_m));
    WriteHolds(writer, model);
    WriteLine(writer, "------------------ TRANS BEAM ------------------");
    WriteLine(writer, "------------------ BEAM MODELS ------------------");
    WriteLine(writer, "------------------ LONG BEAM ------------------");
    WriteLine(writer, "------------------ TOR RESULTS ------------------");
}

// Skips from the block's first line to after its name; `begin` becomes the offset of the name.
bool SkipName(TextReader& reader, int64_t& begin) {
    const StructuralLines lines = FetchStructuralLines();
    std::string_view line;
    if (!FindLine(reader, lines.modelMarker) || !ReadLine(reader, line)) return false;
    while (ReadBlockLine(reader, lines.modelMarker, line)) {
        if (line != lines.nameLabel) continue;
        do {
            begin = LinePosition(reader);
            if (!ReadLine(reader, line)) return false;
        } while (IsCommentLine(line));
        return line != lines.modelMarker;
    }
    return false;
}

}  // namespace

bool WriteTorsionModel(const std::wstring& path, const TorsionModel& model, int32_t number) {
    return RepeatUntilUnchanged(path, [&] {
        Rewrite rewrite;
        TextReader& reader = rewrite.reader;
        if (!OpenOldText(rewrite, path)) {
            ReportTextNotWritten(path, reader.error);
            return RewriteEnd::kFailed;
        }
        std::string keyword;
        const bool found = FindModel(reader, number, keyword);
        const int64_t block = found ? LinePosition(reader) : -1;
        SeekLine(reader, 0);
        BeginRewrite(rewrite, path);
        CopySpan(reader, block, rewrite.writer);
        WriteBlock(rewrite.writer, model, number);
        if (found) SkipBlock(reader);
        CopySpan(reader, -1, rewrite.writer);
        return FinishRewrite(rewrite);
    });
}

bool RenameModel(const std::wstring& path, const std::wstring& name, int32_t number) {
    return RepeatUntilUnchanged(path, [&] {
        Rewrite rewrite;
        TextReader& reader = rewrite.reader;
        std::string keyword;
        int64_t begin = 0;
        if (!OpenOldText(rewrite, path) || !FindModel(reader, number, keyword)) {
            ReportMessage(kMsgModelMissing, {number, path});
            return RewriteEnd::kFailed;
        }
        if (!SkipName(reader, begin)) {
            ReportMessage(
                L"Model ¤ of '¤' has lost its name line: nothing was saved.²²Delete "
                L"the model in Corvane, or restore the database from a backup.",
                {number, path});
            return RewriteEnd::kFailed;
        }
        const int64_t end = LinePosition(reader);
        BeginRewrite(rewrite, path);
        SeekLine(reader, 0);
        CopySpan(reader, begin, rewrite.writer);
        WriteLine(rewrite.writer, system::AnsiFromWide(name));
        SeekLine(reader, end);
        CopySpan(reader, -1, rewrite.writer);
        return FinishRewrite(rewrite);
    });
}

}  // namespace corvane::stand_ins
