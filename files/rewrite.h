// Rewrites a file: the new text goes to a temporary file, and only when it is whole does it
// take the place of the old one. Every rewrite of the program goes this way.
#pragma once

#include <string>

#include "files/text_file.h"

namespace corvane {

struct Rewrite {
    std::wstring target;
    bool keepBackup = false;  // set it before FinishRewrite
    std::wstring temporary;
    TextWriter writer;
};

// Opens the temporary file; what is to be written goes to `writer`. A failure is kept in the
// writer, so that only FinishRewrite need be asked.
void BeginRewrite(Rewrite& rewrite, const std::wstring& target);

// Puts the new text in the target's place, and first, when a backup is kept, a copy of the old text
// at BackupPath(target), instead of an older backup; no reader of ours may hold the target
// open. `readError` is that of the text that was copied from, if any.
//
// On failure the target is as it was, and the user is informed: the new text is kept when it is
// whole (message 3500; 3505 when it was the backup that failed), and removed (3504) when not.
bool FinishRewrite(Rewrite& rewrite, system::ErrorNumber readError = system::kErrorNone);

// Ends a rewrite that is not to be: the target is as it was, the new text goes.
void AbandonRewrite(Rewrite& rewrite);
// Shows the user (3504) why there is no new text for a file, which is as it was.
void ReportTextNotWritten(const std::wstring& target, system::ErrorNumber error);

}  // namespace corvane
