#include "preview/annotations.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "preview/figure_text.h"
#include "preview/section_geometry.h"
#include "text/numbers.h"

namespace corvane {
namespace {

constexpr int32_t kBlack = 0x00202020;
constexpr int32_t kGrey = 0x00909090;
constexpr int32_t kPaper = 0x00FFFFFF;
constexpr int32_t kNumberColour = 0x00000080;
constexpr int32_t kNodeColour = 0x00606060;
constexpr int32_t kNameColour = 0x00804000;

constexpr double kThin_mm = 0.25;
constexpr double kThick_mm = 0.5;
constexpr double kLetters_mm = 2.6;
constexpr double kSmallLetters_mm = 2.1;
constexpr double kLine_mm = 3.6;  // from one line of text to the next
constexpr double kEdge_mm = 3;    // free along the edges of the window
constexpr double kRuler_mm = 5;   // breadth of a ruler
constexpr size_t kMostColours = 12;

void AddBox(Figure& figure, const SheetArea& area, int32_t colour) {
    const std::array corners{SheetPoint{area.left, area.top}, SheetPoint{area.right, area.top},
                             SheetPoint{area.right, area.bottom},
                             SheetPoint{area.left, area.bottom}};
    AddSheetArea(figure, FigureLayer::kText, colour, corners);
}

void AddSegment(Figure& figure, int32_t colour, double width_mm, SheetPoint from, SheetPoint to) {
    AddSheetLine(figure, {FigureLayer::kText, colour, width_mm}, std::array{from, to});
}

// ---- Scale bar and rulers ----------------------------------------------------------------------

// How far the ticks of the rulers are apart; 0 without a scale. As far as a number is wide.
double StepOf(const Figure& figure) {
    constexpr double kLeastStep_mm = 14;
    return RoundLength(2.5 * kLeastStep_mm / figure.mmPerMetre);
}

// That tell lengths of such a step apart.
int DecimalsFor(double step_m) {
    constexpr double kHair = 1e-9;
    return step_m > 0 && step_m < 1 ? static_cast<int>(std::ceil(-std::log10(step_m) - kHair)) : 0;
}

std::wstring MetresText(double length_m, double step_m) {
    constexpr int kUsual = 6;
    return DecimalText(length_m, 0, std::max(kUsual, DecimalsFor(step_m)));
}

// Of the ruler at the left edge: its numbers are beside one another with its ticks.
double UprightRuler_mm(const Figure& figure) {
    constexpr double kTick_mm = 2.5;
    const int decimals = DecimalsFor(StepOf(figure));
    double text_mm = 0;
    for (const double y : {figure.window.top, figure.window.bottom}) {
        const double z = InShip(figure, {0, y}).z;
        text_mm =
            std::max(text_mm, TextWidth(DecimalText(z, decimals, decimals), kSmallLetters_mm));
    }
    return std::max(2 * kRuler_mm, kTick_mm + text_mm);
}

// At the lower left, above the ruler.
void AddScaleBarBeside(Figure& figure, bool hasAxes) {
    const SheetArea& window = figure.window;
    const double length_m = RoundLength((window.right - window.left) / 4 / figure.mmPerMetre);
    const double length = length_m * figure.mmPerMetre;
    if (!(length > 0)) return;
    const double left = window.left + kEdge_mm + (hasAxes ? UprightRuler_mm(figure) : 0);
    const double y = window.bottom - kEdge_mm - (hasAxes ? kRuler_mm : 0);
    const std::wstring text = MetresText(length_m, length_m) + L" m";
    AddBox(figure, {left - 1, y - kLine_mm - 1, left + std::max(length, 8.0) + 1, y + 1}, kPaper);
    AddSegment(figure, kBlack, kThick_mm, {left, y}, {left + length, y});
    for (const double x : {left, left + length}) {
        AddSegment(figure, kBlack, kThick_mm, {x, y - 1.2}, {x, y});
    }
    AddText(figure, {kBlack, kLetters_mm}, {left, y - kLine_mm * 0.75}, text);
}

// One of the two rulers: where a length of the ship is along it, and how its ticks are drawn.
struct Ruler {
    double first_m, last_m, step_m;
    bool isUpright;
    double upright_mm;  // breadth of the one that is
};

void AddTick(Figure& figure, const Ruler& ruler, double value_m) {
    const SheetArea& window = figure.window;
    const std::wstring text = MetresText(value_m, ruler.step_m);
    if (ruler.isUpright) {
        const double y = OnSheet(figure, {0, value_m}).y;
        const double edge = window.left + ruler.upright_mm;
        if (y > window.bottom - kRuler_mm) return;
        AddSegment(figure, kBlack, kThin_mm, {edge - 1.2, y}, {edge, y});
        AddText(figure, {kBlack, kSmallLetters_mm, TextSide::kLeft}, {edge - 1.8, y}, text);
    } else {
        const double x = OnSheet(figure, {value_m, 0}).x;
        const double edge = window.bottom - kRuler_mm;
        if (x < window.left + ruler.upright_mm) return;
        AddSegment(figure, kBlack, kThin_mm, {x, edge}, {x, edge + 1.2});
        AddText(figure, {kBlack, kSmallLetters_mm, TextSide::kMiddle}, {x, edge + 3}, text);
    }
}

void AddTicks(Figure& figure, const Ruler& ruler) {
    const double step = ruler.step_m;
    if (!(step > 0)) return;
    for (double n = std::ceil(ruler.first_m / step); n * step <= ruler.last_m; ++n) {
        AddTick(figure, ruler, n * step + 0.0);
    }
}

// A line across the window where a coordinate is 0.
void AddZeroLines(Figure& figure) {
    const SheetPoint origin = OnSheet(figure, {0, 0});
    const SheetArea& window = figure.window;
    if (origin.x > window.left && origin.x < window.right) {
        AddSegment(figure, kGrey, kThin_mm, {origin.x, window.top}, {origin.x, window.bottom});
    }
    if (origin.y > window.top && origin.y < window.bottom) {
        AddSegment(figure, kGrey, kThin_mm, {window.left, origin.y}, {window.right, origin.y});
    }
}

void AddRulers(Figure& figure) {
    const SheetArea& window = figure.window;
    AddBox(figure, {window.left, window.bottom - kRuler_mm, window.right, window.bottom}, kPaper);
    const double upright_mm = UprightRuler_mm(figure);
    AddBox(figure, {window.left, window.top, window.left + upright_mm, window.bottom}, kPaper);
    const SheetPoint corner{window.left + upright_mm, window.bottom - kRuler_mm};
    AddSegment(figure, kBlack, kThin_mm, corner, {window.right, corner.y});
    AddSegment(figure, kBlack, kThin_mm, corner, {corner.x, window.top});
    const ShipPoint least = InShip(figure, {window.left, window.bottom});
    const ShipPoint most = InShip(figure, {window.right, window.top});
    const double step_m = StepOf(figure);
    AddTicks(figure, {least.y, most.y, step_m, false, upright_mm});
    AddTicks(figure, {least.z, most.z, step_m, true, upright_mm});
}

// ---- Names and numbers -------------------------------------------------------------------------

// Where names and numbers are already, in squares of the window.
struct TakenPlaces {
    SheetArea window;
    size_t columns, rows;
    std::vector<bool> squares;

