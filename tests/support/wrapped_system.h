// What the program reads, counted; a system on which everything takes long; and volumes without
// links. A program that uses these is linked with corvane_wrap_system (tests/CMakeLists.txt): the
// linker then leads every call of system::ReadBytes, Milliseconds and MakeLink through here.
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

// While one of these lives, no volume has hard links.
struct NoLinks {
    NoLinks();
    ~NoLinks();
    NoLinks(const NoLinks&) = delete;
    NoLinks& operator=(const NoLinks&) = delete;
};

}  // namespace corvane::test
