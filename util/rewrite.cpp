#include "util/rewrite.h"

#include "app/messages.h"
#include "util/files.h"

namespace corvane {

void BeginRewrite(Rewrite& rewrite, const std::wstring& target) {
    rewrite.target = target;
    rewrite.temporary = TempFileName();
    CreateText(rewrite.writer, rewrite.temporary);
}

bool FinishRewrite(Rewrite& rewrite, system::ErrorNumber readError) {
    CloseText(rewrite.writer);
    const system::ErrorNumber error =
        readError != system::kErrorNone ? readError : rewrite.writer.error;
    if (error != system::kErrorNone) {
        KillFile(rewrite.temporary);
        ReportMessage(kMsgTextNotWritten, {rewrite.target, system::ErrorText(error)});
        return false;
    }
    const ReplaceResult replaced = ReplaceFile(rewrite.temporary, rewrite.target);
    if (replaced.Done()) return true;
    ReportMessage(kMsgFileNotWritten,
                  {rewrite.target, system::ErrorText(replaced.error), rewrite.temporary});
    return false;
}

}  // namespace corvane
