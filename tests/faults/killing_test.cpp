// The process dies at every call that reaches the file system: the file is whole afterwards, the
// old or the new one, and so is its backup. What is left beside a database is named to the user.
#include "shell/left_overs.h"
#include "shell/state.h"
#include "tests/faults/scene.h"
#include "tests/faults/tally.h"
#include "tests/support/recorded_reports.h"

namespace corvane::faults {
namespace {

// Of the files that an edit of a database has left, those are named that have its first line.
std::string FaultOfLeftOvers(const Scene& scene) {
    const test::RecordedReports screen;
    shell.reportedLeftOvers.clear();
    ReportLeftOvers(scene.path);
    const std::vector<std::string> boxes = test::RecordedReports::Of("warning");
    const std::string firstLine = scene.newText.substr(0, scene.newText.find('\n') + 1);
    for (const std::wstring& name : test::FilesIn(scene.folder)) {
        if (!name.starts_with(L"Cor")) continue;
        const std::string path = test::Narrow(scene.folder + name);
        const bool isNamed = boxes.size() == 1 && boxes.front().find(path) != std::string::npos;
        if (isNamed != TextOf(scene.folder + name).starts_with(firstLine)) {
            return path + (isNamed ? " is named" : " is not named");
        }
    }
    return {};
}

void Kill(const Scene& scene, const Plan& plan, Tally& tally) {
    Prepare(scene);
    std::string fault = IsKilled(scene, plan) ? FaultAfterDeath(scene) : "not killed";
    const bool isOfDatabase = scene.edit.expected != nullptr && scene.edit.keepsText;
    if (fault.empty() && isOfDatabase) fault = FaultOfLeftOvers(scene);
    tally.Count("call " + std::to_string(plan.call) + " " + scene.calls[plan.call - 1], fault);
}

class Killed : public testing::TestWithParam<Edit> {};

TEST_P(Killed, LeavesTheOldOrTheNewFile) {
    const test::TemporaryFolder folder;
    const test::TemporaryFolder temporaries;
    Scene scene{GetParam(), folder.path, temporaries.path};
    Measure(scene);
    ASSERT_NE(scene.newText, scene.oldText);
    Tally tally{"killed " + scene.edit.name};
    const int callCount = static_cast<int>(scene.calls.size());
    std::vector<Plan> plans;
    for (int call = 1; call <= callCount; ++call) {
        // After a call is before the next one.
        plans.push_back({Fault::kKillBefore, call});
        if (IsWrite(scene.calls[call - 1])) plans.push_back({Fault::kKillWithin, call});
    }
    plans.push_back({Fault::kKillAfter, callCount});
    for (const Plan& plan : tally.Taken(plans)) Kill(scene, plan, tally);
    tally.Print();
}

INSTANTIATE_TEST_SUITE_P(Every, Killed, testing::ValuesIn(Edits()),
                         [](const auto& edit) { return edit.param.name; });

}  // namespace
}  // namespace corvane::faults
