// The frame that ScaleWindow fixes for a device, the way from metres to pixels, and the lines that
// are gathered for one stroke of a pen, cut off at the frame.
#pragma once

#include <vector>

#include "companions/grvelk/arcs.h"
#include "companions/grvelk/drawing.h"

namespace corvane::grvelk {

// Section coordinates [m] at the edges of the device's frame.
struct Frame {
    float xLeft, yBottom, xRight, yTop;
};

// The frames of the last few devices are kept; all calls come from one thread.
void KeepFrame(WindowHandle window, DeviceHandle dc, const Frame& frame);
// The frame and the window that were fixed last for this device. False when there is none.
bool FindFrame(DeviceHandle dc, Frame& frame, WindowHandle& window);

// A place on the frame, not yet rounded [px].
struct FramePoint {
    double x, y;
};

struct Mapping {
    double xScale, yScale;    // [px/m], yScale below 0 where z grows upwards
    double xOffset, yOffset;  // [px] place of the origin
    double width, height;     // [px]
    double pixelsPerMetre;    // the smaller one of the two scales, positive
};
// False for a frame without extent, or with an edge that is not a number.
bool MakeMapping(const Frame& frame, const Drawing& drawing, Mapping& mapping);
FramePoint Mapped(const Mapping& mapping, Point point);

// Lines may reach this far beyond the frame [px], so that no end of a broad one shows.
inline constexpr int kBeyondFrame = 16;

// Polylines in the making. What is outside of the frame is cut off; what is not a number is left
// out.
struct LineGroup {
    Mapping mapping;
    std::vector<Pixel> points;
    std::vector<uint32_t> counts;
};
void AddPolyline(LineGroup& group, const std::vector<FramePoint>& line);
void AddLine(LineGroup& group, FramePoint from, FramePoint to);
// Draws the lines and forgets them.
void Stroke(LineGroup& group, const Drawing& drawing, Pen pen);

// The part of an area inside the frame; empty without such a part, and when a corner is not a
// number.
std::vector<Pixel> ClippedArea(const Mapping& mapping, std::vector<FramePoint> corners);

}  // namespace corvane::grvelk
