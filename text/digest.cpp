#include "text/digest.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>

namespace corvane {
namespace {

constexpr size_t kBlock = sizeof(Digest::lanes);

// Odd, and without a pattern in its bits: a multiplication spreads each bit over those above it.
constexpr uint64_t kFactor = 0x9E3779B97F4A7C15;

uint64_t Mixed(uint64_t lane, uint64_t word) {
    constexpr int kHalf = 32;
    return std::rotl((lane ^ word) * kFactor, kHalf);
}

// The first kBlock bytes. All four lanes go on at once: they do not depend on each other.
void AddBlock(Digest& digest, std::string_view block) {
    std::array<uint64_t, 4> words{};
    std::memcpy(words.data(), block.data(), kBlock);
    for (size_t i = 0; i < words.size(); ++i) digest.lanes[i] = Mixed(digest.lanes[i], words[i]);
}

}  // namespace

void Add(Digest& digest, std::string_view bytes) {
    const size_t waiting = digest.size % kBlock;
    digest.size += bytes.size();
    if (waiting != 0) {
        const size_t count = std::min(kBlock - waiting, bytes.size());
        std::memcpy(digest.rest.data() + waiting, bytes.data(), count);
        bytes.remove_prefix(count);
        if (waiting + count < kBlock) return;
        AddBlock(digest, {digest.rest.data(), kBlock});
    }
    for (; bytes.size() >= kBlock; bytes.remove_prefix(kBlock)) AddBlock(digest, bytes);
    bytes.copy(digest.rest.data(), bytes.size());
}

DigestValue ValueOf(const Digest& digest) {
    Digest whole = digest;
    const size_t waiting = digest.size % kBlock;
    std::ranges::fill(std::span(whole.rest).subspan(waiting), '\0');
    AddBlock(whole, {whole.rest.data(), kBlock});
    DigestValue value{digest.size, ~digest.size};
    for (const uint64_t lane : whole.lanes) {
        value[0] = Mixed(value[0], lane);
        value[1] = Mixed(value[1], std::rotl(lane, 17) ^ value[0]);
    }
    return value;
}

}  // namespace corvane
