#include "database/renumbering.h"

#include "database/copying.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/rewrite.h"
#include "report/reporters.h"
#include "text/numbers.h"

namespace corvane {
namespace {

// Opens the text that is to be edited; false, and reported, when it is not one.
bool OpenForRenumbering(Rewrite& rewrite, const std::wstring& path) {
    TextReader& reader = rewrite.reader;
    const bool isOpen = OpenOldText(rewrite, path) && IsDatabase(reader);
    if (isOpen && !IsReadOnlyFile(path)) return true;
    if (isOpen) {
        ReportMessage(kMsgReadOnly, {path});
    } else if (reader.error == system::kErrorNone) {
        ReportMessage(kMsgNoDatabase, {path});
    } else {
        ReportTextNotWritten(path, reader.error);
    }
    return false;
}

// What is after the marker of a block would be taken for its number: the keyword, say.
bool HasNumberLine(TextReader& reader, int64_t marker) {
    SeekLine(reader, marker);
    std::string_view line;
    return ReadLine(reader, line) && ReadSignificantLine(reader, line) &&
           ReadsAsNumber(system::WideFromAnsi(line));
}

bool RequireNumberLines(TextReader& reader, const BlockNumbers& blocks, const std::wstring& path) {
    for (size_t block = 0; block < blocks.numbers.size(); ++block) {
        if (blocks.numbers[block] != 0 || HasNumberLine(reader, blocks.offsets[block])) continue;
        ReportNumberNotOwn(0, path);
        return false;
    }
    return true;
}

int64_t ShiftOf(const BlockNumbers& blocks, size_t block) {
    return static_cast<int64_t>(block) + 1 - blocks.numbers[block];
}

bool AreDense(const BlockNumbers& blocks) {
    size_t block = 0;
    while (block < blocks.numbers.size() && ShiftOf(blocks, block) == 0) ++block;
    return block == blocks.numbers.size();
}

void CopyRenumbered(Rewrite& rewrite, const BlockNumbers& blocks) {
    SeekLine(rewrite.reader, 0);
    CopyFileHead(rewrite.reader, rewrite.writer);
    const size_t count = blocks.numbers.size();
    for (size_t block = 0; block < count;) {
        BlockRun run{.shift = ShiftOf(blocks, block), .known = &blocks, .first = block};
        while (block < count && ShiftOf(blocks, block) == run.shift) ++block;
        run.mostBlocks = block - run.first;
        CopyBlocks(rewrite.reader, rewrite.writer, run);
    }
}

}  // namespace

bool RenumberModels(const std::wstring& path, std::vector<int32_t>& before) {
    return RepeatUntilUnchanged(path, [&] {
        Rewrite rewrite;
        rewrite.keepBackup = true;
        if (!OpenForRenumbering(rewrite, path)) return RewriteEnd::kFailed;
        ReportStatus(kMsgWritingDatabase, {path});
        rewrite.progress.total *= 2;  // the numbers first
        const BlockNumbers blocks = ReadBlockNumbers(rewrite.reader);
        if (rewrite.reader.error != system::kErrorNone) {
            ReportTextNotWritten(path, rewrite.reader.error);
            return RewriteEnd::kFailed;
        }
        if (!RequireNumberLines(rewrite.reader, blocks, path)) return RewriteEnd::kFailed;
        before = blocks.numbers;
        if (AreDense(blocks)) return RewriteEnd::kDone;
        BeginRewrite(rewrite, path);
        CopyRenumbered(rewrite, blocks);
        return FinishRewrite(rewrite);
    });
}

}  // namespace corvane
