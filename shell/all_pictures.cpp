#include "shell/all_pictures.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include "files/file_system.h"
#include "files/paths.h"
#include "files/progress.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/file_prompt.h"
#include "shell/picture_file.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

// A section and its file.
struct Target {
    const ModelRow* row;
    std::wstring path;
    bool wasThere;
};

// What became of the files.
struct Outcome {
    int32_t written = 0;
    std::vector<std::wstring> leftOut;  // lines for the user
};

// Also what no program can read now.
bool IsThere(const std::wstring& path) {
    system::FileStatus status;
    system::GetFileStatus(path, status);
    return status.exists;
}

bool IsForbidden(wchar_t letter) {
    constexpr std::wstring_view kForbidden = L"\\/*?\"<>|:";
    return letter < L' ' || kForbidden.find(letter) != std::wstring_view::npos;
}

// A name as a part of a file's name; a longer one is cut.
std::wstring PartOfFileName(std::wstring name) {
    constexpr size_t kLongest = 60;
    std::ranges::replace_if(name, IsForbidden, L'_');
    return Trim(Trim(name).substr(0, kLongest));
}

// No two are the same: each has its section's number.
std::wstring FileNameFor(const ModelRow& row, const std::wstring& extension) {
    const std::wstring database = StripExtension(FileNameOf(shell.database.path));
    const std::wstring name = std::to_wstring(row.tag) + L" " + PartOfFileName(row.name);
    return PartOfFileName(database) + L" - " + Trim(name) + L"." + extension;
}

std::vector<Target> TargetsFor(const std::vector<ModelRow>& sections,
                               const PicturesChoice& choice) {
    const std::wstring folder = WithTrailingBackslash(choice.folder);
    const std::wstring extension = PictureKinds()[choice.kind].extension;
    std::vector<Target> targets;
    for (const ModelRow& row : sections) {
        const std::wstring path = folder + FileNameFor(row, extension);
        targets.push_back({&row, path, IsThere(path)});
    }
    return targets;
}

bool MayWrite(const std::vector<Target>& targets, const std::wstring& folder) {
    const bool areUsable = std::ranges::all_of(targets, [](const Target& target) {
        return RequireUsableTarget(target.path) && RequireOtherFile(target.path);
    });
    if (!areUsable) return false;
    const auto there = std::ranges::count_if(targets, &Target::wasThere);
    return there == 0 || shell.view.askOkCancel(BoxText(
                             kMsgReplacePictures, {static_cast<int32_t>(there),
                                                   static_cast<int32_t>(targets.size()), folder}));
}

// kMade also for a section that is left out.
FileEnd WriteTarget(const Target& target, Outcome& outcome) {
    ReportStatus(kMsgWritingPicture, {target.path});
    SectionModel section;
    std::wstring why = ReadToDraw(*target.row, section);
    // Nobody was asked about a file that was not there.
    if (!target.wasThere && IsThere(target.path)) why = GetMessage(kMsgPictureCameMeanwhile);
    if (!why.empty()) {
        outcome.leftOut.push_back(FormatMessage(kMsgPictureLeftOut, {target.row->name, why}));
        return FileEnd::kMade;
    }
    const FileEnd end = WritePicture(PictureOf(section), target.path);
    if (end == FileEnd::kMade) ++outcome.written;
    return end;
}

void LeaveOutRest(FileEnd end, ptrdiff_t rest, Outcome& outcome) {
    if (rest == 0) return;
    const int32_t why = end == FileEnd::kFailed ? kMsgRestNotWritten : kMsgRestCancelled;
    outcome.leftOut.push_back(FormatMessage(why, {static_cast<int32_t>(rest)}));
}

Outcome WriteTargets(const std::vector<Target>& targets) {
    Outcome outcome;
    Progress progress(static_cast<int64_t>(targets.size()));
    for (auto target = targets.begin(); target != targets.end(); ++target) {
        const FileEnd end = WriteTarget(*target, outcome);
        const bool isDone = end == FileEnd::kMade;
        if (isDone && Advance(progress, 1)) continue;
        LeaveOutRest(end, targets.end() - target - (isDone ? 1 : 0), outcome);
        break;
    }
    return outcome;
}

// As many lines as a box has room for on a small screen.
std::wstring LinesOf(const std::vector<std::wstring>& leftOut) {
    constexpr size_t kMostLines = 12;
    const size_t shown = leftOut.size() > kMostLines ? kMostLines - 2 : leftOut.size();
    std::wstring lines;
    for (size_t i = 0; i < shown; ++i) lines += leftOut[i] + L"\r";
    if (shown == leftOut.size()) return lines;
    // The last line may say that the user cancelled.
    const auto hidden = static_cast<int32_t>(leftOut.size() - 1 - shown);
    return lines + FormatMessage(kMsgMoreNotShown, {hidden}) + L"\r" + leftOut.back();
}

void ReportOutcome(const Outcome& outcome, int32_t count, const std::wstring& folder) {
    ReportNote(kMsgPicturesWritten, {outcome.written, count, folder});
    if (outcome.leftOut.empty()) return;
    reportView.showPlainBox(
        BoxText(kMsgPicturesLeftOut, {outcome.written, count, folder, LinesOf(outcome.leftOut)}));
}

}  // namespace

bool RequirePictureFolder(const PicturesChoice& choice) {
    const bool isThere = IsFullPath(choice.folder) && IsDirectory(choice.folder);
    if (!isThere) ReportMessage(kMsgNoPictureFolder, {choice.folder});
    return isThere;
}

void ExportAllPictures() {
    const std::vector<ModelRow> sections = SectionsToDraw();
    if (sections.empty()) return ReportNote(kMsgNoSectionsToExport);
    PicturesChoice choice{.folder = shell.settings.BrowseDirectory,
                          .count = static_cast<int>(sections.size())};
    if (!shell.view.askPictures(choice)) return;
    const std::vector<Target> targets = TargetsFor(sections, choice);
    if (!MayWrite(targets, choice.folder)) return;
    shell.settings.BrowseDirectory = WithTrailingBackslash(choice.folder);
    SetBusyPointer();
    const Outcome outcome = WriteTargets(targets);
    ResetMousePointer();
    ReportOutcome(outcome, static_cast<int32_t>(targets.size()), choice.folder);
}

}  // namespace corvane
