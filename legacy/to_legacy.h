// The parts of ToLegacyRecord. The section's geometry has been computed, the record is zeroed.
#pragma once

#include <cstddef>
#include <string>

#include "database/section.h"
#include "platform/ztvelk32.h"
#include "report/reporters.h"

namespace corvane {

struct LegacyExport {
    SectionModel& section;
    const Section& geometry;  // the library's view of the section
    LegacySectionRecord& record;
};

// A table of the legacy form that is being filled.
template <class Entry, int size>
struct Filling {
    Entry (&table)[size];
    int16_t& count;
    int32_t message;  // what has no room is reported once, with the table's size
    bool full = false;

    // The next entry; null when there is none.
    Entry* Next() {
        if (count < size) return &table[count++];
        if (!full) ReportMessage(message, {int32_t{size}});
        full = true;
        return nullptr;
    }
};
template <class Entry, int size>
Filling(Entry (&)[size], int16_t&, int32_t) -> Filling<Entry, size>;

// Single-byte text, cut to the field; NULs fill it up.
void PutText(const std::wstring& text, char* field, size_t size);

// What each of them reports stands with its number in the message catalogue.
void FillStrakes(const LegacyExport& work);
void FillStiffeners(const LegacyExport& work);
void FillSpans(const LegacyExport& work);
void FillBrackets(const LegacyExport& work);
void FillOpenings(const LegacyExport& work);
void FillPillars(const LegacyExport& work);
void FillPlates(const LegacyExport& work);

}  // namespace corvane
