// Another process holds the file in every sharing mode until the edit has paused for 50 and 500 ms,
// which the user does not notice, and for 5 s, which is reported, unless the file can be replaced
// all the same.
#include "tests/faults/holder.h"
#include "tests/faults/scene.h"
#include "tests/faults/still_clock.h"
#include "tests/faults/tally.h"

namespace corvane::faults {
namespace {

constexpr int kLong_ms = 5000;

class Held : public testing::TestWithParam<const char*> {};

std::string FaultWhileHeld(const Scene& scene, int sharing, int milliseconds) {
    Prepare(scene);
    const int64_t start_ms = Paused_ms();
    Outcome outcome;
    {
        Holder holder(scene.path, sharing);
        AtPause() = [&] {
            if (Paused_ms() - start_ms >= milliseconds) holder.End();
        };
        outcome = RunEdit(scene, {});
        AtPause() = nullptr;
    }
    const bool canBeReplaced = scene.edit.replacesHeld && CanBeReplaced(sharing);
    const bool succeeds = milliseconds < kLong_ms || canBeReplaced;
    const std::string message = outcome.messages.empty() ? "" : outcome.messages.front();
    if (outcome.done != succeeds) return (succeeds ? "it failed: " : "it succeeded: ") + message;
    if (succeeds && !message.empty()) return "message: " + message;
    if (Paused_ms() - start_ms > kLong_ms - 500) return "it took too long";
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
