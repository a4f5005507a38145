// Edits of a model database. Each of them writes the whole file anew (files/rewrite.h): copied
// spans, the new block, and number lines that change. After a failure, which is reported, the file
// is as it was.
//
// `path` is the database's file. Where it names a read-only file, the user is told (message 1086),
// and asked for another file by the prompt "Save DB as...": the database's text is taken there, the
// edit is done there, and `path` becomes that file's name. A cancelled prompt ends the edit.
// DeleteModel asks for nothing: a read-only file is reported. An empty path does nothing.
//
// With `keepBackup` the file's old text is put at BackupPath(path) (files/paths.h) first.
#pragma once

#include <cstdint>
#include <string>

#include "database/bulkhead.h"
#include "database/model_kind.h"
#include "database/section.h"

namespace corvane {

// Writes the record in the place of the first block `number`; where no block has that number, at
// the end of the file, when it is the number that a new model gets (NextModelNumber). Any other
// number is reported (1011). Message 602 meanwhile. True when the file has the record.
bool ReplaceSection(std::wstring& path, SectionModel& section, int32_t number, bool keepBackup);
bool ReplaceBulkheadArrangement(std::wstring& path, BulkheadArrangement& arrangement,
                                int32_t number, bool keepBackup);

// The larger of the number of blocks and the highest block number, plus 1. 0 when the file can't be
// read to its end, and when there is no such number.
int32_t NextModelNumber(const std::wstring& path);

// The same of a database that a model is to be appended to: a read-only one is asked for as by the
// edits, and why there is no number is reported.
int32_t NumberForAppending(std::wstring& path);

struct ModelSource {
    std::wstring path;
    int32_t number = 0;
};

// Appends a torsion model of another database line by line, with the number for appending. One that
// is not there is reported (1011). True when the file has the model.
bool AppendTorsionModel(std::wstring& path, const ModelSource& source, bool keepBackup);

struct ModelCopy {
    int32_t number = 0;  // of the model that is copied
    ModelKind kind = ModelKind::kSection;
    std::wstring newName;     // is trimmed; a torsion model's copy keeps the name of its source
    bool keepBackup = false;  // of a torsion model; the others always keep one
};

// Appends a copy of a model: a section or a bulkhead arrangement with the new name and a new
// identifier; a torsion model line by line. Returns the copy's number, 0 on failure.
int32_t CopyModel(std::wstring& path, const ModelCopy& copy);

// Removes the first block of this number and takes 1 from every larger number behind it. A number
// that no block has is reported (1011), and nothing is written; one below 1 does nothing. Message
// 603 meanwhile. True when the file is without the model.
bool DeleteModel(const std::wstring& path, int32_t number, bool keepBackup);

}  // namespace corvane
