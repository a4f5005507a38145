// A section from the legacy form (platform/ztvelk32.h). docs/legacy-form.md says table by table
// what that form holds. A record may hold anything: it comes from a file that another program
// wrote.
#pragma once

#include "database/section.h"
#include "legacy/exchange_report.h"
#include "platform/ztvelk32.h"

namespace corvane {

// What every imported section has, whatever the record holds.
inline constexpr float kImportedBottomSlope_deg = 30;
inline constexpr float kImportedSideSlope_deg = 45;
inline constexpr int32_t kImportedStressRule = 1;
inline constexpr int32_t kImportedBucklingRule = 2;

// Makes a new section of the record, with its geometry computed, without an identifier. Returns
// what could not be placed; what is on a strake that does not exist is left out. A message in the
// status line says what is being done; it is not cleared at the end.
Losses FromLegacyRecord(const LegacySectionRecord& record, SectionModel& section);

}  // namespace corvane
