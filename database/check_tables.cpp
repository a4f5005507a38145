#include <algorithm>
#include <array>
#include <span>

#include "database/bulkhead_lines.h"
#include "database/check_blocks.h"
#include "database/section_lines.h"
#include "report/messages.h"
#include "text/text.h"

namespace corvane {
namespace {

// ---- What rows belong to, and refer to ---------------------------------------------------------

// Rows of a panel whose number is known: in the order of the counts in its own row, and the spans;
// of a bulkhead, two brackets for each stiffener, and one row of corrugations.
enum Counted {
    kNodes,
    kPlates,
    kStiffeners,
    kBrackets,
    kSpans,
    kEndBrackets,
    kCorrugations,
    kCounted
};
constexpr std::array<const wchar_t*, kCounted> kCountedNames = {
    L"nodes", L"plates", L"stiffeners", L"brackets", L"spans", L"end brackets", L"corrugations"};

// A panel or a bulkhead.
struct Owner {
    int64_t line = 0;
    std::array<int64_t, kCounted> given{};  // as the file counts them
    std::array<int64_t, kCounted> rows{};
    std::vector<int32_t> spans;  // by stiffener: their number, as its row gives it
};

struct SpanCount {
    int32_t owner = 0;
    int32_t spans = 0;
};

// Rows of one table that follow each other and have one owner.
struct OwnerRun {
    int64_t line = 0;
    int32_t owner = 0;
    int32_t rows = 0;
    Counted counted = kCounted;
    size_t table = 0;
};

// To something of the panel or bulkhead `owner`.
struct Reference {
    enum class To { kOwner, kNode, kStiffener, kSpan };

