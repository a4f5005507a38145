// What several unit tests share: folders of their own, whole files, and a screen that records.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::test {

// A new empty folder in the temporary folder, with a trailing "\"; removed with all files in it at
// the end of the test.
struct TemporaryFolder {
    std::wstring path;
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    std::wstring File(std::wstring_view name) const { return path + std::wstring(name); }
};

void WriteFileBytes(const std::wstring& path, std::string_view bytes);
std::string ReadFileBytes(const std::wstring& path);
// Names of the files in a folder, sorted.
std::vector<std::wstring> FilesIn(const std::wstring& folder);

// Path of a file below tests/, "golden/head.ve2".
std::wstring DataPath(std::string_view name);

// Replaces the process's state by a fresh one whose screen writes what happens into `events`, such
// as "caption text", "colour red", "warning text", "pointer reset", "pending", and puts the old
// state back at the end.
struct RecordingScreen {
    RecordingScreen();
    ~RecordingScreen();
    RecordingScreen(const RecordingScreen&) = delete;
    RecordingScreen& operator=(const RecordingScreen&) = delete;

    static std::vector<std::string> events;
    static std::wstring caption;
    static std::wstring tag;
    static bool answerYes;
    // All events that begin with `word`, without it and the blank behind it.
    static std::vector<std::string> Of(std::string_view word);
};

// Text as UTF-8, for messages of tests.
std::string Narrow(std::wstring_view text);

}  // namespace corvane::test
