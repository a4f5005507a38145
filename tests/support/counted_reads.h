// The bytes that the program reads. A program that uses this is linked with corvane_count_reads
// (tests/CMakeLists.txt): the linker then leads every call of system::ReadBytes through here.
#pragma once

#include <cstdint>

namespace corvane::test {

// What has been read since one of these was made.
struct CountedReads {
    CountedReads();
    int64_t Bytes() const;

private:
    int64_t before;
};

}  // namespace corvane::test
