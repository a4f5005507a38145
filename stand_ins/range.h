// What a number may be.
#pragma once

namespace corvane::siblings {

struct Range {
    double least;
    double most;
};

}  // namespace corvane::siblings
