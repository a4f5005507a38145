// A section from the legacy form (platform/ztvelk32.h). docs/legacy-form.md says table by table
// what that form holds. A record may hold anything: it comes from a file that another program
// wrote.
#pragma once

#include "database/section.h"
#include "platform/ztvelk32.h"

namespace corvane {

// Makes a new section of the record, with its geometry computed, without an identifier. Items that
// cannot be placed are reported; those of a strake that does not exist are left out. Messages in
// the status line say what is being done; it is not cleared at the end.
void FromLegacyRecord(const LegacySectionRecord& record, SectionModel& section);

}  // namespace corvane