    int64_t line = 0;
    To to = To::kOwner;
    int32_t owner = 0;
    int32_t number = 0;  // of the node, or of the stiffener
    int32_t span = 0;    // of the stiffener
};

struct BodyCheck;
struct TableCheck {
    std::string label;  // trimmed
    void (*check)(BodyCheck& body);
    bool isRequired = false;
    bool hasEmptyRows = false;  // an empty line can be a name
    int times = 0;              // that the block has it
};

// Until the block's end nobody knows what is there: references are kept until then.
struct BodyCheck {
    RowCheck& row;
    std::wstring ownerName;  // "panel"
    std::vector<TableCheck> tables;
    size_t table = 0;  // the index of the one that is read
    std::vector<Owner> owners;
    std::vector<OwnerRun> runs;
    std::vector<Reference> references;
    std::vector<SpanCount> spanCounts;  // by stiffener, in the order of the rows
};

// The owner's number, with which the row begins.
int32_t ReadOwner(BodyCheck& body, Counted counted = kCounted) {
    int32_t owner = 0;
    const int64_t line = LineOf(body.row);
    Value(body.row, owner);
    if (body.runs.empty() || body.runs.back().owner != owner ||
        body.runs.back().counted != counted || body.runs.back().table != body.table) {
        body.runs.push_back({line, owner, 0, counted, body.table});
    }
    ++body.runs.back().rows;
    return owner;
}

// (0, 0) refers to nothing, unless a node is `wanted`.
void KeepReference(BodyCheck& body, int64_t line, NodeReference node, bool isWanted = false) {
    if (!isWanted && node.strake == 0 && node.node == 0) return;
    body.references.push_back({line, Reference::To::kNode, node.strake, node.node});
}

// ---- Codes -------------------------------------------------------------------------------------

void CheckCode(BodyCheck& body, int64_t line, CheckRule rule, int32_t code) {
    Add(body.row.found, rule, line, {std::to_wstring(code)});
}

void CheckProfile(BodyCheck& body, int64_t line, const Scantlings& profile) {
    if (profile.type >= kProfileFlat && profile.type <= kProfileTee) return;
    CheckCode(body, line, CheckRule::kProfileType, profile.type);
}

void CheckNode(BodyCheck& body, int64_t line, const Node& node, bool hasExtension) {
    if (node.shape < kShapeStraight || node.shape > kShapeArcByTangent) {
        CheckCode(body, line, CheckRule::kNodeShape, node.shape);
    }
    switch (node.kind) {
        case kNodeGiven:
            break;
        case kNodeOnStrake:
            body.references.push_back({line, Reference::To::kOwner, node.onStrake});
            break;
        case kNodeOffset:
        case kNodeCoincident:
            KeepReference(body, line, {node.onStrake, node.onNode}, true);
            break;
        case kNodeIntersection:
            if (hasExtension) {
                body.references.push_back({line, Reference::To::kOwner, node.extensionStrake});
            }
            break;
        default:
            CheckCode(body, line, CheckRule::kNodeKind, node.kind);
    }
}

// ---- Tables of both kinds ----------------------------------------------------------------------

// A table with one item in a row, after its owner.
template <class Item>
void CheckItems(BodyCheck& body, Counted counted, void (*check)(BodyCheck&, int64_t, const Item&)) {
    while (AtRow(body.row)) {
        const int64_t line = LineOf(body.row);
        ReadOwner(body, counted);
        Item item{};
        ItemLines(body.row, item);
        if (check != nullptr) check(body, line, item);
    }
}

void CheckNodes(BodyCheck& body, void (*nodeLine)(RowCheck&, NodeRow), bool hasExtension) {
    while (AtRow(body.row)) {
        const int64_t line = LineOf(body.row);
        ReadOwner(body, kNodes);
        Node node{};
        node.kind = kNodeGiven;
        int16_t absolute = 1;
        nodeLine(body.row, {node, absolute});
        CheckNode(body, line, node, hasExtension);
    }
}

void CheckSize(BodyCheck& body) {
    constexpr int16_t kSize = 8;
    while (AtRow(body.row)) {
        const int64_t line = LineOf(body.row);
        int16_t size = kSize;
        Value(body.row, size);
        EndLine(body.row);
        if (size != kSize) CheckCode(body, line, CheckRule::kTableSize, size);
    }
}

void CheckCompartments(BodyCheck& body, void (*lines)(RowCheck&, Compartment&)) {
    while (AtRow(body.row)) {
        std::string name;
        TextLine(body.row, name);
        if (name.empty() && (!AtRow(body.row) || IsBlank(body.row.line))) continue;
        Compartment compartment;
        const int64_t line = LineOf(body.row);
        lines(body.row, compartment);
        for (const NodeReference& node : compartment.outline) KeepReference(body, line, node, true);
    }
}

// ---- Tables of a section -----------------------------------------------------------------------

void CheckPanels(BodyCheck& body) {
    while (AtRow(body.row)) {
        Owner& owner = body.owners.emplace_back();
        owner.line = LineOf(body.row);
        Panel panel;
        PanelCounts counts;
        PanelLine(body.row, panel, 0, counts);
        for (int i = 1; i <= counts.kCount; ++i)
            owner.given[static_cast<size_t>(i - 1)] = counts(i);
    }
}

void CheckStiffeners(BodyCheck& body) {
    while (AtRow(body.row)) {
        const int64_t line = LineOf(body.row);
        const int32_t panel = ReadOwner(body, kStiffeners);
        Stiffener stiffener{};
        StiffenerDetail detail;
        int32_t spans = 0;
        ItemLines(body.row, StiffenerRow{stiffener, detail, spans});
        KeepReference(body, line, {stiffener.onStrake, stiffener.onNode});
        if (stiffener.side != -1 && stiffener.side != 1) {
            CheckCode(body, line, CheckRule::kStiffenerSide, stiffener.side);
        }
        body.spanCounts.push_back({panel, spans});
    }
}

void CheckSpan(BodyCheck& body, int64_t line, const Span& span) {
    CheckProfile(body, line, span.scantlings);
    if (span.bracket.present) CheckProfile(body, line, span.bracket.scantlings);
}

void CheckBracket(BodyCheck& body, int64_t line, const PrimaryBracket& bracket) {
    KeepReference(body, line, bracket.from);
    KeepReference(body, line, bracket.to);
    for (const Scantlings& profile : bracket.scantlings.elements) CheckProfile(body, line, profile);
}

void CheckOpening(BodyCheck& body, int64_t line, const Opening& opening) {
    KeepReference(body, line, opening.at);
}

void CheckPillar(BodyCheck& body, int64_t line, const Pillar& pillar) {
    KeepReference(body, line, pillar.to);
    CheckProfile(body, line, {.type = pillar.profile});
}

void CheckFatigue(BodyCheck& body) {
    body.row.passesLineEnds = true;
    while (AtRow(body.row)) {
        Reference reference{LineOf(body.row), Reference::To::kSpan};
        reference.owner = ReadOwner(body);
        Values(body.row, reference.number, reference.span);
        if (body.row.missing == 0) body.references.push_back(reference);
        FatigueTable fatigue;
        ItemLines(body.row, fatigue);
    }
    body.row.passesLineEnds = false;
}

// ---- Tables of a bulkhead arrangement ----------------------------------------------------------

void CheckBulkheads(BodyCheck& body) {
    while (AtRow(body.row)) {
        body.owners.emplace_back().line = LineOf(body.row);
        Bulkhead bulkhead;
        BulkheadLine(body.row, bulkhead);
    }
}

void CheckSecondary(BodyCheck& body, int64_t line, const SecondaryStiffener& stiffener) {
    CheckProfile(body, line, stiffener.scantlings);
}

// Bulkhead and stiffener, with which the row begins.
void ReadStiffener(BodyCheck& body, Counted counted = kCounted) {
    Reference reference{LineOf(body.row), Reference::To::kStiffener};
    reference.owner = ReadOwner(body, counted);
    Value(body.row, reference.number);
    if (body.row.missing == 0) body.references.push_back(reference);
}

void CheckEndBrackets(BodyCheck& body) {
    while (AtRow(body.row)) {
        const int64_t line = LineOf(body.row);
        ReadStiffener(body, kEndBrackets);
        int32_t number = 0;
        Value(body.row, number);
        if (AtRow(body.row) && number != 1 && number != 2) {
            CheckCode(body, line, CheckRule::kNoSuchBracket, number);
        }
        EndBracket bracket;
        EndBracketLine(body.row, bracket);
        if (bracket.enabled != 0) CheckProfile(body, line, bracket.scantlings);
    }
}

template <void (*spanLine)(RowCheck&, BulkheadSpan&)>
void CheckSpans(BodyCheck& body) {
    while (AtRow(body.row)) {
        const int64_t line = LineOf(body.row);
        ReadStiffener(body);
        int16_t number = 0;
        Value(body.row, number);
        BulkheadSpan span;
        spanLine(body.row, span);
        CheckProfile(body, line, span.scantlings);
    }
}

void CheckCorrugations(BodyCheck& body) {
    while (AtRow(body.row)) {
        ReadOwner(body, kCorrugations);
        Corrugation corrugation;
        CorrugationLine(body.row, corrugation);
    }
}

void CheckStrakes(BodyCheck& body) {
    while (AtRow(body.row)) {
        ReadOwner(body);
        int16_t number = 0;
        Values(body.row, number, number);
        BulkheadStrake strake;
        StrakeLine(body.row, strake);
    }
}

// ---- At the end of the block -------------------------------------------------------------------

std::wstring OwnerText(const BodyCheck& body, int64_t number) {
    return body.ownerName + L' ' + std::to_wstring(number);
}

// Null where the model does not have it.
Owner* OwnerOf(BodyCheck& body, int64_t number) {
    const bool isThere = number >= 1 && static_cast<size_t>(number) <= body.owners.size();
    return isThere ? &body.owners[static_cast<size_t>(number) - 1] : nullptr;
}

void JudgeRuns(BodyCheck& body) {
    for (const SpanCount& count : body.spanCounts) {
        Owner* const owner = OwnerOf(body, count.owner);
        if (owner == nullptr) continue;
        owner->given[kSpans] += count.spans;
        owner->spans.push_back(count.spans);
    }
    for (const OwnerRun& run : body.runs) {
        if (Owner* const owner = OwnerOf(body, run.owner)) {
            if (run.counted != kCounted) owner->rows[run.counted] += run.rows;
            continue;
        }
        Add(body.row.found, CheckRule::kNoOwner, run.line,
            {TableName(body.tables[run.table].label), std::to_wstring(run.rows),
             OwnerText(body, run.owner), std::to_wstring(body.owners.size())});
    }
}

// What a reference leads to, in words; empty where it is there. A row without an owner is another
// rule's matter.
std::wstring MissingText(BodyCheck& body, const Reference& reference) {
    const auto isIn = [](int64_t number, int64_t count) { return number >= 1 && number <= count; };
    const auto ofOwner = [&](const std::wstring& what) {
        return what + L" of " + OwnerText(body, reference.owner);
    };
    const Owner* const owner = OwnerOf(body, reference.owner);
    const int32_t number = reference.number;
    if (reference.to == Reference::To::kOwner) {
        return owner == nullptr ? OwnerText(body, reference.owner) : std::wstring();
    }
    if (reference.to == Reference::To::kNode) {
        if (owner != nullptr && isIn(number, owner->rows[kNodes])) return {};
        return ofOwner(L"node " + std::to_wstring(number));
    }
    if (owner == nullptr) return {};
    const auto stiffener = [&] { return ofOwner(L"stiffener " + std::to_wstring(number)); };
    if (!isIn(number, owner->rows[kStiffeners])) return stiffener();
    if (reference.to == Reference::To::kStiffener) return {};
    if (isIn(reference.span, owner->spans[static_cast<size_t>(number) - 1])) return {};
    return L"span " + std::to_wstring(reference.span) + L" of " + stiffener();
}

void JudgeReferences(BodyCheck& body) {
    for (const Reference& reference : body.references) {
        const std::wstring missing = MissingText(body, reference);
        if (missing.empty()) continue;
        Add(body.row.found, CheckRule::kNoReference, reference.line, {missing});
    }
}

void JudgeCounts(BodyCheck& body) {
    int64_t number = 0;
    for (const Owner& owner : body.owners) {
        ++number;
        for (size_t i = 0; i < kCounted; ++i) {
            if (owner.given[i] == owner.rows[i]) continue;
            Add(body.row.found, CheckRule::kCountDiffers, owner.line,
                {kCountedNames[i] + (L" of " + OwnerText(body, number)),
                 std::to_wstring(owner.given[i]), std::to_wstring(owner.rows[i])});
        }
    }
}

void JudgePanels(BodyCheck& body) {
    int64_t number = 0;
    for (const Owner& owner : body.owners) {
        ++number;
        if (owner.rows[kNodes] >= 2) continue;
        Add(body.row.found, CheckRule::kFewNodes, owner.line,
            {OwnerText(body, number), std::to_wstring(owner.rows[kNodes])});
    }
}

// What the tables of a bulkhead arrangement have to have.
void GiveCounts(BodyCheck& body) {
    constexpr int64_t kBracketsOfAStiffener = 2;
    for (Owner& owner : body.owners) {
        owner.given = owner.rows;
        owner.given[kEndBrackets] = kBracketsOfAStiffener * owner.rows[kStiffeners];
        owner.given[kCorrugations] = 1;
    }
}

void JudgeTables(BodyCheck& body, int64_t firstLine) {
    for (const TableCheck& table : body.tables) {
        if (!table.isRequired || table.times > 0 || body.row.isForeign) continue;
        Add(body.row.found, CheckRule::kTableMissing, firstLine, {TableName(table.label)});
    }
}

// ---- From table to table -----------------------------------------------------------------------

// Goes to the next header line or the block's end; the number of lines that have anything.
int64_t SkipLines(RowCheck& row) {
    int64_t count = 0;
    for (; AtRow(row); LoadLine(row)) {
        if (!IsBlank(row.line)) ++count;
    }
    return count;
}

void CheckTable(BodyCheck& body, TableCheck& table) {
    RowCheck& row = body.row;
    row.table = TableName(table.label);
    if (++table.times > 1) Add(row.found, CheckRule::kTableTwice, LineOf(row), {row.table});
    row.skipBlankLines = !table.hasEmptyRows;
    LoadLine(row);
    table.check(body);
    row.skipBlankLines = false;
}

void CheckTables(BodyCheck& body) {
    RowCheck& row = body.row;
    const int64_t first = LineOf(row);
    if (const int64_t outside = SkipLines(row); outside > 0) {
        Add(row.found, CheckRule::kLinesOutside, first, {std::to_wstring(outside)});
    }
    while (row.place == RowCheck::Place::kHeader) {
        const auto found = std::ranges::find(body.tables, Trim(row.line), &TableCheck::label);
        if (found != body.tables.end()) {
            body.table = static_cast<size_t>(found - body.tables.begin());
            CheckTable(body, *found);
            continue;
        }
        const int64_t line = LineOf(row);
        const std::wstring label = TableName(row.line);
        LoadLine(row);
        const int64_t rows = SkipLines(row);
        Add(row.found, CheckRule::kTableUnknown, line, {label, std::to_wstring(rows)});
    }
}

std::string LabelOf(MessageNumber number) {
    return std::string(Trim(GetMessageBytes(number)));
}

}  // namespace

void CheckSectionTables(RowCheck& row, int64_t firstLine) {
    BodyCheck body{row, L"panel", {}, 0, {}, {}, {}, {}};
    body.tables = {
        {LabelOf(kMsgPanelTable), CheckPanels, true},
        {LabelOf(kMsgNodeTable), [](BodyCheck& at) { CheckNodes(at, NodeLine<RowCheck>, true); },
         true},
        {LabelOf(kMsgPlateTable), [](BodyCheck& at) { CheckItems<Plate>(at, kPlates, nullptr); },
         true},
        {LabelOf(kMsgStiffenerTable), CheckStiffeners},
        {LabelOf(kMsgSpanTable), [](BodyCheck& at) { CheckItems<Span>(at, kSpans, CheckSpan); }},
        {LabelOf(kMsgCompartmentSizeTable), CheckSize},
        {LabelOf(kMsgCompartmentTable),
         [](BodyCheck& at) { CheckCompartments(at, CompartmentLines<RowCheck>); }, false, true},
        {LabelOf(kMsgBracketTable),
         [](BodyCheck& at) { CheckItems<PrimaryBracket>(at, kBrackets, CheckBracket); }},
        {LabelOf(kMsgOpeningTable),
         [](BodyCheck& at) { CheckItems<Opening>(at, kCounted, CheckOpening); }},
        {LabelOf(kMsgPillarTable),
         [](BodyCheck& at) { CheckItems<Pillar>(at, kCounted, CheckPillar); }},
        {LabelOf(kMsgFatigueTable), CheckFatigue},
    };
    CheckTables(body);
    JudgeRuns(body);
    JudgeReferences(body);
    JudgeCounts(body);
    JudgePanels(body);
    JudgeTables(body, firstLine);
}

void CheckBulkheadTables(RowCheck& row, int64_t firstLine) {
    BodyCheck body{row, L"bulkhead", {}, 0, {}, {}, {}, {}};
    body.tables = {
        {LabelOf(kMsgPanelTable), CheckBulkheads, true},
        {LabelOf(kMsgNodeTable),
         [](BodyCheck& at) { CheckNodes(at, BulkheadNodeLine<RowCheck>, false); }},
        {kPrimaryStiffenerTable,
         [](BodyCheck& at) { CheckItems<PrimaryStiffener>(at, kCounted, nullptr); }},
        {kSecondaryStiffenerTable,
         [](BodyCheck& at) { CheckItems<SecondaryStiffener>(at, kStiffeners, CheckSecondary); }},
        {kEndBracketTable, CheckEndBrackets},
        {kSpanScantlingTable, CheckSpans<SpanScantlingLine<RowCheck>>},
        {kSpanBracketTable, CheckSpans<SpanBracketLine<RowCheck>>},
        {kCorrugationTable, CheckCorrugations, true},
        {kBulkheadStrakeTable, CheckStrakes, true},
        {LabelOf(kMsgCompartmentSizeTable), CheckSize, true},
        {LabelOf(kMsgCompartmentTable),
         [](BodyCheck& at) { CheckCompartments(at, HoldLines<RowCheck>); }, true, true},
    };
    CheckTables(body);
    JudgeRuns(body);
    JudgeReferences(body);
    GiveCounts(body);
    JudgeCounts(body);
    JudgeTables(body, firstLine);
}

// The labels are those of the torsion program; what is below them is its own.
void CheckTorsionTables(RowCheck& row) {
    constexpr std::string_view kLabels[] = {"HOLDS", "TRANS BEAM", "BEAM MODELS", "LONG BEAM",
                                            "TOR RESULTS"};
    while (row.place != RowCheck::Place::kEnd) {
        if (row.place == RowCheck::Place::kHeader) {
            const std::wstring name = TableName(row.line);
            const bool isKnown = std::ranges::count(kLabels, system::AnsiFromWide(name)) != 0;
            if (!isKnown) {
                Add(row.found, CheckRule::kTorsionTableUnknown, LineOf(row), {name});
            }
        }
        LoadLine(row);
    }
}

}  // namespace corvane
