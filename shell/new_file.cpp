#include "shell/new_file.h"

#include "files/file_system.h"
#include "files/rewrite.h"
#include "platform/system.h"
#include "report/reporters.h"

namespace corvane {
namespace {

// Only a file that was there when the command began was the user asked about.
TargetKind KindOfTarget(const std::wstring& path) {
    system::FileStatus status;
    system::GetFileStatus(path, status);
    return status.exists ? TargetKind::kAny : TargetKind::kNew;
}

ReplaceResult Put(const std::wstring& source, const std::wstring& target, TargetKind kind) {
    ReplaceResult result = PutCopy(source, target, kind);
    ReportReplacement(result, kMsgFileNotMade, {target, ReasonOf(result.error)});
    return result;
}

}  // namespace

bool PutFile(const std::wstring& source, const std::wstring& target) {
    return IsSameFile(source, target) || Put(source, target, KindOfTarget(target)).Done();
}

bool MakeFile(const std::wstring& target,
              const std::function<bool(const std::wstring& temporary)>& make) {
    const TargetKind kind = KindOfTarget(target);
    std::wstring temporary;
    const system::ErrorNumber error = NewTemporaryFile(temporary);
    if (error != system::kErrorNone) {
        ReportMessage(kMsgFileNotMade, {target, system::ErrorText(error)});
        if (!temporary.empty()) ReportMessage(kMsgFileNotRemoved, {temporary});
        return false;
    }
    ReplaceResult result;
    const bool isMade = make(temporary);
    if (isMade) result = Put(temporary, target, kind);
    if (result.oldText.empty() && RemoveOwnFile(temporary) != system::kErrorNone) {
        ReportMessage(kMsgFileNotRemoved, {temporary});
    }
    return isMade && result.Done();
}

}  // namespace corvane
