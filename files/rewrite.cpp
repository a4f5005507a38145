#include "files/rewrite.h"

#include "files/file_system.h"
#include "files/paths.h"
#include "files/read_fault.h"
#include "report/reporters.h"
#include "text/text.h"

namespace corvane {
namespace {

using system::ErrorNumber;
using system::ErrorText;
using system::kErrorNone;

void ReportLeftOver(const std::wstring& path) {
    if (!path.empty()) ReportMessage(kMsgFileNotRemoved, {path});
}

bool ReportNoBackup(const Rewrite& rewrite, const std::wstring& reason, ErrorNumber error) {
    ReportMessage(kMsgBackupNotWritten, {BackupPath(rewrite.target), rewrite.target, reason,
                                         rewrite.newText, RemedyOf(error)});
    return false;
}

// Gives the target's text, if there is one, the backup's name, too. A failure is reported.
bool KeepBackup(const Rewrite& rewrite) {
    if (!rewrite.isTargetThere) return true;
    const std::wstring path = BackupPath(rewrite.target);
    if (EqualsIgnoringCase(path, rewrite.target)) {
        return ReportNoBackup(rewrite, GetMessage(kMsgBackupIsTheFile), kErrorNone);
    }
    const ReplaceResult backup = PutLinkOrCopy(rewrite.target, path);
    ReportReplacement(
        backup, kMsgBackupNotWritten,
        {path, rewrite.target, ReasonOf(backup.error), rewrite.newText, RemedyOf(backup.error)});
    return backup.Done();
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

RewriteEnd PutNewTextInPlace(Rewrite& rewrite) {
    if (rewrite.keepBackup && !KeepBackup(rewrite)) return RewriteEnd::kFailed;
    const std::wstring version = rewrite.isTargetThere ? keepOldText(rewrite) : std::wstring();
    const ReplaceResult result = PutInPlace(rewrite.newText, rewrite.target,
                                            rewrite.isTargetThere ? &rewrite.stamp : nullptr);
    if (!result.Done()) DropVersion(rewrite, version);
    if (result.error == system::kErrorFileChanged) {
        AbandonRewrite(rewrite);
        return RewriteEnd::kChanged;
    }
    ReportReplacement(
        result, kMsgFileNotWritten,
        {rewrite.target, ReasonOf(result.error), rewrite.newText, RemedyOf(result.error)});
    return result.Done() ? RewriteEnd::kDone : RewriteEnd::kFailed;
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

OldTextKeeper keepOldText = [](const Rewrite&) { return std::wstring(); };

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
        ReportMessage(kMsgFolderNotWritable, {rewrite.target, ErrorText(rewrite.folderError)});
        return RewriteEnd::kFailed;
    }
    const ErrorNumber error = readError != kErrorNone ? readError : rewrite.writer.error;
    if (error == kErrorNone) return PutNewTextInPlace(rewrite);
    AbandonRewrite(rewrite);
    ReportTextNotWritten(rewrite.target, error);
    return RewriteEnd::kFailed;
}

void ReportTextNotWritten(const std::wstring& target, ErrorNumber error) {
    if (error == system::kErrorCancelled) return ReportNote(kMsgCancelled, {target});
    if (error != system::kErrorSharingViolation && error != system::kErrorLockViolation) {
        ReportMessage(kMsgTextNotWritten, {target, ErrorText(error)});
        return;
    }
    ReportMessage(kMsgHeldByProgram, {target, HoldersOf(target)});
}

void ReportReplacement(const ReplaceResult& result, int32_t failure, MessageArguments arguments) {
    if (!result.oldText.empty()) {
        ReportMessage(kMsgFileTakenAway,
                      {result.target, ReasonOf(result.error), result.oldText, result.newText});
    } else if (!result.Done()) {
        ReportMessage(failure, arguments);
    }
    ReportLeftOver(result.leftOver);
}

std::wstring ReasonOf(ErrorNumber error) {
    return error == system::kErrorFileExists ? GetMessage(kMsgMadeMeanwhile) : ErrorText(error);
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
