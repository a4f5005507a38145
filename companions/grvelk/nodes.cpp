// Places of the nodes.
#include <algorithm>

#include "companions/grvelk/references.h"
#include "companions/grvelk/strakes.h"

using namespace corvane;
using namespace corvane::grvelk;

namespace {

void Store(Node& node, Point place) {
    node.y = static_cast<float>(place.y);
    node.z = static_cast<float>(place.z);
    node.computed = -1;
}

void Clear(Node& node) {
    node.y = node.z = node.s = 0;
    node.computed = 0;
}

// A strake serves as a base when all its nodes are computed.
int16_t CheckBase(const Strake& base) {
    const int16_t count = NodesOf(base);
    const bool computed = std::all_of(base.nodes, base.nodes + count,
                                      [](const Node& node) { return node.computed != 0; });
    if (!computed) return kCodeCircularReference;
    return HasLine(base) ? int16_t{0} : kCodeNoNodes;
}

// The given coordinate counts, the other one says which of several points is meant.
int16_t PlaceOnStrake(const Node& node, const Strake& base, double tolerance, Point& place) {
    const Point given{node.givenY, node.givenZ};
    if (!IsStorable(given)) return kCodeBadNumber;
    const bool byZ = node.inter == 2;
    const Line line{given, byZ ? Point{1, 0} : Point{0, 1}};
    StrakePlace found;
    if (!CrossStrake(base, {line, given, tolerance}, found)) return kCodeOffStrake;
    place = byZ ? Point{found.point.y, given.z} : Point{given.y, found.point.z};
    return 0;
}

// Of several places the nearest to the line's second point counts.
int16_t PlaceOnLine(const Node& node, const Strake& base, double tolerance, Point& place) {
    const Point from{node.extension[0], node.extension[1]};
    const Point to{node.extension[2], node.extension[3]};
    const double shift = node.extension[4];
    if (!IsStorable(from) || !IsStorable(to) || !IsStorable(shift)) return kCodeBadNumber;
    const double length = Length(to - from);
    if (length <= tolerance) return kCodeNoIntersection;
    const Line line{from, (1 / length) * (to - from)};
    StrakePlace found;
    if (!CrossStrake(base, {line, to, tolerance}, found)) return kCodeNoIntersection;
    place = found.point + shift * line.direction;
    return 0;
}

int16_t PlaceByNode(const Node& node, const Node* base, Point& place) {
    if (base == nullptr) return kCodeMissingNode;
    if (base->computed == 0) return kCodeCircularReference;
    place = {base->y, base->z};
    if (node.kind == kNodeOffset) place = place + Point{node.givenY, node.givenZ};
    return 0;
}

struct NodePlace {
    const Node& node;
    NodeReference self;
    double tolerance;
};

// Places a node of the array; how many strakes that has, ComputeAbsNodes has noted.
int16_t FindPlace(const NodePlace& wanted, Strake* strakes, int16_t count, Point& place) {
    const Node& node = wanted.node;
    NodeReference reference{};
    if (!IsDefinedOn(node, reference)) {
        place = {node.givenY, node.givenZ};
        return 0;
    }
    const Strake* base = StrakeOf(strakes, count, reference.strake);
    if (base == nullptr) return kCodeMissingNode;
    const bool onNode = node.kind == kNodeOffset || node.kind == kNodeCoincident;
    if (reference == wanted.self || (!onNode && reference.strake == wanted.self.strake)) {
        return kCodeCircularReference;
    }
    if (onNode) return PlaceByNode(node, NodeOf(*base, reference.node), place);
    const int16_t code = CheckBase(*base);
    if (code != 0) return code;
    return node.kind == kNodeOnStrake ? PlaceOnStrake(node, *base, wanted.tolerance, place)
                                      : PlaceOnLine(node, *base, wanted.tolerance, place);
}

// Every node is cleared, those that are defined on nothing are placed.
void PrepareNodes(Strake& strake, int16_t count) {
    strake.strakeCount = count;
    for (int16_t i = 0; i < NodesOf(strake); ++i) {
        Node& node = strake.nodes[i];
        Clear(node);
        NodeReference reference{};
        const Point given{node.givenY, node.givenZ};
        if (!IsDefinedOn(node, reference) && IsStorable(given)) Store(node, given);
    }
}

}  // namespace

CORVANE_EXPORT int16_t CORVANE_STDCALL Absnode(Strake* strakes, int16_t count, int16_t strake,
                                               int16_t node) {
    const Strake* record = StrakeOf(strakes, count, strake);
    const Node* found = record == nullptr ? nullptr : NodeOf(*record, node);
    NodeReference reference{};
    return found != nullptr && !IsDefinedOn(*found, reference) ? 1 : 0;
}

CORVANE_EXPORT int16_t CORVANE_STDCALL RelNode(Strake* strakes, int16_t count, int16_t k,
                                               int16_t* strake, int16_t* node) {
    if (strake != nullptr) *strake = 0;
    if (node != nullptr) *node = 0;
    const Strake* record = StrakeOf(strakes, count, k);
    if (record == nullptr) return kCodeMissingNode;
    const Node* first = NodeOf(*record, 1);
    if (first == nullptr) return kCodeNoNodes;
    NodeReference reference{};
    const bool onNode = first->kind == kNodeOffset || first->kind == kNodeCoincident;
    if (!onNode || !IsDefinedOn(*first, reference)) return 0;
    const Strake* base = StrakeOf(strakes, count, reference.strake);
    if (base == nullptr || NodeOf(*base, reference.node) == nullptr) return kCodeMissingNode;
    if (strake != nullptr) *strake = reference.strake;
    if (node != nullptr) *node = reference.node;
    return 0;
}

CORVANE_EXPORT int16_t CORVANE_STDCALL ComputeAbsNodes(Strake* strakes, int16_t count) {
    if (strakes == nullptr || count < 1) return 0;
    for (int i = 0; i < count; ++i) PrepareNodes(strakes[i], count);
    const std::vector<Step> steps = StepsOf(strakes, count);
    const auto bad =
        std::find_if(steps.begin(), steps.end(), [](const Step& step) { return step.code != 0; });
    return bad == steps.end() ? int16_t{0} : bad->code;
}

CORVANE_EXPORT int16_t CORVANE_STDCALL ComputeNode(Strake* strake, int16_t number, Strake* strakes,
                                                   int16_t node, float tolerance) {
    Node* record = strake == nullptr ? nullptr : NodeOf(*strake, node);
    if (record == nullptr) return kCodeMissingNode;
    Point place;
    int16_t code = FindPlace({*record, {number, node}, Allowance(tolerance)}, strakes,
                             strake->strakeCount, place);
    if (code == 0 && !IsStorable(place)) code = kCodeBadNumber;
    if (code == 0) {
        Store(*record, place);
    } else {
        Clear(*record);
    }
    SetUpItem(*strake, node - 1);
    return code;
}
