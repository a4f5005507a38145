#include "preview/bulkhead_figure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "preview/figure_text.h"
#include "report/messages.h"
#include "text/numbers.h"

namespace corvane {
namespace {

constexpr size_t kMostLines = 20000;  // of a figure; only damaged data ask for more

constexpr double kPlating_mm = 0.5;
constexpr double kGirder_mm = 0.7;
constexpr double kStiffener_mm = 0.25;
constexpr double kThin_mm = 0.18;
constexpr double kTick_mm = 0.6;  // half its height and breadth

constexpr double kName_mm = 3;  // letters
constexpr double kRemark_mm = 2.4;
constexpr double kThickness_mm = 2.2;
constexpr double kLeastLetters_mm = 1.5;
constexpr double kLineFeed = 1.4;  // of the letters
constexpr double kAboveName_mm = 1;

// What the drawing of one bulkhead needs.
struct Pencil {
    Figure& figure;
    const BulkheadColours& colours;
    const BulkheadLayout& layout;
    // Where the bulkheads are small, so are letters and the widths of lines.
    double letters = 1, weight = 1;
    size_t lineCount = 0;
    const DrawnBulkhead* drawn = nullptr;
    bool isMirrored = false;
};

// ---- Lines and areas in the bulkhead's own coordinates, with their mirror image ----------------

enum class Side { kBoth, kDescribed };

std::vector<ShipPoint> Moved(const Pencil& pencil, std::span<const ShipPoint> points, int sign) {
    std::vector<ShipPoint> moved;
    moved.reserve(points.size());
    for (const ShipPoint& point : points) {
        moved.push_back({sign * point.y + pencil.drawn->place.y, point.z + pencil.drawn->place.z});
    }
    return moved;
}

bool HasLinesLeft(Pencil& pencil) {
    if (pencil.lineCount == kMostLines) return false;
    ++pencil.lineCount;
    return true;
}

void Line(Pencil& pencil, const FigurePen& pen, std::span<const ShipPoint> points,
          Side side = Side::kBoth) {
    for (const int sign : {1, -1}) {
        if (sign < 0 && (!pencil.isMirrored || side == Side::kDescribed)) break;
        if (HasLinesLeft(pencil)) AddLine(pencil.figure, pen, Moved(pencil, points, sign));
    }
}

void Line(Pencil& pencil, const FigurePen& pen, ShipPoint from, ShipPoint to,
          Side side = Side::kBoth) {
    Line(pencil, pen, std::array{from, to}, side);
}

// As many dashes at every scale, those that are inside of the outline.
void DashedLine(Pencil& pencil, const FigurePen& pen, ShipPoint from, ShipPoint to, Side side) {
    constexpr int kDashes = 24;
    constexpr double kSteps = 3 * kDashes - 1;  // a dash of two, and a gap of one
    constexpr double kAtOutline_m = 0.01;
    const auto at = [&](double steps) {
        return ShipPoint{from.y + (to.y - from.y) * steps / kSteps,
                         from.z + (to.z - from.z) * steps / kSteps};
    };
    for (int i = 0; i < kDashes; ++i) {
        const ShipPoint middle = at(3 * i + 1);
        const std::optional<Extent> across = AcrossAtHeight(pencil.drawn->outline, middle.z);
        if (!across || middle.y < across->from || middle.y > across->to + kAtOutline_m) continue;
        Line(pencil, pen, at(3 * i), at(3 * i + 2), side);
    }
}

void Area(Pencil& pencil, int32_t colour, const Outline& outline) {
    for (const int sign : {1, -1}) {
        if (sign < 0 && !pencil.isMirrored) break;
        if (!HasLinesLeft(pencil)) return;
        AddArea(pencil.figure, FigureLayer::kCompartment, colour, Moved(pencil, outline, sign));
    }
}

// A line along y at height z, or along z at y.
void LineAlong(Pencil& pencil, const FigurePen& pen, bool isVertical, double position,
               Extent along) {
    if (isVertical) {
        Line(pencil, pen, {position, along.from}, {position, along.to});
    } else {
        Line(pencil, pen, {along.from, position}, {along.to, position});
    }
}

// ---- Extents -----------------------------------------------------------------------------------

// Across the outline, or from one extremity to the other where they are given and inside of it.
std::optional<Extent> ExtentOf(const Pencil& pencil, bool isVertical, double position,
                               Extent given) {
    std::optional<Extent> extent = isVertical ? AcrossAtBreadth(pencil.drawn->outline, position)
                                              : AcrossAtHeight(pencil.drawn->outline, position);
    const bool isGiven = IsOfShip(given.from) && IsOfShip(given.to) && given.from < given.to;
    if (!extent || !isGiven) return extent;
    extent = {std::max(extent->from, given.from), std::min(extent->to, given.to)};
    if (extent->from >= extent->to) extent.reset();
    return extent;
}

std::optional<Extent> ExtentOf(const Pencil& pencil, const PrimaryStiffener& stiffener) {
    Extent given{0, 0};
    if (stiffener.hasExtremities) {
        given = {stiffener.lowerExtremity_m, stiffener.upperExtremity_m};
    }
    return ExtentOf(pencil, stiffener.direction != 0, stiffener.position_m, given);
}

std::optional<Extent> ExtentOf(const Pencil& pencil, const SecondaryStiffener& stiffener) {
    return ExtentOf(pencil, IsVertical(*pencil.drawn->bulkhead), stiffener.position_m,
                    {stiffener.lowerExtremity_m, stiffener.upperExtremity_m});
}

// ---- Stiffeners --------------------------------------------------------------------------------

void DrawPrimaryStiffeners(Pencil& pencil) {
    const FigurePen pen{FigureLayer::kStiffener, pencil.colours.girder, pencil.weight * kGirder_mm};
    for (const PrimaryStiffener& stiffener : pencil.drawn->bulkhead->primaryStiffeners) {
        const std::optional<Extent> extent = ExtentOf(pencil, stiffener);
        if (!extent) continue;
        LineAlong(pencil, pen, stiffener.direction != 0, stiffener.position_m, *extent);
    }
}

// A primary stiffener, and how far it reaches.
struct Support {
    double position;
    Extent extent;
};

// The primary stiffeners across the secondary ones.
std::vector<Support> SupportsOf(const Pencil& pencil) {
    const bool areVertical = !IsVertical(*pencil.drawn->bulkhead);
    std::vector<Support> supports;
    for (const PrimaryStiffener& stiffener : pencil.drawn->bulkhead->primaryStiffeners) {
        if ((stiffener.direction != 0) != areVertical) continue;
        const std::optional<Extent> extent = ExtentOf(pencil, stiffener);
        if (extent) supports.push_back({stiffener.position_m, *extent});
    }
    return supports;
}

// A slanting tick where a span ends.
void Tick(Pencil& pencil, const FigurePen& pen, double position, double along) {
    const double half = pencil.weight * kTick_mm / pencil.figure.mmPerMetre;
    const bool isVertical = IsVertical(*pencil.drawn->bulkhead);
    const ShipPoint at = isVertical ? ShipPoint{position, along} : ShipPoint{along, position};
    Line(pencil, pen, {at.y - half, at.z - half}, {at.y + half, at.z + half});
}

void DrawSecondaryStiffeners(Pencil& pencil) {
    const FigurePen pen{FigureLayer::kStiffener, pencil.colours.stiffener,
                        pencil.weight * kStiffener_mm};
    const bool isVertical = IsVertical(*pencil.drawn->bulkhead);
    const std::vector<Support> supports = SupportsOf(pencil);
    for (const SecondaryStiffener& stiffener : pencil.drawn->bulkhead->secondaryStiffeners) {
        if (pencil.lineCount == kMostLines) return;
        const std::optional<Extent> extent = ExtentOf(pencil, stiffener);
        if (!extent) continue;
        const double position = stiffener.position_m;
        LineAlong(pencil, pen, isVertical, position, *extent);
        Tick(pencil, pen, position, extent->from);
        Tick(pencil, pen, position, extent->to);
        for (const Support& support : supports) {
            if (position < support.extent.from || position > support.extent.to) continue;
            if (support.position <= extent->from || support.position >= extent->to) continue;
            Tick(pencil, pen, position, support.position);
        }
    }
}

// ---- Plates ------------------------------------------------------------------------------------

// A plate: between the edges of its neighbours.
struct Cell {
    ShipBox box;
    double thickness_mm;
};

// The positions of the lines that cross the plates, where a text would be hard to read.
struct Obstacles {
    std::vector<double> y, z;
};

Obstacles ObstaclesOf(const DrawnBulkhead& drawn) {
    const bool isVertical = IsVertical(*drawn.bulkhead);
    Obstacles obstacles;
    std::vector<double>& along = isVertical ? obstacles.y : obstacles.z;
    along = drawn.folds;
    for (const SecondaryStiffener& stiffener : drawn.bulkhead->secondaryStiffeners) {
        along.push_back(stiffener.position_m);
    }
    for (const PrimaryStiffener& stiffener : drawn.bulkhead->primaryStiffeners) {
        (stiffener.direction != 0 ? obstacles.y : obstacles.z).push_back(stiffener.position_m);
    }
    for (std::vector<double>* positions : {&obstacles.y, &obstacles.z}) {
        std::erase_if(*positions, [](double position) { return !IsOfShip(position); });
        std::ranges::sort(*positions);
    }
    return obstacles;
}

// The middle of a gap that has so much room, the one nearest to the extent's own middle.
std::optional<double> FreeMiddle(Extent extent, const std::vector<double>& obstacles,
                                 double room_m) {
    const double middle = (extent.from + extent.to) / 2;
    std::optional<double> best;
    const auto look = [&](double from, double to) {
        if (to - from < room_m) return;
        const double here = (from + to) / 2;
        if (!best || std::abs(here - middle) < std::abs(*best - middle)) best = here;
    };
    double from = extent.from;
    auto obstacle = std::ranges::upper_bound(obstacles, extent.from);
    for (; obstacle != obstacles.end() && *obstacle < extent.to; ++obstacle) {
        look(from, *obstacle);
        from = *obstacle;
    }
    look(from, extent.to);
    return best;
}

// The part of a plate that the figure's window shows.
ShipBox Visible(const Pencil& pencil, const ShipBox& box) {
    const SheetArea& window = pencil.figure.window;
    const ShipPoint& place = pencil.drawn->place;
    const ShipPoint lower = InShip(pencil.figure, {window.left, window.bottom});
    const ShipPoint upper = InShip(pencil.figure, {window.right, window.top});
    return {std::max(box.left, lower.y - place.y), std::max(box.bottom, lower.z - place.z),
            std::min(box.right, upper.y - place.y), std::min(box.top, upper.z - place.z)};
}

void WriteThickness(Pencil& pencil, const Cell& cell, const Obstacles& obstacles) {
    if (!IsOfShip(cell.thickness_mm) || !(cell.thickness_mm > 0)) return;
    const std::wstring text = GeneralText(static_cast<float>(cell.thickness_mm));
    const double width_m = (TextWidth(text, kThickness_mm) + 1) / pencil.figure.mmPerMetre;
    const double height_m = kLineFeed * kThickness_mm / pencil.figure.mmPerMetre;
    const ShipBox box = Visible(pencil, cell.box);
    const std::optional<double> y = FreeMiddle({box.left, box.right}, obstacles.y, width_m);
    const std::optional<double> z = FreeMiddle({box.bottom, box.top}, obstacles.z, height_m);
    if (!y || !z || !HasLinesLeft(pencil)) return;
    const ShipPoint at{*y + pencil.drawn->place.y, *z + pencil.drawn->place.z};
    AddText(pencil.figure, {pencil.colours.text, kThickness_mm, TextSide::kMiddle},
            OnSheet(pencil.figure, at), text);
}

// A plate's outer edge, unless that is the outline itself.
void DrawOuterEdge(Pencil& pencil, const FigurePen& pen, const Cell& cell) {
    constexpr double kAtOutline_m = 0.05;
    const double middle = (cell.box.bottom + cell.box.top) / 2;
    const std::optional<Extent> breadth = AcrossAtHeight(pencil.drawn->outline, middle);
    const std::optional<Extent> height = AcrossAtBreadth(pencil.drawn->outline, cell.box.right);
    if (!breadth || !height || cell.box.right > breadth->to - kAtOutline_m) return;
    const Extent edge{std::max(cell.box.bottom, height->from), std::min(cell.box.top, height->to)};
    if (edge.from < edge.to) LineAlong(pencil, pen, true, cell.box.right, edge);
}

// A plate's upper edge, unless it is at or above the top of the outline.
void DrawUpperEdge(Pencil& pencil, const FigurePen& pen, const Cell& cell) {
    constexpr double kAtOutline_m = 0.01;
    const ShipBox outline = BoxOf(pencil.drawn->outline);
    if (cell.box.top > outline.top - kAtOutline_m) return;
    const std::optional<Extent> breadth = AcrossAtHeight(pencil.drawn->outline, cell.box.top);
    if (!breadth) return;
    const Extent edge{std::max(cell.box.left, breadth->from),
                      std::min(cell.box.right, breadth->to)};
    if (edge.from < edge.to) LineAlong(pencil, pen, false, cell.box.top, edge);
}

// The plates of a band from the centre line outwards, above the plates of the bands below it.
std::vector<Cell> CellsOf(const DrawnBulkhead& drawn, const std::vector<BulkheadStrake>& band,
                          double& bottom) {
    std::vector<Cell> cells;
    const ShipBox outline = BoxOf(drawn.outline);
    double left = outline.left;
    double top = bottom;
    for (const BulkheadStrake& strake : band) {
        if (!IsOfShip(strake.y_m) || !IsOfShip(strake.z_m)) continue;
        if (strake.y_m > left && strake.z_m > bottom) {
            cells.push_back({{left, bottom, strake.y_m, strake.z_m}, strake.thickness_mm});
        }
        left = std::max<double>(left, strake.y_m);
        top = std::max<double>(top, strake.z_m);
    }
    // The last one reaches the outline, whose breadth at the band's upper edge it has.
    if (!cells.empty()) cells.back().box.right = std::max(cells.back().box.right, outline.right);
    bottom = top;
    return cells;
}

void DrawPlates(Pencil& pencil) {
    const FigurePen pen{FigureLayer::kPlate, pencil.colours.plateEdge, pencil.weight * kThin_mm};
    const Obstacles obstacles = ObstaclesOf(*pencil.drawn);
    double bottom = BoxOf(pencil.drawn->outline).bottom;
    for (const auto& [number, band] : pencil.drawn->bulkhead->bands) {
        for (Cell cell : CellsOf(*pencil.drawn, band, bottom)) {
            if (pencil.lineCount == kMostLines) return;
            DrawUpperEdge(pencil, pen, cell);
            DrawOuterEdge(pencil, pen, cell);
            const double middle = (cell.box.bottom + cell.box.top) / 2;
            const std::optional<Extent> breadth = AcrossAtHeight(pencil.drawn->outline, middle);
            if (!breadth) continue;
            cell.box.left = std::max(cell.box.left, breadth->from);
            cell.box.right = std::min(cell.box.right, breadth->to);
            WriteThickness(pencil, cell, obstacles);
        }
    }
}

// ---- Corrugations ------------------------------------------------------------------------------

void DrawFolds(Pencil& pencil) {
    const FigurePen pen{FigureLayer::kPlate, pencil.colours.plating, pencil.weight * kThin_mm};
    const bool isVertical = IsVertical(*pencil.drawn->bulkhead);
    for (const double fold : pencil.drawn->folds) {
        const std::optional<Extent> extent = ExtentOf(pencil, isVertical, fold, {0, 0});
        if (extent) LineAlong(pencil, pen, isVertical, fold, *extent);
    }
}

// The corrugations as they are cut, to scale.
void DrawProfile(Pencil& pencil) {
    const DrawnBulkhead& drawn = *pencil.drawn;
    if (drawn.halfDepth_m == 0) return;
    const bool isVertical = IsVertical(*drawn.bulkhead);
    const ShipBox outline = BoxOf(drawn.outline);
    const double end = isVertical ? outline.right : outline.top;
    std::vector<ShipPoint> profile;
    double offset = -drawn.halfDepth_m;
    const auto add = [&](double along) {
        const double across = drawn.profile_m + offset;
        profile.push_back(isVertical ? ShipPoint{along, across} : ShipPoint{across, along});
    };
    add(isVertical ? (pencil.isMirrored ? std::max(0.0, outline.left) : outline.left)
                   : outline.bottom);
    for (size_t i = 0; i + 1 < drawn.folds.size() && drawn.folds[i + 1] <= end; i += 2) {
        add(drawn.folds[i]);
        offset = -offset;
        add(drawn.folds[i + 1]);
    }
    add(end);
    // Beside the bulkhead there is one profile for both halves.
    Line(pencil, {FigureLayer::kPlate, pencil.colours.plating, pencil.weight * kPlating_mm},
         profile, isVertical ? Side::kBoth : Side::kDescribed);
}

// ---- Outline, stools and hoppers ---------------------------------------------------------------

// The sides of the outline, but not the one along the centre line where the other half continues.
void DrawOutline(Pencil& pencil) {
    const FigurePen pen{FigureLayer::kPlate, pencil.colours.plating, pencil.weight * kPlating_mm};
    const Outline& outline = pencil.drawn->outline;
    constexpr double kAtCentreLine_m = 0.001;
    const auto isInside = [&](const ShipPoint& point) {
        return pencil.isMirrored && std::abs(point.y) < kAtCentreLine_m;
    };
    std::vector<ShipPoint> line;
    for (size_t i = 0; i <= outline.size(); ++i) {
        const ShipPoint& corner = outline[i % outline.size()];
        if (!line.empty() && isInside(line.back()) && isInside(corner)) {
            Line(pencil, pen, line);
            line.clear();
        }
        line.push_back(corner);
    }
    Line(pencil, pen, line);
}

void DrawHoppers(Pencil& pencil) {
    const FigurePen pen{FigureLayer::kCompartment, pencil.colours.hopper,
                        pencil.weight * kStiffener_mm};
    for (const auto& [inner, outer] : pencil.layout.hoppers) {
        DashedLine(pencil, pen, inner, outer, Side::kBoth);
    }
}

// The line of each stool's end, on the area of the stool.
void DrawStools(Pencil& pencil) {
    const FigurePen pen{FigureLayer::kCompartment, pencil.colours.hopper,
                        pencil.weight * kPlating_mm};
    for (const Outline& stool : pencil.drawn->stools) Area(pencil, pencil.colours.stool, stool);
    for (const Stool& stool : pencil.drawn->bulkhead->stools.elements) {
        if (stool.enabled == 0) continue;
        const std::optional<Extent> extent = ExtentOf(pencil, false, stool.z_m, {0, 0});
        if (extent) LineAlong(pencil, pen, false, stool.z_m, *extent);
    }
}

void DrawCentreLine(Pencil& pencil) {
    if (!pencil.isMirrored) return;
    const ShipBox box = BoxOf(pencil.drawn->outline);
    DashedLine(pencil, {FigureLayer::kPlate, pencil.colours.centreLine, pencil.weight * kThin_mm},
               {0, box.bottom}, {0, box.top}, Side::kDescribed);
}

// ---- Texts below the bulkhead ------------------------------------------------------------------

std::wstring NameOf(const DrawnBulkhead& drawn) {
    if (!drawn.bulkhead->name.empty()) return drawn.bulkhead->name;
    return FormatMessage(kMsgUnnamedBulkhead, {static_cast<int32_t>(drawn.number)});
}

std::wstring OutlineText(const BulkheadLayout& layout, OutlineSource source) {
    if (source == OutlineSource::kNodes) return GetMessage(kMsgOutlineOfNodes);
    if (source == OutlineSource::kBreadthAndDepth) return GetMessage(kMsgOutlineOfShip);
    return FormatMessage(kMsgOutlineOfSection,
                         {layout.ship.sectionName, DecimalText(layout.ship.section_m, 1, 3)});
}

std::wstring CorrugationText(const DrawnBulkhead& drawn) {
    if (drawn.folds.empty()) return {};
    const Corrugation& corrugation = drawn.bulkhead->corrugation;
    return FormatMessage(kMsgCorrugation,
                         {corrugation.pitch_m, corrugation.flange_m, corrugation.depth_m});
}

void DrawTexts(Pencil& pencil) {
    const DrawnBulkhead& drawn = *pencil.drawn;
    const double room_mm = pencil.layout.slot_m * pencil.figure.mmPerMetre;
    const SheetArea& window = pencil.figure.window;
    const ShipPoint middle{(drawn.box.left + drawn.box.right) / 2 + drawn.place.y,
                           drawn.box.bottom + drawn.place.z};
    SheetPoint at = OnSheet(pencil.figure, middle);
    at.y += kAboveName_mm * pencil.letters;
    const auto write = [&](const std::wstring& text, double height_mm, int32_t colour) {
        const double height = height_mm * pencil.letters;
        at.y += kLineFeed / 2 * height;
        const bool isShown = height >= kLeastLetters_mm && IsInWindow(pencil.figure, at);
        const double beside = std::min(at.x - window.left, window.right - at.x);
        if (isShown) {
            AddText(pencil.figure, {colour, height, TextSide::kMiddle}, at,
                    FittingText(text, height, std::min(room_mm, 2 * beside)));
        }
        at.y += kLineFeed / 2 * height;
    };
    write(NameOf(drawn), kName_mm, pencil.colours.text);
    if (pencil.layout.lineCount < 2) return;
    write(OutlineText(pencil.layout, drawn.source), kRemark_mm, pencil.colours.hopper);
    if (pencil.layout.lineCount < 3) return;
    write(CorrugationText(drawn), kRemark_mm, pencil.colours.hopper);
}

// How many bulkheads are missing, below them all.
void DrawLeftOut(Figure& figure, const BulkheadLayout& layout, const BulkheadColours& colours) {
    if (layout.leftOutCount == 0) return;
    SheetPoint at = OnSheet(figure, {layout.extent.left, layout.extent.bottom});
    at.y += kRemark_mm / 2;
    if (!IsInWindow(figure, at)) return;
    AddText(figure, {colours.text, kRemark_mm}, at,
            FormatMessage(kMsgMoreNotShown, {static_cast<int32_t>(layout.leftOutCount)}));
}

template <class Has>
bool HasAny(const BulkheadLayout& layout, Has has) {
    return std::ranges::any_of(layout.bulkheads, has);
}

}  // namespace

void DrawBulkheads(Figure& figure, const BulkheadLayout& layout, const BulkheadColours& colours) {
    Pencil pencil{figure, colours, layout};
    if (layout.bulkheads.empty()) return;
    constexpr double kLeastWeight = 0.5;
    pencil.letters = std::min(1.0, layout.letters * figure.mmPerMetre / layout.mmPerMetre);
    pencil.weight = std::max(pencil.letters, kLeastWeight);
    pencil.isMirrored = IsMirrored(*layout.arrangement);
    for (const DrawnBulkhead& drawn : layout.bulkheads) {
        pencil.drawn = &drawn;
        DrawStools(pencil);
        DrawCentreLine(pencil);
        DrawPlates(pencil);
        DrawFolds(pencil);
        DrawSecondaryStiffeners(pencil);
        DrawPrimaryStiffeners(pencil);
        DrawHoppers(pencil);
        DrawOutline(pencil);
        DrawProfile(pencil);
        DrawTexts(pencil);
    }
    DrawLeftOut(figure, layout, colours);
}

std::vector<LegendLine> LegendOf(const BulkheadLayout& layout, const BulkheadColours& colours) {
    std::vector<LegendLine> lines;
    const auto add = [&](bool isThere, int32_t text, FigurePen pen,
                         FigureShape shape = FigureShape::kLine) {
        if (isThere) lines.push_back({shape, pen, GetMessage(text)});
    };
    const auto has = [&](auto member) {
        return HasAny(
            layout, [&](const DrawnBulkhead& drawn) { return !(drawn.bulkhead->*member).empty(); });
    };
    const auto areDrawn = [&](auto member) {
        return HasAny(layout, [&](const DrawnBulkhead& drawn) { return !(drawn.*member).empty(); });
    };
    const bool isDrawn = !layout.bulkheads.empty();
    const bool hasHopper = isDrawn && (layout.arrangement->aftHopper.breadth_m > 0 ||
                                       layout.arrangement->foreHopper.breadth_m > 0);
    add(isDrawn, kMsgLegendOutline, {FigureLayer::kPlate, colours.plating, kPlating_mm});
    add(has(&Bulkhead::bands), kMsgLegendPlateEdges,
        {FigureLayer::kPlate, colours.plateEdge, kThin_mm});
    add(areDrawn(&DrawnBulkhead::folds), kMsgLegendFolds,
        {FigureLayer::kPlate, colours.plating, kThin_mm});
    add(has(&Bulkhead::secondaryStiffeners), kMsgLegendStiffeners,
        {FigureLayer::kStiffener, colours.stiffener, kStiffener_mm});
    add(has(&Bulkhead::primaryStiffeners), kMsgLegendGirders,
        {FigureLayer::kStiffener, colours.girder, kGirder_mm});
    add(areDrawn(&DrawnBulkhead::stools), kMsgLegendStools,
        {FigureLayer::kCompartment, colours.stool, 0}, FigureShape::kArea);
    add(hasHopper, kMsgLegendHoppers, {FigureLayer::kCompartment, colours.hopper, kStiffener_mm});
    return lines;
}

}  // namespace corvane
