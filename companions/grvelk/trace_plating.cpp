// Plating, the limits of strakes and plates, the centre line, and the strakes' numbers.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "companions/grvelk/sketch.h"

namespace corvane::grvelk {
namespace {

constexpr double kPlatingWidth_px = 2;
constexpr double kThinWidth_px = 1;
constexpr double kTick_px = 3;  // half its length

// A tick across the strake at an abscissa.
void AddTick(const Sketch& sketch, const Strake& strake, double s, LineGroup& ticks) {
    StrakePlace place;
    if (!FindOnStrake(strake, s, place)) return;
    const double half = ScaledToDevice(sketch, kTick_px) / sketch.mapping.pixelsPerMetre;
    const Point across = half * LeftOf(place.direction);
    ForEachSide(sketch, [&](double side) {
        AddLine(ticks, MappedSide(sketch, side, place.point - across),
                MappedSide(sketch, side, place.point + across));
    });
}

void AddStrake(const Sketch& sketch, const Strake& strake, LineGroup& lines) {
    std::vector<Point> points;
    std::vector<FramePoint> line;
    const auto flush = [&] {
        ForEachSide(sketch, [&](double side) {
            line.clear();
            for (const Point& point : points) line.push_back(MappedSide(sketch, side, point));
            AddPolyline(lines, line);
        });
        points.clear();
    };
    for (const StrakeItem& item : ItemsIn(strake)) {
        if (!IsComputed(item)) {
            flush();
            continue;
        }
        if (points.empty()) points.push_back({item.y1, item.z1});
        AppendItem(item, false, sketch.chords, points);
    }
    flush();
}

}  // namespace

void DrawPlating(const Sketch& sketch) {
    LineGroup lines{sketch.mapping, {}, {}};
    for (const Strake& strake : StrakesIn(sketch.section)) AddStrake(sketch, strake, lines);
    Stroke(lines, sketch.drawing, PenOf(sketch, kColourPlating, kPlatingWidth_px));
}

void DrawStrakeLimits(const Sketch& sketch) {
    LineGroup ticks{sketch.mapping, {}, {}};
    for (const Strake& strake : StrakesIn(sketch.section)) {
        for (const float end : PlateEndsIn(strake)) AddTick(sketch, strake, end, ticks);
    }
    Stroke(ticks, sketch.drawing, PenOf(sketch, kColourStrakeLimit, kThinWidth_px));
}

void DrawCentreLine(const Sketch& sketch) {
    const double height = sketch.section.drawingHeight;
    const double margin = sketch.parameters.margin;
    const FramePoint foot = Mapped(sketch.mapping, {0, -height * margin / 4});
    const FramePoint head = Mapped(sketch.mapping, {0, height * (1 + margin / 2)});
    // From below to above, cut off before it is dashed: a high section has no more dashes.
    const double from = std::min(std::max(foot.y, head.y), sketch.mapping.height);
    const double to = std::max(std::min(foot.y, head.y), 0.0);
    constexpr std::array<double, 4> kPattern_px{12, 4, 3, 4};  // dash, gap, dot, gap
    LineGroup dashes{sketch.mapping, {}, {}};
    size_t part = 0;
    for (double y = from; y > to; ++part) {
        const double next = y - std::round(ScaledToDevice(sketch, kPattern_px[part % 4]));
        if (part % 2 == 0) AddLine(dashes, {foot.x, y}, {foot.x, std::max(next, to)});
        y = next;
    }
    Stroke(dashes, sketch.drawing, PenOf(sketch, kColourCentreLine, kThinWidth_px));
}

void DrawNumbers(const Sketch& sketch) {
    for (const Strake& strake : StrakesIn(sketch.section)) {
        StrakePlace place;
        if (!FindOnStrake(strake, double{strake.length} / 2, place)) continue;
        const FramePoint at = Mapped(sketch.mapping, place.point);
        if (!(at.x >= 0 && at.x < sketch.mapping.width)) continue;
        if (!(at.y >= 0 && at.y < sketch.mapping.height)) continue;
        std::array<char, 8> text{};
        std::snprintf(text.data(), text.size(), "%d", strake.number);
        sketch.drawing.text(sketch.drawing.context,
                            {static_cast<int32_t>(at.x), static_cast<int32_t>(at.y)}, text.data(),
                            ColourOf(sketch, kColourText));
    }
}

}  // namespace corvane::grvelk