    static constexpr double kSquare_mm = 0.7;
    static constexpr double kMostSquares = 5000;  // along one side

    explicit TakenPlaces(const SheetArea& of)
        : window(of),
          columns(CountOf(of.right - of.left)),
          rows(CountOf(of.bottom - of.top)),
          squares(columns * rows) {}

    static size_t CountOf(double length_mm) {
        return static_cast<size_t>(std::clamp(length_mm / kSquare_mm, 0.0, kMostSquares)) + 1;
    }
    static size_t SquareAt(double length_mm, size_t count) {
        return std::min(CountOf(length_mm) - 1, count - 1);
    }
    // False when a part of the area is taken already.
    bool Take(const SheetArea& area) {
        const size_t left = SquareAt(area.left - window.left, columns);
        const size_t right = SquareAt(area.right - window.left, columns);
        const size_t top = SquareAt(area.top - window.top, rows);
        const size_t bottom = SquareAt(area.bottom - window.top, rows);
        for (size_t row = top; row <= bottom; ++row) {
            for (size_t i = left; i <= right; ++i) {
                if (squares[row * columns + i]) return false;
            }
        }
        for (size_t row = top; row <= bottom; ++row) {
            std::fill_n(squares.begin() + static_cast<std::ptrdiff_t>(row * columns + left),
                        right - left + 1, true);
        }
        return true;
    }
};

// A place for a text: how far from its point on the sheet, and at which side of there.
struct LabelSpot {
    SheetPoint moved_mm;
    TextSide side;
};

SheetArea AreaOfText(SheetPoint at, const LabelSpot& spot, double letters_mm, double width_mm) {
    const double x = at.x + spot.moved_mm.x;
    const double y = at.y + spot.moved_mm.y;
    const double left = spot.side == TextSide::kRight    ? x
                        : spot.side == TextSide::kMiddle ? x - width_mm / 2
                                                         : x - width_mm;
    return {left, y - letters_mm / 2, left + width_mm, y + letters_mm / 2};
}

// At a point of the section, at the first of the spots that is free; left out where it would cover
// another text, until the picture is zoomed, and outside of the window.
void AddLabel(Figure& figure, TakenPlaces& taken, const FigureLetters& letters, ShipPoint point,
              std::span<const LabelSpot> spots, const std::wstring& text) {
    const SheetPoint at = OnSheet(figure, point);
    if (!IsInWindow(figure, at)) return;
    const double width_mm = TextWidth(text, letters.height_mm);
    for (const LabelSpot& spot : spots) {
        if (!taken.Take(AreaOfText(at, spot, letters.height_mm, width_mm))) continue;
        return AddText(figure, {letters.colour, letters.height_mm, spot.side},
                       {at.x + spot.moved_mm.x, at.y + spot.moved_mm.y}, text);
    }
}

void AddNodeNumbers(Figure& figure, TakenPlaces& taken, const Strake& strake) {
    constexpr LabelSpot kSpots[] = {{{0.8, -1.5}, TextSide::kRight},
                                    {{0.8, 1.5}, TextSide::kRight},
                                    {{-0.8, -1.5}, TextSide::kLeft},
                                    {{-0.8, 1.5}, TextSide::kLeft}};
    for (int i = 0; i < strake.nodeCount; ++i) {
        const Node& node = strake.nodes[i];
        if (node.computed == 0) continue;
        if (!IsInWindow(figure, OnSheet(figure, {node.y, node.z}))) continue;
        AddLabel(figure, taken, {kNodeColour, kSmallLetters_mm}, {node.y, node.z}, kSpots,
                 std::to_wstring(i + 1));
    }
}

// Beside the middle of the strake's line: above or below a flat one, at one side of a steep one.
void AddStrakeLabel(Figure& figure, TakenPlaces& taken, const Strake& strake, int32_t colour,
                    const std::wstring& text) {
    constexpr LabelSpot kFlat[] = {{{0, -2}, TextSide::kMiddle}, {{0, 2}, TextSide::kMiddle}};
    constexpr LabelSpot kSteep[] = {{{1.2, 0}, TextSide::kRight}, {{-1.2, 0}, TextSide::kLeft}};
    StrakeSpot middle{};
    if (text.empty() || !FindSpot(strake, double{strake.length} / 2, middle)) return;
    const bool isSteep = std::abs(middle.direction.z) > std::abs(middle.direction.y) / 2;
    AddLabel(figure, taken, {colour, kLetters_mm}, middle.at, isSteep ? kSteep : kFlat, text);
}

// The strake's number, its name, or both; then the numbers of the nodes, where there is room yet.
void AddNames(Figure& figure, const Section& section, const AnnotationTexts& texts,
              const PictureOptions& options) {
    TakenPlaces taken(figure.window);
    size_t index = 0;
    for (const Strake& strake : StrakesOf(section)) {
        const size_t at = index++;
        const bool hasName = options.hasPanelNames && at < texts.panelNames.size();
        const std::wstring name = hasName ? texts.panelNames[at] : L"";
        const std::wstring number = options.hasNumbers ? std::to_wstring(strake.number) : L"";
        std::wstring text = number;
        if (!name.empty() && !number.empty()) text += L' ';
        text += name;
        AddStrakeLabel(figure, taken, strake, name.empty() ? kNumberColour : kNameColour, text);
    }
    if (!options.hasNumbers) return;
    for (const Strake& strake : StrakesOf(section)) AddNodeNumbers(figure, taken, strake);
}

// ---- Thickness ---------------------------------------------------------------------------------

// From blue over green to red, 0 to 1.
int32_t ColourOf(double part) {
    const auto level = [](double value) {
        return static_cast<int32_t>(std::lround(255 * std::clamp(value, 0.0, 1.0)));
    };
    const int32_t red = level(2 * part - 0.6);
    const int32_t green = level(0.85 - std::abs(part - 0.5) * 1.7);
    const int32_t blue = level(1.4 - 2 * part);
    return red | green << 8 | blue << 16;
}

// Classes of thickness: each value its own, or equal parts of the range where there are too many.
struct ThicknessKey {
    std::vector<float> upTo;  // ascending

