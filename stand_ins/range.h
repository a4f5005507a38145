// What a number may be.
#pragma once

namespace corvane::stand_ins {

struct Range {
    double least;
    double most;
};

}  // namespace corvane::stand_ins
