// Letters in their other case, by the system's rules, whatever the user's language or code page.
// A letter without another case stays; one character becomes one character.
#pragma once

#include <string>
#include <string_view>

namespace corvane::system {

std::wstring InLowerCase(std::wstring_view text);
std::wstring InUpperCase(std::wstring_view text);

}  // namespace corvane::system
