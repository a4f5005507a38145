#include "tests/faults/scene.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "files/file_system.h"
#include "files/history.h"
#include "report/messages.h"
#include "tests/support/recorded_reports.h"

namespace corvane::faults {
namespace {

using test::Narrow;

void RemoveAllFiles(const std::wstring& folder) {
    for (const std::wstring& name : test::FilesIn(folder)) system::RemoveFile(folder + name);
}

// The history of the scene, empty.
void PrepareHistory(const Scene& scene) {
    test::SetLocalDataDirectory(scene.temporaries);
    for (const wchar_t* name : {L"Corvane", L"Corvane\\history", L"Corvane\\history\\1"}) {
        const std::wstring folder = scene.temporaries + name;
        system::MakeDirectory(folder);
        RemoveAllFiles(folder + L'\\');
    }
}

// Each version is a text that the database had, and none is lost: where the new text is in place,
// the old one is a version. `mayLack`: it could not be kept.
std::string FaultOfHistory(const Scene& scene, bool mayLack) {
    if (!scene.edit.keepsHistory) return {};
    std::vector<TextVersion> versions;
    if (ReadHistory(scene.path, versions) != system::kErrorNone) return "unreadable history";
    bool isKept = false;
    for (const TextVersion& version : versions) {
        const std::string text = test::ReadFileBytes(version.file);
        const bool isOld = text == scene.oldText;
        if (text != scene.newText && !isOld && text != scene.firstText) return "a torn version";
        isKept = isKept || isOld;
    }
    const bool isReplaced = TextOf(scene.path) == scene.newText;
    return isReplaced && !isKept && !mayLack ? "the old text is in no version" : "";
}

std::string OldBackup(const Scene& scene) {
    return scene.edit.startsWithBackup ? std::string(kOlderBackup) : kMissing;
}

std::string Described(const std::string& text) {
    return text == kMissing ? text : std::to_string(text.size()) + " bytes";
}

bool IsNamed(const std::wstring& path, const std::vector<std::string>& messages) {
    return std::any_of(messages.begin(), messages.end(), [&](const std::string& message) {
        return message.find(Narrow(path)) != std::string::npos;
    });
}

// A file that no message named.
std::string StrayFile(const Scene& scene, const Outcome& outcome) {
    for (const std::wstring& folder : {scene.folder, scene.temporaries}) {
        for (const std::wstring& name : test::FilesIn(folder)) {
            const std::wstring path = folder + name;
            if (path == scene.path || path == scene.backup || path == scene.source) continue;
            if (scene.edit.keepsHistory && name == L"Corvane") continue;
            if (IsNamed(path, outcome.messages)) continue;
            return "stray file " + Narrow(path);
        }
    }
    return {};
}

std::string FaultOfSource(const Scene& scene) {
    const auto& source = scene.edit.source;
    return source == nullptr || TextOf(scene.source) == source() ? "" : "the source was changed";
}

std::string FaultOfSuccess(const Scene& scene, const std::vector<std::string>& messages) {
    // What could not be read of a source may be left out, if that was reported.
    const bool isLess = scene.edit.source != nullptr && IsNamed(scene.source, messages);
    if (TextOf(scene.path) != scene.newText && !isLess) {
        return "success, but the file has " + Described(TextOf(scene.path));
    }
    const std::string backup = scene.edit.keepsBackup ? scene.oldText : OldBackup(scene);
    if (TextOf(scene.backup) == backup) return {};
    return "success, but the backup has " + Described(TextOf(scene.backup));
}

std::string FaultOfFailure(const Scene& scene, const std::vector<std::string>& messages) {
    const std::string text = TextOf(scene.path);
    // What was written counts as a failure where it cannot be read again.
    const bool isUnread = scene.edit.isReadAgain && text == scene.newText;
    if (text != scene.oldText && !isUnread) {
        return "failure, but the file has " + Described(TextOf(scene.path));
    }
    const std::string backup = TextOf(scene.backup);
    const bool isBackupOfNow =
        scene.edit.keepsBackup && (backup == scene.oldText || backup == scene.firstText);
    if (!isBackupOfNow && backup != OldBackup(scene)) {
        return "failure, and the backup has " + Described(backup);
    }
    // A conversion names the file with which it failed, which may be any of those that it needs.
    const bool isTold =
        scene.edit.source != nullptr ? !messages.empty() : IsNamed(scene.path, messages);
    return isTold ? "" : "failure, but no message that names the file";
}

}  // namespace

std::string TextOf(const std::wstring& path) {
    system::FileStatus status;
    system::GetFileStatus(path, status);
    return status.exists ? test::ReadFileBytes(path) : kMissing;
}

void Prepare(const Scene& scene) {
    RemoveAllFiles(scene.folder);
    RemoveAllFiles(scene.temporaries);
    if (scene.edit.startsWithFile) test::WriteFileBytes(scene.path, scene.edit.oldText());
    if (scene.edit.startsWithBackup) test::WriteFileBytes(scene.backup, kOlderBackup);
    if (scene.edit.source != nullptr) test::WriteFileBytes(scene.source, scene.edit.source());
    if (!scene.edit.keepsHistory) return;
    PrepareHistory(scene);
    if (scene.edit.prepare == nullptr) return;
    const test::RecordedReports screen;
    LoadLibraries();
    test::WriteFileBytes(scene.path, OldDatabase());
    scene.edit.prepare(scene.path);
}

Outcome RunEdit(const Scene& scene, const Plan& plan) {
    const test::RecordedReports screen;
    LoadLibraries();
    const std::wstring usualFolder = system::TemporaryDirectory();
    SetTemporaryFolder(scene.temporaries);
    test::SetLocalDataDirectory(scene.temporaries);
    StartFaults(plan);
    Outcome outcome;
    outcome.done = scene.edit.run(scene.path);
    outcome.calls = StopFaults();
    CallDosLibraryAgain(scene.path);
    SetTemporaryFolder(usualFolder);
    outcome.messages = test::RecordedReports::Of("warning");
    return outcome;
}

void Measure(Scene& scene) {
    Prepare(scene);
    const Outcome outcome = RunEdit(scene, {});
    const Edit& edit = scene.edit;
    scene.calls = outcome.calls;
    scene.oldText = edit.startsWithFile ? edit.oldText() : kMissing;
    scene.newText = edit.expected != nullptr ? edit.expected(scene.oldText) : TextOf(scene.path);
    EXPECT_TRUE(outcome.done);
    EXPECT_EQ(FaultAfterEnd(scene, outcome), "");
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
    if (text != scene.oldText && text != scene.newText) return "file: " + Described(text);
    const std::string backup = TextOf(scene.backup);
    const bool isBackupOfNow = scene.edit.keepsBackup && backup == scene.oldText;
    if (!isBackupOfNow && backup != OldBackup(scene)) return "backup: " + Described(backup);
    // The old text must not be gone before the backup that was wanted is there.
    const bool isReplaced = text == scene.newText && text != scene.oldText;
    if (isReplaced && scene.edit.keepsBackup && !isBackupOfNow) return "no backup";
    const std::string fault = FaultOfHistory(scene, false);
    return fault.empty() ? FaultOfSource(scene) : fault;
}

std::string FaultAfterEnd(const Scene& scene, const Outcome& outcome) {
    std::string fault = outcome.done ? FaultOfSuccess(scene, outcome.messages)
                                     : FaultOfFailure(scene, outcome.messages);
    if (fault.empty()) fault = FaultOfSource(scene);
    if (fault.empty()) fault = FaultOfHistory(scene, !outcome.calls.empty());
    return fault.empty() ? StrayFile(scene, outcome) : fault;
}

}  // namespace corvane::faults
