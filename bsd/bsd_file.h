// The Basic Ship Data in files: as the block of a model database, opened by a header line, and as
// a standalone file (extension "bsd") that holds the records alone.
//
// What fails is reported. A load that fails leaves the record as it was, a save the file.
#pragma once

#include <string>
#include <string_view>

#include "bsd/basic_ship_data.h"

namespace corvane {

// The line that opens the block in a database, compared exactly.
inline constexpr std::string_view kBsdHeaderLine = "------------------ BSD ------------------";

// Whether a database without a block is warned of.
enum class NoBlock { kWarns, kIsNoFault };
// Reads the block of a database, whose header line is before the first model. A missing file:
// nothing happens. No block: the warning "path : not a valid Corvane file". An empty Titles(1)
// becomes label 101. True when a block was read.
bool LoadBsdFromDatabase(const std::wstring& path, BasicShipData& bsd,
                         NoBlock noBlock = NoBlock::kWarns);

// Writes the record instead of the database's block; everything else in the file stays, and the
// old text is kept as a backup. Nothing happens for an empty path or a missing file. A read-only
// file, a file without a block, and a write that fails are reported. True when the file has the
// data.
bool SaveBsdToDatabase(const std::wstring& path, BasicShipData& bsd);

// Reads a standalone file into a new record: nothing of the old one is left. Nothing happens when
// the file does not exist; one that holds neither a layout version nor a number is reported. True
// when it was read.
bool ImportBsdFile(const std::wstring& path, BasicShipData& bsd);

}  // namespace corvane
