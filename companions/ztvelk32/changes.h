// The legacy database that is being changed: read with the first change, kept in memory, and
// written whole. Were each call to write, the time of an export would grow with the square of its
// sections.
//
// The interface has no call that closes a file, so changes are written at the last call of each
// conversation: of one section, where the slot gets its name, or its third block when it had one;
// of the ship's data, at once. The status of that call, or its result, is the truth about the disk.
// Only a database that createvelkdb has made in this process has no last call: its changes are
// written when a file is read or listed, another file is changed, or the library is unloaded. So a
// program ends the making of a whole database with getvelksections, whose status is then that of
// the writing.
//
// A process that dies before loses the changes, never what was in the file. So does a failed write.
// When a call without a status word fails to write or to read, all changes are forgotten, and that
// is the status of the next call on that file that has one, of the naming of a slot as well as of
// the one after it: nobody need judge the former.
#pragma once

#include <string>
#include <vector>

#include "companions/ztvelk32/legacy_file.h"
#include "platform/system.h"

namespace corvane::ztvelk32 {

struct Changes {
    std::wstring path;  // absolute; empty: nothing is being changed
    Database database;
    system::FileStamp read;  // the file as it was read
    bool isNew = false;      // made by createvelkdb, and not written since
    bool isChanged = false;
    size_t unnamed = 0;  // slot, from 1, that was added last and has no name yet; 0: none
    // Path of a file with which a call without a status word has failed, and its status.
    std::wstring failed;
    int16_t failure = 0;
    // New files of writes that failed, which could not be removed then.
    std::vector<std::wstring> leftOver;

    Changes() = default;
    Changes(const Changes&) = delete;
    Changes& operator=(const Changes&) = delete;
    ~Changes();
};

// The one record of the library.
Changes& Kept();

// All return a kLegacy... status.

// A new empty database, which replaces any file of that name.
int16_t MakeDatabase(const std::wstring& path);
// Makes the record that of the file; changes of another one are written first. A file that cannot
// be written is refused.
int16_t OpenForChange(const std::wstring& path);
// Forgets what was changed.
void DropChanges();
// Removes the new files of earlier writes that failed, as far as that is possible now. Every call
// of the library does so first, and its unloading.
void RemoveLeftOver();
// Writes what was changed, and forgets the record whatever becomes of it. Another program that has
// written the file meanwhile is not overwritten. Changes of a file that was deleted go with it.
int16_t WriteChanges();

}  // namespace corvane::ztvelk32
