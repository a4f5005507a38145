// Strakes and nodes of the library's section record by their numbers.
#pragma once

#include "platform/grvelk.h"

namespace corvane {

inline bool StrakeExists(const Section& section, int strake) {
    return section.strakes != nullptr && strake >= 1 && strake <= section.strakeCount;
}
// The strake must exist.
inline Strake& StrakeAt(const Section& section, int strake) {
    return section.strakes[strake - 1];
}

inline bool NodeExists(const Section& section, NodeReference reference) {
    if (!StrakeExists(section, reference.strake)) return false;
    const Strake& strake = StrakeAt(section, reference.strake);
    return strake.nodes != nullptr && reference.node >= 1 && reference.node <= strake.nodeCount;
}
// The node must exist.
inline Node& NodeAt(const Section& section, NodeReference reference) {
    return StrakeAt(section, reference.strake).nodes[reference.node - 1];
}

// Nodes and items of an existing strake that the record has memory for.
inline int NodesOf(const Strake& strake) {
    return strake.nodes == nullptr || strake.nodeCount < 0 ? 0 : strake.nodeCount;
}
inline int ItemsOf(const Strake& strake) {
    if (strake.items == nullptr || strake.itemCount < 0) return 0;
    return strake.itemCount < NodesOf(strake) ? strake.itemCount : NodesOf(strake) - 1;
}

}  // namespace corvane
