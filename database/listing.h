// The list of a database's models: numbers, names, kinds and positions, as the model list and the
// boxes of export and import show them.
//
// A listing reads the heads of the blocks only. A damaged block has an entry too, with what could
// be read of it, so a list is always as long as CountModels says.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "database/model_kind.h"
#include "database/scanning.h"
#include "text/digest.h"

namespace corvane {

// One model of a list, in file order.
struct ModelEntry {
    int32_t number =
        0;  // as the block has it: not always its place in the file; 0 where it has none
    int64_t offset = 0;       // of the block's marker, in bytes
    system::FileStamp stamp;  // of the file that was listed
    std::wstring name;        // trimmed
    ModelKind kind = ModelKind::kSection;
    float x = -1;  // [m] position; -1 for a torsion model, 0 where the block has no position row
    std::string identifier;  // trimmed, as the block has it; empty for a torsion model
    // The number is 1 or more, and no other block of the file has it: it leads to this model.
    bool hasOwnNumber = false;
    bool operator==(const ModelEntry&) const = default;
};
// Where the model's block is. The number alone where it does not lead to this model.
BlockPlace PlaceOf(const ModelEntry& model);

// The models of a file; none of a file that is not there. Where it cannot be opened, or not be read
// to its end, this is reported, and the list has what was read. ListModels leaves x at -1
// and the identifiers empty.
std::vector<ModelEntry> ListModels(const std::wstring& path);
std::vector<ModelEntry> ListModelsWithPositions(const std::wstring& path);
// The same. False, and no models, when the user has cancelled, which is noted in the status line.
bool ListModels(const std::wstring& path, std::vector<ModelEntry>& models);
bool ListModelsWithPositions(const std::wstring& path, std::vector<ModelEntry>& models);

// A list with positions, and of each model a digest of the lines after its name, up to the next
// model's marker: what a change of its number or its name leaves as it is.
struct DigestedList {
    std::vector<ModelEntry> models;
    std::vector<DigestValue> digests;  // as many
};
bool ListModelsWithDigests(const std::wstring& path, DigestedList& list);

// Reads number, name and kind of the model at a place once more, and nothing but its block. False
// where the place is not known, or the file is no longer what it was when the place was found.
bool ReadModelAt(const std::wstring& path, const BlockPlace& place, ModelEntry& model);

// Position [m] of one model; -1 when the file has no model of this number, 0 when its block has no
// position row. The row after a torsion model's name is read like any other.
float ModelPosition(const std::wstring& path, const BlockPlace& place);
// The same; false, and `x` untouched, when there is no such model, and when it cannot be read,
// which is reported.
bool ReadModelPosition(const std::wstring& path, const BlockPlace& place, float& x);

}  // namespace corvane
