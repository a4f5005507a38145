#include "files/rewrite.h"

#include "files/file_system.h"
#include "files/paths.h"
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
                                         rewrite.temporary, RemedyOf(error)});
    return false;
}

// Copies the target, if there is one, to its backup. A failure is reported.
bool KeepBackup(const Rewrite& rewrite) {
    system::FileStatus status;
    const ErrorNumber error = system::GetFileStatus(rewrite.target, status);
    if (error != kErrorNone) return ReportNoBackup(rewrite, ErrorText(error), error);
    if (!status.exists) return true;
    const std::wstring path = BackupPath(rewrite.target);
    if (IsSameFile(path, rewrite.target)) {
        return ReportNoBackup(rewrite, GetMessage(kMsgBackupIsTheFile), kErrorNone);
    }
    const ReplaceResult backup = PutCopy(rewrite.target, path);
    ReportReplacement(
        backup, kMsgBackupNotWritten,
        {path, rewrite.target, ReasonOf(backup.error), rewrite.temporary, RemedyOf(backup.error)});
    return backup.Done();
}

}  // namespace

void BeginRewrite(Rewrite& rewrite, const std::wstring& target) {
    rewrite.target = target;
    std::wstring leftOver;
    rewrite.folderError =
        CheckFolderTakesFiles(DirectoryOf(system::AbsolutePath(target)), leftOver);
    ReportLeftOver(leftOver);
    rewrite.writer.error = rewrite.folderError;
    if (rewrite.folderError != kErrorNone) return;
    rewrite.writer.error = NewTemporaryFile(rewrite.temporary);
    if (rewrite.writer.error == kErrorNone) CreateText(rewrite.writer, rewrite.temporary);
}

void AbandonRewrite(Rewrite& rewrite) {
    CloseText(rewrite.writer);
    if (rewrite.temporary.empty() || RemoveOwnFile(rewrite.temporary) == kErrorNone) return;
    ReportLeftOver(rewrite.temporary);
}

void ReportTextNotWritten(const std::wstring& target, ErrorNumber error) {
    ReportMessage(kMsgTextNotWritten, {target, ErrorText(error), system::TemporaryDirectory()});
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

bool FinishRewrite(Rewrite& rewrite, ErrorNumber readError) {
    CloseText(rewrite.writer);
    if (rewrite.folderError != kErrorNone) {
        ReportMessage(kMsgFolderNotWritable, {rewrite.target, ErrorText(rewrite.folderError)});
        return false;
    }
    const ErrorNumber error = readError != kErrorNone ? readError : rewrite.writer.error;
    if (error != kErrorNone) {
        AbandonRewrite(rewrite);
        ReportTextNotWritten(rewrite.target, error);
        return false;
    }
    if (rewrite.keepBackup && !KeepBackup(rewrite)) return false;
    const ReplaceResult result = ReplaceFile(rewrite.temporary, rewrite.target);
    ReportReplacement(
        result, kMsgFileNotWritten,
        {rewrite.target, ReasonOf(result.error), rewrite.temporary, RemedyOf(result.error)});
    return result.Done();
}

}  // namespace corvane
