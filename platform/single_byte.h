// Conversion between wide text and the bytes of a single-byte code page, shared by the twins of
// code_pages.cpp: they differ only in where the table of a page comes from. Inline, because this
// folder has sources in its twin folders only.
//
// Every byte has a character and every character a byte, so both conversions keep the length; a
// page of several bytes for a character cannot be handled here.
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace corvane::system {

// The wide character of each byte. Every page of Windows has ASCII in its lower half.
using SingleBytePage = std::array<wchar_t, 256>;

// A NUL in the bytes is a character like any other.
inline std::wstring WideFromBytes(std::string_view bytes, const SingleBytePage& page) {
    std::wstring text(bytes.size(), L'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [&page](char byte) { return page[static_cast<unsigned char>(byte)]; });
    return text;
}

// The byte of a character, "?" when the page lacks it, even if it has a look-alike.
inline char ByteFromWide(wchar_t character, const SingleBytePage& page) {
    if (static_cast<unsigned long>(character) < 0x80) return static_cast<char>(character);
    const auto* upperHalf = page.data() + 0x80;
    const auto* end = page.data() + page.size();
    const auto* found = std::find(upperHalf, end, character);
    return found == end ? '?' : static_cast<char>(found - page.data());
}

// The opposite of WideFromBytes, for text that the page can hold.
inline std::string BytesFromWide(std::wstring_view text, const SingleBytePage& page) {
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(),
                   [&page](wchar_t character) { return ByteFromWide(character, page); });
    return bytes;
}

}  // namespace corvane::system
