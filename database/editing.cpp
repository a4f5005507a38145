#include "database/editing.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "database/bulkhead_block.h"
#include "database/carrying.h"
#include "database/copying.h"
#include "database/model_kind.h"
#include "database/rows.h"
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

// Opens the text of a database, which is to be edited. What is not a database is reported.
bool OpenDatabase(Rewrite& rewrite, const std::wstring& path) {
    TextReader& reader = rewrite.reader;
    if (OpenOldText(rewrite, path) && IsDatabase(reader)) return true;
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
        if (!ReplaceByCopy(path, target, TargetKind::kAny).Done()) return false;
    }
    path = target;
    return true;
}

// Opens the database, or the one that the user names instead of a read-only one.
bool OpenWritableDatabase(Rewrite& rewrite, std::wstring& path, AskForDatabase ask) {
    if (path.empty() || !OpenDatabase(rewrite, path)) return false;
    if (!IsReadOnlyFile(path)) return true;
    system::CloseFile(rewrite.reader.file);
    return MoveToWritableFile(path, ask) && OpenDatabase(rewrite, path);
}

// ---- Every edit --------------------------------------------------------------------------------

// What the numbers of the blocks are. False, and reported, when not all of the file can be read.
bool ReadNumbersOrReport(TextReader& reader, const std::wstring& path, BlockNumbers& blocks) {
    blocks = ReadBlockNumbers(reader);
    if (reader.error == kErrorNone) return true;
    ReportTextNotWritten(path, reader.error);
    return false;
}

// The gate that every edit goes through: from here to its end nobody else writes into the database,
// and when another program replaces it meanwhile, all is done again with what is there then.
// What a list says of the blocks holds as long as its stamp does, and is not asked a second time.
// `write` looks at the numbers, begins the rewrite and writes the new text; false, which it has
// reported, ends the edit.
//     write: bool(Rewrite& rewrite, const BlockNumbers& blocks)
template <class Write>
bool EditDatabase(std::wstring& path, const EditOptions& options, MessageNumber status,
                  Write write) {
    const BlockNumbers* list = options.listed;
    const bool isDone = RepeatUntilUnchanged(path, [&] {
        Rewrite rewrite;
        BlockNumbers blocks;
        rewrite.keepBackup = options.keepBackup;
        if (!OpenWritableDatabase(rewrite, path, options.ask)) return RewriteEnd::kFailed;
        ReportStatus(status, {path});
        const BlockNumbers* const listed = std::exchange(list, nullptr);
        if (listed != nullptr && listed->stamp == rewrite.stamp) {
            blocks = *listed;
        } else {
            rewrite.progress.total *= 2;  // the numbers first
            if (!ReadNumbersOrReport(rewrite.reader, path, blocks)) return RewriteEnd::kFailed;
        }
        if (write(rewrite, blocks)) return FinishRewrite(rewrite);
        AbandonRewrite(rewrite);
        return RewriteEnd::kFailed;
    });
    if (isDone) ShowStatus(L"");
    return isDone;
}

// ---- Steps that the edits share ----------------------------------------------------------------

int32_t NextNumberOrReport(const BlockNumbers& blocks, const std::wstring& path, size_t count) {
    const int32_t next = NextNumber(blocks);
    const bool isThere = next != 0 && count - 1 <= static_cast<size_t>(INT32_MAX - next);
    if (!isThere) ReportNoNumberLeft(path);
    return isThere ? next : 0;
}

// Marks the blocks of these numbers. False, and reported, where a number does not lead to one
// alone.
bool MarkBlocks(const BlockNumbers& blocks, const std::vector<int32_t>& numbers,
                const std::wstring& path, std::vector<bool>& marks) {
    std::unordered_map<int32_t, int> counts;
    for (const int32_t number : blocks.numbers) ++counts[number];
    const auto isOne = [&](int32_t number) {
        return (number >= 1 && counts[number] == 1) || RequireOneBlock(blocks, number, path);
    };
    if (!std::ranges::all_of(numbers, isOne)) return false;
    const std::unordered_set<int32_t> marked(numbers.begin(), numbers.end());
    marks.clear();
    for (const int32_t number : blocks.numbers) marks.push_back(marked.contains(number));
    return true;
}

