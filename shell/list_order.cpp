#include "shell/list_order.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {
namespace {

// ---- By a number -------------------------------------------------------------------------------

struct NumberKey {
    bool isMissing = false;
    double number = 0;
    int index = 0;
};

// How many kinds have a name before this one's.
double RankOf(const ModelRow& row) {
    constexpr ModelKind kKinds[] = {ModelKind::kSection, ModelKind::kBulkhead, ModelKind::kTorsion};
    return static_cast<double>(
        std::ranges::count_if(kKinds, [&](ModelKind kind) { return KindName(kind) < row.type; }));
}

NumberKey KeyOf(const ModelRow& row, int index, ListColumn column) {
    switch (column) {
        case ListColumn::kX:
            return {row.x.empty(), double{row.x_m}, index};
        case ListColumn::kFrame:
            return {!row.frame.has_value(), double(row.frame.value_or(0)), index};
        case ListColumn::kKind:
            return {false, RankOf(row), index};
        default:
            return {false, double(row.tag), index};
    }
}

// Equal rows keep the order of their indexes.
bool IsBefore(const NumberKey& a, const NumberKey& b, bool isDescending) {
    if (a.isMissing != b.isMissing) return b.isMissing;
    if (a.isMissing || a.number == b.number) return a.index < b.index;
    return (a.number < b.number) != isDescending;
}

void SortByNumber(const std::vector<ModelRow>& rows, ListColumn column, bool isDescending,
                  std::vector<int>& indexes) {
    std::vector<NumberKey> keys;
    keys.reserve(indexes.size());
    for (const int index : indexes) {
        keys.push_back(KeyOf(rows[static_cast<size_t>(index)], index, column));
    }
    std::ranges::sort(
        keys, [&](const NumberKey& a, const NumberKey& b) { return IsBefore(a, b, isDescending); });
    std::ranges::transform(keys, indexes.begin(), &NumberKey::index);
}

// ---- By the name -------------------------------------------------------------------------------

// A name as it is compared, letter by letter.
struct NameKey {
    std::wstring_view text;
    int index = 0;
};

bool IsDigit(wchar_t letter) {
    return letter >= L'0' && letter <= L'9';
}

// Appends the digits at the start of `text`, without leading zeros and with their count in front,
// so that texts compare as the numbers do. Returns how many letters of `text` that were.
size_t AppendNumber(std::wstring& key, std::wstring_view text) {
    const auto isDigit = [&](size_t at) { return at < text.size() && IsDigit(text[at]); };
    size_t begin = 0;
    while (text[begin] == L'0' && isDigit(begin + 1)) ++begin;
    size_t end = begin;
    while (isDigit(end)) ++end;
    key += L'0';
    key += static_cast<wchar_t>(std::min<size_t>(end - begin, 0x7FFF));
    key += text.substr(begin, end - begin);
    return end;
}

void AppendNameKey(std::wstring& key, std::wstring_view name) {
    while (!name.empty()) {
        const auto digit = std::ranges::find_if(name, IsDigit);
        const auto number = static_cast<size_t>(digit - name.begin());
        key += name.substr(0, number);
        name.remove_prefix(number);
        if (!name.empty()) name.remove_prefix(AppendNumber(key, name));
    }
}

// `texts` holds what the keys are views of.
std::vector<NameKey> NameKeys(const std::vector<ModelRow>& rows, const std::vector<int>& indexes,
                              std::wstring& texts) {
    const std::wstring names = NamesInLowerCase(rows, indexes);
    // A number takes two letters more than its digits.
    texts.reserve(3 * names.size());
    std::vector<NameKey> keys;
    keys.reserve(indexes.size());
    size_t name = 0;
    for (const int index : indexes) {
        const size_t length = rows[static_cast<size_t>(index)].name.size();
        const size_t begin = texts.size();
        AppendNameKey(texts, std::wstring_view(names).substr(name, length));
        keys.push_back({std::wstring_view(texts).substr(begin), index});
        name += length;
    }
    return keys;
}

constexpr int64_t kEnd = 0;

// What a letter counts; the smallest of all after the end of the text.
int64_t LetterAt(const NameKey& key, size_t at, bool isDescending) {
    const int64_t letter = at < key.text.size() ? int64_t{key.text[at]} + 1 : kEnd;
    return isDescending ? -letter : letter;
}

// Of the first, the middle and the last key.
int64_t MedianLetter(std::span<const NameKey> keys, size_t at, bool isDescending) {
    const auto letter = [&](const NameKey& key) { return LetterAt(key, at, isDescending); };
    const int64_t a = letter(keys.front());
    const int64_t b = letter(keys[keys.size() / 2]);
    const int64_t c = letter(keys.back());
    return std::max(std::min(a, b), std::min(std::max(a, b), c));
}

// Where the texts, which are the same up to `at` and there, begin to differ.
size_t EndOfCommon(std::span<const NameKey> keys, size_t at) {
    std::wstring_view common = keys.front().text.substr(at);
    for (const NameKey& key : keys) {
        const std::wstring_view text = key.text.substr(at);
        const auto [end, other] = std::ranges::mismatch(common, text);
        common = common.substr(0, static_cast<size_t>(end - common.begin()));
    }
    return at + common.size();
}

// Sorts keys whose texts are the same up to the letter at `at`: by that one, then those that have
// the same there by the next one. Names have long beginnings in common; each letter of them is
// looked at only once or twice.
void SortByLetters(std::span<NameKey> keys, size_t at, bool isDescending) {
    constexpr size_t kFew = 12;
    while (keys.size() > kFew) {
        const int64_t median = MedianLetter(keys, at, isDescending);
        size_t before = 0;
        size_t after = keys.size();
        for (size_t i = 0; i < after;) {
            const int64_t letter = LetterAt(keys[i], at, isDescending);
            if (letter < median) {
                std::swap(keys[before++], keys[i++]);
            } else if (letter > median) {
                std::swap(keys[i], keys[--after]);
            } else {
                ++i;
            }
        }
        SortByLetters(keys.first(before), at, isDescending);
        SortByLetters(keys.subspan(after), at, isDescending);
        const bool areAll = after - before == keys.size();
        keys = keys.subspan(before, after - before);
        if (median == kEnd) break;
        at = areAll ? EndOfCommon(keys, at) : at + 1;
    }
    std::ranges::sort(keys, [&](const NameKey& a, const NameKey& b) {
        const int comparison = a.text.substr(at).compare(b.text.substr(at));
        return comparison == 0 ? a.index < b.index : (comparison < 0) != isDescending;
    });
}

void SortByName(const std::vector<ModelRow>& rows, bool isDescending, std::vector<int>& indexes) {
    std::wstring texts;
    std::vector<NameKey> keys = NameKeys(rows, indexes, texts);
    SortByLetters(keys, 0, isDescending);
    std::ranges::transform(keys, indexes.begin(), &NameKey::index);
}

}  // namespace

void SortRows(const std::vector<ModelRow>& rows, const ListOrder& order,
              std::vector<int>& indexes) {
    if (order.column == ListColumn::kName) {
        SortByName(rows, order.isDescending, indexes);
    } else if (order.column) {
        SortByNumber(rows, *order.column, order.isDescending, indexes);
    } else if (order.isDescending) {
        std::ranges::reverse(indexes);
    }
}

ListOrder OrderAfterClick(const ListOrder& order, ListColumn column) {
    if (order.column != column) return {column, false};
    return order.isDescending ? ListOrder() : ListOrder{column, true};
}

}  // namespace corvane
