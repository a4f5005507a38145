// The parts of FromLegacyRecord. A record may hold anything: counts and numbers that lead outside
// of its tables count as the nearest that doesn't, or as none.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

#include "database/section.h"
#include "platform/ztvelk32.h"

namespace corvane {

// The entries of a table that are used.
template <class Entry, int size>
std::span<const Entry> Used(const Entry (&table)[size], int16_t count) {
    return {table, static_cast<size_t>(std::clamp<int>(count, 0, size))};
}

// Single-byte text up to its first NUL, trimmed.
std::wstring TextOf(const char* field, size_t size);

// The strakes that are there; the first that is not present ends them.
int16_t StrakesOf(const LegacyGeometry& legacy);
// The nodes of a strake that is there, in the legacy numbering.
struct NodeRange {
    int16_t first, count;
};
NodeRange NodesOf(const LegacyGeometry& legacy, int16_t strake);

// The panels with their nodes.
void ReadStrakes(const LegacyGeometry& legacy, SectionModel& section);

// `geometry` is the library's view of the section; its strakes have been computed.
struct LegacyImport {
    SectionModel& section;
    const Section& geometry;
    const LegacyGeometry& legacy;
};
void ReadStiffeners(const LegacyImport& work);
void ReadSpans(const LegacyImport& work);
void ReadBrackets(const LegacyImport& work);
void ReadOpenings(const LegacyImport& work);
void ReadPillars(const LegacyImport& work);
void ReadPlates(const LegacyImport& work);

}  // namespace corvane
