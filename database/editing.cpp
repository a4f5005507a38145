#include "database/editing.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

#include "database/bulkhead_block.h"
#include "database/copying.h"
#include "database/model_kind.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "files/read_fault.h"
#include "files/rewrite.h"
#include "report/reporters.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

using system::kErrorNone;

// ---- The file ----------------------------------------------------------------------------------

// Opens the database that is to be edited, even if another program holds it for a moment. What is
// not a database is reported.
bool OpenDatabase(TextReader& reader, const std::wstring& path) {
    AwaitReadable(path);
    if (OpenText(reader, path) && IsDatabase(reader)) return true;
    if (reader.error == kErrorNone) {
        ReportMessage(kMsgNoDatabase, {path});
    } else if (reader.error == system::kErrorFileNotFound ||
               reader.error == system::kErrorPathNotFound) {
        ReportMessage(kMsgFileMissing, {path});
    } else {
        ReportTextNotWritten(path, reader.error);
    }
    return false;
}

// Copies the text of a read-only database to a file that the user names; `path` becomes its name.
bool MoveToWritableFile(std::wstring& path, AskForDatabase ask) {
    std::wstring target = path;
    while (IsReadOnlyFile(target)) {
        if (ask == nullptr) {
            ReportMessage(kMsgReadOnly, {target});
            return false;
        }
        ReportMessage(kMsgReadOnly, {target}, BoxText(kMsgCopyAskedNext));
        target = ask(target);
        if (target.empty()) return false;
    }
    // Meanwhile the user may have made the file itself writable, and named it again.
    if (!IsSameFile(target, path)) {
        const ReplaceResult copied = PutCopy(path, target);
        ReportReplacement(copied, kMsgFileNotMade, {target, ReasonOf(copied.error)});
        if (!copied.Done()) return false;
    }
    path = target;
    return true;
}

// Opens the database, or the one that the user names instead of a read-only one.
bool OpenWritableDatabase(TextReader& reader, std::wstring& path, AskForDatabase ask) {
    if (path.empty() || !OpenDatabase(reader, path)) return false;
    if (!IsReadOnlyFile(path)) return true;
    system::CloseFile(reader.file);
    return MoveToWritableFile(path, ask) && OpenDatabase(reader, path);
}

// ---- Numbers -----------------------------------------------------------------------------------

// What the numbers of the blocks are. False, and reported, when not all of the file can be read.
bool ReadNumbersOrReport(TextReader& reader, const std::wstring& path, BlockNumbers& blocks) {
    blocks = ReadBlockNumbers(reader);
    if (reader.error == kErrorNone) return true;
    ReportTextNotWritten(path, reader.error);
    return false;
}

// The number that a new model gets; 0, and reported, when there is none.
int32_t NextNumberOrReport(const BlockNumbers& blocks, const std::wstring& path) {
    if (blocks.next == 0) ReportNoNumberLeft(path);
    return blocks.next;
}

// Which numbers are lowered when a block goes: those above its own after it. Where that would give
// one of them the number of a block before it, those before it, too.
bool LowersNumbersBefore(const std::vector<int32_t>& numbers, int32_t number) {
    const auto block = std::ranges::find(numbers, number);
    const std::unordered_set<int32_t> before(numbers.begin(), block);
    return std::any_of(block, numbers.end(),
                       [&](int32_t after) { return after > number && before.contains(after - 1); });
}

// ---- Steps that the edits share ----------------------------------------------------------------

// Copies what is before the block `run.stopBefore`, or all where there is no such block.
void CopyToBlock(TextReader& reader, TextWriter& writer, const BlockRun& run) {
    SeekLine(reader, 0);
    CopyFileHead(reader, writer);
    CopyBlocks(reader, writer, run);
}

bool FinishEdit(TextReader& reader, Rewrite& rewrite) {
    // Some systems let nobody rename over a file that is open.
    system::CloseFile(reader.file);
    if (!FinishRewrite(rewrite, reader.error)) return false;
    ShowStatus(L"");
    return true;
}

// ---- Replacing ---------------------------------------------------------------------------------

// The comment lines at the end of a text.
std::string_view ClosingComments(std::string_view text) {
    size_t begin = text.size();
    while (begin > 1) {
        const size_t end = text.rfind('\n', begin - 2);
        const size_t line = end == std::string_view::npos ? 0 : end + 1;
        if (text[line] != '*') break;
        begin = line;
    }
    return text.substr(begin);
}

