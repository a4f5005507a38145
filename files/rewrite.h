// Rewrites a file: the new text goes to a new file beside the old one, and only when it is whole
// and on the disk does it replace the old one, by a rename. Every edit of the program goes this
// way.
//
// Nobody writes into the old text while it is read: who writes already is waited for, about a
// second. Should the file be another one at the end, because another program has replaced it
// meanwhile, nothing is replaced, and the edit is made again from the text that is there now.
#pragma once

#include <string>

#include "files/file_system.h"
#include "files/text_file.h"
#include "report/reporters.h"

namespace corvane {

struct Rewrite {
    std::wstring target;      // absolute; where a symbolic link leads
    bool keepBackup = false;  // set it before FinishRewrite
    Progress progress;        // of reading the old text once
    TextReader reader;        // the old text; not open where it is not read
    TextWriter writer;        // the new text
    std::wstring newText;     // the file beside the target that the writer fills
    bool isTargetThere = false;
    system::FileStamp stamp;  // of the old text, when there is one
    // Why the target's folder takes no new file, so that nothing is written.
    system::ErrorNumber folderError = system::kErrorNone;
};

// Opens the old text, which the edit reads; false when it cannot be opened, reader.error says why.
bool OpenOldText(Rewrite& rewrite, const std::wstring& path);

// Makes the new file, with the attributes, access list, owner and creation time of the old one;
// what is to be written goes to `writer`. A failure is kept in the record, so that only
// FinishRewrite need be asked. When other hard links lead to the old text, which they keep, this is
// reported (3691). `path` is that of OpenOldText where that was called.
void BeginRewrite(Rewrite& rewrite, const std::wstring& path);

// The same, but the new text is that of the file `source`, which stays. kVersion: one more link to
// it, so that a full disk does not hinder, or a copy where it is on another volume. OpenOldText
// comes first.
enum class TextSource { kVersion, kCopy };
void BeginRestoring(Rewrite& rewrite, const std::wstring& source, TextSource kind);

// Takes the old text of a rewrite into the history, just before the new one replaces it; `version`
// becomes the name of the file that has it then; empty: none. A failure hinders nothing and is no
// error here; kErrorCancelled when the user has cancelled. Whoever keeps a history sets it at
// start.
using OldTextKeeper = system::ErrorNumber (*)(const Rewrite& rewrite, std::wstring& version);
extern OldTextKeeper keepOldText;

enum class RewriteEnd {
    kDone,    // the file has the new text
    kFailed,  // reported; the file has the old text
    // Another program has changed the file meanwhile, or the reader's error says that it is not as
    // it was known (kErrorFileChanged); nothing is reported, nothing is left.
    kChanged
};

// Puts the new text in the target's place. First the history gets the old text (keepOldText); then,
// when a backup is kept, the old text gets the name BackupPath(target), too, instead of an older
// backup. Closes both texts.
//
// On failure the target is as it was, and the user is informed: the new text is kept when it is
// whole (message 3500; 3505 when it was the backup that failed), and removed (3504) when not. No
// text is made when the folder takes no new file (3612).
RewriteEnd FinishRewrite(Rewrite& rewrite);

// Puts a copy of the file `source`, which stays, at `target`, as PutCopy does; the history gets the
// text that it replaces. Nobody writes into the source meanwhile. A failure is reported.
ReplaceResult ReplaceByCopy(const std::wstring& source, const std::wstring& target,
                            TargetKind kind);

// Ends a rewrite that is not to be: the target is as it was, the new text goes. Nothing happens to
// one that was not begun.
void AbandonRewrite(Rewrite& rewrite);

// Makes an edit, and makes it again as long as another program changes the file meanwhile, three
// times at most; then this is reported (3690). True when the edit is done.
//     edit: RewriteEnd()
template <class Edit>
bool RepeatUntilUnchanged(const std::wstring& path, Edit edit) {
    constexpr int kMostAttempts = 3;
    for (int i = 0; i < kMostAttempts; ++i) {
        const RewriteEnd end = edit();
        if (end != RewriteEnd::kChanged) return end == RewriteEnd::kDone;
    }
    ReportMessage(kMsgChangedTooOften, {path});
    return false;
}

// The one report of a replacement: for a failure the message `failure`, or, when the target was
// taken away, where its old text and the new one are (3507); and a file that was left over (3508).
// Nothing is shown when all is well.
void ReportReplacement(const ReplaceResult& result, int32_t failure, MessageArguments arguments);
// Why a replacement failed, and what the user can do about it.
MessageArgument ReasonOf(system::ErrorNumber error);
std::wstring RemedyOf(system::ErrorNumber error);

// Shows the user (3504) why there is no new text for a file, which is as it was; when another
// program writes it, which one (3692).
void ReportTextNotWritten(const std::wstring& target, system::ErrorNumber error);

}  // namespace corvane
