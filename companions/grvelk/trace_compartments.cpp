// Areas of compartments, along the curved plating around them.
#include <cstddef>
#include <utility>

#include "companions/grvelk/sketch.h"

namespace corvane::grvelk {
namespace {

// An outline of more corners is not an outline: it is cut short.
constexpr size_t kMostCorners = 20000;

const Strake* StrakeAt(const Section& section, int16_t number) {
    const std::span<const Strake> strakes = StrakesIn(section);
    if (number < 1 || static_cast<size_t>(number) > strakes.size()) return nullptr;
    return &strakes[static_cast<size_t>(number) - 1];
}

// Continues to a node that is on the same strake as the one before, along the strake.
void AppendAlong(const Sketch& sketch, const Strake& strake, NodeReference from, NodeReference to,
                 std::vector<PlanePoint>& corners) {
    const std::span<const StrakeItem> items = ItemsIn(strake);
    const bool back = to.node < from.node;
    const int first = back ? from.node - 1 : from.node;
    const int last = back ? to.node : to.node - 1;
    for (int item = first; back ? item >= last : item <= last; item += back ? -1 : 1) {
        if (item < 1 || static_cast<size_t>(item) > items.size()) continue;
        AppendItem(items[static_cast<size_t>(item) - 1], back, sketch.chords, corners);
    }
}

void AppendNode(const Strake& strake, NodeReference reference, std::vector<PlanePoint>& corners) {
    const std::span<const Node> nodes = NodesIn(strake);
    if (reference.node < 1 || static_cast<size_t>(reference.node) > nodes.size()) return;
    const Node& node = nodes[static_cast<size_t>(reference.node) - 1];
    if (node.computed != 0) corners.push_back({node.y, node.z});
}

std::vector<PlanePoint> Corners(const Sketch& sketch, const CompartmentOutline& compartment) {
    std::vector<PlanePoint> corners;
    NodeReference before{};
    for (const NodeReference reference : OutlineIn(compartment)) {
        const Strake* strake = StrakeAt(sketch.section, reference.strake);
        if (corners.size() > kMostCorners) break;
        if (strake == nullptr) continue;
        if (before.strake == reference.strake) {
            AppendAlong(sketch, *strake, before, reference, corners);
        } else {
            AppendNode(*strake, reference, corners);
        }
        before = reference;
    }
    return corners;
}

}  // namespace

void FillCompartments(const Sketch& sketch) {
    for (const CompartmentOutline& compartment : CompartmentsIn(sketch.section)) {
        const std::vector<PlanePoint> corners = Corners(sketch, compartment);
        ForEachSide(sketch, [&](double side) {
            std::vector<FramePoint> mapped;
            mapped.reserve(corners.size());
            for (const PlanePoint& corner : corners) {
                mapped.push_back(MappedSide(sketch, side, corner));
            }
            const std::vector<Pixel> area = ClippedArea(sketch.mapping, std::move(mapped));
            if (area.empty()) return;
            sketch.drawing.fill(sketch.drawing.context, area.data(), area.size(),
                                ColourOf(sketch, kColourCompartment));
        });
    }
}

}  // namespace corvane::grvelk
