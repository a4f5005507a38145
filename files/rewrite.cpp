#include "files/rewrite.h"

#include "files/file_system.h"
#include "files/paths.h"
#include "files/read_fault.h"
#include "platform/patience.h"
#include "report/reporters.h"
#include "text/text.h"

namespace corvane {
namespace {

using system::ErrorNumber;
using system::kErrorNone;

void ReportLeftOver(const std::wstring& path) {
    if (!path.empty()) ReportMessage(kMsgFileNotRemoved, {path});
}

// Gives the target's text the backup's name, too. A failure is reported.
ErrorNumber KeepBackup(const Rewrite& rewrite) {
    const std::wstring path = BackupPath(rewrite.target);
    if (EqualsIgnoringCase(path, rewrite.target)) {
        ReportMessage(kMsgBackupNotWritten, {path, rewrite.target, GetMessage(kMsgBackupIsTheFile),
                                             rewrite.newText, RemedyOf(kErrorNone)});
        return system::kErrorInvalidParameter;
    }
    const ReplaceResult backup = PutLinkOrCopy(rewrite.target, path);
    ReportReplacement(
        backup, kMsgBackupNotWritten,
        {path, rewrite.target, ReasonOf(backup.error), rewrite.newText, RemedyOf(backup.error)});
    return backup.error;
}

// The old text's other names, its backup aside: an edit that ended halfway may have left that one.
int64_t CountOtherLinks(const Rewrite& rewrite) {
    if (rewrite.stamp.linkCount < 2 || IsDirectory(rewrite.target)) return 0;
    const bool isBackup = IsSameFile(BackupPath(rewrite.target), rewrite.target);
    return rewrite.stamp.linkCount - (isBackup ? 2 : 1);
}

void RemoveNewText(const Rewrite& rewrite) {
    if (rewrite.newText.empty() || RemoveOwnFile(rewrite.newText) == kErrorNone) return;
    ReportLeftOver(rewrite.newText);
}

// Looks at the target of a rewrite that does not read it.
void LookAtTarget(Rewrite& rewrite, const std::wstring& path) {
    rewrite.target = system::LinkedFile(path);
    rewrite.isTargetThere = system::GetFileStamp(rewrite.target, rewrite.stamp) == kErrorNone;
}

// The history has a version of an edit that has failed: not while the target has that text, too.
void DropVersion(const Rewrite& rewrite, const std::wstring& version) {
    system::FileStamp now;
    if (version.empty() || system::GetFileStamp(rewrite.target, now) != kErrorNone) return;
    if (now == rewrite.stamp) RemoveOwnFile(version);
}

// What keeps the old text beyond its replacement.
ErrorNumber KeepOldText(const Rewrite& rewrite, std::wstring& version) {
    if (!rewrite.isTargetThere) return kErrorNone;
    const ErrorNumber error = keepOldText(rewrite, version);
    return error == kErrorNone && rewrite.keepBackup ? KeepBackup(rewrite) : error;
}

RewriteEnd EndUnkept(Rewrite& rewrite, ErrorNumber error) {
    if (error == system::kErrorCancelled) {
        AbandonRewrite(rewrite);
        ReportTextNotWritten(rewrite.target, error);
    }
    return RewriteEnd::kFailed;
}

RewriteEnd ReplaceOldText(Rewrite& rewrite) {
    const ReplaceResult result = PutInPlace(rewrite.newText, rewrite.target,
                                            rewrite.isTargetThere ? &rewrite.stamp : nullptr);
    if (result.error == system::kErrorFileChanged) {
        AbandonRewrite(rewrite);
        return RewriteEnd::kChanged;
    }
    ReportReplacement(
        result, kMsgFileNotWritten,
        {rewrite.target, ReasonOf(result.error), rewrite.newText, RemedyOf(result.error)});
    return result.Done() ? RewriteEnd::kDone : RewriteEnd::kFailed;
}

RewriteEnd PutNewTextInPlace(Rewrite& rewrite) {
    std::wstring version;
    const ErrorNumber error = KeepOldText(rewrite, version);
    const RewriteEnd end =
        error == kErrorNone ? ReplaceOldText(rewrite) : EndUnkept(rewrite, error);
    if (end != RewriteEnd::kDone) DropVersion(rewrite, version);
    return end;
}

// Makes the empty file for the new text.
bool MakeNewText(Rewrite& rewrite) {
    rewrite.folderError =
        system::NewTemporaryName(DirectoryOf(rewrite.target), kTemporaryPrefix, rewrite.newText);
    rewrite.writer.error = rewrite.folderError;
    if (rewrite.folderError != kErrorNone) RemoveNewText(rewrite);
    return rewrite.folderError == kErrorNone;
}

}  // namespace

OldTextKeeper keepOldText = [](const Rewrite&, std::wstring&) { return kErrorNone; };

bool OpenOldText(Rewrite& rewrite, const std::wstring& path) {
    rewrite.target = system::LinkedFile(path);
    system::File file;
    ErrorNumber error = OpenPatiently(rewrite.target, file);
    if (error == kErrorNone) error = system::GetFileStamp(file, rewrite.stamp);
    rewrite.isTargetThere = error == kErrorNone;
    AdoptFile(rewrite.reader, file);
    rewrite.reader.error = error;
    rewrite.progress.total = rewrite.stamp.size;
    rewrite.reader.progress = &rewrite.progress;
    return rewrite.isTargetThere;
}

void BeginRewrite(Rewrite& rewrite, const std::wstring& path) {
    if (!rewrite.reader.file.IsOpen()) LookAtTarget(rewrite, path);
    if (!MakeNewText(rewrite)) return;
    const int64_t otherLinks = CountOtherLinks(rewrite);
    if (otherLinks > 0) {
        ReportMessage(kMsgOtherLinks, {rewrite.target, static_cast<int32_t>(otherLinks)});
    }
    // Before the first line is written: what others may not read they never can.
    if (CreateText(rewrite.writer, rewrite.newText) && rewrite.isTargetThere) {
        rewrite.writer.error = system::CopyAttributes(rewrite.target, rewrite.newText);
    }
}

void BeginRestoring(Rewrite& rewrite, const std::wstring& source, TextSource kind) {
    if (!MakeNewText(rewrite)) return;
    ErrorNumber error = RemoveOwnFile(rewrite.newText);  // only its name is wanted
    const bool isLinked = error == kErrorNone && kind == TextSource::kVersion &&
                          system::MakeLink(source, rewrite.newText) == kErrorNone;
    if (!isLinked) error = CopyToNewFile(source, rewrite.newText);
    if (error == kErrorNone) error = system::CopyAttributes(rewrite.target, rewrite.newText);
    rewrite.writer.error = error;
}

void AbandonRewrite(Rewrite& rewrite) {
    system::CloseFile(rewrite.reader.file);
    CloseText(rewrite.writer);
    RemoveNewText(rewrite);
}

RewriteEnd FinishRewrite(Rewrite& rewrite) {
    const ErrorNumber readError = rewrite.reader.error;
    if (readError == kErrorNone && rewrite.writer.file.IsOpen()) FlushText(rewrite.writer);
    CloseText(rewrite.writer);
    // Some systems let nobody rename over a file that is open.
    system::CloseFile(rewrite.reader.file);
    if (rewrite.folderError != kErrorNone) {
        ReportMessage(kMsgFolderNotWritable, {rewrite.target, SystemError{rewrite.folderError}});
        return RewriteEnd::kFailed;
    }
    if (readError == system::kErrorFileChanged) {
        AbandonRewrite(rewrite);
        return RewriteEnd::kChanged;
    }
    const ErrorNumber error = readError != kErrorNone ? readError : rewrite.writer.error;
    if (error == kErrorNone) return PutNewTextInPlace(rewrite);
    AbandonRewrite(rewrite);
    ReportTextNotWritten(rewrite.target, error);
    return RewriteEnd::kFailed;
}

ReplaceResult ReplaceByCopy(const std::wstring& source, const std::wstring& target,
                            TargetKind kind) {
    Rewrite rewrite;
    LookAtTarget(rewrite, target);
    system::File held;
    ReplaceResult result;
    result.error = OpenPatiently(source, held);
    if (system::IsLocked(result.error)) {
        ReportMessage(kMsgSourceHeld, {source, target, HoldersOf(source)});
        return result;
    }
    std::wstring version;
    const auto keep = [&](const std::wstring& copy) {
        rewrite.newText = copy;
        return KeepOldText(rewrite, version);
    };
    result = PutCopy(source, rewrite.target, kind, keep);
    system::CloseFile(held);
    if (!result.Done()) DropVersion(rewrite, version);
    ReportReplacement(result, kMsgFileNotMade, {target, ReasonOf(result.error)});
    return result;
}

void ReportTextNotWritten(const std::wstring& target, ErrorNumber error) {
    if (error == system::kErrorCancelled) return ReportNote(kMsgCancelled, {target});
    if (!system::IsLocked(error)) {
        ReportMessage(kMsgTextNotWritten, {target, SystemError{error}});
        return;
    }
    ReportMessage(kMsgHeldByProgram, {target, HoldersOf(target)});
}

void ReportReplacement(const ReplaceResult& result, int32_t failure, MessageArguments arguments) {
    if (!result.oldText.empty()) {
        ReportMessage(kMsgFileTakenAway,
                      {result.target, ReasonOf(result.error), result.oldText, result.newText});
    } else if (result.error == system::kErrorCancelled) {
        ReportNote(kMsgCancelled, {result.target});
    } else if (!result.Done()) {
        ReportMessage(failure, arguments);
    }
    ReportLeftOver(result.leftOver);
}

MessageArgument ReasonOf(ErrorNumber error) {
    MessageArgument reason = SystemError{error};
    if (error == system::kErrorFileExists) reason.text = GetMessage(kMsgMadeMeanwhile);
    return reason;
}

std::wstring RemedyOf(ErrorNumber error) {
    switch (error) {
        case system::kErrorDiskFull:
            return GetMessage(kMsgMakeRoom);
        case system::kErrorSharingViolation:
        case system::kErrorLockViolation:
            return GetMessage(kMsgCloseOtherProgram);
        case system::kErrorAccessDenied:
            return GetMessage(kMsgGetRights);
        default:
            return GetMessage(kMsgRepeatCommand);
    }
}

}  // namespace corvane
