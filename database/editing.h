// Edits of a model database. Each of them writes the whole file again (files/rewrite.h): copied
// spans, the new block, and number lines that change. Nobody else writes into the file meanwhile;
// when another program replaces it, the edit is made again from the new text. After a failure,
// which is reported, the file is as it was, and the result is false or 0.
//
// `path` is the database's file. When that file is read-only, the user is informed (message 1086)
// and `options.ask` asks for another file: the database's text is copied there, the edit is done
// there, and `path` becomes that file's name. DeleteModel asks nothing: a read-only file is
// reported. An empty path does nothing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/bulkhead.h"
#include "database/listing.h"
#include "database/model_kind.h"
#include "database/scanning.h"
#include "database/section.h"
#include "files/text_file.h"

namespace corvane {

// Asks the user for another file than the read-only one at `proposed`. Its name; empty when the
// user cancels. It is called again while the answer is a read-only file, too.
using AskForDatabase = std::wstring (*)(const std::wstring& proposed);

struct EditOptions {
    bool keepBackup = false;  // the old text is copied to BackupPath(path) (files/paths.h) first
    AskForDatabase ask =
        nullptr;  // null, and a cancelled question, end the edit of a read-only file
    // The blocks as a list found them: while the file has the list's stamp, it is read only once.
    const BlockNumbers* listed = nullptr;
};

// A block is known by its number, from 1 on. A number that no block has is reported (1011), one
// that two blocks have, and one below 1, too (3522); nothing is written then.

// Writes the record instead of the block `number`; when no block has that number, at the end of the
// file, provided that it is the number that a new model gets (NextModelNumber). Message 602
// meanwhile. True when the file has the record.
bool ReplaceSection(std::wstring& path, SectionModel& section, int32_t number,
                    const EditOptions& options = {});
bool ReplaceBulkheadArrangement(std::wstring& path, BulkheadArrangement& arrangement,
                                int32_t number, const EditOptions& options = {});

// Removes the blocks of these numbers, all of them or none, and subtracts from every number after
// them, for each one that is smaller, 1; where numbers are out of order and two blocks would then
// have one number, from every such number of the file. A number below 1 does nothing. Message 603
// meanwhile. True when the file is without the models.
bool DeleteModels(const std::wstring& path, const std::vector<int32_t>& numbers, bool keepBackup,
                  const BlockNumbers* listed = nullptr);
bool DeleteModel(const std::wstring& path, int32_t number, bool keepBackup);

struct ModelRename {
    int32_t number = 0;
    std::wstring oldName;  // trimmed, as the list has it
    std::wstring newName;  // is trimmed, and written as the name of a copy is
    EditOptions options;
};
// Writes the line of a model's name again; every other byte of the file stays. Message 602
// meanwhile. A model whose name is no longer the old one (3523), and a block without a line for a
// name (3800), are reported and left alone. True when the model has the new name.
bool RenameModel(std::wstring& path, const ModelRename& rename);

// The larger of the number of blocks and the highest block number, plus 1. 0 when the file cannot
// be read to its end, and when there is no such number.
int32_t NextModelNumber(const std::wstring& path);

// ---- Copies ------------------------------------------------------------------------------------

struct ModelCopy {
    int32_t number = 0;  // of the model that is copied
    ModelKind kind = ModelKind::kSection;
    std::wstring newName;  // is trimmed; a torsion model's copy keeps the name of its source
    EditOptions options;   // only a torsion model is copied without a backup
};

// Appends a copy of a model: a section or a bulkhead arrangement with the new name and a new
// identifier; a torsion model line by line. Returns the copy's number, 0 on failure.
int32_t CopyModel(std::wstring& path, const ModelCopy& copy);
// The same of several models in one rewrite, with the options of the first one: all of them or none
// is copied. Returns the last copy's number.
int32_t CopyAllModels(std::wstring& path, const std::vector<ModelCopy>& copies);

// A model of another database.
struct ModelSource {
    std::wstring path;
    BlockPlace place = 0;
};

enum class AppendResult {
    kAppended,
    kNoSource,   // the source does not have the model, or it cannot be read
    kNotWritten  // the database cannot be written
};

// Appends a model of another database: a section or a bulkhead arrangement with a new identifier; a
// torsion model line by line. What fails is reported, and the database is as it was.
AppendResult AppendModel(std::wstring& path, const ModelSource& source, ModelKind kind,
                         const EditOptions& options);

// Appends models that ListModels found in another database, in one rewrite: all of them or none.
// They get numbers that follow one another. Returns the last one's number, 0 on failure, which is
// reported.
int32_t AppendModels(std::wstring& path, const std::wstring& source,
                     const std::vector<ModelEntry>& models, const EditOptions& options);

// Appends the record as a new model, with the number that NextModelNumber gives.
bool AppendSection(std::wstring& path, SectionModel& section, const EditOptions& options);

// The procedures of the single kinds, for the table in database/model_kind.cpp: write the block of
// a copy. `newName` null keeps the source's name. False, and reported, when the source does not
// have the model, or it cannot be read.
bool WriteCopyOfSection(TextWriter& writer, const ModelSource& source, const std::wstring* newName,
                        int32_t newNumber);
bool WriteCopyOfBulkhead(TextWriter& writer, const ModelSource& source, const std::wstring* newName,
                         int32_t newNumber);
bool WriteCopyOfTorsion(TextWriter& writer, const ModelSource& source, const std::wstring* newName,
                        int32_t newNumber);

}  // namespace corvane
