#include "platform/letter_case.h"

#include "platform/win32/win32.h"

namespace corvane::system {
namespace {

// The case of the letters from `first` to `last` is changed; the text has no others than those of
// ASCII, for which the system need not be asked.
std::wstring MappedAscii(std::wstring_view text, wchar_t first, wchar_t last) {
    constexpr wchar_t kCase = L'a' - L'A';
    std::wstring result(text);
    for (wchar_t& letter : result) {
        if (letter >= first && letter <= last) letter ^= kCase;
    }
    return result;
}

bool IsAscii(std::wstring_view text) {
    wchar_t all = 0;
    for (const wchar_t letter : text) all |= letter;
    return all < 0x80;
}

std::wstring Mapped(std::wstring_view text, DWORD how) {
    std::wstring result(text.size(), L'\0');
    const int mapped =
        LCMapStringEx(LOCALE_NAME_INVARIANT, how, text.data(), static_cast<int>(text.size()),
                      result.data(), static_cast<int>(result.size()), nullptr, nullptr, 0);
    return mapped == static_cast<int>(text.size()) ? result : std::wstring(text);
}

}  // namespace

std::wstring InLowerCase(std::wstring_view text) {
    if (IsAscii(text)) return MappedAscii(text, L'A', L'Z');
    return Mapped(text, LCMAP_LOWERCASE);
}

std::wstring InUpperCase(std::wstring_view text) {
    if (IsAscii(text)) return MappedAscii(text, L'a', L'z');
    return Mapped(text, LCMAP_UPPERCASE);
}

}  // namespace corvane::system
