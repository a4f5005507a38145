#include "legacy/legacy_tables.h"

#include <cstring>

#include "platform/system.h"
#include "text/text.h"

namespace corvane {

void PutText(const std::wstring& text, TextField field, Losses& losses) {
    const std::wstring whole = CutAtNul(text);
    std::memset(field.bytes, 0, field.size);
    AnsiToOemText(whole).copy(field.bytes, field.size);
    const std::wstring kept = TextOf(field.bytes, field.size);
    if (kept != Trim(whole)) NoteLoss(losses, kMsgNameChanged, {whole, kept});
}

std::wstring TextOf(const char* field, size_t size) {
    return OemToAnsiText(std::string_view(field, size));
}

}  // namespace corvane
