// A section, small and whole, in a picture box: computes the frame and the parameters of the
// drawing; the library computes and draws the geometry.
#pragma once

#include <cstdint>

#include "bsd/basic_ship_data.h"
#include "platform/grvelk.h"
#include "preview/picture_view.h"

namespace corvane {

// A picture box; filled in by ui/windows/ and by tests.
struct Picture {
    WindowHandle window = nullptr;
    DeviceHandle dc = nullptr;
    float width = 0, height = 0;  // of the frame, in units of the scale mode
    // User coordinates: what the upper left corner shows, and the extents from there. The height
    // is below 0 where y grows upwards.
    double scaleLeft = 0, scaleTop = 0, scaleWidth = 0, scaleHeight = 0;
    int16_t scaleMode = 1;  // 1: twips, which the width and the height are in
    PictureView view;
    void* context = nullptr;
    void (*clear)(Picture& picture) = nullptr;
    // The font for texts in a section of this breadth [m].
    void (*setFont)(Picture& picture, float breadth) = nullptr;
    int32_t (*systemColour)(int index) = nullptr;  // 0x00BBGGRR
    // Draws a figure whose sheet covers the picture.
    void (*drawFigure)(Picture& picture, const Figure& figure) = nullptr;
};

// Draws the section with the ship's breadth and depth, which are stored into it. A section that is
// larger than the ship gets a larger frame: no plating is cut off. A picture whose view is not
// fitted shows what the user zoomed to instead; beyond kMostFrameZoom the section is a figure
// (preview/section_figure.h) in the library's colours. Does nothing, and leaves the picture as it
// is, without a defined BSD or without geometry.
void DrawSectionPreview(Section& section, const BasicShipData& bsd, Picture& picture);

// Sets the picture's user scale so that a section of this breadth and height [m] fits with its
// margins and undistorted, and gives the library the same frame. A degenerate extent leaves the
// scale and the library's frame as they are.
void FitPreviewScale(Picture& picture, float breadth, float height, int16_t symmetryMode,
                     const DrawingParameters& parameters);

// Clears the picture and gives the library the picture's user scale.
void SyncGraphicsFrame(Picture& picture);

// The colours of the drawing, and the parameters that point to them.
struct PreviewParameters {
    int32_t colours[kColourCount];
    DrawingParameters parameters;
};
void MakePreviewParameters(float breadth, const Picture& picture, PreviewParameters& made);

}  // namespace corvane
