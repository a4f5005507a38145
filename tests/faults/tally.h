// The figures of the tests, printed line by line: "faults: killed save_bsd points 105 of 105 losses
// 0".
//
// Of all points of a test at which a fault can be injected, a run takes at most as many as the
// environment variable CORVANE_FAULTS says, kUsualPoints when it says nothing; they are spread over
// all, always in the same way.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace corvane::faults {

inline constexpr size_t kUsualPoints = 150;

inline size_t MostPoints() {
    const char* const most = std::getenv("CORVANE_FAULTS");
    return most == nullptr ? kUsualPoints : std::strtoul(most, nullptr, 10);
}

struct Tally {
    std::string what;
    size_t all = 0;
    size_t points = 0;
    size_t losses = 0;

    // The ones that this run takes, the first and the last among them.
    template <class Point>
    std::vector<Point> Taken(const std::vector<Point>& possible) {
        all += possible.size();
        const size_t most = std::max<size_t>(2, MostPoints());
        if (possible.size() <= most) return possible;
        std::vector<Point> taken;
        for (size_t i = 0; i < most; ++i) {
            taken.push_back(possible[i * (possible.size() - 1) / (most - 1)]);
        }
        return taken;
    }
    // One point more; `fault` is "" when nothing was wrong.
    void Count(const std::string& where, const std::string& fault) {
        ++points;
        if (fault.empty()) return;
        ++losses;
        ADD_FAILURE() << what << ", " << where << ": " << fault;
    }
    void Print() const {
        std::printf("faults: %s points %zu of %zu losses %zu\n", what.c_str(), points, all, losses);
        std::fflush(stdout);
    }
};

}  // namespace corvane::faults
