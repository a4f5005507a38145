#include "text/usual_numbers.h"

#include <algorithm>
#include <array>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace corvane {
CharacterBits portable::BitsOf(const char* text) {
    CharacterBits bits;
    for (size_t i = 0; i < kPiece; ++i) {
        const uint64_t bit = uint64_t{1} << i;
        const char c = text[i];
        if (c == ' ' || c == '\t') bits.blanks |= bit;
        if (c >= '0' && c <= '9') bits.digits |= bit;
        if (c == '.') bits.points |= bit;
        if (c == '-') bits.minuses |= bit;
    }
    return bits;
}

#if defined(__SSE2__)

CharacterBits sse2::BitsOf(const char* text) {
    CharacterBits bits;
    const auto bitsAt = [](__m128i bytes, size_t at) {
        return static_cast<uint64_t>(static_cast<uint32_t>(_mm_movemask_epi8(bytes))) << at;
    };
    for (size_t at = 0; at < kPiece; at += 16) {
        const __m128i part = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + at));
        const auto equal = [&](char c) { return _mm_cmpeq_epi8(part, _mm_set1_epi8(c)); };
        // Without a sign, only the digits are at most 9 then.
        const __m128i values = _mm_sub_epi8(part, _mm_set1_epi8('0'));
        const __m128i held = _mm_min_epu8(values, _mm_set1_epi8(9));
        bits.blanks |= bitsAt(_mm_or_si128(equal(' '), equal('\t')), at);
        bits.digits |= bitsAt(_mm_cmpeq_epi8(values, held), at);
        bits.points |= bitsAt(equal('.'), at);
        bits.minuses |= bitsAt(equal('-'), at);
    }
    return bits;
}

CharacterBits BitsOf(const char* text) {
    return sse2::BitsOf(text);
}

#else

CharacterBits BitsOf(const char* text) {
    return portable::BitsOf(text);
}

#endif

namespace {

constexpr uint64_t kAllBits = ~uint64_t{0};

// The lowest bits of a word, fewer than 64.
uint64_t LowBits(int count) {
    return (uint64_t{1} << count) - 1;
}

// The places where a word is of another form, and the last one where it has not ended.
uint64_t PlacesOfOtherForm(const CharacterBits& bits, uint64_t begins) {
    const uint64_t words = ~bits.blanks;
    const uint64_t unknown = words & ~(bits.digits | bits.points | bits.minuses);
    const uint64_t minuses = bits.minuses & ~(begins & ((bits.digits | bits.points) >> 1));
    const uint64_t pointsAlone = bits.points & ~(bits.digits << 1) & ~(bits.digits >> 1);
    // The sum carries each first digit after a point to the character after the last one.
    const uint64_t fractions = (bits.points << 1) & bits.digits;
    const uint64_t afterPoints = (fractions + bits.digits) | (bits.points << 1);
    const uint64_t secondPoints = bits.points & afterPoints;
    const uint64_t unended = words & (uint64_t{1} << (kPiece - 1));
    return unknown | minuses | pointsAlone | secondPoints | unended;
}

// The place where the word begins that has a character at `place`.
int BeginOfWord(uint64_t begins, int place) {
    const uint64_t upToPlace = begins & (kAllBits >> (63 - place));
    return 63 - std::countl_zero(upToPlace);
}

}  // namespace

void FindUsualNumbers(std::string_view line, const char* readable, UsualNumbers& numbers) {
    numbers = {};
    numbers.areAll = line.size() <= kPiece;
    if (line.empty()) return;
    std::array<char, kPiece> copy;
    const char* text = line.data();
    if (readable - text < static_cast<ptrdiff_t>(kPiece)) {
        copy.fill(' ');
        std::ranges::copy(line.substr(0, kPiece), copy.begin());
        text = copy.data();
    }
    CharacterBits bits = BitsOf(text);
    if (line.size() < kPiece) {
        const uint64_t inLine = LowBits(static_cast<int>(line.size()));
        bits.blanks |= ~inLine;
        bits.digits &= inLine;
        bits.points &= inLine;
        bits.minuses &= inLine;
    }
    numbers.text = line.data();
    numbers.begins = ~bits.blanks & (bits.blanks << 1 | 1);
    numbers.ends = bits.blanks & (~bits.blanks << 1);
    const uint64_t others = PlacesOfOtherForm(bits, numbers.begins);
    if (others != 0) {
        const uint64_t usual = LowBits(BeginOfWord(numbers.begins, std::countr_zero(others)));
        numbers.begins &= usual;
        numbers.ends &= usual;
        numbers.areAll = false;
    }
}

}  // namespace corvane
