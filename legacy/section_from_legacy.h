// A section from the legacy form (platform/ztvelk32.h). docs/legacy-form.md says table by table
// what that form holds. A record may hold anything: it comes from a file that another program
// wrote.
#pragma once

#include "database/section.h"
#include "legacy/losses.h"
#include "platform/ztvelk32.h"

namespace corvane {

// Makes a new section of the record, with its geometry computed, without an identifier. Returns
// what could not be placed; what is on a strake that does not exist is left out. A message in the
// status line says what is being done; it is not cleared at the end.
Losses FromLegacyRecord(const LegacySectionRecord& record, SectionModel& section);

}  // namespace corvane
