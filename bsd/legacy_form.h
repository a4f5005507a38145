// The Basic Ship Data in the form of the legacy library.
#pragma once

#include "bsd/basic_ship_data.h"
#include "platform/ztvelk32.h"

namespace corvane {

// Texts become ANSI, padded with blanks; every number passes unchanged.
void ToLegacyForm(const BasicShipData& bsd, LegacyBsd& legacy);
void FromLegacyForm(const LegacyBsd& legacy, BasicShipData& bsd);

}  // namespace corvane
