#include "preview/section_preview.h"

#include <algorithm>
#include <cmath>

#include "preview/section_figure.h"
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

// Fits the picture's scale around the edges; a degenerate extent leaves it as it is.
void FitEdges(Picture& picture, Edges edges) {
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

// ---- Sections larger than the ship's frame -----------------------------------------------------

void Include(Edges& extent, float y, float z, float reach) {
    if (!std::isfinite(y) || !std::isfinite(z) || !std::isfinite(reach)) return;
    extent.xLeft = std::min(extent.xLeft, y - reach);
    extent.xRight = std::max(extent.xRight, y + reach);
    extent.yBottom = std::min(extent.yBottom, z - reach);
    extent.yTop = std::max(extent.yTop, z + reach);
}

// How far an arc is from its chord at most; 0 for a straight line.
float Rise(const StrakeItem& item) {
    return item.arcRadius > 0 ? item.arcRadius * (1 - std::cos(item.sweep / 2)) : 0;
}

// The edges, moved to hold the computed plating.
Edges WithPlating(Edges edges, const Section& section) {
    for (int i = 0; i < section.strakeCount; ++i) {
        const Strake& strake = section.strakes[i];
        for (int k = 0; k < strake.nodeCount; ++k) {
            const Node& node = strake.nodes[k];
            if (node.computed != 0) Include(edges, node.y, node.z, 0);
        }
        for (int k = 0; k < strake.itemCount; ++k) {
            const StrakeItem& item = strake.items[k];
            if (!(item.length > 0)) continue;
            Include(edges, item.y1, item.z1, Rise(item));
            Include(edges, item.y2, item.z2, Rise(item));
        }
    }
    // The mirror image is drawn, too.
    if (section.symmetryMode == 1) {
        edges.xRight = std::max(edges.xRight, -edges.xLeft);
        edges.xLeft = -edges.xRight;
    }
    return edges;
}

// In single precision, as the library has them.
Edges EdgesOf(const Picture& picture) {
    return {static_cast<float>(picture.scaleLeft),
            static_cast<float>(picture.scaleTop + picture.scaleHeight),
            static_cast<float>(picture.scaleLeft + picture.scaleWidth),
            static_cast<float>(picture.scaleTop)};
}

// Where plating is outside of the fitted frame, the fit is repeated for a ship that is as broad and
// as high as the section, and beyond the centre line and the base where the section is.
void FitLargerSection(Picture& picture, const Section& section, float margin) {
    const Edges fitted = EdgesOf(picture);
    const Edges needed = WithPlating(fitted, section);
    if (needed.xLeft >= fitted.xLeft && needed.xRight <= fitted.xRight &&
        needed.yBottom >= fitted.yBottom && needed.yTop <= fitted.yTop) {
        return;
    }
    const Edges plating = WithPlating({0, 0, 0, 0}, section);
    const float breadth = std::max(section.drawingBreadth, 2 * plating.xRight);
    const float height = std::max(section.drawingHeight, plating.yTop);
    Edges edges = EdgesOf(breadth, height, section.symmetryMode, margin);
    edges.xLeft = std::min(edges.xLeft, plating.xLeft - breadth * margin / 4);
    edges.yBottom = std::min(edges.yBottom, plating.yBottom - height * margin / 2);
    FitEdges(picture, edges);
}

void SendProvisionalFrame(const Picture& picture) {
    ScaleWindow(picture.window, picture.dc, 0, 0, 0.1F, 0.1F, kResolution);
}

// ---- Large zooms -------------------------------------------------------------------------------

// Lines may reach this far beyond the picture [mm], so that no end of a broad one shows.
constexpr double kBeyond_mm = 4;

void DrawAsFigure(const Section& section, const int32_t (&colours)[kColourCount],
                  Picture& picture) {
    Figure figure = SheetOver(picture);
    SheetArea& window = figure.window;
    window = {window.left - kBeyond_mm, window.top - kBeyond_mm, window.right + kBeyond_mm,
              window.bottom + kBeyond_mm};
    AddSection(figure, section,
               {colours[kColourCompartment], colours[kColourPlating], colours[kColourStrakeLimit],
                colours[kColourStiffener], colours[kColourCentreLine]});
    picture.drawFigure(picture, figure);
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
    FitEdges(picture, EdgesOf(breadth, height, symmetryMode, parameters.margin));
}

void SyncGraphicsFrame(Picture& picture) {
    SendProvisionalFrame(picture);
    picture.clear(picture);
    const Edges edges = EdgesOf(picture);
    ScaleWindow(picture.window, picture.dc, edges.xLeft, edges.yBottom, edges.xRight, edges.yTop,
                kResolution);
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
    FitLargerSection(picture, section, made.parameters.margin);
    ApplyView(picture);
    SyncGraphicsFrame(picture);
    if (ZoomOf(picture) > kMostFrameZoom) {
        DrawAsFigure(section, made.colours, picture);
    } else {
        TraceSection(picture.dc, &section, &made.parameters);
    }
    section.previewMode = previewMode;
}

}  // namespace corvane
