#include "shell/list_settings.h"

#include <algorithm>
#include <optional>

#include "shell/settings.h"
#include "shell/state.h"
#include "text/numbers.h"

namespace corvane {
namespace {

constexpr char kSection[] = "Corvane window";
constexpr char kColumnKey[] = "SortColumn";  // its title; empty: the order of the file
constexpr char kDescendingKey[] = "SortDescending";
constexpr char kFilterKey[] = "Filter";
// Of all columns, with blanks between; "-" for one that the user has not sized.
constexpr char kWidthsKey[] = "ColumnWidths";

// Wider than any screen [pixels at 96 dots per inch].
constexpr int kWidest = 10'000;

std::wstring Value(const char* key, const std::wstring& file) {
    return GetIniString(system::WideFromAnsi(kSection), system::WideFromAnsi(key), L"", file);
}

std::optional<ListColumn> ColumnOfTitle(const std::wstring& title) {
    const auto column = std::ranges::find(ModelColumns(), title, &ModelColumn::title);
    if (column == ModelColumns().end()) return std::nullopt;
    return static_cast<ListColumn>(column - ModelColumns().begin());
}

std::wstring TitleOf(const std::optional<ListColumn>& column) {
    return column ? ModelColumns()[static_cast<size_t>(*column)].title : L"";
}

ColumnWidths ReadWidths(const std::wstring& text) {
    ColumnWidths widths;
    size_t begin = 0;
    for (std::optional<int>& width : widths) {
        const size_t end = std::min(text.find(L' ', begin), text.size());
        const std::wstring item = text.substr(begin, end - begin);
        if (ReadsAsNumber(item)) width = std::clamp(LeadingInteger(item), 0, kWidest);
        begin = std::min(end + 1, text.size());
    }
    return widths;
}

std::wstring WidthsText(const ColumnWidths& widths) {
    std::wstring text;
    for (const std::optional<int>& width : widths) {
        if (!text.empty()) text += L' ';
        text += width ? std::to_wstring(*width) : L"-";
    }
    return text;
}

// A filter that the file's single bytes cannot hold would be another one at the next start.
std::string FilterBytes() {
    const std::string bytes = system::AnsiFromWide(shell.list.filter);
    return system::WideFromAnsi(bytes) == shell.list.filter ? bytes : std::string();
}

}  // namespace

void ReadListSettings(const std::wstring& file) {
    SetListOrder({ColumnOfTitle(Value(kColumnKey, file)), Value(kDescendingKey, file) == L"1"});
    SetListFilter(Value(kFilterKey, file));
    SetColumnWidths(ReadWidths(Value(kWidthsKey, file)));
}

bool WriteListSettings(const std::wstring& file) {
    const ListOrder& order = shell.list.order;
    // The quotes keep blanks at the ends of the filter.
    const std::pair<const char*, std::string> values[] = {
        {kColumnKey, system::AnsiFromWide(TitleOf(order.column))},
        {kDescendingKey, order.isDescending ? "1" : "0"},
        {kFilterKey, '"' + FilterBytes() + '"'},
        {kWidthsKey, system::AnsiFromWide(WidthsText(shell.list.widths))}};
    return std::ranges::all_of(values, [&](const auto& value) {
        return WriteIniText(kSection, value.first, value.second, file) == system::kErrorNone;
    });
}

}  // namespace corvane
