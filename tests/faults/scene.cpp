#include "tests/faults/scene.h"

#include <algorithm>

#include "files/file_system.h"
#include "report/messages.h"
#include "tests/support/recorded_reports.h"

namespace corvane::faults {
namespace {

using test::Narrow;

void RemoveAllFiles(const std::wstring& folder) {
    for (const std::wstring& name : test::FilesIn(folder)) system::RemoveFile(folder + name);
}

// A file's bytes, "missing" when there is none.
std::string TextOf(const std::wstring& path) {
    system::FileStatus status;
    system::GetFileStatus(path, status);
    return status.exists ? test::ReadFileBytes(path) : "missing";
}

std::string OldText(const Scene& scene) {
    return scene.edit.startsWithFile ? OldDatabase() : "missing";
}

std::string OldBackup(const Scene& scene) {
    return scene.edit.startsWithBackup ? std::string(kOlderBackup) : "missing";
}

std::string Described(const std::string& text) {
    return text == "missing" ? text : std::to_string(text.size()) + " bytes";
}

bool IsNamed(const std::wstring& path, const std::vector<std::string>& messages) {
    return std::any_of(messages.begin(), messages.end(), [&](const std::string& message) {
        return message.find(Narrow(path)) != std::string::npos;
    });
}

// A file that no message named.
std::string StrayFile(const Scene& scene, const std::vector<std::string>& messages) {
    for (const std::wstring& folder : {scene.folder, scene.temporaries}) {
        for (const std::wstring& name : test::FilesIn(folder)) {
            const std::wstring path = folder + name;
            if (path == scene.path || path == scene.backup || IsNamed(path, messages)) continue;
            return "stray file " + Narrow(path);
        }
    }
    return {};
}

std::string FaultOfSuccess(const Scene& scene) {
    if (TextOf(scene.path) != scene.newText) {
        return "success, but the file has " + Described(TextOf(scene.path));
    }
    const std::string backup = scene.edit.keepsBackup ? OldText(scene) : OldBackup(scene);
    if (TextOf(scene.backup) == backup) return {};
    return "success, but the backup has " + Described(TextOf(scene.backup));
}

std::string FaultOfFailure(const Scene& scene, const std::vector<std::string>& messages) {
    if (TextOf(scene.path) != OldText(scene)) {
        return "failure, but the file has " + Described(TextOf(scene.path));
    }
    const std::string backup = TextOf(scene.backup);
    const bool isBackupOfNow = scene.edit.keepsBackup && backup == OldText(scene);
    if (!isBackupOfNow && backup != OldBackup(scene)) {
        return "failure, and the backup has " + Described(backup);
    }
    return IsNamed(scene.path, messages) ? "" : "failure, but no message that names the file";
}

}  // namespace

void Prepare(const Scene& scene) {
    RemoveAllFiles(scene.folder);
    RemoveAllFiles(scene.temporaries);
    if (scene.edit.startsWithFile) test::WriteFileBytes(scene.path, OldDatabase());
    if (scene.edit.startsWithBackup) test::WriteFileBytes(scene.backup, kOlderBackup);
}

Outcome RunEdit(const Scene& scene, const Plan& plan) {
    const test::RecordedReports screen;
    LoadLibraries();
    const std::wstring usualFolder = system::TemporaryDirectory();
    SetTemporaryFolder(scene.temporaries);
    StartFaults(plan);
    Outcome outcome;
    outcome.done = scene.edit.run(scene.path);
    outcome.calls = StopFaults();
    SetTemporaryFolder(usualFolder);
    outcome.messages = test::RecordedReports::Of("warning");
    return outcome;
}

void Measure(Scene& scene) {
    Prepare(scene);
    const Outcome outcome = RunEdit(scene, {});
    scene.calls = outcome.calls;
    scene.newText = TextOf(scene.path);
}

int RunAsChild(const std::vector<std::string>& arguments) {
    const Edit* const edit = arguments.size() == 5 ? FindEdit(arguments[0]) : nullptr;
    if (edit == nullptr) return 2;
    const Scene scene{*edit, system::WideFromAnsi(arguments[1]),
                      system::WideFromAnsi(arguments[2])};
    const Plan plan{static_cast<Fault>(std::stoi(arguments[3])), std::stoi(arguments[4])};
    return RunEdit(scene, plan).done ? 0 : 1;
}

std::string FaultAfterDeath(const Scene& scene) {
    const std::string text = TextOf(scene.path);
    if (text != OldText(scene) && text != scene.newText) return "file: " + Described(text);
    const std::string backup = TextOf(scene.backup);
    const bool isBackupOfNow = scene.edit.keepsBackup && backup == OldText(scene);
    if (!isBackupOfNow && backup != OldBackup(scene)) return "backup: " + Described(backup);
    // The old text must not be gone before the backup that was wanted is there.
    const bool isReplaced = text == scene.newText && text != OldText(scene);
    return isReplaced && scene.edit.keepsBackup && !isBackupOfNow ? "no backup" : "";
}

std::string FaultAfterEnd(const Scene& scene, const Outcome& outcome) {
    const std::string fault =
        outcome.done ? FaultOfSuccess(scene) : FaultOfFailure(scene, outcome.messages);
    return fault.empty() ? StrayFile(scene, outcome.messages) : fault;
}

}  // namespace corvane::faults
