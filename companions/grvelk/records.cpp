#include "companions/grvelk/records.h"

#include <algorithm>
#include <cstddef>

namespace corvane::grvelk {
namespace {

template <class Item>
std::span<Item> Counted(Item* items, int count) {
    if (items == nullptr || count <= 0) return {};
    return {items, static_cast<size_t>(count)};
}

template <class Item>
Item* ByNumber(std::span<Item> items, int number) {
    if (number < 1 || static_cast<size_t>(number) > items.size()) return nullptr;
    return &items[static_cast<size_t>(number) - 1];
}

}  // namespace

std::span<Node> NodesIn(const Strake& strake) {
    return Counted(strake.nodes, strake.nodeCount);
}

std::span<StrakeItem> ItemsIn(const Strake& strake) {
    return Counted(strake.items, std::min<int>(strake.itemCount, NodesOf(strake) - 1));
}

std::span<const Stiffener> StiffenersIn(const Strake& strake) {
    return Counted<const Stiffener>(strake.stiffeners, strake.stiffenerCount);
}

std::span<const float> PlateEndsIn(const Strake& strake) {
    return Counted<const float>(strake.plateEnds, strake.plateCount);
}

std::span<const Strake> StrakesIn(const Section& section) {
    return Counted<const Strake>(section.strakes, section.strakeCount);
}

std::span<const CompartmentOutline> CompartmentsIn(const Section& section) {
    return Counted<const CompartmentOutline>(section.compartments, section.compartmentCount);
}

std::span<const NodeReference> OutlineIn(const CompartmentOutline& compartment) {
    return Counted<const NodeReference>(compartment.nodes, compartment.nodeCount);
}

int16_t NodesOf(const Strake& strake) {
    return static_cast<int16_t>(NodesIn(strake).size());
}

int ItemsOf(const Strake& strake) {
    return static_cast<int>(ItemsIn(strake).size());
}

Strake* StrakeOf(Strake* strakes, int16_t count, int16_t strake) {
    return ByNumber(Counted(strakes, count), strake);
}

Node* NodeOf(const Strake& strake, int node) {
    return ByNumber(NodesIn(strake), node);
}

StrakeItem* ItemOf(const Strake& strake, int item) {
    return ByNumber(ItemsIn(strake), item);
}

}  // namespace corvane::grvelk