    size_t ClassOf(float thickness_mm) const {
        const auto found = std::ranges::lower_bound(upTo, thickness_mm);
        return found == upTo.end() ? upTo.size() - 1 : static_cast<size_t>(found - upTo.begin());
    }
    int32_t ColourOfClass(size_t number) const {
        if (upTo.size() < 2) return ColourOf(0);
        return ColourOf(static_cast<double>(number) / static_cast<double>(upTo.size() - 1));
    }
};

ThicknessKey KeyOf(const std::vector<PlateThickness>& plates) {
    ThicknessKey key;
    for (const PlateThickness& plate : plates) {
        if (std::isfinite(plate.thickness_mm)) key.upTo.push_back(plate.thickness_mm);
    }
    std::ranges::sort(key.upTo);
    const auto rest = std::ranges::unique(key.upTo);
    key.upTo.erase(rest.begin(), rest.end());
    if (key.upTo.size() <= kMostColours) return key;
    const float least = key.upTo.front();
    const float range = key.upTo.back() - least;
    key.upTo.clear();
    for (size_t i = 1; i <= kMostColours; ++i) {
        key.upTo.push_back(least + range * static_cast<float>(i) / kMostColours);
    }
    return key;
}

void AddPlates(Figure& figure, const Section& section, const AnnotationTexts& texts,
               const ThicknessKey& key) {
    const std::span<const Strake> strakes = StrakesOf(section);
    const ArcLines arcs = ArcLinesIn(figure);
    for (const PlateThickness& plate : texts.plates) {
        if (plate.strake < 1 || static_cast<size_t>(plate.strake) > strakes.size()) continue;
        if (!std::isfinite(plate.thickness_mm)) continue;
        const FigurePen pen{FigureLayer::kPlate, key.ColourOfClass(key.ClassOf(plate.thickness_mm)),
                            2 * kThick_mm};
        for (std::vector<ShipPoint>& line : LinesBetween(
                 strakes[static_cast<size_t>(plate.strake) - 1], plate.from_m, plate.to_m, arcs)) {
            AddLine(figure, pen, line);
            if (section.symmetryMode != 1) continue;
            for (ShipPoint& point : line) point.y = -point.y;
            AddLine(figure, pen, line);
        }
    }
}

// ---- Legend and key ----------------------------------------------------------------------------

// A box of lines at the right edge, from `top` on; each line is a sample and its text.
struct KeyBox {
    Figure& figure;
    double left, top;

