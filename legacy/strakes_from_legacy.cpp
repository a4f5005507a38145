#include "legacy/strakes_from_legacy.h"

#include <algorithm>

#include "database/section_view.h"
#include "legacy/fields.h"
#include "legacy/geometry.h"
#include "legacy/legacy_tables.h"
#include "legacy/node_kinds.h"
#include "legacy/strake_access.h"
#include "report/messages.h"

namespace corvane {
namespace {

Node ReadNode(LegacyGeometry& legacy, size_t g) {
    Node node{};
    node.kind = KindOfLegacy({legacy.nodeClass[g], legacy.nodeCode[g]});
    node.onStrake = legacy.nodeOnStrake[g];
    CopyNode(FromLegacy(), node, legacy, g);
    node.givenY = legacy.nodeY[g];
    node.givenZ = legacy.nodeZ[g];
    return node;
}

void ReadPanel(LegacyGeometry& legacy, int16_t strake, Panel& panel) {
    const auto i = static_cast<size_t>(strake - 1);
    panel.name = TextOf(legacy.strakeName[i], sizeof(legacy.strakeName[i]));
    CopyStrake(FromLegacy(), panel, legacy, i);
    const NodeRange range = NodesOf(legacy, strake);
    for (int16_t k = 0; k < range.count; ++k) {
        panel.nodes.push_back(ReadNode(legacy, static_cast<size_t>(range.first + k - 1)));
    }
}

// The nodes of a strake by their numbers in the legacy form: visit(node, g), g from 0.
template <class Visit>
void ForEachNode(const LegacyGeometry& legacy, SectionModel& section, Visit visit) {
    for (int16_t strake = 1; strake <= StrakesOf(legacy); ++strake) {
        const NodeRange range = NodesOf(legacy, strake);
        std::vector<Node>& nodes = section.panels[static_cast<size_t>(strake - 1)].nodes;
        for (int16_t k = 0; k < range.count; ++k) {
            visit(nodes[static_cast<size_t>(k)], static_cast<size_t>(range.first + k - 1));
        }
    }
}

void ReadCurves(const LegacyGeometry& legacy, SectionModel& section) {
    for (LegacyCurve curve : Used(legacy.curves, legacy.counts.curves)) {
        ForEachNode(legacy, section, [&](Node& node, size_t g) {
            if (curve.node == static_cast<int>(g) + 1) CopyCurve(FromLegacy(), node, curve);
        });
    }
    for (LegacyExtension line : Used(legacy.extensions, legacy.counts.extensions)) {
        ForEachNode(legacy, section, [&](Node& node, size_t g) {
            if (line.node == static_cast<int>(g) + 1) CopyExtension(FromLegacy(), node, line);
        });
    }
}

bool HasPoint(const LegacyGeometry& legacy, size_t g) {
    const int16_t point = legacy.nodePoint[g];
    return point >= 1 && point <= kLegacyPoints && legacy.pointUsed[point - 1] != 0;
}

// A node that is defined on nothing has the coordinates of the point that it defines.
void ReadPoints(const LegacyGeometry& legacy, SectionModel& section) {
    LibraryView view;
    MakeLibraryView(section, view);
    for (int16_t strake = 1; strake <= StrakesOf(legacy); ++strake) {
        const NodeRange range = NodesOf(legacy, strake);
        for (int16_t k = 1; k <= range.count; ++k) {
            const NodeReference self{strake, k};
            const auto g = static_cast<size_t>(range.first + k - 2);
            if (NodeAbsolute(view.section, self) == 0 || !HasPoint(legacy, g)) continue;
            Node& node = NodeAt(view.section, self);
            node.givenY = legacy.pointY[legacy.nodePoint[g] - 1];
            node.givenZ = legacy.pointZ[legacy.nodePoint[g] - 1];
        }
    }
}

}  // namespace

int16_t StrakesOf(const LegacyGeometry& legacy) {
    const auto present = Used(legacy.strakePresent, legacy.strakeCount);
    return static_cast<int16_t>(std::find(present.begin(), present.end(), 0) - present.begin());
}

NodeRange NodesOf(const LegacyGeometry& legacy, int16_t strake) {
    const auto i = static_cast<size_t>(strake - 1);
    const int first = std::clamp<int>(legacy.strakeFirstNode[i], 1, kLegacyNodes + 1);
    const int count = std::clamp<int>(legacy.strakeNodeCount[i], 0, kLegacyNodes + 1 - first);
    return {static_cast<int16_t>(first), static_cast<int16_t>(count)};
}

void ReadStrakes(const LegacyGeometry& legacy, SectionModel& section) {
    LegacyGeometry copy = legacy;
    for (int16_t strake = 1; strake <= StrakesOf(legacy); ++strake) {
        ReadPanel(copy, strake, section.panels.emplace_back());
    }
    ReadCurves(legacy, section);
    ReadPoints(legacy, section);
}

}  // namespace corvane
