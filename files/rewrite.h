// Rewrites a file: the new text goes to a temporary file, and only when it is whole does it
// take the place of the old one. Every rewrite of the program goes this way.
#pragma once

#include <string>

#include "files/file_system.h"
#include "files/text_file.h"
#include "report/messages.h"

namespace corvane {

struct Rewrite {
    std::wstring target;
    bool keepBackup = false;  // set it before FinishRewrite
    std::wstring temporary;
    TextWriter writer;
    // Why the target's folder takes no new file, so that nothing is written.
    system::ErrorNumber folderError = system::kErrorNone;
};

// Opens the temporary file, provided that the target's folder takes new files; what is to be
// written goes to `writer`. A failure is kept in the writer, so that only FinishRewrite need be
// asked.
void BeginRewrite(Rewrite& rewrite, const std::wstring& target);

// Puts the new text in the target's place, and first, when a backup is kept, a copy of the old text
// at BackupPath(target), instead of an older backup; no reader of ours may hold the target
// open. `readError` is that of the text that was copied from, if any.
//
// On failure the target is as it was, and the user is informed: the new text is kept when it is
// whole (message 3500; 3505 when it was the backup that failed), and removed (3504) when not. No
// text is made when the folder takes no new file (3612).
bool FinishRewrite(Rewrite& rewrite, system::ErrorNumber readError = system::kErrorNone);

// Ends a rewrite that is not to be: the target is as it was, the new text goes.
void AbandonRewrite(Rewrite& rewrite);
// The one report of a replacement: for a failure the message `failure`, or, when the target was
// taken away, where its old text and the new one are (3507); and a file that was left over (3508).
// Nothing is shown when all is well.
void ReportReplacement(const ReplaceResult& result, int32_t failure, MessageArguments arguments);
// Why a replacement failed, and what the user can do about it.
std::wstring ReasonOf(system::ErrorNumber error);
std::wstring RemedyOf(system::ErrorNumber error);

// Shows the user (3504) why there is no new text for a file, which is as it was.
void ReportTextNotWritten(const std::wstring& target, system::ErrorNumber error);

}  // namespace corvane
