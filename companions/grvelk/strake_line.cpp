#include "companions/grvelk/strake_line.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "companions/grvelk/arcs.h"

namespace corvane::grvelk {
namespace {

// An abscissa may miss the ends of a strake by this much [m]: single precision.
constexpr double kSlack_m = 0.001;

// A chord may leave its arc by this much [px].
constexpr double kSagitta_px = 0.2;

template <class Item>
std::span<const Item> Counted(const Item* items, int16_t count) {
    if (items == nullptr || count <= 0) return {};
    return {items, static_cast<size_t>(count)};
}

PlanePoint PlanePointOf(Point point) {
    return {point.y, point.z};
}

int ChordsOfArc(const StrakeItem& item, const Chords& chords) {
    const double radius_px = item.arcRadius * chords.pixelsPerMetre;
    if (!(radius_px > kSagitta_px)) return 1;
    const double step = 2 * std::acos(1 - kSagitta_px / radius_px);
    const double wanted = std::ceil(std::abs(double{item.sweep}) / step);
    if (!(wanted > 1)) return 1;
    return wanted < chords.most ? static_cast<int>(wanted) : chords.most;
}

}  // namespace

std::span<const Node> NodesIn(const Strake& strake) {
    return Counted(strake.nodes, strake.nodeCount);
}

std::span<const StrakeItem> ItemsIn(const Strake& strake) {
    return Counted(strake.items, strake.itemCount);
}

std::span<const Stiffener> StiffenersIn(const Strake& strake) {
    return Counted(strake.stiffeners, strake.stiffenerCount);
}

std::span<const float> PlateEndsIn(const Strake& strake) {
    return Counted(strake.plateEnds, strake.plateCount);
}

std::span<const Strake> StrakesIn(const Section& section) {
    return Counted(section.strakes, section.strakeCount);
}

std::span<const CompartmentOutline> CompartmentsIn(const Section& section) {
    return Counted(section.compartments, section.compartmentCount);
}

std::span<const NodeReference> OutlineIn(const CompartmentOutline& compartment) {
    return Counted(compartment.nodes, compartment.nodeCount);
}

void AppendItem(const StrakeItem& item, bool back, const Chords& chords,
                std::vector<PlanePoint>& points) {
    if (!IsComputed(item)) return;
    const int count = IsArc(item) ? ChordsOfArc(item, chords) : 1;
    Curve curve;
    if (count > 1 && MakeCurve(item, curve)) {
        for (int i = 1; i < count; ++i) {
            const double along = curve.length * i / count;
            points.push_back(PlanePointOf(PointAt(curve, back ? curve.length - along : along)));
        }
    }
    // The ends as they are, so that what meets there meets in one pixel.
    points.push_back(back ? PlanePoint{item.y1, item.z1} : PlanePoint{item.y2, item.z2});
}

bool FindSpot(const Strake& strake, double s, Spot& place) {
    const std::span<const StrakeItem> items = ItemsIn(strake);
    const auto begins = [](double abscissa, const StrakeItem& item) { return abscissa < item.s; };
    auto after = std::upper_bound(items.begin(), items.end(), s, begins);
    if (after == items.begin() && !items.empty()) ++after;
    while (after != items.begin() && !IsComputed(*(after - 1))) --after;
    if (after == items.begin()) return false;
    const StrakeItem& item = *(after - 1);
    const double along = s - item.s;
    if (!(along >= -kSlack_m && along <= item.length + kSlack_m)) return false;
    Curve curve;
    if (!MakeCurve(item, curve)) return false;
    place = {PlanePointOf(PointAt(curve, along)), PlanePointOf(DirectionAt(curve, along))};
    return true;
}

}  // namespace corvane::grvelk
