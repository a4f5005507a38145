#include "shell/new_file.h"

#include "files/file_system.h"
#include "files/paths.h"
#include "report/reporters.h"

namespace corvane {
namespace {

void ReportNotMade(const std::wstring& path, system::ErrorNumber error) {
    ReportMessage(kMsgFileNotMade, {path, system::ErrorText(error)});
}

}  // namespace

bool PutFile(const std::wstring& source, const std::wstring& target) {
    if (IsSameFile(source, target)) return true;
    const ReplaceResult result = PutCopy(source, target);
    if (!result.Done()) ReportNotMade(target, result.error);
    return result.Done();
}

bool MakeFile(const std::wstring& target,
              const std::function<bool(const std::wstring& temporary)>& make) {
    const std::wstring temporary = TempFileName();
    if (temporary.empty()) {
        ReportNotMade(target, system::kErrorPathNotFound);
        return false;
    }
    const bool isMade = make(temporary) && PutFile(temporary, target);
    KillFile(temporary);
    return isMade;
}

}  // namespace corvane
