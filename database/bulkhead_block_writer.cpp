#include "database/bulkhead_block.h"

#include <algorithm>

#include "database/bulkhead_lines.h"
#include "database/creating.h"
#include "database/node_table.h"
#include "database/tables.h"
#include "platform/system.h"
#include "report/messages.h"

namespace corvane {
namespace {

// The layout puts comment rules around some labels, before some, and at others none.
enum class Rules { kNone, kBefore, kAround };

// `legend` is in the ANSI code page.
void OpenLiteralTable(RowWriter& row, std::string_view label, Rules rules,
                      std::string_view legend) {
    if (rules != Rules::kNone) CommentRule(row);
    WriteLine(row.writer, label);
    if (rules == Rules::kAround) CommentRule(row);
    Legend(row, legend);
}

void WriteBulkheads(RowWriter& row, BulkheadArrangement& arrangement) {
    WriteLine(row.writer, GetMessageBytes(kMsgPanelTable));
    Legend(row, " In bulkhead arrangement, PANELS are BULKHEADS");
    NameLegend(row,
               "\tTyp\tiMat\tstfHV\tstfside\tstool1 enab,z\tstool2 enab,z\tstools end for info");
    for (Bulkhead& bulkhead : arrangement.bulkheads) BulkheadLine(row, bulkhead);
}

void WriteNodes(RowWriter& row, std::vector<Bulkhead>& bulkheads) {
    if (!HasItems(bulkheads, &Bulkhead::nodes)) return;
    OpenLiteralTable(
        row, GetMessageBytes(kMsgNodeTable), Rules::kAround,
        system::AnsiFromWide(
            L" Bh\ty\tz\tAbs°\tInter\tIpan\tInod\tSh.Cur\tSh.yT\tSh.zT\tSh.R\tPCod\tknu"));
    WriteNodeRows(row, bulkheads, BulkheadNodeLine<RowWriter>);
}

void WritePrimaryStiffeners(RowWriter& row, std::vector<Bulkhead>& bulkheads) {
    if (!HasItems(bulkheads, &Bulkhead::primaryStiffeners)) return;
    OpenLiteralTable(row, kPrimaryStiffenerTable, Rules::kAround,
                     " Bh\tH/V\ty or z\textremities z or y for info");
    WriteItems(row, bulkheads, &Bulkhead::primaryStiffeners);
}

// ---- Secondary stiffeners ----------------------------------------------------------------------

// What is done for every secondary stiffener gets the bulkhead's and its own number.
template <class Action>
void ForEachStiffener(std::vector<Bulkhead>& bulkheads, Action action) {
    int16_t bulkhead = 0;
    for (Bulkhead& each : bulkheads) {
        ++bulkhead;
        int16_t number = 0;
        for (SecondaryStiffener& stiffener : each.secondaryStiffeners) {
            action(bulkhead, ++number, stiffener);
        }
    }
}

void WriteEndBrackets(RowWriter& row, std::vector<Bulkhead>& bulkheads) {
    OpenLiteralTable(row, kEndBracketTable, Rules::kBefore,
                     " Bh\tiSnd\tiBrk\tenab\tFixed\ttyp\th1\te1\th2\te2\tLength");
    ForEachStiffener(bulkheads,
                     [&row](int16_t bulkhead, int16_t stiffener, SecondaryStiffener& secondary) {
                         int16_t number = 0;
                         for (EndBracket& bracket : secondary.brackets.elements) {
                             ++number;
                             Values(row, bulkhead, stiffener, number);
                             EndBracketLine(row, bracket);
                         }
                     });
}

// A table of the spans that have something; it is opened by the first of them.
struct SpanTable {
    const char* label;
    const char* legend;
    bool BulkheadSpan::* present;
    void (*line)(RowWriter&, BulkheadSpan&);
};
constexpr SpanTable kSpanTables[] = {
    {kSpanScantlingTable, " Bh\tiSnd\tiSpan\ttyp\th1\te1\th2\te2\tMat",
     &BulkheadSpan::hasScantlings, SpanScantlingLine<RowWriter>},
    {kSpanBracketTable, " Bh\tiSnd\tiSpan\tLower brack len\tUpper brack len",
     &BulkheadSpan::hasBrackets, SpanBracketLine<RowWriter>},
};

void WriteSpans(RowWriter& row, std::vector<Bulkhead>& bulkheads, const SpanTable& table) {
    bool opened = false;
    ForEachStiffener(bulkheads,
                     [&](int16_t bulkhead, int16_t stiffener, SecondaryStiffener& secondary) {
                         for (auto& [number, span] : secondary.spans) {
                             if (!(span.*table.present)) continue;
                             if (!opened)
                                 OpenLiteralTable(row, table.label, Rules::kNone, table.legend);
                             opened = true;
                             int16_t written = number;
                             Values(row, bulkhead, stiffener, written);
                             table.line(row, span);
                         }
                     });
}

void WriteSecondaryStiffeners(RowWriter& row, std::vector<Bulkhead>& bulkheads) {
    if (!HasItems(bulkheads, &Bulkhead::secondaryStiffeners)) return;
    OpenLiteralTable(row, kSecondaryStiffenerTable, Rules::kAround,
                     " Bh\ty/z\ttyp\th1\te1\th2\te2\tiMat\tNspan\tSpan red\tType Conn");
    WriteItems(row, bulkheads, &Bulkhead::secondaryStiffeners);
    WriteEndBrackets(row, bulkheads);
    for (const SpanTable& table : kSpanTables) WriteSpans(row, bulkheads, table);
}

// ---- Plating and holds -------------------------------------------------------------------------

void WriteCorrugations(RowWriter& row, std::vector<Bulkhead>& bulkheads) {
    OpenLiteralTable(row, kCorrugationTable, Rules::kAround,
                     " Bh\tStart\tS1\ta\td\tFixed upper and lower support");
    int16_t number = 0;
    for (Bulkhead& bulkhead : bulkheads) {
        ++number;
        Value(row, number);
        CorrugationLine(row, bulkhead.corrugation);
    }
}

void WriteStrakes(RowWriter& row, std::vector<Bulkhead>& bulkheads) {
    OpenLiteralTable(row, kBulkheadStrakeTable, Rules::kAround, " Bh\tBand\tStrk\tz\ty\tTh\tiMat");
    int16_t bulkhead = 0;
    for (Bulkhead& each : bulkheads) {
        ++bulkhead;
        for (auto& [band, strakes] : each.bands) {
            int16_t writtenBand = band;
            int16_t number = 0;
            for (BulkheadStrake& strake : strakes) {
                ++number;
                Values(row, bulkhead, writtenBand, number);
                StrakeLine(row, strake);
            }
        }
    }
}

void WriteHolds(RowWriter& row, std::vector<Compartment>& holds) {
    WriteCompartmentSize(row);
    CompartmentLegends(row);
    for (Compartment& hold : holds) {
        TextLine(row, hold.name);
        HoldLines(row, hold);
    }
}

}  // namespace

void WriteBulkheadBody(TextWriter& writer, BulkheadArrangement& arrangement) {
    if (arrangement.identifier.empty()) arrangement.identifier = NewIdentifier();
    RowWriter row(writer);
    CommentRule(row);
    for (const char* legend :
         {" Name", " x\tstoolvol\tsymflag", " AftHop Breadth,Ztop\tForeHop breadth,Ztop",
          " State Type\tState Index", " ID"}) {
        Legend(row, legend);
    }
    HeadTextLine(row, arrangement.name);
    HeadLines(row, arrangement);
    CommentRule(row);

    WriteBulkheads(row, arrangement);
    WriteNodes(row, arrangement.bulkheads);
    WritePrimaryStiffeners(row, arrangement.bulkheads);
    WriteSecondaryStiffeners(row, arrangement.bulkheads);
    WriteCorrugations(row, arrangement.bulkheads);
    WriteStrakes(row, arrangement.bulkheads);
    WriteHolds(row, arrangement.holds);
}

void WriteBulkheadBlock(TextWriter& writer, BulkheadArrangement& arrangement, int32_t number) {
    WriteBlockHead(writer, number, ModelKind::kBulkhead, CurrentStamp());
    WriteBulkheadBody(writer, arrangement);
}

}  // namespace corvane