    static constexpr double kSample_mm = 7;

    SheetPoint Sample(double part) const { return {left + part * kSample_mm, top + kLine_mm / 2}; }
    void EndLine(const std::wstring& text) {
        AddText(figure, {kBlack, kLetters_mm}, {left + kSample_mm + 1.5, top + kLine_mm / 2}, text);
        top += kLine_mm;
    }
};

KeyBox OpenKeyBox(Figure& figure, const std::vector<std::wstring>& lines, bool isBelow) {
    double width = 0;
    for (const std::wstring& line : lines) width = std::max(width, TextWidth(line, kLetters_mm));
    width += KeyBox::kSample_mm + 3;
    const double height = kLine_mm * static_cast<double>(lines.size());
    const SheetArea& window = figure.window;
    const double top =
        isBelow ? window.bottom - kEdge_mm - kRuler_mm - height : window.top + kEdge_mm;
    const double left = window.right - kEdge_mm - width;
    AddBox(figure, {left - 1, top - 1, left + width + 1, top + height + 1}, kPaper);
    return {figure, left, top};
}

void AddSectionLegend(Figure& figure, const AnnotationTexts& texts) {
    KeyBox box = OpenKeyBox(
        figure, {texts.plate, texts.stiffener, texts.plateEnd, texts.compartment}, false);
    AddSegment(figure, 0x00FF0000, kThick_mm, box.Sample(0), box.Sample(1));
    box.EndLine(texts.plate);
    const SheetPoint foot = box.Sample(0.5);
    const SheetPoint web{foot.x, foot.y + 1};
    AddSegment(figure, 0x00008000, kThin_mm, web, {web.x, web.y - 2});
    AddSegment(figure, 0x00008000, kThin_mm, {web.x - 1, web.y - 2}, {web.x + 1, web.y - 2});
    box.EndLine(texts.stiffener);
    const SheetPoint tick = box.Sample(0.5);
    AddSegment(figure, kNumberColour, kThin_mm, {tick.x, tick.y - 1}, {tick.x, tick.y + 1});
    box.EndLine(texts.plateEnd);
    const SheetPoint from = box.Sample(0);
    const SheetPoint to = box.Sample(1);
    AddBox(figure, {from.x, from.y - 1.2, to.x, to.y + 1.2}, 0x00F0F0F0);
    box.EndLine(texts.compartment);
}

void AddThicknessKey(Figure& figure, const ThicknessKey& key) {
    std::vector<std::wstring> lines;
    lines.reserve(key.upTo.size());
    for (const float thickness_mm : key.upTo) {
        lines.push_back(DecimalText(double{thickness_mm}, 0, 2) + L" mm");
    }
    KeyBox box = OpenKeyBox(figure, lines, true);
    for (size_t i = 0; i < lines.size(); ++i) {
        AddSegment(figure, key.ColourOfClass(i), 2 * kThick_mm, box.Sample(0), box.Sample(1));
        box.EndLine(lines[i]);
    }
}

}  // namespace

void AddLegend(Figure& figure, const std::vector<LegendLine>& lines) {
    if (lines.empty()) return;
    std::vector<std::wstring> words;
    words.reserve(lines.size());
    for (const LegendLine& line : lines) words.push_back(line.text);
    KeyBox box = OpenKeyBox(figure, words, false);
    for (const LegendLine& line : lines) {
        const SheetPoint from = box.Sample(0);
        const SheetPoint to = box.Sample(1);
        if (line.shape == FigureShape::kArea) {
            AddBox(figure, {from.x, from.y - 1.2, to.x, to.y + 1.2}, line.pen.colour);
        } else {
            AddSegment(figure, line.pen.colour, line.pen.width_mm, from, to);
        }
        box.EndLine(line.text);
    }
}

void AddScaleBar(Figure& figure) {
    AddScaleBarBeside(figure, false);
}

double RoundLength(double most) {
    if (!(most > 0) || !std::isfinite(most)) return 0;
    // A power of ten may be a hair larger than its number.
    constexpr double kHair = 1 + 1e-12;
    const double power = std::pow(10, std::floor(std::log10(most)));
    for (const double factor : {5.0, 2.0}) {
        if (factor * power <= most * kHair) return factor * power;
    }
    return power;
}

void AddAnnotations(Figure& figure, const Section& section, const AnnotationTexts& texts,
                    const PictureOptions& options) {
    const ThicknessKey key = KeyOf(texts.plates);
    if (options.hasAxes) AddZeroLines(figure);
    if (options.hasThickness && !key.upTo.empty()) AddPlates(figure, section, texts, key);
    if (options.hasPanelNames || options.hasNumbers) AddNames(figure, section, texts, options);
    if (options.hasAxes) AddRulers(figure);
    if (options.hasScaleBar) AddScaleBarBeside(figure, options.hasAxes);
    if (options.hasLegend) AddSectionLegend(figure, texts);
    if (options.hasThickness && !key.upTo.empty()) AddThicknessKey(figure, key);
}

}  // namespace corvane
