// The sample ship, for tests that work on it.
#pragma once

#include <cstdint>
#include <string>

#include "tests/support/support.h"

namespace corvane::test {

// Models 1 to 9; the first bulkhead arrangement comes after them.
inline constexpr int32_t kSectionCount = 9;

inline std::wstring SamplePath() {
    return DataPath("../samples/aurora_bay.ve2");
}

}  // namespace corvane::test
