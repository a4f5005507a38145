// What a model is, for the user: what its block holds, who wrote it, how large it is. Nothing but
// the block is read.
#pragma once

#include <cstdint>
#include <string>

#include "database/scanning.h"
#include "database/stamps.h"

namespace corvane {

struct ModelDescription {
    std::wstring contents;    // what there is in a model of the kind: "label tab number", by lines
    std::wstring identifier;  // empty: the block has none, as that of a torsion model
    bool hasPosition = false;
    float x_m = 0;
    StampTexts stamp;
    int64_t size = 0;  // [bytes] from the block's marker to the next one, or to the file's end
};

// Reports a file that cannot be read (3580, 3509, 1083), and a number that no block has (1011).
// False in these cases.
bool DescribeModel(const std::wstring& path, const BlockPlace& place,
                   ModelDescription& description);

// The procedures of the single kinds, for the table in database/model_kind.cpp. The reader is
// before the block's marker, as FindModel leaves it.
void DescribeSection(TextReader& reader, ModelDescription& description);
void DescribeBulkhead(TextReader& reader, ModelDescription& description);
void DescribeTorsion(TextReader& reader, ModelDescription& description);

}  // namespace corvane
