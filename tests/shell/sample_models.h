// The sample ship, for tests that work on it.
#pragma once

#include <cstdint>
#include <string>

#include "database/model_kind.h"
#include "tests/support/support.h"

namespace corvane::test {

inline std::wstring SamplePath() {
    return DataPath("../samples/aurora_bay.ve2");
}

struct SampleModel {
    const wchar_t* name;
    ModelKind kind;
    float x_m;  // -1: a torsion model has no position in the list
};

inline constexpr SampleModel kSampleModels[] = {
    {L"Engine room, frame 30", ModelKind::kSection, 20.7F},
    {L"Hold 7, frame 61", ModelKind::kSection, 44.7F},
    {L"Hold 6, frame 91", ModelKind::kSection, 68.7F},
    {L"Hold 5, frame 121", ModelKind::kSection, 92.7F},
    {L"Midship section, hold 4", ModelKind::kSection, 108.5F},
    {L"Hold 3, frame 181", ModelKind::kSection, 140.7F},
    {L"Hold 2, frame 211", ModelKind::kSection, 164.7F},
    {L"Hold 1, frame 240", ModelKind::kSection, 187.9F},
    {L"Fore peak, frame 270", ModelKind::kSection, 208.7F},
    {L"Engine room bulkhead, frame 46", ModelKind::kBulkhead, 32.7F},
    {L"Corrugated bulkhead, holds 5 and 4", ModelKind::kBulkhead, 104.7F},
    {L"Collision bulkhead, frame 254", ModelKind::kBulkhead, 199.1F},
    {L"Torsion model, holds 7 to 1", ModelKind::kTorsion, -1},
    {L"Torsion model, holds 5 to 3", ModelKind::kTorsion, -1},
};

// Models 1 to 9; the first bulkhead arrangement comes after them.
inline constexpr int32_t kSectionCount = 9;

}  // namespace corvane::test
