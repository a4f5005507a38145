#include "shell/report.h"

#include <numeric>

#include "report/reporters.h"
#include "shell/file_prompt.h"
#include "shell/new_file.h"
#include "shell/open_database.h"
#include "shell/state.h"
#include "text/text.h"
#include "text/utf8.h"

namespace corvane {
namespace {

std::wstring TextLine(const std::vector<std::wstring>& cells) {
    std::wstring line;
    for (const std::wstring& cell : cells) {
        if (&cell != &cells.front()) line += L'\t';
        line += OnOneLine(cell);
    }
    return line + L"\r\n";
}

bool HasDetails(const Report& report) {
    for (const ReportRow& row : report.rows) {
        if (!row.details.empty()) return true;
    }
    return false;
}

std::wstring Titles(const Report& report, bool hasDetails) {
    std::vector<std::wstring> titles;
    for (const ReportColumn& column : report.columns) titles.push_back(column.title);
    if (hasDetails) titles.push_back(GetMessage(kMsgReportDetails));
    return TextLine(titles);
}

std::vector<size_t> AllRows(const Report& report) {
    std::vector<size_t> rows(report.rows.size());
    std::iota(rows.begin(), rows.end(), size_t{0});
    return rows;
}

void WriteReport(const Report& report, TextWriter& writer) {
    // Editors know UTF-8 by its mark.
    WriteText(writer, "\xEF\xBB\xBF");
    WriteText(writer, Utf8Text(ReportAsText(report)));
}

}  // namespace

std::wstring ReportAsText(const Report& report, const std::vector<size_t>& rows) {
    std::wstring text = report.title + L"\r\n" + WithLineFeeds(report.summary) + L"\r\n\r\n";
    const bool hasDetails = HasDetails(report);
    text += Titles(report, hasDetails);
    for (const size_t index : rows) {
        std::vector<std::wstring> cells = report.rows.at(index).cells;
        if (hasDetails) cells.push_back(report.rows.at(index).details);
        text += TextLine(cells);
    }
    return text;
}

std::wstring ReportAsText(const Report& report) {
    return ReportAsText(report, AllRows(report));
}

void CopyReport(const Report& report, const std::vector<size_t>& rows) {
    const std::vector<size_t> copied = rows.empty() ? AllRows(report) : rows;
    if (!shell.view.copyText(ReportAsText(report, copied), {})) {
        return ReportMessage(kMsgNotCopied);
    }
    ReportNote(kMsgReportCopied, {static_cast<int32_t>(copied.size())});
}

void SaveReport(const Report& report) {
    const std::wstring path = AskForFile({.command = report.command,
                                          .types = GetMessage(kMsgReportFiles),
                                          .defaultExtension = L"txt",
                                          .proposed = report.fileName + L".txt",
                                          .directory = shell.settings.BrowseDirectory,
                                          .toSave = true});
    if (path.empty() || !RequireOtherFile(path)) return;
    const FileEnd end = ExportFile(path, [&report](const std::wstring& temporary) {
        return WriteTextFile(temporary,
                             [&report](TextWriter& writer) { WriteReport(report, writer); });
    });
    if (end == FileEnd::kMade) ReportNote(kMsgReportWritten, {path});
}

}  // namespace corvane
