#include "legacy/items_to_legacy.h"

#include <algorithm>

#include "legacy/geometry.h"
#include "legacy/legacy_tables.h"
#include "legacy/strake_access.h"

namespace corvane {
namespace {

bool SameProfile(const LegacyProfile& a, const LegacyProfile& b) {
    return a.type == b.type && a.webHeight_mm == b.webHeight_mm &&
           a.webThickness_mm == b.webThickness_mm && a.flangeBreadth_mm == b.flangeBreadth_mm &&
           a.flangeThickness_mm == b.flangeThickness_mm;
}

// The table of profiles, in which each is once.
struct Profiles {
    const LegacyExport& work;
    LegacyGeometry& legacy = work.record.geometry;
    Filling<LegacyProfile, kLegacyProfiles> filling{legacy.profiles, legacy.counts.profiles,
                                                    kMsgTooManyProfiles, work.limits};

    // The profile's number; 0 for scantlings that are all 0, and where there is no room.
    int16_t NumberOf(Scantlings& scantlings) {
        LegacyProfile profile{};
        CopyProfile(ToLegacy{work.cut}, scantlings, profile);
        if (SameProfile(profile, LegacyProfile{})) return 0;
        const LegacyProfile* end = legacy.profiles + legacy.counts.profiles;
        const LegacyProfile* found =
            std::find_if(legacy.profiles, legacy.profiles + legacy.counts.profiles,
                         [&](const LegacyProfile& entry) { return SameProfile(entry, profile); });
        if (found != end) return static_cast<int16_t>(found - legacy.profiles + 1);
        LegacyProfile* entry = filling.Next();
        if (entry == nullptr) return 0;
        *entry = profile;
        return legacy.counts.profiles;
    }
};

// Calls visit(panel, strake number) for the panels that the legacy form holds.
template <class Visit>
void ForEachPanel(const LegacyExport& work, Visit visit) {
    for (int i = 0; i < work.record.geometry.strakeCount; ++i) {
        visit(work.section.panels[static_cast<size_t>(i)], static_cast<int16_t>(i + 1));
    }
}

// Abscissa of the stiffener on its strake; 0 when it cannot be placed.
float PlaceOf(const Section& section, int16_t strake, Stiffener stiffener) {
    stiffener.s = 0;
    AbsStiff(section.strakes, section.strakeCount, strake, &stiffener);
    return stiffener.s;
}

// Abscissa on strake `k` of the point nearest to the node; 0 when there is none.
float PlaceOf(const Section& section, int16_t k, NodeReference node) {
    float s = 0;
    if (!NodeExists(section, node) || NodeAt(section, node).computed == 0) return s;
    if (node.strake == k) return NodeAt(section, node).s;
    AbscissaOfPoint(section, node, k, s);
    return s;
}

// ---- Spans -------------------------------------------------------------------------------------

struct SpanFill {
    const LegacyExport& work;
    LegacyGeometry& legacy = work.record.geometry;
    Profiles profiles{work};
    Filling<LegacySpan, kLegacySpans> spans{legacy.spans, legacy.counts.spans, kMsgTooManySpans,
                                            work.limits};
    Filling<LegacySpanBracket, kLegacySpanBrackets> brackets{
        legacy.spanBrackets, legacy.counts.spanBrackets, kMsgTooManySpanBrackets, work.limits};
    Filling<LegacyFatigueTable, kLegacyFatigueTables> fatigue{
        legacy.fatigueTables, legacy.counts.fatigueTables, kMsgTooManyFatigueTables, work.limits};
    int16_t stiffener = 0;  // its number in the legacy table
};

void FillSpanBracket(SpanFill& fill, SpanBracket& bracket) {
    LegacySpanBracket* entry = bracket.present ? fill.brackets.Next() : nullptr;
    if (entry == nullptr) return;
    entry->span = fill.legacy.counts.spans;
    CopySpanBracket(ToLegacy{fill.work.cut}, bracket, *entry);
    entry->profile = fill.profiles.NumberOf(bracket.scantlings);
}

void FillFatigueTable(SpanFill& fill, FatigueTable& fatigue) {
    LegacyFatigueTable* entry = fatigue.present ? fill.fatigue.Next() : nullptr;
    if (entry == nullptr) return;
    entry->span = fill.legacy.counts.spans;
    CopyFatigueTable(ToLegacy{fill.work.cut}, fatigue, *entry);
}

void FillSpansOf(SpanFill& fill, const Stiffener& stiffener, StiffenerDetail& detail,
                 int16_t strake) {
    for (Span& span : detail.spans) {
        LegacySpan* entry = fill.spans.Next();
        if (entry == nullptr) return;
        entry->stiffener = fill.stiffener;
        entry->s = PlaceOf(fill.work.geometry, strake, stiffener);
        CopySpan(ToLegacy{fill.work.cut}, span, *entry);
        entry->profile = fill.profiles.NumberOf(span.scantlings);
        FillSpanBracket(fill, span.bracket);
        FillFatigueTable(fill, span.fatigue);
    }
}

}  // namespace

void FillStiffeners(const LegacyExport& work) {
    LegacyGeometry& legacy = work.record.geometry;
    Filling filling{legacy.stiffeners, legacy.counts.stiffeners, kMsgTooManyStiffeners,
                    work.limits};
    ForEachPanel(work, [&](Panel& panel, int16_t strake) {
        for (size_t i = 0; i < panel.stiffeners.size(); ++i) {
            LegacyStiffener* entry = filling.Next();
            if (entry == nullptr) return;
            entry->strake = strake;
            entry->s = PlaceOf(work.geometry, strake, panel.stiffeners[i]);
            CopyStiffener(ToLegacy{work.cut}, panel.stiffeners[i], panel.stiffenerDetails[i],
                          *entry);
        }
    });
}

void FillSpans(const LegacyExport& work) {
    SpanFill fill{work};
    ForEachPanel(work, [&](Panel& panel, int16_t strake) {
        for (size_t i = 0; i < panel.stiffeners.size(); ++i) {
            // Spans of a stiffener that had no room have none either.
            if (fill.stiffener == fill.legacy.counts.stiffeners) return;
            ++fill.stiffener;
            FillSpansOf(fill, panel.stiffeners[i], panel.stiffenerDetails[i], strake);
        }
    });
}

void FillBrackets(const LegacyExport& work) {
    LegacyGeometry& legacy = work.record.geometry;
    Profiles profiles{work};
    Filling filling{legacy.brackets, legacy.counts.brackets, kMsgTooManyBrackets, work.limits};
    ForEachPanel(work, [&](Panel& panel, int16_t strake) {
        for (PrimaryBracket& bracket : panel.brackets) {
            LegacyBracket* entry = filling.Next();
            if (entry == nullptr) return;
            entry->strake = strake;
            CopyBracket(ToLegacy{work.cut}, bracket, *entry);
            for (int i = 1; i <= 3; ++i) {
                entry->profiles[i - 1] = profiles.NumberOf(bracket.scantlings(i));
            }
        }
    });
}

void FillOpenings(const LegacyExport& work) {
    LegacyGeometry& legacy = work.record.geometry;
    Filling filling{legacy.openings, legacy.counts.openings, kMsgTooManyOpenings, work.limits};
    ForEachPanel(work, [&](Panel& panel, int16_t strake) {
        for (Opening& opening : panel.openings) {
            LegacyOpening* entry = filling.Next();
            if (entry == nullptr) return;
            entry->strake = strake;
            entry->s = PlaceOf(work.geometry, strake, opening.at);
            CopyOpening(ToLegacy{work.cut}, opening, *entry);
        }
    });
}

void FillPillars(const LegacyExport& work) {
    LegacyGeometry& legacy = work.record.geometry;
    Filling filling{legacy.pillars, legacy.counts.pillars, kMsgTooManyPillars, work.limits};
    ForEachPanel(work, [&](Panel& panel, int16_t strake) {
        for (Pillar& pillar : panel.pillars) {
            LegacyPillar* entry = filling.Next();
            if (entry == nullptr) return;
            entry->strake = strake;
            CopyPillar(ToLegacy{work.cut}, pillar, *entry);
        }
    });
}

void FillPlates(const LegacyExport& work) {
    LegacyGeometry& legacy = work.record.geometry;
    Filling filling{legacy.plates, legacy.counts.plates, kMsgTooManyPlates, work.limits};
    ForEachPanel(work, [&](Panel& panel, int16_t strake) {
        for (Plate& plate : panel.plates) {
            LegacyPlate* entry = filling.Next();
            if (entry == nullptr) return;
            entry->strake = strake;
            CopyPlate(ToLegacy{work.cut}, plate, *entry);
        }
    });
}

}  // namespace corvane
