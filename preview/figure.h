// A picture as the list of what is drawn in it: lines, areas and texts on a sheet. The screen, the
// clipboard, the printer and the exported files are all made from this one list.
//
// A sheet has millimetres, from its upper left corner, x to the right and y downwards. A part of
// it, the window, shows a part of a plane of the ship to scale: y (or x along the ship) to the
// right, z upwards. What is outside of the window is cut off, and what is not a number is left out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace corvane {

// A place in the plane of the ship [m].
struct ShipPoint {
    double y, z;
};

// A place on the sheet [mm].
struct SheetPoint {
    double x, y;
    bool operator==(const SheetPoint&) const = default;
};

struct SheetArea {
    double left, top, right, bottom;  // [mm]
    bool operator==(const SheetArea&) const = default;
};

// What an item shows; the layers of an exported drawing.
enum class FigureLayer { kPlate, kStiffener, kCompartment, kText };
inline constexpr int kFigureLayerCount = 4;

enum class FigureShape {
    kLine,  // through the points; 2 or more
    kArea,  // filled, with the points as its corners; 3 or more
    kText   // at the one point
};

// Where a text is, seen from its point: to the right of it, around it, to the left of it. Across,
// the point is at half the height of a capital letter.
enum class TextSide { kRight, kMiddle, kLeft };
// Of a capital letter, as a part of the body's height.
inline constexpr double kCapitalHeight = 0.72;

struct FigureItem {
    FigureShape shape;
    FigureLayer layer;
    int32_t colour;  // 0x00BBGGRR
    double size_mm;  // of a line: its width; of a text: the height of its letters' body
    size_t first;    // of its points in the figure
    size_t count;    // of its points
    size_t text;     // number of a text's string in the figure
    TextSide side;   // of a text
};

struct Figure {
    double width_mm, height_mm;
    SheetArea window;
    double mmPerMetre;  // the scale of the window, above 0
    SheetPoint origin;  // of the plane of the ship on the sheet, inside the window or not

    std::vector<SheetPoint> points;
    std::vector<FigureItem> items;
    std::vector<std::wstring> texts;
};

struct FigurePen {
    FigureLayer layer;
    int32_t colour;
    double width_mm;
};

struct FigureLetters {
    int32_t colour;
    double height_mm;
    TextSide side = TextSide::kRight;
};

// A sheet without items, whose window is all of it and shows the plane of the ship with `centre` in
// the middle.
Figure MakeFigure(double width_mm, double height_mm, double mmPerMetre, ShipPoint centre);

SheetPoint OnSheet(const Figure& figure, ShipPoint point);
ShipPoint InShip(const Figure& figure, SheetPoint point);
// Whether a place is inside the window, its edges included.
bool IsInWindow(const Figure& figure, SheetPoint point);

// A line or an area of the ship, cut off at the window's edges. A line that is cut becomes as many
// items as parts of it are left.
void AddLine(Figure& figure, const FigurePen& pen, std::span<const ShipPoint> points);
void AddArea(Figure& figure, FigureLayer layer, int32_t colour, std::span<const ShipPoint> corners);
// On the sheet itself, not cut off.
void AddSheetLine(Figure& figure, const FigurePen& pen, std::span<const SheetPoint> points);
void AddSheetArea(Figure& figure, FigureLayer layer, int32_t colour,
                  std::span<const SheetPoint> corners);
// A text at a place of the sheet; an empty one, and one at no place, is left out.
void AddText(Figure& figure, const FigureLetters& letters, SheetPoint at, const std::wstring& text);

std::span<const SheetPoint> PointsOf(const Figure& figure, const FigureItem& item);

}  // namespace corvane
