// Keeps what is drawn, and writes it as SVG.
#pragma once

#include <string>
#include <vector>

#include "companions/grvelk/drawing.h"

namespace corvane::test {

struct DrawingRecorder {
    struct Step {
        enum class Kind { kLines, kFill, kText };
        Kind kind = Kind::kLines;
        int32_t colour = 0;
        int32_t width = 0;                              // of the pen
        std::vector<std::vector<grvelk::Pixel>> lines;  // an area, a text's place: one line
        std::string text;
    };

    std::vector<Step> steps;
    grvelk::Drawing drawing{};  // its address is the device handle

    DrawingRecorder(int32_t width, int32_t height, int32_t dotsPerInch = 96);
    DrawingRecorder(const DrawingRecorder&) = delete;
    DrawingRecorder& operator=(const DrawingRecorder&) = delete;

    // All lines, areas or texts of a colour, in order.
    std::vector<std::vector<grvelk::Pixel>> Of(int32_t colour) const;
    int32_t PenWidthOf(int32_t colour) const;  // 0: nothing was drawn with it
    size_t PointCount() const;
    std::string Svg() const;
};

}  // namespace corvane::test
