// The rows of nodes: table 2 of a section, table NODES of a bulkhead arrangement. An owner is a
// panel or a bulkhead: it has `nodes` and, as many or fewer, `absoluteCodes`. `line` has the
// columns after the owner's number, up to and including the line's end.
#pragma once

#include <vector>

#include "database/section_lines.h"
#include "database/tables.h"

namespace corvane {

// By owner, and within an owner in the order of its nodes: a node's number is not in its row, its
// place gives it.
template <class Owner>
void WriteNodeRows(RowWriter& row, std::vector<Owner>& owners, void (*line)(RowWriter&, NodeRow)) {
    int16_t number = 0;
    for (Owner& owner : owners) {
        ++number;
        for (size_t i = 0; i < owner.nodes.size(); ++i) {
            int16_t absolute = AbsoluteCode(owner.nodes[i], owner.absoluteCodes, i);
            Value(row, number);
            line(row, {owner.nodes[i], absolute});
        }
    }
}

// Adds the nodes to their owners, at most kMostItems each; rows of owners that do not exist are
// left out. A field that a row lacks keeps its reset value: 0, but kind 1 and absolute.
template <class Owner>
void ReadNodeRows(RowReader& row, std::vector<Owner>& owners, void (*line)(RowReader&, NodeRow)) {
    while (AtRow(row)) {
        const size_t owner = ReadIndex(row, owners.size());
        Node node{};
        node.kind = kNodeGiven;  // kind 0 does not exist
        int16_t absolute = 1;
        line(row, {node, absolute});
        if (owner == owners.size()) continue;
        Keep(owners[owner].nodes, node);
        Keep(owners[owner].absoluteCodes, absolute);
    }
}

}  // namespace corvane
