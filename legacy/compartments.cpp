#include "legacy/compartments.h"

#include <algorithm>
#include <cmath>

#include "legacy/fields.h"
#include "legacy/from_legacy.h"
#include "legacy/section_records.h"
#include "report/reporters.h"

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

LegacyCompartment ListCompartment(const Section& section, Compartment& compartment) {
    LegacyCompartment entry{};
    CopyCompartment(ToLegacy(), compartment, entry);
    for (const NodeReference node : compartment.outline) {
        const int16_t number = LegacyNumberOf(section, node);
        if (number == 0) continue;
        if (entry.nodeCount == kLegacyOutlineNodes) break;
        entry.nodes[entry.nodeCount++] = number;
    }
    entry.area_m2 = compartment.area_m2;
    entry.centreY = compartment.centreY_m;
    entry.centreZ = compartment.centreZ_m;
    return entry;
}

bool HasTooManyNodes(const Compartment& compartment) {
    return compartment.outline.size() > kLegacyOutlineNodes;
}

struct Point {
    double y, z;
};

std::vector<Point> OutlineOf(const Section& section, const Compartment& compartment) {
    std::vector<Point> points;
    for (const NodeReference reference : compartment.outline) {
        if (!NodeExists(section, reference)) continue;
        const Node& node = NodeAt(section, reference);
        if (node.computed != 0) points.push_back({node.y, node.z});
    }
    return points;
}

}  // namespace

void ComputeCompartment(const Section& section, Compartment& compartment) {
    const std::vector<Point> points = OutlineOf(section, compartment);
    double area = 0;
    Point moment{0, 0};
    for (size_t i = 0; i < points.size(); ++i) {
        const Point a = points[i];
        const Point b = points[(i + 1) % points.size()];
        const double part = (a.y * b.z - b.y * a.z) / 2;
        area += part;
        moment.y += part * (a.y + b.y) / 3;
        moment.z += part * (a.z + b.z) / 3;
    }
    const bool flat = area == 0 || !std::isfinite(area);
    compartment.area_m2 = flat ? 0 : HeldSingle(std::abs(area));
    compartment.centreY_m = flat ? 0 : HeldSingle(moment.y / area);
    compartment.centreZ_m = flat ? 0 : HeldSingle(moment.z / area);
}

CompartmentList ListCompartments(const LegacyExport& work) {
    CompartmentList list;
    for (Compartment& compartment : work.section.compartments) {
        LegacyCompartment entry = ListCompartment(work.geometry, compartment);
        entry.levelCount = HeldCount(compartment.levels.size());
        list.compartments.push_back(entry);
        for (FillingLevel& level : compartment.levels) {
            CopyLevel(ToLegacy(), level, list.levels.emplace_back());
        }
    }
    return list;
}

void FillCompLoad(const LegacyExport& work) {
    std::vector<Compartment>& compartments = work.section.compartments;
    LegacyCompLoad& legacy = work.record.compLoad;
    const size_t count = std::min<size_t>(compartments.size(), kLegacyCompartments);
    if (compartments.size() > count) {
        ReportMessage(kMsgTooManyCompartments, {int32_t{kLegacyCompartments}});
    }
    legacy.count = static_cast<int16_t>(count);
    for (size_t i = 0; i < count; ++i) {
        PutText(compartments[i].name, legacy.name[i], sizeof(legacy.name[i]));
        CopyLoads(ToLegacy(), compartments[i], legacy, i);
    }
    const auto end = compartments.begin() + static_cast<ptrdiff_t>(count);
    if (std::any_of(compartments.begin(), end, HasTooManyNodes)) {
        ReportMessage(kMsgTooManyOutlineNodes, {int32_t{kLegacyOutlineNodes}});
    }
}

void FillCompartments(const LegacyExport& work, const CompartmentList& list) {
    LegacyGeometry& legacy = work.record.geometry;
    Filling levels{legacy.levels, legacy.counts.levels, kMsgTooManyLevels};
    const size_t count = std::min<size_t>(list.compartments.size(), kLegacyCompartments);
    legacy.counts.compartments = static_cast<int16_t>(count);
    auto next = list.levels.begin();
    for (size_t i = 0; i < count; ++i) {
        LegacyCompartment& entry = legacy.compartments[i];
        entry = list.compartments[i];
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
