#include "database/bulkhead_block.h"

#include <utility>

#include "database/bulkhead_lines.h"
#include "database/model_kind.h"
#include "database/node_table.h"
#include "database/scanning.h"
#include "database/tables.h"
#include "files/read_fault.h"
#include "report/reporters.h"

namespace corvane {
namespace {

using Bulkheads = std::vector<Bulkhead>;

void ReadBulkheads(RowReader& row, Bulkheads& bulkheads) {
    while (AtRow(row)) {
        Bulkhead bulkhead;
        BulkheadLine(row, bulkhead);
        Keep(bulkheads, std::move(bulkhead));
    }
}

// The bulkhead whose number comes next; null when there is no such bulkhead.
Bulkhead* ReadOwner(RowReader& row, Bulkheads& bulkheads) {
    const size_t index = ReadIndex(row, bulkheads.size());
    return index < bulkheads.size() ? &bulkheads[index] : nullptr;
}

// The secondary stiffener whose two numbers come next.
SecondaryStiffener* ReadStiffenerOwner(RowReader& row, Bulkheads& bulkheads) {
    Bulkhead* bulkhead = ReadOwner(row, bulkheads);
    if (bulkhead == nullptr) return nullptr;
    std::vector<SecondaryStiffener>& stiffeners = bulkhead->secondaryStiffeners;
    const size_t index = ReadIndex(row, stiffeners.size());
    return index < stiffeners.size() ? &stiffeners[index] : nullptr;
}

// A number that counts as it is, from 1; 0 when the row has no such number.
int16_t ReadNumberFrom1(RowReader& row) {
    int16_t number = 0;
    Value(row, number);
    return std::max<int16_t>(number, 0);
}

void ReadNodes(RowReader& row, Bulkheads& bulkheads) {
    ReadNodeRows(row, bulkheads, BulkheadNodeLine<RowReader>);
}

void ReadEndBrackets(RowReader& row, Bulkheads& bulkheads) {
    while (AtRow(row)) {
        EndBracket unplaced;
        EndBracket* bracket = &unplaced;
        if (SecondaryStiffener* stiffener = ReadStiffenerOwner(row, bulkheads)) {
            auto& brackets = stiffener->brackets.elements;
            const size_t index = ReadIndex(row, brackets.size());
            if (index < brackets.size()) bracket = &brackets[index];
        }
        EndBracketLine(row, *bracket);
    }
}

template <bool BulkheadSpan::* present, void (*line)(RowReader&, BulkheadSpan&)>
void ReadSpans(RowReader& row, Bulkheads& bulkheads) {
    while (AtRow(row)) {
        BulkheadSpan unplaced;
        BulkheadSpan* span = &unplaced;
        if (SecondaryStiffener* stiffener = ReadStiffenerOwner(row, bulkheads)) {
            const int16_t number = ReadNumberFrom1(row);
            if (number > 0) span = &stiffener->spans[number];
        }
        span->*present = true;
        line(row, *span);
    }
}

void ReadCorrugations(RowReader& row, Bulkheads& bulkheads) {
    while (AtRow(row)) {
        Corrugation unplaced;
        Bulkhead* bulkhead = ReadOwner(row, bulkheads);
        CorrugationLine(row, bulkhead != nullptr ? bulkhead->corrugation : unplaced);
    }
}

// Strakes are in a band in the order of their rows, whatever their own numbers are.
void ReadStrakes(RowReader& row, Bulkheads& bulkheads) {
    while (AtRow(row)) {
        Bulkhead* bulkhead = ReadOwner(row, bulkheads);
        const int16_t band = ReadNumberFrom1(row);
        ReadNumberFrom1(row);
        BulkheadStrake strake;
        StrakeLine(row, strake);
        if (bulkhead != nullptr && band > 0) Keep(bulkhead->bands[band], strake);
    }
}

void ReadArrangementTables(RowReader& row, BulkheadArrangement& arrangement) {
    Bulkheads& bulkheads = arrangement.bulkheads;
    std::vector<Compartment>& holds = arrangement.holds;
    const auto of = [&bulkheads](void (*read)(RowReader&, Bulkheads&)) {
        return [&bulkheads, read](RowReader& at) { read(at, bulkheads); };
    };
    const auto itemsOf = [&bulkheads](auto items) {
        return [&bulkheads, items](RowReader& at) { ReadItems(at, bulkheads, items); };
    };
    const auto readHolds = [&holds](RowReader& at) {
        ReadCompartments(at, holds, HoldLines<RowReader>);
    };
    const std::vector<BlockTable> tables = {
        {GetMessageBytes(kMsgPanelTable), of(ReadBulkheads)},
        {GetMessageBytes(kMsgNodeTable), of(ReadNodes)},
        {kPrimaryStiffenerTable, itemsOf(&Bulkhead::primaryStiffeners)},
        {kSecondaryStiffenerTable, itemsOf(&Bulkhead::secondaryStiffeners)},
        {kEndBracketTable, of(ReadEndBrackets)},
        {kSpanScantlingTable,
         of(ReadSpans<&BulkheadSpan::hasScantlings, SpanScantlingLine<RowReader>>)},
        {kSpanBracketTable, of(ReadSpans<&BulkheadSpan::hasBrackets, SpanBracketLine<RowReader>>)},
        {kCorrugationTable, of(ReadCorrugations)},
        {kBulkheadStrakeTable, of(ReadStrakes)},
        {GetMessageBytes(kMsgCompartmentTable), readHolds, true},
    };
    ReadTables(row, tables, [&arrangement] {
        arrangement.bulkheads.clear();
        arrangement.holds.clear();
    });
}

}  // namespace

void ReadBulkheadLines(TextReader& reader, BulkheadArrangement& arrangement) {
    arrangement = {};
    RowReader row(reader);
    ReadBlockHead(row, arrangement.formatVersion);
    HeadTextLine(row, arrangement.name);
    HeadLines(row, arrangement);
    ReadArrangementTables(row, arrangement);
}

bool ReadBulkheadBlock(const std::wstring& path, const BlockPlace& place,
                       BulkheadArrangement& arrangement) {
    constexpr float kNowhere = -1;
    TextReader reader;
    if (!RequireDatabaseText(reader, path)) {
        arrangement.x_m = kNowhere;
        return false;
    }
    ReportStatus(kMsgReadingModel, {path});
    std::string keyword(kBulkheadKeyword);
    if (!FindBlock(reader, place, keyword)) {
        if (!ReportReadFault(reader, path)) {
            ReportMessage(L"Can not find BHA ¤ in file '¤'", {place.number, path});
        }
        arrangement.x_m = kNowhere;
        return false;
    }
    BulkheadArrangement read;
    ReadBulkheadLines(reader, read);
    if (ReportReadFault(reader, path)) {
        arrangement.x_m = kNowhere;
        return false;
    }
    arrangement = std::move(read);
    ShowStatus(L"");
    return true;
}

}  // namespace corvane
