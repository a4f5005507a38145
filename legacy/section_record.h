// A section in the legacy form, and back. docs/legacy-form.md tells table by table what the legacy
// form holds; what it has no room for is reported and left out. Messages tell what is being done;
// the status line is not cleared.
#pragma once

#include "database/section.h"
#include "platform/ztvelk32.h"

namespace corvane {

// Fills the record from the section, whose geometry is computed first, in place. Every byte of the
// record is set.
void ToLegacyRecord(SectionModel& section, LegacySectionRecord& record);

// Makes a new section of the record, with its geometry computed, without an identifier. Items that
// can't be placed are reported; those of a strake that does not exist are left out.
void FromLegacyRecord(const LegacySectionRecord& record, SectionModel& section);

}  // namespace corvane
