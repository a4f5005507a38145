#include "legacy/compartments.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "legacy/fields.h"
#include "legacy/legacy_tables.h"
#include "legacy/strake_access.h"
#include "legacy/strakes_from_legacy.h"

namespace corvane {
namespace {

// The number of a node in the legacy form; 0 when it does not exist or has none.
int16_t LegacyNumberOf(const Section& section, NodeReference node) {
    if (!NodeExists(section, node)) return 0;
    int number = node.node;
    for (int strake = 1; strake < node.strake; ++strake) {
        number += StrakeAt(section, strake).nodeCount;
    }
    return static_cast<int16_t>(number <= kLegacyNodes ? number : 0);
}

LegacyCompartment ListCompartment(const LegacyExport& work, Compartment& compartment) {
    LegacyCompartment entry{};
    CopyCompartment(ToLegacy{work.cut}, compartment, entry);
    for (const NodeReference node : compartment.outline) {
        const int16_t number = LegacyNumberOf(work.geometry, node);
        if (number == 0) continue;
        if (entry.nodeCount == kLegacyOutlineNodes) break;
        entry.nodes[entry.nodeCount++] = number;
    }
    entry.area_m2 = compartment.area_m2;
    entry.centreY = compartment.centreY_m;
    entry.centreZ = compartment.centreZ_m;
    return entry;
}

// How many nodes the strakes have in the legacy form.
int CountNodes(const LegacyGeometry& legacy) {
    return std::accumulate(std::begin(legacy.strakeNodeCount), std::end(legacy.strakeNodeCount), 0);
}

// Nodes that had no room, the last ones, go out of the outline.
void KeepNodesThatAreThere(LegacyCompartment& entry, int nodes) {
    int16_t* const end = entry.nodes + entry.nodeCount;
    int16_t* const kept =
        std::remove_if(entry.nodes, end, [nodes](int16_t number) { return number > nodes; });
    std::fill(kept, end, int16_t{0});
    entry.nodeCount = static_cast<int16_t>(kept - entry.nodes);
}

bool HasTooManyNodes(const Compartment& compartment) {
    return compartment.outline.size() > kLegacyOutlineNodes;
}

struct Point {
    double y, z;
};

// A corner of an outline, and by how much the way to the next one turns [rad], a left turn
// positive; 0 for a straight way.
struct Corner {
    Point at;
    double sweep;
};

void AppendNode(const Node& node, std::vector<Corner>& corners) {
    if (node.computed != 0) corners.push_back({{node.y, node.z}, 0});
}

// Goes on to another node of the strake on which the last corner is, along its plating.
void AppendAlong(const Strake& strake, int from, int to, std::vector<Corner>& corners) {
    const int step = to < from ? -1 : 1;
    for (int node = from; node != to; node += step) {
        const int item = (step > 0 ? node : node - 1) - 1;
        const bool isLine = item < ItemsOf(strake) && strake.items[item].length > 0;
        if (isLine) corners.back().sweep = step * double{strake.items[item].sweep};
        AppendNode(strake.nodes[node - 1 + step], corners);
    }
}

// An outline of more corners is not an outline: it is cut short.
constexpr size_t kMostCorners = 20000;

// The corners of a compartment: from node to node straight, but along the plating where two nodes
// that follow one another are on one strake. From the last node back to the first it is straight.
std::vector<Corner> OutlineOf(const Section& section, const Compartment& compartment) {
    std::vector<Corner> corners;
    NodeReference before{};
    for (const NodeReference reference : compartment.outline) {
        if (corners.size() > kMostCorners) break;
        if (!NodeExists(section, reference) || NodeAt(section, reference).computed == 0) continue;
        if (reference.strake == before.strake) {
            AppendAlong(StrakeAt(section, reference.strake), before.node, reference.node, corners);
        } else {
            AppendNode(NodeAt(section, reference), corners);
        }
        before = reference;
    }
    return corners;
}

// An area, positive where the outline runs anticlockwise, and its first moments.
struct Part {
    double area;
    Point moment;
};

// The triangle of the origin and the straight way between two corners.
Part Triangle(Point a, Point b) {
    const double area = (a.y * b.z - b.y * a.z) / 2;
    return {area, {area * (a.y + b.y) / 3, area * (a.z + b.z) / 3}};
}

// What an arc has beyond its chord c: a circular segment. With h half the sweep its area is
// c^2 (2h - sin 2h) / (8 sin^2 h), and its centre is c (2 sin^2 h / 3 / (2h - sin 2h) - cot h / 2)
// from the middle of the chord. For small h both are those of a parabola: c^2 h / 6 and c h / 10.
Part Segment(Point a, Point b, double sweep) {
    constexpr double kParabolaBelow = 0.01;
    const double h = sweep / 2;
    const Point chord{b.y - a.y, b.z - a.z};
    double area = h / 6;
    double beside = h / 10;
    if (std::abs(h) >= kParabolaBelow) {
        const double excess = 2 * h - std::sin(2 * h);
        const double square = std::sin(h) * std::sin(h);
        area = excess / (8 * square);
        beside = 2 * square / (3 * excess) - 1 / (2 * std::tan(h));
    }
    area *= chord.y * chord.y + chord.z * chord.z;
    // A left turn bends to the right of its chord.
    const Point centre{(a.y + b.y) / 2 + beside * chord.z, (a.z + b.z) / 2 - beside * chord.y};
    return {area, {area * centre.y, area * centre.z}};
}

void Add(Part& sum, const Part& part) {
    sum.area += part.area;
    sum.moment.y += part.moment.y;
    sum.moment.z += part.moment.z;
}

}  // namespace

void ComputeCompartment(const Section& section, Compartment& compartment) {
    const std::vector<Corner> corners = OutlineOf(section, compartment);
    Part sum{};
    for (size_t i = 0; i < corners.size(); ++i) {
        const Point a = corners[i].at;
        const Point b = corners[(i + 1) % corners.size()].at;
        Add(sum, Triangle(a, b));
        if (corners[i].sweep != 0) Add(sum, Segment(a, b, corners[i].sweep));
    }
    const bool flat = sum.area == 0 || !std::isfinite(sum.area);
    compartment.area_m2 = flat ? 0 : ClampToSingle(std::abs(sum.area));
    compartment.centreY_m = flat ? 0 : ClampToSingle(sum.moment.y / sum.area);
    compartment.centreZ_m = flat ? 0 : ClampToSingle(sum.moment.z / sum.area);
}

CompartmentList ListCompartments(const LegacyExport& work) {
    CompartmentList list;
    for (Compartment& compartment : work.section.compartments) {
        LegacyCompartment entry = ListCompartment(work, compartment);
        entry.levelCount = ClampToCount(compartment.levels.size());
        list.compartments.push_back(entry);
        for (FillingLevel& level : compartment.levels) {
            CopyLevel(ToLegacy{work.cut}, level, list.levels.emplace_back());
        }
    }
    return list;
}

void FillCompLoad(const LegacyExport& work) {
    std::vector<Compartment>& compartments = work.section.compartments;
    LegacyCompLoad& legacy = work.record.compLoad;
    const size_t count = std::min<size_t>(compartments.size(), kLegacyCompartments);
    if (compartments.size() > count) {
        NoteLimit(work.limits, kMsgTooManyCompartments, kLegacyCompartments);
    }
    legacy.count = static_cast<int16_t>(count);
    for (size_t i = 0; i < count; ++i) {
        PutText(compartments[i].name, {legacy.name[i], sizeof(legacy.name[i])}, work.losses);
        CopyLoads(ToLegacy{work.cut}, compartments[i], legacy, i);
    }
    const auto end = compartments.begin() + static_cast<ptrdiff_t>(count);
    if (std::any_of(compartments.begin(), end, HasTooManyNodes)) {
        NoteLimit(work.limits, kMsgTooManyOutlineNodes, kLegacyOutlineNodes);
    }
}

void FillCompartments(const LegacyExport& work, const CompartmentList& list) {
    LegacyGeometry& legacy = work.record.geometry;
    Filling levels{legacy.levels, legacy.counts.levels, kMsgTooManyLevels, work.limits};
    const size_t count = std::min<size_t>(list.compartments.size(), kLegacyCompartments);
    legacy.counts.compartments = static_cast<int16_t>(count);
    const int nodes = CountNodes(legacy);
    auto next = list.levels.begin();
    for (size_t i = 0; i < count; ++i) {
        LegacyCompartment& entry = legacy.compartments[i];
        entry = list.compartments[i];
        KeepNodesThatAreThere(entry, nodes);
        entry.levelCount = 0;
        for (int16_t k = 0; k < list.compartments[i].levelCount; ++k, ++next) {
            LegacyLevel* level = levels.Next();
            if (level == nullptr) continue;
            *level = *next;
            ++entry.levelCount;
        }
    }
}

NodeNumbering NumberNodes(const LegacyGeometry& legacy) {
    NodeNumbering numbering(kLegacyNodes);
    for (int16_t strake = 1; strake <= StrakesOf(legacy); ++strake) {
        const NodeRange range = NodesOf(legacy, strake);
        for (int16_t i = 0; i < range.count; ++i) {
            numbering[static_cast<size_t>(range.first + i - 1)] = {strake,
                                                                   static_cast<int16_t>(i + 1)};
        }
    }
    return numbering;
}

void ReadCompartments(const LegacySectionRecord& record, SectionModel& section) {
    const LegacyGeometry& legacy = record.geometry;
    LegacyCompLoad loads = record.compLoad;
    const NodeNumbering numbering = NumberNodes(legacy);
    const std::span<const LegacyLevel> levels = Used(legacy.levels, legacy.counts.levels);
    size_t nextLevel = 0;
    size_t i = 0;
    for (LegacyCompartment entry : Used(legacy.compartments, legacy.counts.compartments)) {
        Compartment& compartment = section.compartments.emplace_back();
        compartment.name = TextOf(loads.name[i], sizeof(loads.name[i]));
        CopyCompartment(FromLegacy(), compartment, entry);
        CopyLoads(FromLegacy(), compartment, loads, i++);
        for (const int16_t number : Used(entry.nodes, entry.nodeCount)) {
            if (number < 1 || number > kLegacyNodes) continue;
            const NodeReference node = numbering[static_cast<size_t>(number - 1)];
            if (node.node != 0) compartment.outline.push_back(node);
        }
        for (int16_t k = 0; k < entry.levelCount && nextLevel < levels.size(); ++k) {
            LegacyLevel level = levels[nextLevel++];
            CopyLevel(FromLegacy(), compartment.levels.emplace_back(), level);
        }
    }
}

}  // namespace corvane
