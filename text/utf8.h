// Texts as their characters, and as UTF-8, whatever size wchar_t has.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// The characters of a text; half of a pair of surrogates, and what is no character, becomes U+FFFD.
std::u32string CharactersOf(std::wstring_view text);

std::string Utf8Text(std::wstring_view text);

}  // namespace corvane
