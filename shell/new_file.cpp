#include "shell/new_file.h"

#include "files/file_system.h"
#include "files/paths.h"
#include "files/rewrite.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "shell/edit_history.h"

namespace corvane {
namespace {

// Only a file that was there when the command began was the user asked about.
TargetKind KindOfTarget(const std::wstring& path) {
    system::FileStatus status;
    system::GetFileStatus(path, status);
    return status.exists ? TargetKind::kAny : TargetKind::kNew;
}

FileEnd Make(const std::wstring& target, const std::wstring& edit,
             const std::function<bool(const std::wstring& temporary)>& make) {
    const TargetKind kind = KindOfTarget(target);
    std::wstring temporary;
    const system::ErrorNumber error = NewTemporaryFile(temporary);
    if (error != system::kErrorNone) {
        ReportMessage(kMsgFileNotMade, {target, SystemError{error}});
        if (!temporary.empty()) ReportMessage(kMsgFileNotRemoved, {temporary});
        return FileEnd::kFailed;
    }
    ReplaceResult result;
    const bool isMade = make(temporary);
    if (isMade) {
        const EditName name(edit);
        result = ReplaceByCopy(temporary, target, kind);
    }
    if (result.oldText.empty() && RemoveOwnFile(temporary) != system::kErrorNone) {
        ReportMessage(kMsgFileNotRemoved, {temporary});
    }
    if (result.error == system::kErrorCancelled) return FileEnd::kCancelled;
    return isMade && result.Done() ? FileEnd::kMade : FileEnd::kFailed;
}

}  // namespace

std::wstring ReplacementBy(const std::wstring& source) {
    return FormatMessage(kMsgReplacementBy, {FileNameOf(source)});
}

bool PutFile(const std::wstring& source, const std::wstring& target, const std::wstring& edit) {
    if (IsSameFile(source, target)) return true;
    const EditName name(edit);
    return ReplaceByCopy(source, target, KindOfTarget(target)).Done();
}

bool MakeFile(const std::wstring& target, const std::wstring& edit,
              const std::function<bool(const std::wstring& temporary)>& make) {
    return Make(target, edit, make) == FileEnd::kMade;
}

FileEnd ExportFile(const std::wstring& target,
                   const std::function<system::ErrorNumber(const std::wstring& temporary)>& write) {
    return Make(target, L"", [&](const std::wstring& temporary) {
        const system::ErrorNumber error = write(temporary);
        if (error != system::kErrorNone) ReportTextNotWritten(target, error);
        return error == system::kErrorNone;
    });
}

system::ErrorNumber WriteTextFile(const std::wstring& path,
                                  const std::function<void(TextWriter& writer)>& write) {
    TextWriter writer;
    if (CreateText(writer, path)) write(writer);
    CloseText(writer);
    return writer.error;
}

}  // namespace corvane
