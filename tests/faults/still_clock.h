// Whether the pauses of the program are made; false at the start.
#pragma once

namespace corvane::faults {

bool& WaitsForReal();

}  // namespace corvane::faults
