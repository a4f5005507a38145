#include "shell/list_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <numeric>
#include <vector>

#include "shell/model_list.h"
#include "shell/shown_list.h"
#include "shell/state.h"
#include "text/markup.h"
#include "text/text.h"
#include "text/utf8.h"

namespace corvane {
namespace {

using Cells = std::vector<std::wstring>;

std::vector<int> ListedLines() {
    if (shell.view.selectedCount() > 1) return shell.view.selectedLines();
    std::vector<int> lines(static_cast<size_t>(LineCount()));
    std::iota(lines.begin(), lines.end(), 0);
    return lines;
}

// Calls `use` with the titles, and then with the cells of each line.
void ForEachRow(const std::function<void(const Cells& cells, bool areTitles)>& use) {
    Cells cells;
    for (const ModelColumn& column : ModelColumns()) cells.emplace_back(column.title);
    use(cells, true);
    for (const int line : ListedLines()) {
        cells.clear();
        const ModelRow& row = RowOfLine(line);
        for (const ModelColumn& column : ModelColumns()) cells.push_back(Trim(column.text(row)));
        use(cells, false);
    }
}

std::string CsvCell(const std::wstring& cell) {
    std::string bytes = Utf8Text(cell);
    if (bytes.find_first_of(",\"\r\n") == bytes.npos) return bytes;
    std::string quoted = "\"";
    for (const char letter : bytes) quoted += letter == '"' ? "\"\"" : std::string(1, letter);
    return quoted + '"';
}

std::string HtmlTable() {
    std::wstring table = L"<table>\r\n";
    ForEachRow([&table](const Cells& cells, bool areTitles) {
        const std::wstring tag = areTitles ? L"th>" : L"td>";
        table += L"<tr>";
        for (const std::wstring& cell : cells) {
            table += L'<';
            table += tag;
            table += MarkupText(cell);
            table += L"</";
            table += tag;
        }
        table += L"</tr>\r\n";
    });
    return Utf8Text(table + L"</table>");
}

}  // namespace

int ListedCount() {
    return static_cast<int>(ListedLines().size());
}

std::wstring ListAsText() {
    std::wstring text;
    ForEachRow([&text](const Cells& cells, bool) {
        for (const std::wstring& cell : cells) {
            text += OnOneLine(cell) + (&cell == &cells.back() ? L"\r\n" : L"\t");
        }
    });
    return text;
}

std::string ListAsHtml() {
    const std::string before = "<html><body>\r\n<!--StartFragment-->";
    const std::string after = "<!--EndFragment-->\r\n</body></html>";
    const std::string table = HtmlTable();
    std::array<char, 128> head{};
    // The head says where things are, itself included: it is as long with any number.
    const auto writeHead = [&](size_t size) {
        const size_t fragment = size + before.size();
        const size_t end = fragment + table.size();
        return std::snprintf(head.data(), head.size(),
                             "Version:0.9\r\nStartHTML:%010zu\r\nEndHTML:%010zu\r\n"
                             "StartFragment:%010zu\r\nEndFragment:%010zu\r\n",
                             size, end + after.size(), fragment, end);
    };
    writeHead(static_cast<size_t>(writeHead(0)));
    return head.data() + before + table + after;
}

void WriteListAsCsv(TextWriter& writer) {
    WriteText(writer, "\xEF\xBB\xBF");
    ForEachRow([&writer](const Cells& cells, bool) {
        std::string line;
        for (const std::wstring& cell : cells) {
            line += CsvCell(cell) + (&cell == &cells.back() ? "" : ",");
        }
        WriteLine(writer, line);
    });
}

}  // namespace corvane
