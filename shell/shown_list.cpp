#include "shell/shown_list.h"

#include <algorithm>
#include <numeric>

#include "report/reporters.h"
#include "shell/list_filter.h"
#include "shell/state.h"
#include "text/text.h"

namespace corvane {
namespace {

bool BeginsWith(const std::wstring& name, std::wstring_view text) {
    return EqualsIgnoringCase(std::wstring_view(name).substr(0, text.size()), text);
}

// How many models are shown, and how many there are.
std::wstring ShownText() {
    const auto count = static_cast<int32_t>(shell.database.rows.size());
    if (ReadFilter(shell.list.filter) != ListFilter()) {
        return FormatMessage(kMsgSomeModels, {LineCount(), count});
    }
    return count == 1 ? GetMessage(kMsgOneModel) : FormatMessage(kMsgAllModels, {count});
}

}  // namespace

void ArrangeLines() {
    std::vector<int>& shown = shell.list.rows;
    shown.resize(shell.database.rows.size());
    std::iota(shown.begin(), shown.end(), 0);
    FilterRows(shell.database.rows, ReadFilter(shell.list.filter), shown);
    SortRows(shell.database.rows, shell.list.order, shown);
}

void ForgetLines() {
    shell.list.rows.clear();
}

int LineCount() {
    return static_cast<int>(shell.list.rows.size());
}

const ModelRow& RowOfLine(int line) {
    const int row = shell.list.rows.at(static_cast<size_t>(line));
    return shell.database.rows.at(static_cast<size_t>(row));
}

int LineOfRow(size_t row) {
    const std::vector<int>& shown = shell.list.rows;
    const auto line = std::ranges::find(shown, static_cast<int>(row));
    return line == shown.end() ? -1 : static_cast<int>(line - shown.begin());
}

std::vector<size_t> SelectedRows() {
    std::vector<size_t> rows;
    for (const int line : shell.view.selectedLines()) {
        rows.push_back(static_cast<size_t>(shell.list.rows.at(static_cast<size_t>(line))));
    }
    std::ranges::sort(rows);
    return rows;
}

int FindLine(std::wstring_view text, int first) {
    const int count = LineCount();
    for (int i = 0; i < count; ++i) {
        const int line = (first + i) % count;
        if (BeginsWith(RowOfLine(line).name, text)) return line;
    }
    return -1;
}

void SetListOrder(const ListOrder& order) {
    shell.list.order = order;
}

void SetListFilter(const std::wstring& text) {
    shell.list.filter = text;
}

void SetColumnWidths(const ColumnWidths& widths) {
    shell.list.widths = widths;
}

std::wstring ModelCountText() {
    if (!IsDatabaseOpen()) return {};
    const int selected = shell.view.selectedCount();
    return selected > 1 ? FormatMessage(kMsgSelectedModels, {ShownText(), selected}) : ShownText();
}

}  // namespace corvane
