#include "preview/figure.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {
namespace {

bool IsFinite(SheetPoint point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

// Weights, as the difference of two far places overflows.
SheetPoint Between(SheetPoint a, SheetPoint b, double t) {
    return {a.x * (1 - t) + b.x * t, a.y * (1 - t) + b.y * t};
}

enum Edge { kLeft, kRight, kTop, kBottom, kEdgeCount };

// How far a place is inside of an edge; below 0 outside.
double Inside(const SheetArea& area, int edge, SheetPoint point) {
    switch (edge) {
        case kLeft:
            return point.x - area.left;
        case kRight:
            return area.right - point.x;
        case kTop:
            return point.y - area.top;
        default:
            return area.bottom - point.y;
    }
}

// Where the line between two places crosses an edge that is between them; exactly on the edge.
SheetPoint Crossing(const SheetArea& area, int edge, SheetPoint a, SheetPoint b) {
    const double fromA = Inside(area, edge, a);
    SheetPoint point = Between(a, b, fromA / (fromA - Inside(area, edge, b)));
    if (edge == kLeft) point.x = area.left;
    if (edge == kRight) point.x = area.right;
    if (edge == kTop) point.y = area.top;
    if (edge == kBottom) point.y = area.bottom;
    return point;
}

// Cuts a line off at the edges; false when nothing is left of it.
bool ClipLine(const SheetArea& area, SheetPoint& a, SheetPoint& b) {
    if (!IsFinite(a) || !IsFinite(b)) return false;
    for (int edge = 0; edge < kEdgeCount; ++edge) {
        const bool isAInside = Inside(area, edge, a) >= 0;
        const bool isBInside = Inside(area, edge, b) >= 0;
        if (!isAInside && !isBInside) return false;
        if (!isAInside) a = Crossing(area, edge, a, b);
        if (!isBInside) b = Crossing(area, edge, a, b);
    }
    return true;
}

// One step of cutting an area off: keeps what is inside of one edge.
void ClipAtEdge(const SheetArea& area, int edge, std::vector<SheetPoint>& corners) {
    std::vector<SheetPoint> kept;
    kept.reserve(corners.size() + 4);
    for (size_t i = 0; i < corners.size(); ++i) {
        const SheetPoint from = corners[i];
        const SheetPoint to = corners[(i + 1) % corners.size()];
        const bool isInside = Inside(area, edge, from) >= 0;
        if (isInside) kept.push_back(from);
        if (isInside != (Inside(area, edge, to) >= 0)) {
            kept.push_back(Crossing(area, edge, from, to));
        }
    }
    corners.swap(kept);
}

FigureItem& AddItem(Figure& figure, FigureShape shape, FigureLayer layer, int32_t colour,
                    double size_mm) {
    figure.items.push_back(
        {shape, layer, colour, size_mm, figure.points.size(), 0, 0, TextSide::kRight});
    return figure.items.back();
}

void AddPoint(Figure& figure, SheetPoint point) {
    figure.points.push_back(point);
    ++figure.items.back().count;
}

}  // namespace

Figure MakeFigure(double width_mm, double height_mm, double mmPerMetre, ShipPoint centre) {
    Figure figure{};
    figure.width_mm = width_mm;
    figure.height_mm = height_mm;
    figure.window = {0, 0, width_mm, height_mm};
    figure.mmPerMetre = mmPerMetre;
    figure.origin = {width_mm / 2 - centre.y * mmPerMetre, height_mm / 2 + centre.z * mmPerMetre};
    return figure;
}

SheetPoint OnSheet(const Figure& figure, ShipPoint point) {
    return {figure.origin.x + point.y * figure.mmPerMetre,
            figure.origin.y - point.z * figure.mmPerMetre};
}

ShipPoint InShip(const Figure& figure, SheetPoint point) {
    return {(point.x - figure.origin.x) / figure.mmPerMetre,
            (figure.origin.y - point.y) / figure.mmPerMetre};
}

bool IsInWindow(const Figure& figure, SheetPoint point) {
    const SheetArea& window = figure.window;
    return point.x >= window.left && point.x <= window.right && point.y >= window.top &&
           point.y <= window.bottom;
}

void AddLine(Figure& figure, const FigurePen& pen, std::span<const ShipPoint> points) {
    bool isOpen = false;  // the last item continues at its last point
    for (size_t i = 1; i < points.size(); ++i) {
        const SheetPoint whole = OnSheet(figure, points[i]);
        SheetPoint from = OnSheet(figure, points[i - 1]);
        SheetPoint to = whole;
        if (!ClipLine(figure.window, from, to)) {
            isOpen = false;
            continue;
        }
        if (!isOpen || figure.points.back() != from) {
            AddItem(figure, FigureShape::kLine, pen.layer, pen.colour, pen.width_mm);
            AddPoint(figure, from);
        }
        AddPoint(figure, to);
        isOpen = to == whole;
    }
}

void AddArea(Figure& figure, FigureLayer layer, int32_t colour,
             std::span<const ShipPoint> corners) {
    std::vector<SheetPoint> mapped;
    mapped.reserve(corners.size());
    for (const ShipPoint& corner : corners) mapped.push_back(OnSheet(figure, corner));
    if (!std::ranges::all_of(mapped, IsFinite)) return;
    for (int edge = 0; edge < kEdgeCount; ++edge) ClipAtEdge(figure.window, edge, mapped);
    AddSheetArea(figure, layer, colour, mapped);
}

void AddSheetLine(Figure& figure, const FigurePen& pen, std::span<const SheetPoint> points) {
    if (points.size() < 2 || !std::ranges::all_of(points, IsFinite)) return;
    AddItem(figure, FigureShape::kLine, pen.layer, pen.colour, pen.width_mm);
    for (const SheetPoint& point : points) AddPoint(figure, point);
}

void AddSheetArea(Figure& figure, FigureLayer layer, int32_t colour,
                  std::span<const SheetPoint> corners) {
    if (corners.size() < 3 || !std::ranges::all_of(corners, IsFinite)) return;
    AddItem(figure, FigureShape::kArea, layer, colour, 0);
    for (const SheetPoint& corner : corners) AddPoint(figure, corner);
}

void AddText(Figure& figure, const FigureLetters& letters, SheetPoint at,
             const std::wstring& text) {
    if (text.empty() || !IsFinite(at)) return;
    FigureItem& item =
        AddItem(figure, FigureShape::kText, FigureLayer::kText, letters.colour, letters.height_mm);
    item.text = figure.texts.size();
    item.side = letters.side;
    figure.texts.push_back(text);
    AddPoint(figure, at);
}

std::span<const SheetPoint> PointsOf(const Figure& figure, const FigureItem& item) {
    return std::span(figure.points).subspan(item.first, item.count);
}

}  // namespace corvane
