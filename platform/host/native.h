// Names of files and numbers of errors on their way between POSIX and the core, for the files of
// this folder.
#pragma once

#include <string>
#include <string_view>

#include "platform/system.h"

namespace corvane::system {

// Gives the file name (UTF-8) that a Windows path refers to. An empty path, a drive that is not
// there and a character that Windows permits in no name are errors, as they are there.
ErrorNumber NativePath(const std::wstring& path, std::string& native);

// The Windows path of an absolute file name, on drive C.
std::wstring WindowsPath(std::string_view native);

std::string Utf8FromWide(std::wstring_view text);
// A byte that is not UTF-8 becomes U+FFFD.
std::wstring WideFromUtf8(std::string_view bytes);

// The Windows number of an errno value.
ErrorNumber ErrorFromErrno(int number);
// kErrorNone when `result`, of the call before, is not -1; else the number of its errno.
ErrorNumber ErrorOf(int64_t result);
// As above, but distinguishes a missing folder from a missing file: the last call was about
// `native`.
ErrorNumber ErrorOfPath(int64_t result, const std::string& native);

}  // namespace corvane::system
