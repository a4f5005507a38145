#include "shell/list_order.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace corvane {
namespace {

// A row as the sorting sees it: one of number and text is the same for all rows.
struct SortKey {
    bool isMissing = false;
    double number = 0;
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
    for (size_t at = 0; at < name.size();) {
        if (IsDigit(name[at])) {
            at += AppendNumber(key, name.substr(at));
        } else {
            key += name[at++];
        }
    }
}

// Gives each key the text that its row's name is compared by; `texts` holds them all.
void FillInNames(const std::vector<ModelRow>& rows, const std::vector<int>& indexes,
                 std::wstring& texts, std::vector<SortKey>& keys) {
    const std::wstring names = NamesInLowerCase(rows, indexes);
    // A number takes two letters more than its digits.
    texts.reserve(3 * names.size());
    size_t name = 0;
    for (SortKey& key : keys) {
        const size_t length = rows[static_cast<size_t>(key.index)].name.size();
        const size_t begin = texts.size();
        AppendNameKey(texts, std::wstring_view(names).substr(name, length));
        key.text = std::wstring_view(texts).substr(begin);
        name += length;
    }
}

SortKey KeyOf(const ModelRow& row, int index, ListColumn column) {
    SortKey key;
    key.index = index;
    switch (column) {
        case ListColumn::kName:
            break;
        case ListColumn::kX:
            key.isMissing = row.x.empty();
            key.number = double{row.x_m};
            break;
        case ListColumn::kNumber:
            key.number = row.tag;
            break;
        case ListColumn::kKind:
            key.text = row.type;
            break;
        case ListColumn::kFrame:
            key.isMissing = !row.frame.has_value();
            key.number = row.frame.value_or(0);
            break;
    }
    return key;
}

// Rows that are equal are told apart by their index, so that every order is one of all rows.
bool IsBefore(const SortKey& a, const SortKey& b, bool isDescending) {
    if (a.isMissing || b.isMissing) {
        return a.isMissing == b.isMissing ? a.index < b.index : b.isMissing;
    }
    if (a.number != b.number) return (a.number < b.number) != isDescending;
    const int comparison = a.text.compare(b.text);
    return comparison == 0 ? a.index < b.index : (comparison < 0) != isDescending;
}

}  // namespace

void SortRows(const std::vector<ModelRow>& rows, const ListOrder& order,
              std::vector<int>& indexes) {
    if (!order.column) {
        if (order.isDescending) std::ranges::reverse(indexes);
        return;
    }
    std::vector<SortKey> keys;
    keys.reserve(indexes.size());
    for (const int index : indexes) {
        keys.push_back(KeyOf(rows[static_cast<size_t>(index)], index, *order.column));
    }
    std::wstring texts;
    if (order.column == ListColumn::kName) FillInNames(rows, indexes, texts, keys);
    std::ranges::sort(keys, [&](const SortKey& a, const SortKey& b) {
        return IsBefore(a, b, order.isDescending);
    });
    std::ranges::transform(keys, indexes.begin(), &SortKey::index);
}

ListOrder OrderAfterClick(const ListOrder& order, ListColumn column) {
    if (order.column != column) return {column, false};
    return order.isDescending ? ListOrder() : ListOrder{column, true};
}

}  // namespace corvane
