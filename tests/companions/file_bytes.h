// Files of the legacy library, byte by byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "tests/support/support.h"

namespace corvane::test {

inline constexpr size_t kLegacyHeadSize = 32;
inline constexpr size_t kLegacyEmptySize = 1220;
inline constexpr size_t kLegacySlotSize = 16600;

// FNV-1a over the words of a part, written down a second time.
inline void SetLegacyChecksum(std::string& bytes, size_t begin, size_t end) {
    uint32_t sum = 0x811C9DC5;
    for (size_t i = begin; i < end - 4; i += 4) {
        uint32_t word = 0;
        std::memcpy(&word, bytes.data() + i, 4);
        sum = (sum ^ word) * 0x01000193;
    }
    std::memcpy(bytes.data() + end - 4, &sum, 4);
}

inline void SetHeadChecksum(std::string& bytes) {
    SetLegacyChecksum(bytes, 0, kLegacyHeadSize);
}

// Makes of a file with one section one with this many, all alike.
inline void RepeatSection(const std::wstring& path, int count) {
    std::string bytes = ReadFileBytes(path);
    const std::string slot = bytes.substr(kLegacyEmptySize, kLegacySlotSize);
    bytes.resize(kLegacyEmptySize);
    for (int i = 0; i < count; ++i) bytes += slot;
    const auto held = static_cast<uint32_t>(count);
    std::memcpy(bytes.data() + 12, &held, sizeof(held));
    SetHeadChecksum(bytes);
    WriteFileBytes(path, bytes);
}

// The bytes of a slot, from 1.
inline std::string SlotBytes(const std::wstring& path, size_t slot) {
    return ReadFileBytes(path).substr(kLegacyEmptySize + (slot - 1) * kLegacySlotSize,
                                      kLegacySlotSize);
}

}  // namespace corvane::test
