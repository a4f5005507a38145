#include "companions/ztvelk32/changes.h"

#include <new>
#include <utility>

namespace corvane::ztvelk32 {
namespace {

int16_t WriteWhole(Changes& changes, const std::wstring& path, const system::FileStamp* old) {
    std::wstring leftOver;
    const int16_t status = WriteDatabase(path, changes.database, old, leftOver);
    if (!leftOver.empty()) changes.leftOver.push_back(leftOver);
    return status;
}

int16_t Write(Changes& changes) {
    system::FileStatus now;
    if (system::GetFileStatus(changes.path, now) != system::kErrorNone) return kLegacyNotWritten;
    return now.exists ? WriteWhole(changes, changes.path, &changes.read) : kLegacyDone;
}

void RemoveLeftOver(Changes& changes) {
    std::erase_if(changes.leftOver, [](const std::wstring& file) {
        const system::ErrorNumber error = system::RemoveFile(file);
        return error == system::kErrorNone || error == system::kErrorFileNotFound;
    });
}

}  // namespace

Changes::~Changes() {
    try {
        if (isChanged) Write(*this);
        RemoveLeftOver(*this);
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

void RemoveLeftOver() {
    RemoveLeftOver(Kept());
}

int16_t MakeDatabase(const std::wstring& path) {
    Changes& changes = Kept();
    const std::wstring target = system::AbsolutePath(path);
    if (changes.path == target) DropChanges();
    int16_t status = WriteChanges();
    if (status != kLegacyDone) return status;
    status = WriteWhole(changes, target, nullptr);
    if (status != kLegacyDone) return status;
    if (system::GetFileStamp(target, changes.read) != system::kErrorNone) return status;
    changes.path = target;
    changes.isNew = true;
    return status;
}

int16_t OpenForChange(const std::wstring& path) {
    Changes& changes = Kept();
    const std::wstring target = system::AbsolutePath(path);
    system::FileStatus status;
    if (system::GetFileStatus(target, status) != system::kErrorNone || !status.exists ||
        status.isDirectory) {
        return kLegacyFileMissing;
    }
    system::FileStamp now;
    if (changes.path == target && system::GetFileStamp(target, now) == system::kErrorNone &&
        now == changes.read) {
        if (status.isReadOnly) DropChanges();
        return status.isReadOnly ? kLegacyNotWritten : kLegacyDone;
    }
    const int16_t written = WriteChanges();
    if (written != kLegacyDone) return written;
    const int16_t read = ReadForChange(target, changes.database, changes.read);
    // It is there, and another program lets nobody open it.
    if (read == kLegacyFileMissing) return kLegacyNotWritten;
    if (read != kLegacyDone) return read;
    if (status.isReadOnly) return kLegacyNotWritten;
    changes.path = target;
    return kLegacyDone;
}

int16_t WriteChanges() {
    Changes& changes = Kept();
    const int16_t status = changes.isChanged ? Write(changes) : kLegacyDone;
    DropChanges();
    return status;
}

}  // namespace corvane::ztvelk32
