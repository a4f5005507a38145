#include "preview/picture_view.h"

#include <algorithm>
#include <cmath>

#include "preview/section_preview.h"

namespace corvane {
namespace {

constexpr double kTwipsPerMm = 1440 / 25.4;

// The last drawing had a frame.
bool IsDrawn(const Picture& picture) {
    return picture.view.fittedUnitsPerMetre > 0 && picture.scaleWidth > 0 &&
           picture.scaleHeight < 0;
}

double UnitsPerMetre(const Picture& picture) {
    return picture.width / picture.scaleWidth;
}

void SetScale(Picture& picture, ShipPoint centre, double unitsPerMetre) {
    picture.scaleWidth = picture.width / unitsPerMetre;
    picture.scaleHeight = -picture.height / unitsPerMetre;
    picture.scaleLeft = centre.y - picture.scaleWidth / 2;
    picture.scaleTop = centre.z - picture.scaleHeight / 2;
}

// All the same but for rounding: much less than a pixel, at every corner.
bool IsAtFit(const PictureView& view) {
    constexpr double kHair = 1e-9;  // of the scale
    constexpr double kHair_units = 1e-3;
    const double off =
        std::max(std::abs(view.centreY - view.fittedY), std::abs(view.centreZ - view.fittedZ));
    return std::abs(view.unitsPerMetre / view.fittedUnitsPerMetre - 1) < kHair &&
           off * view.unitsPerMetre < kHair_units;
}

}  // namespace

double WidthOf_mm(const Picture& picture) {
    return picture.width / kTwipsPerMm;
}

double HeightOf_mm(const Picture& picture) {
    return picture.height / kTwipsPerMm;
}

void FitView(PictureView& view) {
    view.isFitted = true;
}

void ZoomView(Picture& picture, double factor, double x, double y) {
    if (!IsDrawn(picture) || !(factor > 0)) return;
    PictureView& view = picture.view;
    const double before = UnitsPerMetre(picture);
    const double after = std::clamp(before * factor, view.fittedUnitsPerMetre * kLeastZoom,
                                    view.fittedUnitsPerMetre * kMostZoom);
    if (after == before) return;
    view.isFitted = false;
    view.unitsPerMetre = after;
    // The place's distance from the middle shrinks as the scale grows.
    view.centreY = YAt(picture, x) + (0.5 - x) * picture.width / after;
    view.centreZ = ZAt(picture, y) - (0.5 - y) * picture.height / after;
    if (IsAtFit(view)) FitView(view);
}

void MoveView(Picture& picture, double right, double down) {
    if (!IsDrawn(picture)) return;
    PictureView& view = picture.view;
    view.unitsPerMetre = UnitsPerMetre(picture);
    view.centreY = YAt(picture, 0.5 - right);
    view.centreZ = ZAt(picture, 0.5 - down);
    view.isFitted = false;
}

void ApplyView(Picture& picture) {
    PictureView& view = picture.view;
    if (!(picture.scaleWidth > 0)) return;
    view.fittedUnitsPerMetre = UnitsPerMetre(picture);
    view.fittedY = YAt(picture, 0.5);
    view.fittedZ = ZAt(picture, 0.5);
    if (!view.isFitted) SetScale(picture, {view.centreY, view.centreZ}, view.unitsPerMetre);
}

void FitPicture(Picture& picture, ShipPoint centre, double mmPerMetre) {
    if (!(mmPerMetre > 0)) return;
    SetScale(picture, centre, mmPerMetre * kTwipsPerMm);
    ApplyView(picture);
}

Figure SheetOver(const Picture& picture) {
    const double width_mm = WidthOf_mm(picture);
    return MakeFigure(width_mm, HeightOf_mm(picture), width_mm / picture.scaleWidth,
                      {YAt(picture, 0.5), ZAt(picture, 0.5)});
}

double ZoomOf(const Picture& picture) {
    return UnitsPerMetre(picture) / picture.view.fittedUnitsPerMetre;
}

double YAt(const Picture& picture, double x) {
    return picture.scaleLeft + x * picture.scaleWidth;
}

double ZAt(const Picture& picture, double y) {
    return picture.scaleTop + y * picture.scaleHeight;
}

}  // namespace corvane
