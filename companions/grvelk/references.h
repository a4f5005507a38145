// Which node or strake a node is defined on, and the order in which all of them can be computed.
#pragma once

#include <vector>

#include "platform/grvelk.h"

namespace corvane::grvelk {

// What a node is defined on: a node, or a whole strake as node 0 of it; (0, 0) when the reference
// cannot be one. False for a node that is defined on nothing.
bool IsDefinedOn(const Node& node, NodeReference& reference);

// One step of the work: a node, or as node 0 a whole strake, whose nodes come before it.
struct Step {
    NodeReference what;
    int16_t code;  // 0, or why what it is defined on does not come before it
};

// All nodes and strakes, each after what it is defined on. Where nothing else asks for it the
// order is that of the numbers. The time is in proportion to the number of nodes.
std::vector<Step> StepsOf(const Strake* strakes, int16_t count);

}  // namespace corvane::grvelk