// A section may end with comments: the legend of an empty table, the rule after a row. Those that
// the old block ended with are still before the next marker, as all comments there do. Where the
// new block ends with the same ones it brings them again, and the file would grow each time: they
// are skipped.
void SkipClosingComments(TextReader& reader, std::string_view closing) {
    const int64_t place = LinePosition(reader);
    while (!closing.empty()) {
        const size_t end = closing.find("\r\n");
        std::string_view line;
        if (!ReadLine(reader, line) || line != closing.substr(0, end)) {
            SeekLine(reader, place);
            return;
        }
        closing.remove_prefix(end + 2);
    }
}

// `writeBlock` writes the new block.
template <class WriteBlock>
bool ReplaceBlock(std::wstring& path, int32_t number, const EditOptions& options,
                  WriteBlock writeBlock) {
    TextReader reader;
    if (!OpenWritableDatabase(reader, path, options.ask)) return false;
    ReportStatus(kMsgWritingDatabase, {path});
    BlockNumbers blocks;
    if (!ReadNumbersOrReport(reader, path, blocks)) return false;
    const bool isNew = number >= 1 && number == blocks.next;
    if (!isNew && !RequireOneBlock(blocks, number, path)) return false;
    Rewrite rewrite;
    BeginRewrite(rewrite, path);
    rewrite.keepBackup = options.keepBackup;
    BlockRun before;
    before.stopBefore = number;
    CopyToBlock(reader, rewrite.writer, before);
    writeBlock(rewrite.writer);
    if (!isNew) {
        SkipBlock(reader);
        SkipClosingComments(reader, ClosingComments(WrittenTail(rewrite.writer)));
        CopyBlocks(reader, rewrite.writer, {});
    }
    return FinishEdit(reader, rewrite);
}

// ---- Copying -----------------------------------------------------------------------------------

// The source has its own reader, even if it is the same file.
bool AppendTorsionBlock(const std::wstring& path, const ModelSource& source, int32_t newNumber,
                        bool keepBackup) {
    TextReader reader;
    TextReader from;
    if (!OpenDatabase(reader, path) || !OpenDatabase(from, source.path)) return false;
    std::string keyword(kTorsionKeyword);
    if (!FindModel(from, source.number, keyword) && from.error == kErrorNone) {
        ReportMessage(kMsgModelMissing, {source.number, source.path});
        return false;
    }
    Rewrite rewrite;
    BeginRewrite(rewrite, path);
    rewrite.keepBackup = keepBackup;
    SeekLine(reader, 0);
    CopyFileHead(reader, rewrite.writer);
    CopyBlocks(reader, rewrite.writer, {});
    BlockRun run;
    run.mostBlocks = 1;
    run.shift = int64_t{newNumber} - source.number;
    CopyBlocks(from, rewrite.writer, run);
    if (reader.error == kErrorNone) reader.error = from.error;
    system::CloseFile(from.file);
    return FinishEdit(reader, rewrite);
}

AppendResult ResultOf(bool isAppended) {
    return isAppended ? AppendResult::kAppended : AppendResult::kNotWritten;
}

}  // namespace

bool ReplaceSection(std::wstring& path, SectionModel& section, int32_t number,
                    const EditOptions& options) {
    return ReplaceBlock(path, number, options, [&section, number](TextWriter& writer) {
        WriteSectionBlock(writer, section, number);
    });
}

bool ReplaceBulkheadArrangement(std::wstring& path, BulkheadArrangement& arrangement,
                                int32_t number, const EditOptions& options) {
    return ReplaceBlock(path, number, options, [&arrangement, number](TextWriter& writer) {
        WriteBulkheadBlock(writer, arrangement, number);
    });
}

bool DeleteModel(const std::wstring& path, int32_t number, bool keepBackup) {
    if (path.empty() || number < 1) return false;
    ReportStatus(kMsgDeletingModel, {path});
    if (IsReadOnlyFile(path)) {
        ReportMessage(kMsgReadOnly, {path});
        return false;
    }
    TextReader reader;
    BlockNumbers blocks;
    if (!OpenDatabase(reader, path) || !ReadNumbersOrReport(reader, path, blocks) ||
        !RequireOneBlock(blocks, number, path)) {
        return false;
    }
    Rewrite rewrite;
    BeginRewrite(rewrite, path);
    rewrite.keepBackup = keepBackup;
    BlockRun before;
    before.stopBefore = number;
    BlockRun after;
    after.shift = -1;
    after.shiftAbove = number;
    if (LowersNumbersBefore(blocks.numbers, number)) {
        before.shift = after.shift;
        before.shiftAbove = number;
    }
    CopyToBlock(reader, rewrite.writer, before);
    SkipBlock(reader);
    CopyBlocks(reader, rewrite.writer, after);
    return FinishEdit(reader, rewrite);
}

