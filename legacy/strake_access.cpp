#include "legacy/strake_access.h"

namespace corvane {

bool StrakeExists(const Section& section, int strake) {
    return section.strakes != nullptr && strake >= 1 && strake <= section.strakeCount;
}

bool NodeExists(const Section& section, NodeReference reference) {
    if (!StrakeExists(section, reference.strake)) return false;
    const Strake& strake = StrakeAt(section, reference.strake);
    return strake.nodes != nullptr && reference.node >= 1 && reference.node <= strake.nodeCount;
}

Strake& StrakeAt(const Section& section, int strake) {
    return section.strakes[strake - 1];
}

Node& NodeAt(const Section& section, NodeReference reference) {
    return StrakeAt(section, reference.strake).nodes[reference.node - 1];
}

int NodesOf(const Strake& strake) {
    return strake.nodes == nullptr || strake.nodeCount < 0 ? 0 : strake.nodeCount;
}

int ItemsOf(const Strake& strake) {
    if (strake.items == nullptr || strake.itemCount < 0) return 0;
    return strake.itemCount < NodesOf(strake) ? strake.itemCount : NodesOf(strake) - 1;
}

}  // namespace corvane
