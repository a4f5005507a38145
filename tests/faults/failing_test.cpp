// Every call that reaches the file system fails, once and for good, in every way: the file is the
// old one, or the new one where the procedure says so, a message says so, and no file is left that
// no message names.
#include <array>

#include "tests/faults/scene.h"
#include "tests/faults/tally.h"

namespace corvane::faults {
namespace {

constexpr std::array kErrors = {system::kErrorAccessDenied, system::kErrorSharingViolation,
                                system::kErrorDiskFull, system::kErrorIoDevice};

class Failing : public testing::TestWithParam<Edit> {
protected:
    const test::TemporaryFolder folder;
    const test::TemporaryFolder temporaries;
    Scene scene{GetParam(), folder.path, temporaries.path};
    Tally tally{"failing " + scene.edit.name};

    void SetUp() override { Measure(scene); }
    void TearDown() override { tally.Print(); }
    void Inject(const Plan& plan) {
        Prepare(scene);
        const Outcome outcome = RunEdit(scene, plan);
        const std::string& kind = scene.calls[static_cast<size_t>(plan.call) - 1];
        tally.Count("call " + std::to_string(plan.call) + " " + kind + ", way " +
                        std::to_string(static_cast<int>(plan.fault)) + ", error " +
                        std::to_string(plan.error),
                    FaultAfterEnd(scene, outcome));
    }
};

TEST_P(Failing, LeavesTheOldFileOrTheNewOneAndSaysSo) {
    std::vector<Plan> plans;
    for (int call = 1; call <= static_cast<int>(scene.calls.size()); ++call) {
        for (const system::ErrorNumber error : kErrors) {
            plans.push_back({Fault::kFailOnce, call, error});
            plans.push_back({Fault::kFailKind, call, error});
        }
        plans.push_back({Fault::kFailAll, call, system::kErrorIoDevice});
        if (IsWrite(scene.calls[static_cast<size_t>(call) - 1])) {
            plans.push_back({Fault::kShortWrite, call, system::kErrorNone});
        }
    }
    for (const Plan& plan : tally.Taken(plans)) Inject(plan);
}

INSTANTIATE_TEST_SUITE_P(Every, Failing, testing::ValuesIn(Edits()),
                         [](const auto& edit) { return edit.param.name; });

}  // namespace
}  // namespace corvane::faults
