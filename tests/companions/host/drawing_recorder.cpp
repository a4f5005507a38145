#include "tests/companions/host/drawing_recorder.h"

#include <array>
#include <cstdio>

namespace corvane::test {
namespace {

using grvelk::Pixel;
using Step = DrawingRecorder::Step;

std::vector<Step>& StepsOf(void* context) {
    return static_cast<DrawingRecorder*>(context)->steps;
}

void RecordLines(void* context, const grvelk::PixelLines& lines, grvelk::Pen pen) {
    Step step{Step::Kind::kLines, pen.colour, pen.width, {}, {}};
    const Pixel* point = lines.points;
    for (size_t i = 0; i < lines.lineCount; ++i) {
        step.lines.emplace_back(point, point + lines.counts[i]);
        point += lines.counts[i];
    }
    StepsOf(context).push_back(std::move(step));
}

void RecordFill(void* context, const Pixel* corners, size_t count, int32_t colour) {
    StepsOf(context).push_back(
        {Step::Kind::kFill, colour, 0, {std::vector<Pixel>(corners, corners + count)}, {}});
}

void RecordText(void* context, Pixel at, const char* text, int32_t colour) {
    StepsOf(context).push_back({Step::Kind::kText, colour, 0, {{at}}, text});
}

// 0x00BBGGRR as SVG has it.
std::string Colour(int32_t colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", colour & 255, colour >> 8 & 255,
                  colour >> 16 & 255);
    return text.data();
}

std::string Points(const std::vector<Pixel>& line) {
    std::string text;
    for (const Pixel& point : line) {
        if (!text.empty()) text += ' ';
        text += std::to_string(point.x) + ',' + std::to_string(point.y);
    }
    return text;
}

std::string Element(const Step& step, const std::vector<Pixel>& line) {
    if (step.kind == Step::Kind::kFill) {
        return "<polygon points=\"" + Points(line) + "\" fill=\"" + Colour(step.colour) + "\"/>\n";
    }
    if (step.kind == Step::Kind::kText) {
        return "<text x=\"" + std::to_string(line[0].x) + "\" y=\"" + std::to_string(line[0].y) +
               "\" fill=\"" + Colour(step.colour) + "\">" + step.text + "</text>\n";
    }
    return "<polyline points=\"" + Points(line) + "\" fill=\"none\" stroke=\"" +
           Colour(step.colour) + "\" stroke-width=\"" + std::to_string(step.width) + "\"/>\n";
}

}  // namespace

DrawingRecorder::DrawingRecorder(int32_t width, int32_t height, int32_t dotsPerInch)
    : drawing{this, width, height, dotsPerInch, RecordLines, RecordFill, RecordText} {}

std::vector<std::vector<Pixel>> DrawingRecorder::Of(int32_t colour) const {
    std::vector<std::vector<Pixel>> found;
    for (const Step& step : steps) {
        if (step.colour == colour) found.insert(found.end(), step.lines.begin(), step.lines.end());
    }
    return found;
}

int32_t DrawingRecorder::PenWidthOf(int32_t colour) const {
    for (const Step& step : steps) {
        if (step.kind == Step::Kind::kLines && step.colour == colour) return step.width;
    }
    return 0;
}

size_t DrawingRecorder::PointCount() const {
    size_t count = 0;
    for (const Step& step : steps) {
        for (const std::vector<Pixel>& line : step.lines) count += line.size();
    }
    return count;
}

std::string DrawingRecorder::Svg() const {
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
                      std::to_string(drawing.width) + "\" height=\"" +
                      std::to_string(drawing.height) + "\">\n";
    for (const Step& step : steps) {
        for (const std::vector<Pixel>& line : step.lines) svg += Element(step, line);
    }
    return svg + "</svg>\n";
}

}  // namespace corvane::test
