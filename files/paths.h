// Texts that are paths; only DirectoryOf may ask the system (for the current directory).
#pragma once

#include <string>
#include <string_view>
#include <vector>

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
// The text after the last "\", not trimmed; the whole text when it holds none.
std::wstring FileNameOf(std::wstring_view path);
// The trimmed name up to its last ".", wherever that is: also one in a folder's name.
std::wstring StripExtension(std::wstring_view name);
// The text after the last "." of the trimmed name, in lower case; "" without a ".".
std::wstring FileExtension(std::wstring_view name);
// Whether a path begins with a drive and its root, or with another machine's name: it means the
// same folder whatever the current directory is.
bool IsFullPath(std::wstring_view path);
// Whether the name, with any extension, is one that Windows keeps for a device: nul, com1 ...
bool IsDeviceName(std::wstring_view path);
// Where the old text of a file is kept: the path without the extension of the file's name, ".bak".
std::wstring BackupPath(std::wstring_view path);

// Whether a file's name has one of the extensions of a pattern such as "*.vel;*.ve2", but for upper
// and lower case.
bool FitsPattern(std::wstring_view name, std::wstring_view pattern);
// The folders on the way to a folder, the root first and the folder itself last, each with a "\" at
// its end. The root is a drive's, or a share of another machine.
std::vector<std::wstring> FoldersDownTo(std::wstring_view folder);

}  // namespace corvane
