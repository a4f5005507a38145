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

// Which of the 16 bytes at `at` equal the byte in all places of `pattern`.
__m128i Equal(const char* at, __m128i pattern) {
    return _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(at)), pattern);
}

uint32_t BitsOf(__m128i bytes) {
    return static_cast<uint32_t>(_mm_movemask_epi8(bytes));
}

// Whether one of the 64 bytes at `at` equals the byte in all places of `pattern`.
bool IsAmong64(const char* at, __m128i pattern) {
    const __m128i low = _mm_or_si128(Equal(at, pattern), Equal(at + 16, pattern));
    const __m128i high = _mm_or_si128(Equal(at + 32, pattern), Equal(at + 48, pattern));
    return BitsOf(_mm_or_si128(low, high)) != 0;
}

}  // namespace

const char* sse2::FindLineFeed(const char* begin, const char* end) {
    const __m128i feeds = _mm_set1_epi8('\n');
    const char* at = begin;
    for (; end - at >= 16; at += 16) {
        const uint32_t found = BitsOf(Equal(at, feeds));
        if (found != 0) return at + std::countr_zero(found);
    }
    return portable::FindLineFeed(at, end);
}

const char* sse2::FindLineStart(const char* begin, const char* end, char first) {
    const __m128i feeds = _mm_set1_epi8('\n');
    const __m128i firsts = _mm_set1_epi8(first);
    const char* at = begin;
    for (; end - at >= 64; at += 64) {
        // The first character of what is searched is rare, so most steps end here.
        if (!IsAmong64(at + 1, firsts)) continue;
        for (const char* part = at; part < at + 64; part += 16) {
            const uint32_t found =
                BitsOf(_mm_and_si128(Equal(part, feeds), Equal(part + 1, firsts)));
            if (found != 0) return part + std::countr_zero(found);
        }
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