// What the numbers of all blocks become when some have gone: one less for each number that has gone
// and was smaller; of those that were before the block only, or of `all` of the file.
std::vector<int32_t> LoweredNumbers(const std::vector<int32_t>& numbers,
                                    const std::vector<bool>& hasGone, bool all) {
    std::vector<int32_t> gone;  // rising
    const auto note = [&](size_t block) {
        gone.insert(std::ranges::upper_bound(gone, numbers[block]), numbers[block]);
    };
    for (size_t block = 0; all && block < numbers.size(); ++block) {
        if (hasGone[block]) note(block);
    }
    std::vector<int32_t> lowered = numbers;
    for (size_t block = 0; block < numbers.size(); ++block) {
        if (hasGone[block] && !all) note(block);
        const auto smaller = std::ranges::lower_bound(gone, numbers[block]) - gone.begin();
        lowered[block] -= static_cast<int32_t>(smaller);
    }
    return lowered;
}

// Whether two of the blocks that stay would have one number, and had two before.
bool HaveCollided(const std::vector<int32_t>& numbers, const std::vector<int32_t>& lowered,
                  const std::vector<bool>& hasGone) {
    std::unordered_map<int32_t, int32_t> before;
    for (size_t block = 0; block < numbers.size(); ++block) {
        if (hasGone[block]) continue;
        const auto [entry, isNew] = before.emplace(lowered[block], numbers[block]);
        if (!isNew && entry->second != numbers[block]) return true;
    }
    return false;
}

// Copies the blocks that stay, with their new numbers. The reader is at the first marker.
void CopyLowered(Rewrite& rewrite, const BlockNumbers& blocks, const std::vector<bool>& hasGone) {
    const std::vector<int32_t>& numbers = blocks.numbers;
    std::vector<int32_t> lowered = LoweredNumbers(numbers, hasGone, false);
    if (HaveCollided(numbers, lowered, hasGone)) lowered = LoweredNumbers(numbers, hasGone, true);
    const auto shiftOf = [&](size_t block) { return int64_t{lowered[block]} - numbers[block]; };
    for (size_t block = 0; block < numbers.size();) {
        const size_t first = block++;
        BlockRun run{.known = &blocks, .first = first};
        if (hasGone[first]) {
            // To its marker: the comments before that stay, like those before any other.
            run.mostBlocks = 0;
            CopyBlocks(rewrite.reader, rewrite.writer, run);
            SkipBlock(rewrite.reader);
            continue;
        }
        while (block < numbers.size() && !hasGone[block] && shiftOf(block) == shiftOf(first)) {
            ++block;
        }
        run.mostBlocks = block - first;
        run.shift = shiftOf(first);
        CopyBlocks(rewrite.reader, rewrite.writer, run);
    }
}

