#include "text/utf8.h"

namespace corvane {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsFirstHalf(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsSecondHalf(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

bool IsCharacter(char32_t unit) {
    return unit <= 0x10FFFF && !IsFirstHalf(unit) && !IsSecondHalf(unit);
}

void AppendUtf8(char32_t character, std::string& bytes) {
    const auto add = [&bytes](char32_t bits) { bytes += static_cast<char>(bits); };
    if (character < 0x80) return add(character);
    if (character < 0x800) {
        add(0xC0 | character >> 6);
    } else if (character < 0x10000) {
        add(0xE0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3F));
    } else {
        add(0xF0 | character >> 18);
        add(0x80 | (character >> 12 & 0x3F));
        add(0x80 | (character >> 6 & 0x3F));
    }
    add(0x80 | (character & 0x3F));
}

}  // namespace

std::u32string CharactersOf(std::wstring_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<char32_t>(text[i]);
        const char32_t next = i + 1 < text.size() ? static_cast<char32_t>(text[i + 1]) : 0;
        if (IsFirstHalf(unit) && IsSecondHalf(next)) {
            characters += char32_t{0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00)};
            ++i;
        } else {
            characters += IsCharacter(unit) ? unit : kReplacement;
        }
    }
    return characters;
}

std::string Utf8Text(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char32_t character : CharactersOf(text)) AppendUtf8(character, bytes);
    return bytes;
}

}  // namespace corvane
