// The databases that were open last, for the File menu and the window without a database. They are
// kept in the settings file, and given to the system for its own lists.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace corvane {

inline constexpr size_t kRecentCount = 9;

// Reads the list, and writes it at shutdown. A path that the code page of the settings file lacks,
// and one that is longer than a setting, are not kept. False when the file took not all of it.
std::vector<std::wstring> ReadRecent(const std::wstring& file);
bool WriteRecent(const std::wstring& file, const std::vector<std::wstring>& paths);

// A database is open: it becomes the first of the list. No path is looked at on the disk: paths are
// the same but for upper and lower case, or they are two.
void NoteRecent(const std::wstring& path);

// A line of the list as menus show it: "&1 C:\ships\...\alpha.ve2".
struct RecentItem {
    std::wstring caption;
    // Whether the file is there. Only what is on a disk of this computer is looked at: a network
    // or a drive that does not answer would keep the menu waiting. Anywhere else it counts as
    // there.
    bool isThere = false;
};
std::vector<RecentItem> RecentItems();

// Opens the database of a line, 0 the first, as File > Open does. One that is not there is
// reported.
void OpenRecent(size_t index);

}  // namespace corvane
