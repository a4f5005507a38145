#include "database/alignment.h"

#include <algorithm>
#include <cstdint>

namespace corvane {
namespace {

using Texts = std::vector<std::string_view>;

// Of the table of the longest common subsequence; 4 MiB.
constexpr size_t kMostCells = size_t{1} << 20;

// How far the partner of a changed item is looked for.
constexpr size_t kLookAhead = 100;

struct Range {
    size_t first = 0;
    size_t last = 0;  // the one after it
    size_t Size() const { return last - first; }
};

struct Alignment {
    const Texts& before;
    const Texts& now;
    const std::function<bool(size_t, size_t)>& mayPair;
    std::vector<ItemPair> pairs;
};

// Items that have no equal one: those of both ranges.
void PairChanged(Alignment& all, Range before, Range now) {
    size_t next = now.first;
    for (size_t i = before.first; i < before.last; ++i) {
        const size_t end = std::min(now.last, next + kLookAhead);
        size_t found = next;
        while (found < end && !all.mayPair(i, found)) ++found;
        if (found == end) {
            all.pairs.push_back({i, ItemPair::kNoItem});
            continue;
        }
        for (; next < found; ++next) all.pairs.push_back({ItemPair::kNoItem, next});
        all.pairs.push_back({i, next++});
    }
    for (; next < now.last; ++next) all.pairs.push_back({ItemPair::kNoItem, next});
}

// The length of the longest common subsequence from each pair of places on, by rows of `before`.
std::vector<uint32_t> CommonLengths(const Alignment& all, Range before, Range now) {
    const size_t width = now.Size() + 1;
    std::vector<uint32_t> lengths((before.Size() + 1) * width);
    for (size_t i = before.Size(); i-- > 0;) {
        for (size_t k = now.Size(); k-- > 0;) {
            const bool isSame = all.before[before.first + i] == all.now[now.first + k];
            uint32_t& length = lengths[i * width + k];
            length = isSame ? lengths[(i + 1) * width + k + 1] + 1
                            : std::max(lengths[(i + 1) * width + k], lengths[i * width + k + 1]);
        }
    }
    return lengths;
}

void PairEqual(Alignment& all, Range before, Range now) {
    const std::vector<uint32_t> lengths = CommonLengths(all, before, now);
    const size_t width = now.Size() + 1;
    Range changedBefore{before.first, before.first};
    Range changedNow{now.first, now.first};
    while (changedBefore.last < before.last && changedNow.last < now.last) {
        const size_t i = changedBefore.last - before.first;
        const size_t k = changedNow.last - now.first;
        if (all.before[changedBefore.last] == all.now[changedNow.last]) {
            PairChanged(all, changedBefore, changedNow);
            all.pairs.push_back({changedBefore.last, changedNow.last, true});
            changedBefore = {changedBefore.last + 1, changedBefore.last + 1};
            changedNow = {changedNow.last + 1, changedNow.last + 1};
        } else if (lengths[(i + 1) * width + k] >= lengths[i * width + k + 1]) {
            ++changedBefore.last;
        } else {
            ++changedNow.last;
        }
    }
    PairChanged(all, {changedBefore.first, before.last}, {changedNow.first, now.last});
}

}  // namespace

std::vector<ItemPair> Align(const Texts& before, const Texts& now,
                            const std::function<bool(size_t, size_t)>& mayPair) {
    Alignment all{before, now, mayPair, {}};
    Range oldRest{0, before.size()};
    Range newRest{0, now.size()};
    const auto bothLeft = [&] { return oldRest.Size() > 0 && newRest.Size() > 0; };
    while (bothLeft() && before[oldRest.first] == now[newRest.first]) {
        all.pairs.push_back({oldRest.first++, newRest.first++, true});
    }
    size_t atEnd = 0;
    for (; bothLeft() && before[oldRest.last - 1] == now[newRest.last - 1]; ++atEnd) {
        --oldRest.last;
        --newRest.last;
    }
    if ((oldRest.Size() + 1) * (newRest.Size() + 1) > kMostCells) {
        PairChanged(all, oldRest, newRest);
    } else {
        PairEqual(all, oldRest, newRest);
    }
    for (size_t i = 0; i < atEnd; ++i) {
        all.pairs.push_back({oldRest.last + i, newRest.last + i, true});
    }
    return all.pairs;
}

}  // namespace corvane
