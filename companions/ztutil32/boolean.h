// The booleans that cross to the shell: 16-bit integers, -1 true, 0 false.
#pragma once

#include <cstdint>

namespace corvane::ztutil {

constexpr int16_t Boolean(bool value) {
    return value ? int16_t{-1} : int16_t{0};
}

}  // namespace corvane::ztutil
