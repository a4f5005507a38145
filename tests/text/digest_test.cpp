#include "text/digest.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace corvane {
namespace {

DigestValue DigestOf(std::string_view text) {
    Digest digest;
    Add(digest, text);
    return ValueOf(digest);
}

std::string Sample(size_t size) {
    std::string text;
    for (size_t i = 0; i < size; ++i) text += static_cast<char>('a' + i * i % 23);
    return text;
}

TEST(Digest, DoesNotDependOnThePieces) {
    const std::string text = Sample(200);
    const DigestValue whole = DigestOf(text);
    for (size_t first = 0; first <= text.size(); ++first) {
        for (const size_t second : {first, (first + text.size()) / 2, text.size()}) {
            Digest digest;
            Add(digest, std::string_view(text).substr(0, first));
            Add(digest, std::string_view(text).substr(first, second - first));
            Add(digest, std::string_view(text).substr(second));
            EXPECT_EQ(ValueOf(digest), whole) << first << ' ' << second;
        }
    }
}

TEST(Digest, EachByteCounts) {
    std::string text = Sample(200);
    std::set<DigestValue> values{DigestOf(text)};
    for (char& byte : text) {
        const char was = byte;
        for (const char other : {' ', 'Z', '\0'}) {
            byte = other;
            EXPECT_TRUE(values.insert(DigestOf(text)).second);
        }
        byte = was;
    }
}

TEST(Digest, TheLengthAndTheOrderCount) {
    std::set<DigestValue> values;
    for (size_t size = 0; size < 100; ++size) {
        EXPECT_TRUE(values.insert(DigestOf(std::string(size, '\0'))).second) << size;
    }
    EXPECT_NE(DigestOf("12 34"), DigestOf("34 12"));
    const std::string a(32, 'a');
    const std::string b(32, 'b');
    EXPECT_NE(DigestOf(a + b), DigestOf(b + a));
}

}  // namespace
}  // namespace corvane
