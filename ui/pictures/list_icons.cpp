#include "ui/pictures/list_icons.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "ui/base/dpi.h"

namespace corvane {
namespace {

// Between an icon and the name beside it [pixels at 96 dots per inch].
constexpr int kGap = 3;

// The least contrast of a sign with what it is on, 1 to 21.
constexpr double kLeastContrast = 3;

// As an eye weighs the colours, 0 to 1.
double Luminance(COLORREF colour) {
    const auto linear = [](int level) {
        const double part = level / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) +
           0.0722 * linear(GetBValue(colour));
}

double Contrast(COLORREF a, COLORREF b) {
    const auto [least, most] = std::minmax({Luminance(a), Luminance(b)});
    return (most + 0.05) / (least + 0.05);
}

// Half of the ring in the middle, from one angle to the other [degrees], and its arrow head.
void StrokeTurn(DrawnPicture& picture, int from, int to, COLORREF colour) {
    constexpr double kRadius = 5.2;
    const auto onRing = [](int degrees, double radius) {
        const double angle = degrees * std::numbers::pi / 180;
        return PicturePoint{kKindUnits / 2.0 + radius * std::cos(angle),
                            kKindUnits / 2.0 + radius * std::sin(angle)};
    };
    std::vector<PicturePoint> ring;
    for (int angle = from; angle <= to; angle += 10) ring.push_back(onRing(angle, kRadius));
    Stroke(picture, ring, 1.5, colour);
    const PicturePoint head[] = {onRing(to - 28, kRadius + 2.6), onRing(to, kRadius),
                                 onRing(to - 36, kRadius - 2.0)};
    Stroke(picture, head, 1.5, colour);
}

// Shell and inner skin of a midship section.
void DrawSection(DrawnPicture& picture, COLORREF colour) {
    const PicturePoint shell[] = {{1.5, 2.5},   {1.5, 11.5},  {3.5, 13.5},
                                  {12.5, 13.5}, {14.5, 11.5}, {14.5, 2.5}};
    const PicturePoint innerSkin[] = {{1.5, 2.5},  {4.5, 2.5},  {4.5, 8.5},  {6.5, 10.5},
                                      {9.5, 10.5}, {11.5, 8.5}, {11.5, 2.5}, {14.5, 2.5}};
    Stroke(picture, shell, 1.5, colour);
    Stroke(picture, innerSkin, 1.0, colour);
}

// A plate with its stiffeners.
void DrawBulkhead(DrawnPicture& picture, COLORREF colour) {
    const PicturePoint plate[] = {{1.5, 2.5}, {14.5, 2.5}, {14.5, 13.5}, {1.5, 13.5}, {1.5, 2.5}};
    Stroke(picture, plate, 1.5, colour);
    for (const double x : {4.75, 8.0, 11.25}) {
        const PicturePoint stiffener[] = {{x, 2.5}, {x, 13.5}};
        Stroke(picture, stiffener, 1.0, colour);
    }
}

// Two arrows that turn around the middle.
void DrawTorsion(DrawnPicture& picture, COLORREF colour) {
    StrokeTurn(picture, 190, 330, colour);
    StrokeTurn(picture, 10, 150, colour);
}

// In the order of the kinds' numbers.
constexpr void (*kDrawings[])(DrawnPicture& picture, COLORREF colour) = {DrawSection, DrawBulkhead,
                                                                         DrawTorsion};

}  // namespace

COLORREF KindColour(ModelKind kind, int background, int text) {
    const uint32_t facts = FactsOf(kind).colour;
    const COLORREF colour = RGB(facts >> 16 & 0xFF, facts >> 8 & 0xFF, facts & 0xFF);
    const bool isSeen = Contrast(colour, GetSysColor(background)) >= kLeastContrast;
    return isSeen ? colour : GetSysColor(text);
}

void DrawKind(DrawnPicture& picture, ModelKind kind, COLORREF colour) {
    kDrawings[static_cast<size_t>(kind)](picture, colour);
}

HIMAGELIST CreateKindIcons(UINT dpi) {
    const int size = SystemMetric(SM_CXSMICON, dpi);
    const HIMAGELIST icons =
        ImageList_Create(size + Scaled(kGap, dpi), size, ILC_COLOR32 | ILC_MASK,
                         static_cast<int>(Kinds().size()), 0);
    for (const KindFacts& facts : Kinds()) {
        DrawnPicture picture = NewPicture(size, kKindUnits);
        DrawKind(picture, facts.kind, KindColour(facts.kind, COLOR_WINDOW, COLOR_WINDOWTEXT));
        AddPicture(icons, picture);
    }
    return icons;
}

}  // namespace corvane
