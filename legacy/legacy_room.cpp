#include "legacy/legacy_room.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <set>

#include "legacy/node_kinds.h"
#include "platform/ztvelk32.h"
#include "text/text.h"

namespace corvane {
namespace {

// What a section has, over all of its panels.
struct Counts {
    size_t nodes = 0, points = 0, curves = 0, intersections = 0;
    size_t stiffeners = 0, spans = 0, spanBrackets = 0, fatigueTables = 0;
    size_t brackets = 0, openings = 0, pillars = 0, plates = 0;
    size_t outlineNodes = 0, levels = 0;  // the former of one compartment
    std::set<std::array<uint32_t, 5>> profiles;
};

void CountProfile(Counts& counts, const Scantlings& profile) {
    const std::array<uint32_t, 5> bits{static_cast<uint32_t>(profile.type),
                                       std::bit_cast<uint32_t>(profile.webHeight_mm),
                                       std::bit_cast<uint32_t>(profile.webThickness_mm),
                                       std::bit_cast<uint32_t>(profile.flangeBreadth_mm),
                                       std::bit_cast<uint32_t>(profile.flangeThickness_mm)};
    if (bits != std::array<uint32_t, 5>{}) counts.profiles.insert(bits);
}

void CountNode(Counts& counts, const Node& node) {
    ++counts.nodes;
    const bool isLine = node.kind == kNodeIntersection;
    if (isLine) ++counts.intersections;
    // A node that the form does not have is given by its coordinates.
    const bool hasRoom = isLine ? counts.intersections <= kLegacyExtensions
                                : IsLegacyKind(node.kind) && node.kind != kNodeGiven;
    if (!hasRoom) ++counts.points;
    if (node.radius != 0 || node.tangentY != 0 || node.tangentZ != 0) ++counts.curves;
}

void CountSpan(Counts& counts, const Span& span) {
    ++counts.spans;
    CountProfile(counts, span.scantlings);
    if (span.bracket.present) {
        ++counts.spanBrackets;
        CountProfile(counts, span.bracket.scantlings);
    }
    if (span.fatigue.present) ++counts.fatigueTables;
}

void CountPanel(Counts& counts, const Panel& panel) {
    for (const Node& node : panel.nodes) CountNode(counts, node);
    counts.stiffeners += panel.stiffeners.size();
    for (const StiffenerDetail& detail : panel.stiffenerDetails) {
        for (const Span& span : detail.spans) CountSpan(counts, span);
    }
    counts.brackets += panel.brackets.size();
    for (const PrimaryBracket& bracket : panel.brackets) {
        for (int i = 1; i <= 3; ++i) CountProfile(counts, bracket.scantlings(i));
    }
    counts.openings += panel.openings.size();
    counts.pillars += panel.pillars.size();
    counts.plates += panel.plates.size();
}

Counts CountsOf(const SectionModel& section) {
    Counts counts;
    for (const Panel& panel : section.panels) CountPanel(counts, panel);
    for (const Compartment& compartment : section.compartments) {
        counts.outlineNodes = std::max(counts.outlineNodes, compartment.outline.size());
        counts.levels += compartment.levels.size();
    }
    return counts;
}

std::wstring NeedText(const std::vector<LegacyNeed>& needs, size_t index) {
    const LegacyNeed& need = needs[index];
    return FormatMessage(kMsgCountOfRoom,
                         {GetMessagePart(kMsgLegacyTables, index), need.count, need.room});
}

}  // namespace

std::vector<LegacyNeed> NeedsOf(const SectionModel& section) {
    const Counts counts = CountsOf(section);
    const auto need = [](int32_t message, int32_t limit, size_t count) {
        return LegacyNeed{message, limit, limit, static_cast<int32_t>(count)};
    };
    std::vector<LegacyNeed> needs{
        need(kMsgLegacyGeometryFull, kLegacyStrakes, section.panels.size()),
        need(kMsgLegacyGeometryFull, kLegacyNodes, counts.nodes),
        need(kMsgLegacyGeometryFull, kLegacyPoints, counts.points),
        need(kMsgTooManyIntersections, kLegacyExtensions, counts.intersections),
        need(kMsgTooManyCurves, kLegacyCurves, counts.curves),
        need(kMsgTooManyStiffeners, kLegacyStiffeners, counts.stiffeners),
        need(kMsgTooManySpans, kLegacySpans, counts.spans),
        need(kMsgTooManyProfiles, kLegacyProfiles, counts.profiles.size()),
        need(kMsgTooManySpanBrackets, kLegacySpanBrackets, counts.spanBrackets),
        need(kMsgTooManyFatigueTables, kLegacyFatigueTables, counts.fatigueTables),
        need(kMsgTooManyBrackets, kLegacyBrackets, counts.brackets),
        need(kMsgTooManyOpenings, kLegacyOpenings, counts.openings),
        need(kMsgTooManyPillars, kLegacyPillars, counts.pillars),
        need(kMsgTooManyPlates, kLegacyPlates, counts.plates),
        need(kMsgTooManyCompartments, kLegacyCompartments, section.compartments.size()),
        need(kMsgTooManyOutlineNodes, kLegacyOutlineNodes, counts.outlineNodes),
        need(kMsgTooManyLevels, kLegacyLevels, counts.levels)};
    needs[2].room = kLegacyPoints - 1;  // the last of the points is never used
    return needs;
}

std::wstring RoomText(const std::vector<LegacyNeed>& needs) {
    std::wstring text;
    size_t fullest = 0;
    for (size_t i = 0; i < needs.size(); ++i) {
        if (!needs[i].Fits()) text += (text.empty() ? L"" : L", ") + NeedText(needs, i);
        const int64_t here = int64_t{needs[i].count} * needs[fullest].room;
        if (here > int64_t{needs[fullest].count} * needs[i].room) fullest = i;
    }
    return text.empty() ? NeedText(needs, fullest) : text;
}

bool FitsAll(const std::vector<LegacyNeed>& needs) {
    return std::ranges::all_of(needs, &LegacyNeed::Fits);
}

void NoteLimit(const LimitLosses& limits, int32_t message, int32_t limit) {
    NoteLoss(limits.losses, message, {limit});
    const auto isTable = [&](const LegacyNeed& need) {
        return need.message == message && need.limit == limit;
    };
    const auto need = std::ranges::find_if(limits.needs, isTable);
    if (need == limits.needs.end()) return;
    limits.losses.back() += L' ' + FormatMessage(kMsgSectionHasSoMany, {need->count});
}

}  // namespace corvane
