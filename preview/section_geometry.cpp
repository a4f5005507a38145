#include "preview/section_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace corvane {
namespace {

constexpr int kMostLinesOfArc = 1000;
constexpr size_t kMostCorners = 20000;
// An abscissa may be beyond the end of a strake by this much [m]: single precision.
constexpr double kSlack_m = 0.001;

template <class Item>
std::span<Item> Counted(Item* items, int16_t count) {
    if (items == nullptr || count <= 0) return {};
    return {items, static_cast<size_t>(count)};
}

// The item of a list with this number, from 1; null beyond its ends.
template <class Item>
const Item* ItemAt(std::span<Item> items, int number) {
    if (number < 1 || static_cast<size_t>(number) > items.size()) return nullptr;
    return &items[static_cast<size_t>(number) - 1];
}

std::span<const Node> NodesOf(const Strake& strake) {
    return Counted<const Node>(strake.nodes, strake.nodeCount);
}

bool IsComputed(const StrakeItem& item) {
    return item.length > 0;
}

bool IsArc(const StrakeItem& item) {
    return item.arcRadius > 0 && item.sweep != 0;
}

ShipPoint UnitVector(double angle) {
    return {std::cos(angle), std::sin(angle)};
}

// On an arc of at most half a circle, from its ends, as its centre may be very far off. Chords are
// to each other as the sines of half their sweeps, and leave the arc's chord by half of what is
// left of the sweep.
StrakeSpot SpotOnFlatArc(const StrakeItem& item, double part) {
    const ShipPoint chord{double{item.y2} - item.y1, double{item.z2} - item.z1};
    const double half = double{item.sweep} / 2;
    const double first = std::atan2(chord.z, chord.y) - half;  // direction at the start
    const double turned = half * part;
    const double length = std::hypot(chord.y, chord.z) * std::sin(turned) / std::sin(half);
    return {Moved({item.y1, item.z1}, UnitVector(first + turned), length),
            UnitVector(first + 2 * turned)};
}

// On a longer arc, from its centre, as its ends may be next to each other.
StrakeSpot SpotOnLongArc(const StrakeItem& item, double part) {
    const ShipPoint out = UnitVector(item.startAngle + double{item.sweep} * part);
    const double turn = item.sweep < 0 ? -1 : 1;
    return {Moved({item.centreY, item.centreZ}, out, item.arcRadius),
            {-out.z * turn, out.y * turn}};
}

StrakeSpot SpotOnLine(const StrakeItem& item, double part) {
    const ShipPoint along{double{item.y2} - item.y1, double{item.z2} - item.z1};
    const double length = std::hypot(along.y, along.z);
    return {Moved({item.y1, item.z1}, along, part), {along.y / length, along.z / length}};
}

// How many lines follow an item so closely; 1 or more, without a limit.
// A line over an angle a of a circle leaves it by R (1 - cos(a / 2)) = 2 R sin(a / 4)^2.
double LineCountOf(const StrakeItem& item, double off_m) {
    if (!IsArc(item) || !(item.arcRadius > off_m)) return 1;
    const double angle = 4 * std::asin(std::sqrt(off_m / (2 * double{item.arcRadius})));
    return std::max(1.0, std::ceil(std::abs(item.sweep) / angle));
}

// How far a place is outside of the circle and of its mirror image; below 0 inside.
double OutsideOf(const ArcLines& arcs, ShipPoint point) {
    const double y = std::abs(point.y) - std::abs(arcs.middle.y);
    return std::hypot(y, point.z - arcs.middle.z) - arcs.reach_m;
}

// The points between two parts of an arc's length, 0 to 1, in the order from the one to the other.
// A line is not quite as long as its place is outside of the circle: so neither it nor the arc
// reaches in.
void AppendWithin(const StrakeItem& item, double from, double to, const ArcLines& arcs,
                  std::vector<ShipPoint>& points) {
    constexpr double kNotQuite = 0.99;
    const double fine = 1 / LineCountOf(item, arcs.off_m);
    double done = 0;
    for (int i = 1; i < kMostLinesOfArc; ++i) {
        const double at = from + std::copysign(done, to - from);
        if (i > 1) points.push_back(SpotOn(item, at).at);
        const double free_m = kNotQuite * OutsideOf(arcs, SpotOn(item, at).at);
        done += std::max(fine, free_m / item.length);
        if (!(done < std::abs(to - from))) return;
    }
}

// The points between two parts of an item's length.
void AppendBetween(const StrakeItem& item, double from, double to, const ArcLines& arcs,
                   std::vector<ShipPoint>& points) {
    const double needed = LineCountOf(item, arcs.off_m);
    if (needed > kMostLinesOfArc && std::isfinite(arcs.reach_m)) {
        return AppendWithin(item, from, to, arcs, points);
    }
    const int count = static_cast<int>(std::min<double>(needed, kMostLinesOfArc));
    for (int i = 1; i < count; ++i) {
        points.push_back(SpotOn(item, from + (to - from) * i / count).at);
    }
}

// The points of an item, or those of its way back, without the first one. Its ends are as they are,
// so that what meets there meets in one point.
void AppendItem(const StrakeItem& item, bool back, const ArcLines& arcs,
                std::vector<ShipPoint>& points) {
    if (!IsComputed(item)) return;
    AppendBetween(item, back ? 1 : 0, back ? 0 : 1, arcs, points);
    points.push_back(back ? ShipPoint{item.y1, item.z1} : ShipPoint{item.y2, item.z2});
}

// Continues from a node to another one of the same strake, along it.
void AppendAlong(const Strake& strake, int from, int to, const ArcLines& arcs,
                 std::vector<ShipPoint>& corners) {
    const bool back = to < from;
    const int step = back ? -1 : 1;
    for (int node = from; node != to; node += step) {
        const StrakeItem* item = ItemAt(StrakeItemsOf(strake), back ? node - 1 : node);
        if (item != nullptr) AppendItem(*item, back, arcs, corners);
    }
}

void AppendNode(const Strake& strake, int number, std::vector<ShipPoint>& corners) {
    const Node* node = ItemAt(NodesOf(strake), number);
    if (node != nullptr && node->computed != 0) corners.push_back({node->y, node->z});
}

}  // namespace

