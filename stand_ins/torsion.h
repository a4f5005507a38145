// Torsion models: blocks whose contents only the torsion program knows. The body that is written
// here has the holds between two ends, and no beams yet.
#pragma once

#include <cstdint>
#include <string>

namespace corvane::stand_ins {

struct TorsionModel {
    std::wstring name;
    float aft_m = 0;  // x of the ends
    float fore_m = 0;
    int32_t holdCount = 0;  // of equal length, number 1 the foremost
};

// Writes the model instead of block `number`, or at the end of the file when no block has that
// number. False: reported, the file is as it was.
bool WriteTorsionModel(const std::wstring& path, const TorsionModel& model, int32_t number);

// Changes the name of block `number` and nothing else. False: reported, the file is as it was.
bool RenameModel(const std::wstring& path, const std::wstring& name, int32_t number);

}  // namespace corvane::stand_ins
