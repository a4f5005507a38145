#include "text/line_search.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace corvane {
namespace {

struct Twin {
    const char* name;
    const char* (*findLineFeed)(const char* begin, const char* end);
    const char* (*findLineStart)(const char* begin, const char* end, char first);
};

void PrintTo(const Twin& twin, std::ostream* out) {
    *out << twin.name;
}

const Twin kTwins[] = {
    {"InUse", FindLineFeed, FindLineStart},
    {"Portable", portable::FindLineFeed, portable::FindLineStart},
#if defined(__SSE2__)
    {"Sse2", sse2::FindLineFeed, sse2::FindLineStart},
#endif
};

// Longer than several steps of any twin.
constexpr size_t kLongest = 200;

// The last byte of the text is the one after `end`.
size_t Length(const std::string& text) {
    return text.size() - 1;
}

struct LineSearch : testing::TestWithParam<Twin> {
    // Where the twin finds a feed, or a feed that `first` follows, from the start of the text.
    static size_t Feed(const std::string& text) {
        const char* const begin = text.data();
        return static_cast<size_t>(GetParam().findLineFeed(begin, begin + Length(text)) - begin);
    }
    static size_t Start(const std::string& text, char first) {
        const char* const begin = text.data();
        const char* const end = begin + Length(text);
        return static_cast<size_t>(GetParam().findLineStart(begin, end, first) - begin);
    }
};

TEST_P(LineSearch, TextWithoutALineFeedGivesItsEnd) {
    for (size_t length = 0; length <= kLongest; ++length) {
        // What follows the end does not count.
        const std::string text = std::string(length, 'x') + '\n';
        EXPECT_EQ(Feed(text), length);
        EXPECT_EQ(Start(text, 'x'), length);
    }
}

TEST_P(LineSearch, LineFeedIsFoundAtEveryIndexOfEveryLength) {
    for (size_t length = 1; length <= kLongest; ++length) {
        for (size_t at = 0; at < length; ++at) {
            std::string text(length + 1, 'x');
            text[at] = '\n';
            ASSERT_EQ(Feed(text), at) << length;
            ASSERT_EQ(Start(text, 'x'), at) << length;
            ASSERT_EQ(Start(text, 'y'), length) << at;
        }
    }
}

TEST_P(LineSearch, FirstOfSeveralLineFeedsIsFound) {
    for (size_t at = 0; at + 1 < kLongest; ++at) {
        std::string text(kLongest + 1, '\n');
        std::fill_n(text.begin(), at, 'x');
        EXPECT_EQ(Feed(text), at);
    }
}

TEST_P(LineSearch, LineFeedWithAnotherFollowerIsSkipped) {
    for (size_t at = 0; at < kLongest; ++at) {
        std::string text;
        while (text.size() < kLongest) text += "\nab";
        text.resize(kLongest);
        text += 'a';
        text[at] = '\n';
        text[at + 1] = '-';
        EXPECT_EQ(Start(text, '-'), at);
    }
}

TEST_P(LineSearch, FollowerMayBeTheByteAfterTheEnd) {
    for (size_t length = 1; length <= kLongest; ++length) {
        const std::string text = std::string(length - 1, 'x') + "\n-";
        EXPECT_EQ(Start(text, '-'), length - 1);
    }
}

TEST_P(LineSearch, BytesOfAnyValueAreCompared) {
    for (const char first : {'\0', '\x7F', '\x80', '\xFF', '\r', '\n'}) {
        const std::string text = std::string(40, '\x8A') + '\n' + first + "tail";
        EXPECT_EQ(Feed(text), 40U);
        EXPECT_EQ(Start(text, first), 40U);
    }
}

TEST_P(LineSearch, RandomTextsGiveWhatALoopFinds) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string text(1 + random() % 200, ' ');
        for (char& byte : text) byte = "\n\r-x"[random() % 4];
        size_t feed = 0;
        while (feed < Length(text) && text[feed] != '\n') ++feed;
        size_t start = feed;
        while (start < Length(text) && (text[start] != '\n' || text[start + 1] != '-')) ++start;
        ASSERT_EQ(Feed(text), feed) << round;
        ASSERT_EQ(Start(text, '-'), start) << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Twins, LineSearch, testing::ValuesIn(kTwins),
                         [](const testing::TestParamInfo<Twin>& twin) { return twin.param.name; });

}  // namespace
}  // namespace corvane
