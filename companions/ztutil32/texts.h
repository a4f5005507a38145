// Texts into the buffers that the shell hands over. A buffer may be missing or too small: the
// contract (platform/ztutil32.h) leaves both to the library.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvane::ztutil {

// Copies a text, cut to `size` - 1 bytes, and closes it with a NUL. Without a buffer, or with a
// `size` below 1, nothing is written.
void CopyText(std::string_view text, char* buffer, int32_t size);

}  // namespace corvane::ztutil
