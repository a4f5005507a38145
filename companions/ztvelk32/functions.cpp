// The library's functions. What they change is written as companions/ztvelk32/changes.h says.
#include <algorithm>
#include <cstring>
#include <functional>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "companions/ztvelk32/changes.h"
#include "companions/ztvelk32/legacy_file.h"
#include "platform/system.h"

using namespace corvane;
using namespace corvane::ztvelk32;

namespace {

// Nothing is thrown out of the library; what there is no memory for cannot be written.
template <class Operation>
int16_t Guarded(const char* path, Operation operation) {
    if (path == nullptr || *path == '\0') return kLegacyFileMissing;
    try {
        RemoveLeftOver();
        return operation(system::WideFromAnsi(path));
    } catch (const std::bad_alloc&) {
        return kLegacyNotWritten;
    }
}

// Whether a function without a status word has failed with that file.
bool HasFailed(const std::wstring& file) {
    const std::wstring& failed = Kept().failed;
    return !failed.empty() && failed == system::AbsolutePath(file);
}

// Of a function whose status nobody judges: after a failure the changes go, and it is the status of
// a later function, too.
int16_t Remembered(const std::wstring& file, int16_t status) {
    if (status == kLegacyDone) return status;
    DropChanges();
    Kept().failed = system::AbsolutePath(file);
    Kept().failure = status;
    return status;
}

// What a function with a status word does. A failure of a function without one comes first; it is
// over then, unless `keepsFailure`.
template <class Operation>
void WithStatus(const char* path, int16_t* status, Operation operation, bool keepsFailure = false) {
    const int16_t value = Guarded(path, [&](const std::wstring& file) {
        if (!HasFailed(file)) return operation(file);
        if (!keepsFailure) Kept().failed.clear();
        return Kept().failure;
    });
    if (status != nullptr) *status = value;
}

// change(changes) gives a status. After a failure nothing more is changed, until it was asked for.
template <class Change>
int16_t Edit(const std::wstring& file, Change change) {
    if (HasFailed(file)) return Kept().failure;
    int16_t status = OpenForChange(file);
    if (status == kLegacyDone) status = change(Kept());
    if (status == kLegacyDone) Kept().isChanged = true;
    return status;
}

// The last change of a conversation: in a database that was there before, it is on the disk.
template <class Change>
int16_t EditAndWrite(const std::wstring& file, Change change) {
    const int16_t status = Edit(file, change);
    return status == kLegacyDone && !Kept().isNew ? WriteChanges() : status;
}

// The status of a function without a status word. A failure is also the status of the next function
// with one; that there is no such section is an answer.
int16_t WithoutStatus(const char* path,
                      const std::function<int16_t(const std::wstring&)>& operation) {
    return Guarded(path, [&operation](const std::wstring& file) {
        const int16_t status = operation(file);
        return status == kLegacyNoSection ? status : Remembered(file, status);
    });
}

// What is read is what the file has.
template <class Read>
int16_t ReadFile(const std::wstring& file, Read read) {
    const int16_t status = WriteChanges();
    return status == kLegacyDone ? read(file) : status;
}

void SetEntryName(LegacySectionEntry& entry, std::string_view name) {
    std::fill(std::begin(entry.name), std::end(entry.name), ' ');
    name.copy(entry.name, sizeof(entry.name));
}

template <class Block>
int16_t SetBlock(Changes& changes, int16_t section, Block LegacySectionRecord::* member,
                 const Block& block) {
    std::vector<Slot>& slots = changes.database.slots;
    if (section < 1 || static_cast<size_t>(section) > slots.size()) return kLegacyNoSection;
    slots[static_cast<size_t>(section - 1)].record.*member = block;
    return kLegacyDone;
}

template <class Block>
int16_t ExportBlock(const char* path, int16_t section, Block LegacySectionRecord::* member,
                    const Block* block) {
    if (block == nullptr) return kLegacyNoSection;
    return WithoutStatus(path, [&](const std::wstring& file) {
        return Edit(file,
                    [&](Changes& changes) { return SetBlock(changes, section, member, *block); });
    });
}

// The third block is the last one, unless its slot still gets a name.
int16_t ExportLastBlock(const std::wstring& file, int16_t section, const LegacyCompLoad& block) {
    const auto set = [&](Changes& changes) {
        return SetBlock(changes, section, &LegacySectionRecord::compLoad, block);
    };
    const int16_t status = Edit(file, set);
    const Changes& changes = Kept();
    const bool isNamed = changes.unnamed != static_cast<size_t>(section);
    return status == kLegacyDone && !changes.isNew && isNamed ? WriteChanges() : status;
}

template <class Block>
int16_t ImportBlock(const char* path, int16_t section, Block LegacySectionRecord::* member,
                    Block* block) {
    if (block == nullptr) return kLegacyNoSection;
    return WithoutStatus(path, [&](const std::wstring& name) {
        return ReadFile(name, [&](const std::wstring& file) {
            Slot slot;
            const int16_t status = ReadSlot(file, section, slot);
            if (status == kLegacyDone) *block = slot.record.*member;
            return status;
        });
    });
}

}  // namespace

