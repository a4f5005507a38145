// The model database: a text file with a head (signature, stamps, Basic Ship Data) and numbered
// model blocks behind it. docs/database-file.md gives the layout.
//
// A model is found by the number in its block's head. Every procedure opens the files it needs and
// closes them before it returns; nothing is kept between calls.
#pragma once

#include <climits>
#include <cstdint>
#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/model_kind.h"
#include "database/stamps.h"
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
// for a file that can't be read.
bool IsDatabaseFile(const std::wstring& path);
// The same of an open file. The reader goes to the start.
bool IsDatabase(TextReader& reader);
// Whether a read of this reader has failed; the user is told then (message 3509).
bool ReportReadFault(const TextReader& reader, const std::wstring& path);

// ---- Finding and listing -----------------------------------------------------------------------

// The next significant line inside the current block. False at the end of the file and at the next
// model marker, which stays unread: a block that lacks lines never swallows the one behind it.
bool ReadBlockLine(TextReader& reader, std::string_view modelMarker, std::string_view& line);

// From the reader's place on, the first block with this number and, when `keyword` is not empty,
// this keyword. On success `keyword` is the block's (empty where the block has lost it), and the
// reader stands where the lines before the marker begin that belong to it: comment lines directly
// before it included. On failure `keyword` keeps its value, and the reader is at the end.
bool FindModel(TextReader& reader, int32_t number, std::string& keyword);

// Number of model blocks; 0 for a file that can't be opened.
int CountModels(const std::wstring& path);

// One model of a list, in file order. A damaged block has an entry too, with what could be read of
// it, so a list is always as long as CountModels tells.
struct ModelEntry {
    int32_t number = 0;  // as the block has it: not always its place in the file
    std::wstring name;   // trimmed
    ModelKind kind = ModelKind::kSection;
    float x = -1;  // [m] position; -1 for a torsion model, 0 where the block has no position row
};

// The models of a file, as far as it can be read; empty for a file that can't be opened.
// ListModels leaves x at -1.
std::vector<ModelEntry> ListModels(const std::wstring& path);
std::vector<ModelEntry> ListModelsWithPositions(const std::wstring& path);

// Position [m] of one model; -1 when the file has no model of this number, 0 when its block has no
// position row. The row behind a torsion model's name is read like any other.
float ModelPosition(const std::wstring& path, int32_t number);

// ---- Copying and creating ----------------------------------------------------------------------
// A read that fails ends a copy like the end of the file; the reader's `error` tells. Whoever puts
// the copy in the place of the database looks at it, and at the writer's, first.

// Copies all bytes from the reader's place to the first model marker (to the end of a file without
// models); the reader then stands at the marker.
void CopyFileHead(TextReader& from, TextWriter& to);

// Copies the models numbered `first` to `last` (-1: to the end of the file), adding `shift` to
// their numbers. Comment lines between a marker and its number become one comment rule; all other
// lines pass unchanged. Nothing is copied when there is no model `first`.
void CopyModels(TextReader& from, TextWriter& to, int32_t first, int32_t last, int32_t shift);

// A run of blocks as they stand in the file, whatever their numbers are.
struct BlockRun {
    static constexpr int64_t kToTheEnd = INT64_MIN;

    int64_t stopBefore = kToTheEnd;  // the number of the first block that is not copied any more
    int mostBlocks = INT_MAX;        // so many are copied
    int64_t shift = 0;               // added to the numbers ...
    int64_t shiftAbove = INT64_MIN;  // ... that are larger than this one
};

// Copies from the reader's place to the marker of the block that ends the run, where the reader
// then stands, or to the end of the file; lines as in CopyModels. False at the end of the file.
bool CopyBlocks(TextReader& from, TextWriter& to, const BlockRun& run);

// From a place at a block's marker, or at the comment lines before it, to the comment lines before
// the next block's marker; to the end of the file behind the last block.
void SkipBlock(TextReader& reader);

// Writes the lines that open every block, from the marker to the name label.
void WriteBlockHead(TextWriter& writer, int32_t number, ModelKind kind, const Stamp& stamp);

// Writes a new database that holds only the ship's data; an old file of that name is replaced. An
// empty path does nothing; a read-only file is reported (message 1086) and stays. MainData(4) may
// change as in WriteBasicShipData. True when the file was written.
bool CreateDatabaseFile(const std::wstring& path, BasicShipData& bsd);

}  // namespace corvane
