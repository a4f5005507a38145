// The creation times that files were given since the list was cleared.
#pragma once

#include <cstdint>
#include <vector>

namespace corvane::faults {

std::vector<int64_t>& CreationTimesSet();

}  // namespace corvane::faults
