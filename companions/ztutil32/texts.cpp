#include "companions/ztutil32/texts.h"

#include <algorithm>
#include <cstring>

namespace corvane::ztutil {

void CopyText(std::string_view text, char* buffer, int32_t size) {
    if (buffer == nullptr || size <= 0) return;
    const size_t length = std::min(text.size(), static_cast<size_t>(size) - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
}

}  // namespace corvane::ztutil
