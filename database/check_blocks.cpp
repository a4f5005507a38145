#include "database/check_blocks.h"

#include <algorithm>

#include "database/bulkhead_lines.h"
#include "database/section_lines.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

// Sections of older layouts differ in one place from this one on.
constexpr double kOldestLayout = 1.43;

struct HeadCheck {
    CountedLines& lines;
    const StructuralLines& structure;
    BlockFindings& found;
    CheckedBlock& block;
    std::string_view line;
    bool hasKind = false;
    bool hasVersion = false;
};

void Note(HeadCheck& head, CheckRule rule, std::vector<std::wstring> values = {}) {
    Add(head.found, rule, head.lines.number, std::move(values));
}
void NoteOfBlock(HeadCheck& head, CheckRule rule) {
    Add(head.found, rule, head.block.firstLine, {});
}

// The next line of the block that is not a comment; false, and the marker unread, at its end.
bool NextLine(HeadCheck& head) {
    do {
        if (!ReadLine(head.lines, head.line)) return false;
    } while (IsCommentLine(head.line));
    if (head.line != head.structure.modelMarker) return true;
    StepBack(head.lines);
    return false;
}

bool IsKeyword(std::string_view line) {
    return std::ranges::count(Kinds(), line, &KindFacts::keyword) != 0;
}
bool IsLabel(const HeadCheck& head) {
    return head.line == head.structure.versionLabel || head.line == head.structure.nameLabel ||
           IsHeaderLine(head.line);
}
bool BeginsWithNumber(std::string_view line) {
    const size_t first = line.find_first_not_of(" \t");
    return first != std::string_view::npos &&
           ReadsAsNumber(
               system::WideFromAnsi(line.substr(first, line.find_first_of(" \t", first) - first)));
}

// ---- Number and kind ---------------------------------------------------------------------------

void NotePlaceOfNumber(HeadCheck& head, bool isThere) {
    Repair& line = head.block.numberLine;
    head.block.hasNumberPlace = true;
    line.kind = RepairKind::kNumber;
    line.line = head.lines.number;
    line.block = head.found.model.block;
    line.begin = head.lines.begin;
    line.end = isThere ? LinePosition(head.lines.reader) : line.begin;
    if (isThere) line.was = ShownText(head.line);
}

void CheckNumber(HeadCheck& head) {
    head.block.number = std::max(LeadingInteger(head.line), 0);
    const std::wstring shown = ShownText(head.line);
    NotePlaceOfNumber(head, true);
    if (!BeginsWithNumber(head.line) || head.block.number == 0) {
        Note(head, CheckRule::kNumberUnreadable, {shown});
    } else if (!ReadsAsNumber(shown)) {
        Note(head, CheckRule::kNumberText, {shown});
    }
}

// The number line; false at the block's end. Where it is missing, its line is the next one's.
bool CheckNumberLine(HeadCheck& head) {
    if (!NextLine(head)) {
        NoteOfBlock(head, CheckRule::kNoNumberLine);
        return false;
    }
    if (IsKeyword(head.line)) {
        NotePlaceOfNumber(head, false);
        Note(head, CheckRule::kNumberLost);
        return true;
    }
    if (IsLabel(head)) {
        NoteOfBlock(head, CheckRule::kNoNumberLine);
        return true;
    }
    CheckNumber(head);
    return NextLine(head);
}

// The line of the keyword, which is loaded. Only before a keyword is a line surely the number.
// False where the block ends here.
bool CheckKind(HeadCheck& head) {
    head.hasKind = IsKeyword(head.line);
    head.found.model.kind = KindOfKeyword(head.line);
    if (head.hasKind) return NextLine(head);
    if (head.block.number == 0) head.block.hasNumberPlace = false;
    if (IsLabel(head)) {
        NoteOfBlock(head, CheckRule::kNoKind);
        return true;
    }
    Note(head, CheckRule::kKindUnknown, {ShownText(head.line)});
    return NextLine(head);
}

// ---- Version and name label --------------------------------------------------------------------

void CheckVersion(HeadCheck& head) {
    head.hasVersion = true;
    const std::wstring shown = ShownText(head.line);
    const KindFacts& facts = FactsOf(head.found.model.kind);
    if (!BeginsWithNumber(head.line)) {
        Note(head, CheckRule::kVersionUnreadable, {shown});
    } else if (!head.hasKind || facts.kind == ModelKind::kTorsion) {
        return;  // the layout of a torsion model is its program's
    } else if (ClampToSingle(LeadingNumber(head.line)) > facts.formatVersion) {
        Note(head, CheckRule::kVersionNewer, {shown, GeneralText(facts.formatVersion)});
    } else if (facts.kind == ModelKind::kSection && LeadingNumber(head.line) < kOldestLayout) {
        Note(head, CheckRule::kVersionOlder, {shown});
    }
}

// The line after the version label, unless the version is missing.
bool CheckVersionLine(HeadCheck& head) {
    if (!NextLine(head)) return false;
    if (IsLabel(head)) {
        StepBack(head.lines);
    } else {
        CheckVersion(head);
    }
    return true;
}

