#include "platform/letter_case.h"

#include "platform/win32/win32.h"

namespace corvane::system {
namespace {

std::wstring Mapped(std::wstring_view text, DWORD how) {
    std::wstring result(text.size(), L'\0');
    const int mapped =
        LCMapStringEx(LOCALE_NAME_INVARIANT, how, text.data(), static_cast<int>(text.size()),
                      result.data(), static_cast<int>(result.size()), nullptr, nullptr, 0);
    return mapped == static_cast<int>(text.size()) ? result : std::wstring(text);
}

}  // namespace

std::wstring InLowerCase(std::wstring_view text) {
    return Mapped(text, LCMAP_LOWERCASE);
}

std::wstring InUpperCase(std::wstring_view text) {
    return Mapped(text, LCMAP_UPPERCASE);
}

}  // namespace corvane::system