// Copies what is before the block `run.stopBefore`, or all where there is no such block.
void CopyToBlock(TextReader& reader, TextWriter& writer, const BlockRun& run) {
    SeekLine(reader, 0);
    CopyFileHead(reader, writer);
    CopyBlocks(reader, writer, run);
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

// `writeBlock` writes the new block. What began as a new model does not replace one that another
// program has given its number meanwhile.
template <class WriteBlock>
bool ReplaceBlock(std::wstring& path, int32_t number, const EditOptions& options,
                  WriteBlock writeBlock) {
    bool wasNew = false;
    const auto write = [&](Rewrite& rewrite, const BlockNumbers& blocks) {
        const bool isNew = number >= 1 && number == NextNumber(blocks);
        if (wasNew && !isNew) {
            ReportMessage(kMsgModelChanged, {path});
            return false;
        }
        if (!isNew && !RequireOneBlock(blocks, number, path)) return false;
        wasNew = isNew;
        BeginRewrite(rewrite, path);
        BlockRun before;
        before.stopBefore = number;
        before.known = &blocks;
        CopyToBlock(rewrite.reader, rewrite.writer, before);
        writeBlock(rewrite.writer);
        if (isNew) return true;
        SkipBlock(rewrite.reader);
        SkipClosingComments(rewrite.reader, ClosingComments(WrittenTail(rewrite.writer)));
        CopyBlocks(rewrite.reader, rewrite.writer,
                   {.known = &blocks, .first = IndexOf(blocks, number) + 1});
        return true;
    };
    return EditDatabase(path, options, kMsgWritingDatabase, write);
}

// ---- Renaming ----------------------------------------------------------------------------------

struct NameLine {
    std::wstring name;  // trimmed
    int64_t begin = 0;
    int64_t end = 0;
};

// The reader is at the block's marker. False where a line of a table, or no line at all, follows
// the name label.
bool ReadNameLine(TextReader& reader, NameLine& found) {
    const StructuralLines lines = FetchStructuralLines();
    std::string_view line;
    ReadLine(reader, line);
    constexpr int kNumberAndKeyword = 2;
    for (int i = 0; i < kNumberAndKeyword || line != lines.nameLabel; ++i) {
        if (!ReadBlockLine(reader, lines.modelMarker, line)) return false;
    }
    do {
        found.begin = LinePosition(reader);
        if (!ReadLine(reader, line)) return false;
    } while (IsCommentLine(line));
    found.name = system::WideFromAnsi(Trim(line));
    found.end = LinePosition(reader);
    return line != lines.modelMarker && !IsHeaderLine(line);
}

// The name line of the model that is renamed; false, and reported, when there is no such line, or
// it has another name.
bool RequireName(TextReader& reader, const std::wstring& path, const ModelRename& rename,
                 NameLine& line) {
    if (!ReadNameLine(reader, line)) {
        if (reader.error != kErrorNone) {
            ReportTextNotWritten(path, reader.error);
        } else {
            ReportMessage(kMsgNoNameLine, {rename.number, path});
        }
        return false;
    }
    if (line.name == rename.oldName) return true;
    ReportMessage(kMsgModelChanged, {path});
    return false;
}

// ---- Appending ---------------------------------------------------------------------------------

// `writeBlock` writes the new model's block after all others, with a number that no block has,
// which `number` becomes; false, which it has reported, leaves the database as it is.
//     writeBlock: bool(TextWriter& writer)
template <class WriteBlock>
bool AppendBlock(std::wstring& path, const EditOptions& options, int32_t& number,
                 WriteBlock writeBlock) {
    return EditDatabase(path, options, kMsgWritingDatabase,
                        [&](Rewrite& rewrite, const BlockNumbers& blocks) {
                            number = NextNumberOrReport(blocks, path, 1);
                            if (number == 0) return false;
                            BeginRewrite(rewrite, path);
                            CopyToBlock(rewrite.reader, rewrite.writer, {.known = &blocks});
                            return writeBlock(rewrite.writer);
                        });
}

// Whether the number of a model of another database leads to it alone; reported when not.
bool RequireSource(const ModelSource& source) {
    TextReader reader;
    if (!RequireDatabaseText(reader, source.path)) return false;
    std::string keyword;
    if (FindBlockAtPlace(reader, source.place, keyword)) return true;
    const BlockNumbers blocks = ReadBlockNumbers(reader);
    return !ReportReadFault(reader, source.path) &&
           RequireOneBlock(blocks, source.place.number, source.path);
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

bool RenameModel(std::wstring& path, const ModelRename& rename) {
    return EditDatabase(path, rename.options, kMsgWritingDatabase,
                        [&](Rewrite& rewrite, const BlockNumbers& blocks) {
                            TextReader& reader = rewrite.reader;
                            NameLine line;
                            if (!RequireOneBlock(blocks, rename.number, path)) return false;
                            SeekLine(reader, PlaceOf(blocks, rename.number, rewrite.stamp).offset);
                            if (!RequireName(reader, path, rename, line)) return false;
                            BeginRewrite(rewrite, path);
                            SeekLine(reader, 0);
                            CopySpan(reader, line.begin, rewrite.writer);
                            RowWriter row(rewrite.writer);
                            HeadTextLine(row, Trim(rename.newName));
                            SeekLine(reader, line.end);
                            CopySpan(reader, -1, rewrite.writer);
                            return true;
                        });
}

bool DeleteModels(const std::wstring& path, const std::vector<int32_t>& numbers, bool keepBackup,
                  const BlockNumbers* listed) {
    if (numbers.empty() || std::ranges::min(numbers) < 1) return false;
    std::wstring edited = path;
    return EditDatabase(edited, {keepBackup, nullptr, listed}, kMsgDeletingModel,
                        [&](Rewrite& rewrite, const BlockNumbers& blocks) {
                            std::vector<bool> hasGone;
                            if (!MarkBlocks(blocks, numbers, path, hasGone)) return false;
                            BeginRewrite(rewrite, path);
                            SeekLine(rewrite.reader, 0);
                            CopyFileHead(rewrite.reader, rewrite.writer);
                            CopyLowered(rewrite, blocks, hasGone);
                            return true;
                        });
}

bool DeleteModel(const std::wstring& path, int32_t number, bool keepBackup) {
    return DeleteModels(path, {number}, keepBackup);
}

int32_t NextModelNumber(const std::wstring& path) {
    TextReader reader;
    if (!OpenText(reader, path)) return 0;
    const int32_t next = NextNumber(ReadBlockNumbers(reader));
    return reader.error == kErrorNone ? next : 0;
}

// ---- Copies ------------------------------------------------------------------------------------

bool AppendSection(std::wstring& path, SectionModel& section, const EditOptions& options) {
    int32_t number = 0;
    return AppendBlock(path, options, number, [&](TextWriter& writer) {
        WriteSectionBlock(writer, section, number);
        return true;
    });
}

int32_t CopyAllModels(std::wstring& path, const std::vector<ModelCopy>& copies) {
    if (copies.empty()) return 0;
    EditOptions options = copies.front().options;
    for (const ModelCopy& copy : copies) {
        options.keepBackup = options.keepBackup || FactsOf(copy.kind).isCopiedWithBackup;
    }
    int32_t last = 0;
    const auto write = [&](Rewrite& rewrite, const BlockNumbers& blocks) {
        const auto isThere = [&](const ModelCopy& copy) {
            return RequireOneBlock(blocks, copy.number, path);
        };
        if (!std::ranges::all_of(copies, isThere)) return false;
        const int32_t first = NextNumberOrReport(blocks, path, copies.size());
        if (first == 0) return false;
        BeginRewrite(rewrite, path);
        CopyToBlock(rewrite.reader, rewrite.writer, {.known = &blocks});
        last = first - 1;
        return std::ranges::all_of(copies, [&](const ModelCopy& copy) {
            const std::wstring newName = Trim(copy.newName);
            const ModelSource source{path, PlaceOf(blocks, copy.number, rewrite.stamp)};
            return FactsOf(copy.kind).writeCopy(rewrite.writer, source, &newName, ++last);
        });
    };
    return EditDatabase(path, options, kMsgWritingDatabase, write) ? last : 0;
}

int32_t CopyModel(std::wstring& path, const ModelCopy& copy) {
    return CopyAllModels(path, {copy});
}

AppendResult AppendModel(std::wstring& path, const ModelSource& source, ModelKind kind,
                         const EditOptions& options) {
    if (!RequireSource(source)) return AppendResult::kNoSource;
    bool isRead = true;
    int32_t number = 0;
    const bool isDone = AppendBlock(path, options, number, [&](TextWriter& writer) {
        isRead = FactsOf(kind).writeCopy(writer, source, nullptr, number);
        return isRead;
    });
    if (!isRead) return AppendResult::kNoSource;
    return isDone ? AppendResult::kAppended : AppendResult::kNotWritten;
}

int32_t AppendModels(std::wstring& path, const std::wstring& source,
                     const std::vector<ModelEntry>& models, const EditOptions& options) {
    int32_t last = 0;
    const auto write = [&](Rewrite& rewrite, const BlockNumbers& blocks) {
        const int32_t first = NextNumberOrReport(blocks, path, models.size());
        if (first == 0) return false;
        BeginRewrite(rewrite, path);
        CopyToBlock(rewrite.reader, rewrite.writer, {.known = &blocks});
        last = first - 1;
        return std::ranges::all_of(models, [&](const ModelEntry& model) {
            const ModelSource from{source, PlaceOf(model)};
            return FactsOf(model.kind).writeCopy(rewrite.writer, from, nullptr, ++last);
        });
    };
    if (models.empty()) return 0;
    return EditDatabase(path, options, kMsgWritingDatabase, write) ? last : 0;
}

bool WriteCopyOfSection(TextWriter& writer, const ModelSource& source, const std::wstring* newName,
                        int32_t newNumber) {
    const Carried carried = CarryBlock(writer, source, newName, newNumber);
    if (carried != Carried::kNotNeeded) return carried == Carried::kDone;
    SectionModel section;
    if (!ReadSectionBlock(source.path, source.place, false, section)) return false;
    if (newName != nullptr) section.name = *newName;
    section.identifier.clear();  // the writer makes a new one
    WriteSectionBlock(writer, section, newNumber);
    return true;
}

bool WriteCopyOfBulkhead(TextWriter& writer, const ModelSource& source, const std::wstring* newName,
                         int32_t newNumber) {
    const Carried carried = CarryBlock(writer, source, newName, newNumber);
    if (carried != Carried::kNotNeeded) return carried == Carried::kDone;
    BulkheadArrangement arrangement;
    if (!ReadBulkheadBlock(source.path, source.place, arrangement)) return false;
    if (newName != nullptr) arrangement.name = *newName;
    arrangement.identifier.clear();
    WriteBulkheadBlock(writer, arrangement, newNumber);
    return true;
}

bool WriteCopyOfTorsion(TextWriter& writer, const ModelSource& source, const std::wstring*,
                        int32_t newNumber) {
    TextReader reader;
    std::string keyword(kTorsionKeyword);
    OpenText(reader, source.path);
    const bool isFound = reader.error == kErrorNone && FindBlock(reader, source.place, keyword);
    if (isFound) {
        BlockRun run;
        run.mostBlocks = 1;
        run.shift = int64_t{newNumber} - source.place.number;
        CopyBlocks(reader, writer, run);
    }
    if (ReportReadFault(reader, source.path)) return false;
    if (!isFound) ReportMessage(kMsgModelMissing, {source.place.number, source.path});
    return isFound;
}

}  // namespace corvane
