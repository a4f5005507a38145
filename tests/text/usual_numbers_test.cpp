#include "text/usual_numbers.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <regex>
#include <string>
#include <vector>

namespace corvane {
namespace {

using Texts = std::vector<std::string>;

struct Found {
    Texts numbers;
    std::string rest;  // of the line, after them
    bool areAll = false;
};

// The numbers with which the line begins. What is after the line cannot be read.
Found FoundIn(std::string_view text) {
    const auto bytes = std::make_unique<char[]>(text.size());
    std::ranges::copy(text, bytes.get());
    std::string_view line(bytes.get(), text.size());
    UsualNumbers numbers;
    FindUsualNumbers(line, bytes.get() + text.size(), numbers);
    Found found;
    found.areAll = numbers.areAll;
    while (numbers.begins != 0) found.numbers.emplace_back(TakeNumber(numbers, line));
    EXPECT_EQ(numbers.ends, 0U) << text;
    found.rest = line;
    return found;
}

// The same, word by word.
Found ExpectedIn(const std::string& text) {
    static const std::regex usual("-?([0-9]+[.]?[0-9]*|[.][0-9]+)");
    Found found;
    size_t end = 0;
    for (;;) {
        const size_t begin = std::min(text.find_first_not_of(" \t", end), text.size());
        const size_t after = std::min(text.find_first_of(" \t", begin), text.size());
        const bool isWithin = after < kPiece;
        if (begin == text.size()) {
            found.areAll = text.size() <= kPiece;
            break;
        }
        if (!isWithin || !std::regex_match(text.substr(begin, after - begin), usual)) break;
        found.numbers.push_back(text.substr(begin, after - begin));
        end = after;
    }
    found.rest = text.substr(end);
    return found;
}

void ExpectFound(const std::string& text) {
    const Found found = FoundIn(text);
    const Found expected = ExpectedIn(text);
    EXPECT_EQ(found.numbers, expected.numbers) << '"' << text << '"';
    EXPECT_EQ(found.rest, expected.rest) << '"' << text << '"';
    EXPECT_EQ(found.areAll, expected.areAll) << '"' << text << '"';
}

TEST(UsualNumbers, AreFoundInARow) {
    const Found found = FoundIn(" 1 \t-2\t.5 \t 16.835\t-.25\t7. \t260 ");
    EXPECT_EQ(found.numbers, (Texts{"1", "-2", ".5", "16.835", "-.25", "7.", "260"}));
    EXPECT_EQ(found.rest, " ");
    EXPECT_TRUE(found.areAll);
}

TEST(UsualNumbers, EndBeforeAWordOfAnotherForm) {
    for (const char* word :
         {"1E5", "+1", "1,5", "-",  ".",    "-.",   "--1",   "1-2", "1.2.3", "..1", "1..",
          ".1.", "a",  "1a",  "\r", "\x01", "\xB7", "1\xB2", "1;",  "/",     ":",   "1:2"}) {
        const Found found = FoundIn("12 \t3.5 " + std::string(word) + " 4 5");
        EXPECT_EQ(found.numbers, (Texts{"12", "3.5"})) << word;
        EXPECT_EQ(found.rest, " " + std::string(word) + " 4 5");
        EXPECT_FALSE(found.areAll);
    }
}

TEST(UsualNumbers, LineWithoutNumbersIsAtItsEndOrGoesOn) {
    UsualNumbers numbers;
    FindUsualNumbers({}, nullptr, numbers);
    EXPECT_TRUE(numbers.areAll);
    EXPECT_EQ(numbers.begins, 0U);
    EXPECT_TRUE(FoundIn("").areAll);
    EXPECT_TRUE(FoundIn(" \t ").areAll);
    EXPECT_TRUE(FoundIn(std::string(kPiece, ' ')).areAll);
    EXPECT_FALSE(FoundIn(std::string(kPiece + 1, ' ')).areAll);
    EXPECT_FALSE(FoundIn("Sample").areAll);
}

TEST(UsualNumbers, WordAcrossTheEndOfAPieceIsLeft) {
    for (size_t before = kPiece - 8; before <= kPiece + 1; ++before) {
        for (const char* word : {"1", "12.5", "-123456", "12E5"}) {
            ExpectFound(std::string(before, ' ') + word);
            ExpectFound(std::string(before, ' ') + word + " 7");
            ExpectFound("1 " + std::string(before - 2, '\t') + word + " 7");
        }
    }
    ExpectFound(std::string(200, '1'));
}

TEST(UsualNumbers, AreThoseOfAnyLine) {
    constexpr std::string_view kCharacters = "0123456789    \t\t..--+E,a\xB7";
    std::mt19937 random(1);
    for (int i = 0; i < 20'000; ++i) {
        std::string line(random() % (2 * kPiece), ' ');
        // Of some lines nearly all characters are of the first ones.
        const size_t most = i % 2 == 0 ? kCharacters.size() : 18;
        for (char& c : line) c = kCharacters[random() % most];
        ExpectFound(line);
    }
}

TEST(UsualNumbers, TwinsSeeTheSameCharacters) {
    std::mt19937 random(1);
    std::string text(kPiece, '\0');
    for (int i = 0; i < 2'000; ++i) {
        for (char& c : text) c = static_cast<char>(random());
        EXPECT_EQ(BitsOf(text.data()), portable::BitsOf(text.data()));
    }
    for (int c = 0; c < 256; ++c) {
        text[static_cast<size_t>(c) % kPiece] = static_cast<char>(c);
        EXPECT_EQ(BitsOf(text.data()), portable::BitsOf(text.data())) << c;
    }
}

}  // namespace
}  // namespace corvane
