#include "companions/grvelk/sketch.h"

#include <algorithm>
#include <cmath>

namespace corvane::grvelk {

double ScaledToDevice(const Sketch& sketch, double pixels) {
    constexpr double kPlainDotsPerInch = 96;
    const int dotsPerInch = std::clamp(sketch.drawing.dotsPerInch, 24, 2400);
    return pixels * dotsPerInch / kPlainDotsPerInch;
}

int32_t ColourOf(const Sketch& sketch, int slot) {
    return sketch.parameters.colours == nullptr ? 0 : sketch.parameters.colours[slot];
}

Pen PenOf(const Sketch& sketch, int colourSlot, double width) {
    const auto pixels = static_cast<int32_t>(std::lround(ScaledToDevice(sketch, width)));
    return {ColourOf(sketch, colourSlot), std::max(1, pixels)};
}

FramePoint MappedSide(const Sketch& sketch, double side, Point point) {
    return Mapped(sketch.mapping, {side * point.y, point.z});
}

}  // namespace corvane::grvelk
