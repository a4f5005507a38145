// A digest of a text: equal texts have equal digests, and two different ones have the same with a
// probability of about 1 in 2^64. It is for finding out what has changed, not against forgery.
// Nothing of it is kept in files: it may differ from version to version of the program.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace corvane {

// Of a text that comes in pieces: how it is cut into pieces does not matter.
struct Digest {
    std::array<uint64_t, 4> lanes{};
    std::array<char, 32> rest{};  // of the bytes, those that do not fill all lanes yet
    uint64_t size = 0;            // bytes, all together
};
void Add(Digest& digest, std::string_view bytes);

using DigestValue = std::array<uint64_t, 2>;
DigestValue ValueOf(const Digest& digest);

}  // namespace corvane
