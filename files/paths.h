// Texts that are paths; only DirectoryOf may ask the system (for the current directory).
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// Name of the settings file; the profile functions place it in the Windows folder.
inline constexpr wchar_t kSettingsFile[] = L"Corvane.ini";

// "" for an empty path; otherwise trimmed and ending in exactly one "\" (one that is there already
// is not doubled).
std::wstring WithTrailingBackslash(std::wstring_view path);
// Trimmed, and without its last "\": only one is taken off.
std::wstring StripTrailingBackslash(std::wstring_view path);
// The trimmed path up to and with its last "\"; the current directory, without trailing "\", when
// the path holds none.
std::wstring DirectoryOf(std::wstring_view path);
// The text behind the last "\", not trimmed; the whole text when it holds none.
std::wstring FileNameOf(std::wstring_view path);
// The trimmed name up to its last ".", wherever that stands: also one in a folder's name.
std::wstring StripExtension(std::wstring_view name);
// The text behind the last "." of the trimmed name, in lower case; "" without a ".".
std::wstring FileExtension(std::wstring_view name);
// Where the old text of a file is kept: the name without its extension (StripExtension), ".bak".
std::wstring BackupPath(std::wstring_view path);

}  // namespace corvane