void ComputeSection(Section& section) {
    const int32_t colours[kColourCount]{};
    DrawingParameters parameters{};
    parameters.colours = colours;
    QuickCompute(&section, &parameters);
}

void ComputeSection(SectionModel& model, LibraryView& view) {
    MakeLibraryView(model, view);
    ComputeSection(view.section);
}

ShipPoint Moved(ShipPoint point, ShipPoint direction, double length) {
    return {point.y + direction.y * length, point.z + direction.z * length};
}

std::span<const Strake> StrakesOf(const Section& section) {
    return Counted<const Strake>(section.strakes, section.strakeCount);
}

std::span<const StrakeItem> StrakeItemsOf(const Strake& strake) {
    return Counted<const StrakeItem>(strake.items, strake.itemCount);
}

std::span<const Stiffener> StiffenersOf(const Strake& strake) {
    return Counted<const Stiffener>(strake.stiffeners, strake.stiffenerCount);
}

std::span<const float> PlateEndsOf(const Strake& strake) {
    return Counted(strake.plateEnds, strake.plateCount);
}

std::span<const CompartmentOutline> CompartmentsOf(const Section& section) {
    return Counted(section.compartments, section.compartmentCount);
}

ArcLines ArcLinesIn(const Figure& figure) {
    constexpr double kOffArc_mm = 0.05;
    const SheetArea& window = figure.window;
    const double across = window.right - window.left;
    const double down = window.bottom - window.top;
    const SheetPoint middle{window.left + across / 2, window.top + down / 2};
    return {kOffArc_mm / figure.mmPerMetre, InShip(figure, middle),
            std::hypot(across, down) / 2 / figure.mmPerMetre};
}

std::vector<std::vector<ShipPoint>> LinesOf(const Strake& strake, const ArcLines& arcs) {
    std::vector<std::vector<ShipPoint>> lines;
    bool isOpen = false;
    for (const StrakeItem& item : StrakeItemsOf(strake)) {
        if (!isOpen && IsComputed(item)) lines.push_back({{item.y1, item.z1}});
        isOpen = IsComputed(item);
        if (isOpen) AppendItem(item, false, arcs, lines.back());
    }
    return lines;
}

std::vector<std::vector<ShipPoint>> LinesBetween(const Strake& strake, double from, double to,
                                                 const ArcLines& arcs) {
    std::vector<std::vector<ShipPoint>> lines;
    bool isOpen = false;
    for (const StrakeItem& item : StrakeItemsOf(strake)) {
        // Parts of the item's length, 0 to 1; those of an item that is not computed are no numbers.
        const double first = std::max(0.0, (from - item.s) / item.length);
        const double last = std::min(1.0, (to - item.s) / item.length);
        if (!IsComputed(item) || !(first < last)) {
            isOpen = false;
            continue;
        }
        if (!isOpen) lines.push_back({SpotOn(item, first).at});
        AppendBetween(item, first, last, arcs, lines.back());
        lines.back().push_back(SpotOn(item, last).at);
        isOpen = last == 1;
    }
    return lines;
}

std::vector<ShipPoint> CornersOf(const Section& section, const CompartmentOutline& outline,
                                 const ArcLines& arcs) {
    std::vector<ShipPoint> corners;
    NodeReference before{};
    for (const NodeReference& node : Counted(outline.nodes, outline.nodeCount)) {
        const Strake* strake = ItemAt(StrakesOf(section), node.strake);
        if (strake == nullptr) continue;
        if (corners.size() > kMostCorners) break;
        if (node.strake == before.strake) {
            AppendAlong(*strake, before.node, node.node, arcs, corners);
        } else {
            AppendNode(*strake, node.node, corners);
        }
        before = node;
    }
    return corners;
}

StrakeSpot SpotOn(const StrakeItem& item, double part) {
    if (!IsArc(item)) return SpotOnLine(item, part);
    const bool isFlat = std::abs(item.sweep) <= std::numbers::pi;
    return isFlat ? SpotOnFlatArc(item, part) : SpotOnLongArc(item, part);
}

bool FindSpot(const Strake& strake, double s, StrakeSpot& spot) {
    const std::span<const StrakeItem> items = StrakeItemsOf(strake);
    const auto beginsAfter = [](double abscissa, const StrakeItem& item) {
        return abscissa < item.s;
    };
    auto item = std::upper_bound(items.begin(), items.end(), s, beginsAfter);
    if (item == items.begin() && item != items.end()) ++item;  // just below 0
    do {
        if (item == items.begin()) return false;
        --item;
    } while (!IsComputed(*item));
    const double along = s - item->s;
    if (!(along >= -kSlack_m && along <= item->length + kSlack_m)) return false;
    spot = SpotOn(*item, std::clamp(along / item->length, 0.0, 1.0));
    return true;
}

}  // namespace corvane
