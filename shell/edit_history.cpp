#include "shell/edit_history.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "files/file_system.h"
#include "files/paths.h"
#include "files/rewrite.h"
#include "files/settings_file.h"
#include "platform/ztutil32.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/file_prompt.h"
#include "shell/new_file.h"
#include "shell/running_mark.h"
#include "shell/settings.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

using system::FileStamp;
using system::kErrorNone;

// No texts of the catalogue: a catalogue other than ours does not know them.
constexpr char kSection[] = "Corvane history";
constexpr char kVersionsKey[] = "Versions";
constexpr char kMegabytesKey[] = "Megabytes";

int32_t ReadLimit(const char* key, int32_t usual, int32_t most) {
    return std::clamp(system::ReadProfileInteger(kSection, key, usual, SettingsFile()), 1, most);
}

bool WriteLimit(const char* key, int32_t limit) {
    return WriteIniText(kSection, key, std::to_string(limit), SettingsFile()) == kErrorNone;
}

int32_t Megabytes(const HistoryLimits& limits) {
    return static_cast<int32_t>(limits.bytes >> 20);
}

std::wstring UserName() {
    std::array<char, 256> buffer{};
    LoginName(buffer.data(), static_cast<int32_t>(buffer.size()) - 1);
    return system::WideFromAnsi(buffer.data());
}

// The models of the text with this stamp, as the list has them; -1 when it has another text.
int32_t ModelsOf(const FileStamp& stamp) {
    const std::vector<ModelRow>& rows = shell.database.rows;
    const bool isListed = !rows.empty() && rows.front().stamp == stamp;
    return isListed ? static_cast<int32_t>(rows.size()) : -1;
}

VersionToKeep NewVersion(const std::wstring& path, const FileStamp& old, const FileStamp& now) {
    VersionToKeep toKeep;
    toKeep.path = path;
    toKeep.version.user = UserName();
    toKeep.version.models = ModelsOf(old);
    toKeep.version.old = old;
    toKeep.version.now = now;
    toKeep.limits = shell.history.limits;
    return toKeep;
}

// A command that goes on with what it has written itself adds no version.
system::ErrorNumber KeepOldText(const Rewrite& rewrite, std::wstring& file) {
    EditHistory& history = shell.history;
    FileStamp now;
    if (history.edit.empty()) return kErrorNone;
    history.error = system::GetFileStamp(rewrite.newText, now);
    if (history.error == kErrorNone && history.isKept && history.last == rewrite.stamp) {
        history.error = NoteNewStamp(rewrite.target, rewrite.stamp, now);
    } else if (history.error == kErrorNone) {
        VersionToKeep toKeep = NewVersion(rewrite.target, rewrite.stamp, now);
        toKeep.version.kind = history.kind;
        toKeep.version.what = history.edit;
        toKeep.keepsRedo = history.keepsRedo;
        toKeep.putBack = history.putBack;
        history.error = KeepVersion(toKeep, file);
        history.isKept = history.error == kErrorNone;
    }
    history.last = now;
    if (history.error != system::kErrorCancelled) return kErrorNone;
    history.error = kErrorNone;  // there is no change that has no history
    return system::kErrorCancelled;
}

// The open database's history and stamp, and the steps that they give.
struct ReadSteps {
    std::vector<TextVersion> versions;
    FileStamp current;
    UndoSteps steps;
    system::ErrorNumber error = kErrorNone;

    ReadSteps() {
        const std::wstring& path = shell.database.path;
        if (!shell.history.isOn || path.empty()) return;
        error = system::GetFileStamp(path, current);
        if (error == kErrorNone) error = ReadHistory(path, versions);
        if (error == kErrorNone) steps = NextSteps(versions, current);
    }
};

std::wstring SizeText(const TextVersion& version) {
    return std::to_wstring((version.old.size + 1023) / 1024) + L" KB";
}

std::wstring TextOfTime(int64_t modified) {
    return TimeText(system::LocalTimeOf(modified));
}

