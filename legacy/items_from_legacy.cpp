#include "legacy/items_from_legacy.h"

#include <cmath>
#include <vector>

#include "legacy/fields.h"
#include "legacy/legacy_tables.h"
#include "legacy/strake_access.h"
#include "legacy/strakes_from_legacy.h"

namespace corvane {
namespace {

// Statuses of RelStiff with which it has computed an offset.
constexpr int16_t kOnStrake = 0;
constexpr int16_t kBeyondEnd = 1;

Panel* PanelOf(const LegacyImport& work, int16_t strake) {
    if (!StrakeExists(work.geometry, strake)) return nullptr;
    return &work.section.panels[static_cast<size_t>(strake - 1)];
}

// Turns an abscissa on the strake into the stiffener's offset from its node. False, and the offset
// stays, when that cannot be done.
bool MakeRelative(const Section& section, int16_t strake, float s, Stiffener& stiffener) {
    stiffener.s = s;
    const int16_t status = RelStiff(section.strakes, section.strakeCount, strake, &stiffener);
    return status == kOnStrake || status == kBeyondEnd;
}

// Message 2001: the item's number, and the first and last node of its strake.
void NoteNotPlaced(const LegacyImport& work, size_t item, int16_t strake) {
    NodeRange nodes{0, 0};
    if (StrakeExists(work.geometry, strake)) nodes = NodesOf(work.legacy, strake);
    const int last = nodes.count == 0 ? 0 : nodes.first + nodes.count - 1;
    NoteLoss(work.losses, kMsgLegacyItemNotPlaced,
             {static_cast<int32_t>(item), int32_t{nodes.first}, int32_t{last}});
}

Scantlings ProfileOf(const LegacyGeometry& legacy, int16_t number) {
    Scantlings scantlings;
    const auto profiles = Used(legacy.profiles, legacy.counts.profiles);
    if (number < 1 || static_cast<size_t>(number) > profiles.size()) return scantlings;
    LegacyProfile profile = profiles[static_cast<size_t>(number - 1)];
    CopyProfile(FromLegacy(), scantlings, profile);
    return scantlings;
}

// ---- Stiffeners --------------------------------------------------------------------------------

// Whether the given offset leads to the place to which `computed` leads. One that leads beyond an
// end of the strake leads to that end.
bool IsSamePlace(const Strake& strake, const LegacyStiffener& legacy, float computed,
                 float tolerance) {
    const float beyond = legacy.offset - computed;
    if (std::abs(beyond) <= tolerance) return true;
    return beyond < 0 ? legacy.s <= tolerance : beyond > 0 && legacy.s >= strake.length - tolerance;
}

// The place counts; the offset as it was given is kept where it leads there, since a computed one
// differs from it in the last digits.
bool PlaceStiffener(const LegacyImport& work, const LegacyStiffener& legacy, Stiffener& stiffener) {
    if (!MakeRelative(work.geometry, legacy.strake, legacy.s, stiffener)) return false;
    const Strake& strake = StrakeAt(work.geometry, legacy.strake);
    if (IsSamePlace(strake, legacy, stiffener.offset, work.geometry.tolerance)) {
        stiffener.offset = legacy.offset;
    }
    return true;
}

// ---- Spans -------------------------------------------------------------------------------------

// A span with its number: what belongs to it refers to it.
std::vector<Span> ListSpans(const LegacyImport& work) {
    const LegacyGeometry& legacy = work.legacy;
    std::vector<Span> spans;
    for (LegacySpan entry : Used(legacy.spans, legacy.counts.spans)) {
        Span& span = spans.emplace_back();
        CopySpan(FromLegacy(), span, entry);
        span.scantlings = ProfileOf(legacy, entry.profile);
    }
    return spans;
}

// Message 2013: what it belongs to does not exist, or is elsewhere.
void NoteNotAttached(const LegacyImport& work, size_t item, int16_t owner) {
    NoteLoss(work.losses, kMsgLegacyItemNotAttached, {static_cast<int32_t>(item), int32_t{owner}});
}

Span* SpanOf(std::vector<Span>& spans, int16_t number) {
    if (number < 1 || static_cast<size_t>(number) > spans.size()) return nullptr;
    return &spans[static_cast<size_t>(number - 1)];
}

void ReadSpanBrackets(const LegacyImport& work, std::vector<Span>& spans) {
    size_t number = 0;
    for (LegacySpanBracket entry :
         Used(work.legacy.spanBrackets, work.legacy.counts.spanBrackets)) {
        ++number;
        Span* span = SpanOf(spans, entry.span);
        if (span == nullptr) {
            NoteNotAttached(work, number, entry.span);
            continue;
        }
        span->bracket.present = true;
        CopySpanBracket(FromLegacy(), span->bracket, entry);
        span->bracket.scantlings = ProfileOf(work.legacy, entry.profile);
    }
}

void ReadFatigueTables(const LegacyImport& work, std::vector<Span>& spans) {
    size_t number = 0;
    for (LegacyFatigueTable entry :
         Used(work.legacy.fatigueTables, work.legacy.counts.fatigueTables)) {
        ++number;
        Span* span = SpanOf(spans, entry.span);
        if (span == nullptr) {
            NoteNotAttached(work, number, entry.span);
            continue;
        }
        span->fatigue.present = true;
        CopyFatigueTable(FromLegacy(), span->fatigue, entry);
    }
}

// The stiffeners that were read, by their numbers in the legacy form; null where one was left out.
std::vector<StiffenerDetail*> DetailsByNumber(const LegacyImport& work) {
    std::vector<StiffenerDetail*> details;
    std::vector<size_t> next(work.section.panels.size());
    for (const LegacyStiffener& entry :
         Used(work.legacy.stiffeners, work.legacy.counts.stiffeners)) {
        Panel* panel = PanelOf(work, entry.strake);
        details.push_back(
            panel == nullptr
                ? nullptr
                : &panel->stiffenerDetails[next[static_cast<size_t>(entry.strake - 1)]++]);
    }
    return details;
}

// Whether the span is where its stiffener is. Where neither can be placed, it is.
bool IsAtStiffener(const LegacyImport& work, const LegacySpan& span) {
    const LegacyStiffener& owner = work.legacy.stiffeners[span.stiffener - 1];
    Stiffener place{};
    place.onStrake = owner.onStrake;
    place.onNode = owner.onNode;
    if (!MakeRelative(work.geometry, owner.strake, span.s, place)) return true;
    return std::abs(place.s - owner.s) <= work.geometry.tolerance;
}

}  // namespace

void ReadStiffeners(const LegacyImport& work) {
    size_t number = 0;
    for (LegacyStiffener entry : Used(work.legacy.stiffeners, work.legacy.counts.stiffeners)) {
        ++number;
        Panel* panel = PanelOf(work, entry.strake);
        Stiffener stiffener{};
        StiffenerDetail detail;
        CopyStiffener(FromLegacy(), stiffener, detail, entry);
        if (panel == nullptr || !PlaceStiffener(work, entry, stiffener)) {
            NoteNotPlaced(work, number, entry.strake);
        }
        if (panel == nullptr) continue;
        panel->stiffeners.push_back(stiffener);
        panel->stiffenerDetails.push_back(std::move(detail));
    }
}

void ReadSpans(const LegacyImport& work) {
    std::vector<Span> spans = ListSpans(work);
    ReadSpanBrackets(work, spans);
    ReadFatigueTables(work, spans);
    const std::vector<StiffenerDetail*> details = DetailsByNumber(work);
    for (size_t i = 0; i < spans.size(); ++i) {
        const LegacySpan& entry = work.legacy.spans[i];
        const bool exists =
            entry.stiffener >= 1 && static_cast<size_t>(entry.stiffener) <= details.size();
        StiffenerDetail* owner =
            exists ? details[static_cast<size_t>(entry.stiffener - 1)] : nullptr;
        if (owner == nullptr || !IsAtStiffener(work, entry)) {
            NoteNotAttached(work, i + 1, entry.stiffener);
            continue;
        }
        owner->spans.push_back(spans[i]);
    }
}

void ReadBrackets(const LegacyImport& work) {
    for (LegacyBracket entry : Used(work.legacy.brackets, work.legacy.counts.brackets)) {
        Panel* panel = PanelOf(work, entry.strake);
        if (panel == nullptr) continue;
        PrimaryBracket& bracket = panel->brackets.emplace_back();
        CopyBracket(FromLegacy(), bracket, entry);
        for (int i = 1; i <= 3; ++i) {
            bracket.scantlings(i) = ProfileOf(work.legacy, entry.profiles[i - 1]);
        }
    }
}

void ReadOpenings(const LegacyImport& work) {
    size_t number = 0;
    for (LegacyOpening entry : Used(work.legacy.openings, work.legacy.counts.openings)) {
        ++number;
        Panel* panel = PanelOf(work, entry.strake);
        Stiffener place{};
        place.onStrake = entry.atStrake;
        place.onNode = entry.atNode;
        // An opening is at its node: whatever else its position says has no field.
        if (panel == nullptr || !MakeRelative(work.geometry, entry.strake, entry.s, place) ||
            !(std::abs(place.offset) <= work.geometry.tolerance)) {
            NoteNotPlaced(work, number, entry.strake);
        }
        if (panel != nullptr) CopyOpening(FromLegacy(), panel->openings.emplace_back(), entry);
    }
}

void ReadPillars(const LegacyImport& work) {
    size_t number = 0;
    for (LegacyPillar entry : Used(work.legacy.pillars, work.legacy.counts.pillars)) {
        ++number;
        Panel* panel = PanelOf(work, entry.strake);
        Stiffener place{};
        if (panel == nullptr || !MakeRelative(work.geometry, entry.strake, entry.s, place)) {
            NoteNotPlaced(work, number, entry.strake);
        }
        if (panel != nullptr) CopyPillar(FromLegacy(), panel->pillars.emplace_back(), entry);
    }
}

void ReadPlates(const LegacyImport& work) {
    for (LegacyPlate entry : Used(work.legacy.plates, work.legacy.counts.plates)) {
        Panel* panel = PanelOf(work, entry.strake);
        if (panel != nullptr) CopyPlate(FromLegacy(), panel->plates.emplace_back(), entry);
    }
}

}  // namespace corvane
