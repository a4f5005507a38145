// ScaleWindow and TraceSection.
#include <algorithm>

#include "companions/grvelk/sketch.h"

namespace corvane::grvelk {
namespace {

// An arc is never drawn with more lines than this, whatever the parameters ask for.
constexpr int kMostChords = 1000;

void DrawLayers(const Sketch& sketch) {
    if (sketch.parameters.drawCompartments != 0) FillCompartments(sketch);
    if (sketch.parameters.drawPlating != 0) {
        DrawPlating(sketch);
        DrawStrakeLimits(sketch);
    }
    if (sketch.parameters.drawStiffeners != 0) DrawStiffeners(sketch);
    DrawCentreLine(sketch);
    if (sketch.parameters.drawNumbers != 0) DrawNumbers(sketch);
}

void DrawInFrame(const Drawing& drawing, const Frame& frame, const Section& section,
                 const DrawingParameters& parameters) {
    Mapping mapping{};
    if (!MakeMapping(frame, drawing, mapping)) return;
    const int most = std::clamp<int>(parameters.resolution, 1, kMostChords);
    DrawLayers({drawing,
                section,
                parameters,
                mapping,
                {mapping.pixelsPerMetre, most},
                section.symmetryMode == 1});
}

}  // namespace

}  // namespace corvane::grvelk

using corvane::DeviceHandle;
using corvane::WindowHandle;

CORVANE_EXPORT void CORVANE_STDCALL ScaleWindow(WindowHandle window, DeviceHandle dc, float xLeft,
                                                float yBottom, float xRight, float yTop,
                                                int16_t /*resolution*/) {
    corvane::grvelk::KeepFrame(window, dc, {xLeft, yBottom, xRight, yTop});
}

CORVANE_EXPORT void CORVANE_STDCALL TraceSection(DeviceHandle dc, corvane::Section* section,
                                                 corvane::DrawingParameters* parameters) {
    if (section == nullptr || parameters == nullptr || section->geometryPresent == 0) return;
    corvane::grvelk::Frame frame{};
    WindowHandle window = nullptr;
    corvane::grvelk::Drawing drawing{};
    if (!corvane::grvelk::FindFrame(dc, frame, window)) return;
    if (!corvane::grvelk::OpenDrawing(window, dc, drawing)) return;
    corvane::grvelk::DrawInFrame(drawing, frame, *section, *parameters);
    corvane::grvelk::CloseDrawing(drawing);
}
