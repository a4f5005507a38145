// What differs between two ship records, value by value.
#pragma once

#include "bsd/basic_ship_data.h"
#include "database/differences.h"

namespace corvane {

// In the order of the file: titles, numbers, remark.
void CompareShipRecords(const BasicShipData& before, const BasicShipData& now,
                        const OnDifference& onDifference);

}  // namespace corvane
