// What the box Settings shows and changes: the settings as texts under plain names, the check of
// what was typed, and what becomes of it.
#pragma once

#include <array>
#include <span>
#include <string>

namespace corvane {

enum SettingsField : int {
    kProgramsFolder,  // DataDirectory
    kWorkFolder,      // WorkDirectory
    kBrowseFolder,    // BrowseDirectory
    kFirstLimit,
    kSecondLimit,
    kThirdLimit,
    kIntegerSetting,
    kHistoryVersions,
    kHistoryMegabytes,
    kSettingsFieldCount
};
inline constexpr int kFolderFieldCount = kFirstLimit;  // the first ones

// The labels of the fields, with their keyboard letters.
std::span<const wchar_t* const> SettingsLabels();

struct SettingsChoice {
    std::array<std::wstring, kSettingsFieldCount> texts;
    bool isProgramsFolderFixed = false;  // the suite is where Corvane is
    std::wstring file;                   // where the settings are, for the user
};
// The settings as they are.
SettingsChoice ReadSettingsChoice();

// Which of the suite's programs a folder has, for the user.
std::wstring ProgramsText(const std::wstring& folder);

// Whether all fields have what they must have. The first one that does not is reported by its name,
// and is then `wrong`.
bool RequireValidSettings(const SettingsChoice& choice, SettingsField& wrong);

// Valid settings become those of the program, and are written to the settings file; a fault is
// reported.
void KeepSettings(const SettingsChoice& choice);

// The suite's programs are in this folder from now on, at the next start, too.
void KeepProgramsFolder(const std::wstring& folder);

}  // namespace corvane
