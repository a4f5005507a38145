#include "legacy/geometry.h"

#include "legacy/strake_access.h"
#include "platform/ztutil32.h"
#include "report/reporters.h"

namespace corvane {
Node NodeRecord(const Section& section, NodeReference reference) {
    return NodeExists(section, reference) ? NodeAt(section, reference) : Node{};
}

int16_t NodeAbsolute(const Section& section, NodeReference reference) {
    if (!NodeExists(section, reference)) return 0;
    const int16_t own =
        Absnode(section.strakes, section.strakeCount, reference.strake, reference.node);
    if (own != 0) return own;
    const Node& node = NodeAt(section, reference);
    const NodeReference base{node.onStrake, node.onNode};
    if (!NodeExists(section, base)) return 0;
    return Absnode(section.strakes, section.strakeCount, base.strake, base.node);
}

NodeReference RelativeNode(const Section& section, int16_t k) {
    NodeReference found{};
    if (!StrakeExists(section, k)) return found;
    RelNode(section.strakes, section.strakeCount, k, &found.strake, &found.node);
    return found;
}

int16_t AbscissaOfPoint(const Section& section, NodeReference reference, int16_t k, float& s) {
    if (!StrakeExists(section, k) || !NodeExists(section, reference)) return 0;
    const Node& node = NodeAt(section, reference);
    int16_t item = 0;
    return YZToS(&StrakeAt(section, k), node.y, node.z, &s, &item, section.tolerance);
}

NodeReference NodeAtPoint(const Section& section, float y, float z) {
    for (int strake = 1; StrakeExists(section, strake); ++strake) {
        const Strake& record = StrakeAt(section, strake);
        for (int node = 1; node <= NodesOf(record); ++node) {
            const Node& at = record.nodes[node - 1];
            if (IsSamePoint(y, z, at.y, at.z, section.tolerance) == 0) continue;
            return {static_cast<int16_t>(strake), static_cast<int16_t>(node)};
        }
    }
    return {};
}

void ReportStrakeFault(const StrakeFault& fault, const std::wstring& sectionName) {
    ReportSilent(kMsgStrakeCoincidentNodes + fault.code - kCodeCoincidentNodes,
                 {int32_t{fault.item}, sectionName, int32_t{fault.strake}});
}

std::vector<StrakeFault> ComputeStrakeItems(const ItemList& list, float tolerance,
                                            const std::wstring& sectionName) {
    std::vector<StrakeFault> faults;
    for (int k = list.first; k <= list.last; ++k) {
        const auto item = static_cast<int16_t>(k);
        const int16_t code = ComputeStrake(list.items, item, tolerance);
        if (code == 0) continue;
        faults.push_back({code, item, list.strake});
        ReportStrakeFault(faults.back(), sectionName);
    }
    return faults;
}

}  // namespace corvane
