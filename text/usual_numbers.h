// Finds the numbers of a line, many characters at once, where they have the form that nearly all
// of them have: perhaps a minus, then digits with at most one point, and blanks or tabs around
// them. Where each of them begins and ends are bits of a word, so that a number is passed over
// without a look at its characters.
//
// As in text/line_search.h there are two twins that look at characters: portable C++, and SSE2.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace corvane {

// So many characters are looked at together; each has a bit, the first one the lowest.
inline constexpr size_t kPiece = 64;

// Numbers of a line that have not been taken yet.
struct UsualNumbers {
    const char* text = nullptr;  // the character of the lowest bit
    uint64_t begins = 0;         // their first characters
    uint64_t ends = 0;           // the characters after them: as many as `begins` has
    bool areAll = false;         // after them the line has blanks and tabs alone
};

// Finds the numbers with which a line begins, up to the first word of another form, or up to kPiece
// characters; `begins` becomes 0 where the line begins with another word, or has no more.
// Characters up to `readable` may be looked at, which is the line's end or after it; what is after
// the line does not matter.
void FindUsualNumbers(std::string_view line, const char* readable, UsualNumbers& numbers);

// Takes the first of the numbers, of which there must be one, off the line and gives its text.
inline std::string_view TakeNumber(UsualNumbers& numbers, std::string_view& line) {
    const char* const begin = numbers.text + std::countr_zero(numbers.begins);
    const char* const end = numbers.text + std::countr_zero(numbers.ends);
    numbers.begins &= numbers.begins - 1;
    numbers.ends &= numbers.ends - 1;
    line = {end, static_cast<size_t>(line.data() + line.size() - end)};
    return {begin, static_cast<size_t>(end - begin)};
}

// What kPiece characters are, a bit for each.
struct CharacterBits {
    uint64_t blanks = 0;  // and tabs
    uint64_t digits = 0;
    uint64_t points = 0;
    uint64_t minuses = 0;
    bool operator==(const CharacterBits&) const = default;
};

// Of the kPiece characters from `text` on.
CharacterBits BitsOf(const char* text);

namespace portable {
CharacterBits BitsOf(const char* text);
}  // namespace portable

#if defined(__SSE2__)
namespace sse2 {
CharacterBits BitsOf(const char* text);
}  // namespace sse2
#endif

}  // namespace corvane
