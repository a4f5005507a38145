#include "legacy/legacy_tables.h"

#include <cstring>

#include "platform/system.h"
#include "text/text.h"

namespace corvane {

void PutText(const std::wstring& text, char* field, size_t size) {
    const std::string bytes = system::AnsiFromWide(CutAtNul(text));
    std::memset(field, 0, size);
    bytes.copy(field, size);
}

std::wstring TextOf(const char* field, size_t size) {
    return Trim(CutAtNul(system::WideFromAnsi({field, size})));
}

}  // namespace corvane
