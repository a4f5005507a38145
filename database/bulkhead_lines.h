// The lines of a BHA block, each declared once for the writer and the reader (database/rows.h).
// Scantlings, the columns of nodes and most lines of holds are those of a section
// (database/section_lines.h).
//
// What is declared of an item are its lines from after the bulkhead's number, and after the numbers
// of the stiffener, bracket, span, band and strake that follow it, to the end of the last line.
// docs/bulkhead-block.md has the tables in words.
#pragma once

#include "database/bulkhead.h"
#include "database/section_lines.h"

namespace corvane {

// Labels of the tables that are texts of the layout; those of bulkheads, nodes and holds are the
// catalogue's, as in a section. A label is compared trimmed, otherwise exactly.
inline constexpr char kPrimaryStiffenerTable[] =
    "------------------ PRIMARY STIFF ------------------";
inline constexpr char kSecondaryStiffenerTable[] =
    "------------------ SECONDARY STIFF ------------------";
inline constexpr char kEndBracketTable[] = "------------------ BRACK SCANT ------------------";
inline constexpr char kSpanScantlingTable[] = "------------------ SPAN SCANT ------------------";
inline constexpr char kSpanBracketTable[] = "------------------ SPAN BRACK ------------------";
inline constexpr char kCorrugationTable[] = "------------------ BH CORR ------------------";
inline constexpr char kBulkheadStrakeTable[] = "------------------ BH STRAKE ------------------";

template <class Row>
void Value(Row& row, Hopper& hopper) {
    Values(row, hopper.breadth_m, hopper.top_m);
}

template <class Row>
void Value(Row& row, Stool& stool) {
    Values(row, stool.enabled, stool.z_m);
}

// The lines after the name: position and symmetry, hoppers, state, identifier.
template <class Row>
void HeadLines(Row& row, BulkheadArrangement& arrangement) {
    Values(row, arrangement.x_m, arrangement.stoolVolume_m3, arrangement.symmetric);
    EndLine(row);
    Values(row, arrangement.aftHopper, arrangement.foreHopper);
    EndLine(row);
    Values(row, arrangement.stateType, arrangement.stateIndex);
    EndLine(row);
    HeadTextLine(row, arrangement.identifier);
}

// The table of bulkheads, which has the label of a section's panels. Its first column is the name,
// padded, so that no number comes before it.
template <class Row>
void BulkheadLine(Row& row, Bulkhead& bulkhead) {
    Values(row, PaddedName{bulkhead.name}, bulkhead.kind, bulkhead.material, bulkhead.stiffening,
           bulkhead.stiffenedSide, bulkhead.stools, bulkhead.stoolEndCode, bulkhead.stoolEnds_m);
    EndLine(row);
}

// Unlike a section's node, one of kind 5 has no further columns.
template <class Row>
void BulkheadNodeLine(Row& row, NodeRow item) {
    NodeValues(row, item);
    EndLine(row);
}

// ---- Stiffeners --------------------------------------------------------------------------------
// Whether a row has the fields that not every row has, its length says.

template <class Row>
void ItemLines(Row& row, PrimaryStiffener& stiffener) {
    Values(row, stiffener.direction, stiffener.position_m);
    constexpr int kExtremities = 2;
    stiffener.hasExtremities = HasFields(row, stiffener.hasExtremities, kExtremities);
    if (stiffener.hasExtremities) {
        Values(row, General{stiffener.lowerExtremity_m}, General{stiffener.upperExtremity_m});
    }
    EndLine(row);
}

// The count of spans is kept as the file has it, whatever spans have rows.
template <class Row>
void ItemLines(Row& row, SecondaryStiffener& stiffener) {
    Values(row, stiffener.position_m, stiffener.scantlings, stiffener.material, stiffener.spanCount,
           General{stiffener.lowerExtremity_m}, General{stiffener.upperExtremity_m},
           stiffener.spanReduction_m, stiffener.connection);
    EndLine(row);
}

// One of the two ends of a secondary stiffener: only an enabled bracket has a profile and a length.
template <class Row>
void EndBracketLine(Row& row, EndBracket& bracket) {
    Values(row, bracket.enabled, bracket.fixed);
    constexpr int kScantlingsAndLength = 6;
    if (HasFields(row, bracket.enabled != 0, kScantlingsAndLength)) {
        Values(row, bracket.scantlings, bracket.length_m);
    }
    EndLine(row);
}

// Both tables have only the spans that differ from their stiffener.
template <class Row>
void SpanScantlingLine(Row& row, BulkheadSpan& span) {
    Values(row, span.scantlings, span.material);
    EndLine(row);
}

template <class Row>
void SpanBracketLine(Row& row, BulkheadSpan& span) {
    Values(row, span.lowerBracketLength_m, span.upperBracketLength_m);
    EndLine(row);
}

// ---- Plating -----------------------------------------------------------------------------------

// One row for each bulkhead, a plane one too.
template <class Row>
void CorrugationLine(Row& row, Corrugation& corrugation) {
    Values(row, corrugation.start_m, corrugation.pitch_m, corrugation.flange_m, corrugation.depth_m,
           corrugation.fixedUpper, corrugation.fixedLower);
    EndLine(row);
}

// A plate by its upper and its outer edge.
template <class Row>
void StrakeLine(Row& row, BulkheadStrake& strake) {
    Values(row, strake.z_m, strake.y_m, strake.thickness_mm, strake.material);
    EndLine(row);
}

// ---- Holds -------------------------------------------------------------------------------------

// Instead of a compartment's nodes. A reader accepts any line here.
inline constexpr char kNoNodeList[] = "no node list";
inline void NoNodeLine(RowWriter& row) {
    WriteLine(row.writer, kNoNodeList);
}
inline void NoNodeLine(RowReader& row) {
    EndLine(row);
}

// The lines after the name. The ballast flag is 1 or -1 here, and the comment rule comes directly
// after it, on the same line.
template <class Row>
void HoldLines(Row& row, Compartment& hold) {
    NoNodeLine(row);
    CompartmentValueLines(row, hold);
    Values(row, hold.flags, hold.ends, hold.closing, PlusMinusFlag{hold.ballastHold});
    ClosingRule(row);
    EndLine(row);
}

}  // namespace corvane
