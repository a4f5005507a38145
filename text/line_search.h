// Finds the ends and the starts of lines in memory, at the speed of memory. Lines end with a line
// feed; a carriage return before it counts as a character of the line.
//
// There are two twins: portable C++, and SSE2 where the processor has it. A build compiles both and
// uses the faster one; the tests run both on the same cases.
#pragma once

namespace corvane {

// The first line feed in [begin, end), or `end`.
const char* FindLineFeed(const char* begin, const char* end);

// The first line feed in [begin, end) that the character `first` follows, or `end`. The byte at
// `end` is read: it must be there.
const char* FindLineStart(const char* begin, const char* end, char first);

namespace portable {
const char* FindLineFeed(const char* begin, const char* end);
const char* FindLineStart(const char* begin, const char* end, char first);
}  // namespace portable

#if defined(__SSE2__)
namespace sse2 {
const char* FindLineFeed(const char* begin, const char* end);
const char* FindLineStart(const char* begin, const char* end, char first);
}  // namespace sse2
#endif

}  // namespace corvane
