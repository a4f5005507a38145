// New files: made elsewhere first and put in place whole, so that a failure leaves the file of that
// name, or its absence, as it was.
#pragma once

#include <functional>
#include <string>

#include "files/text_file.h"
#include "platform/system.h"

namespace corvane {

// The name of the edit with which a copy of a file, or what is made of it, replaces another.
std::wstring ReplacementBy(const std::wstring& source);

// Puts a copy of `source` at `target`; a copy onto itself is there already. A failure is reported.
// A target that was not there, and that somebody makes meanwhile, stays: that is a failure. The
// history keeps the text of an old one under the name `edit`; empty: it is no database.
bool PutFile(const std::wstring& source, const std::wstring& target, const std::wstring& edit);

// Has `make` write an empty file of a temporary name, and puts it at `target`, as PutFile does.
// False when `make` says so, which then has reported it, and when the file cannot be put there,
// which is reported here. The temporary file goes, unless it is all that is left (message 3507).
bool MakeFile(const std::wstring& target, const std::wstring& edit,
              const std::function<bool(const std::wstring& temporary)>& make);

// How the making of a file ended. What ended otherwise than well has been reported: a failure in a
// box, that the user cancelled in the status line.
enum class FileEnd { kMade, kCancelled, kFailed };

// Has `write` fill a file of a temporary name, and puts it at `target`, as PutFile does, of a file
// that is no database. When `write` gives an error or the file cannot be put there, a file of that
// name is as it was.
FileEnd ExportFile(const std::wstring& target,
                   const std::function<system::ErrorNumber(const std::wstring& temporary)>& write);
// Has `write` fill a text file, for ExportFile.
system::ErrorNumber WriteTextFile(const std::wstring& path,
                                  const std::function<void(TextWriter& writer)>& write);

}  // namespace corvane
