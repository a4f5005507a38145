// What the commands do with the history of databases (files/history.h): each edit has a name under
// which the text that it replaces is kept, and Undo and Redo put such texts back. Where a text
// cannot be kept, the edit is made all the same, and the status line says so at its end.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "files/history.h"
#include "platform/system.h"

namespace corvane {

struct EditHistory {
    bool isOn = false;  // UseHistory was called
    HistoryLimits limits;

    // The edit that is being made; without a name, nothing that is rewritten is kept.
    std::wstring edit;
    VersionKind kind = VersionKind::kEdit;
    bool keepsRedo = false;
    system::FileStamp putBack;  // of the version that comes back
    // What was kept of it: its first text, whatever it goes on to replace, and what came last.
    bool isKept = false;
    system::FileStamp last;
    system::ErrorNumber error = system::kErrorNone;  // why nothing was kept

    // The names of what Undo and Redo would do; empty: nothing.
    std::wstring undoName;
    std::wstring redoName;
};

// From now on edits are kept, within the limits of the settings file: "Versions" and "Megabytes" in
// the section "Corvane history".
void UseHistory();
inline constexpr int32_t kMostVersions = 1000;
inline constexpr int32_t kMostMegabytes = 1024 * 1024;
// Other limits, within these bounds, from the next edit on; those that change are written to the
// settings file. False when they cannot be written there.
bool KeepHistoryLimits(int32_t versions, int32_t megabytes);

// While it lives, what is rewritten is an edit of this name: "Delete of 'Hold 3'".
class EditName {
public:
    explicit EditName(const std::wstring& name);
    ~EditName();
    EditName(const EditName&) = delete;
    EditName& operator=(const EditName&) = delete;
};

// Reads again what Undo and Redo would do with the open database.
void ReadUndoNames();

// Put the text back that the newest edit replaced, or the newest Undo. The file must be as that
// step left it, or the user is asked, with both times. What fails is reported, even a step that has
// gone meanwhile.
// True when the text is back.
bool UndoEdit();
bool RedoEdit();

// Whether the open database can be put back at all: it is there and may be changed. Reported when
// not.
bool RequireEditable();

// ---- Earlier versions --------------------------------------------------------------------------

// The open database's versions, and what the user wants of them.
struct VersionChoice {
    std::wstring path;                  // of the database
    std::vector<TextVersion> versions;  // the newest first, without that which the database has
    system::FileStamp current;
    size_t chosen = 0;  // index of the version that is to replace the database
};
VersionChoice ReadVersions();

// What replaced a version: "Delete of 'Hold 3'", "Undo: Delete of 'Hold 3'".
std::wstring NameOfChange(const TextVersion& version);

// A column of their list.
struct VersionColumn {
    const wchar_t* title;
    const wchar_t* sample;  // as long as the texts usually are
    bool alignsRight;
    std::wstring (*text)(const TextVersion& version);
};
std::span<const VersionColumn> VersionColumns();

// The chosen version replaces the database, as an edit that can be undone.
bool RestoreVersion(const VersionChoice& choice);
// Asks for a file, and saves the version there.
void SaveVersionAs(const std::wstring& path, const TextVersion& version);

// ---- Programs of the suite ---------------------------------------------------------------------
// They may write in place, through every name that the database's file has.

struct KeptForRun {
    system::FileStamp before;  // of the database, when the program starts
    system::ErrorNumber error = system::kErrorNone;
};
// Gives the open database a file of its own, where it has more names than one, and keeps its text
// as a copy.
KeptForRun KeepBeforeRun(const std::wstring& name);
// The program has ended.
void NoteAfterRun(const KeptForRun& kept);
// The status line says that there is no history of the run, if that is so.
void ReportKept(system::ErrorNumber error);

}  // namespace corvane