// Whether the version may come back: asked where more than its edit would be undone, and where the
// version is not what was kept.
bool ConfirmPuttingBack(const TextVersion& version, const FileStamp& current) {
    if (!(version.now == current) &&
        !shell.view.askIrreversible(
            BoxText(kMsgChangedSince, {shell.database.path, TextOfTime(version.now.modified),
                                       TextOfTime(current.modified)}))) {
        return false;
    }
    return !version.isChanged ||
           shell.view.askIrreversible(BoxText(kMsgVersionChanged, {version.time}));
}

// Makes a rewrite of the open database whose new text is that of a file. False, and reported, when
// the database is not the one with the stamp `expected`, or the text cannot be put in place.
bool PutTextInPlace(const std::wstring& source, const FileStamp& expected, TextSource kind) {
    const std::wstring path = shell.database.path;
    Rewrite rewrite;
    rewrite.keepBackup = kind == TextSource::kVersion;
    if (!OpenOldText(rewrite, path)) {
        ReportTextNotWritten(path, rewrite.reader.error);
        return false;
    }
    RewriteEnd end = RewriteEnd::kChanged;
    if (rewrite.stamp == expected) {
        BeginRestoring(rewrite, source, kind);
        end = FinishRewrite(rewrite);
    } else {
        AbandonRewrite(rewrite);
    }
    if (end == RewriteEnd::kChanged) ReportMessage(kMsgChangedTooOften, {path});
    return end == RewriteEnd::kDone;
}

bool PutVersionBack(const TextVersion& version, const FileStamp& current) {
    ReportStatus(kMsgWritingDatabase, {shell.database.path});
    if (!PutTextInPlace(version.file, current, TextSource::kVersion)) return false;
    // It is the database now; its line no longer counts.
    RemoveOwnFile(version.file);
    ReadShipRecordAgain();
    RefreshMainWindow();
    return true;
}

// False, and reported, when the history cannot be read.
bool RequireRead(const ReadSteps& read) {
    if (read.error == kErrorNone) return true;
    ReportMessage(kMsgHistoryNotRead, {shell.database.path, SystemError{read.error}});
    return false;
}

bool MakeStep(const TextVersion* UndoSteps::* step, VersionKind kind, MessageNumber note) {
    const ReadSteps read;
    const TextVersion* version = read.steps.*step;
    if (!RequireRead(read)) return false;
    if (version == nullptr) {
        ReportMessage(kMsgNoSuchStep, {shell.database.path});
        RefreshMainWindow();
        return false;
    }
    if (!ConfirmPuttingBack(*version, read.current)) return false;
    const EditName edit(version->what);
    shell.history.kind = kind;
    shell.history.keepsRedo = true;
    shell.history.putBack = version->old;
    if (!PutVersionBack(*version, read.current)) return false;
    ReportNote(note, {version->what});
    return true;
}

}  // namespace

void UseHistory() {
    EditHistory& history = shell.history;
    history.isOn = true;
    history.limits.versions = ReadLimit(kVersionsKey, HistoryLimits().versions, kMostVersions);
    const int32_t megabytes = Megabytes(HistoryLimits());
    history.limits.bytes = int64_t{ReadLimit(kMegabytesKey, megabytes, kMostMegabytes)} << 20;
    keepOldText = KeepOldText;
}

bool KeepHistoryLimits(int32_t versions, int32_t megabytes) {
    const HistoryLimits before =
        std::exchange(shell.history.limits, HistoryLimits{versions, int64_t{megabytes} << 20});
    return (before.versions == versions || WriteLimit(kVersionsKey, versions)) &&
           (Megabytes(before) == megabytes || WriteLimit(kMegabytesKey, megabytes));
}

EditName::EditName(const std::wstring& name) {
    EditHistory& history = shell.history;
    if (!history.isOn) return;
    history.edit = name;
    history.kind = VersionKind::kEdit;
    history.keepsRedo = history.isKept = false;
    history.putBack = FileStamp();
    history.error = kErrorNone;
}

EditName::~EditName() {
    shell.history.edit.clear();
    ReportKept(shell.history.error);
}

void ReadUndoNames() {
    const ReadSteps read;
    const auto nameOf = [](const TextVersion* version) {
        return version == nullptr ? std::wstring() : version->what;
    };
    shell.history.undoName = nameOf(read.steps.undo);
    shell.history.redoName = nameOf(read.steps.redo);
}

