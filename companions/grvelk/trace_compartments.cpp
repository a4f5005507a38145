// Areas of compartments, along the curved plating around them.
#include <cstddef>
#include <utility>

#include "companions/grvelk/sketch.h"

namespace corvane::grvelk {
namespace {

// An outline of more corners is not an outline: it is cut short.
constexpr size_t kMostCorners = 20000;

// Continues to a node that is on the same strake as the one before, along the strake.
void AppendAlong(const Sketch& sketch, const Strake& strake, NodeReference from, NodeReference to,
                 std::vector<Point>& corners) {
    const bool back = to.node < from.node;
    const int first = back ? from.node - 1 : from.node;
    const int last = back ? to.node : to.node - 1;
    for (int item = first; back ? item >= last : item <= last; item += back ? -1 : 1) {
        const StrakeItem* record = ItemOf(strake, item);
        if (record != nullptr) AppendItem(*record, back, sketch.chords, corners);
    }
}

void AppendNode(const Strake& strake, NodeReference reference, std::vector<Point>& corners) {
    const Node* node = NodeOf(strake, reference.node);
    if (node != nullptr && node->computed != 0) corners.push_back({node->y, node->z});
}

std::vector<Point> Corners(const Sketch& sketch, const CompartmentOutline& compartment) {
    std::vector<Point> corners;
    NodeReference before{};
    for (const NodeReference reference : OutlineIn(compartment)) {
        const Strake* strake =
            StrakeOf(sketch.section.strakes, sketch.section.strakeCount, reference.strake);
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
        const std::vector<Point> corners = Corners(sketch, compartment);
        ForEachSide(sketch, [&](double side) {
            std::vector<FramePoint> mapped;
            mapped.reserve(corners.size());
            for (const Point& corner : corners) {
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
