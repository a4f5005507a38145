// The lines of a section block, each declared once for the writer and the reader (database/rows.h).
// The nodes, the scantlings and the compartments are those of a bulkhead arrangement too.
//
// What an ItemLines declares is the item's lines from after the panel's number to the end of the
// last one. The order of the fields is the order of the columns: a field that moves here moves in
// every file. The legends over the columns are texts of the catalogue; docs/section-block.md has
// the table in words.
#pragma once

#include <algorithm>

#include "database/rows.h"
#include "database/section.h"

namespace corvane {

// Panel and node, both from 1.
template <class Row>
void Value(Row& row, NodeReference& reference) {
    Values(row, reference.strake, reference.node);
}

// The group typ, h1, e1, h2, e2: five columns, the flange last. The gap of a doubled profile is not
// written.
template <class Row>
void Value(Row& row, Scantlings& scantlings) {
    Values(row, scantlings.type, scantlings.webHeight_mm, scantlings.webThickness_mm,
           scantlings.flangeBreadth_mm, scantlings.flangeThickness_mm);
}

// ---- Head --------------------------------------------------------------------------------------

// The lines after the name: 14 lines, the last with the results.
template <class Row>
void HeadLines(Row& row, SectionModel& section) {
    Values(row, section.x_m, section.breadth_m, section.depth_m, section.draught_m,
           section.shipType, section.classCode, section.navigationCode, section.frameSpacing_m,
           section.webSpacing_m);
    EndLine(row);
    // Hogging, sagging, harbour.
    for (int k = 1; k <= 3; ++k) {
        Values(row, Magnitude{section.stillWaterMoment_kNm(k)},
               Magnitude{section.waveMoment_kNm(k)}, Magnitude{section.shearForce_kN(k)});
        EndLine(row);
    }
    Values(row, section.deckModulus_m3, section.bottomModulus_m3);
    EndLine(row);
    Values(row, section.bottomSlope_deg, section.sideSlope_deg, section.stressRule,
           section.bucklingRule);
    EndLine(row);
    Values(row, section.momentsAbsent, section.moduliAbsent);
    EndLine(row);
    Values(row, section.tolerance_m, section.ballastDraught_m, section.cargoHeight_m);
    EndLine(row);
    Values(row, section.symmetryMode, section.materialGroup, section.corrosionRule,
           section.holdLength_m, section.holdAft_m);
    EndLine(row);
    HeadTextLine(row, section.identifier);
    EmptyLine(row);
    // Two lines of two zeros; what a file has there is not kept.
    int16_t reserved = 0;
    for (int k = 1; k <= 2; ++k) {
        Values(row, reserved, reserved);
        EndLine(row);
    }
    Values(row, section.neutralAxis_m, section.area_m2, section.inertiaY_m4, section.inertiaZ_m4);
    // From here on the print form's own blanks part the fields.
    for (int16_t& code : section.resultCodes.elements) {
        Abut(row);
        Value(row, code);
    }
    Abut(row);
    Value(row, Flag{section.resultsValid});
    EndLine(row);
}

// ---- Panels and their items --------------------------------------------------------------------

// Table 1: a panel, its number, and the numbers of its nodes, plates, stiffeners and brackets,
// which are for the human reader: a reader counts the rows of the other tables.
using PanelCounts = Array<int16_t, 1, 4>;
PanelCounts CountsOf(const Panel& panel);

template <class Row>
void PanelLine(Row& row, Panel& panel, int16_t number, PanelCounts& counts) {
    Values(row, PaddedName{panel.name}, panel.spacing_m, panel.span_m, panel.thickness_mm,
           panel.kind, panel.material, number, counts);
    EndLine(row);
}

// A node with its column Abs°. The file says whether a node is absolute (not 0), the library's
// record whether it is relative (-1 or 0).
struct NodeRow {
    Node& node;
    int16_t& absolute;
};
// The code that was read of node `index`, from 0; 1 or 0 when there is none for it.
int16_t AbsoluteCode(const Node& node, const std::vector<int16_t>& codes, size_t index);

// The columns that a bulkhead's node has too.
template <class Row>
void NodeValues(Row& row, NodeRow item) {
    Node& node = item.node;
    Values(row, General{node.givenY}, General{node.givenZ}, item.absolute, node.inter,
           node.onStrake, node.onNode, node.shape, node.tangentY, node.tangentZ, node.radius,
           node.kind, node.number);
    node.relative = item.absolute == 0 ? -1 : 0;
}

// Table 2. Only a node at an intersection has the line that it is on, and the strake that crosses
// it.
template <class Row>
void NodeLine(Row& row, NodeRow item) {
    NodeValues(row, item);
    Node& node = item.node;
    if (node.kind == kNodeIntersection) {
        for (float& value : node.extension) Value(row, value);
        Value(row, node.extensionStrake);
    }
    EndLine(row);
}

// Table 3. A plate begins where the one before it ends, so only its end is written.
template <class Row>
void ItemLines(Row& row, Plate& plate) {
    Values(row, General{plate.end_m}, plate.thickness_mm, plate.material, plate.spacing_m,
           plate.span_m, plate.corrosionSide);
    EndLine(row);
}

// Table 4: one stiffener. Its spans have their own table, which needs the count of this row.
struct StiffenerRow {
    Stiffener& stiffener;
    StiffenerDetail& detail;
    int32_t& spanCount;
};

template <class Row>
void ItemLines(Row& row, StiffenerRow item) {
    Stiffener& stiffener = item.stiffener;
    int32_t side = stiffener.side;
    Values(row, stiffener.onStrake, stiffener.onNode, stiffener.count, stiffener.offset, side,
           stiffener.spacing, item.spanCount, item.detail.connection, item.detail.mirrored);
    stiffener.side = ClampToInt16(side);
    EndLine(row);
}

// Table 5. A span has a bracket when its line is long enough for one. Each span ends with an empty
// line; a reader does without it.
template <class Row>
void ItemLines(Row& row, Span& span) {
    Values(row, span.scantlings, General{span.length_m}, span.material, General{span.aftLength_m},
           span.aftConnection, General{span.foreLength_m}, span.foreConnection,
           General{span.reduction_m}, span.spacing_m);
    constexpr int kBracketAndPosition = 9;
    SpanBracket& bracket = span.bracket;
    bracket.present = HasFields(row, bracket.present, kBracketAndPosition);
    if (bracket.present) {
        Values(row, bracket.kind, bracket.length_m, bracket.scantlings, bracket.material);
    }
    Value(row, span.position);
    EndLine(row);
    EmptyLine(row);
}

// Table 11: four lines for one span. The third has the number of stresses, which is always 9. A
// reader reads the numbers wherever the lines end.
template <class Row>
void ItemLines(Row& row, FatigueTable& fatigue) {
    GoOnInNextLine(row);  // after panel, stiffener, span
    int16_t reserved = 0;
    Values(row, fatigue.length_m, fatigue.detail, fatigue.weld, fatigue.environment, fatigue.gap_mm,
           fatigue.grade, reserved);
    GoOnInNextLine(row);
    int16_t size = fatigue.stress_MPa.kCount;
    Value(row, size);
    GoOnInNextLine(row);
    Value(row, fatigue.stress_MPa);
    EndLine(row);
}

// Table 8: four lines and a comment rule for one bracket, two of the lines with a tab at their end.
template <class Row>
void ItemLines(Row& row, PrimaryBracket& bracket) {
    Values(row, bracket.item, bracket.from, bracket.to, bracket.aftFrame, bracket.foreFrame,
           bracket.side, bracket.armLength_m, bracket.kind, bracket.material, bracket.endType);
    ClosingTab(row);
    EndLine(row);
    Value(row, bracket.scantlings(1));
    ClosingTab(row);
    EndLine(row);
    Values(row, bracket.scantlings(2), bracket.middleLength_m);
    EndLine(row);
    Values(row, bracket.scantlings(3), bracket.toeLength_m);
    EndLine(row);
    CommentRule(row);
}

// Table 9.
template <class Row>
void ItemLines(Row& row, Opening& opening) {
    Values(row, opening.item, opening.at, opening.shape, opening.count, opening.reinforced,
           opening.aftFrame, opening.foreFrame, opening.length_m, opening.breadth_m);
    EndLine(row);
}

// Table 10: two lines for one pillar, the first with its ends, the second with its scantlings.
template <class Row>
void ItemLines(Row& row, Pillar& pillar) {
    Values(row, pillar.item, pillar.to, pillar.count, pillar.kind, pillar.length_m);
    EndLine(row);
    Values(row, General{pillar.offset_m}, pillar.material, pillar.profile, pillar.area_cm2,
           pillar.lowerConnection, pillar.upperConnection, pillar.webHeight_mm, pillar.slenderness,
           pillar.webThickness_mm, pillar.corrosion);
    EndLine(row);
}

// ---- Compartments ------------------------------------------------------------------------------

// A count as the file had it: that of the items, and what it had above or below it.
int32_t CountWithExcess(size_t count, int64_t excess);

// Limits that keep every line within the 400 numbers of a row (text/numbers.h). After an outline's
// nodes comes the pair with node 0 that ends the line. A writer leaves out what is beyond them.
inline constexpr size_t kMostOutlineNodes = 199;
inline constexpr size_t kMostFillingLevels = 133;
static_assert(2 * (kMostOutlineNodes + 1) <= 400 && 1 + 3 * kMostFillingLevels <= 400,
              "a row has at most 400 numbers");

// The nodes around a compartment. A reader stops at the pair with node 0, or where the line ends.
void OutlineLine(RowWriter& row, Compartment& compartment);
void OutlineLine(RowReader& row, Compartment& compartment);
// The number of levels, then three columns for each. A reader counts the groups of three.
void FillingLevelLine(RowWriter& row, Compartment& compartment);
void FillingLevelLine(RowReader& row, Compartment& compartment);

// Table 7, the lines between the nodes and the last line: contents, design values, load case,
// pressures and levels. A hold of a bulkhead arrangement has the same.
template <class Row>
void CompartmentValueLines(Row& row, Compartment& compartment) {
    Values(row, compartment.contents, compartment.kind, compartment.symmetric, compartment.hold);
    EndLine(row);
    GeneralValues(row, compartment.designValues);
    EndLine(row);
    Value(row, compartment.loadCase);
    EndLine(row);
    GeneralValues(row, compartment.stillWaterPressure_kPa);
    GeneralValues(row, compartment.wavePressure_kPa);
    EndLine(row);
    FillingLevelLine(row, compartment);
}

// Table 7, the lines after the name.
template <class Row>
void CompartmentLines(Row& row, Compartment& compartment) {
    OutlineLine(row, compartment);
    CompartmentValueLines(row, compartment);
    Values(row, compartment.flags, compartment.ends, compartment.closing);
    EndLine(row);
}

}  // namespace corvane
