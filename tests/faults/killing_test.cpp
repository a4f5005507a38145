// The process dies at every call that reaches the file system: the file is whole afterwards, the
// old or the new one, and so is its backup.
#include "tests/faults/scene.h"
#include "tests/faults/tally.h"

namespace corvane::faults {
namespace {

void Kill(const Scene& scene, const Plan& plan, Tally& tally) {
    Prepare(scene);
    const std::string fault = IsKilled(scene, plan) ? FaultAfterDeath(scene) : "not killed";
    tally.Count("call " + std::to_string(plan.call) + " " + scene.calls[plan.call - 1], fault);
}

class Killed : public testing::TestWithParam<Edit> {};

TEST_P(Killed, LeavesTheOldOrTheNewFile) {
    const test::TemporaryFolder folder;
    const test::TemporaryFolder temporaries;
    Scene scene{GetParam(), folder.path, temporaries.path};
    Measure(scene);
    ASSERT_NE(scene.newText, scene.edit.startsWithFile ? scene.edit.oldText() : "missing");
    Tally tally{"killed " + scene.edit.name};
    const int callCount = static_cast<int>(scene.calls.size());
    for (int call = 1; call <= callCount; ++call) {
        // After a call is before the next one.
        Kill(scene, {Fault::kKillBefore, call}, tally);
        if (IsWrite(scene.calls[call - 1])) Kill(scene, {Fault::kKillWithin, call}, tally);
    }
    Kill(scene, {Fault::kKillAfter, callCount}, tally);
    tally.Print();
}

INSTANTIATE_TEST_SUITE_P(Every, Killed, testing::ValuesIn(Edits()),
                         [](const auto& edit) { return edit.param.name; });

}  // namespace
}  // namespace corvane::faults
