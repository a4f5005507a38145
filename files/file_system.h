// Files by name. None of these procedures shows a message: an error goes, with a context text, to
// the debug report (report/messages.h), and the result is the neutral one.
#pragma once

#include <functional>
#include <string>

#include "platform/system.h"

namespace corvane {

// Whether the file can be opened for reading. A folder, a missing file, an empty name and a file
// that another program holds exclusively give false.
bool FileExists(const std::wstring& path);
// Whether a file can be opened for reading: kErrorNone, or why not. A program that holds the file
// exclusively is waited for, about a second.
system::ErrorNumber AwaitReadable(const std::wstring& path);
// Opens a file that is to be rewritten: nobody writes into it until it is closed. A program that
// has it open for writing, or exclusively, is waited for, about a second.
system::ErrorNumber OpenPatiently(const std::wstring& path, system::File& file);
// Whether another program has the file open for writing, or exclusively, at this moment.
bool IsOpenForWriting(const std::wstring& path);
// Whether a file that cannot be opened may be there all the same: another program locks it, or its
// drive or folder cannot be reached. False where the folder is there without such a file.
bool IsOutOfReach(const std::wstring& path);
bool IsDirectory(const std::wstring& path);
bool IsReadOnlyFile(const std::wstring& path);
// Whether an edit may write the file again (files/rewrite.h): it is not read-only, and its folder
// takes the new text. A file that is not there counts as one that it may.
bool CanBeRewritten(const std::wstring& path);
// Whether two paths name one file: the system's identity of files decides where both exist, so that
// links and short names count; otherwise the absolute paths, upper and lower case aside. The one
// answer to that question.
bool IsSameFile(const std::wstring& a, const std::wstring& b);

// Deletes a file; nothing happens when there is none.
void KillFile(const std::wstring& path);

// Deletes a file that this run has made and closed, even if another program holds it: that is
// waited for, about a second. A file that is not there is not an error.
system::ErrorNumber RemoveOwnFile(const std::wstring& path);

// The system uses the first three characters, those of the application's title.
inline constexpr wchar_t kTemporaryPrefix[] = L"Corvane";

// Whether a file has such a name: the prefix's first three characters, hexadecimal digits, ".tmp".
bool HasTemporaryName(const std::wstring& path);

// Creates an empty file under a new name in the temporary folder, beginning with the application
// title's first three characters. `path` is empty after a failure, unless a file was made that
// could not be removed.
system::ErrorNumber NewTemporaryFile(std::wstring& path);

// A name in the temporary folder that no file has, beginning with the application title's first
// three characters. The caller creates the file. Empty when there is no temporary folder.
std::wstring TempFileName();

// What one of the procedures below did. On success `error` is kErrorNone. On failure the target is
// untouched and the new text is still where it came from. ReportReplacement (files/rewrite.h) shows
// all that the user must know of it.
struct ReplaceResult {
    std::wstring target;   // absolute
    std::wstring newText;  // the file with the new text
    system::ErrorNumber error = system::kErrorNone;
    // The one exception, when a system's own swap of two files stops halfway and cannot be undone:
    // the target is missing and its old text is whole in this file. Empty otherwise.
    std::wstring oldText;
    // A file made on the way that could not be removed. Empty otherwise.
    std::wstring leftOver;
    bool Done() const { return error == system::kErrorNone; }
};

// Replaces `target`, which need not exist, by the text of the file `temporary`, and removes
// `temporary`. The target is never missing and never half written on the way: the text is copied
// to a new file beside the target, flushed to the disk, and renamed over it; a program that holds
// the target is waited for, about a second. The target keeps its attributes. A read-only target
// is refused (kErrorAccessDenied) before anything is touched. Where there was no target, one that
// somebody makes meanwhile stays, and the result is kErrorFileExists.
ReplaceResult ReplaceFile(const std::wstring& temporary, const std::wstring& target);

// The last step of it: renames `newText`, which is beside the target and on the disk, to its name.
// `old`: the stamp of the file that is to be replaced, or null when there was none. A target that
// is another file now, or has another text, stays, with kErrorFileChanged.
ReplaceResult PutInPlace(const std::wstring& newText, const std::wstring& target,
                         const system::FileStamp* old);

// Gives the text of `source` the name `target`, beside it, too, instead of an older file of that
// name: as one more link to the file, or as a copy where the volume has no links.
ReplaceResult PutLinkOrCopy(const std::wstring& source, const std::wstring& target);

// As ReplaceFile, but `source`, another file, stays: a copy of its text takes the place of
// `target`. kNew: a target that is there is left alone (kErrorFileExists). The user sees how far
// the copy is, and can cancel it (kErrorCancelled). `lastLook` is called when the copy is whole,
// just before the rename; an error of it is the result, and the target stays.
enum class TargetKind { kAny, kNew };
using LastLook = std::function<system::ErrorNumber(const std::wstring& copy)>;
ReplaceResult PutCopy(const std::wstring& source, const std::wstring& target,
                      TargetKind kind = TargetKind::kAny, const LastLook& lastLook = nullptr);

// Copies the text of `source` to a file that this run makes, or fills again, and makes sure that
// the disk has it. Nobody writes into the source meanwhile; who does already is waited for, about a
// second. The user sees how far it is, and can cancel it (kErrorCancelled). After a failure there
// may be a part of the copy.
system::ErrorNumber CopyToNewFile(const std::wstring& source, const std::wstring& copy);

// Makes the drive of `path`, and then its folder, the current ones; "" is the root of the current
// drive. Errors are ignored.
void ChangeToDirectory(const std::wstring& path);

}  // namespace corvane
