#include "companions/grvelk/references.h"

#include "companions/grvelk/records.h"

namespace corvane::grvelk {
namespace {

enum class State : uint8_t { kNew, kWaiting, kDone };

// A depth-first walk along the references. Its stack is a list, not the procedure's own: a chain of
// references may be as long as there are nodes.
struct Walk {
    struct Frame {
        NodeReference what;
        int next;  // of what it waits for, from 1
        int16_t code;
    };

    const Strake* strakes;
    int16_t count;
    std::vector<size_t> first;  // index of a strake in `states`; its nodes come after it
    std::vector<State> states;
    std::vector<Frame> stack;
    std::vector<Step> steps;

    const Strake& StrakeAt(int16_t strake) const { return strakes[strake - 1]; }
    State& StateOf(NodeReference what) {
        return states[first[static_cast<size_t>(what.strake - 1)] + static_cast<size_t>(what.node)];
    }
    bool Exists(NodeReference what) const {
        return what.strake >= 1 && what.strake <= count && what.node >= 0 &&
               what.node <= NodesOf(StrakeAt(what.strake));
    }
};

Walk StartWalk(const Strake* strakes, int16_t count) {
    Walk walk{strakes, count, {}, {}, {}, {}};
    size_t places = 0;
    for (int strake = 0; strake < count; ++strake) {
        walk.first.push_back(places);
        places += 1 + static_cast<size_t>(NodesOf(strakes[strake]));
    }
    walk.states.resize(places, State::kNew);
    walk.steps.reserve(places);
    return walk;
}

// The next thing that `frame` waits for: a strake for its nodes, a node for what it is defined on.
// False when there is no more.
bool NextOf(const Walk& walk, Walk::Frame& frame, NodeReference& next) {
    const Strake& strake = walk.StrakeAt(frame.what.strake);
    const int number = frame.next++;
    if (frame.what.node == 0) {
        next = {frame.what.strake, static_cast<int16_t>(number)};
        return number <= NodesOf(strake);
    }
    return number == 1 && IsDefinedOn(strake.nodes[frame.what.node - 1], next);
}

void Enter(Walk& walk, NodeReference what) {
    walk.StateOf(what) = State::kWaiting;
    walk.stack.push_back({what, 1, 0});
}

void Follow(Walk& walk) {
    while (!walk.stack.empty()) {
        Walk::Frame& frame = walk.stack.back();
        NodeReference next{};
        if (!NextOf(walk, frame, next)) {
            walk.StateOf(frame.what) = State::kDone;
            walk.steps.push_back({frame.what, frame.code});
            walk.stack.pop_back();
        } else if (!walk.Exists(next)) {
            frame.code = kCodeMissingNode;
        } else if (walk.StateOf(next) == State::kNew) {
            Enter(walk, next);
        } else if (walk.StateOf(next) == State::kWaiting) {
            frame.code = kCodeCircularReference;
        }
    }
}

}  // namespace

bool IsDefinedOn(const Node& node, NodeReference& reference) {
    switch (node.kind) {
        case kNodeOnStrake:
            reference = {node.onStrake, 0};
            return true;
        case kNodeOffset:
        case kNodeCoincident:
            reference = {node.onStrake, node.onNode};
            // Node 0 would be the whole strake.
            if (node.onNode < 1) reference = {};
            return true;
        case kNodeIntersection:
            reference = {node.extensionStrake, 0};
            return true;
        default:
            return false;
    }
}

std::vector<Step> StepsOf(const Strake* strakes, int16_t count) {
    if (strakes == nullptr || count < 1) return {};
    Walk walk = StartWalk(strakes, count);
    for (int strake = 1; strake <= count; ++strake) {
        const NodeReference whole{static_cast<int16_t>(strake), 0};
        if (walk.StateOf(whole) != State::kNew) continue;
        Enter(walk, whole);
        Follow(walk);
    }
    return walk.steps;
}

}  // namespace corvane::grvelk
