// Another program acts at every call that reaches the file system: it puts a version of its own in
// place, which has one more model; it appends that model in place; it deletes the file. What it did
// is never lost, and what it deleted does not come back.
#include <algorithm>
#include <iterator>

#include "files/file_system.h"
#include "tests/database/sample_database.h"
#include "tests/faults/scene.h"
#include "tests/faults/tally.h"

namespace corvane::faults {
namespace {

constexpr char kTheirName[] = "A model of another program";

// Its number is the one that an edit gives to a new model.
std::string TheirBlock() {
    test::SampleBlock block;
    block.number = " 5 ";
    block.keyword = "TORSION";
    block.name = kTheirName;
    return test::BlockText(block);
}

// Between the last look at the file and the rename over it nothing can be noticed.
bool IsTooLate(const std::vector<std::string>& calls, int call) {
    const auto last = std::find_if(calls.rbegin(), calls.rend(), IsRename);
    const auto rename = static_cast<int>(calls.rend() - last);
    return call <= rename && call > rename - kCallsOfARename;
}

std::vector<Edit> EditsThatKeepText() {
    std::vector<Edit> edits;
    std::ranges::copy_if(Edits(), std::back_inserter(edits), &Edit::keepsText);
    return edits;
}

struct Meanwhile : testing::TestWithParam<Edit> {
    const test::TemporaryFolder folder;
    const test::TemporaryFolder temporaries;
    const test::TemporaryFolder theirs;
    Scene scene{GetParam(), folder.path, temporaries.path};

    void SetUp() override { Measure(scene); }
    std::string Text() const {
        return FileExists(scene.path) ? test::ReadFileBytes(scene.path) : "missing";
    }
    // Whether `act` acts at any call without a fault that `faultOf` sees.
    template <class Act, class FaultOf>
    void TryAtEveryCall(const char* what, Act act, FaultOf faultOf) {
        Tally tally{std::string(what) + " " + scene.edit.name};
        const auto opening = std::ranges::find_if(scene.calls, IsOpening);
        const auto opened = static_cast<int>(opening - scene.calls.begin()) + 1;
        for (int call = opened + 1; call <= static_cast<int>(scene.calls.size()); ++call) {
            if (IsTooLate(scene.calls, call)) continue;
            Prepare(scene);
            bool hasActed = false;
            Plan plan{Fault::kMeanwhile, call};
            plan.meanwhile = [&] { hasActed = act(); };
            const Outcome outcome = RunEdit(scene, plan);
            const std::string where = "call " + std::to_string(call) + " " + scene.calls[call - 1];
            tally.Count(where, hasActed ? faultOf(outcome) : FaultAfterEnd(scene, outcome));
        }
        tally.Print();
    }
    // A failure must be reported; a success is there beside the other program's model.
    std::string FaultOfTheirs(const Outcome& outcome, const std::string& theirText) const {
        const std::string text = Text();
        if (text.find(kTheirName) == std::string::npos) return "their model is lost";
        if (outcome.done) return {};
        if (text != theirText) return "failure, but the file is not theirs";
        return outcome.messages.empty() ? "failure without a message" : "";
    }
};

TEST_P(Meanwhile, VersionPutInPlaceIsNotLost) {
    const std::string text = OldDatabase() + TheirBlock();
    const std::wstring version = theirs.File(L"ship.ve2");
    TryAtEveryCall(
        "replaced in",
        [&] {
            test::WriteFileBytes(version, text);
            return system::RenameOver(version, scene.path) == system::kErrorNone;
        },
        [&](const Outcome& outcome) { return FaultOfTheirs(outcome, text); });
}

TEST_P(Meanwhile, DeletedFileDoesNotComeBack) {
    TryAtEveryCall(
        "deleted in", [&] { return system::RemoveFile(scene.path) == system::kErrorNone; },
        [&](const Outcome& outcome) -> std::string {
            if (Text() != "missing") return "it is there again";
            return outcome.done || !outcome.messages.empty() ? "" : "failure without a message";
        });
}

INSTANTIATE_TEST_SUITE_P(Every, Meanwhile, testing::ValuesIn(EditsThatKeepText()),
                         [](const auto& edit) { return edit.param.name; });

}  // namespace
}  // namespace corvane::faults
