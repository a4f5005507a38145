#include "tests/faults/injection.h"

namespace corvane::faults {
namespace {

struct Injection {
    bool active = false;
    Plan plan;
    std::vector<std::string> calls;
};

Injection& Current() {
    static Injection injection;
    return injection;
}

bool IsPlanned() {
    const Injection& current = Current();
    return current.active && static_cast<int>(current.calls.size()) == current.plan.call;
}

bool Fails() {
    const auto& [active, plan, calls] = Current();
    if (static_cast<int>(calls.size()) < plan.call) return false;
    switch (plan.fault) {
        case Fault::kFailOnce:
            return IsPlanned();
        case Fault::kFailKind:
            return calls.back() == calls[static_cast<size_t>(plan.call) - 1];
        case Fault::kFailAll:
            return true;
        default:
            return false;
    }
}

}  // namespace

void StartFaults(const Plan& plan) {
    Current() = {false, plan, {}};
    Current().active = true;
}

std::vector<std::string> StopFaults() {
    Current().active = false;
    return std::move(Current().calls);
}

Step BeforeCall(const char* kind) {
    Injection& current = Current();
    if (!current.active) return Step::kPass;
    // Whatever this does itself is not counted.
    current.active = false;
    current.calls.emplace_back(kind);
    const bool isMeanwhile = static_cast<int>(current.calls.size()) == current.plan.call &&
                             current.plan.fault == Fault::kMeanwhile;
    if (isMeanwhile) current.plan.meanwhile();
    current.active = true;
    const Fault fault = current.plan.fault;
    if (IsPlanned() && fault == Fault::kKillBefore) KillThisProcess();
    const bool halves = fault == Fault::kKillWithin || fault == Fault::kShortWrite;
    if (IsPlanned() && halves) return Step::kHalf;
    return Fails() ? Step::kFail : Step::kPass;
}

void AfterCall() {
    if (IsPlanned() && Current().plan.fault == Fault::kKillAfter) KillThisProcess();
}

void AfterHalf() {
    if (IsPlanned() && Current().plan.fault == Fault::kKillWithin) KillThisProcess();
}

system::ErrorNumber PlannedError() {
    return Current().plan.error;
}

}  // namespace corvane::faults
