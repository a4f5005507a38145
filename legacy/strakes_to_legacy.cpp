// Strakes, nodes and points of a section in the legacy form.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "legacy/fields.h"
#include "legacy/node_kinds.h"
#include "legacy/section_records.h"
#include "legacy/to_legacy.h"
#include "report/reporters.h"

namespace corvane {
namespace {

struct StrakeFill {
    const LegacyExport& work;
    LegacyGeometry& legacy = work.record.geometry;
    int nodes = 0;
    int points = 0;
    Filling<LegacyCurve, kLegacyCurves> curves{legacy.curves, legacy.counts.curves,
                                               kMsgTooManyCurves};
};

bool HasRoom(int count, int limit) {
    if (count <= limit) return true;
    ReportMessage(kMsgLegacyGeometryFull, {int32_t{limit}});
    return false;
}

// Whether what the node is defined on exists.
bool HasBase(const Section& section, const Node& node) {
    switch (node.kind) {
        case kNodeOnStrake:
            return StrakeExists(section, node.onStrake);
        case kNodeOffset:
        case kNodeCoincident:
            return NodeExists(section, {node.onStrake, node.onNode});
        case kNodeIntersection:
            return StrakeExists(section, node.extensionStrake);
        default:
            return true;
    }
}

// Takes the line of an intersection over. False when there is no room for it.
bool FillExtension(StrakeFill& fill, Node& node) {
    int16_t& count = fill.legacy.counts.extensions;
    if (count == kLegacyExtensions) return false;
    LegacyExtension& entry = fill.legacy.extensions[count++];
    entry.node = static_cast<int16_t>(fill.nodes);
    CopyExtension(ToLegacy(), node, entry);
    return true;
}

// The node as the legacy form can hold it: one of another kind is given by its place.
Node HeldNode(StrakeFill& fill, NodeReference self) {
    Node node = NodeAt(fill.work.geometry, self);
    if (!HasBase(fill.work.geometry, node)) {
        ReportMessage(kMsgBaseNodeMissing, {int32_t{self.strake}, int32_t{self.node}});
    }
    const bool held =
        IsLegacyKind(node.kind) && (node.kind != kNodeIntersection || FillExtension(fill, node));
    if (held) return node;
    ReportMessage(kMsgNodeKindUnknown, {int32_t{self.strake}, int32_t{self.node}});
    node.kind = kNodeGiven;
    if (node.computed != 0) {
        node.givenY = node.y;
        node.givenZ = node.z;
    }
    return node;
}

void FillCurve(StrakeFill& fill, Node& node) {
    if (node.radius == 0 && node.tangentY == 0 && node.tangentZ == 0) return;
    LegacyCurve* curve = fill.curves.Next();
    if (curve == nullptr) return;
    curve->node = static_cast<int16_t>(fill.nodes);
    CopyCurve(ToLegacy(), node, *curve);
}

bool FillPoint(StrakeFill& fill, const Node& node) {
    // The last of the points is never used.
    if (!HasRoom(fill.points + 2, kLegacyPoints)) return false;
    const int p = fill.points++;
    fill.legacy.nodePoint[fill.nodes - 1] = static_cast<int16_t>(fill.points);
    fill.legacy.pointUsed[p] = 1;
    fill.legacy.pointY[p] = node.givenY;
    fill.legacy.pointZ[p] = node.givenZ;
    return true;
}

bool FillNode(StrakeFill& fill, NodeReference self) {
    if (!HasRoom(fill.nodes + 1, kLegacyNodes)) return false;
    const auto g = static_cast<size_t>(fill.nodes++);
    Node node = HeldNode(fill, self);
    const LegacyKind kind = LegacyKindOf(node.kind);
    LegacyGeometry& legacy = fill.legacy;
    legacy.nodeClass[g] = kind.nodeClass;
    legacy.nodeCode[g] = kind.code;
    legacy.nodeOnStrake[g] = HeldInt16(std::abs(int32_t{node.onStrake}));
    CopyNode(ToLegacy(), node, legacy, g);
    legacy.nodeY[g] = node.givenY;
    legacy.nodeZ[g] = node.givenZ;
    FillCurve(fill, node);
    return node.kind != kNodeGiven || FillPoint(fill, node);
}

bool FillStrake(StrakeFill& fill, int16_t number) {
    if (!HasRoom(number, kLegacyStrakes)) return false;
    const auto i = static_cast<size_t>(number - 1);
    Panel& panel = fill.work.section.panels[i];
    const Strake& strake = StrakeAt(fill.work.geometry, number);
    LegacyGeometry& legacy = fill.legacy;
    CopyStrake(ToLegacy(), panel, legacy, i);
    PutText(panel.name, legacy.strakeName[i], sizeof(legacy.strakeName[i]));
    legacy.strakeFirstNode[i] = static_cast<int16_t>(fill.nodes + 1);
    legacy.strakeNodeCount[i] = strake.nodeCount;
    legacy.strakeNumber[i] = number;
    legacy.strakePresent[i] = 1;
    for (int16_t node = 1; node <= strake.nodeCount; ++node) {
        if (!FillNode(fill, {number, node})) return false;
    }
    return true;
}

}  // namespace

void FillStrakes(const LegacyExport& work) {
    ReportStatus(kMsgConvertingNodes);
    StrakeFill fill{work};
    const int16_t count = work.geometry.strakeCount;
    fill.legacy.strakeCount = std::min<int16_t>(count, kLegacyStrakes);
    for (int16_t number = 1; number <= count; ++number) {
        if (!FillStrake(fill, number)) return;
    }
}

}  // namespace corvane
