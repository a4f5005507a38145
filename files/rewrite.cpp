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

void ReportNoBackup(const Rewrite& rewrite, const std::wstring& reason) {
    ReportMessage(kMsgBackupNotWritten,
                  {BackupPath(rewrite.target), rewrite.target, reason, rewrite.temporary});
}

// Copies the target, if there is one, to its backup. A failure is reported.
bool KeepBackup(const Rewrite& rewrite) {
    system::FileStatus status;
    ErrorNumber error = system::GetFileStatus(rewrite.target, status);
    if (error == kErrorNone && !status.exists) return true;
    const std::wstring path = BackupPath(rewrite.target);
    if (IsSameFile(path, rewrite.target)) {
        ReportNoBackup(rewrite, GetMessage(kMsgBackupIsTheFile));
        return false;
    }
    ReplaceResult backup;
    if (error == kErrorNone) {
        backup = PutCopy(rewrite.target, path);
        error = backup.error;
    }
    if (error != kErrorNone) ReportNoBackup(rewrite, ErrorText(error));
    ReportLeftOver(backup.leftOver);
    return error == kErrorNone;
}

void ReportNotReplaced(const Rewrite& rewrite, const ReplaceResult& result) {
    const std::wstring reason = ErrorText(result.error);
    if (result.oldText.empty()) {
        ReportMessage(kMsgFileNotWritten, {rewrite.target, reason, rewrite.temporary});
    } else {
        ReportMessage(kMsgFileTakenAway,
                      {rewrite.target, reason, result.oldText, rewrite.temporary});
    }
}

}  // namespace

void BeginRewrite(Rewrite& rewrite, const std::wstring& target) {
    rewrite.target = target;
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

bool FinishRewrite(Rewrite& rewrite, ErrorNumber readError) {
    CloseText(rewrite.writer);
    const ErrorNumber error = readError != kErrorNone ? readError : rewrite.writer.error;
    if (error != kErrorNone) {
        AbandonRewrite(rewrite);
        ReportTextNotWritten(rewrite.target, error);
        return false;
    }
    if (rewrite.keepBackup && !KeepBackup(rewrite)) return false;
    const ReplaceResult result = ReplaceFile(rewrite.temporary, rewrite.target);
    if (!result.Done()) ReportNotReplaced(rewrite, result);
    ReportLeftOver(result.leftOver);
    return result.Done();
}

}  // namespace corvane
