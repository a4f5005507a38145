// Records and texts for the tests of the Basic Ship Data.
#pragma once

#include <string>
#include <string_view>

#include "bsd/basic_ship_data.h"

namespace corvane::test {

// The record of tests/golden/bsd_block.txt: every number has another value.
BasicShipData DistinctBsd();
// The same as it is in memory after the file was read: layout version "5".
BasicShipData DistinctBsdFromFile();

// The golden block without its header line and the comment line after it.
std::string GoldenRecords();
// The golden records, with `text` instead of line `line` (1: the version).
std::string WithLine(int line, std::string_view text);

// Reads the bytes as a file of records; the number of numbers read.
int ReadRecords(std::string_view bytes, BasicShipData& bsd);
BasicShipData RecordsRead(std::string_view bytes);
// What WriteBasicShipData writes.
std::string RecordsWritten(BasicShipData& bsd);

}  // namespace corvane::test
