// Another process holds the file in every sharing mode: for 50 and 500 ms, which the user does not
// notice, and for 5 s, which is reported, unless the file can be replaced all the same.
#include "tests/faults/holder.h"
#include "tests/faults/scene.h"
#include "tests/faults/still_clock.h"
#include "tests/faults/tally.h"

namespace corvane::faults {
namespace {

constexpr int kLong_ms = 5000;

class Held : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override { WaitsForReal() = true; }
    void TearDown() override { WaitsForReal() = false; }
};

std::string FaultWhileHeld(const Scene& scene, int sharing, int milliseconds) {
    Prepare(scene);
    Outcome outcome;
    int64_t taken_ms = 0;
    {
        const Holder holder(scene.path, sharing, milliseconds);
        const int64_t start_ms = system::Milliseconds();
        outcome = RunEdit(scene, {});
        taken_ms = system::Milliseconds() - start_ms;
    }
    const bool canBeReplaced = scene.edit.replacesHeld && CanBeReplaced(sharing);
    const bool succeeds = milliseconds < kLong_ms || canBeReplaced;
    if (outcome.done != succeeds) return succeeds ? "it failed" : "it succeeded";
    if (succeeds && !outcome.messages.empty()) return "message: " + outcome.messages.front();
    if (taken_ms > kLong_ms - 500) return "it took too long";
    return FaultAfterEnd(scene, outcome);
}

TEST_P(Held, IsWaitedForAWhile) {
    const test::TemporaryFolder folder;
    const test::TemporaryFolder temporaries;
    Scene scene{*FindEdit(GetParam()), folder.path, temporaries.path};
    Measure(scene);
    Tally tally{"held " + scene.edit.name};
    for (int sharing = 0; sharing < kSharingModes; ++sharing) {
        for (const int milliseconds : {50, 500, kLong_ms}) {
            tally.Count(
                std::to_string(milliseconds) + " ms, sharing mode " + std::to_string(sharing),
                FaultWhileHeld(scene, sharing, milliseconds));
        }
    }
    tally.Print();
}

INSTANTIATE_TEST_SUITE_P(Some, Held,
                         testing::Values("save_bsd", "delete_middle_backup", "export_section",
                                         "export_over_section"),
                         [](const auto& name) { return std::string(name.param); });

}  // namespace
}  // namespace corvane::faults