bool RequireEditable() {
    return RequireDatabase() && RequireWritableDatabase() && ConfirmEdit();
}

bool UndoEdit() {
    return MakeStep(&UndoSteps::undo, VersionKind::kUndo, kMsgUndone);
}

bool RedoEdit() {
    return MakeStep(&UndoSteps::redo, VersionKind::kEdit, kMsgRedone);
}

VersionChoice ReadVersions() {
    const ReadSteps read;
    RequireRead(read);
    VersionChoice choice{shell.database.path, {}, read.current};
    for (const TextVersion& version : read.versions) {
        if (!(version.old == read.current)) choice.versions.push_back(version);
    }
    std::ranges::reverse(choice.versions);
    return choice;
}

std::wstring NameOfChange(const TextVersion& version) {
    return version.kind == VersionKind::kUndo ? FormatMessage(kMsgUndoOf, {version.what})
                                              : version.what;
}

std::span<const VersionColumn> VersionColumns() {
    static constexpr VersionColumn kColumns[] = {
        {L"Time", L"2026-03-29 14:05:30", false, [](const TextVersion& v) { return v.time; }},
        {L"Before", L"Changes by SectInput (Section 'Frame 52')", false, NameOfChange},
        {L"User", L"a user's name", false, [](const TextVersion& v) { return v.user; }},
        {L"Models", L"Models", true,
         [](const TextVersion& v) { return v.models < 0 ? L"" : std::to_wstring(v.models); }},
        {L"Size", L"100,000 KB", true, SizeText},
    };
    return kColumns;
}

bool RestoreVersion(const VersionChoice& choice) {
    const TextVersion& version = choice.versions.at(choice.chosen);
    if (version.isChanged &&
        !shell.view.askIrreversible(BoxText(kMsgVersionChanged, {version.time}))) {
        return false;
    }
    const EditName edit(FormatMessage(kMsgRestoreOf, {version.time}));
    shell.history.putBack = version.old;
    return PutVersionBack(version, choice.current);
}

void SaveVersionAs(const std::wstring& path, const TextVersion& version) {
    const std::wstring target = AskForFile({.command = ME_FileVersions,
                                            .types = GetMessage(kMsgDatabaseFiles),
                                            .proposed = StripExtension(FileNameOf(path)) + L' ' +
                                                        CleanFileName(version.time) + L".ve2",
                                            .directory = shell.settings.BrowseDirectory,
                                            .toSave = true});
    const std::wstring edit = ReplacementBy(path);
    if (target.empty() || !RequireOtherFile(target) || !PutFile(version.file, target, edit)) return;
    ReportNote(kMsgCopySaved, {target});
}

KeptForRun KeepBeforeRun(const std::wstring& name) {
    KeptForRun kept;
    const std::wstring path = system::LinkedFile(shell.database.path);
    if (!shell.history.isOn) return kept;
    kept.error = system::GetFileStamp(path, kept.before);
    if (kept.error != kErrorNone) return kept;
    if (kept.before.linkCount > 1 && !IsReadOnlyFile(path) &&
        PutTextInPlace(path, kept.before, TextSource::kCopy)) {
        const FileStamp shared = kept.before;
        kept.error = system::GetFileStamp(path, kept.before);
        NoteNewStamp(path, shared, kept.before);
    }
    VersionToKeep toKeep = NewVersion(path, kept.before, kept.before);
    toKeep.version.what = name;
    toKeep.asCopy = true;
    std::wstring file;
    kept.error = KeepVersion(toKeep, file);
    return kept;
}

void NoteAfterRun(const KeptForRun& kept) {
    FileStamp now;
    const std::wstring path = system::LinkedFile(shell.database.path);
    if (!shell.history.isOn || system::GetFileStamp(path, now) != kErrorNone) return;
    if (!(now == kept.before)) NoteNewStamp(path, kept.before, now);
}

void ReportKept(system::ErrorNumber error) {
    if (error != kErrorNone) ReportNote(kMsgNoHistory, {SystemError{error}});
}

}  // namespace corvane
