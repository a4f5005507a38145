// The file prompt as the commands use it: where it starts, and what becomes of the name that the
// user gives.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

struct FileQuestion {
    uint16_t command = 0;  // the menu item whose caption the prompt has
    std::wstring types;    // list of file types, in the form of the utility library
    std::wstring defaultExtension = L"ve2";
    std::wstring proposed;   // file name
    std::wstring directory;  // where the prompt starts
    bool toSave = false;     // a name to save under; else an existing file
};

// The absolute path of the file that the user names, whose directory becomes BrowseDirectory. Empty
// when the user cancels, and when the name cannot be used, which is reported: BrowseDirectory stays
// then. The current directory is the same afterwards.
//
// A usable name is one that every program of the suite can use: of at most kLongestPath
// characters, without any that file names must not hold, and no folder. One to save under is in a
// folder that exists and is no read-only file; any other names a file that can be read.
std::wstring AskForFile(const FileQuestion& question);

// What AskForFile requires of a path to save under; a fault is reported.
bool RequireUsableTarget(const std::wstring& path);

// The question of the edits (database/editing.h) about a read-only database: the prompt "Save DB
// as...". Empty when the user cancels, and when the name cannot be used, which is reported; a
// read-only file can. BrowseDirectory stays.
std::wstring AskForWritableDatabase(const std::wstring& proposed);

inline constexpr size_t kLongestPath = 259;

}  // namespace corvane
