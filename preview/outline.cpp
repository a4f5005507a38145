#include "preview/outline.h"

#include <algorithm>
#include <cmath>

#include "preview/section_geometry.h"

namespace corvane {
namespace {

constexpr double kFarthest_m = 10000;
// Less than this is no area, and no distance between two corners.
constexpr double kNothing_m = 0.001;

void AddCorner(Outline& outline, double y, double z) {
    if (!IsOfShip(y) || !IsOfShip(z)) return;
    if (!outline.empty() && outline.back().y == y && outline.back().z == z) return;
    outline.push_back({y, z});
}

// ---- The ship seen from the side ---------------------------------------------------------------

// How far out the plating is at a height, and directly below and above it.
struct Level {
    double z;
    double below = -1, at = -1, above = -1;
};

std::vector<Outline> HalfLinesOf(const Section& section) {
    std::vector<Outline> lines;
    for (const Strake& strake : StrakesOf(section)) {
        lines.push_back(LineOf(strake));
        for (ShipPoint& point : lines.back()) point.y = std::abs(point.y);
    }
    return lines;
}

// The heights of all corners, but not more than make a difference on a sheet.
std::vector<Level> LevelsOf(const std::vector<Outline>& lines) {
    constexpr size_t kMostLevels = 2000;
    std::vector<double> heights;
    for (const Outline& line : lines) {
        for (const ShipPoint& point : line) heights.push_back(point.z);
    }
    std::ranges::sort(heights);
    const auto repeated = std::ranges::unique(heights);
    heights.erase(repeated.begin(), repeated.end());
    const size_t step = heights.size() / kMostLevels + 1;
    std::vector<Level> levels;
    for (size_t i = 0; i < heights.size(); ++i) {
        if (i % step == 0 || i + 1 == heights.size()) levels.push_back({heights[i]});
    }
    return levels;
}

void Include(std::vector<Level>& levels, ShipPoint from, ShipPoint to) {
    if (from.z > to.z) std::swap(from, to);
    auto level = std::ranges::lower_bound(levels, from.z, {}, &Level::z);
    for (; level != levels.end() && level->z <= to.z; ++level) {
        const double height = to.z - from.z;
        const double y = height > 0 ? from.y + (to.y - from.y) * (level->z - from.z) / height
                                    : std::max(from.y, to.y);
        level->at = std::max(level->at, y);
        if (level->z > from.z) level->below = std::max(level->below, y);
        if (level->z < to.z) level->above = std::max(level->above, y);
    }
}

// What of an outline is at one side of a height: 1 above, -1 below.
Outline PartBeyond(const Outline& outline, double z, int side) {
    Outline part;
    for (size_t i = 0; i < outline.size(); ++i) {
        const ShipPoint& from = outline[i];
        const ShipPoint& to = outline[(i + 1) % outline.size()];
        const bool isKept = side * (from.z - z) >= 0;
        if (isKept) AddCorner(part, from.y, from.z);
        if (isKept != (side * (to.z - z) >= 0)) {
            AddCorner(part, from.y + (to.y - from.y) * (z - from.z) / (to.z - from.z), z);
        }
    }
    return part;
}

double Height(const ShipPoint& point) {
    return point.z;
}
double Breadth(const ShipPoint& point) {
    return point.y;
}

// Where the line on which `on` has a value meets the outline: the first and the last `along`.
std::optional<Extent> Across(const Outline& outline, double value,
                             double (*on)(const ShipPoint& point),
                             double (*along)(const ShipPoint& point)) {
    std::optional<Extent> across;
    const auto meet = [&](double place) {
        if (!across) across = {place, place};
        *across = {std::min(across->from, place), std::max(across->to, place)};
    };
    for (size_t i = 0; i < outline.size(); ++i) {
        const ShipPoint& a = outline[i];
        const ShipPoint& b = outline[(i + 1) % outline.size()];
        if (!(value >= std::min(on(a), on(b)) && value <= std::max(on(a), on(b)))) continue;
        if (on(a) == on(b)) meet(along(b));
        const double part = on(a) == on(b) ? 0 : (value - on(a)) / (on(b) - on(a));
        meet(along(a) + (along(b) - along(a)) * part);
    }
    if (across && across->to - across->from < kNothing_m) across.reset();
    return across;
}

}  // namespace

bool IsEmpty(const ShipBox& box) {
    return box.left > box.right;
}

ShipBox Union(const ShipBox& a, const ShipBox& b) {
    if (IsEmpty(a)) return b;
    if (IsEmpty(b)) return a;
    return {std::min(a.left, b.left), std::min(a.bottom, b.bottom), std::max(a.right, b.right),
            std::max(a.top, b.top)};
}

ShipBox BoxOf(std::span<const ShipPoint> points) {
    ShipBox box;
    for (const ShipPoint& point : points) {
        box = Union(box, {point.y, point.z, point.y, point.z});
    }
    return box;
}

bool IsOfShip(double coordinate_m) {
    return std::abs(coordinate_m) <= kFarthest_m;
}

Outline LineOf(const Strake& strake) {
    constexpr double kOffArc_m = 0.0005;
    Outline corners;
    for (const Outline& line : LinesOf(strake, {kOffArc_m})) {
        for (const ShipPoint& point : line) AddCorner(corners, point.y, point.z);
    }
    return corners;
}

Outline HalfOutline(const Section& section) {
    const std::vector<Outline> lines = HalfLinesOf(section);
    std::vector<Level> levels = LevelsOf(lines);
    for (const Outline& line : lines) {
        for (size_t i = 1; i < line.size(); ++i) Include(levels, line[i - 1], line[i]);
    }
    Outline outline;
    if (levels.empty()) return outline;
    AddCorner(outline, 0, levels.front().z);
    for (const Level& level : levels) {
        for (const double y : {level.below, level.at, level.above}) {
            if (y >= 0) AddCorner(outline, y, level.z);
        }
    }
    AddCorner(outline, 0, levels.back().z);
    return outline;
}

Outline HalfOutline(double breadth_m, double depth_m) {
    if (!IsOfShip(breadth_m) || !IsOfShip(depth_m) || !(breadth_m > 0) || !(depth_m > 0)) return {};
    return {{0, 0}, {breadth_m / 2, 0}, {breadth_m / 2, depth_m}, {0, depth_m}};
}

Outline BothHalves(const Outline& half) {
    Outline both = half;
    for (auto corner = half.rbegin(); corner != half.rend(); ++corner) {
        AddCorner(both, -corner->y, corner->z);
    }
    return both;
}

bool HasArea(const Outline& outline) {
    double twice = 0;
    for (size_t i = 0; i < outline.size(); ++i) {
        const ShipPoint& from = outline[i];
        const ShipPoint& to = outline[(i + 1) % outline.size()];
        twice += from.y * to.z - to.y * from.z;
    }
    return std::abs(twice) > 2 * kNothing_m;
}

Outline PartAbove(const Outline& outline, double z) {
    return PartBeyond(outline, z, 1);
}

Outline PartBelow(const Outline& outline, double z) {
    return PartBeyond(outline, z, -1);
}

std::optional<Extent> AcrossAtHeight(const Outline& outline, double z) {
    return Across(outline, z, Height, Breadth);
}

std::optional<Extent> AcrossAtBreadth(const Outline& outline, double y) {
    return Across(outline, y, Breadth, Height);
}

}  // namespace corvane
