// LI_Sections, the list of the open database's models: its columns and its rows.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/listing.h"
#include "database/model_kind.h"
#include "database/scanning.h"

namespace corvane {

// One row of the list, one model of the file.
struct ModelRow {
    std::wstring name;
    std::wstring x;     // "#0.000", empty for a negative position
    std::wstring id;    // the number, a single digit with a blank in front
    std::wstring type;  // kind name
    int icon = 1;       // 1-based index in IML_Small
    int32_t tag = 0;    // the model's number: that of its block, not its place in the list
    // The number leads to this model; a row without such a number is shown, and left alone.
    bool hasOwnNumber = false;
    int64_t offset = 0;       // of its block in the file
    system::FileStamp stamp;  // of the file that was listed
    float x_m = -1;           // position
    // The frame nearest to the position (FillInFrames); none without a position or without frames.
    std::optional<int> frame;
    ModelKind kind = ModelKind::kSection;
    std::string identifier;  // as the block has it; empty for a torsion model
};
// The row of a listed model, without its frame.
ModelRow RowOf(const ModelEntry& model);
// Where the row's model is; the number alone where that does not lead to it.
BlockPlace PlaceOf(const ModelRow& row);

// Index of the row that is the model of `before`, a row of an earlier list: by the identifier, else
// by name and kind. Of several it is the one with the same number, else the first one; -1: none.
int FindSameModel(const std::vector<ModelRow>& rows, const ModelRow& before);

// The columns from left to right.
enum class ListColumn { kName, kX, kNumber, kKind, kFrame };
inline constexpr size_t kColumnCount = 5;

// A column of the list. The first one has the icons and what the others leave of the list's width.
struct ModelColumn {
    const wchar_t* title;
    bool alignsRight;
    // A text as long as the column is wide; null for the first one.
    const wchar_t* sample;
    std::wstring (*text)(const ModelRow& row);
};

// The columns "Name", "X", "Id", "Type" and "Frame".
std::span<const ModelColumn> ModelColumns();

// Reads the models of a database, in file order, with status message 621 meanwhile. A read fault is
// reported; the list has the models before it.
std::vector<ModelRow> FillModelList(const std::wstring& path);
// The same. False, and the rows as they were, when the user has cancelled, which is noted in the
// status line.
bool FillModelList(const std::wstring& path, std::vector<ModelRow>& rows);

// Calls `use` with each of the indexes, in their order, and the name of that row in lower case,
// which lasts as long as the call. The system is asked for many names at once.
void ForEachNameInLowerCase(const std::vector<ModelRow>& rows, const std::vector<int>& indexes,
                            const std::function<void(int index, std::wstring_view name)>& use);

// Gives each row the frame of the ship that is nearest to its position.
void FillInFrames(const BasicShipData& bsd, std::vector<ModelRow>& rows);

}  // namespace corvane
