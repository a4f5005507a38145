// What a folder holds and which drives there are, for lists that the user chooses a file from.
#pragma once

#include <string>
#include <vector>

namespace corvane {

struct FolderContents {
    std::vector<std::wstring> folders, files;  // names, sorted as the user's language has it
};

// Reads the subfolders of a folder and its files that fit a pattern such as "*.vel;*.ve2"; what is
// hidden is left out. False, and `contents` stays, when the folder cannot be read; the system shows
// no box about a drive that is not ready.
bool ReadFolder(const std::wstring& folder, const std::wstring& pattern, FolderContents& contents);

// The drives that exist: "C:" and so on.
std::vector<std::wstring> Drives();

}  // namespace corvane
