#include "preview/section_figure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "preview/stiffener_lines.h"

namespace corvane {
namespace {

constexpr double kPlating_mm = 0.5;
constexpr double kThin_mm = 0.25;
constexpr double kTick_mm = 1.6;
constexpr double kLeastWeb_mm = 1;
constexpr double kLeastFlange_mm = 0.5;  // on one side of the web
// An arc's lines leave it by at most this much in the ship.
constexpr double kOffArc_m = 0.0005;

using Line = std::vector<ShipPoint>;

Line MirrorImage(std::span<const ShipPoint> line) {
    Line mirrored(line.begin(), line.end());
    for (ShipPoint& point : mirrored) point.y = -point.y;
    return mirrored;
}

// Calls `use` with a line, and with its mirror image where the section has one.
template <class Use>
void ForEachSide(const Section& section, std::span<const ShipPoint> line, Use use) {
    use(line);
    if (section.symmetryMode == 1) use(MirrorImage(line));
}

ArcLines ArcsOf(const Figure& figure) {
    ArcLines arcs = ArcLinesIn(figure);
    arcs.off_m = std::min(kOffArc_m, arcs.off_m);
    return arcs;
}

// ---- Stiffeners, compartments, plating, centre line --------------------------------------------

void AddStiffeners(Figure& figure, const Section& section, const SectionLines& lines) {
    const FigurePen pen{FigureLayer::kStiffener, lines.colour, kThin_mm + lines.wider_mm};
    const LeastProfile least{kLeastWeb_mm / figure.mmPerMetre, kLeastFlange_mm / figure.mmPerMetre};
    WalkStiffeners(section, least, [&](const StiffenerPlace&, std::span<const ShipPoint> line) {
        ForEachSide(section, line,
                    [&](std::span<const ShipPoint> side) { AddLine(figure, pen, side); });
    });
}

void AddCompartments(Figure& figure, const Section& section, int32_t colour) {
    for (const CompartmentOutline& outline : CompartmentsOf(section)) {
        ForEachSide(section, CornersOf(section, outline, ArcsOf(figure)),
                    [&](std::span<const ShipPoint> corners) {
                        AddArea(figure, FigureLayer::kCompartment, colour, corners);
                    });
    }
}

template <class Use>
void WalkPlating(const Section& section, const ArcLines& arcs, Use use) {
    for (const Strake& strake : StrakesOf(section)) {
        for (const Line& line : LinesOf(strake, arcs)) ForEachSide(section, line, use);
    }
}

void AddPlating(Figure& figure, const Section& section, const SectionLines& lines) {
    const FigurePen pen{FigureLayer::kPlate, lines.colour, kPlating_mm + lines.wider_mm};
    WalkPlating(section, ArcsOf(figure),
                [&](std::span<const ShipPoint> line) { AddLine(figure, pen, line); });
}

// A tick across the strake where a plate ends.
void AddPlateEnds(Figure& figure, const Section& section, const SectionLines& lines) {
    const FigurePen pen{FigureLayer::kPlate, lines.colour, kThin_mm + lines.wider_mm};
    const double half = kTick_mm / 2 / figure.mmPerMetre;
    for (const Strake& strake : StrakesOf(section)) {
        for (const float end : PlateEndsOf(strake)) {
            StrakeSpot spot{};
            if (!FindSpot(strake, end, spot)) continue;
            const ShipPoint across{-spot.direction.z, spot.direction.y};
            const std::array tick{Moved(spot.at, across, -half), Moved(spot.at, across, half)};
            ForEachSide(section, tick,
                        [&](std::span<const ShipPoint> line) { AddLine(figure, pen, line); });
        }
    }
}

// Dashes and dots from below to above, in the window only, and longer ones on a very high sheet: a
// high section has no more of them.
void AddCentreLine(Figure& figure, const ShipBox& extent, int32_t colour) {
    constexpr double kBeyond = 0.02;                       // of the section's height
    constexpr std::array kPattern_mm{3.0, 1.0, 0.8, 1.0};  // dash, gap, dot, gap
    const double beyond = (extent.top - extent.bottom) * kBeyond;
    const FigurePen pen{FigureLayer::kText, colour, kThin_mm};
    const SheetPoint foot = OnSheet(figure, {0, extent.bottom - beyond});
    const SheetPoint head = OnSheet(figure, {0, extent.top + beyond});
    if (foot.x < figure.window.left || foot.x > figure.window.right) return;
    const double end = std::max(head.y, figure.window.top);
    double y = std::min(foot.y, figure.window.bottom);
    constexpr double kMostHeight_mm = 5000;
    const double stretch = std::max(1.0, (y - end) / kMostHeight_mm);
    for (size_t part = 0; y > end; ++part) {
        const double next = std::max(y - stretch * kPattern_mm[part % kPattern_mm.size()], end);
        const std::array dash{SheetPoint{foot.x, y}, SheetPoint{foot.x, next}};
        if (part % 2 == 0) AddSheetLine(figure, pen, dash);
        y = next;
    }
}

void Include(ShipBox& extent, std::span<const ShipPoint> line) {
    for (const ShipPoint& point : line) {
        if (!std::isfinite(point.y) || !std::isfinite(point.z)) continue;
        extent.left = std::min(extent.left, point.y);
        extent.right = std::max(extent.right, point.y);
        extent.bottom = std::min(extent.bottom, point.z);
        extent.top = std::max(extent.top, point.z);
    }
}

// How large a length of the ship may be drawn to fill a length of the sheet; without an end for a
// length of 0.
double Scale(double sheet_mm, double ship_m) {
    return ship_m > 0 ? sheet_mm / ship_m : std::numeric_limits<double>::infinity();
}

}  // namespace

bool ExtentOf(const Section& section, ShipBox& extent) {
    constexpr double kFar = std::numeric_limits<double>::infinity();
    extent = {kFar, kFar, -kFar, -kFar};
    const auto include = [&extent](std::span<const ShipPoint> line) { Include(extent, line); };
    WalkPlating(section, {kOffArc_m}, include);
    if (extent.left > extent.right) return false;
    WalkStiffeners(section, {}, [&](const StiffenerPlace&, std::span<const ShipPoint> line) {
        ForEachSide(section, line, include);
    });
    return true;
}

void AddSection(Figure& figure, const Section& section, const SectionColours& colours) {
    ShipBox extent{};
    if (!ExtentOf(section, extent)) return;
    AddCompartments(figure, section, colours.compartment);
    AddPlating(figure, section, {colours.plating});
    AddPlateEnds(figure, section, {colours.plateEnd});
    AddStiffeners(figure, section, {colours.stiffener});
    AddCentreLine(figure, extent, colours.centreLine);
}

void AddSectionLines(Figure& figure, const Section& section, const SectionLines& lines) {
    AddPlating(figure, section, lines);
    AddPlateEnds(figure, section, lines);
    AddStiffeners(figure, section, lines);
}

Figure MakeFittedFigure(const SheetSize& sheet, const ShipBox& area) {
    constexpr double kUsualScale = 10;
    const double across = Scale(sheet.width_mm - 2 * sheet.margin_mm, area.right - area.left);
    const double upwards = Scale(sheet.height_mm - 2 * sheet.margin_mm, area.top - area.bottom);
    const double scale = std::min(across, upwards);
    return MakeFigure(sheet.width_mm, sheet.height_mm,
                      std::isfinite(scale) && scale > 0 ? scale : kUsualScale,
                      {(area.left + area.right) / 2, (area.bottom + area.top) / 2});
}

}  // namespace corvane
