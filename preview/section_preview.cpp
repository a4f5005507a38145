#include "preview/section_preview.h"

#include <algorithm>

#include "text/numbers.h"

namespace corvane {
namespace {

constexpr int16_t kTrue = -1;
constexpr int16_t kTwips = 1;
constexpr int16_t kResolution = 200;
constexpr float kMargin = 0.08F;

// A ship below this breadth [m] is drawn in more detail.
constexpr float kSmallBreadth_m = 10;
constexpr int16_t kSmallDetail = 60;
constexpr int16_t kLargeDetail = 8;

constexpr int kButtonFace = 15;
constexpr int kButtonShadow = 16;

constexpr int32_t Rgb(int32_t red, int32_t green, int32_t blue) {
    return red | green << 8 | blue << 16;
}

// Section coordinates at the edges of the picture.
struct Edges {
    float xLeft, yBottom, xRight, yTop;
};

Edges EdgesOf(float breadth, float height, int16_t symmetryMode, float margin) {
    Edges edges{};
    edges.xRight = breadth / 2 * (margin / 2 + 1);
    if (symmetryMode == 1) {
        edges.xLeft = -edges.xRight;
    } else if (symmetryMode == 0 || symmetryMode == 2) {
        edges.xLeft = -(breadth / 2) * margin / 2;
    }
    edges.yBottom = -height * margin / 2;
    edges.yTop = (1 + margin) * height;
    return edges;
}

// Widens the range that has more of the picture for each metre, about its centre.
void KeepAspectRatio(const Picture& picture, float xFactor, float yFactor, Edges& edges) {
    if (xFactor > yFactor) {
        edges.xLeft =
            (edges.xLeft + edges.xRight) / 2 - (edges.xRight - edges.xLeft) / 2 * xFactor / yFactor;
        edges.xRight = edges.xLeft + picture.width / yFactor;
    } else {
        edges.yBottom =
            (edges.yBottom + edges.yTop) / 2 - (edges.yTop - edges.yBottom) / 2 * yFactor / xFactor;
        edges.yTop = edges.yBottom + picture.height / xFactor;
    }
}

void SendProvisionalFrame(const Picture& picture) {
    ScaleWindow(picture.window, picture.dc, 0, 0, 0.1F, 0.1F, kResolution);
}

}  // namespace

void MakePreviewParameters(float breadth, const Picture& picture, PreviewParameters& made) {
    made = {};
    made.colours[kColourCentreLine] = picture.systemColour(kButtonShadow);
    made.colours[kColourCompartment] = picture.systemColour(kButtonFace);
    made.colours[kColourStrakeLimit] = Rgb(128, 0, 0);
    made.colours[kColourText] = Rgb(128, 0, 0);
    made.colours[kColourPlating] = Rgb(0, 0, 255);
    made.colours[kColourStiffener] = Rgb(0, 128, 0);
    DrawingParameters& parameters = made.parameters;
    parameters.drawPlating = kTrue;
    parameters.drawStiffeners = kTrue;
    parameters.drawCompartments = kTrue;
    parameters.detail = breadth < kSmallBreadth_m ? kSmallDetail : kLargeDetail;
    parameters.resolution = kResolution;
    parameters.margin = kMargin;
    parameters.colours = made.colours;
}

void FitPreviewScale(Picture& picture, float breadth, float height, int16_t symmetryMode,
                     const DrawingParameters& parameters) {
    Edges edges = EdgesOf(breadth, height, symmetryMode, parameters.margin);
    if (IsNearZero(edges.xRight - edges.xLeft)) return;
    const float xFactor = picture.width / (edges.xRight - edges.xLeft);
    if (IsNearZero(edges.yTop - edges.yBottom)) return;
    const float yFactor = picture.height / (edges.yTop - edges.yBottom);
    if (IsNearZero(yFactor) || IsNearZero(xFactor)) return;
    KeepAspectRatio(picture, xFactor, yFactor, edges);
    picture.scaleLeft = edges.xLeft;
    picture.scaleTop = edges.yTop;
    picture.scaleWidth = edges.xRight - edges.xLeft;
    picture.scaleHeight = edges.yBottom - edges.yTop;
    ScaleWindow(picture.window, picture.dc, edges.xLeft, edges.yBottom, edges.xRight, edges.yTop,
                kResolution);
}

void SyncGraphicsFrame(Picture& picture) {
    SendProvisionalFrame(picture);
    picture.clear(picture);
    ScaleWindow(picture.window, picture.dc, picture.scaleLeft,
                picture.scaleTop + picture.scaleHeight, picture.scaleLeft + picture.scaleWidth,
                picture.scaleTop, kResolution);
}

void DrawSectionPreview(Section& section, const BasicShipData& bsd, Picture& picture) {
    if (!IsBsdDefined(bsd) || section.geometryPresent == 0) return;
    section.drawingBreadth = bsd.MainData(2);
    section.drawingHeight = std::max({bsd.MainData(3), bsd.MainData(4), bsd.MainData(5)});
    picture.setFont(picture, section.drawingBreadth);
    PreviewParameters made;
    MakePreviewParameters(section.drawingBreadth, picture, made);
    const int16_t previewMode = section.previewMode;
    section.previewMode = 0;
    picture.scaleMode = kTwips;
    QuickCompute(&section, &made.parameters);
    SendProvisionalFrame(picture);
    FitPreviewScale(picture, section.drawingBreadth, section.drawingHeight, section.symmetryMode,
                    made.parameters);
    SyncGraphicsFrame(picture);
    TraceSection(picture.dc, &section, &made.parameters);
    section.previewMode = previewMode;
}

}  // namespace corvane