int32_t NextModelNumber(const std::wstring& path) {
    TextReader reader;
    if (!OpenText(reader, path)) return 0;
    const int32_t next = ReadBlockNumbers(reader).next;
    return reader.error == kErrorNone ? next : 0;
}

int32_t NumberForAppending(std::wstring& path, AskForDatabase ask) {
    TextReader reader;
    BlockNumbers blocks;
    if (!OpenWritableDatabase(reader, path, ask)) return 0;
    ReportStatus(kMsgWritingDatabase, {path});
    return ReadNumbersOrReport(reader, path, blocks) ? NextNumberOrReport(blocks, path) : 0;
}

// ---- Copies ------------------------------------------------------------------------------------

int32_t CopyModel(std::wstring& path, const ModelCopy& copy) {
    TextReader reader;
    BlockNumbers blocks;
    if (!OpenWritableDatabase(reader, path, copy.options.ask)) return 0;
    ReportStatus(kMsgWritingDatabase, {path});
    if (!ReadNumbersOrReport(reader, path, blocks) || !RequireOneBlock(blocks, copy.number, path)) {
        return 0;
    }
    // The procedures of the kinds open the file again.
    system::CloseFile(reader.file);
    const int32_t number = NextNumberOrReport(blocks, path);
    return number != 0 && FactsOf(copy.kind).copy(path, copy, number) ? number : 0;
}

AppendResult AppendModel(std::wstring& path, const ModelSource& source, ModelKind kind,
                         const EditOptions& options) {
    TextReader reader;
    if (!RequireDatabaseText(reader, source.path)) return AppendResult::kNoSource;
    const BlockNumbers blocks = ReadBlockNumbers(reader);
    if (ReportReadFault(reader, source.path) ||
        !RequireOneBlock(blocks, source.number, source.path)) {
        return AppendResult::kNoSource;
    }
    system::CloseFile(reader.file);
    return FactsOf(kind).append(path, source, options);
}

bool CopySection(std::wstring& path, const ModelCopy& copy, int32_t newNumber) {
    SectionModel section;
    if (!ReadSectionBlock(path, copy.number, false, section)) return false;
    section.name = Trim(copy.newName);
    section.identifier.clear();  // the writer makes a new one
    return ReplaceSection(path, section, newNumber, {true, copy.options.ask});
}

bool CopyBulkheadArrangement(std::wstring& path, const ModelCopy& copy, int32_t newNumber) {
    BulkheadArrangement arrangement;
    if (!ReadBulkheadBlock(path, copy.number, arrangement)) return false;
    arrangement.name = Trim(copy.newName);
    arrangement.identifier.clear();
    return ReplaceBulkheadArrangement(path, arrangement, newNumber, {true, copy.options.ask});
}

bool CopyTorsionModel(std::wstring& path, const ModelCopy& copy, int32_t newNumber) {
    return AppendTorsionBlock(path, {path, copy.number}, newNumber, copy.options.keepBackup);
}

AppendResult AppendSection(std::wstring& path, const ModelSource& source,
                           const EditOptions& options) {
    SectionModel section;
    if (!ReadSectionBlock(source.path, source.number, false, section)) {
        return AppendResult::kNoSource;
    }
    section.identifier.clear();
    const int32_t number = NumberForAppending(path, options.ask);
    return ResultOf(number != 0 && ReplaceSection(path, section, number, options));
}

AppendResult AppendBulkheadArrangement(std::wstring& path, const ModelSource& source,
                                       const EditOptions& options) {
    BulkheadArrangement arrangement;
    if (!ReadBulkheadBlock(source.path, source.number, arrangement)) {
        return AppendResult::kNoSource;
    }
    arrangement.identifier.clear();
    const int32_t number = NumberForAppending(path, options.ask);
    return ResultOf(number != 0 && ReplaceBulkheadArrangement(path, arrangement, number, options));
}

AppendResult AppendTorsionModel(std::wstring& path, const ModelSource& source,
                                const EditOptions& options) {
    const int32_t number = NumberForAppending(path, options.ask);
    return ResultOf(number != 0 && AppendTorsionBlock(path, source, number, options.keepBackup));
}

}  // namespace corvane
