#include "companions/ztvelk32/changes.h"

#include <new>
#include <utility>

namespace corvane::ztvelk32 {
namespace {

bool IsUntouched(const Changes& changes, const system::FileStatus& now) {
    return now.exists && now.size == changes.read.size && now.modified == changes.read.modified;
}

bool GetStatus(const std::wstring& path, system::FileStatus& status) {
    return system::GetFileStatus(path, status) == system::kErrorNone;
}

int16_t Write(Changes& changes) {
    system::FileStatus now;
    if (!GetStatus(changes.path, now)) return kLegacyNotWritten;
    if (!now.exists) return kLegacyDone;
    if (!IsUntouched(changes, now)) return kLegacyNotWritten;
    return WriteDatabase(changes.path, changes.database);
}

}  // namespace

Changes::~Changes() {
    try {
        if (isChanged) Write(*this);
    } catch (const std::bad_alloc&) {
        // The file is as it was.
        isChanged = false;
    }
}

Changes& Kept() {
    static Changes changes;
    return changes;
}

void DropChanges() {
    Changes& changes = Kept();
    changes.path.clear();
    changes.database = {};
    changes.isNew = changes.isChanged = false;
    changes.unnamed = 0;
}

int16_t MakeDatabase(const std::wstring& path) {
    Changes& changes = Kept();
    const std::wstring target = system::AbsolutePath(path);
    if (changes.path == target) DropChanges();
    int16_t status = WriteChanges();
    if (status != kLegacyDone) return status;
    status = WriteDatabase(target, changes.database);
    if (status != kLegacyDone || !GetStatus(target, changes.read)) return status;
    changes.path = target;
    changes.isNew = true;
    return status;
}

int16_t OpenForChange(const std::wstring& path) {
    Changes& changes = Kept();
    const std::wstring target = system::AbsolutePath(path);
    system::FileStatus now;
    if (!GetStatus(target, now) || !now.exists) return kLegacyFileMissing;
    if (changes.path == target && IsUntouched(changes, now)) {
        if (now.isReadOnly) DropChanges();
        return now.isReadOnly ? kLegacyNotWritten : kLegacyDone;
    }
    int16_t status = WriteChanges();
    if (status != kLegacyDone) return status;
    status = ReadDatabase(target, changes.database);
    if (status != kLegacyDone) return status;
    if (now.isReadOnly) return kLegacyNotWritten;
    changes.path = target;
    changes.read = now;
    return kLegacyDone;
}

int16_t WriteChanges() {
    Changes& changes = Kept();
    const int16_t status = changes.isChanged ? Write(changes) : kLegacyDone;
    DropChanges();
    return status;
}

}  // namespace corvane::ztvelk32
