// Copies heads and blocks of a database from one file to another, as spans of bytes: only the few
// lines that may change are looked at.
//
// A read that fails ends a copy like the end of the file; the reader's `error` says why. Before the
// copy becomes the database, its maker looks at that error and at the writer's.
#pragma once

#include <cstdint>

#include "database/scanning.h"
#include "files/text_file.h"

namespace corvane {

// Copies all bytes from the reader's position to the first model marker (to the end of a file
// without models); the reader is then at the marker.
void CopyFileHead(TextReader& from, TextWriter& to);

// Copies the models numbered `first` to `last` (-1: to the end of the file), adding `shift` to
// their numbers. Comment lines between a marker and its number become one comment rule; all other
// lines pass unchanged. Nothing is copied when there is no model `first`.
void CopyModels(TextReader& from, TextWriter& to, int32_t first, int32_t last, int32_t shift);

// A run of blocks in the order of the file, whatever their numbers are.
struct BlockRun {
    static constexpr int64_t kToTheEnd = INT64_MIN;

    int64_t stopBefore = kToTheEnd;  // the number of the first block that is no longer copied
    size_t mostBlocks = SIZE_MAX;    // so many are copied
    int64_t shift = 0;               // added to the numbers ...
    int64_t shiftAbove = INT64_MIN;  // ... that are larger than this one
    // What the blocks of the file are, so that no marker is searched, and the index of the run's
    // first one; null: not known. A block that is not as known ends the copy, and the reader's
    // error is kErrorFileChanged.
    const BlockNumbers* known = nullptr;
    size_t first = 0;
};

// Copies from the reader's position to the marker of the block that ends the run, where the reader
// then is, or to the end of the file; lines as in CopyModels. False at the end of the file.
bool CopyBlocks(TextReader& from, TextWriter& to, const BlockRun& run);

// From a block's marker, or the comment lines before it, to the comment lines before the next
// block's marker; after the last block to the end of the file.
void SkipBlock(TextReader& reader);

}  // namespace corvane