// From the line after the keyword, which is loaded, to the name label; false where a table or the
// block's end comes before it.
bool SkipToNameLabel(HeadCheck& head, UnknownLines& unknown) {
    do {
        if (head.line == head.structure.nameLabel) return true;
        if (head.line == head.structure.versionLabel) {
            if (!CheckVersionLine(head)) return false;
        } else if (IsHeaderLine(head.line)) {
            StepBack(head.lines);
            return false;
        } else {
            NoteUnknown(unknown, head.lines, head.line);
        }
    } while (NextLine(head));
    return false;
}

// From the marker to the name label; false where it is missing.
bool CheckHead(HeadCheck& head) {
    UnknownLines unknown;
    const bool hasNumber = CheckNumberLine(head);
    if (!hasNumber && head.block.number == 0) head.block.hasNumberPlace = false;
    if (!hasNumber && head.block.numberLine.line != 0) NoteOfBlock(head, CheckRule::kNoKind);
    const bool hasMore = hasNumber && CheckKind(head);
    const bool hasLabel = hasMore && SkipToNameLabel(head, unknown);
    if (unknown.count > 0) {
        Add(head.found, CheckRule::kBlockHeadLine, unknown.first,
            {std::to_wstring(unknown.count), unknown.text});
    }
    if (hasNumber && !head.hasVersion) NoteOfBlock(head, CheckRule::kNoVersion);
    if (hasNumber && !hasLabel) NoteOfBlock(head, CheckRule::kNoNameLabel);
    return hasLabel;
}

// ---- Body --------------------------------------------------------------------------------------

// The name's line; a name may be what it likes, but not a table's label.
void CheckName(RowCheck& row, CheckedBlock& block) {
    std::string name;
    row.watchesHeads = false;
    LoadLine(row);
    row.watchesHeads = true;
    const int64_t before = row.textLine;
    HeadTextLine(row, name);
    row.found.model.name = ShownText(name);
    if (row.textLine == before) {
        Add(row.found, CheckRule::kNoName, block.firstLine, {});
        return;
    }
    if (name.empty()) Add(row.found, CheckRule::kNoName, row.textLine, {});
    block.nameLine.line = row.textLine;
    block.nameLine.begin = row.textBegin;
    block.nameLine.end = row.textEnd;
}

template <class Model>
void CheckHeadLines(RowCheck& row, CheckedBlock& block) {
    const int64_t findings = CountOf(row.found);
    Model model;
    const int64_t nameLine = row.textLine;
    HeadLines(row, model);
    // Where its line was lost, it can be put in before the first table.
    const bool isLost = row.textLine == nameLine;
    if (isLost && row.place != RowCheck::Place::kHeader) return;
    block.identifier = model.identifier;
    block.hasIdentifierLine = CountOf(row.found) == findings;
    Repair& line = block.identifierLine;
    line.kind = RepairKind::kIdentifier;
    line.line = isLost ? LineOf(row) : row.textLine;
    line.block = row.found.model.block;
    line.was = system::WideFromAnsi(model.identifier);
    line.begin = isLost ? row.lines.begin : row.textBegin;
    line.end = isLost ? line.begin : row.textEnd;
}

// `hasNameLabel`: its line has been read; otherwise the next line is that of a table.
void CheckBody(RowCheck& row, CheckedBlock& block, bool hasNameLabel) {
    if (hasNameLabel) {
        CheckName(row, block);
    } else {
        LoadLine(row);
    }
    switch (row.found.model.kind) {
        case ModelKind::kSection:
            if (hasNameLabel) CheckHeadLines<SectionModel>(row, block);
            CheckSectionTables(row, block.firstLine);
            break;
        case ModelKind::kBulkhead:
            if (hasNameLabel) CheckHeadLines<BulkheadArrangement>(row, block);
            CheckBulkheadTables(row, block.firstLine);
            break;
        case ModelKind::kTorsion:
            CheckTorsionTables(row);
            break;
    }
}

// What the rows are nobody can say.
void SkipBody(RowCheck& row, CheckedBlock& block, bool hasNameLabel) {
    if (hasNameLabel) CheckName(row, block);
    do {
        LoadLine(row);
    } while (row.place != RowCheck::Place::kEnd);
}

}  // namespace

void CheckBlock(CountedLines& lines, const StructuralLines& structure, BlockFindings& found,
                CheckedBlock& block) {
    block.firstLine = lines.number;
    HeadCheck head{lines, structure, found, block, {}};
    const bool hasNameLabel = CheckHead(head);
    found.model.number = static_cast<int32_t>(block.number);
    RowCheck row(lines, structure, found);
    if (head.hasKind) {
        CheckBody(row, block, hasNameLabel);
    } else {
        SkipBody(row, block, hasNameLabel);
    }
    block.hidesBlock = row.isForeign;
}

void CheckBlockAt(TextReader& reader, BlockFindings& found, CheckedBlock& block, int64_t& begin) {
    const StructuralLines structure = FetchStructuralLines();
    FindLine(reader, structure.modelMarker);
    CountedLines lines{reader};
    std::string_view marker;
    ReadLine(lines, marker);
    begin = lines.begin;
    CheckBlock(lines, structure, found, block);
}

bool IsCarriedOver(const BlockFindings& found, const CheckedBlock& block) {
    const auto isLost = [](const Finding& finding) { return FactsOf(finding.rule).isLostByCopy; };
    return block.number > 0 && block.hasNumberPlace && block.nameLine.line != 0 &&
           block.hasIdentifierLine && !block.hidesBlock && std::ranges::any_of(found.list, isLost);
}

}  // namespace corvane
