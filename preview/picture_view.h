// What part of the plane a picture shows: all of it, as it was fitted, or what the user zoomed to
// and moved to. Places in the picture are fractions of its width and height, from the upper left
// corner, 0 to 1 inside.
#pragma once

#include "preview/figure.h"

namespace corvane {

struct Picture;  // preview/section_preview.h

struct PictureView {
    bool isFitted = true;
    // While it is not fitted: the middle of the picture [m], and units of the scale mode for each
    // metre.
    double centreY = 0, centreZ = 0;
    double unitsPerMetre = 0;
    // Those of the fitted picture, from the last drawing; no units before the first one.
    double fittedY = 0, fittedZ = 0;
    double fittedUnitsPerMetre = 0;
};

// Limits of the zoom, as ratios to the fitted picture. The first one is a little above 76 steps of
// the wheel, which are a million: 1 m of the ship is then about 10 km of the screen.
inline constexpr double kMostZoom = 1.1e6;
inline constexpr double kLeastZoom = 0.25;
// Up to this zoom a frame in single precision, and the 200 lines that the library has for an arc,
// are exact to a fifth of a pixel.
inline constexpr double kMostFrameZoom = 100;

// Size of the picture on its device [mm].
double WidthOf_mm(const Picture& picture);
double HeightOf_mm(const Picture& picture);

// From the next drawing on the picture shows all again.
void FitView(PictureView& view);
// Shows more or less around a place, which stays where it is. Nothing happens with a picture that
// has not been drawn, and at the limits. A picture that is back at the fit is fitted again.
void ZoomView(Picture& picture, double factor, double x, double y);
// Moves what is shown by a part of the picture: to the right and down where the parts are positive.
void MoveView(Picture& picture, double right, double down);

// After the fit: keeps its scale, and gives the picture the user's view instead, unless that is
// fitted.
void ApplyView(Picture& picture);

// Fits the picture around a place of the plane, at so many millimetres of it for each metre, and
// applies the view.
void FitPicture(Picture& picture, ShipPoint centre, double mmPerMetre);
// The sheet that covers the picture as it was drawn last; the picture must have a frame.
Figure SheetOver(const Picture& picture);

// How many times larger than fitted the last drawing was.
double ZoomOf(const Picture& picture);

// Section coordinates [m] of a place in the picture, from the last drawing.
double YAt(const Picture& picture, double x);
double ZAt(const Picture& picture, double y);

}  // namespace corvane
