// Texts inside of XML and HTML.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// Without the marks of the format; the characters that it forbids become blanks.
std::wstring MarkupText(std::wstring_view text);

}  // namespace corvane
