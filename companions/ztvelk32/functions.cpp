// The library's functions: each reads the file, does one thing, and writes the file again.
#include <algorithm>
#include <cstring>
#include <new>
#include <string>
#include <string_view>

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
        return operation(system::WideFromAnsi(path));
    } catch (const std::bad_alloc&) {
        return kLegacyNotWritten;
    }
}

void Tell(int16_t* status, int16_t value) {
    if (status != nullptr) *status = value;
}

// change(database) gives a status; the file is written when that is success.
template <class Change>
int16_t Edit(const char* path, Change change) {
    return Guarded(path, [&change](const std::wstring& file) {
        Database database;
        int16_t status = ReadDatabase(file, database);
        if (status == kLegacyDone) status = change(database);
        return status == kLegacyDone ? WriteDatabase(file, database) : status;
    });
}

void SetEntryName(LegacySectionEntry& entry, std::string_view name) {
    std::fill(std::begin(entry.name), std::end(entry.name), ' ');
    name.copy(entry.name, sizeof(entry.name));
}

template <class Block>
int16_t ExportBlock(const char* path, int16_t section, Block LegacySectionRecord::* member,
                    const Block* block) {
    if (block == nullptr) return kLegacyNoSection;
    return Edit(path, [&](Database& database) {
        if (section < 1 || static_cast<size_t>(section) > database.slots.size()) {
            return kLegacyNoSection;
        }
        database.slots[static_cast<size_t>(section - 1)].record.*member = *block;
        return kLegacyDone;
    });
}

template <class Block>
int16_t ImportBlock(const char* path, int16_t section, Block LegacySectionRecord::* member,
                    Block* block) {
    if (block == nullptr) return kLegacyNoSection;
    return Guarded(path, [&](const std::wstring& file) {
        Slot slot;
        const int16_t status = ReadSlot(file, section, slot);
        if (status == kLegacyDone) *block = slot.record.*member;
        return status;
    });
}

}  // namespace

CORVANE_EXPORT float CORVANE_STDCALL getztvelk32version() {
    return 2.0F;
}

CORVANE_EXPORT void CORVANE_STDCALL createvelkdb(const char* path, int16_t* status) {
    Tell(status, Guarded(path, [](const std::wstring& file) {
             Database database;
             return WriteDatabase(file, database);
         }));
}

CORVANE_EXPORT void CORVANE_STDCALL extendvelkdb(const char* path, int16_t* status) {
    Tell(status, Edit(path, [](Database& database) {
             if (database.slots.size() >= kMostSections) return kLegacyFull;
             Slot& slot = database.slots.emplace_back();
             std::memset(&slot, 0, sizeof(slot));
             SetEntryName(slot.entry, {});
             return kLegacyDone;
         }));
}

CORVANE_EXPORT void CORVANE_STDCALL addsectvelkdb(const char* path, const char* name,
                                                  float position, int16_t* status) {
    Tell(status, Edit(path, [&](Database& database) {
             if (database.slots.empty()) return kLegacyNoSection;
             LegacySectionEntry& entry = database.slots.back().entry;
             SetEntryName(entry, name == nullptr ? "" : name);
             entry.x_m = position;
             return kLegacyDone;
         }));
}

CORVANE_EXPORT void CORVANE_STDCALL getvelksections(const char* path, int16_t* status,
                                                    int16_t* count, LegacySectionEntry* entries) {
    if (count != nullptr) *count = 0;
    Tell(status, Guarded(path, [&](const std::wstring& file) {
             Database database;
             const int16_t read = ReadDatabase(file, database);
             if (read != kLegacyDone || count == nullptr || entries == nullptr) return read;
             const size_t listed = std::min<size_t>(database.slots.size(), kLegacyListedSections);
             for (size_t i = 0; i < listed; ++i) entries[i] = database.slots[i].entry;
             *count = static_cast<int16_t>(listed);
             return read;
         }));
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
    return ExportBlock(path, section, &LegacySectionRecord::compLoad, record);
}

CORVANE_EXPORT int16_t CORVANE_STDCALL importvelkcompload(const char* path, int16_t section, void*,
                                                          LegacyCompLoad* record) {
    return ImportBlock(path, section, &LegacySectionRecord::compLoad, record);
}

CORVANE_EXPORT void CORVANE_STDCALL exportvelkbsd(const char* path, const LegacyBsd* bsd,
                                                  int16_t* status) {
    Tell(status, Edit(path, [bsd](Database& database) {
             if (bsd == nullptr) return kLegacyNotWritten;
             database.bsd = *bsd;
             return kLegacyDone;
         }));
}

CORVANE_EXPORT void CORVANE_STDCALL importvelknavi(const char* path, LegacyBsd* bsd,
                                                   int16_t* status) {
    Tell(status, Guarded(path, [bsd](const std::wstring& file) {
             Database database;
             const int16_t read = ReadDatabase(file, database);
             if (read == kLegacyDone && bsd != nullptr) *bsd = database.bsd;
             return read;
         }));
}
