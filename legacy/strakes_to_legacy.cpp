#include "legacy/strakes_to_legacy.h"

#include <cmath>
#include <cstdlib>

#include "legacy/legacy_tables.h"
#include "legacy/node_kinds.h"
#include "legacy/strake_access.h"
#include "report/reporters.h"

namespace corvane {
namespace {

struct StrakeFill {
    const LegacyExport& work;
    LegacyGeometry& legacy = work.record.geometry;
    int nodes = 0;
    int points = 0;
    Filling<LegacyCurve, kLegacyCurves> curves{legacy.curves, legacy.counts.curves,
                                               kMsgTooManyCurves, work.limits};
    Filling<LegacyExtension, kLegacyExtensions> extensions{
        legacy.extensions, legacy.counts.extensions, kMsgTooManyIntersections, work.limits};
};

// Whether the legacy form holds that many; noted when not.
bool HasRoom(const StrakeFill& fill, int count, int limit) {
    if (count <= limit) return true;
    NoteLimit(fill.work.limits, kMsgLegacyGeometryFull, limit);
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

// Copies the line of an intersection. False when there is no room for it.
bool FillExtension(StrakeFill& fill, Node& node) {
    LegacyExtension* entry = fill.extensions.Next();
    if (entry == nullptr) return false;
    entry->node = static_cast<int16_t>(fill.nodes);
    CopyExtension(ToLegacy{fill.work.cut}, node, *entry);
    return true;
}

// Whether the node is in the legacy form as it is defined.
bool IsHeld(StrakeFill& fill, NodeReference self, Node& node) {
    if (node.kind == kNodeIntersection) return FillExtension(fill, node);
    if (IsLegacyKind(node.kind)) return true;
    NoteLoss(fill.work.losses, kMsgNodeKindUnknown, {int32_t{self.strake}, int32_t{self.node}});
    return false;
}

// The node as the legacy form can hold it: any other is given by its place.
Node NodeForLegacy(StrakeFill& fill, NodeReference self) {
    Node node = NodeAt(fill.work.geometry, self);
    if (!HasBase(fill.work.geometry, node)) {
        NoteLoss(fill.work.losses, kMsgBaseNodeMissing, {int32_t{self.strake}, int32_t{self.node}});
    }
    if (IsHeld(fill, self, node)) return node;
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
    CopyCurve(ToLegacy{fill.work.cut}, node, *curve);
}

void FillPoint(StrakeFill& fill, const Node& node) {
    const int p = fill.points++;
    fill.legacy.nodePoint[fill.nodes - 1] = static_cast<int16_t>(fill.points);
    fill.legacy.pointUsed[p] = 1;
    fill.legacy.pointY[p] = node.givenY;
    fill.legacy.pointZ[p] = node.givenZ;
}

// False, and the node is left out, when it has no room.
bool FillNode(StrakeFill& fill, NodeReference self) {
    if (!HasRoom(fill, fill.nodes + 1, kLegacyNodes)) return false;
    const auto g = static_cast<size_t>(fill.nodes++);
    Node node = NodeForLegacy(fill, self);
    const bool isPoint = node.kind == kNodeGiven;
    // The last of the points is never used.
    if (isPoint && !HasRoom(fill, fill.points + 2, kLegacyPoints)) {
        --fill.nodes;
        return false;
    }
    const LegacyKind kind = LegacyKindOf(node.kind);
    LegacyGeometry& legacy = fill.legacy;
    legacy.nodeClass[g] = kind.nodeClass;
    legacy.nodeCode[g] = kind.code;
    legacy.nodeOnStrake[g] = ClampToInt16(std::abs(int32_t{node.onStrake}));
    CopyNode(ToLegacy{fill.work.cut}, node, legacy, g);
    legacy.nodeY[g] = node.givenY;
    legacy.nodeZ[g] = node.givenZ;
    FillCurve(fill, node);
    if (isPoint) FillPoint(fill, node);
    return true;
}

// False when the strake, or one of its nodes, has no room; it has the nodes before that one then.
bool FillStrake(StrakeFill& fill, int16_t number) {
    if (!HasRoom(fill, number, kLegacyStrakes)) return false;
    const auto i = static_cast<size_t>(number - 1);
    Panel& panel = fill.work.section.panels[i];
    const Strake& strake = StrakeAt(fill.work.geometry, number);
    LegacyGeometry& legacy = fill.legacy;
    CopyStrake(ToLegacy{fill.work.cut}, panel, legacy, i);
    PutText(panel.name, {legacy.strakeName[i], sizeof(legacy.strakeName[i])}, fill.work.losses);
    legacy.strakeFirstNode[i] = static_cast<int16_t>(fill.nodes + 1);
    legacy.strakeNumber[i] = number;
    legacy.strakePresent[i] = 1;
    legacy.strakeCount = number;
    int16_t& nodes = legacy.strakeNodeCount[i];
    while (nodes < strake.nodeCount) {
        if (!FillNode(fill, {number, static_cast<int16_t>(nodes + 1)})) return false;
        ++nodes;
    }
    return true;
}

}  // namespace

void FillStrakes(const LegacyExport& work) {
    ReportStatus(kMsgConvertingNodes);
    StrakeFill fill{work};
    for (int16_t number = 1; number <= work.geometry.strakeCount; ++number) {
        if (!FillStrake(fill, number)) return;
    }
}

}  // namespace corvane
