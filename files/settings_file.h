// Which file holds the settings: the first of these three that is there, else the third.
//
//   "Corvane.ini" beside the program: the program and its settings are carried together;
//   "Corvane\Corvane.ini" in the user's application data;
//   "Corvane.ini" in the Windows folder, which all programs of the suite share.
#pragma once

#include <string>

namespace corvane {

// Whether the first of them is there: then nothing of the program's own goes elsewhere.
bool IsPortable();

// The path; for the third file its bare name, with which the profile functions find it.
std::wstring SettingsFile();
// Its full path, for the user.
std::wstring SettingsFilePath();

// The user's own file, the second one, made with what the shared one holds when it is not there.
// Its path; empty when it can't be made.
std::wstring MakeOwnSettingsFile();

}  // namespace corvane
