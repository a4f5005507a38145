#include "samples/bulkhead_draft.h"

#include <algorithm>
#include <cmath>

namespace corvane::samples {
namespace {

using Coordinate = float Place::*;

// Where the outline crosses a line on which one coordinate has a value: the other coordinate.
Extent Across(const Outline& outline, Coordinate fixed, float value, Coordinate free) {
    std::vector<float> crossings;
    Place before = outline.back();
    for (const Place& corner : outline) {
        if ((before.*fixed <= value) != (corner.*fixed <= value)) {
            const float part = (value - before.*fixed) / (corner.*fixed - before.*fixed);
            crossings.push_back(before.*free + part * (corner.*free - before.*free));
        }
        before = corner;
    }
    if (crossings.empty()) return {};
    const auto [from, to] = std::minmax_element(crossings.begin(), crossings.end());
    return {*from, *to};
}

Extent All(const Outline& outline, Coordinate coordinate) {
    const auto [from, to] = std::minmax_element(
        outline.begin(), outline.end(),
        [coordinate](Place a, Place b) { return a.*coordinate < b.*coordinate; });
    return {*from.*coordinate, *to.*coordinate};
}

// ---- Stiffeners --------------------------------------------------------------------------------

// Less than this is no stiffener.
constexpr float kShortest_m = 0.6F;

EndBracket BracketFor(const Scantlings& scantlings, float length_m) {
    EndBracket bracket;
    bracket.enabled = -1;
    bracket.fixed = -1;
    bracket.scantlings = {kProfileFlat, scantlings.webHeight_mm, 12, 0, 0};
    bracket.length_m = length_m;
    return bracket;
}

int16_t SpansOf(const Bulkhead& bulkhead, const SecondaryStiffener& stiffener) {
    const auto crosses = [&](const PrimaryStiffener& primary) {
        return primary.direction != bulkhead.stiffening &&
               primary.position_m > stiffener.lowerExtremity_m &&
               primary.position_m < stiffener.upperExtremity_m &&
               primary.lowerExtremity_m <= stiffener.position_m &&
               primary.upperExtremity_m >= stiffener.position_m;
    };
    const auto& primaries = bulkhead.primaryStiffeners;
    return static_cast<int16_t>(1 + std::count_if(primaries.begin(), primaries.end(), crosses));
}

// A stiffener of one span has nothing beside its own scantlings.
void SetSpans(SecondaryStiffener& stiffener, float lightWeb_mm) {
    const auto last = static_cast<int16_t>(stiffener.spanCount);
    if (last == 1) return;
    const float arm = Millimetres(stiffener.scantlings.webHeight_mm / 1000);
    for (int16_t number = 1; number <= last; ++number) {
        BulkheadSpan& span = stiffener.spans[number];
        span.hasBrackets = true;
        span.lowerBracketLength_m = number == 1 ? 0 : arm;
        span.upperBracketLength_m = number == last ? 0 : arm;
    }
    BulkheadSpan& light = stiffener.spans[last];
    light.hasScantlings = true;
    light.scantlings = stiffener.scantlings;
    light.scantlings.webHeight_mm = lightWeb_mm;
    light.material = kMild;
}

// Where a primary one of the same direction stands there is no room.
bool StandsAtPrimary(const Bulkhead& bulkhead, float position_m) {
    constexpr float kRoom_m = 0.3F;
    return std::ranges::any_of(bulkhead.primaryStiffeners, [&](const PrimaryStiffener& primary) {
        return primary.direction == bulkhead.stiffening &&
               std::abs(primary.position_m - position_m) < kRoom_m;
    });
}

void AddSecondary(Bulkhead& bulkhead, float position_m, Extent extent, const SecondaryPlan& plan) {
    SecondaryStiffener stiffener;
    stiffener.position_m = position_m;
    stiffener.scantlings = plan.scantlings;
    stiffener.material = plan.material;
    stiffener.lowerExtremity_m = Millimetres(extent.from);
    stiffener.upperExtremity_m = Millimetres(extent.to);
    stiffener.spanCount = SpansOf(bulkhead, stiffener);
    const float arm = Millimetres(1.5F * plan.scantlings.webHeight_mm / 1000);
    stiffener.brackets(1) = BracketFor(plan.scantlings, arm);
    // A short one is snipped at its upper end.
    if (extent.Length() > 4 * arm) stiffener.brackets(2) = BracketFor(plan.scantlings, arm);
    stiffener.spanReduction_m = Millimetres(arm / 2);
    stiffener.connection = stiffener.brackets(2).enabled != 0 ? 2 : 1;
    SetSpans(stiffener, plan.lightWeb_mm);
    bulkhead.secondaryStiffeners.push_back(stiffener);
}

}  // namespace

Extent HeightsAt(const Outline& outline, float y) {
    return Across(outline, &Place::y, y, &Place::z);
}

Extent BreadthsAt(const Outline& outline, float z) {
    return Across(outline, &Place::z, z, &Place::y);
}

Extent AllHeights(const Outline& outline) {
    return All(outline, &Place::z);
}

Extent AllBreadths(const Outline& outline) {
    return All(outline, &Place::y);
}

float Millimetres(float length) {
    return std::round(length * 1000) / 1000;
}

void AddPrimary(Bulkhead& bulkhead, const Outline& outline, int32_t direction, float position_m) {
    const bool vertical = direction == kVertical;
    const Extent extent =
        vertical ? HeightsAt(outline, position_m) : BreadthsAt(outline, position_m);
    if (extent.Length() < kShortest_m) return;
    bulkhead.primaryStiffeners.push_back(
        {direction, position_m, true, Millimetres(extent.from), Millimetres(extent.to)});
}

void AddSecondaries(Bulkhead& bulkhead, const Outline& outline, const SecondaryPlan& plan) {
    const bool vertical = bulkhead.stiffening == kVertical;
    const Extent all = vertical ? AllBreadths(outline) : AllHeights(outline);
    const auto bays = static_cast<int>(std::ceil(all.Length() / plan.spacing_m));
    const float spacing = all.Length() / static_cast<float>(bays);
    for (int i = 1; i < bays; ++i) {
        const float position = Millimetres(all.from + static_cast<float>(i) * spacing);
        const Extent extent =
            vertical ? HeightsAt(outline, position) : BreadthsAt(outline, position);
        if (StandsAtPrimary(bulkhead, position)) continue;
        if (extent.Length() >= kShortest_m) AddSecondary(bulkhead, position, extent, plan);
    }
}

// ---- Plates ------------------------------------------------------------------------------------

namespace {

// The outermost place of the outline between two heights.
float OuterEdge(const Outline& outline, float lower_m, float upper_m) {
    constexpr int kSteps = 8;
    float outer = 0;
    for (int i = 0; i <= kSteps; ++i) {
        const float part = static_cast<float>(i) / kSteps;
        const float z = lower_m + part * (upper_m - lower_m);
        outer = std::max(outer, BreadthsAt(outline, z).to);
    }
    return outer;
}

}  // namespace

void LayStrakes(Bulkhead& bulkhead, const Outline& outline, const StrakePlan& plan) {
    constexpr float kNarrowest_m = 0.1F;
    const Extent heights = AllHeights(outline);
    const auto count = static_cast<int16_t>(std::ceil(heights.Length() / plan.height_m));
    const float height = heights.Length() / static_cast<float>(count);
    for (int16_t number = 1; number <= count; ++number) {
        const float lower = heights.from + static_cast<float>(number - 1) * height;
        const float part = count == 1 ? 0 : (lower - heights.from) / (heights.Length() - height);
        const float thickness = plan.lowest_mm + part * (plan.highest_mm - plan.lowest_mm);
        BulkheadStrake strake;
        strake.z_m = Millimetres(lower + height);
        strake.thickness_mm = std::round(2 * thickness) / 2;
        strake.material = plan.material;
        const float outer = OuterEdge(outline, lower, lower + height);
        std::vector<BulkheadStrake>& band = bulkhead.bands[number];
        for (const float seam : plan.seams_m) {
            if (seam > outer - kNarrowest_m) break;
            strake.y_m = seam;
            band.push_back(strake);
        }
        strake.y_m = Millimetres(outer);
        band.push_back(strake);
    }
}

}  // namespace corvane::samples
