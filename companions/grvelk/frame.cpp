#include "companions/grvelk/frame.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace corvane::grvelk {
namespace {

struct KeptFrame {
    WindowHandle window;
    DeviceHandle dc;
    Frame frame;
};

// The latest comes first.
std::array<KeptFrame, 8>& KeptFrames() {
    static std::array<KeptFrame, 8> frames{};
    return frames;
}

struct Rectangle {
    double left, top, right, bottom;
};

Rectangle ClipArea(const Mapping& mapping) {
    return {-double{kBeyondFrame}, -double{kBeyondFrame}, mapping.width + kBeyondFrame,
            mapping.height + kBeyondFrame};
}

bool IsFinite(FramePoint point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

// The nearest pixel, so that a mirror image mirrors pixel by pixel. A place in the middle between
// two goes to the same one whichever way it was computed.
Pixel PixelAt(FramePoint point) {
    constexpr double kHalf = 0.501;
    return {static_cast<int32_t>(std::floor(point.x + kHalf)),
            static_cast<int32_t>(std::floor(point.y + kHalf))};
}

FramePoint Between(FramePoint a, FramePoint b, double t) {
    // Weights, as the difference of two far places overflows.
    return {a.x * (1 - t) + b.x * t, a.y * (1 - t) + b.y * t};
}

// Narrows the part first..last of a line to where `distance` from an edge is not below 0, given
// the distances at the line's two ends.
bool NarrowToEdge(double atStart, double atEnd, double& first, double& last) {
    if (atStart < 0 && atEnd < 0) return false;
    if (atStart >= 0 && atEnd >= 0) return true;
    const double crossing = atStart / (atStart - atEnd);
    if (atStart < 0) {
        first = std::max(first, crossing);
    } else {
        last = std::min(last, crossing);
    }
    return first <= last;
}

// Cuts a line off at the edges; false when nothing is left of it.
bool ClipLine(const Rectangle& area, FramePoint& a, FramePoint& b) {
    if (!IsFinite(a) || !IsFinite(b)) return false;
    double first = 0;
    double last = 1;
    if (!NarrowToEdge(a.x - area.left, b.x - area.left, first, last) ||
        !NarrowToEdge(area.right - a.x, area.right - b.x, first, last) ||
        !NarrowToEdge(a.y - area.top, b.y - area.top, first, last) ||
        !NarrowToEdge(area.bottom - a.y, area.bottom - b.y, first, last)) {
        return false;
    }
    const FramePoint start = first > 0 ? Between(a, b, first) : a;
    const FramePoint end = last < 1 ? Between(a, b, last) : b;
    a = start;
    b = end;
    return true;
}

// A rounded crossing may be a hair beyond the edge.
Pixel PixelWithin(const Rectangle& area, FramePoint point) {
    return PixelAt(
        {std::clamp(point.x, area.left, area.right), std::clamp(point.y, area.top, area.bottom)});
}

// Whether two lines in one row or column of pixels go on in the same direction: together they have
// the pixels of one line.
bool IsOneLine(Pixel from, Pixel middle, Pixel to) {
    const bool isRow = from.y == middle.y && middle.y == to.y;
    const bool isColumn = from.x == middle.x && middle.x == to.x;
    return (isRow && (from.x < middle.x) == (middle.x < to.x)) ||
           (isColumn && (from.y < middle.y) == (middle.y < to.y));
}

// Adds a point to the last line of a group, which has `count` points.
void AddPoint(LineGroup& group, Pixel point, uint32_t& count) {
    const auto end = group.points.end();
    if (count > 1 && IsOneLine(end[-2], end[-1], point)) {
        group.points.back() = point;
    } else {
        group.points.push_back(point);
        ++count;
    }
}

// One step of cutting an area off: keeps what has a distance of 0 or more from one edge.
template <class Distance>
void ClipAtEdge(std::vector<FramePoint>& corners, Distance distance) {
    std::vector<FramePoint> kept;
    kept.reserve(corners.size() + 4);
    for (size_t i = 0; i < corners.size(); ++i) {
        const FramePoint from = corners[i];
        const FramePoint to = corners[(i + 1) % corners.size()];
        const double atStart = distance(from);
        const double atEnd = distance(to);
        if (atStart >= 0) kept.push_back(from);
        if ((atStart < 0) != (atEnd < 0)) {
            kept.push_back(Between(from, to, atStart / (atStart - atEnd)));
        }
    }
    corners.swap(kept);
}

}  // namespace

void KeepFrame(WindowHandle window, DeviceHandle dc, const Frame& frame) {
    std::array<KeptFrame, 8>& frames = KeptFrames();
    auto place = std::find_if(frames.begin(), frames.end(),
                              [dc](const KeptFrame& kept) { return kept.dc == dc; });
    if (place == frames.end()) --place;
    std::rotate(frames.begin(), place, place + 1);
    frames.front() = {window, dc, frame};
}

bool FindFrame(DeviceHandle dc, Frame& frame, WindowHandle& window) {
    for (const KeptFrame& kept : KeptFrames()) {
        if (dc == nullptr || kept.dc != dc) continue;
        frame = kept.frame;
        window = kept.window;
        return true;
    }
    return false;
}

bool MakeMapping(const Frame& frame, const Drawing& drawing, Mapping& mapping) {
    const double xRange = double{frame.xRight} - double{frame.xLeft};
    const double yRange = double{frame.yTop} - double{frame.yBottom};
    mapping.width = drawing.width;
    mapping.height = drawing.height;
    mapping.xScale = mapping.width / xRange;
    mapping.yScale = -mapping.height / yRange;
    mapping.xOffset = -frame.xLeft * mapping.xScale;
    mapping.yOffset = -frame.yTop * mapping.yScale;
    mapping.pixelsPerMetre = std::min(std::abs(mapping.xScale), std::abs(mapping.yScale));
    return std::isfinite(mapping.xOffset) && std::isfinite(mapping.yOffset) &&
           mapping.pixelsPerMetre > 0;
}

FramePoint Mapped(const Mapping& mapping, Point point) {
    return {point.y * mapping.xScale + mapping.xOffset, point.z * mapping.yScale + mapping.yOffset};
}

void AddPolyline(LineGroup& group, const std::vector<FramePoint>& line) {
    const Rectangle area = ClipArea(group.mapping);
    uint32_t count = 0;  // points of the line that is being made
    for (size_t i = 1; i < line.size(); ++i) {
        FramePoint from = line[i - 1];
        FramePoint to = line[i];
        if (!ClipLine(area, from, to)) continue;
        const Pixel first = PixelWithin(area, from);
        const Pixel last = PixelWithin(area, to);
        if (first == last) continue;
        if (count == 0 || group.points.back() != first) {
            if (count > 0) group.counts.push_back(count);
            group.points.push_back(first);
            count = 1;
        }
        AddPoint(group, last, count);
    }
    if (count > 0) group.counts.push_back(count);
}

void AddLine(LineGroup& group, FramePoint from, FramePoint to) {
    AddPolyline(group, {from, to});
}

void Stroke(LineGroup& group, const Drawing& drawing, Pen pen) {
    if (!group.counts.empty()) {
        drawing.lines(drawing.context,
                      {group.points.data(), group.counts.data(), group.counts.size()}, pen);
    }
    group.points.clear();
    group.counts.clear();
}

std::vector<Pixel> ClippedArea(const Mapping& mapping, std::vector<FramePoint> corners) {
    const Rectangle area = ClipArea(mapping);
    if (!std::all_of(corners.begin(), corners.end(), IsFinite)) return {};
    ClipAtEdge(corners, [&](FramePoint p) { return p.x - area.left; });
    ClipAtEdge(corners, [&](FramePoint p) { return area.right - p.x; });
    ClipAtEdge(corners, [&](FramePoint p) { return p.y - area.top; });
    ClipAtEdge(corners, [&](FramePoint p) { return area.bottom - p.y; });
    std::vector<Pixel> pixels;
    if (corners.size() < 3) return pixels;
    pixels.reserve(corners.size());
    for (const FramePoint corner : corners) pixels.push_back(PixelWithin(area, corner));
    return pixels;
}

}  // namespace corvane::grvelk
