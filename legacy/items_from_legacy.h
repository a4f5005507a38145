// What a section's strakes have on them, from the legacy form: the parts of FromLegacyRecord after
// ReadStrakes and the geometry. An item of a strake that does not exist is left out; one that
// cannot be placed is noted.
#pragma once

#include "database/section.h"
#include "legacy/exchange_report.h"
#include "platform/ztvelk32.h"

namespace corvane {

// An import in the making.
struct LegacyImport {
    SectionModel& section;    // its panels have their nodes
    const Section& geometry;  // the library's view of the section; its strakes have been computed
    const LegacyGeometry& legacy;  // of any contents
    Losses& losses;
};

// The abscissa of the legacy form says where a stiffener is; the offset that it was given is kept
// where it leads to the same point. One that cannot be placed is noted (message 2001) and
// keeps the offset.
void ReadStiffeners(const LegacyImport& work);
// After ReadStiffeners: spans belong to stiffeners. Also the brackets and the fatigue tables of
// spans. What belongs to nothing that exists, and a span that is not where its stiffener is, is
// noted (message 2013 with its number and that of the owner) and left out.
void ReadSpans(const LegacyImport& work);
// These four do not depend on one another. An opening that is not at its node, within the
// section's tolerance, and a pillar without a place are noted as message 2001, and kept.
void ReadBrackets(const LegacyImport& work);
void ReadOpenings(const LegacyImport& work);
void ReadPillars(const LegacyImport& work);
void ReadPlates(const LegacyImport& work);

}  // namespace corvane
