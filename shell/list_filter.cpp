#include "shell/list_filter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/letter_case.h"
#include "text/numbers.h"

namespace corvane {
namespace {

constexpr std::wstring_view kBlanks = L" \t\r\n";

// What is left to read of a filter's text, in lower case.
struct Rest {
    std::wstring_view text;

    void SkipBlanks() {
        text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    }
    // The letters up to a blank.
    std::wstring_view Word() const { return text.substr(0, text.find_first_of(kBlanks)); }
    bool Take(std::wstring_view expected) {
        if (!text.starts_with(expected)) return false;
        text.remove_prefix(expected.size());
        return true;
    }
    // A word that is a number; false, and nothing is taken, when it is not.
    bool TakeNumber(double& number) {
        SkipBlanks();
        const std::wstring_view word = Word();
        if (word.empty() || !ReadsAsNumber(word)) return false;
        number = LeadingNumber(word);
        text.remove_prefix(word.size());
        return true;
    }
};

// Each of these takes what it is made for, and puts it into the filter; otherwise it is false, and
// nothing is taken.

bool TakeLimit(Rest& rest, ListFilter& filter) {
    Rest ahead = rest;
    if (!ahead.Take(L"x")) return false;
    ahead.SkipBlanks();
    for (const wchar_t* comparison : {L">=", L"<=", L">", L"<", L"="}) {
        if (!ahead.Take(comparison)) continue;
        PositionLimit limit;
        limit.comparison = comparison;
        if (!ahead.TakeNumber(limit.x_m)) return false;
        filter.limits.push_back(std::move(limit));
        rest = ahead;
        return true;
    }
    return false;
}

bool TakeFrame(Rest& rest, ListFilter& filter) {
    Rest ahead = rest;
    double frame = 0;
    if (!ahead.Take(L"fr") || !ahead.TakeNumber(frame)) return false;
    // Frames have 16 bits.
    if (frame != std::floor(frame) || std::fabs(frame) > 40'000) return false;
    filter.frames.push_back(static_cast<int>(frame));
    rest = ahead;
    return true;
}

bool TakeQuoted(Rest& rest, ListFilter& filter) {
    if (!rest.Take(L"\"")) return false;
    const std::wstring_view words = rest.text.substr(0, rest.text.find(L'"'));
    rest.text.remove_prefix(words.size());
    rest.Take(L"\"");
    if (!words.empty()) filter.words.emplace_back(words);
    return true;
}

bool TakeKind(Rest& rest, ListFilter& filter) {
    constexpr std::pair<std::wstring_view, ModelKind> kKinds[] = {
        {L"section", ModelKind::kSection},
        {L"bulkhead", ModelKind::kBulkhead},
        {L"bhd", ModelKind::kBulkhead},
        {L"torsion", ModelKind::kTorsion}};
    for (const auto& [word, kind] : kKinds) {
        if (rest.Word() != word) continue;
        filter.kinds.push_back(kind);
        return rest.Take(word);
    }
    return false;
}

void TakeWord(Rest& rest, ListFilter& filter) {
    filter.words.emplace_back(rest.Word());
    rest.Take(filter.words.back());
}

// A position as the list shows it.
double Shown(double x_m) {
    return std::round(x_m * 1000) / 1000;
}

bool IsWithin(const PositionLimit& limit, double shown_m) {
    if (limit.comparison == L">") return shown_m > limit.x_m;
    if (limit.comparison == L">=") return shown_m >= limit.x_m;
    if (limit.comparison == L"<") return shown_m < limit.x_m;
    if (limit.comparison == L"<=") return shown_m <= limit.x_m;
    return shown_m == Shown(limit.x_m);
}

// The name aside.
bool Passes(const ListFilter& filter, const ModelRow& row) {
    const auto isOfKind = [&](ModelKind kind) { return row.kind == kind; };
    const auto isAtFrame = [&](int frame) { return row.frame == frame; };
    const auto isWithin = [&](const PositionLimit& limit) {
        return !row.x.empty() && IsWithin(limit, Shown(double{row.x_m}));
    };
    return std::ranges::all_of(filter.kinds, isOfKind) &&
           std::ranges::all_of(filter.frames, isAtFrame) &&
           std::ranges::all_of(filter.limits, isWithin);
}

}  // namespace

ListFilter ReadFilter(std::wstring_view text) {
    const std::wstring lower = system::InLowerCase(text);
    ListFilter filter;
    Rest rest{lower};
    for (rest.SkipBlanks(); !rest.text.empty(); rest.SkipBlanks()) {
        if (!TakeQuoted(rest, filter) && !TakeLimit(rest, filter) && !TakeFrame(rest, filter) &&
            !TakeKind(rest, filter)) {
            TakeWord(rest, filter);
        }
    }
    return filter;
}

void FilterRows(const std::vector<ModelRow>& rows, const ListFilter& filter,
                std::vector<int>& indexes) {
    std::erase_if(indexes,
                  [&](int index) { return !Passes(filter, rows[static_cast<size_t>(index)]); });
    if (filter.words.empty()) return;
    std::vector<int> kept;
    ForEachNameInLowerCase(rows, indexes, [&](int index, std::wstring_view name) {
        const auto isInName = [&](const std::wstring& word) {
            return name.find(word) != std::wstring_view::npos;
        };
        if (std::ranges::all_of(filter.words, isInName)) kept.push_back(index);
    });
    indexes = std::move(kept);
}

}  // namespace corvane
