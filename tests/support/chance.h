// Chance that is the same on every machine.
#pragma once

#include <cstdint>
#include <random>

namespace corvane::test {

struct Chance {
    std::mt19937 engine;
    bool shortIntegers = false;  // those of 32 bits have values of 16 bits
    explicit Chance(uint32_t seed) : engine(seed) {}
    float Between(double low, double high) {
        return static_cast<float>(low +
                                  (high - low) * (static_cast<uint32_t>(engine()) / 4294967296.0));
    }
    // From 0 on; the limit is not among them.
    template <class Number>
    Number Below(Number limit) {
        return static_cast<Number>(engine() % static_cast<uint32_t>(limit));
    }
    bool OneIn(int count) { return Below(count) == 0; }
};

}  // namespace corvane::test
