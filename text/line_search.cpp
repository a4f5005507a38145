#include "text/line_search.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>

#include <bit>
#include <cstdint>
#endif

namespace corvane {

const char* portable::FindLineFeed(const char* begin, const char* end) {
    return std::find(begin, end, '\n');
}

const char* portable::FindLineStart(const char* begin, const char* end, char first) {
    const char* at = portable::FindLineFeed(begin, end);
    while (at != end && at[1] != first) at = portable::FindLineFeed(at + 1, end);
    return at;
}

#if defined(__SSE2__)

namespace {

// Bits of the 16 bytes at `at` that equal the byte in all places of `pattern`.
uint32_t EqualBytes(const char* at, __m128i pattern) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    return static_cast<uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, pattern)));
}

}  // namespace

const char* sse2::FindLineFeed(const char* begin, const char* end) {
    const __m128i feeds = _mm_set1_epi8('\n');
    const char* at = begin;
    for (; end - at >= 16; at += 16) {
        const uint32_t found = EqualBytes(at, feeds);
        if (found != 0) return at + std::countr_zero(found);
    }
    return portable::FindLineFeed(at, end);
}

const char* sse2::FindLineStart(const char* begin, const char* end, char first) {
    const __m128i feeds = _mm_set1_epi8('\n');
    const __m128i firsts = _mm_set1_epi8(first);
    const char* at = begin;
    for (; end - at >= 32; at += 32) {
        const uint32_t low = EqualBytes(at, feeds) & EqualBytes(at + 1, firsts);
        const uint32_t high = EqualBytes(at + 16, feeds) & EqualBytes(at + 17, firsts);
        const uint32_t found = low | (high << 16);
        if (found != 0) return at + std::countr_zero(found);
    }
    return portable::FindLineStart(at, end, first);
}

const char* FindLineFeed(const char* begin, const char* end) {
    return sse2::FindLineFeed(begin, end);
}

const char* FindLineStart(const char* begin, const char* end, char first) {
    return sse2::FindLineStart(begin, end, first);
}

#else

const char* FindLineFeed(const char* begin, const char* end) {
    return portable::FindLineFeed(begin, end);
}

const char* FindLineStart(const char* begin, const char* end, char first) {
    return portable::FindLineStart(begin, end, first);
}

#endif

}  // namespace corvane
