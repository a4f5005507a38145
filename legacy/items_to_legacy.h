// What a section's strakes have on them, in the legacy form: the parts of ToLegacyRecord after
// FillStrakes. Each fills a table in the order of the strakes; what has no room is reported once
// (the message names the table's size) and left out.
#pragma once

#include "legacy/strakes_to_legacy.h"

namespace corvane {

// An abscissa in the legacy form is in m, from the strake's first node; 0 when the library cannot
// place the item.
void FillStiffeners(const LegacyExport& work);
// After FillStiffeners: a span has its stiffener's number. Also the brackets and the fatigue tables
// of spans, and the profiles, each of them once.
void FillSpans(const LegacyExport& work);
void FillBrackets(const LegacyExport& work);
void FillOpenings(const LegacyExport& work);
void FillPillars(const LegacyExport& work);
// In the order of the panels; the last of the tables on strakes.
void FillPlates(const LegacyExport& work);

}  // namespace corvane
