// What a section's strakes have on them, in the legacy form: the parts of ToLegacyRecord after
// FillStrakes. Each fills a table in the order of the strakes; what has no room is reported once
// (the message names the table's size) and left out.
#pragma once

#include "legacy/strakes_to_legacy.h"

namespace corvane {

void FillStiffeners(const LegacyExport& work);
void FillSpans(const LegacyExport& work);
void FillBrackets(const LegacyExport& work);
void FillOpenings(const LegacyExport& work);
void FillPillars(const LegacyExport& work);
void FillPlates(const LegacyExport& work);

}  // namespace corvane