CORVANE_EXPORT float CORVANE_STDCALL getztvelk32version() {
    return 2.0F;
}

CORVANE_EXPORT void CORVANE_STDCALL createvelkdb(const char* path, int16_t* status) {
    // What was wrong with an older file of that name is past.
    Kept().failed.clear();
    WithStatus(path, status, MakeDatabase);
}

CORVANE_EXPORT void CORVANE_STDCALL extendvelkdb(const char* path, int16_t* status) {
    WithStatus(path, status, [](const std::wstring& file) {
        return Edit(file, [](Changes& changes) {
            std::vector<Slot>& slots = changes.database.slots;
            if (slots.size() >= kMostSections) return kLegacyFull;
            Slot& slot = slots.emplace_back();
            std::memset(&slot, 0, sizeof(slot));
            SetEntryName(slot.entry, {});
            changes.unnamed = slots.size();
            return kLegacyDone;
        });
    });
}

CORVANE_EXPORT void CORVANE_STDCALL addsectvelkdb(const char* path, const char* name,
                                                  float position, int16_t* status) {
    const auto nameSlot = [&](const std::wstring& file) {
        const int16_t result = EditAndWrite(file, [&](Changes& changes) {
            if (changes.database.slots.empty()) return kLegacyNoSection;
            LegacySectionEntry& entry = changes.database.slots.back().entry;
            SetEntryName(entry, name == nullptr ? "" : name);
            entry.x_m = position;
            changes.unnamed = 0;
            return kLegacyDone;
        });
        return Remembered(file, result);
    };
    WithStatus(path, status, nameSlot, true);
}

CORVANE_EXPORT void CORVANE_STDCALL getvelksections(const char* path, int16_t* status,
                                                    int16_t* count, LegacySectionEntry* entries) {
    if (count != nullptr) *count = 0;
    const auto list = [&](const std::wstring& file) {
        Database database;
        const int16_t read = ReadDatabase(file, database);
        if (read != kLegacyDone || count == nullptr || entries == nullptr) return read;
        const size_t listed = std::min<size_t>(database.slots.size(), kLegacyListedSections);
        for (size_t i = 0; i < listed; ++i) entries[i] = database.slots[i].entry;
        *count = static_cast<int16_t>(listed);
        return read;
    };
    WithStatus(path, status, [&](const std::wstring& file) { return ReadFile(file, list); });
}

CORVANE_EXPORT int16_t CORVANE_STDCALL exportvelkmainsec(const char* path, int16_t section,
                                                         LegacyMainSection* record) {
    return ExportBlock(path, section, &LegacySectionRecord::main, record);
}

CORVANE_EXPORT int16_t CORVANE_STDCALL importvelkmainsec(const char* path, int16_t section,
                                                         LegacyMainSection* record) {
    return ImportBlock(path, section, &LegacySectionRecord::main, record);
}

CORVANE_EXPORT int16_t CORVANE_STDCALL exportsectiongeometry(const char* path, int16_t section,
                                                             LegacyGeometry* record) {
    return ExportBlock(path, section, &LegacySectionRecord::geometry, record);
}

CORVANE_EXPORT int16_t CORVANE_STDCALL importsectiongeometry(const char* path, int16_t section,
                                                             LegacyGeometry* record) {
    return ImportBlock(path, section, &LegacySectionRecord::geometry, record);
}

CORVANE_EXPORT int16_t CORVANE_STDCALL exportvelkcompload(const char* path, int16_t section, void*,
                                                          LegacyCompLoad* record) {
    if (record == nullptr) return kLegacyNoSection;
    return WithoutStatus(
        path, [&](const std::wstring& file) { return ExportLastBlock(file, section, *record); });
}

CORVANE_EXPORT int16_t CORVANE_STDCALL importvelkcompload(const char* path, int16_t section, void*,
                                                          LegacyCompLoad* record) {
    return ImportBlock(path, section, &LegacySectionRecord::compLoad, record);
}

CORVANE_EXPORT void CORVANE_STDCALL exportvelkbsd(const char* path, const LegacyBsd* bsd,
                                                  int16_t* status) {
    WithStatus(path, status, [bsd](const std::wstring& file) {
        return EditAndWrite(file, [bsd](Changes& changes) {
            if (bsd == nullptr) return kLegacyNotWritten;
            changes.database.bsd = *bsd;
            return kLegacyDone;
        });
    });
}

CORVANE_EXPORT void CORVANE_STDCALL importvelknavi(const char* path, LegacyBsd* bsd,
                                                   int16_t* status) {
    const auto import = [bsd](const std::wstring& file) {
        Database database;
        const int16_t read = ReadDatabase(file, database);
        if (read == kLegacyDone && bsd != nullptr) *bsd = database.bsd;
        return read;
    };
    WithStatus(path, status, [&](const std::wstring& file) { return ReadFile(file, import); });
}
