// Arrays whose index bounds are part of the type, so that the indexes in the code are the ones of
// the file layouts; and texts of fixed length. Templates only, so there is no source beside this.
//
// All are plain values: they are copied and compared as a whole, and hold no memory elsewhere. An
// index out of bounds is a bug and asserted, in release builds, too.
#pragma once

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

// Elements first..last, zeroed at first: TypeCodes(1) is the first element of an Array<T, 1, 10>.
template <class T, int first, int last>
struct Array {
    static constexpr int kFirst = first;
    static constexpr int kLast = last;
    static constexpr int kCount = last - first + 1;

    std::array<T, kCount> elements{};  // in the order of the indexes, for loops over all

    T& operator()(int index) {
        assert(index >= first && index <= last);
        return elements[static_cast<size_t>(index - first)];
    }
    const T& operator()(int index) const {
        assert(index >= first && index <= last);
        return elements[static_cast<size_t>(index - first)];
    }
    bool operator==(const Array&) const = default;
};

// A table 1..firstIndexes by 1..secondIndexes whose first index runs fastest in memory, which is
// the order in which the files have it.
template <class T, int firstIndexes, int secondIndexes>
struct Table {
    std::array<T, firstIndexes * secondIndexes> elements{};

    T& operator()(int i, int j) { return elements[IndexOf(i, j)]; }
    const T& operator()(int i, int j) const { return elements[IndexOf(i, j)]; }
    bool operator==(const Table&) const = default;

private:
    static size_t IndexOf(int i, int j) {
        assert(i >= 1 && i <= firstIndexes && j >= 1 && j <= secondIndexes);
        const int index = (j - 1) * firstIndexes + (i - 1);
        return static_cast<size_t>(index);
    }
};

// A text of exactly `length` characters: padded with blanks on the right when it is assigned, cut
// when longer. A new one is all blanks.
template <int length>
struct FixedText {
    std::array<wchar_t, length> characters;

    FixedText() { Assign(L""); }
    // The new text, whatever there was before.
    void Assign(std::wstring_view text) {
        const size_t kept = std::min(text.size(), characters.size());
        std::copy_n(text.begin(), kept, characters.begin());
        std::fill(characters.begin() + static_cast<ptrdiff_t>(kept), characters.end(), L' ');
    }
    // All characters, trailing blanks included.
    std::wstring_view Whole() const { return {characters.data(), characters.size()}; }
    // Without the blanks at both ends.
    std::wstring Trimmed() const {
        const std::wstring_view whole = Whole();
        const size_t begin = whole.find_first_not_of(L' ');
        if (begin == std::wstring_view::npos) return {};
        return std::wstring(whole.substr(begin, whole.find_last_not_of(L' ') - begin + 1));
    }
    bool operator==(const FixedText&) const = default;
};

}  // namespace corvane
