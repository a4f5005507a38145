#include "text/markup.h"

namespace corvane {

std::wstring MarkupText(std::wstring_view text) {
    std::wstring escaped;
    escaped.reserve(text.size());
    for (const wchar_t letter : text) {
        if (letter == L'&') {
            escaped += L"&amp;";
        } else if (letter == L'<') {
            escaped += L"&lt;";
        } else if (letter == L'>') {
            escaped += L"&gt;";
        } else {
            const bool isForbidden = letter < L' ' || letter == 0xFFFE || letter == 0xFFFF;
            escaped += isForbidden ? L' ' : letter;
        }
    }
    return escaped;
}

}  // namespace corvane
