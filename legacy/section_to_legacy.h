// A section to the legacy form (platform/ztvelk32.h). docs/legacy-form.md says table by table what
// that form holds. What it has no room for is left out.
#pragma once

#include "database/section.h"
#include "legacy/exchange_report.h"
#include "platform/ztvelk32.h"

namespace corvane {

// Fills the record from the section, whose geometry is computed first, in place. Every byte of the
// record is set. Returns what was left out, cut or changed. A message in the status line says what
// is being done; it is not cleared at the end.
Losses ToLegacyRecord(SectionModel& section, LegacySectionRecord& record);

}  // namespace corvane
