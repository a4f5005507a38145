// The model database: a text file with a head (signature, stamps, Basic Ship Data) and numbered
// model blocks after it. docs/database-file.md gives the layout. This module recognises a database
// and finds the blocks in it.
//
// A model is found by the number in its block's head. Procedures that have a path open the file and
// close it before they return; nothing is kept between calls. Those that have a reader leave it
// open and say where it is afterwards. No scan looks at lines between two markers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/text_file.h"

namespace corvane {

// The structural lines that are texts of the catalogue, as ANSI bytes.
struct StructuralLines {
    std::string commentRule;   // 3001, begins with "*"
    std::string modelMarker;   // 3002
    std::string versionLabel;  // 3003
    std::string nameLabel;     // 3004
    std::string signature;     // 3016, upper case
    std::string headLabel;     // 3017
};
StructuralLines FetchStructuralLines();

// Whether the file's first significant line, trimmed and in upper case, is the signature. False
// for a file that cannot be read.
bool IsDatabaseFile(const std::wstring& path);
// The same of an open file. The reader goes to the start.
bool IsDatabase(TextReader& reader);

// The next significant line inside the current block. False at the end of the file and at the next
// model marker, which stays unread: a block that lacks lines never swallows the one after it.
bool ReadBlockLine(TextReader& reader, std::string_view modelMarker, std::string_view& line);

// From the reader's position on, the first block with this number and, when `keyword` is not empty,
// this keyword. On success `keyword` is the block's (empty where the block has lost it), and the
// reader is where the lines before the marker begin that belong to it: comment lines directly
// before it included. On failure `keyword` keeps its value, and the reader is at the end.
bool FindModel(TextReader& reader, int32_t number, std::string& keyword);

// Number of model blocks; 0 for a file that cannot be opened.
int CountModels(const std::wstring& path);

}  // namespace corvane
