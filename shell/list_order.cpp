#include "shell/list_order.h"

#include <algorithm>
#include <cstdint>
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

constexpr size_t kBytesAtOnce = 8;

// The names as they are compared, byte by byte; after each of them are zeros.
struct NameTexts {
    std::string bytes;
    std::vector<size_t> begins;  // of each name's
};

struct NameKey {
    uint64_t bytes = 0;  // those that it is sorted by at the moment, the first one the highest
    size_t name = 0;     // its index in NameTexts
};

bool IsDigit(wchar_t letter) {
    return letter >= L'0' && letter <= L'9';
}

// Bytes that a letter has at most; a number's first digit, with what is put in front of it, has no
// more either.
constexpr size_t kMostOfALetter = 3;
constexpr ptrdiff_t kMostDigits = 0x7FFF;

// Writes a letter as bytes that compare as the letters do, and of which none is 0: nearly all of
// them as one byte, the others as three with the highest bit set. They have at most 21 bits.
char* PutLetter(char* to, uint32_t letter) {
    const uint32_t value = letter + 1;
    if (value < 0x80) {
        *to++ = static_cast<char>(value);
    } else {
        for (const int bits : {14, 7, 0}) {
            *to++ = static_cast<char>(0x80 | (value >> bits & 0x7F));
        }
    }
    return to;
}

// Writes the digits at the start of a name, without leading zeros and with their count in front, so
// that texts compare as the numbers do. Returns where the name goes on.
const wchar_t* PutNumber(char*& to, const wchar_t* name, const wchar_t* end) {
    const wchar_t* const after = std::find_if_not(name, end, IsDigit);
    while (name + 1 != after && *name == L'0') ++name;
    to = PutLetter(to, L'0');
    to = PutLetter(to, static_cast<uint32_t>(std::min<ptrdiff_t>(after - name, kMostDigits)));
    while (name != after) to = PutLetter(to, static_cast<uint32_t>(*name++));
    return after;
}

void AppendName(NameTexts& names, std::wstring_view name) {
    const size_t used = names.bytes.size();
    names.begins.push_back(used);
    names.bytes.resize(used + kMostOfALetter * name.size());
    char* to = names.bytes.data() + used;
    const wchar_t* at = name.data();
    const wchar_t* const end = at + name.size();
    while (at != end) {
        if (IsDigit(*at)) {
            at = PutNumber(to, at, end);
        } else {
            to = PutLetter(to, static_cast<uint32_t>(*at++));
        }
    }
    names.bytes.resize(static_cast<size_t>(to - names.bytes.data()));
    names.bytes.append(kBytesAtOnce, '\0');
}

// The next bytes of a name from `at` on, which is its end or before it.
uint64_t BytesAt(const NameTexts& names, size_t name, size_t at) {
    const char* const text = names.bytes.data() + names.begins[name] + at;
    const auto byte = [&](int i) {
        return uint64_t{static_cast<unsigned char>(text[i])} << (56 - 8 * i);
    };
    return byte(0) | byte(1) | byte(2) | byte(3) | byte(4) | byte(5) | byte(6) | byte(7);
}

// Keys whose texts are the same before `at`.
struct AlikeKeys {
    std::span<NameKey> keys;
    size_t at = 0;
};

// Sorts keys by their next bytes. Those that are the same there, too, become entries of `alike`,
// unless their texts have ended.
void SortByBytes(const NameTexts& names, const AlikeKeys& some, bool isDescending,
                 std::vector<AlikeKeys>& alike) {
    const uint64_t turned = isDescending ? ~uint64_t{0} : 0;
    bool areSame = true;
    for (NameKey& key : some.keys) {
        key.bytes = BytesAt(names, key.name, some.at) ^ turned;
        areSame = areSame && key.bytes == some.keys.front().bytes;
    }
    if (!areSame) {
        std::ranges::sort(some.keys, [](const NameKey& a, const NameKey& b) {
            return a.bytes != b.bytes ? a.bytes < b.bytes : a.name < b.name;
        });
    }
    for (auto begin = some.keys.begin(), end = begin; begin != some.keys.end(); begin = end) {
        const auto isSame = [&](const NameKey& key) { return key.bytes == begin->bytes; };
        end = std::find_if_not(begin, some.keys.end(), isSame);
        const bool haveEnded = ((begin->bytes ^ turned) & 0xFF) == 0;
        if (end - begin > 1 && !haveEnded) alike.push_back({{begin, end}, some.at + kBytesAtOnce});
    }
}

void SortByName(const std::vector<ModelRow>& rows, bool isDescending, std::vector<int>& indexes) {
    // Of most names; what remains unused costs nothing.
    constexpr size_t kUsualBytes = 64;
    NameTexts names;
    names.bytes.reserve(kUsualBytes * indexes.size());
    names.begins.reserve(indexes.size());
    const auto append = [&](int, std::wstring_view name) { AppendName(names, name); };
    ForEachNameInLowerCase(rows, indexes, append);
    std::vector<NameKey> keys(indexes.size());
    for (size_t i = 0; i < keys.size(); ++i) keys[i].name = i;
    std::vector<AlikeKeys> alike = {{keys}};
    while (!alike.empty()) {
        const AlikeKeys some = alike.back();
        alike.pop_back();
        SortByBytes(names, some, isDescending, alike);
    }
    const std::vector<int> before = indexes;
    std::ranges::transform(keys, indexes.begin(),
                           [&](const NameKey& key) { return before[key.name]; });
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
