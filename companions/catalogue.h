// A table of numbered texts, written in UTF-8 and handed out as single-byte ANSI.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace corvane::catalogue {

struct Entry {
    int32_t number;
    const char* text;
};

constexpr bool IsContinuation(char character) {
    return (static_cast<unsigned char>(character) & 0xC0) == 0x80;
}

// Whether a text holds nothing but characters below U+0100, one or two bytes each.
constexpr bool IsSingleByteText(const char* text) {
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        if (byte < 0x80) continue;
        if (byte != 0xC2 && byte != 0xC3) return false;
        if (!IsContinuation(*++text)) return false;
    }
    return true;
}

// What a table must be: ascending numbers, and texts that single bytes can express.
template <size_t Count>
constexpr bool IsWellFormed(const std::array<Entry, Count>& entries) {
    for (size_t i = 0; i < Count; ++i) {
        if (i > 0 && entries[i - 1].number >= entries[i].number) return false;
        if (!IsSingleByteText(entries[i].text)) return false;
    }
    return true;
}

// The character that one or two bytes make; `text` moves past them.
inline char NextCharacter(const char*& text) {
    const auto byte = static_cast<unsigned char>(*text++);
    if (byte < 0x80) return static_cast<char>(byte);
    const auto low = static_cast<unsigned char>(*text++);
    return static_cast<char>(((byte & 0x03) << 6) | (low & 0x3F));
}

// Copies the text of `number` into `buffer`, cut to `size` - 1 characters, and closes it with a
// NUL. Returns the length of the copy; 0 when there is no such text or no room.
template <size_t Count>
int32_t CopyText(const std::array<Entry, Count>& entries, int32_t number, char* buffer,
                 int32_t size) {
    if (buffer == nullptr || size <= 0) return 0;
    int32_t length = 0;
    const auto found =
        std::lower_bound(entries.begin(), entries.end(), number,
                         [](const Entry& entry, int32_t wanted) { return entry.number < wanted; });
    if (found != entries.end() && found->number == number) {
        for (const char* text = found->text; *text != '\0' && length < size - 1; ++length) {
            buffer[length] = NextCharacter(text);
        }
    }
    buffer[length] = '\0';
    return length;
}

}  // namespace corvane::catalogue
