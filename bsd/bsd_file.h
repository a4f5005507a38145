// The Basic Ship Data in files: as the block of a model database, opened by a header line, and as
// a standalone file (extension "bsd") that holds the records alone. docs/bsd-file.md gives the
// layout.
#pragma once

#include <string>

#include "bsd/basic_ship_data.h"
#include "files/text_file.h"

namespace corvane {

// The line that opens the block in a database, compared exactly.
inline constexpr std::string_view kBsdHeaderLine = "------------------ BSD ------------------";

// Reads the records from the reader's next line on. An item that is bad or missing is passed over
// and its field keeps its value; the next header line or model marker ends the records. Returns
// how many numbers were read.
int ReadBasicShipData(TextReader& reader, BasicShipData& bsd);

// Writes the records in layout version 5. MainData(4) takes the value of MainData(3), in the
// caller's record too, when it is near zero.
void WriteBasicShipData(TextWriter& writer, BasicShipData& bsd);

// Reads the block of a database. A missing file: nothing happens. No block: the warning "path : not
// a valid Corvane file", and the record keeps its contents. An empty Titles(1) becomes label 101.
// True when a block was read.
bool LoadBsdFromDatabase(const std::wstring& path, BasicShipData& bsd);

// Puts the record in the place of the database's block; everything else in the file stays. Nothing
// happens for an empty path or a missing file. A read-only file, a file without a block, and a
// write that fails are reported and leave the file as it was. True when the file has the data.
bool SaveBsdToDatabase(const std::wstring& path, BasicShipData& bsd);

// Reads a standalone file. Nothing happens when there is none; a file that holds neither a layout
// version nor a number is reported, and the record keeps its contents. True when it was read.
bool ImportBsdFile(const std::wstring& path, BasicShipData& bsd);

}  // namespace corvane
