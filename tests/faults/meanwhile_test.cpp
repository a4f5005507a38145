// Another program acts at every call that reaches the file system: it puts a version of its own in
// place, which has one more model; it appends that model in place; it cuts off the end of the file
// in place; it deletes the file. What it did is never lost, what it deleted does not come back, and
// no text is a mixture: at the end the file has the edit made in their text, or their text made of
// ours, to the byte.
#include <algorithm>
#include <iterator>

#include "tests/database/sample_database.h"
#include "tests/faults/holder.h"
#include "tests/faults/scene.h"
#include "tests/faults/tally.h"

namespace corvane::faults {
namespace {

// ---- The other program -------------------------------------------------------------------------

std::string WithTheirBlock(const std::string& text) {
    test::SampleBlock block;
    // The number that an edit gives to a new model.
    block.number = " 5 ";
    block.keyword = "TORSION";
    block.name = "A model of another program";
    return text + test::BlockText(block);
}

// Their version comes from the old text, whatever is there by now.
std::string TheirVersion(const std::string&) {
    return WithTheirBlock(OldDatabase());
}

// The last lines are gone.
std::string CutOff(const std::string& text) {
    constexpr size_t kCut = 300;
    return text.substr(0, text.rfind('\n', text.size() - kCut) + 1);
}

// What they see of the file; false while our own calls let nobody open it.
bool See(const std::wstring& path, std::string& text) {
    system::File file;
    if (system::OpenForReading(path, file) != system::kErrorNone) return false;
    system::FileStamp stamp;
    size_t count = 0;
    bool isRead = system::GetFileStamp(file, stamp) == system::kErrorNone;
    text.resize(static_cast<size_t>(stamp.size));
    isRead = isRead &&
             system::ReadBytes(file, text.data(), text.size(), count) == system::kErrorNone &&
             count == text.size();
    system::CloseFile(file);
    return isRead;
}

struct Act {
    const char* name;
    std::string (*change)(const std::string& text);
    bool (*write)(const std::wstring& path, const std::string& text);
};

bool PutInPlace(const std::wstring& path, const std::string& text) {
    const test::TemporaryFolder elsewhere;
    const std::wstring version = elsewhere.File(L"ship.ve2");
    test::WriteFileBytes(version, text);
    return system::RenameOver(version, path) == system::kErrorNone;
}

constexpr Act kActs[] = {{"replaced in", TheirVersion, PutInPlace},
                         {"appended to in", WithTheirBlock, WriteInPlace},
                         {"cut off in", CutOff, WriteInPlace}};

// ---- The edits ---------------------------------------------------------------------------------

// Between the last look at the file and the rename over it nothing can be noticed.
bool IsTooLate(const std::vector<std::string>& calls, int call) {
    const auto last = std::find_if(calls.rbegin(), calls.rend(), IsRename);
    const auto rename = static_cast<int>(calls.rend() - last);
    return call <= rename && call > rename - kCallsOfARename;
}

std::vector<Edit> EditsThatKeepText() {
    std::vector<Edit> edits;
    std::ranges::copy_if(Edits(), std::back_inserter(edits), [](const Edit& edit) {
        return edit.expected != nullptr && (edit.keepsText || edit.keepsHistory);
    });
    return edits;
}

struct Meanwhile : testing::TestWithParam<Edit> {
    const test::TemporaryFolder folder;
    const test::TemporaryFolder temporaries;
    Scene scene{GetParam(), folder.path, temporaries.path};

    void SetUp() override { Measure(scene); }
    // The edit, while `act` acts at one call after another.
    template <class FaultWhile>
    void TryAtEveryCall(const char* what, FaultWhile faultWhile) {
        Tally tally{std::string(what) + " " + scene.edit.name};
        const auto opening = std::ranges::find_if(scene.calls, IsOpening);
        const auto opened = static_cast<int>(opening - scene.calls.begin()) + kCallsOfAnOpening;
        std::vector<int> calls;
        for (int call = opened + 1; call <= static_cast<int>(scene.calls.size()); ++call) {
            if (!IsTooLate(scene.calls, call)) calls.push_back(call);
        }
        for (const int call : tally.Taken(calls)) {
            Prepare(scene);
            tally.Count("call " + std::to_string(call) + " " + scene.calls[call - 1],
                        faultWhile(call));
        }
        tally.Print();
    }
    // Where they saw our text, theirs is the last one; else the edit is made in theirs, or not made
    // and reported.
    std::string FaultWhile(const Act& act, int call) const {
        std::string seen;
        std::string theirs;
        bool hasActed = false;
        Plan plan{Fault::kMeanwhile, call};
        plan.meanwhile = [&] {
            if (!See(scene.path, seen)) return;
            theirs = act.change(seen);
            hasActed = act.write(scene.path, theirs);
        };
        const Outcome outcome = RunEdit(scene, plan);
        if (!hasActed) return FaultAfterEnd(scene, outcome);
        Scene after = scene;
        if (seen == scene.oldText) {
            after.firstText = scene.oldText;
            after.oldText = theirs;
            if (!scene.edit.yields) after.newText = scene.edit.expected(theirs);
            if (scene.edit.yields && outcome.done) return "their text was replaced";
        } else {
            if (seen != scene.newText) return "they saw a mixture";
            after.newText = theirs;
        }
        return FaultAfterEnd(after, outcome);
    }
};

TEST_P(Meanwhile, WhatAnotherProgramWroteIsThereAtTheEnd) {
    for (const Act& act : kActs) {
        TryAtEveryCall(act.name, [&](int call) { return FaultWhile(act, call); });
    }
}

TEST_P(Meanwhile, DeletedFileDoesNotComeBack) {
    TryAtEveryCall("deleted in", [&](int call) -> std::string {
        bool hasActed = false;
        Plan plan{Fault::kMeanwhile, call};
        plan.meanwhile = [&] { hasActed = system::RemoveFile(scene.path) == system::kErrorNone; };
        const Outcome outcome = RunEdit(scene, plan);
        if (!hasActed) return FaultAfterEnd(scene, outcome);
        if (TextOf(scene.path) != kMissing) return "it is there again";
        return outcome.done || !outcome.messages.empty() ? "" : "failure without a message";
    });
}

INSTANTIATE_TEST_SUITE_P(Every, Meanwhile, testing::ValuesIn(EditsThatKeepText()),
                         [](const auto& edit) { return edit.param.name; });

}  // namespace
}  // namespace corvane::faults
