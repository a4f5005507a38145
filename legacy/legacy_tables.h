// Tables and texts of fixed size, as the records of the legacy form (platform/ztvelk32.h) have
// them: a table is an array and a count of used entries, a text is an array of single-byte
// characters.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "legacy/exchange_report.h"
#include "legacy/legacy_room.h"

namespace corvane {

// ---- Filling -----------------------------------------------------------------------------------

// A table that is being filled, entry by entry.
template <class Entry, int size>
struct Filling {
    Entry (&table)[size];
    int16_t& count;   // of used entries; goes up with each
    int32_t message;  // what has no room is noted once, with the table's size
    const LimitLosses& limits;
    bool full = false;

    // The next entry, zeroed like the whole record; null when the table is full.
    Entry* Next() {
        if (count < size) return &table[count++];
        if (!full) NoteLimit(limits, message, size);
        full = true;
        return nullptr;
    }
};
template <class Entry, int size>
Filling(Entry (&)[size], int16_t&, int32_t, const LimitLosses&) -> Filling<Entry, size>;

struct TextField {
    char* bytes;
    size_t size;  // in characters; a text that fills the field has no NUL
};
// OEM text, up to its first NUL, cut to the field; NULs fill it up. What an import would not give
// back is noted (kMsgNameChanged): letters that the OEM code page lacks, and what was cut.
void PutText(const std::wstring& text, TextField field, Losses& losses);

// ---- Reading -----------------------------------------------------------------------------------

// The entries of a table that are used. A count that is outside of the table counts as the nearest
// that is not.
template <class Entry, int size>
std::span<const Entry> Used(const Entry (&table)[size], int16_t count) {
    return {table, static_cast<size_t>(std::clamp<int>(count, 0, size))};
}

// OEM text up to its first NUL, trimmed.
std::wstring TextOf(const char* field, size_t size);

}  // namespace corvane
