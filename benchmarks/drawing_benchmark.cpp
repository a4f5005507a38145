// A section of 30 strakes, 120 nodes and 210 stiffeners: the frame, the computation and the
// drawing, the lines going nowhere.
#include <benchmark/benchmark.h>

#include "companions/grvelk/drawing.h"
#include "tests/companions/sample_section.h"

namespace corvane {
namespace {

void FillBigSection(test::SampleSection& sample) {
    const test::TestSection::Parts shell = sample.contents[0];
    sample.contents.assign(30, shell);
    sample.Link();
}

grvelk::Drawing Counter(size_t& points) {
    grvelk::Drawing drawing{};
    drawing.context = &points;
    drawing.width = 600;
    drawing.height = 320;
    drawing.dotsPerInch = 96;
    drawing.lines = [](void* context, const grvelk::PixelLines& lines, grvelk::Pen) {
        for (size_t i = 0; i < lines.lineCount; ++i) {
            *static_cast<size_t*>(context) += lines.counts[i];
        }
    };
    drawing.fill = [](void* context, const grvelk::Pixel*, size_t count, int32_t) {
        *static_cast<size_t*>(context) += count;
    };
    drawing.text = [](void*, grvelk::Pixel, const char*, int32_t) {};
    return drawing;
}

void ComputeAndDrawSection(benchmark::State& state) {
    test::SampleSection sample;
    FillBigSection(sample);
    size_t points = 0;
    grvelk::Drawing drawing = Counter(points);
    ScaleWindow(nullptr, &drawing, -15, -2, 15, 14, 200);
    for ([[maybe_unused]] auto round : state) {
        points = 0;
        QuickCompute(&sample.section, &sample.parameters);
        TraceSection(&drawing, &sample.section, &sample.parameters);
    }
    if (!QuickCompute.Resolve()) state.SkipWithError("no computation in the library");
    state.counters["points"] = static_cast<double>(points);
}
BENCHMARK(ComputeAndDrawSection)->Unit(benchmark::kMicrosecond);

void DrawSection(benchmark::State& state) {
    test::SampleSection sample;
    FillBigSection(sample);
    size_t points = 0;
    grvelk::Drawing drawing = Counter(points);
    ScaleWindow(nullptr, &drawing, -15, -2, 15, 14, 200);
    for ([[maybe_unused]] auto round : state) {
        points = 0;
        TraceSection(&drawing, &sample.section, &sample.parameters);
    }
    state.counters["points"] = static_cast<double>(points);
}
BENCHMARK(DrawSection)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace corvane
