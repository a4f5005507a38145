// What the program reads, counted, and a system on which everything takes long. A program that uses
// these is linked with corvane_wrap_system (tests/CMakeLists.txt): the linker then leads every call
// of system::ReadBytes and system::Milliseconds through here.
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

// While one of these lives, a second has passed at each look at the clock.
struct SlowSystem {
    SlowSystem();
    ~SlowSystem();
    SlowSystem(const SlowSystem&) = delete;
    SlowSystem& operator=(const SlowSystem&) = delete;
};

}  // namespace corvane::test
