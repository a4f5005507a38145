#include "legacy/absolute_geometry.h"

#include <cmath>
#include <string>
#include <vector>

#include "legacy/geometry.h"
#include "legacy/strake_access.h"
#include "platform/ztutil32.h"
#include "report/reporters.h"

namespace corvane {
namespace {

enum class State : uint8_t { kNew, kWaiting, kDone };

// Nodes of one strake that are to be computed, from `node` to `last`.
struct Frame {
    int16_t strake;
    int node;
    int last;
    bool wholeStrake;
};

struct Work {
    Section& section;
    const std::wstring& name;
    std::vector<State> strakes;
    std::vector<std::vector<State>> nodes;
    // The strakes that wait for one another: a list, as their chain may be as long as there are
    // strakes.
    std::vector<Frame> stack;
    std::vector<StrakeFault> faults;

    State& StateOf(int strake) { return strakes[static_cast<size_t>(strake - 1)]; }
    State& StateOf(NodeReference node) {
        return nodes[static_cast<size_t>(node.strake - 1)][static_cast<size_t>(node.node - 1)];
    }
};

Work StartWork(Section& section, const std::wstring& name) {
    Work work{section, name, {}, {}, {}, {}};
    for (int strake = 1; StrakeExists(section, strake); ++strake) {
        work.strakes.push_back(State::kNew);
        const auto count = static_cast<size_t>(NodesOf(StrakeAt(section, strake)));
        work.nodes.emplace_back(count, State::kNew);
    }
    return work;
}

void AddFault(Work& work, const StrakeFault& fault) {
    ReportStrakeFault(fault, work.name);
    work.faults.push_back(fault);
}

// ---- Nodes and their items ---------------------------------------------------------------------

bool IsOnNode(const Node& node) {
    return node.kind == kNodeOffset || node.kind == kNodeCoincident;
}

// The strake that a node is defined on, or a node of it; 0 when it is defined on nothing.
int16_t BaseStrake(const Node& node) {
    if (node.kind == kNodeIntersection) return node.extensionStrake;
    return node.kind == kNodeOnStrake || IsOnNode(node) ? node.onStrake : int16_t{0};
}

Frame WholeStrake(Work& work, int16_t strake) {
    work.StateOf(strake) = State::kWaiting;
    return {strake, 1, NodesOf(StrakeAt(work.section, strake)), true};
}

// What has to be computed before the node: the strake that it is defined on; where that is being
// computed itself, a later node of it. False when nothing has, or when waiting would lead in a
// circle.
bool IsWaitingFor(Work& work, const Node& node, Frame& needed) {
    const int16_t strake = BaseStrake(node);
    if (!StrakeExists(work.section, strake)) return false;
    if (work.StateOf(strake) == State::kNew) {
        needed = WholeStrake(work, strake);
        return true;
    }
    const NodeReference base{strake, node.onNode};
    if (!IsOnNode(node) || !NodeExists(work.section, base)) return false;
    if (work.StateOf(base) != State::kNew || NodeAt(work.section, base).computed != 0) return false;
    needed = {strake, base.node, base.node, false};
    return true;
}

// Whether what the node is defined on could not be computed either, and was reported.
bool FailedBefore(Work& work, const Node& node) {
    const int16_t strake = BaseStrake(node);
    if (!StrakeExists(work.section, strake)) return false;
    if (!IsOnNode(node)) return work.StateOf(strake) == State::kDone;
    const NodeReference base{strake, node.onNode};
    return NodeExists(work.section, base) && work.StateOf(base) == State::kDone;
}

void ComputeOneNode(Work& work, NodeReference self) {
    Strake& strake = StrakeAt(work.section, self.strake);
    const int16_t code =
        ComputeNode(&strake, self.strake, work.section.strakes, self.node, work.section.tolerance);
    const bool again = work.StateOf(self) == State::kDone;
    const bool reported =
        code == kCodeCircularReference && FailedBefore(work, NodeAt(work.section, self));
    work.StateOf(self) = State::kDone;
    if (code == 0 || again || reported) return;
    AddFault(work, {code, self.node, self.strake});
}

// The item that ends at the node.
void ComputeItemsOf(Work& work, NodeReference self) {
    const Strake& strake = StrakeAt(work.section, self.strake);
    const auto item = static_cast<int16_t>(self.node - 1);
    if (item < 1 || item > ItemsOf(strake)) return;
    if (strake.nodes[item - 1].computed == 0 || strake.nodes[item].computed == 0) return;
    const std::vector<StrakeFault> faults = ComputeStrakeItems(
        {strake.items, item, item, self.strake}, work.section.tolerance, work.name);
    work.faults.insert(work.faults.end(), faults.begin(), faults.end());
}

void FinishStrake(Work& work, int16_t number) {
    work.StateOf(number) = State::kDone;
    Strake& strake = StrakeAt(work.section, number);
    const int items = ItemsOf(strake);
    strake.length = items == 0 ? 0 : strake.items[items - 1].s + strake.items[items - 1].length;
    if (items == 0) AddFault(work, {kCodeNoNodes, 0, number});
}

// Goes on with the frame on top of the stack by one step.
void Step(Work& work) {
    Frame& frame = work.stack.back();
    if (frame.node > frame.last) {
        if (frame.wholeStrake) FinishStrake(work, frame.strake);
        work.stack.pop_back();
        return;
    }
    const NodeReference self{frame.strake, static_cast<int16_t>(frame.node)};
    Frame needed{};
    if (work.StateOf(self) == State::kNew) {
        work.StateOf(self) = State::kWaiting;
        if (IsWaitingFor(work, NodeAt(work.section, self), needed)) {
            work.stack.push_back(needed);
            return;
        }
    }
    ComputeOneNode(work, self);
    // A single node comes again with its strake, and its item then.
    if (frame.wholeStrake) ComputeItemsOf(work, self);
    ++frame.node;
}

void ComputeStrakes(Work& work) {
    for (int strake = 1; StrakeExists(work.section, strake); ++strake) {
        if (work.StateOf(strake) != State::kNew) continue;
        work.stack.push_back(WholeStrake(work, static_cast<int16_t>(strake)));
        while (!work.stack.empty()) Step(work);
    }
}

// ---- Stiffeners --------------------------------------------------------------------------------

// A stiffener within the tolerance of a knuckle is put at the knuckle.
void SnapToNode(const Strake& strake, Stiffener& stiffener, float tolerance) {
    for (int i = 0; i < ItemsOf(strake); ++i) {
        const StrakeItem& item = strake.items[i];
        if (!(item.length > 0) || IsPointInSegment(stiffener.y, stiffener.z, item.y1, item.z1,
                                                   item.y2, item.z2, tolerance) == 0) {
            continue;
        }
        for (const Node* node : {&strake.nodes[i], &strake.nodes[i + 1]}) {
            if (IsSamePoint(stiffener.y, stiffener.z, node->y, node->z, tolerance) == 0) continue;
            stiffener.y = node->y;
            stiffener.z = node->z;
            return;
        }
    }
}

void PlaceStiffener(const Section& section, int16_t number, Stiffener& stiffener) {
    Strake& strake = StrakeAt(section, number);
    const int16_t status = AbsStiff(section.strakes, section.strakeCount, number, &stiffener);
    constexpr int16_t kOutside = 1;
    if (status != 0 && status != kOutside) return;
    // The foot is on the line of the strake, whatever the library made of its offset.
    float y = stiffener.y;
    float z = stiffener.z;
    ComputePointFromYZ(&strake, stiffener.y, stiffener.z, &y, &z, section.tolerance);
    if (Distance(stiffener.y, stiffener.z, y, z) > section.tolerance) {
        stiffener.y = y;
        stiffener.z = z;
    }
    SnapToNode(strake, stiffener, section.tolerance);
}

void PlaceStiffeners(const Section& section) {
    for (int number = 1; StrakeExists(section, number); ++number) {
        const Strake& strake = StrakeAt(section, number);
        if (strake.stiffeners == nullptr) continue;
        for (int i = 0; i < strake.stiffenerCount; ++i) {
            PlaceStiffener(section, static_cast<int16_t>(number), strake.stiffeners[i]);
        }
    }
}

// ---- The final passes --------------------------------------------------------------------------

// Where the strake passes a node's point twice, the library gives the first abscissa only; the
// node's own is where its item begins.
float OwnAbscissa(const Strake& strake, int node, float s, float tolerance) {
    const float own = node <= ItemsOf(strake) ? strake.items[node - 1].s : strake.length;
    return std::abs(own - s) > tolerance ? own : s;
}

void ComputeAbscissas(const Section& section) {
    for (int number = 1; StrakeExists(section, number); ++number) {
        const Strake& strake = StrakeAt(section, number);
        const auto k = static_cast<int16_t>(number);
        for (int node = 1; node <= NodesOf(strake); ++node) {
            const NodeReference self{k, static_cast<int16_t>(node)};
            float s = 0;
            if (strake.nodes[node - 1].computed == 0) continue;
            if (AbscissaOfPoint(section, self, k, s) != 0) continue;
            strake.nodes[node - 1].s = OwnAbscissa(strake, node, s, section.tolerance);
        }
    }
}

// How far an arc is from its chord; 0 for a straight line. Height of a circular segment.
float Rise(const StrakeItem& item) {
    return item.arcRadius * (1 - std::cos(item.sweep / 2));
}

bool LiesOnStrake(const Section& section, NodeReference reference, int16_t k) {
    const Node& node = NodeAt(section, reference);
    const Strake& strake = StrakeAt(section, k);
    for (int i = 0; i < ItemsOf(strake); ++i) {
        const StrakeItem& item = strake.items[i];
        const float reach = section.tolerance + Rise(item);
        if (!(item.length > 0) ||
            IsPointInSegment(node.y, node.z, item.y1, item.z1, item.y2, item.z2, reach) == 0) {
            continue;
        }
        float s = 0;
        // Near the chord of an arc is not yet on the arc.
        if (item.arcRadius == 0 || AbscissaOfPoint(section, reference, k, s) == 0) return true;
    }
    return false;
}

std::vector<Joint> FindJoints(const Section& section) {
    std::vector<Joint> joints;
    for (int number = 1; StrakeExists(section, number); ++number) {
        const Strake& strake = StrakeAt(section, number);
        for (int node = 1; node <= NodesOf(strake); ++node) {
            if (strake.nodes[node - 1].computed == 0) continue;
            const NodeReference self{static_cast<int16_t>(number), static_cast<int16_t>(node)};
            for (int other = 1; StrakeExists(section, other); ++other) {
                const auto k = static_cast<int16_t>(other);
                if (other != number && LiesOnStrake(section, self, k)) joints.push_back({self, k});
            }
        }
    }
    return joints;
}

}  // namespace

AbsoluteGeometry ComputeAbsoluteGeometry(Section& section, const std::wstring& sectionName) {
    ReportStatus(kMsgComputingGeometry, {sectionName});
    AbsoluteGeometry geometry;
    if (StrakeExists(section, 1)) {
        ComputeAbsNodes(section.strakes, section.strakeCount);
        ComputeAbsStrake(section.strakes, section.strakeCount);
        Work work = StartWork(section, sectionName);
        ComputeStrakes(work);
        PlaceStiffeners(section);
        ComputeAbscissas(section);
        geometry = {FindJoints(section), std::move(work.faults)};
    }
    ShowStatus(L"");
    return geometry;
}

}  // namespace corvane
