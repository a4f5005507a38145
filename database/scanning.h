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
#include <vector>

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

// Where a list found a model's block. A number alone is a place, too: the block must be searched.
struct BlockPlace {
    int32_t number;
    int64_t offset;           // of the block's marker, in bytes; -1: not known
    system::FileStamp stamp;  // of the file in which the block was there

    BlockPlace(int32_t itsNumber, int64_t itsOffset = -1, const system::FileStamp& itsStamp = {})
        : number(itsNumber), offset(itsOffset), stamp(itsStamp) {}
};

// From the reader's position on, the first block with this number and, when `keyword` is not empty,
// this keyword. On success `keyword` is the block's (empty where the block has lost it), and the
// reader is where the lines before the marker begin that belong to it: comment lines directly
// before it included. On failure `keyword` keeps its value, and the reader is at the end.
bool FindModel(TextReader& reader, int32_t number, std::string& keyword);

// The same from the start of the file on, without a search where that can be spared: the file's
// stamp is the place's, and the block's marker and number are at its offset. Little more than the
// block is then read.
bool FindBlock(TextReader& reader, const BlockPlace& place, std::string& keyword);
// The same, without the search: false where that would be needed.
bool FindBlockAtPlace(TextReader& reader, const BlockPlace& place, std::string& keyword);

// Number of model blocks; 0 for a file that cannot be opened.
int CountModels(const std::wstring& path);

// Opens a database that is to be read, at its start. What is not one is reported: a file that is
// not there any more (3580), that cannot be read (3509), or that holds something else (1083).
bool RequireDatabaseText(TextReader& reader, const std::wstring& path);
// FindBlock in such a database. Reported when no block has the number (1011), and when the file
// cannot be read.
bool RequireBlock(TextReader& reader, const std::wstring& path, const BlockPlace& place,
                  std::string& keyword);
// RequireDatabaseText without a reader.
bool RequireDatabaseFile(const std::wstring& path);

// What the numbers of a database's blocks are.
struct BlockNumbers {
    std::vector<int32_t> numbers;  // by block; 0 where a block has none
    std::vector<int64_t> offsets;  // by block: of its marker
    system::FileStamp stamp;       // where a list has them: of the file that was listed
};
// A number that no block has: the larger of the count of the blocks and the highest number, plus 1;
// 0 where that is beyond 32 bits.
int32_t NextNumber(const BlockNumbers& blocks);
// Reads them from the start of the file on; as far as it can be read.
BlockNumbers ReadBlockNumbers(TextReader& reader);
// Which block is the first one of this number; the count of the blocks where none is.
size_t IndexOf(const BlockNumbers& blocks, int32_t number);
// Where the first block of this number is in the file with this stamp; the number alone where no
// block has it.
BlockPlace PlaceOf(const BlockNumbers& blocks, int32_t number, const system::FileStamp& stamp);
// Whether the number, from 1 on, leads to one block alone. Reported when not: no block has it
// (1011), or more than one, or the blocks that have it have lost theirs (3522).
bool RequireOneBlock(const BlockNumbers& blocks, int32_t number, const std::wstring& path);
// A command leaves the model alone that this number does not lead to alone (3522).
void ReportNumberNotOwn(int32_t number, const std::wstring& path);
// No number is left for a new model (3510).
void ReportNoNumberLeft(const std::wstring& path);

}  // namespace corvane
