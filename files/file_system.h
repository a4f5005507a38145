// Files by name. None of these procedures shows a message: an error goes, with a context text, to
// the debug report (report/messages.h), and the result is the neutral one.
#pragma once

#include <string>

#include "platform/system.h"

namespace corvane {

// Whether the file can be opened for reading. A folder, a missing file, an empty name and a file
// that another program holds exclusively give false.
bool FileExists(const std::wstring& path);
// Whether a file that is to be rewritten can be opened for reading: kErrorNone, or why not. A
// program that holds the file exclusively is waited for, about a second.
system::ErrorNumber AwaitReadable(const std::wstring& path);
bool IsDirectory(const std::wstring& path);
bool IsReadOnlyFile(const std::wstring& path);
// Whether two paths name one file: their absolute forms are spelled alike, but for upper and lower
// case. The one answer to that question.
bool IsSameFile(const std::wstring& a, const std::wstring& b);

// Deletes a file; nothing happens when there is none.
void KillFile(const std::wstring& path);

// Deletes a file that this run has made and closed, be it held by another program: that is waited
// for, about a second. A file that isn't there is no error.
system::ErrorNumber RemoveOwnFile(const std::wstring& path);

// Creates an empty file under a new name in the temporary folder, beginning with the application
// title's first three characters. `path` is empty after a failure, unless a file was made that
// could not be removed.
system::ErrorNumber NewTemporaryFile(std::wstring& path);

// A name in the temporary folder that no file has, beginning with the application title's first
// three characters. The caller creates the file. Empty when there is no temporary folder.
std::wstring TempFileName();

// What ReplaceFile did. On success `error` is kErrorNone. On failure the target is untouched and
// the new text still stands in the temporary file.
struct ReplaceResult {
    system::ErrorNumber error = system::kErrorNone;
    // The one exception, when a system's own swap of two files stops halfway and can't be undone:
    // the target is missing and its old text stands whole in this file. Empty otherwise.
    std::wstring oldText;
    // A file made on the way that could not be removed. Empty otherwise.
    std::wstring leftOver;
    bool Done() const { return error == system::kErrorNone; }
};

// Puts the text of the file `temporary` in the place of `target`, which need not exist, and removes
// `temporary`. The target is never missing and never half written on the way: the text is copied
// to a new file beside the target, flushed to the disk, and renamed over it; a program that holds
// the target is waited for, about a second. The target keeps its attributes. A read-only target
// is refused (kErrorAccessDenied) before anything is touched.
ReplaceResult ReplaceFile(const std::wstring& temporary, const std::wstring& target);

// As ReplaceFile, but `source` stays: a copy of its text takes the place of `target`.
ReplaceResult PutCopy(const std::wstring& source, const std::wstring& target);

// Makes the drive of `path`, and then its folder, the current ones; "" is the root of the current
// drive. Errors are ignored.
void ChangeToDirectory(const std::wstring& path);

}  // namespace corvane
