// The settings that live between runs, in "Corvane.ini". Their section and key names are messages
// of the catalogue.
#pragma once

#include <cstdint>
#include <string>

#include "platform/system.h"

namespace corvane {

struct ShellSettings {
    std::wstring DataDirectory;  // the suite's programs and shared data; ends with "\"
    std::wstring
        WorkDirectory;  // current directory after start-up and after opening; ends with "\"
    std::wstring BrowseDirectory;  // where file dialogs for databases start; after a dialog it ends
                                   // with "\"
    // The database to open at the start, absolute, and at the end the open one. Empty: none.
    std::wstring DatabasePath;
    float FirstLimit = 0;        // the three limits and the integer are carried for the suite's
    int32_t IntegerSetting = 0;  // other programs; IntegerSetting not 0 also means that Delete
    float SecondLimit = 0;       // keeps a backup
    float ThirdLimit = 0;
    bool KeepDatabasePath = false;  // true: DatabasePath is not written back
};

// Longest value that is read, in characters.
inline constexpr int kLongestSetting = 400;

// Fills the record in. What the file does not have, or what names nothing that exists, gets its
// default; nothing is reported. A database that cannot be reached (IsOutOfReach) is kept. A limit
// beyond the range of its type ends the reading: it and the fields after it keep what they hold.
void ReadSettings(const std::wstring& file, ShellSettings& settings);
// The same for a program that is in `programDirectory`, a path with a trailing "\".
void ReadSettings(const std::wstring& file, const std::wstring& programDirectory,
                  ShellSettings& settings);

// Whether the suite's data, and so its programs, are in the program's own folder: DataDirectory is
// that folder then, whatever the settings file says.
bool IsSuiteBesideProgram();

// Writes the record back, and the user's login name with it; DataDirectory is never written. At the
// first failure status message 619 is shown, the rest is not written, and the result is false.
bool WriteSettings(const std::wstring& file, const ShellSettings& settings);

// Writes one value, as ANSI text. What the Windows folder refuses goes to the user's own file
// (files/settings_file.h), which is made then.
system::ErrorNumber WriteIniText(const std::string& section, const std::string& key,
                                 const std::string& value, const std::wstring& file);

// One value, cut at kLongestSetting characters and at its first NUL.
std::wstring GetIniString(const std::wstring& section, const std::wstring& key,
                          const std::wstring& fallback, const std::wstring& file);

}  // namespace corvane
