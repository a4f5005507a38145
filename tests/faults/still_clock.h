// A clock for the tests: the pauses of the program are counted, not made.
#pragma once

#include <cstdint>
#include <functional>

namespace corvane::faults {

// The sum of all pauses since the program's start.
int64_t Paused_ms();

// Called after each pause has been counted; empty at the start.
std::function<void()>& AtPause();

}  // namespace corvane::faults
