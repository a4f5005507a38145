// What a section's strakes have on them, from the legacy form: the parts of FromLegacyRecord after
// ReadStrakes and the geometry. An item of a strake that does not exist is left out; one that
// cannot be placed is noted.
#pragma once

#include "database/section.h"
#include "legacy/losses.h"
#include "platform/ztvelk32.h"

namespace corvane {

// An import in the making.
struct LegacyImport {
    SectionModel& section;
    const Section& geometry;  // the library's view of the section; its strakes have been computed
    const LegacyGeometry& legacy;
    Losses& losses;
};

void ReadStiffeners(const LegacyImport& work);
// After ReadStiffeners: spans belong to stiffeners.
void ReadSpans(const LegacyImport& work);
// These four do not depend on one another.
void ReadBrackets(const LegacyImport& work);
void ReadOpenings(const LegacyImport& work);
void ReadPillars(const LegacyImport& work);
void ReadPlates(const LegacyImport& work);

}  // namespace corvane
