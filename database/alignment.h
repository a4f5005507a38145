// Which of the items of one list are those of another one, for a comparison of the two.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace corvane {

// A pair of indexes, from 0; kNoItem where the other list has no such item.
struct ItemPair {
    static constexpr size_t kNoItem = static_cast<size_t>(-1);

    size_t before = kNoItem;
    size_t now = kNoItem;
    bool isSame = false;  // the texts are equal
    bool operator==(const ItemPair&) const = default;
};

// Each item of both lists is in one pair, in the order of the lists. As many as possible are paired
// with an equal one. Between two such pairs the others are paired in order where `mayPair` allows
// it: these have changed. Of lists that differ in more than about 1,000 items, those that differ
// are paired by their places alone.
std::vector<ItemPair> Align(const std::vector<std::string_view>& before,
                            const std::vector<std::string_view>& now,
                            const std::function<bool(size_t before, size_t now)>& mayPair);

}  // namespace corvane
