#include "preview/bulkhead_layout.h"

#include <algorithm>
#include <cmath>

#include "preview/section_geometry.h"

namespace corvane {
namespace {

// What only damaged data ask for.
constexpr size_t kMostBulkheads = 100;
constexpr size_t kMostFolds = 2000;
constexpr double kLeastPitch_m = 0.001;

// Between two bulkheads, and around the profile of corrugations; of the height or breadth there.
constexpr double kGap = 0.06;
constexpr double kMargin = 0.06;  // of the sheet, both sides together
constexpr double kLeastSheet_mm = 1;

// Below a bulkhead are its name, where its outline comes from, and the measures of its
// corrugations, as many of them as have room: they have a part of their place at most.
constexpr double kFoot_mm[] = {5.5, 9, 12.5};  // for one, two and three lines
constexpr double kMostFoot = 0.3;

// ---- Outlines ----------------------------------------------------------------------------------

// The outlines that the bulkheads have from their nodes, which may refer to those of another one.
std::vector<Outline> NodeOutlines(const BulkheadArrangement& arrangement) {
    SectionModel model;
    for (const Bulkhead& bulkhead : arrangement.bulkheads) {
        model.panels.emplace_back().nodes = bulkhead.nodes;
    }
    LibraryView view;
    ComputeSection(model, view);
    std::vector<Outline> outlines(arrangement.bulkheads.size());
    for (size_t i = 0; i < view.strakes.size(); ++i) {
        outlines[i] = LineOf(view.strakes[i]);
        if (!HasArea(outlines[i])) outlines[i].clear();
    }
    return outlines;
}

ShipBox Mirrored(const ShipBox& box) {
    return {-box.right, box.bottom, -box.left, box.top};
}

// ---- Stools ------------------------------------------------------------------------------------

void AddArea(DrawnBulkhead& drawn, const Outline& area) {
    if (HasArea(area)) drawn.stools.push_back(area);
}

// A stool is what the bulkhead itself and the others have beyond the stool's end.
void AddStools(DrawnBulkhead& drawn, const std::vector<Outline>& nodeOutlines) {
    const Stool& lower = drawn.bulkhead->stools(1);
    const Stool& upper = drawn.bulkhead->stools(2);
    const bool hasLower = lower.enabled != 0 && IsOfShip(lower.z_m);
    const bool hasUpper = upper.enabled != 0 && IsOfShip(upper.z_m);
    constexpr double kTolerance_m = 0.001;
    if (hasLower) AddArea(drawn, PartBelow(drawn.outline, lower.z_m));
    if (hasUpper) AddArea(drawn, PartAbove(drawn.outline, upper.z_m));
    for (const Outline& other : nodeOutlines) {
        const ShipBox box = BoxOf(other);
        if (IsEmpty(box)) continue;
        if ((hasLower && box.top <= lower.z_m + kTolerance_m) ||
            (hasUpper && box.bottom >= upper.z_m - kTolerance_m)) {
            AddArea(drawn, other);
        }
    }
}

// ---- Corrugations ------------------------------------------------------------------------------

// A corrugation is a web and a flange; the next one goes back to the other side. Before the first
// one the plating is straight.
void AddFolds(DrawnBulkhead& drawn, Extent extent) {
    const Corrugation& given = drawn.bulkhead->corrugation;
    const double pitch = given.pitch_m;
    if (!IsOfShip(pitch) || !(pitch >= kLeastPitch_m) || !IsOfShip(given.start_m)) return;
    const double flange =
        IsOfShip(given.flange_m) ? std::clamp<double>(given.flange_m, 0, pitch) : 0;
    const double first = std::max(0.0, std::ceil((extent.from - given.start_m) / pitch));
    for (double i = first; drawn.folds.size() + 2 <= kMostFolds; ++i) {
        const double begin = given.start_m + i * pitch;
        const double end = begin + pitch - flange;
        if (!(end < extent.to)) break;
        drawn.folds.push_back(begin);
        drawn.folds.push_back(end);
    }
}

void AddCorrugation(DrawnBulkhead& drawn, bool isMirrored) {
    constexpr int32_t kCorrugated = 1;
    if (drawn.bulkhead->kind != kCorrugated) return;
    const bool isVertical = IsVertical(*drawn.bulkhead);
    const ShipBox outline = BoxOf(drawn.outline);
    Extent extent{outline.bottom, outline.top};
    if (isVertical)
        extent = {isMirrored ? std::max(0.0, outline.left) : outline.left, outline.right};
    AddFolds(drawn, extent);
    const double depth = std::abs(drawn.bulkhead->corrugation.depth_m);
    const double height = drawn.box.top - drawn.box.bottom;
    if (drawn.folds.empty() || !(depth > 0) || depth > height / 3) return;
    const double gap = height * kGap;
    drawn.halfDepth_m = depth / 2;
    if (isVertical) {
        drawn.profile_m = drawn.box.bottom - gap - depth / 2;
        drawn.box.bottom -= 2 * gap + depth;
    } else {
        drawn.profile_m = drawn.box.right + gap + depth / 2;
        drawn.box.right += 2 * gap + depth;
    }
}

// ---- Hoppers -----------------------------------------------------------------------------------

// How far the arrangement reaches at a height: the farthest that any of its outlines does.
double BreadthAt(const std::vector<Outline>& outlines, double z) {
    double breadth = 0;
    double farthest = 0;
    for (const Outline& outline : outlines) {
        const std::optional<Extent> across = AcrossAtHeight(outline, z);
        if (across) breadth = std::max(breadth, across->to);
        farthest = std::max(farthest, BoxOf(outline).right);
    }
    return breadth > 0 ? breadth : farthest;
}

void AddHopper(BulkheadLayout& layout, const Hopper& hopper, const std::vector<Outline>& outlines) {
    if (!IsOfShip(hopper.breadth_m) || !IsOfShip(hopper.top_m)) return;
    ShipBox box;
    for (const Outline& outline : outlines) box = Union(box, BoxOf(outline));
    const double outer = BreadthAt(outlines, hopper.top_m);
    const double inner = outer - hopper.breadth_m;
    if (!(hopper.breadth_m > 0) || inner < 0 || !(hopper.top_m > box.bottom)) return;
    layout.hoppers.push_back({ShipPoint{inner, box.bottom}, ShipPoint{outer, hopper.top_m}});
}

void AddHoppers(BulkheadLayout& layout, std::vector<Outline> outlines) {
    const BulkheadArrangement& arrangement = *layout.arrangement;
    if (!layout.ship.half.empty()) outlines.push_back(layout.ship.half);
    AddHopper(layout, arrangement.aftHopper, outlines);
    if (arrangement.foreHopper == arrangement.aftHopper) return;
    AddHopper(layout, arrangement.foreHopper, outlines);
}

// ---- The bulkheads beside each other -----------------------------------------------------------

void AddBulkhead(BulkheadLayout& layout, size_t number, const std::vector<Outline>& nodeOutlines) {
    const bool isMirrored = IsMirrored(*layout.arrangement);
    DrawnBulkhead drawn;
    drawn.bulkhead = &layout.arrangement->bulkheads[number - 1];
    drawn.number = number;
    drawn.source = OutlineSource::kNodes;
    drawn.outline = nodeOutlines[number - 1];
    if (drawn.outline.empty()) {
        drawn.source = layout.ship.source;
        drawn.outline = isMirrored ? layout.ship.half : BothHalves(layout.ship.half);
    }
    if (!HasArea(drawn.outline)) {
        ++layout.leftOutCount;
        return;
    }
    AddStools(drawn, nodeOutlines);
    drawn.box = BoxOf(drawn.outline);
    for (const Outline& stool : drawn.stools) drawn.box = Union(drawn.box, BoxOf(stool));
    if (isMirrored) drawn.box = Union(drawn.box, Mirrored(drawn.box));
    AddCorrugation(drawn, isMirrored);
    layout.bulkheads.push_back(std::move(drawn));
}

// A row of places has the height of its highest bulkhead.
std::vector<double> RowHeights(const BulkheadLayout& layout, size_t columns) {
    std::vector<double> heights((layout.bulkheads.size() + columns - 1) / columns);
    for (size_t i = 0; i < layout.bulkheads.size(); ++i) {
        const ShipBox& box = layout.bulkheads[i].box;
        double& height = heights[i / columns];
        height = std::max(height, (box.top - box.bottom) * (1 + kGap));
    }
    return heights;
}

struct Grid {
    size_t columns = 0;
    double mmPerMetre = 0;
    double foot_mm = 0;
    size_t lineCount = 1;
};

// Of the texts below a bulkhead.
size_t MostLines(const BulkheadLayout& layout) {
    const auto isCorrugated = [](const DrawnBulkhead& drawn) { return !drawn.folds.empty(); };
    return std::ranges::any_of(layout.bulkheads, isCorrugated) ? 3 : 2;
}

// The largest scale at which the bulkheads fit in so many columns.
Grid GridOf(const BulkheadLayout& layout, const BulkheadRequest& request, size_t columns) {
    const std::vector<double> heights = RowHeights(layout, columns);
    const double width_mm = std::max(request.width_mm, kLeastSheet_mm) * (1 - kMargin);
    const double height_mm = std::max(request.height_mm, kLeastSheet_mm) * (1 - kMargin);
    const double row_mm = height_mm / static_cast<double>(heights.size());
    double height_m = 0;
    for (const double height : heights) height_m += height;
    Grid grid;
    grid.columns = columns;
    const double most_mm = row_mm * kMostFoot;
    while (grid.lineCount < MostLines(layout) && kFoot_mm[grid.lineCount] <= most_mm) {
        ++grid.lineCount;
    }
    grid.foot_mm = std::min(kFoot_mm[grid.lineCount - 1], most_mm);
    const double room_mm = height_mm - grid.foot_mm * static_cast<double>(heights.size());
    grid.mmPerMetre =
        std::min(width_mm / (layout.slot_m * static_cast<double>(columns)), room_mm / height_m);
    return grid;
}

// Row by row from the top, each bulkhead in the middle of its place, the boxes of a row on one
// line.
void Place(BulkheadLayout& layout, const Grid& grid) {
    const std::vector<double> heights = RowHeights(layout, grid.columns);
    double bottom = 0;
    for (size_t i = 0; i < layout.bulkheads.size(); ++i) {
        DrawnBulkhead& drawn = layout.bulkheads[i];
        if (i % grid.columns == 0) bottom -= heights[i / grid.columns];
        const double middle = (static_cast<double>(i % grid.columns) + 0.5) * layout.slot_m;
        drawn.place = {middle - (drawn.box.left + drawn.box.right) / 2, bottom - drawn.box.bottom};
        if ((i + 1) % grid.columns == 0) bottom -= layout.foot_m;
    }
    if (layout.bulkheads.size() % grid.columns != 0) bottom -= layout.foot_m;
    layout.extent = {0, bottom, layout.slot_m * static_cast<double>(grid.columns), 0};
}

void PlaceBulkheads(BulkheadLayout& layout, const BulkheadRequest& request) {
    for (const DrawnBulkhead& drawn : layout.bulkheads) {
        layout.slot_m = std::max(layout.slot_m, (drawn.box.right - drawn.box.left) * (1 + kGap));
    }
    Grid best;
    for (size_t columns = 1; columns <= layout.bulkheads.size(); ++columns) {
        const Grid grid = GridOf(layout, request, columns);
        if (grid.mmPerMetre > best.mmPerMetre) best = grid;
    }
    layout.mmPerMetre = best.mmPerMetre;
    layout.foot_m = best.foot_mm / best.mmPerMetre;
    layout.lineCount = best.lineCount;
    layout.letters = best.foot_mm / kFoot_mm[best.lineCount - 1];
    Place(layout, best);
}

}  // namespace

bool IsVertical(const Bulkhead& bulkhead) {
    return bulkhead.stiffening != 0;
}

bool IsMirrored(const BulkheadArrangement& arrangement) {
    return arrangement.symmetric != 0;
}

BulkheadLayout LayOutBulkheads(const BulkheadRequest& request) {
    BulkheadLayout layout;
    layout.arrangement = &request.arrangement;
    const size_t count = request.arrangement.bulkheads.size();
    const size_t first = request.bulkhead == 0 ? 1 : request.bulkhead;
    const size_t last = request.bulkhead == 0 ? count : request.bulkhead;
    if (count == 0 || last > count) {
        layout.why = WhyNoBulkhead::kNoBulkheads;
        return layout;
    }
    const std::vector<Outline> nodeOutlines = NodeOutlines(request.arrangement);
    const auto wanted = std::span(nodeOutlines).subspan(first - 1, last - first + 1);
    const bool isComplete = std::ranges::none_of(wanted, &Outline::empty);
    if (!isComplete && request.shipOutline) layout.ship = request.shipOutline();
    for (size_t number = first; number <= last; ++number) {
        if (layout.bulkheads.size() == kMostBulkheads) {
            layout.leftOutCount += last - number + 1;
            break;
        }
        AddBulkhead(layout, number, nodeOutlines);
    }
    if (layout.bulkheads.empty()) {
        layout.why = WhyNoBulkhead::kNoOutline;
    } else {
        AddHoppers(layout, nodeOutlines);
        PlaceBulkheads(layout, request);
    }
    return layout;
}

}  // namespace corvane
