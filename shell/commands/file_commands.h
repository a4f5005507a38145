// The commands of the File menu: which database the shell works on.
//
// A command that the user cancels, or that fails, which is reported, leaves the path, the Basic
// Ship Data and every file as they were.
#pragma once

#include <string>
#include <vector>

namespace corvane {

// A new database that holds only new Basic Ship Data, named after the file; it becomes the open
// one.
void ME_FileNew_Click();

// Opens a database with its first model as the current one. A file with the older extension "vew"
// may be copied to a new one, which is opened in its place; a legacy database is converted. A file
// with neither a database's signature nor Basic Ship Data is refused. suppressListEvents is set
// while the prompt is up.
void ME_FileOpen_Click();

// Opens a file as ME_FileOpen opens the one that its prompt gave.
void OpenFile(const std::wstring& path);

// Opens what the user has dropped on the window in the same way: one file. Several, and a folder,
// are refused.
void OpenDropped(const std::vector<std::wstring>& paths);

// Copies the open database byte for byte to another file, which becomes the open one.
void ME_FileSaveAs_Click();

// Writes the sections of the open database into a new legacy database.
void ME_FileSaveLegacy_Click();

// Shows the earlier versions of the open database; one of them may replace it, or be saved as
// another file.
void ME_FileVersions_Click();

// Writes the list as it is shown to a file that is no database.
void ME_FileExportList_Click();

// Writes the picture of the section that the preview shows to a file of one of four kinds.
void ME_FileExportPicture_Click();

// Shows the settings; what the user makes of them is kept at once.
void ME_FileSettings_Click();

// Closes the main window, and the program with it.
void ME_FileQuit_Click();

}  // namespace corvane
