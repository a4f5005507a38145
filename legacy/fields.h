// The fields that the section and the legacy form hold alike, each pair declared once for both
// directions. Copy is ToLegacy or FromLegacy; a procedure copies one record's fields, ours first.
//
// What the two forms hold in different ways (texts, node kinds, coordinates, profiles, abscissas)
// is not here: the sources named beside each part convert it. docs/legacy-form.md has the tables in
// words. Units are the same in both forms; where the legacy name has no unit it is the metre.
#pragma once

#include <cstddef>

#include "database/rows.h"
#include "database/section.h"
#include "platform/ztvelk32.h"

namespace corvane {

// Integers that the legacy form cannot hold.
struct CutNumbers {
    int32_t count = 0;
    int32_t first = 0;  // the first of them, as it was
};

// The legacy form has integers of 16 bits only: one of ours beyond them becomes the nearest that it
// has, and is counted. Every number of the legacy form fits into ours.
struct ToLegacy {
    CutNumbers& cut;
    void operator()(float& ours, float& legacy) const { legacy = ours; }
    void operator()(int16_t& ours, int16_t& legacy) const { legacy = ours; }
    void operator()(int32_t& ours, int16_t& legacy) const {
        legacy = ClampToInt16(ours);
        if (legacy != ours && cut.count++ == 0) cut.first = ours;
    }
};

struct FromLegacy {
    void operator()(float& ours, float& legacy) const { ours = legacy; }
    void operator()(int16_t& ours, int16_t& legacy) const { ours = legacy; }
    void operator()(int32_t& ours, int16_t& legacy) const { ours = legacy; }
};

// Lists of the same length; ours counts from 1.
template <class Copy, class T, int last, size_t size>
void CopyList(Copy copy, Array<T, 1, last>& ours, T (&legacy)[size]) {
    static_assert(last == size);
    for (int i = 1; i <= last; ++i) copy(ours(i), legacy[i - 1]);
}

// The legacy form has the two numbers of a reference as two fields.
template <class Copy>
void CopyReference(Copy copy, NodeReference& ours, int16_t& strake, int16_t& node) {
    copy(ours.strake, strake);
    copy(ours.node, node);
}

// ---- Head --------------------------------------------------------------------------------------

// The main block, without the name, and without the moduli, which are not always there
// (legacy/section_to_legacy.cpp, legacy/section_from_legacy.cpp).
template <class Copy>
void CopyMainFields(Copy copy, SectionModel& ours, LegacyMainSection& legacy) {
    copy(ours.x_m, legacy.x_m);
    copy(ours.breadth_m, legacy.breadth_m);
    copy(ours.depth_m, legacy.depth_m);
    copy(ours.draught_m, legacy.draught_m);
    copy(ours.shipType, legacy.shipType);
    copy(ours.classCode, legacy.classCode);
    copy(ours.navigationCode, legacy.navigationCode);
    copy(ours.frameSpacing_m, legacy.frameSpacing_m);
    copy(ours.webSpacing_m, legacy.webSpacing_m);
    CopyList(copy, ours.stillWaterMoment_kNm, legacy.stillWaterMoment_kNm);
    CopyList(copy, ours.waveMoment_kNm, legacy.waveMoment_kNm);
}

// What the main block has no room for; it is in the geometry block.
template <class Copy>
void CopyHeadRest(Copy copy, SectionModel& ours, LegacyHeadRest& legacy) {
    CopyList(copy, ours.shearForce_kN, legacy.shearForce_kN);
    copy(ours.ballastDraught_m, legacy.ballastDraught_m);
    copy(ours.cargoHeight_m, legacy.cargoHeight_m);
    copy(ours.holdLength_m, legacy.holdLength_m);
    copy(ours.holdAft_m, legacy.holdAft_m);
    copy(ours.neutralAxis_m, legacy.neutralAxis_m);
    copy(ours.area_m2, legacy.area_m2);
    copy(ours.inertiaY_m4, legacy.inertiaY_m4);
    copy(ours.inertiaZ_m4, legacy.inertiaZ_m4);
    copy(ours.symmetryMode, legacy.symmetryMode);
    copy(ours.materialGroup, legacy.materialGroup);
    copy(ours.corrosionRule, legacy.corrosionRule);
    CopyList(copy, ours.resultCodes, legacy.resultCodes);
    copy(ours.resultsValid, legacy.resultsValid);
}

// ---- Strakes and nodes -------------------------------------------------------------------------

// At most kLegacyStrakes. A strake is one of our panels. `i` is its index, from 0. Without name and
// nodes (legacy/strakes_to_legacy.cpp, legacy/strakes_from_legacy.cpp).
template <class Copy>
void CopyStrake(Copy copy, Panel& ours, LegacyGeometry& legacy, size_t i) {
    copy(ours.spacing_m, legacy.strakeSpacing[i]);
    copy(ours.span_m, legacy.strakeSpan[i]);
    copy(ours.thickness_mm, legacy.strakeThickness_mm[i]);
    copy(ours.kind, legacy.strakeKind[i]);
    copy(ours.material, legacy.strakeMaterial[i]);
}

// At most kLegacyNodes in all strakes, of them kLegacyPoints - 1 with coordinates. `g` is the
// node's index, from 0, in the one numbering of the legacy form. Without its kind
// (legacy/node_kinds.h), its coordinates, and the strake that it is defined on, which loses its
// sign in the legacy form.
template <class Copy>
void CopyNode(Copy copy, Node& ours, LegacyGeometry& legacy, size_t g) {
    copy(ours.onNode, legacy.nodeOnNode[g]);
    copy(ours.inter, legacy.nodeInter[g]);
    copy(ours.number, legacy.nodeNumber[g]);
    copy(ours.shape, legacy.nodeShape[g]);
    copy(ours.relative, legacy.nodeRelative[g]);
}

// At most kLegacyCurves. A node has a curve when the way to the next node is not straight; without
// the number of the node.
template <class Copy>
void CopyCurve(Copy copy, Node& ours, LegacyCurve& legacy) {
    copy(ours.radius, legacy.radius);
    copy(ours.tangentY, legacy.tangentY);
    copy(ours.tangentZ, legacy.tangentZ);
}

// At most kLegacyExtensions. A node at an intersection has an extension: the line that it is on,
// and the strake that crosses it.
template <class Copy>
void CopyExtension(Copy copy, Node& ours, LegacyExtension& legacy) {
    copy(ours.extensionStrake, legacy.strake);
    for (int i = 0; i < 5; ++i) copy(ours.extension[i], legacy.line[i]);
}

// ---- Items of a strake; without profiles and abscissas -----------------------------------------
// (legacy/items_to_legacy.cpp, legacy/items_from_legacy.cpp)

// At most kLegacyProfiles. The legacy form has each profile once, in a table; the gap of a doubled
// one is lost, and scantlings that are all 0 are number 0, which is not in the table.
template <class Copy>
void CopyProfile(Copy copy, Scantlings& ours, LegacyProfile& legacy) {
    copy(ours.type, legacy.type);
    copy(ours.webHeight_mm, legacy.webHeight_mm);
    copy(ours.webThickness_mm, legacy.webThickness_mm);
    copy(ours.flangeBreadth_mm, legacy.flangeBreadth_mm);
    copy(ours.flangeThickness_mm, legacy.flangeThickness_mm);
}

// At most kLegacyStiffeners in all strakes. Without the strake; the abscissa has to agree with the
// node and the offset.
template <class Copy>
void CopyStiffener(Copy copy, Stiffener& ours, StiffenerDetail& detail, LegacyStiffener& legacy) {
    copy(ours.onStrake, legacy.onStrake);
    copy(ours.onNode, legacy.onNode);
    copy(ours.count, legacy.count);
    copy(ours.side, legacy.side);
    copy(detail.connection, legacy.connection);
    copy(detail.mirrored, legacy.mirrored);
    copy(ours.offset, legacy.offset);
    copy(ours.spacing, legacy.spacing);
}

// At most kLegacySpans of all stiffeners. Without the stiffener's number; a span's abscissa is that
// of its stiffener.
template <class Copy>
void CopySpan(Copy copy, Span& ours, LegacySpan& legacy) {
    copy(ours.material, legacy.material);
    copy(ours.aftConnection, legacy.aftConnection);
    copy(ours.foreConnection, legacy.foreConnection);
    copy(ours.position, legacy.position);
    copy(ours.length_m, legacy.length);
    copy(ours.aftLength_m, legacy.aftLength);
    copy(ours.foreLength_m, legacy.foreLength);
    copy(ours.reduction_m, legacy.reduction);
    copy(ours.spacing_m, legacy.spacing);
}

// At most kLegacySpanBrackets of all spans; without the span's number.
template <class Copy>
void CopySpanBracket(Copy copy, SpanBracket& ours, LegacySpanBracket& legacy) {
    copy(ours.kind, legacy.kind);
    copy(ours.material, legacy.material);
    copy(ours.length_m, legacy.length);
}

// At most kLegacyFatigueTables of all spans; without the span's number.
template <class Copy>
void CopyFatigueTable(Copy copy, FatigueTable& ours, LegacyFatigueTable& legacy) {
    copy(ours.detail, legacy.detail);
    copy(ours.weld, legacy.weld);
    copy(ours.environment, legacy.environment);
    copy(ours.grade, legacy.grade);
    copy(ours.length_m, legacy.length);
    copy(ours.gap_mm, legacy.gap_mm);
    CopyList(copy, ours.stress_MPa, legacy.stress_MPa);
}

// At most kLegacyBrackets of all strakes; without the strake. A bracket has three profiles.
template <class Copy>
void CopyBracket(Copy copy, PrimaryBracket& ours, LegacyBracket& legacy) {
    copy(ours.item, legacy.item);
    CopyReference(copy, ours.from, legacy.fromStrake, legacy.fromNode);
    CopyReference(copy, ours.to, legacy.toStrake, legacy.toNode);
    copy(ours.aftFrame, legacy.aftFrame);
    copy(ours.foreFrame, legacy.foreFrame);
    copy(ours.side, legacy.side);
    copy(ours.kind, legacy.kind);
    copy(ours.material, legacy.material);
    copy(ours.endType, legacy.endType);
    copy(ours.armLength_m, legacy.armLength);
    copy(ours.middleLength_m, legacy.middleLength);
    copy(ours.toeLength_m, legacy.toeLength);
}

// At most kLegacyOpenings of all strakes; without the strake. Its abscissa is that of its node.
template <class Copy>
void CopyOpening(Copy copy, Opening& ours, LegacyOpening& legacy) {
    copy(ours.item, legacy.item);
    CopyReference(copy, ours.at, legacy.atStrake, legacy.atNode);
    copy(ours.shape, legacy.shape);
    copy(ours.count, legacy.count);
    copy(ours.reinforced, legacy.reinforced);
    copy(ours.aftFrame, legacy.aftFrame);
    copy(ours.foreFrame, legacy.foreFrame);
    copy(ours.length_m, legacy.length);
    copy(ours.breadth_m, legacy.breadth);
}

// At most kLegacyPillars of all strakes; without the strake. Our offset is the abscissa itself, and
// the second line's profile is a type without scantlings.
template <class Copy>
void CopyPillar(Copy copy, Pillar& ours, LegacyPillar& legacy) {
    copy(ours.item, legacy.item);
    CopyReference(copy, ours.to, legacy.toStrake, legacy.toNode);
    copy(ours.count, legacy.count);
    copy(ours.kind, legacy.kind);
    copy(ours.material, legacy.material);
    copy(ours.profile, legacy.profileType);
    copy(ours.lowerConnection, legacy.lowerConnection);
    copy(ours.upperConnection, legacy.upperConnection);
    copy(ours.slenderness, legacy.slenderness);
    copy(ours.corrosion, legacy.corrosion);
    copy(ours.offset_m, legacy.s);
    copy(ours.length_m, legacy.length);
    copy(ours.area_cm2, legacy.area_cm2);
    copy(ours.webHeight_mm, legacy.webHeight_mm);
    copy(ours.webThickness_mm, legacy.webThickness_mm);
}

// At most kLegacyPlates of all strakes; without the strake. A plate begins where the one before it
// on the same strake ends.
template <class Copy>
void CopyPlate(Copy copy, Plate& ours, LegacyPlate& legacy) {
    copy(ours.material, legacy.material);
    copy(ours.corrosionSide, legacy.corrosionSide);
    copy(ours.end_m, legacy.end);
    copy(ours.thickness_mm, legacy.thickness_mm);
    copy(ours.spacing_m, legacy.spacing);
    copy(ours.span_m, legacy.span);
}

// ---- Compartments; without names, outlines and levels ------------------------------------------
// (legacy/compartments.cpp)

// The part that is in the geometry block. At most kLegacyCompartments, each with at most
// kLegacyOutlineNodes nodes around it.
template <class Copy>
void CopyCompartment(Copy copy, Compartment& ours, LegacyCompartment& legacy) {
    copy(ours.contents, legacy.contents);
    copy(ours.kind, legacy.kind);
    copy(ours.symmetric, legacy.symmetric);
    copy(ours.hold, legacy.hold);
    copy(ours.loadCase, legacy.loadCase);
    CopyList(copy, ours.flags, legacy.flags);
    copy(ours.ends(1), legacy.aftFrame);
    copy(ours.ends(2), legacy.foreFrame);
    copy(ours.closing, legacy.closing);
}

// The part that is in the block of compartments and loads. `i` is the compartment's index, from 0.
template <class Copy>
void CopyLoads(Copy copy, Compartment& ours, LegacyCompLoad& legacy, size_t i) {
    CopyList(copy, ours.designValues, legacy.designValues[i]);
    CopyList(copy, ours.stillWaterPressure_kPa, legacy.stillWaterPressure_kPa[i]);
    CopyList(copy, ours.wavePressure_kPa, legacy.wavePressure_kPa[i]);
}

// The levels of all compartments follow one another in one table of the legacy form, of at most
// kLegacyLevels; a compartment has the number of its own.
template <class Copy>
void CopyLevel(Copy copy, FillingLevel& ours, LegacyLevel& legacy) {
    copy(ours.level_m, legacy.level);
    copy(ours.surfaceLength_m, legacy.surfaceLength);
    copy(ours.surfaceBreadth_m, legacy.surfaceBreadth);
}

}  // namespace corvane
