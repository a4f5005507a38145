// The figures of the tests, printed line by line: "faults: killed save_bsd points 105 losses 0".
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace corvane::faults {

struct Tally {
    std::string what;
    int points = 0;
    int losses = 0;

    // One point more; `fault` is "" when nothing was wrong.
    void Count(const std::string& where, const std::string& fault) {
        ++points;
        if (fault.empty()) return;
        ++losses;
        ADD_FAILURE() << what << ", " << where << ": " << fault;
    }
    void Print() const {
        std::printf("faults: %s points %d losses %d\n", what.c_str(), points, losses);
        std::fflush(stdout);
    }
};

}  // namespace corvane::faults
