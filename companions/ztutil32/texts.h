// Texts into the buffers that the shell hands over.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace corvane::ztutil {

// Copies a text, cut to `size` - 1 bytes, and closes it with a NUL.
inline void CopyText(std::string_view text, char* buffer, int32_t size) {
    if (buffer == nullptr || size <= 0) return;
    const size_t length = std::min(text.size(), static_cast<size_t>(size) - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
}

}  // namespace corvane::ztutil
