// A folder with a database, a folder for temporary files, and one edit in them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/faults/edits.h"
#include "tests/faults/injection.h"
#include "tests/support/support.h"

namespace corvane::faults {

struct Scene {
    const Edit& edit;
    std::wstring folder;
    std::wstring temporaries;
    std::wstring path = folder + L"ship.ve2";
    std::wstring backup = folder + L"ship.bak";
    std::wstring source = folder + kSourceName;
    // The file's text before the edit and after it, and the calls that it takes; filled by Measure.
    std::string oldText = {};
    std::string newText = {};
    // The file's text before another program changed it: a backup of that is as good, too.
    std::optional<std::string> firstText = {};
    std::vector<std::string> calls = {};
};

// What an edit did.
struct Outcome {
    bool done = false;
    std::vector<std::string> messages;  // warning boxes
    std::vector<std::string> calls;
};

// Makes both folders hold what the edit begins with, and nothing else.
void Prepare(const Scene& scene);
// Runs the edit in this process, with a fault.
Outcome RunEdit(const Scene& scene, const Plan& plan);
// Runs the edit without a fault; a test fails when that does not give the text that it must give.
void Measure(Scene& scene);
// A file's bytes; kMissing when it is not there.
inline constexpr char kMissing[] = "missing";
std::string TextOf(const std::wstring& path);

// Runs the edit in a process of its own; true when that was killed, false when it came to its end.
bool IsKilled(const Scene& scene, const Plan& plan);
// What that process does where it is the same program run again: its arguments are EDIT FOLDER
// TEMPORARIES FAULT CALL.
int RunAsChild(const std::vector<std::string>& arguments);

// What is wrong with the files as they are, "" when nothing is.
// After a death: the file is whole, the old or the new one, and so is the backup.
std::string FaultAfterDeath(const Scene& scene);
// After an edit that came to its end: what it says is true, a failure was reported, and no
// file is left that no message names.
std::string FaultAfterEnd(const Scene& scene, const Outcome& outcome);

}  // namespace corvane::faults
