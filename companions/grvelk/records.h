// The arrays of the section's records, safe to use: an array that is missing and a count below 0
// are an empty list, and a strake has no more items than lie between its nodes.
#pragma once

#include <span>

#include "platform/grvelk.h"

namespace corvane::grvelk {

std::span<Node> NodesIn(const Strake& strake);
std::span<StrakeItem> ItemsIn(const Strake& strake);
std::span<const Stiffener> StiffenersIn(const Strake& strake);
std::span<const float> PlateEndsIn(const Strake& strake);
std::span<const Strake> StrakesIn(const Section& section);
std::span<const CompartmentOutline> CompartmentsIn(const Section& section);
std::span<const NodeReference> OutlineIn(const CompartmentOutline& compartment);

// How many nodes and items there are.
int16_t NodesOf(const Strake& strake);
int ItemsOf(const Strake& strake);

// By number, from 1; null when there is no such strake, node or item.
Strake* StrakeOf(Strake* strakes, int16_t count, int16_t strake);
Node* NodeOf(const Strake& strake, int node);
StrakeItem* ItemOf(const Strake& strake, int item);

}  // namespace corvane::grvelk
