#include "database/alignment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/chance.h"

namespace corvane {
namespace {

constexpr size_t kNoItem = ItemPair::kNoItem;
constexpr auto kAnyPair = [](size_t, size_t) { return true; };
using Texts = std::vector<std::string_view>;
using Pairs = std::vector<ItemPair>;

TEST(Alignment, EqualListsArePairedByPlace) {
    EXPECT_EQ(Align({"a", "b"}, {"a", "b"}, kAnyPair), (Pairs{{0, 0, true}, {1, 1, true}}));
    EXPECT_EQ(Align({}, {}, kAnyPair), Pairs());
}

TEST(Alignment, AddedAndRemovedItemsAreAlone) {
    EXPECT_EQ(Align({"a", "c"}, {"a", "b", "c"}, kAnyPair),
              (Pairs{{0, 0, true}, {kNoItem, 1}, {1, 2, true}}));
    EXPECT_EQ(Align({"a", "b", "c"}, {"a", "c"}, kAnyPair),
              (Pairs{{0, 0, true}, {1, kNoItem}, {2, 1, true}}));
    EXPECT_EQ(Align({}, {"a"}, kAnyPair), (Pairs{{kNoItem, 0}}));
    EXPECT_EQ(Align({"a"}, {}, kAnyPair), (Pairs{{0, kNoItem}}));
}

TEST(Alignment, ChangedItemsBetweenEqualOnesArePairs) {
    EXPECT_EQ(Align({"a", "b", "c"}, {"a", "x", "c"}, kAnyPair),
              (Pairs{{0, 0, true}, {1, 1}, {2, 2, true}}));
    EXPECT_EQ(Align({"a", "b", "b2", "c"}, {"a", "x", "c"}, kAnyPair),
              (Pairs{{0, 0, true}, {1, 1}, {2, kNoItem}, {3, 2, true}}));
}

TEST(Alignment, OnlyPairsThatMayBeAreMade) {
    const Texts before{"1:a", "2:b"};
    const Texts now{"2:x", "3:c"};
    const auto sameKey = [&](size_t i, size_t k) { return before[i][0] == now[k][0]; };
    EXPECT_EQ(Align(before, now, sameKey), (Pairs{{0, kNoItem}, {1, 0}, {kNoItem, 1}}));
}

// As many as possible: what a plain search through all subsequences finds.
size_t MostEqual(const Texts& before, const Texts& now) {
    size_t most = 0;
    for (unsigned chosen = 0; chosen < (1U << before.size()); ++chosen) {
        size_t at = 0;
        size_t count = 0;
        for (size_t i = 0; i < before.size(); ++i) {
            if ((chosen >> i & 1U) == 0) continue;
            while (at < now.size() && now[at] != before[i]) ++at;
            if (at == now.size()) break;
            ++at;
            ++count;
        }
        most = std::max(most, count);
    }
    return most;
}

TEST(Alignment, OfAnyListsAllItemsComeOnceAndAsManyAsPossibleAreEqual) {
    test::Chance chance(7);
    static constexpr std::string_view kLetters[] = {"a", "b", "c", "d"};
    for (int round = 0; round < 400; ++round) {
        Texts before(static_cast<size_t>(chance.Below(8)));
        Texts now(static_cast<size_t>(chance.Below(8)));
        for (auto& text : before) text = kLetters[chance.Below(4)];
        for (auto& text : now) text = kLetters[chance.Below(4)];
        size_t equal = 0;
        size_t nextBefore = 0;
        size_t nextNow = 0;
        for (const ItemPair& pair : Align(before, now, kAnyPair)) {
            if (pair.before != kNoItem) {
                EXPECT_EQ(pair.before, nextBefore++);
            }
            if (pair.now != kNoItem) {
                EXPECT_EQ(pair.now, nextNow++);
            }
            if (!pair.isSame) continue;
            EXPECT_EQ(before[pair.before], now[pair.now]);
            ++equal;
        }
        EXPECT_EQ(nextBefore, before.size());
        EXPECT_EQ(nextNow, now.size());
        EXPECT_EQ(equal, MostEqual(before, now));
    }
}

// 30,000 items of which nearly all differ: by their places, at once.
TEST(Alignment, LongListsThatDifferMuchArePairedByPlace) {
    std::vector<std::string> texts;
    for (int i = 0; i < 30000; ++i) texts.push_back(std::to_string(i));
    Texts before(texts.begin(), texts.end());
    Texts now(texts.rbegin(), texts.rend());
    now.pop_back();
    const Pairs pairs = Align(before, now, kAnyPair);
    ASSERT_EQ(pairs.size(), before.size());
    EXPECT_EQ(pairs[100], (ItemPair{100, 100}));
    EXPECT_EQ(pairs.back(), (ItemPair{29999, kNoItem}));
}

}  // namespace
}  // namespace corvane
