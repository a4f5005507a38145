// The history of the databases: the texts that edits have replaced, each a file of its own in the
// user's history folder, "Corvane\history" in the local application data, or "history" beside the
// program where the settings are there, too:
//
//   index.txt      the databases and their versions, one a line, the oldest first (docs/safety.md)
//   index.new      the index while it is written
//   lock           open for writing while the history is changed
//   7\12.ve2       version 12 of database 7
//
// A version is one more link to the file that was replaced, or a copy on another volume. A database
// is known by its path, and after it was moved or renamed by the identity of its file.
//
// A process may end at any call: a version's file without a line goes when the next version of the
// database is kept, and a line without a file does not count. The order is that of the lines,
// whatever the clock said. Nothing here shows a message.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/system.h"

namespace corvane {

enum class VersionKind : char {
    kEdit = 'e',  // an edit replaced it: Undo puts it back
    kUndo = 'u',  // Undo replaced it: Redo puts it back
    kOld = 'o',   // what Redo would have put back before another edit was made
};

// A text that the database had.
struct TextVersion {
    int32_t database = 0;
    int32_t number = 0;
    VersionKind kind = VersionKind::kEdit;
    std::wstring time;      // when it was replaced: TimeText
    std::wstring user;      // by whom
    std::wstring what;      // by what: "Delete of 'Hold 3'"; of kUndo, the edit that was undone
    int32_t models = 0;     // number of its models; -1: not known
    system::FileStamp old;  // of the database when it had this text
    system::FileStamp now;  // of the database with the text that came instead
    int64_t kept = 0;       // last write of the version's own file
    // Found when the history is read:
    std::wstring file;       // full path
    bool isChanged = false;  // the file has another size or time than the version was kept with
};

struct HistoryLimits {
    int32_t versions = 50;             // of one database; at least 1
    int64_t bytes = int64_t{1} << 30;  // of all versions of all databases
};

// The versions of a database, the oldest first; empty without any.
system::ErrorNumber ReadHistory(const std::wstring& path, std::vector<TextVersion>& versions);

struct VersionToKeep {
    std::wstring path;    // of the database
    TextVersion version;  // kind, user, what, models, old, now
    // A copy, not a link: a program that writes in place is about to run.
    bool asCopy = false;
    // Redo: what other undone edits left stays to be redone.
    bool keepsRedo = false;
    // The stamp of the version that is about to be put back, if any; it is then `now`.
    system::FileStamp putBack;
    HistoryLimits limits;
};

// Takes the text that the database has now into its history; `file` is then the version's file.
// Where the newest version has the same stamp, that one is it. Versions beyond the limits go first,
// the oldest of all first, but never the newest of a database. kErrorFileChanged: the database no
// longer has the text `version.old`. On failure the history is as it was, but for such old
// versions.
system::ErrorNumber KeepVersion(const VersionToKeep& toKeep, std::wstring& file);

// The text that came instead of the newest version has been replaced again, by the same command or
// program: its stamp, `before`, is now `now`. Nothing happens when the newest line has another one.
system::ErrorNumber NoteNewStamp(const std::wstring& path, const system::FileStamp& before,
                                 const system::FileStamp& now);

// The versions that Undo and Redo put back next; null: none. `current` is the database's stamp: a
// version that has it is no step.
struct UndoSteps {
    const TextVersion* undo = nullptr;
    const TextVersion* redo = nullptr;
};
UndoSteps NextSteps(const std::vector<TextVersion>& versions, const system::FileStamp& current);

// The time as versions have it: "2026-03-29 14:05:30".
std::wstring TimeText(const system::LocalTime& time);

}  // namespace corvane
